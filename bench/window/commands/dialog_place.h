#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWidget>

#include "window/window_memory.h"

namespace vanzet::window {

/// The places of the main window and of a dialog, frames included.
struct SideBySide {
  QRect window, dialog;
};

/// Puts a dialog beside a window, right of it where there is room, else left; the window becomes as narrow as
/// that needs, but not narrower than `least`. On a smaller screen they overlap by what is missing.
SideBySide PlaceBeside(const QRect& screen, const QRect& window, const QSize& dialog, int least);

/// Keeps the module's dialog beside the views while a call is at work. A dialog that the user moves comes up
/// there from then on, and the window then stays as it is. The screen has the last word on the place of a
/// window that it has not shown yet: the dialog is placed again then.
class DialogPlace final : public QObject {
  Q_OBJECT
 public:
  DialogPlace(QWidget& window, WindowMemory& memory, QObject* parent);

  void Begin();
  void End();  ///< the window gets its size back

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool IsOnScreen() const;
  void Place(QWidget& dialog);
  void MakeRoom(const QRect& place, const QSize& frame);
  void Remember(const QWidget& dialog);

  QWidget& window_;
  WindowMemory& memory_;
  QPointer<QWidget> dialog_;  ///< that was placed
  QPoint placed_;
  QRect before_;  ///< of the window; empty while it was left as it was
  QSize given_;   ///< of the window, for the dialog
  bool wasMaximized_ = false;
  bool isEarly_ = false;  ///< the dialog came before the screen showed the window
};

}  // namespace vanzet::window

#pragma once

#include <QEventLoop>
#include <functional>

#include "drawing/picks.h"
#include "window/docks/choice_dock.h"
#include "window/views/drawing_view.h"
#include "window/views/equipment_view.h"
#include "window/views/hint_bar.h"
#include "window/texts.h"

namespace vanzet::window {

/// Lets a person answer a pick in the window: a position in the drawing, a figure there or from a list, a
/// solid in space or from a list. Escape, and the button of the hint, break it off.
class PickSession final : public QObject {
  Q_OBJECT
 public:
  struct Desk {
    const Texts& texts;
    HintBar& hint;
    DrawingView& drawing;
    EquipmentView& equipment;
    ChoiceDock& choice;
    std::function<void()> refresh;                  ///< shows the drawing as it is now
    std::function<QStringList()> figures;           ///< names
    std::function<QStringList()> solids;            ///< names
    std::function<void(const QString&)> showSolid;  ///< in the place of the equipment
    std::function<void()> showEquipment;            ///< again
  };
  explicit PickSession(Desk desk);

  /// Returns when it is answered.
  drawing::Pick Ask(const drawing::PickQuestion& question);

  bool isAsking() const { return loop_.isRunning(); }
  void Cancel() { loop_.quit(); }

 private:
  void Begin(const drawing::PickQuestion& question);
  void End();
  void Take(drawing::Pick pick);
  bool eventFilter(QObject* watched, QEvent* event) override;

  Desk desk_;
  QEventLoop loop_;
  drawing::Pick::Kind asked_ = drawing::Pick::Kind::kCancel;
  drawing::Pick answer_;
  QString marked_;  ///< the solid that is shown
};

/// The picks of a module's call, answered in the window.
class WindowPicks final : public drawing::PickSource {
 public:
  explicit WindowPicks(PickSession& session) : session_(session) {}

  Result<drawing::Pick> Next(const drawing::PickQuestion& asked) override { return session_.Ask(asked); }
  Fault At(const drawing::Pick&, std::string text) const override { return Fault{std::move(text)}; }

 private:
  PickSession& session_;
};

}  // namespace vanzet::window

#pragma once

#include <QToolButton>

#include "window/checks/background_check.h"
#include "window/checks/check_dock.h"
#include "window/commands/equipment_commands.h"
#include "window/commands/workplace.h"

class QStatusBar;

namespace vanzet::window {

/// Checks the open project after each stored step, and shows what was found: in the dock, as a count in the
/// status bar, and the chosen finding in both views. Nothing is ever refused.
class CheckCommands final : public QObject {
  Q_OBJECT
 public:
  struct Parts {
    CheckDock& dock;
    DrawingView& drawing;
    EquipmentView& equipment;
    EquipmentCommands& commands;
    QStatusBar& bar;
  };
  CheckCommands(Workplace& workplace, Parts parts, QObject* parent);

  /// Checks what is stored, soon.
  void Renew();

 signals:
  void SpurWanted(int spur);  ///< the chosen finding is about that one

 private:
  void Connect();
  void ShowCount();
  void ShowChosen();
  void OpenPage();
  void OpenRule();

  Workplace& workplace_;
  Parts parts_;
  BackgroundCheck check_;
  QToolButton* count_;
};

}  // namespace vanzet::window

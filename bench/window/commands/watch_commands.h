#pragma once

#include "window/commands/equipment_commands.h"
#include "window/commands/workplace.h"
#include "window/watch/holders_label.h"
#include "window/watch/project_watch.h"

class QStatusBar;

namespace vanzet::window {

/// Shows what others do to the open project: it is read again as soon as nothing is at work here, and the
/// status bar says who has something open.
class WatchCommands final : public QObject {
  Q_OBJECT
 public:
  WatchCommands(Workplace& workplace, EquipmentCommands& equipment, QStatusBar& bar, QObject* parent);

  /// Watches the project that was opened. Requires: a project is open.
  void WatchProject() { watch_.Watch(*workplace_.session); }

 private:
  void ConnectLabel(const EquipmentCommands& equipment);

  Workplace& workplace_;
  ProjectWatch watch_;
  HoldersLabel* holders_;
};

}  // namespace vanzet::window

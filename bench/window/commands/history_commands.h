#pragma once

#include <QObject>
#include <QTimer>
#include <cstdint>
#include <vector>

#include "window/actions.h"
#include "window/commands/workplace.h"
#include "window/docks/history_dock.h"

namespace vanzet::window {

/// The commands on the history of the project: its list, and the way back to a state.
class HistoryCommands final : public QObject {
  Q_OBJECT
 public:
  HistoryCommands(Workplace& workplace, HistoryDock& dock, QObject* parent);

  /// False for a command of another menu.
  bool Run(Command command);

  /// Shows the history as it is now; does nothing while the list is not visible.
  void Refresh();

  /// Another project is open.
  void Forget() { undo_.clear(); }

  /// A call of the module begins or ends: what it changed can be undone.
  void NoteCall(bool isAtWork);

 signals:
  void Changed();  ///< the definitions of the project were changed

 private:
  void Undo();
  /// False after a fault, which is reported.
  bool GoBackTo(std::int64_t generation);
  std::int64_t Last() const;
  void ShowPictures();

  Workplace& workplace_;
  HistoryDock& dock_;
  QTimer pictures_;  ///< draws once for many rows that are passed
  std::int64_t beforeCall_ = 0;
  std::vector<std::int64_t> undo_;  ///< the generations before each change that was made here
};

}  // namespace vanzet::window

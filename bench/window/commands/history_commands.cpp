#include "window/commands/history_commands.h"

namespace vanzet::window {

HistoryCommands::HistoryCommands(Workplace& workplace, HistoryDock& dock, QObject* parent)
    : QObject(parent), workplace_(workplace), dock_(dock) {
  connect(&dock, &HistoryDock::RestoreWanted, this, [this](qint64 generation, const QString& when) {
    if (workplace_.session->isAtWork()) return workplace_.reportDone(workplace_.texts(Text::kAtWork));
    const std::int64_t before = Last();
    GoBackTo(generation, when);
    if (Last() != before) undo_.push_back(before);
  });
  connect(&dock, &QDockWidget::visibilityChanged, this, &HistoryCommands::Refresh);
}

bool HistoryCommands::Run(Command command) {
  if (command != Command::kUndo) return false;
  Undo();
  return true;
}

void HistoryCommands::Refresh() {
  if (!workplace_.session || !dock_.isVisible()) return;
  const auto entries = workplace_.session->History();
  if (!entries) return workplace_.reportFault(entries.fault());
  dock_.Show(*entries);
}

void HistoryCommands::NoteCall(bool isAtWork) {
  if (isAtWork) {
    beforeCall_ = Last();
  } else if (Last() != beforeCall_) {
    undo_.push_back(beforeCall_);
  }
}

/// Puts back what was before the last dialog, upgrade or restored state of this window.
void HistoryCommands::Undo() {
  if (undo_.empty()) return workplace_.reportDone(workplace_.texts(Text::kNothingToUndo));
  const std::int64_t generation = undo_.back();
  undo_.pop_back();
  GoBackTo(generation, workplace_.texts(Text::kBeforeLastChange));
}

void HistoryCommands::GoBackTo(std::int64_t generation, const QString& when) {
  const auto restored = workplace_.session->Restore(generation);
  if (!restored) return workplace_.reportFault(restored.fault());
  workplace_.reportDone(workplace_.texts(Text::kRestored).arg(when));
  emit Changed();
}

/// 0 where the history cannot be read: the list says why.
std::int64_t HistoryCommands::Last() const {
  const auto last = workplace_.session->LastGeneration();
  return last ? *last : 0;
}

}  // namespace vanzet::window

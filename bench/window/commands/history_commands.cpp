#include "window/commands/history_commands.h"

#include "window/commands/live_equipment.h"

namespace vanzet::window {
namespace {

constexpr int kPictureDelay = 80;  // milliseconds

/// The section of the equipment of a definition; null when it cannot be drawn.
std::shared_ptr<const ShownSection> SectionOf(const Workplace& workplace,
                                              const std::optional<project::Definition>& definition) {
  if (!definition) return nullptr;
  const auto scene = workplace.session->SceneOf(*definition, workplace.BodySource());
  return scene ? SectionToShow(workplace, scene::ReadEquipment(*definition), *scene) : nullptr;
}

}  // namespace

HistoryCommands::HistoryCommands(Workplace& workplace, HistoryDock& dock, QObject* parent)
    : QObject(parent), workplace_(workplace), dock_(dock) {
  connect(&dock, &HistoryDock::RestoreWanted, this, [this](qint64 generation, const QString& when) {
    if (workplace_.session->isAtWork()) return workplace_.reportDone(workplace_.texts(Text::kAtWork));
    const std::int64_t before = Last();
    if (!GoBackTo(generation)) return;
    workplace_.reportDone(workplace_.texts(Text::kRestored).arg(when));
    if (Last() != before) undo_.push_back(before);
  });
  connect(&dock, &QDockWidget::visibilityChanged, this, &HistoryCommands::Refresh);
  pictures_.setSingleShot(true);
  pictures_.setInterval(kPictureDelay);
  connect(&pictures_, &QTimer::timeout, this, &HistoryCommands::ShowPictures);
  const auto soon = [this] { pictures_.start(); };
  connect(&dock, &HistoryDock::StateChosen, this, soon);
  connect(workplace.bodies.get(), &BodyReader::Arrived, this, soon);
}

/// A state that is not kept any more has no picture; its row says so when it is to be restored.
void HistoryCommands::ShowPictures() {
  if (!workplace_.session || !dock_.isVisible()) return;
  if (workplace_.isBusy || workplace_.session->isAtWork()) return pictures_.start();
  const std::int64_t chosen = dock_.Chosen();
  const auto then = workplace_.session->DefinitionAt(chosen, workplace_.spur);
  const auto now = results::ReadDefinition(workplace_.session->project(), workplace_.spur);
  dock_.ShowPictures(chosen != 0 && then ? SectionOf(workplace_, *then) : nullptr,
                     now ? SectionOf(workplace_, now->definition) : nullptr);
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
  pictures_.start();
}

void HistoryCommands::NoteCall(bool isAtWork) {
  if (isAtWork) {
    beforeCall_ = Last();
  } else if (Last() != beforeCall_) {
    undo_.push_back(beforeCall_);
  }
}

/// Puts back what was before the last dialog, upgrade or restored state of this window that changed
/// something: an OK without a change is a generation, too, and nobody means that one.
void HistoryCommands::Undo() {
  const std::int64_t before = Last();
  while (!undo_.empty() && Last() == before) {
    const std::int64_t generation = undo_.back();
    undo_.pop_back();
    if (!GoBackTo(generation)) return;
  }
  const bool isBack = Last() != before;
  workplace_.reportDone(isBack
                            ? workplace_.texts(Text::kRestored).arg(workplace_.texts(Text::kBeforeLastChange))
                            : workplace_.texts(Text::kNothingToUndo));
}

bool HistoryCommands::GoBackTo(std::int64_t generation) {
  const auto restored = workplace_.session->Restore(generation);
  if (!restored) {
    workplace_.reportFault(restored.fault());
    return false;
  }
  emit Changed();
  return true;
}

/// 0 where the history cannot be read: the list says why.
std::int64_t HistoryCommands::Last() const {
  const auto last = workplace_.session->LastGeneration();
  return last ? *last : 0;
}

}  // namespace vanzet::window

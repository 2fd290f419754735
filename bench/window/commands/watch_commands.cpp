#include "window/commands/watch_commands.h"

#include <QStatusBar>

namespace vanzet::window {

WatchCommands::WatchCommands(Workplace& workplace, EquipmentCommands& equipment, QStatusBar& bar,
                             QObject* parent)
    : QObject(parent),
      workplace_(workplace),
      watch_(nullptr),
      holders_(new HoldersLabel(workplace.texts, &bar)) {
  bar.insertPermanentWidget(0, holders_);
  ConnectLabel(equipment);
  connect(&watch_, &ProjectWatch::Changed, &equipment, &EquipmentCommands::Refresh);
  connect(&watch_, &ProjectWatch::ChangedMeanwhile, &equipment, &EquipmentCommands::ShowLive);
  connect(&equipment, &EquipmentCommands::RefreshBegins, &watch_, &ProjectWatch::NoteRefresh);
}

void WatchCommands::ConnectLabel(const EquipmentCommands& equipment) {
  connect(&watch_, &ProjectWatch::Begun, holders_, &HoldersLabel::Forget);
  connect(&watch_, &ProjectWatch::HoldersChanged, holders_, &HoldersLabel::Show);
  connect(&equipment, &EquipmentCommands::AtWork, holders_, &HoldersLabel::SetAtWork);
  connect(&watch_, &ProjectWatch::Lost, holders_, &HoldersLabel::SetFault);
  connect(&watch_, &ProjectWatch::Regained, holders_, [this] {
    holders_->SetFault({});
    workplace_.reportDone(workplace_.texts(Text::kStoreRegained));
  });
}

}  // namespace vanzet::window

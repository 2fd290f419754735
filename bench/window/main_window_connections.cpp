#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>

#include "window/commands/body_marks.h"
#include "window/commands/dialog_place.h"
#include "window/docks/findings_in_front.h"
#include "window/main_window.h"
#include "window/qt_text.h"

/// The connections between the parts of the window and the families of commands.
namespace vanzet::window {

void MainWindow::ConnectCommands() {
  connect(actions_, &Actions::Triggered, this, &MainWindow::Run);
  connect(actions_, &Actions::LanguageChosen, viewCommands_, &ViewCommands::ChooseLanguage);
  QMenu* const recent = actions_->MenuOf(Menu::kRecent);
  connect(recent, &QMenu::aboutToShow, this, [this, recent] { projectCommands_->FillRecent(*recent); });
  connect(projectCommands_, &ProjectCommands::Opened, this, &MainWindow::ShowProject);
  connect(projectCommands_, &ProjectCommands::Changed, equipmentCommands_, &EquipmentCommands::Refresh);
  connect(projectCommands_, &ProjectCommands::FileImported, this, [this](const QString& file) {
    messages_->Add(MessageDock::Kind::kNote, texts_(Text::kImported).arg(file));
  });
  connect(viewCommands_, &ViewCommands::AppearanceChanged, this, &MainWindow::Retranslate);
  connect(viewCommands_, &ViewCommands::UnitChosen, equipmentCommands_, &EquipmentCommands::Refresh);
  connect(viewCommands_, &ViewCommands::AppearanceChanged, equipmentCommands_,
          &EquipmentCommands::RefreshDrawing);
  connect(equipmentCommands_, &EquipmentCommands::AtWork, historyCommands_, &HistoryCommands::NoteCall);
  connect(equipmentCommands_, &EquipmentCommands::Refreshed, historyCommands_, &HistoryCommands::Refresh);
  connect(historyCommands_, &HistoryCommands::Changed, equipmentCommands_, &EquipmentCommands::Refresh);
  connect(equipmentCommands_, &EquipmentCommands::AtWork, this,
          [this](bool isAtWork) { actions_->Enable(true, isAtWork); });
  auto* const place = new DialogPlace(*this, memory_, this);
  connect(equipmentCommands_, &EquipmentCommands::AtWork, place,
          [place](bool isAtWork) { isAtWork ? place->Begin() : place->End(); });
  // Picks are in the views.
  connect(equipmentCommands_, &EquipmentCommands::AtWork, catalogueCommands_, &CatalogueCommands::Leave);
  connect(definition_, &DefinitionDock::DeviceWanted, catalogueCommands_, &CatalogueCommands::ShowDevice);
  connect(checkCommands_, &CheckCommands::SpurWanted, this, &MainWindow::ActivateSpur);
  new BodyMarks(workplace_, {*drawing_, *equipment_, *bodies_, *definition_}, this);
}

void MainWindow::ConnectParts() {
  connect(&texts_, &Texts::Changed, this, &MainWindow::Retranslate);
  connect(messages_, &MessageDock::FaultAdded, this,
          [this](const QString& text) { statusBar()->showMessage(text, kFaultTime); });
  connect(layers_, &LayerDock::LayerSwitched, this,
          [this](const QString& name, bool isOn) { drawing_->Hide(name.toStdString(), !isOn); });
  connect(layers_, &LayerDock::PartSwitched, this,
          [this](const QString& name, bool isOn) { drawing_->HidePart(name.toStdString(), !isOn); });
  connect(drawing_, &DrawingView::PartsChanged, this, [this] { layers_->ShowParts(drawing_->parts()); });
  connect(viewCommands_, &ViewCommands::AppearanceChanged, this,
          [this] { layers_->ShowParts(drawing_->parts()); });
  auto* const front = new FindingsInFront(*checks_, checks_->tree(), this);
  connect(projectCommands_, &ProjectCommands::Opened, front, &FindingsInFront::Begin);
  connect(drawing_, &DrawingView::CursorMoved, this, &MainWindow::ShowPosition);
  connect(drawing_, &DrawingView::CursorLeft, position_, &QLabel::clear);
  connect(spurs_, &QComboBox::activated, equipmentCommands_, &EquipmentCommands::ShowSpur);
  connect(definition_, &DefinitionDock::SpurActivated, this, &MainWindow::ActivateSpur);
}

/// A dock and the switch in its menu follow each other.
void MainWindow::ConnectDockSwitches() {
  for (const auto& [command, dock] : {std::pair<Command, QDockWidget*>{Command::kDefinitionTree, definition_},
                                      {Command::kBodies, bodies_},
                                      {Command::kLayers, layers_},
                                      {Command::kMessages, messages_},
                                      {Command::kHistory, history_},
                                      {Command::kChecks, checks_}}) {
    QAction* const action = (*actions_)[command];
    connect(action, &QAction::triggered, dock, &QWidget::setVisible);
    connect(dock, &QDockWidget::visibilityChanged, action,
            [action, shown = dock] { action->setChecked(!shown->isHidden()); });
  }
}

}  // namespace vanzet::window

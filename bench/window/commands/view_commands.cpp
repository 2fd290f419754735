#include <QApplication>
#include <QLabel>
#include <QLibraryInfo>
#include <QMessageBox>
#include <algorithm>

#include "window/help_window.h"
#include "window/main_window.h"
#include "window/qt_text.h"
#include "window/theme.h"

/// What is seen, and how.
namespace vanzet::window {
namespace {

struct ViewRow {
  Command command;
  scene::View view;
};
constexpr ViewRow kViews[] = {
    {Command::kIso, scene::View::kIso},     {Command::kFront, scene::View::kFront},
    {Command::kBack, scene::View::kBack},   {Command::kTop, scene::View::kTop},
    {Command::kLeft, scene::View::kLeft},   {Command::kBottom, scene::View::kBottom},
    {Command::kRight, scene::View::kRight},
};

}  // namespace

bool MainWindow::RunView(Command command) {
  if (const auto* const row = std::ranges::find(kViews, command, &ViewRow::command);
      row != std::end(kViews)) {
    equipment_->LookFrom(row->view);
    return true;
  }
  const bool isOn = (*actions_)[command]->isChecked();
  switch (command) {
    case Command::kFit:
      drawing_->Fit();
      equipment_->Fit();
      return true;
    case Command::kSection:
      if (const auto cut = equipment_->SetSection(isOn); !cut) Tell(cut.fault());
      return true;
    case Command::kPerspective: equipment_->SetPerspective(isOn); return true;
    case Command::kBothViews:
    case Command::kDrawingOnly:
    case Command::kEquipmentOnly: Arrange(command); return true;
    case Command::kLight: Wear(Appearance::kLight); return true;
    case Command::kDark: Wear(Appearance::kDark); return true;
    default: return false;
  }
}

void MainWindow::Arrange(Command command) {
  drawingPane_->setVisible(command != Command::kEquipmentOnly);
  equipmentPane_->setVisible(command != Command::kDrawingOnly);
}

void MainWindow::ChooseLanguage(const std::string& language) {
  memory_.Choose(language);
  ApplyLanguage(language);
}

void MainWindow::ApplyLanguage(const std::string& language) {
  if (const auto set = texts_.SetLanguage(language); !set) return Tell(set.fault());
  const QLocale locale(Shown(language));
  QCoreApplication::removeTranslator(&toolkitTexts_);
  if (toolkitTexts_.load(locale, "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&toolkitTexts_);
  }
}

void MainWindow::Wear(Appearance appearance) {
  memory_.Choose(appearance);
  Dress(*qApp, appearance);
  if (session_) RefreshDrawing();
}

void MainWindow::ShowPosition(double x, double y) {
  constexpr int kDecimals = 3;
  position_->setText(QString("X %1   Y %2 mm").arg(x, 0, 'f', kDecimals).arg(y, 0, 'f', kDecimals));
}

void MainWindow::ShowContents() {
  if (const auto shown = ShowHelp("window.md"); !shown) Tell(shown.fault());
}

Result<void> MainWindow::ShowHelp(const char* page) {
  if (help_ == nullptr) help_ = new HelpWindow(texts_, this);
  return help_->Open(places_.share.parent_path() / "doc" / "vanzet" / page);
}

void MainWindow::ShowAbout() {
  QMessageBox::about(this, texts_(Text::kAbout).remove('&'), texts_(Text::kAboutText).arg(VANZET_VERSION));
}

}  // namespace vanzet::window

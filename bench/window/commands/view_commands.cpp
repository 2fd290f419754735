#include "window/commands/view_commands.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <algorithm>

#include "window/commands/settings_box.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

struct SideRow {
  Command command;
  scene::View view;
};
constexpr SideRow kSides[] = {
    {Command::kIso, scene::View::kIso},     {Command::kFront, scene::View::kFront},
    {Command::kBack, scene::View::kBack},   {Command::kTop, scene::View::kTop},
    {Command::kLeft, scene::View::kLeft},   {Command::kBottom, scene::View::kBottom},
    {Command::kRight, scene::View::kRight},
};

/// The arrangements of the two views, with their names in the settings.
struct ArrangementRow {
  Command command;
  QLatin1StringView name;
};
constexpr ArrangementRow kArrangements[] = {
    {Command::kBothViews, QLatin1StringView("both")},
    {Command::kDrawingOnly, QLatin1StringView("drawing")},
    {Command::kEquipmentOnly, QLatin1StringView("equipment")},
};

}  // namespace

ViewCommands::ViewCommands(Workplace& workplace, Texts& texts, WindowMemory& memory, Parts parts,
                           QObject* parent)
    : QObject(parent), workplace_(workplace), texts_(texts), memory_(memory), parts_(parts) {}

bool ViewCommands::Run(Command command, bool isOn) {
  if (const auto* const row = std::ranges::find(kSides, command, &SideRow::command);
      row != std::end(kSides)) {
    parts_.equipment.LookFrom(row->view);
    return true;
  }
  switch (command) {
    case Command::kFit:
      parts_.drawing.Fit();
      parts_.equipment.Fit();
      return true;
    case Command::kSection: parts_.equipment.SetSection(isOn); return true;
    case Command::kHalfSection: parts_.drawing.SetSectionVisible(isOn); return true;
    case Command::kMeasure:
      parts_.drawing.SetMeasuring(isOn);
      parts_.equipment.SetMeasuring(isOn);
      return true;
    case Command::kGrid: parts_.drawing.SnapToGrid(isOn); return true;
    case Command::kPerspective: parts_.equipment.SetPerspective(isOn); return true;
    case Command::kBothViews:
    case Command::kDrawingOnly:
    case Command::kEquipmentOnly: Arrange(command); return true;
    case Command::kSettings: AskForSettings(); return true;
    case Command::kLight: ApplyAppearance(Appearance::kLight); return true;
    case Command::kDark: ApplyAppearance(Appearance::kDark); return true;
    default: return false;
  }
}

Command ViewCommands::RememberedViews() const {
  const QString name = memory_.Views();
  const auto* const row = std::ranges::find(kArrangements, name, &ArrangementRow::name);
  return row == std::end(kArrangements) ? Command::kBothViews : row->command;
}

void ViewCommands::Arrange(Command command) {
  memory_.SetViews(std::ranges::find(kArrangements, command, &ArrangementRow::command)->name);
  parts_.drawingPane.setVisible(command != Command::kEquipmentOnly);
  parts_.equipmentPane.setVisible(command != Command::kDrawingOnly);
}

void ViewCommands::AskForSettings() {
  const Settings now = {texts_.language(), AppearanceOf(qApp->palette()), memory_.Unit(), memory_.Decimals(),
                        parts_.equipment.mouseStyle()};
  SettingsBox box(texts_, now, workplace_.window);
  if (box.exec() != QDialog::Accepted) return;
  const Settings chosen = box.Chosen();
  if (chosen.language != now.language) ChooseLanguage(chosen.language);
  if (chosen.appearance != now.appearance) ApplyAppearance(chosen.appearance);
  memory_.SetDecimals(chosen.decimals);
  memory_.SetMouseStyle(NameOf(chosen.mouse));
  parts_.equipment.SetMouseStyle(chosen.mouse);
  if (chosen.unit == now.unit) return;
  memory_.SetUnit(chosen.unit);
  emit UnitChosen();
}

void ViewCommands::ChooseLanguage(const std::string& language) {
  memory_.SetLanguage(language);
  workplace_.Report(ApplyLanguage(language));
}

void ViewCommands::ApplyRememberedLanguage() {
  const std::string language = memory_.Language();
  workplace_.Report(ApplyLanguage(texts_.Has(language) ? language : texts_.language()));
}

Result<void> ViewCommands::ApplyLanguage(const std::string& language) {
  VANZET_DO(texts_.SetLanguage(language));
  QCoreApplication::removeTranslator(&toolkitTexts_);
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (toolkitTexts_.load(QLocale(ToQString(language)), "qtbase", "_", folder))
    QCoreApplication::installTranslator(&toolkitTexts_);
  return {};
}

void ViewCommands::ApplyAppearance(Appearance appearance) {
  memory_.SetAppearance(appearance);
  window::ApplyAppearance(*qApp, appearance);
  emit AppearanceChanged();
}

}  // namespace vanzet::window

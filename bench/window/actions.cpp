#include "window/actions.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <map>

#include "window/qt_text.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

// clang-format off
constexpr ActionRow kRows[] = {
    // command                  menu               text                   icon           keys
    //                          needs            form   bar    group
    { Command::kNewProject,    Menu::kProject,    Text::kNewProject,     "new",         "Ctrl+N",       Needs::kRest,    ' ',   true,  false },
    { Command::kOpenProject,   Menu::kProject,    Text::kOpenProject,    "open",        "Ctrl+O",       Needs::kRest,    ' ',   true,  false },
    { Command::kRecent,        Menu::kProject,    Text::kRecent,         "",            "",             Needs::kRest,    'm',   false, false },
    { Command::kSaveVdm,       Menu::kProject,    Text::kSaveVdm,        "save",        "Ctrl+S",       Needs::kProject, ' ',   false, true  },
    { Command::kLoadVdm,       Menu::kProject,    Text::kLoadVdm,        "load",        "Ctrl+L",       Needs::kProject, ' ',   false, false },
    { Command::kSettings,      Menu::kProject,    Text::kSettings,       "",            "Ctrl+,",       Needs::kRest,    ' ',   false, true  },
    { Command::kQuit,          Menu::kProject,    Text::kQuit,           "quit",        "Ctrl+Q",       Needs::kRest,    ' ',   false, true  },
    { Command::kDefinition,    Menu::kEquipment,  Text::kDefinition,     "definition",  "Ctrl+D",       Needs::kProject, ' ',   true,  false },
    { Command::kUpgrade,       Menu::kEquipment,  Text::kUpgrade,        "upgrade",     "Ctrl+U",       Needs::kProject, ' ',   true,  false },
    { Command::kUndo,          Menu::kEquipment,  Text::kUndo,           "undo",        "Ctrl+Z",       Needs::kProject, ' ',   true,  false },
    { Command::kRefresh,       Menu::kEquipment,  Text::kRefresh,        "refresh",     "F5",           Needs::kProject, ' ',   true,  true  },
    { Command::kCatalogue,     Menu::kEquipment,  Text::kCatalogue,      "",            "Ctrl+K",       Needs::kProject, ' ',   false, true  },
    { Command::kFit,           Menu::kView,       Text::kFit,            "fit",         "Ctrl+0",       Needs::kView,    ' ',   true,  false },
    { Command::kIso,           Menu::kView,       Text::kIso,            "iso",         "1",            Needs::kView,    ' ',   false, true  },
    { Command::kFront,         Menu::kView,       Text::kFront,          "front",       "2",            Needs::kView,    ' ',   false, false },
    { Command::kBack,          Menu::kView,       Text::kBack,           "back",        "3",            Needs::kView,    ' ',   false, false },
    { Command::kTop,           Menu::kView,       Text::kTop,            "top",         "4",            Needs::kView,    ' ',   false, false },
    { Command::kBottom,        Menu::kView,       Text::kBottom,         "bottom",      "5",            Needs::kView,    ' ',   false, false },
    { Command::kLeft,          Menu::kView,       Text::kLeft,           "left",        "6",            Needs::kView,    ' ',   false, false },
    { Command::kRight,         Menu::kView,       Text::kRight,          "right",       "7",            Needs::kView,    ' ',   false, false },
    { Command::kSection,       Menu::kView,       Text::kSectionView,    "section",     "Ctrl+X",       Needs::kView,    'x',   false, true  },
    { Command::kPerspective,   Menu::kView,       Text::kPerspective,    "perspective", "Ctrl+P",       Needs::kView,    'x',   false, false },
    { Command::kHalfSection,   Menu::kView,       Text::kHalfSection,    "section",     "Ctrl+H",       Needs::kView,    'x',   false, false },
    { Command::kMeasure,       Menu::kView,       Text::kMeasure,        "",            "Ctrl+M",       Needs::kView,    'x',   false, false },
    { Command::kGrid,          Menu::kView,       Text::kGrid,           "grid",        "Ctrl+G",       Needs::kView,    'x',   false, false },
    { Command::kBothViews,     Menu::kView,       Text::kBothViews,      "",            "F6",           Needs::kNothing, 'v',   false, true  },
    { Command::kDrawingOnly,   Menu::kView,       Text::kDrawingOnly,    "drawing",     "F7",           Needs::kNothing, 'v',   false, false },
    { Command::kEquipmentOnly, Menu::kView,       Text::kEquipmentOnly,  "equipment",   "F8",           Needs::kNothing, 'v',   false, false },
    { Command::kDefinitionTree,Menu::kView,       Text::kDefinitionTree, "",            "",             Needs::kNothing, 'd',   false, true  },
    { Command::kBodies,        Menu::kView,       Text::kBodies,         "",            "",             Needs::kNothing, 'd',   false, false },
    { Command::kLayers,        Menu::kView,       Text::kLayers,         "layers",      "",             Needs::kNothing, 'd',   false, false },
    { Command::kMessages,      Menu::kView,       Text::kMessages,       "",            "",             Needs::kNothing, 'd',   false, false },
    { Command::kHistory,       Menu::kView,       Text::kHistory,        "",            "",             Needs::kNothing, 'd',   false, false },
    { Command::kChecks,        Menu::kView,       Text::kChecks,         "",            "",             Needs::kNothing, 'd',   false, false },
    { Command::kLight,         Menu::kAppearance, Text::kLight,          "",            "",             Needs::kNothing, 'a',   false, false },
    { Command::kDark,          Menu::kAppearance, Text::kDark,           "",            "",             Needs::kNothing, 'a',   false, false },
    { Command::kDrawingSvg,    Menu::kExport,     Text::kDrawingSvg,     "drawing",     "",             Needs::kProject, ' ',   false, false },
    { Command::kDrawingPng,    Menu::kExport,     Text::kDrawingPng,     "picture",     "",             Needs::kProject, ' ',   false, false },
    { Command::kEquipmentPng,  Menu::kExport,     Text::kEquipmentPng,   "picture",     "",             Needs::kProject, ' ',   false, true  },
    { Command::kSetUpSheet,    Menu::kExport,     Text::kSetUpSheet,     "calls",       "",             Needs::kProject, ' ',   false, true  },
    { Command::kBodiesStep,    Menu::kExport,     Text::kBodiesStep,     "body",        "Ctrl+E",       Needs::kProject, ' ',   false, true  },
    { Command::kBodiesStl,     Menu::kExport,     Text::kBodiesStl,      "body",        "",             Needs::kProject, ' ',   false, false },
    { Command::kBodiesWrl,     Menu::kExport,     Text::kBodiesWrl,      "body",        "",             Needs::kProject, ' ',   false, false },
    { Command::kBodiesGltf,    Menu::kExport,     Text::kBodiesGltf,     "body",        "",             Needs::kProject, ' ',   false, false },
    { Command::kContents,      Menu::kHelp,       Text::kContents,       "help",        "F1",           Needs::kNothing, ' ',   false, false },
    { Command::kPalette,       Menu::kHelp,       Text::kPalette,        "calls",       "Ctrl+Shift+P", Needs::kNothing, ' ',   false, false },
    { Command::kAbout,         Menu::kHelp,       Text::kAbout,          "about",       "",             Needs::kNothing, ' ',   false, true  },
};

struct MenuRow {
  Menu menu;
  Text text;
  Menu within;  ///< `kCount`: the bar
};
constexpr MenuRow kMenus[] = {
    { Menu::kProject,    Text::kProjectMenu,    Menu::kCount },
    { Menu::kEquipment,  Text::kEquipmentMenu,  Menu::kCount },
    { Menu::kView,       Text::kViewMenu,       Menu::kCount },
    { Menu::kExport,     Text::kExportMenu,     Menu::kCount },
    { Menu::kHelp,       Text::kHelpMenu,       Menu::kCount },
    { Menu::kRecent,     Text::kRecent,         Menu::kProject },
    { Menu::kLanguage,   Text::kLanguageMenu,   Menu::kView },
    { Menu::kAppearance, Text::kAppearanceMenu, Menu::kView },
};
// clang-format on

/// The forms whose rows are switched on and off independently.
bool IsSwitch(char form) {
  return form == 'x' || form == 'd';
}

}  // namespace

std::span<const ActionRow> ActionRows() {
  return kRows;
}

Text TextOf(Command command) {
  return kRows[static_cast<std::size_t>(command)].text;
}

Actions::Actions(QMainWindow& window, const Texts& texts) : QObject(&window), texts_(texts) {
  auto* const bar = window.addToolBar("");
  bar->setObjectName("tools");
  bar->setMovable(false);
  bar->setIconSize(QSize(22, 22));
  MakeMenus(window);
  for (const ActionRow& row : kRows) MakeAction(row, *bar);
  MakeLanguages();
  for (const Menu menu : {Menu::kLanguage, Menu::kAppearance}) MenuOf(Menu::kView)->addMenu(MenuOf(menu));
  connect(&texts_, &Texts::Changed, this, &Actions::Retranslate);
  Retranslate();
  Enable(false, false);
}

void Actions::MakeMenus(QMainWindow& window) {
  for (const MenuRow& row : kMenus) {
    auto* const menu = new QMenu(&window);
    menus_[static_cast<std::size_t>(row.menu)] = menu;
    if (row.within == Menu::kCount) window.menuBar()->addMenu(menu);
  }
}

void Actions::MakeAction(const ActionRow& row, QToolBar& bar) {
  QMenu* const menu = MenuOf(row.menu);
  QAction* const action = row.form == 'm' ? MenuOf(Menu::kRecent)->menuAction() : new QAction(menu);
  actions_[static_cast<std::size_t>(row.command)] = action;
  if (row.icon[0] != '\0') action->setIcon(MakeIcon(row.icon));
  action->setShortcut(QKeySequence(row.shortcut));
  action->setCheckable(row.form != ' ' && row.form != 'm');
  if (action->isCheckable() && !IsSwitch(row.form)) {
    const QString name(QChar::fromLatin1(row.form));
    auto* group = findChild<QActionGroup*>(name);
    if (group == nullptr) group = new QActionGroup(this), group->setObjectName(name);
    group->addAction(action);
  }
  if (row.beginsGroup) menu->addSeparator();
  menu->addAction(action);
  if (row.isInToolBar) {
    if (row.beginsGroup || row.command == Command::kDefinition) bar.addSeparator();
    bar.addAction(action);
    // The command that the program is for has its name beside its icon.
    auto* const button = qobject_cast<QToolButton*>(bar.widgetForAction(action));
    const bool isMain = row.command == Command::kDefinition;
    button->setToolButtonStyle(isMain ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
  }
  if (row.form != 'm')
    connect(action, &QAction::triggered, this,
            [this, &row](bool isOn) { emit Triggered(row.command, isOn); });
}

void Actions::MakeLanguages() {
  auto* const group = new QActionGroup(this);
  for (const Language& language : texts_.languages()) {
    QAction* const action = MenuOf(Menu::kLanguage)->addAction(ToQString(language.name));
    action->setObjectName(ToQString(language.code));
    action->setCheckable(true);
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, code = language.code] { emit LanguageChosen(code); });
  }
}

QAction* Actions::ActionOf(const std::string& language) const {
  return MenuOf(Menu::kLanguage)->findChild<QAction*>(ToQString(language));
}

void Actions::Retranslate() {
  for (const ActionRow& row : kRows) {
    QAction* const action = (*this)[row.command];
    action->setText(texts_(row.text));
    const QString keys = action->shortcut().toString(QKeySequence::NativeText);
    const QString name = texts_(row.text).remove('&').remove("...");
    action->setToolTip(keys.isEmpty() ? name : name + " (" + keys + ")");
  }
  for (const MenuRow& row : kMenus) MenuOf(row.menu)->setTitle(texts_(row.text));
}

void Actions::Enable(bool hasProject, bool isAtWork) {
  for (const ActionRow& row : kRows) {
    const bool isAllowed = row.needs == Needs::kNothing || (row.needs == Needs::kRest && !isAtWork) ||
                           (row.needs == Needs::kProject && hasProject && !isAtWork) ||
                           (row.needs == Needs::kView && hasProject);
    (*this)[row.command]->setEnabled(isAllowed);
  }
}

}  // namespace vanzet::window

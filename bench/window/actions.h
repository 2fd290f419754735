#pragma once

#include <QAction>
#include <array>
#include <span>
#include <string>

#include "window/texts.h"

class QMainWindow;
class QMenu;
class QToolBar;

namespace vanzet::window {

// clang-format off
/// The commands of the menus, in their order.
enum class Command {
  kNewProject, kOpenProject, kRecent, kSaveVdm, kLoadVdm, kSettings, kQuit,
  kDefinition, kUpgrade, kUndo, kRefresh, kCatalogue,
  kFit, kIso, kFront, kBack, kTop, kBottom, kLeft, kRight, kSection, kPerspective, kHalfSection, kMeasure, kGrid,
  kBothViews, kDrawingOnly, kEquipmentOnly, kDefinitionTree, kBodies, kLayers, kMessages, kHistory, kChecks,
  kLight, kDark,
  kDrawingSvg, kDrawingPng, kEquipmentPng, kSetUpSheet, kBodiesStep, kBodiesStl, kBodiesWrl, kBodiesGltf,
  kContents, kPalette, kAbout,
  kCount
};
// clang-format on

/// The menus of the bar, and those within others.
enum class Menu { kProject, kEquipment, kView, kExport, kHelp, kRecent, kLanguage, kAppearance, kCount };

/// The conditions of commands.
enum class Needs {
  kNothing,
  kRest,     ///< the module is not at work
  kProject,  ///< a project is open, and the module is not at work
  kView,     ///< a project is open
};

struct ActionRow {
  Command command;
  Menu menu;
  Text text;
  const char* icon;      ///< empty: none
  const char* shortcut;  ///< as Qt writes it; empty: none
  Needs needs;
  char form;  ///< ' ' a command, 'x' a switch, 'm' a menu, another letter: one of several that exclude each
              ///< other
  bool isInToolBar;
  bool beginsGroup;
};

/// The rows of all commands, in their order.
std::span<const ActionRow> ActionRows();

/// The text of a command's row.
Text TextOf(Command command);

/// The actions of a window, and the menus and the tool bar with them.
class Actions final : public QObject {
  Q_OBJECT
 public:
  Actions(QMainWindow& window, const Texts& texts);

  QAction* operator[](Command command) const { return actions_[static_cast<std::size_t>(command)]; }
  /// The action that chooses a language; null for one without texts.
  QAction* ActionOf(const std::string& language) const;
  QMenu* MenuOf(Menu menu) const { return menus_[static_cast<std::size_t>(menu)]; }

  /// Enables the commands whose conditions are fulfilled.
  void Enable(bool hasProject, bool isAtWork);

 signals:
  /// `isOn` is the state of a switch.
  void Triggered(Command command, bool isOn);
  void LanguageChosen(const std::string& language);

 private:
  void MakeMenus(QMainWindow& window);
  void MakeAction(const ActionRow& row, QToolBar& bar);
  void MakeLanguages();
  void Retranslate();

  const Texts& texts_;
  std::array<QAction*, static_cast<std::size_t>(Command::kCount)> actions_ = {};
  std::array<QMenu*, static_cast<std::size_t>(Menu::kCount)> menus_ = {};
};

}  // namespace vanzet::window

#pragma once

#include <QString>

namespace vanzet::window {

enum class Language { kEnglish, kGerman };

// clang-format off
/// The texts of the window, in the order of their table. A '&' stands before the letter of a menu's key, "%1"
/// and "%2" for what is put in.
enum class Text {
  kProjectMenu, kEquipmentMenu, kViewMenu, kExportMenu, kHelpMenu, kLanguageMenu, kAppearanceMenu,
  kNewProject, kOpenProject, kRecent, kSaveVdm, kLoadVdm, kQuit, kDefinition, kUpgrade, kRefresh, kFit,
  kIso, kFront, kBack, kTop, kBottom, kLeft, kRight, kSectionView, kPerspective, kBothViews, kDrawingOnly,
  kEquipmentOnly, kDefinitionTree, kLayers, kMessages, kEnglish, kGerman, kLight, kDark, kDrawingSvg,
  kDrawingPng, kEquipmentPng, kBodiesStep, kBodiesStl, kBodiesWrl, kBodiesGltf, kContents, kAbout,
  kWindowTitle, kHelpTitle, kAboutText, kDrawing, kEquipment, kNoProject, kNothingDrawn, kNoEquipment,
  kAllCalls, kCopyAll, kClear,
  kTreeName, kTreeContent, kSpur, kNoDefinition, kVdmAndVersion, kDamaged, kSection, kItems, kMoreItems,
  kPickHint, kPickPosition, kPickFigure, kPickSolid, kFigures, kSolids, kCancel,
  kImporting, kMakingScene, kExporting, kAtWork, kOpenElsewhere, kShownElsewhere,
  kProjectName, kPlace, kSample, kBrowse, kMake, kTaken, kChooseProject, kChooseFolder, kNone, kWritten,
  kLoaded, kImported, kNameTaken, kKeepBoth, kReplace, kSkip,
  kCount
};
// clang-format on

/// The text in that language.
QString TextIn(Language language, Text text);

}  // namespace vanzet::window

#pragma once

#include <QObject>
#include <QString>
#include <filesystem>
#include <string>
#include <vector>

#include "base/translations.h"

namespace vanzet::window {

// clang-format off
/// The texts of the window, in the order of their table. A '&' precedes the letter of a menu's key; "%1" and
/// "%2" are the places of what is put in.
enum class Text {
  kProjectMenu, kEquipmentMenu, kViewMenu, kExportMenu, kHelpMenu, kLanguageMenu, kAppearanceMenu,
  kNewProject, kOpenProject, kRecent, kSaveVdm, kLoadVdm, kQuit, kDefinition, kUpgrade, kRefresh, kFit,
  kIso, kFront, kBack, kTop, kBottom, kLeft, kRight, kSectionView, kPerspective, kHalfSection, kMeasure, kGrid, kBothViews,
  kDrawingOnly,
  kEquipmentOnly, kDefinitionTree, kLayers, kMessages, kLight, kDark, kDrawingSvg,
  kDrawingPng, kEquipmentPng, kSetUpSheet, kBodiesStep, kBodiesStl, kBodiesWrl, kBodiesGltf, kContents, kAbout,
  kWindowTitle, kHelpTitle, kAboutText, kDrawnByOpenGl, kDrawnByPainter, kViewCube, kSectionPlane, kPlaneUpright, kPlaneLevel, kPlaneAcross, kSectionPlace,
  kDrawing, kEquipment, kNoProject, kNothingDrawn, kNoEquipment,
  kAllCalls, kCopyAll, kClear,
  kTreeName, kTreeContent, kSpur, kSpurChoice, kNoDefinition, kVdmAndVersion, kDamaged, kSection, kItems, kMoreItems, kRecords, kDefinePart, kCopyRow,
  kBodies, kShownBodies, kSeeThrough, kDefinitionFiles, kClose,
  kPickHint, kPickPosition, kPickFigure, kPickSolid, kTypedPosition, kNotAPosition,
  kFigures, kSolids, kSearchNames, kCancel,
  kImporting, kReadingBody, kLongStep, kStillReading, kMakingScene, kMakingSheet, kExporting, kAtWork, kOpenElsewhere, kShownElsewhere, kNotStored, kNothingStored,
  kProjectName, kPlace, kSample, kBrowse, kMake, kAlreadyExists, kChooseProject, kNone, kWritten,
  kLoaded, kImported, kKeepBoth, kReplace, kSkip,
  kFloat, kHelpBack, kHelpSearch, kNotFound, kLines, kCancelled, kWelcome,
  kRecentProjects, kFromSample, kHowTo, kReadGuide, kPalette, kFindCommand, kSettings,
  kLanguage, kAppearance, kLengths, kUnitOfProject, kDecimals, kMouse, kLeftTurns, kMiddleTurns, kRightTurns, kOk,
  kUndo, kHistory, kWhen, kBy, kChange, kRestore, kRestored, kBeforeLastChange, kNothingToUndo,
  kStateThen, kStateNow, kNoSection, kDatum, kDimensions,
  kOpenBy, kPersonOn, kSince, kWholeProject, kStoreLost, kStoreRegained,
  kCatalogue, kSearchDevices, kAllKinds, kDeviceCount, kDevices, kDeviceName, kDeviceKind, kOwnSolid, kChooseDevices, kSameDevices,
  kAddDevice, kCopyDevice, kRemoveDevices, kUndoEdit, kContactSheet, kBackToProject, kShowInCatalogue,
  kChecks, kSeverity, kRule, kWhere, kFinding, kOpenPage, kExplainRule, kChecking,
  kCount
};
// clang-format on

/// The text in English, by which catalogues translate it.
const char* EnglishOf(Text text);

/// The texts of the window in the language of the moment. What shows texts sets them again at `Changed`.
class Texts final : public QObject {
  Q_OBJECT
 public:
  /// English. `share` is the folder of the workbench's own files.
  explicit Texts(std::filesystem::path share);

  /// The languages to choose from: English, and those that have a catalogue.
  const std::vector<Language>& languages() const { return languages_; }
  const std::string& language() const { return language_; }  ///< its code

  bool Has(const std::string& code) const;

  /// Fails when the language has no catalogue or a broken one; the language stays as it was.
  Result<void> SetLanguage(const std::string& code);

  QString operator()(Text text) const;

  /// Valid until `Changed`. For the texts of libraries, which have sections of their own.
  const Translations& translations() const { return translations_; }

 signals:
  void Changed();

 private:
  const std::filesystem::path share_;
  const std::vector<Language> languages_;
  std::string language_;
  Translations translations_;
};

}  // namespace vanzet::window

#include "window/texts.h"

#include <algorithm>
#include <array>

#include "window/qt_text.h"

namespace vanzet::window {
namespace {

/// The part of the catalogues in share/messages.
constexpr const char* kSection = "window";

struct TextRow {
  Text text;
  const char* english;
};

// clang-format off
constexpr std::array<TextRow, static_cast<std::size_t>(Text::kCount)> kTexts = {{
    { Text::kProjectMenu,      "&Project" },
    { Text::kEquipmentMenu,    "&Equipment" },
    { Text::kViewMenu,         "&View" },
    { Text::kExportMenu,       "E&xport" },
    { Text::kHelpMenu,         "&Help" },
    { Text::kLanguageMenu,     "Lang&uage" },
    { Text::kAppearanceMenu,   "Appeara&nce" },

    { Text::kNewProject,       "&New Project..." },
    { Text::kOpenProject,      "&Open Project..." },
    { Text::kRecent,           "&Recent Projects" },
    { Text::kSaveVdm,          "&Save Definition..." },
    { Text::kLoadVdm,          "&Load Definition..." },
    { Text::kQuit,             "&Quit" },
    { Text::kDefinition,       "&Define Equipment..." },
    { Text::kUpgrade,          "&Upgrade Definitions" },
    { Text::kRefresh,          "&Refresh" },
    { Text::kFit,              "&Fit" },
    { Text::kIso,              "&Isometric" },
    { Text::kFront,            "F&ront" },
    { Text::kBack,             "&Back" },
    { Text::kTop,              "&Top" },
    { Text::kBottom,           "B&ottom" },
    { Text::kLeft,             "&Left (Back Side of the Main Spindle)" },
    { Text::kRight,            "Rig&ht (Front Side of the Main Spindle)" },
    { Text::kSectionView,      "&Section" },
    { Text::kPerspective,      "&Perspective" },
    { Text::kHalfSection,      "Half Section in the Dra&wing" },
    { Text::kMeasure,          "Measure" },
    { Text::kGrid,             "Pick on the &Grid" },
    { Text::kBothViews,        "Drawing &and Equipment" },
    { Text::kDrawingOnly,      "&Drawing Only" },
    { Text::kEquipmentOnly,    "&Equipment Only" },
    { Text::kDefinitionTree,   "Definition" },
    { Text::kLayers,           "Layers" },
    { Text::kMessages,         "Messages" },
    { Text::kLight,            "&Light" },
    { Text::kDark,             "&Dark" },
    { Text::kDrawingSvg,       "Drawing as &SVG..." },
    { Text::kDrawingPng,       "Drawing as &PNG..." },
    { Text::kEquipmentPng,     "&Equipment as PNG..." },
    { Text::kSetUpSheet,       "Set-&up Sheet..." },
    { Text::kBodiesStep,       "Bodies as S&TEP..." },
    { Text::kBodiesStl,        "Bodies as ST&L..." },
    { Text::kBodiesWrl,        "Bodies as &VRML..." },
    { Text::kBodiesGltf,       "Bodies as &glTF..." },
    { Text::kContents,         "&Contents" },
    { Text::kAbout,            "&About the Workbench" },

    { Text::kWindowTitle,      "vanzet workbench" },
    { Text::kHelpTitle,        "vanzet help" },
    { Text::kAboutText,        "<h3>vanzet workbench %1</h3><p>Defines what holds the work on a turning or mill-turn machine.</p>" },
    { Text::kDrawnByOpenGl,     "The equipment is drawn by OpenGL: %1" },
    { Text::kDrawnByPainter,    "The equipment is drawn by the processor." },
    { Text::kViewCube,          "View cube" },
    { Text::kSectionPlane,      "Plane of the section" },
    { Text::kPlaneUpright,      "Along, upright" },
    { Text::kPlaneLevel,        "Along, level" },
    { Text::kPlaneAcross,       "Across" },
    { Text::kSectionPlace,      "Place of the section" },
    { Text::kDrawing,          "Drawing" },
    { Text::kEquipment,        "Equipment" },
    { Text::kNoProject,        "No project is open. Open or create one in the Project menu." },
    { Text::kNothingDrawn,     "Nothing is drawn yet." },
    { Text::kNoEquipment,      "This spindle has no equipment yet. Start with Define Equipment (Ctrl+D)." },
    { Text::kAllCalls,         "Show every call of the module" },
    { Text::kCopyAll,          "Copy all messages" },
    { Text::kClear,            "Clear" },

    { Text::kTreeName,         "Name" },
    { Text::kTreeContent,      "Value" },
    { Text::kSpur,             "Spindle %1" },
    { Text::kSpurChoice,       "Spindle whose equipment is shown" },
    { Text::kNoDefinition,     "no definition yet" },
    { Text::kVdmAndVersion,    "VDM %1, v%2" },
    { Text::kDamaged,          "damaged: %1" },
    { Text::kSection,          "Section %1" },
    { Text::kItems,            "items: %1" },
    { Text::kMoreItems,        "and %1 more" },

    { Text::kRecords,          "Stored records" },
    { Text::kDefinePart,       "&Define..." },
    { Text::kCopyRow,          "&Copy" },
    { Text::kBodies,           "Bodies" },
    { Text::kShownBodies,      "Shown" },
    { Text::kSeeThrough,       "See-through" },
    { Text::kDefinitionFiles,  "Definitions (%1)" },
    { Text::kClose,            "Close" },

    { Text::kPickHint,         "%1  (Esc cancels)" },
    { Text::kPickPosition,     "Pick a position in the drawing" },
    { Text::kPickFigure,       "Pick a figure" },
    { Text::kPickSolid,        "Pick a solid" },
    { Text::kTypedPosition,    "X and Y in %1, then Enter" },
    { Text::kNotAPosition,     "'%1' is not a position: expected two numbers, X and Y." },
    { Text::kFigures,          "Figures" },
    { Text::kSolids,           "Solids" },
    { Text::kSearchNames,      "Search by name or size" },
    { Text::kCancel,           "Cancel" },

    { Text::kImporting,        "Reading a solid..." },
    { Text::kReadingBody,      "Reading %1" },
    { Text::kLongStep,         "Reading %1: %2 % is done, and the next step takes long" },
    { Text::kStillReading,     "A solid is still being read. Try again when it is there." },
    { Text::kMakingScene,      "Building the picture of the equipment..." },
    { Text::kMakingSheet,      "Making the set-up sheet..." },
    { Text::kExporting,        "Writing the bodies..." },
    { Text::kAtWork,           "The dialog is still open, or other work is in progress." },
    { Text::kOpenElsewhere,    "VDM %1 of this project is open in another process. Nothing was changed here; try again when the other one has closed it." },
    { Text::kShownElsewhere,   "This project is open in another workbench as well (process %1). Nothing is lost: each shows what the other has stored." },
    { Text::kNotStored,        "What you have done since the last time is not stored yet. The dialog stays open, so that you can try again." },
    { Text::kNothingStored,    "Nothing is stored for this spindle yet." },

    { Text::kProjectName,      "Name" },
    { Text::kPlace,            "Folder" },
    { Text::kSample,           "Sample" },
    { Text::kBrowse,           "Browse..." },
    { Text::kMake,             "Create" },
    { Text::kAlreadyExists,     "%1 already exists." },
    { Text::kChooseProject,    "Choose a project folder" },
    { Text::kNone,             "none" },
    { Text::kWritten,          "Written: %1" },
    { Text::kLoaded,           "Loaded: %1" },
    { Text::kImported,         "Imported into the project: %1" },
    { Text::kKeepBoth,         "Keep Both" },
    { Text::kReplace,          "Replace" },
    { Text::kSkip,             "Skip" },

    { Text::kFloat,             "Float" },
    { Text::kHelpBack,          "Back" },
    { Text::kHelpSearch,        "Search the page, then Enter" },
    { Text::kNotFound,          "'%1' is not on this page." },
    { Text::kLines,             "Lines and answers of the module" },
    { Text::kCancelled,         "Cancelled. F5 builds the picture again." },
    { Text::kWelcome,           "Define what holds the work" },
    { Text::kRecentProjects,    "Recent projects" },
    { Text::kFromSample,        "New project from a sample" },
    { Text::kHowTo,             "How it is done" },
    { Text::kReadGuide,         "Read the guide" },
    { Text::kPalette,           "Commands and &Keys..." },
    { Text::kFindCommand,       "Letters of a command" },
    { Text::kSettings,          "Se&ttings..." },
    { Text::kLanguage,          "Language" },
    { Text::kAppearance,        "Appearance" },
    { Text::kLengths,           "Lengths" },
    { Text::kUnitOfProject,     "as the project says" },
    { Text::kDecimals,          "Decimals of the cursor's place" },
    { Text::kMouse,             "Mouse in the equipment" },
    { Text::kLeftTurns,         "Left turns; right, middle or Shift+left moves" },
    { Text::kMiddleTurns,       "Middle turns; Shift+middle moves; Ctrl+middle zooms" },
    { Text::kRightTurns,        "Right turns; middle moves; Ctrl+right zooms" },
    { Text::kOk,                "OK" },

    { Text::kUndo,              "Und&o the Last Change" },
    { Text::kHistory,           "History" },
    { Text::kWhen,              "When" },
    { Text::kBy,                "By" },
    { Text::kChange,            "Change" },
    { Text::kRestore,           "Restore" },
    { Text::kRestored,          "Restored: %1" },
    { Text::kBeforeLastChange,  "the state before the last change" },
    { Text::kNothingToUndo,     "Nothing to undo since the project was opened; the history goes further back." },
    { Text::kStateThen,         "After the chosen change" },
    { Text::kStateNow,          "Now" },
    { Text::kNoSection,         "No equipment." },
    { Text::kDatum,            "Datum" },
    { Text::kDimensions,       "Dimensions" },

    { Text::kOpenBy,            "Open: %1" },
    { Text::kPersonOn,          "%1 on %2" },
    { Text::kSince,             "%1 since %2" },
    { Text::kWholeProject,      "The project" },
    { Text::kStoreLost,         "The store cannot be reached; trying again" },
    { Text::kStoreRegained,     "The store can be reached again." },

    { Text::kCatalogue,          "&Catalogue of Devices" },
    { Text::kSearchDevices,      "Search by name, kind or maker data; A=70..90 for a letter" },
    { Text::kAllKinds,           "All kinds" },
    { Text::kDeviceCount,        "%1 of %2 devices" },
    { Text::kDevices,            "Devices" },
    { Text::kDeviceName,         "Device" },
    { Text::kDeviceKind,         "Kind" },
    { Text::kOwnSolid,           "own solid" },
    { Text::kChooseDevices,      "Select a device to see it, or two to compare them." },
    { Text::kSameDevices,        "no difference" },
    { Text::kAddDevice,          "Add" },
    { Text::kCopyDevice,         "Copy of the Selected Device" },
    { Text::kRemoveDevices,      "Remove" },
    { Text::kUndoEdit,           "Undo the Last Edit" },
    { Text::kContactSheet,       "Contact Sheet..." },
    { Text::kBackToProject,      "Back to the Project" },
    { Text::kShowInCatalogue,    "Show in the Catalogue" },

    { Text::kChecks,             "Checks" },
    { Text::kSeverity,           "Severity" },
    { Text::kRule,               "Rule" },
    { Text::kWhere,              "Where" },
    { Text::kFinding,            "Finding" },
    { Text::kOpenPage,           "Open Page" },
    { Text::kExplainRule,        "Explain the Rule" },
    { Text::kChecking,           "Checking..." },
}};
// clang-format on

constexpr bool AreInOrder() {
  for (std::size_t i = 0; i < kTexts.size(); ++i) {
    if (kTexts[i].text != static_cast<Text>(i) || kTexts[i].english == nullptr) return false;
  }
  return true;
}
static_assert(AreInOrder(), "every text has its row");

}  // namespace

const char* EnglishOf(Text text) {
  return kTexts[static_cast<std::size_t>(text)].english;
}

Texts::Texts(std::filesystem::path share)
    : share_(std::move(share)), languages_(AvailableLanguages(share_)), language_(languages_.front().code) {}

bool Texts::Has(const std::string& code) const {
  return std::ranges::find(languages_, code, &Language::code) != languages_.end();
}

Result<void> Texts::SetLanguage(const std::string& code) {
  if (code == language_) return {};
  VANZET_TRY(translations_, LoadTranslations(share_, code));
  language_ = code;
  emit Changed();
  return {};
}

QString Texts::operator()(Text text) const {
  return ToQString(translations_.Translate(kSection, EnglishOf(text)));
}

}  // namespace vanzet::window

#include "window/texts.h"

#include <array>

namespace vanzet::window {
namespace {

struct TextRow {
  Text text;
  const char* english;
  const char* german;
};

// clang-format off
constexpr std::array<TextRow, static_cast<std::size_t>(Text::kCount)> kTexts = {{
    { Text::kProjectMenu, "&Project",                                 "&Projekt" },
    { Text::kEquipmentMenu,"&Equipment",                               "&Spannmittel" },
    { Text::kViewMenu,    "&View",                                    "&Ansicht" },
    { Text::kExportMenu,  "E&xport",                                  "E&xport" },
    { Text::kHelpMenu,    "&Help",                                    "&Hilfe" },
    { Text::kLanguageMenu,"Lang&uage",                                "Spr&ache" },
    { Text::kAppearanceMenu,"Appeara&nce",                              "&Darstellung" },

    { Text::kNewProject,  "&New Project...",                          "&Neues Projekt..." },
    { Text::kOpenProject, "&Open Project...",                         "Projekt ö&ffnen..." },
    { Text::kRecent,      "&Recent Projects",                         "&Zuletzt geöffnet" },
    { Text::kSaveVdm,     "&Save Definition...",                      "Definition &speichern..." },
    { Text::kLoadVdm,     "&Load Definition...",                      "Definition &laden..." },
    { Text::kQuit,        "&Quit",                                    "&Beenden" },
    { Text::kDefinition,  "&Define Equipment...",                     "Spannmittel &definieren..." },
    { Text::kUpgrade,     "&Upgrade Definitions",                     "Definitionen &aktualisieren" },
    { Text::kRefresh,     "&Refresh",                                 "&Neu einlesen" },
    { Text::kFit,         "&Fit",                                     "&Einpassen" },
    { Text::kIso,         "&Isometric",                               "&Isometrisch" },
    { Text::kFront,       "F&ront",                                   "&Vorn" },
    { Text::kBack,        "&Back",                                    "&Hinten" },
    { Text::kTop,         "&Top",                                     "&Oben" },
    { Text::kBottom,      "B&ottom",                                  "&Unten" },
    { Text::kLeft,        "&Left (Back Side of the Main Spindle)",    "&Links (Rückseite der Hauptspindel)" },
    { Text::kRight,       "Rig&ht (Front Side of the Main Spindle)",  "&Rechts (Vorderseite der Hauptspindel)" },
    { Text::kSectionView, "&Section",                                 "S&chnitt" },
    { Text::kPerspective, "&Perspective",                             "&Perspektive" },
    { Text::kBothViews,   "Drawing &and Equipment",                   "Zeichnung und &Spannmittel" },
    { Text::kDrawingOnly, "&Drawing Only",                            "Nur &Zeichnung" },
    { Text::kEquipmentOnly,"&Equipment Only",                          "Nur Spann&mittel" },
    { Text::kDefinitionTree,"Definition",                               "Definition" },
    { Text::kLayers,      "Layers",                                   "Ebenen" },
    { Text::kMessages,    "Messages",                                 "Meldungen" },
    { Text::kEnglish,     "English",                                  "English" },
    { Text::kGerman,      "Deutsch",                                  "Deutsch" },
    { Text::kLight,       "&Light",                                   "&Hell" },
    { Text::kDark,        "&Dark",                                    "&Dunkel" },
    { Text::kDrawingSvg,  "Drawing as &SVG...",                       "Zeichnung als &SVG..." },
    { Text::kDrawingPng,  "Drawing as &PNG...",                       "Zeichnung als &PNG..." },
    { Text::kEquipmentPng,"&Equipment as PNG...",                     "Spann&mittel als PNG..." },
    { Text::kBodiesStep,  "Bodies as S&TEP...",                       "Körper als S&TEP..." },
    { Text::kBodiesStl,   "Bodies as ST&L...",                        "Körper als ST&L..." },
    { Text::kBodiesWrl,   "Bodies as &VRML...",                       "Körper als &VRML..." },
    { Text::kBodiesGltf,  "Bodies as &glTF...",                       "Körper als &glTF..." },
    { Text::kContents,    "&Contents",                                "&Inhalt" },
    { Text::kAbout,       "&About the Workbench",                     "Ü&ber die Werkbank" },

    { Text::kWindowTitle, "vanzet workbench",                         "vanzet-Werkbank" },
    { Text::kHelpTitle,   "vanzet help",                              "vanzet-Hilfe" },
    { Text::kAboutText,
      "<h3>vanzet workbench %1</h3><p>Defines what holds the work on a turning or mill-turn machine.</p>",
      "<h3>vanzet-Werkbank %1</h3><p>Legt fest, was auf einer Dreh- oder Drehfräsmaschine das Werkstück spannt.</p>" },
    { Text::kDrawing,     "Drawing",                                  "Zeichnung" },
    { Text::kEquipment,   "Equipment",                                "Spannmittel" },
    { Text::kNoProject,
      "No project is open. Open one, or make a new one, in the Project menu.",
      "Es ist kein Projekt geöffnet. Das Menü Projekt öffnet eines oder legt ein neues an." },
    { Text::kNothingDrawn,"Nothing is drawn yet.",                    "Es ist noch nichts gezeichnet." },
    { Text::kNoEquipment,
      "This spur has no equipment yet. Define Equipment (Ctrl+D) begins.",
      "Diese Spindelspur hat noch keine Spannmittel. Mit Spannmittel definieren (Strg+D) geht es los." },
    { Text::kAllCalls,    "Show every call of the module",            "Jeden Aufruf des Moduls zeigen" },
    { Text::kCopyAll,     "Copy all messages",                        "Alle Meldungen kopieren" },
    { Text::kClear,       "Clear",                                    "Leeren" },

    { Text::kTreeName,    "Operation",                                "Operation" },
    { Text::kTreeContent, "Content",                                  "Inhalt" },
    { Text::kSpur,        "Spur %1",                                  "Spindelspur %1" },
    { Text::kNoDefinition,"no definition yet",                        "noch keine Definition" },
    { Text::kVdmAndVersion,"VDM %1, v%2",                       "VDM %1, v%2" },
    { Text::kDamaged,     "damaged: %1",                              "beschädigt: %1" },
    { Text::kSection,     "Section %1",                               "Abschnitt %1" },
    { Text::kItems,       "items: %1",                                "Einträge: %1" },
    { Text::kMoreItems,   "and %1 more",                              "und %1 weitere" },

    { Text::kPickHint,    "%1  (Esc breaks it off)",                  "%1  (Esc bricht ab)" },
    { Text::kPickPosition,"Pick a position in the drawing",           "Position in der Zeichnung wählen" },
    { Text::kPickFigure,  "Pick a figure",                            "Figur wählen" },
    { Text::kPickSolid,   "Pick a solid",                             "Körper wählen" },
    { Text::kFigures,     "Figures",                                  "Figuren" },
    { Text::kSolids,      "Solids",                                   "Körper" },
    { Text::kCancel,      "Cancel",                                   "Abbrechen" },

    { Text::kImporting,   "Reading a solid...",                       "Ein Körper wird eingelesen..." },
    { Text::kMakingScene, "Building the picture of the equipment...", "Das Bild der Spannmittel entsteht..." },
    { Text::kExporting,   "Writing the bodies...",                    "Die Körper werden geschrieben..." },
    { Text::kAtWork,
      "The dialog or another work is still open.",
      "Der Dialog oder eine andere Arbeit ist noch offen." },
    { Text::kOpenElsewhere,
      "VDM %1 of this project is open in another process. Nothing was changed here; try again when the other one has closed it.",
      "VDM %1 dieses Projekts ist in einem anderen Prozess geöffnet. Hier wurde nichts geändert; ein neuer Versuch lohnt, wenn der andere sie geschlossen hat." },
    { Text::kShownElsewhere,
      "This project is open in another workbench as well (process %1). Nothing is lost: each shows what the other has stored.",
      "Dieses Projekt ist auch in einer anderen Werkbank geöffnet (Prozess %1). Nichts geht verloren: jede zeigt, was die andere gespeichert hat." },

    { Text::kProjectName, "Name",                                     "Name" },
    { Text::kPlace,       "Folder",                                   "Ordner" },
    { Text::kSample,      "Sample",                                   "Muster" },
    { Text::kBrowse,      "Browse...",                                "Durchsuchen..." },
    { Text::kMake,        "Make",                                     "Anlegen" },
    { Text::kTaken,       "%1 is there already.",                     "%1 ist schon vorhanden." },
    { Text::kChooseProject,"Choose a project folder",                  "Projektordner wählen" },
    { Text::kChooseFolder,"Choose a folder for the files",            "Ordner für die Dateien wählen" },
    { Text::kNone,        "none",                                     "keine" },
    { Text::kWritten,     "Written: %1",                              "Geschrieben: %1" },
    { Text::kLoaded,      "Loaded: %1",                               "Geladen: %1" },
    { Text::kImported,    "Taken into the project: %1",               "In das Projekt übernommen: %1" },
    { Text::kNameTaken,   "There is a %1 already.",                   "Es gibt %1 schon." },
    { Text::kKeepBoth,    "Keep Both",                                "Beide behalten" },
    { Text::kReplace,     "Replace",                                  "Ersetzen" },
    { Text::kSkip,        "Skip",                                     "Auslassen" },
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

QString TextIn(Language language, Text text) {
  const TextRow& row = kTexts[static_cast<std::size_t>(text)];
  return QString::fromUtf8(language == Language::kGerman ? row.german : row.english);
}

}  // namespace vanzet::window

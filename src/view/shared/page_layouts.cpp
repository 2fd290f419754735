#include "view/shared/page_layouts.h"

#include <algorithm>

#include "view/ids.h"

namespace vanzet::view {
namespace {

constexpr Unit kMm = Unit::kMillimetre;
constexpr Unit kDeg = Unit::kDegree;

constexpr const char* kPartLength = "Part length";
constexpr const char* kValues = "Values";
constexpr const char* kFigures = "Figures";
constexpr const char* kSolid = "Solid";

// clang-format off
constexpr FieldRow kCylindricSize[] = {
    {.control = control::kOuterDiameter,  .button = control::kPickOuterDiameter,  .unit = kMm, .name = "Outer diameter", .isNeeded = true},
    {.control = control::kCylinderLength, .button = control::kPickCylinderLength, .unit = kMm, .name = kPartLength, .isNeeded = true},
    {.control = control::kFrontAllowance,                                         .unit = kMm, .name = "Allowance in front"},
    {.control = control::kRearAllowance,                                          .unit = kMm, .name = "Allowance behind"},
    {.control = control::kInnerDiameter,  .button = control::kPickInnerDiameter,  .unit = kMm, .name = "Inner diameter"},
    {.control = control::kBarLength,                                              .unit = kMm, .name = "Bar length, 0: no bar"},
    {.control = control::kPickSolid},
};
constexpr FieldRow kCylindricShow[] = {{.control = control::kHideBillet}};
constexpr FieldGroup kCylindric[] = {
    {.title = "Dimensions", .rows = kCylindricSize},
    {.title = "Drawing",    .rows = kCylindricShow},
};
constexpr std::int32_t kCylindricActions[] = {control::kSelectCylinder};

constexpr FieldRow kFigureRows[] = {
    {.label = control::kFigureOutsideLabel, .control = control::kFigureOutside, .button = control::kPickFigureOutside, .isNeeded = true},
    {.label = control::kFigureInsideLabel,  .control = control::kFigureInside,  .button = control::kPickFigureInside},
};
constexpr FieldRow kFigureLength[] = {
    {.label = control::kPartLengthLabel, .control = control::kPartLength, .button = control::kPickLengthOfFigure, .unit = kMm, .sign = "L"},
};
constexpr FieldGroup kBilletFigure[] = {
    {.title = kFigures, .rows = kFigureRows},
    {.title = kValues,  .rows = kFigureLength},
};
constexpr FieldGroup kFinishFigure[] = {{.title = kFigures, .rows = kFigureRows}};
constexpr std::int32_t kSelectAction[] = {control::kSelect};

constexpr FieldRow kSolidName[] = {{.label = control::kSolidLabel, .control = control::kSolid, .button = control::kPickSolid, .isNeeded = true}};
constexpr FieldRow kSolidRows[] = {
    {.label = control::kPartLengthLabel,    .control = control::kPartLength,    .button = control::kPickLengthOfSolid, .unit = kMm, .sign = "L"},
    {.label = control::kClampDiameterLabel, .control = control::kClampDiameter, .button = control::kPickClampDiameter, .unit = kMm, .sign = "\u2300"},
    {.label = control::kAngleLabel,         .control = control::kAngle,                                                .unit = kDeg},
};
constexpr FieldGroup kBilletSolid[] = {
    {.title = kSolid,  .rows = kSolidName},
    {.title = kValues, .rows = kSolidRows},
};
constexpr FieldGroup kFinishSolid[] = {{.title = kSolid, .rows = kSolidName}};

constexpr FieldRow kDatumMain[] = {
    {.label = control::kClampingOutMainLabel, .control = control::kClampingOutMain, .button = control::kPickClampingOutMain, .unit = kMm},
    {.label = control::kOriginMainLabel,      .control = control::kOriginMain,      .button = control::kPickOriginMain,      .unit = kMm, .sign = "W"},
};
constexpr FieldRow kDatumSub[] = {
    {.label = control::kClampingOutSubLabel, .control = control::kClampingOutSub, .button = control::kPickClampingOutSub, .unit = kMm},
    {.label = control::kOriginSubLabel,      .control = control::kOriginSub,      .button = control::kPickOriginSub,      .unit = kMm, .sign = "W"},
};
constexpr FieldGroup kDatum[] = {
    {.titleLabel = control::kMainTitle, .rows = kDatumMain},
    {.titleLabel = control::kSubTitle,  .rows = kDatumSub},
};

constexpr FieldRow kBezelRows[] = {{.control = control::kUseBezel}};
constexpr FieldGroup kBezel[] = {{.title = "Steady rest", .rows = kBezelRows}};

constexpr FieldRow kClampElemRows[] = {
    {.control = control::kDeviceList, .name = "Device", .hasChooser = true, .isNeeded = true},
    {.label = control::kLabelA,       .control = control::kEditA,   .letter = 'A'},
    {.label = control::kLabelB,       .control = control::kEditB,   .letter = 'B'},
    {.label = control::kLabelC,       .control = control::kEditC,   .letter = 'C'},
    {.label = control::kLabelD,       .control = control::kEditD,   .letter = 'D'},
    {.label = control::kLabelE,       .control = control::kEditE,   .letter = 'E'},
    {.label = control::kLabelF,       .control = control::kEditF,   .letter = 'F'},
    {.label = control::kLabelG,       .control = control::kEditG,   .letter = 'G'},
    {.label = control::kLabelH,       .control = control::kEditH,   .letter = 'H'},
    {.label = control::kLabelI,       .control = control::kEditI,   .letter = 'I'},
    {.label = control::kLabelJ,       .control = control::kEditJ,   .letter = 'J'},
    {.label = control::kJawsLabel,    .control = control::kJawSpin, .inner = control::kJawsEdit},
    {.control = control::kInnerChucking},
};
constexpr FieldRow kOwnRows[] = {{.label = control::kPathLabel, .control = control::kPath, .button = control::kBrowse, .isWide = true, .hasChooser = true}};
constexpr FieldGroup kClampElem[] = {
    {.title = "From the catalogue", .rows = kClampElemRows, .action = control::kSelectParametric},
    {.title = "From a file",        .rows = kOwnRows,       .action = control::kSelectOwn},
};

constexpr FieldRow kNewRows[] = {
    {.control = control::kNameList, .name = "Name", .hasChooser = true, .isNeeded = true},
    {.label = control::kNewLabelA,  .control = control::kEditA, .letter = 'A'},
    {.label = control::kNewLabelB,  .control = control::kEditB, .letter = 'B'},
    {.label = control::kNewLabelC,  .control = control::kEditC, .letter = 'C'},
    {.label = control::kNewLabelD,  .control = control::kEditD, .letter = 'D'},
    {.label = control::kNewLabelE,  .control = control::kEditE, .letter = 'E'},
    {.label = control::kNewLabelF,  .control = control::kEditF, .letter = 'F'},
    {.label = control::kNewLabelG,  .control = control::kEditG, .letter = 'G'},
    {.label = control::kNewLabelH,  .control = control::kEditH, .letter = 'H'},
    {.label = control::kNewLabelI,  .control = control::kEditI, .letter = 'I'},
    {.label = control::kNewLabelJ,  .control = control::kEditJ, .letter = 'J'},
};
constexpr FieldGroup kNew[] = {{.title = "Device of the catalogue", .rows = kNewRows}};
constexpr std::int32_t kNewActions[] = {control::kDeleteDevice, control::kSaveDevice};

constexpr const char* kNoDevice = "Choose a device, and its picture appears here.";
constexpr const char* kNoKind = "Choose a kind below this entry of the tree.";

constexpr PageLayout kLayouts[] = {
    {"CPageClampElem",            "chuck-collet-mandrel-face-driver-jaw-center", 0,                control::kDevicePicture, kClampElem,    {},          kNoDevice},
    {"CPageBezel",                "bezel", 0,                control::kPicture,       kBezel,        kSelectAction},
    {"CPageBilletCylindric",      "billet-cylindrical", control::kHeader, control::kPicture,       kCylindric,    kCylindricActions},
    {"CPageBilletFromFigure",     "billet-from-geometry-billet-from-solid", control::kHeader, control::kPicture,       kBilletFigure, kSelectAction},
    {"CPageBilletFromSolid",      "billet-from-geometry-billet-from-solid", control::kHeader, control::kPicture,       kBilletSolid,  kSelectAction},
    {"CPageFinishpartFromFigure", "finishpart", control::kHeader, control::kPicture,       kFinishFigure, kSelectAction},
    {"CPageFinishpartFromSolid",  "finishpart", control::kHeader, control::kPicture,       kFinishSolid,  kSelectAction},
    {"CPageZeroPiontShift",       "datum", control::kHeader, control::kPicture,       kDatum,        kSelectAction},
    {"CPageClampElemNew",         "create-new-clampdevice", 0,                control::kNewPicture,    kNew,          kNewActions, kNoKind},
};
// clang-format on

}  // namespace

std::span<const PageLayout> PageLayouts() {
  return kLayouts;
}

const PageLayout* FindPageLayout(std::string_view page) {
  const auto* const layout = std::ranges::find(kLayouts, page, &PageLayout::page);
  return layout == std::end(kLayouts) ? nullptr : layout;
}

std::int32_t PickButtonOf(const PageLayout& layout, std::int32_t edit) {
  for (const FieldGroup& group : layout.groups) {
    const auto row = std::ranges::find(group.rows, edit, &FieldRow::control);
    if (row != group.rows.end()) return row->button;
  }
  return 0;
}

std::vector<std::int32_t> ActionsOf(const PageLayout& layout) {
  std::vector<std::int32_t> ids(layout.actions.begin(), layout.actions.end());
  for (const FieldGroup& group : layout.groups) {
    if (group.action != 0) ids.push_back(group.action);
  }
  return ids;
}

std::vector<std::int32_t> StoringButtons(const PageLayout& layout,
                                         const std::vector<std::int32_t>& controls) {
  std::vector<std::int32_t> buttons;
  for (const FieldGroup& group : layout.groups) {
    const bool isOfGroup = std::ranges::any_of(group.rows, [&](const FieldRow& row) {
      return std::ranges::find(controls, row.control) != controls.end();
    });
    // A group without a button of its own is stored by the last one of the page.
    const std::int32_t last = layout.actions.empty() ? 0 : layout.actions.back();
    if (isOfGroup) buttons.push_back(group.action != 0 ? group.action : last);
  }
  return buttons;
}

std::vector<std::int32_t> ControlsOf(const PageLayout& layout) {
  std::vector<std::int32_t> ids = {layout.header, layout.picture};
  for (const FieldGroup& group : layout.groups) {
    ids.push_back(group.titleLabel);
    for (const FieldRow& row : group.rows) ids.insert(ids.end(), {row.label, row.control, row.inner});
    for (const FieldRow& row : group.rows) ids.push_back(row.button);
    ids.push_back(group.action);
  }
  ids.insert(ids.end(), layout.actions.begin(), layout.actions.end());
  std::erase(ids, 0);
  return ids;
}

}  // namespace vanzet::view

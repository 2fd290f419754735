#include "view/script/names.h"

#include <algorithm>
#include <vector>

#include "base/letter_case.h"
#include "base/near_words.h"
#include "base/numbers.h"
#include "view/ids.h"

namespace vanzet::view {
namespace {

// Values have the names of the same values in the JSON form. Labels are there for the event `state` alone.
// clang-format off
constexpr NameRow kNodes[] = {
    {node::kClampDevices,             "clamp_devices",            "Group: what holds the part"},
    {node::kClampMain,                "main",                     "Group: what the main spindle holds"},
    {node::kChuckMain,                "main/chuck",               "Chuck of the main spindle"},
    {node::kJawMain,                  "main/jaw",                 "Jaws of the main spindle's chuck"},
    {node::kColletMain,               "main/collet",              "Collet of the main spindle"},
    {node::kMandrelMain,              "main/mandrel",             "Mandrel of the main spindle"},
    {node::kFaceDriverMain,           "main/face_driver",         "Face driver of the main spindle"},
    {node::kClampSub,                 "sub",                      "Group: what the sub spindle holds"},
    {node::kChuckSub,                 "sub/chuck",                "Chuck of the sub spindle"},
    {node::kJawSub,                   "sub/jaw",                  "Jaws of the sub spindle's chuck"},
    {node::kColletSub,                "sub/collet",               "Collet of the sub spindle"},
    {node::kMandrelSub,               "sub/mandrel",              "Mandrel of the sub spindle"},
    {node::kFaceDriverSub,            "sub/face_driver",          "Face driver of the sub spindle"},
    {node::kTailstock,                "tailstock",                "Group: what the tailstock holds"},
    {node::kCenter,                   "tailstock/center",         "Center of the tailstock"},
    {node::kBezel,                    "steady_rest",              "Steady rest"},
    {node::kBillets,                  "billets",                  "Group: raw parts"},
    {node::kBilletMain,               "main/billet",              "Group: raw part on the main spindle"},
    {node::kBilletCylindricMain,      "main/billet/cylinder",     "Raw part on the main spindle by numbers"},
    {node::kBilletFromFigureMain,     "main/billet/figures",      "Raw part on the main spindle from figures"},
    {node::kBilletFromSolidMain,      "main/billet/solid",        "Raw part on the main spindle from a solid"},
    {node::kBilletSub,                "sub/billet",               "Group: raw part on the sub spindle"},
    {node::kBilletCylindricSub,       "sub/billet/cylinder",      "Raw part on the sub spindle by numbers"},
    {node::kBilletFromFigureSub,      "sub/billet/figures",       "Raw part on the sub spindle from figures"},
    {node::kBilletFromSolidSub,       "sub/billet/solid",         "Raw part on the sub spindle from a solid"},
    {node::kFinishParts,              "finish_parts",             "Group: finished parts"},
    {node::kFinishPartMain,           "main/finish_part",         "Group: finished part on the main spindle"},
    {node::kFinishPartFromFigureMain, "main/finish_part/figures", "Finished part on the main spindle from figures"},
    {node::kFinishPartFromSolidMain,  "main/finish_part/solid",   "Finished part on the main spindle from a solid"},
    {node::kFinishPartSub,            "sub/finish_part",          "Group: finished part on the sub spindle"},
    {node::kFinishPartFromFigureSub,  "sub/finish_part/figures",  "Finished part on the sub spindle from figures"},
    {node::kFinishPartFromSolidSub,   "sub/finish_part/solid",    "Finished part on the sub spindle from a solid"},
    {node::kRootDatum,                "datums",                   "Group: datum"},
    {node::kDatum,                    "datum",                    "Datum: clamping and origin of the part on both spindles"},
    {node::kNewDevices,               "new",                      "Group: new devices of the catalogue"},
    {node::kNewChuck,                 "new/chuck",                "New chuck"},
    {node::kNewCollet,                "new/collet",               "New collet"},
    {node::kNewMandrel,               "new/mandrel",              "New mandrel"},
    {node::kNewFaceDriver,            "new/face_driver",          "New face driver"},
    {node::kNewJaws,                  "new/jaws",                 "Group: new jaws"},
    {node::kNewJaw1,                  "new/jaw/1",                "New jaw of shape 1"},
    {node::kNewJaw2,                  "new/jaw/2",                "New jaw of shape 2"},
    {node::kNewJaw3,                  "new/jaw/3",                "New jaw of shape 3"},
    {node::kNewJaw4,                  "new/jaw/4",                "New jaw of shape 4"},
    {node::kNewJaw5,                  "new/jaw/5",                "New jaw of shape 5"},
    {node::kNewJaw6,                  "new/jaw/6",                "New jaw of shape 6"},
    {node::kNewJaw7,                  "new/jaw/7",                "New jaw of shape 7"},
    {node::kNewJaw8,                  "new/jaw/8",                "New jaw of shape 8"},
    {node::kNewCenters,               "new/centers",              "Group: new centers"},
    {node::kNewCenter1,               "new/center/1",             "New center of shape 1"},
    {node::kNewCenter2,               "new/center/2",             "New center of shape 2"},
};

constexpr NameRow kControls[] = {
    {control::kOk,                   "ok",                      "Stores the definition and closes the dialog"},
    {control::kCancel,               "cancel",                  "Never visible"},
    {control::kHelp,                 "help",                    "Shows help"},
    {control::kSpurs,                "spur",                    "Spindle spur, on machines with several"},
    {control::kLoad,                 "load",                    "Loads a configuration from a file"},
    {control::kPageArea,             "page_area",               "Never visible"},
    {control::kSave,                 "save",                    "Saves the configuration to a file"},
    {control::kTree,                 "tree",                    "The tree; only the event `focus` names it"},
    {control::kHeader,               "header",                  "Title of the page"},
    {control::kPicture,              "picture",                 "Picture of the page"},
    {control::kSelect,               "select",                  "Puts the values into the definition"},
    {control::kOuterDiameter,        "outer_diameter",          "Diameter of the raw part"},
    {control::kCylinderLength,       "part_length",             "Length of the part, without allowances"},
    {control::kFrontAllowance,       "front_allowance",         "Material before the front face"},
    {control::kRearAllowance,        "rear_allowance",          "Material behind the rear face"},
    {control::kInnerDiameter,        "inner_diameter",          "Diameter of the bore; 0: none"},
    {control::kBarLength,            "bar_length",              "Length of the bar that the part is cut from; 0: none"},
    {control::kPickOuterDiameter,    "pick_outer_diameter",     "Takes the diameter from a pick in the drawing"},
    {control::kPickCylinderLength,   "pick_part_length",        "Takes the length from a pick in the drawing"},
    {control::kPickInnerDiameter,    "pick_inner_diameter",     "Takes the diameter from a pick in the drawing"},
    {control::kHideBillet,           "shown",                   "Whether the drawing shows the raw part, whatever its caption says"},
    {control::kSelectCylinder,       "select",                  "Puts the values into the definition"},
    {control::kFigureOutsideLabel,   "outside_label",           "Name of the field"},
    {control::kFigureOutside,        "outside",                 "Figure of the outside"},
    {control::kPickFigureOutside,    "pick_outside",            "Takes the figure from a pick in the drawing"},
    {control::kFigureInsideLabel,    "inside_label",            "Name of the field"},
    {control::kFigureInside,         "inside",                  "Figure of the inside"},
    {control::kPickFigureInside,     "pick_inside",             "Takes the figure from a pick in the drawing"},
    {control::kSolidLabel,           "solid_label",             "Name of the field"},
    {control::kSolid,                "solid",                   "Name of the body"},
    {control::kPickSolid,            "pick_solid",              "Takes the solid, or the values of one, from a pick"},
    {control::kPartLengthLabel,      "part_length_label",       "Name of the field"},
    {control::kPartLength,           "part_length",             "Length of the part"},
    {control::kPickLengthOfFigure,   "pick_part_length",        "Takes the length from a pick in the drawing"},
    {control::kPickLengthOfSolid,    "pick_part_length",        "Takes the length from a pick in the drawing"},
    {control::kClampDiameterLabel,   "clamp_diameter_label",    "Name of the field"},
    {control::kClampDiameter,        "clamp_diameter",          "Diameter where the part is clamped"},
    {control::kPickClampDiameter,    "pick_clamp_diameter",     "Takes the diameter from a pick in the drawing"},
    {control::kAngleLabel,           "angle_label",             "Name of the field"},
    {control::kAngle,                "angle",                   "Turn of the body about the axis"},
    {control::kMainTitle,            "main_title",              "Title of the main spindle"},
    {control::kClampingOutMainLabel, "main_clamping_out_label", "Name of the field"},
    {control::kClampingOutMain,      "main_clamping_out",       "How far the raw part is clamped out of the main spindle's device"},
    {control::kPickClampingOutMain,  "pick_main_clamping_out",  "Takes the length from a pick in the drawing"},
    {control::kOriginMainLabel,      "main_origin_label",       "Name of the field"},
    {control::kOriginMain,           "main_origin",             "Position of the part's origin on the main spindle"},
    {control::kPickOriginMain,       "pick_main_origin",        "Takes the position from a pick in the drawing"},
    {control::kSubTitle,             "sub_title",               "Title of the sub spindle"},
    {control::kClampingOutSubLabel,  "sub_clamping_out_label",  "Name of the field"},
    {control::kClampingOutSub,       "sub_clamping_out",        "How far the raw part is clamped out of the sub spindle's device"},
    {control::kPickClampingOutSub,   "pick_sub_clamping_out",   "Takes the length from a pick in the drawing"},
    {control::kOriginSubLabel,       "sub_origin_label",        "Name of the field"},
    {control::kOriginSub,            "sub_origin",              "Position of the part's origin on the sub spindle"},
    {control::kPickOriginSub,        "pick_sub_origin",         "Takes the position from a pick in the drawing"},
    {control::kUseBezel,             "use",                     "Whether the steady rest is used"},
    {control::kEditA,                "A",                       "Value A of the device, as the picture shows it"},
    {control::kEditB,                "B",                       "Value B of the device, as the picture shows it"},
    {control::kEditC,                "C",                       "Value C of the device, as the picture shows it"},
    {control::kEditD,                "D",                       "Value D of the device, as the picture shows it"},
    {control::kEditE,                "E",                       "Value E of the device, as the picture shows it"},
    {control::kEditF,                "F",                       "Value F of the device, as the picture shows it"},
    {control::kEditG,                "G",                       "Value G of the device, as the picture shows it"},
    {control::kEditH,                "H",                       "Value H of the device, as the picture shows it"},
    {control::kEditI,                "I",                       "Value I of the device, as the picture shows it"},
    {control::kEditJ,                "J",                       "Value J of the device, as the picture shows it"},
    {control::kDevicePicture,        "picture",                 "Picture of the device"},
    {control::kDeviceList,           "device",                  "Device of the catalogue"},
    {control::kLabelA,               "label_A",                 "Letter of the value"},
    {control::kLabelB,               "label_B",                 "Letter of the value"},
    {control::kLabelC,               "label_C",                 "Letter of the value"},
    {control::kLabelD,               "label_D",                 "Letter of the value"},
    {control::kLabelE,               "label_E",                 "Letter of the value"},
    {control::kLabelF,               "label_F",                 "Letter of the value"},
    {control::kLabelG,               "label_G",                 "Letter of the value"},
    {control::kLabelH,               "label_H",                 "Letter of the value"},
    {control::kLabelI,               "label_I",                 "Letter of the value"},
    {control::kLabelJ,               "label_J",                 "Letter of the value"},
    {control::kJawsLabel,            "jaws_label",              "Name of the field"},
    {control::kJawsEdit,             "jaws_text",               "Number of jaws, as text"},
    {control::kJawSpin,              "jaws",                    "Number of jaws"},
    {control::kInnerChucking,        "clamps_inside",           "Whether the jaws clamp from inside"},
    {control::kSelectParametric,     "select",                  "Puts the device of the catalogue into the definition"},
    {control::kPathLabel,            "file_label",              "Name of the field"},
    {control::kPath,                 "file",                    "File of an own device"},
    {control::kBrowse,               "browse",                  "Asks for the file of an own device"},
    {control::kSelectOwn,            "select_file",             "Puts the own device into the definition"},
    {control::kNewPicture,           "picture",                 "Picture of the device"},
    {control::kNameList,             "name",                    "Name of the device"},
    {control::kNewLabelA,            "label_A",                 "Letter of the value"},
    {control::kNewLabelB,            "label_B",                 "Letter of the value"},
    {control::kNewLabelC,            "label_C",                 "Letter of the value"},
    {control::kNewLabelD,            "label_D",                 "Letter of the value"},
    {control::kNewLabelE,            "label_E",                 "Letter of the value"},
    {control::kNewLabelF,            "label_F",                 "Letter of the value"},
    {control::kNewLabelG,            "label_G",                 "Letter of the value"},
    {control::kNewLabelH,            "label_H",                 "Letter of the value"},
    {control::kNewLabelI,            "label_I",                 "Letter of the value"},
    {control::kNewLabelJ,            "label_J",                 "Letter of the value"},
    {control::kSaveDevice,           "save_device",             "Saves the device in the catalogue"},
    {control::kDeleteDevice,         "delete_device",           "Deletes the device from the catalogue"},
};

constexpr NameRow kCommands[] = {
    {command::kDeleteRecord, "delete", "Deletes what the node holds"},
};
// clang-format on

std::string_view NameIn(std::span<const NameRow> rows, std::int32_t id) {
  const auto row = std::ranges::find(rows, id, &NameRow::id);
  return row == rows.end() ? std::string_view() : row->name;
}

/// The id in a word, or that of the first row with the name.
std::optional<std::int32_t> IdIn(std::span<const NameRow> rows, std::string_view word) {
  if (const auto id = WholeInteger(word)) return id;
  for (const NameRow& row : rows) {
    if (EqualWithoutCase(row.name, word)) return row.id;
  }
  return std::nullopt;
}

std::string Near(std::string_view word, const std::vector<std::string>& names) {
  return WholeInteger(word) ? "" : DidYouMean(word, names);
}

}  // namespace

std::span<const NameRow> NodeNames() {
  return kNodes;
}

std::span<const NameRow> ControlNames() {
  return kControls;
}

std::span<const NameRow> CommandNames() {
  return kCommands;
}

std::string NameOf(std::int32_t id, std::span<const NameRow> rows) {
  const std::string_view name = NameIn(rows, id);
  return name.empty() ? std::to_string(id) : std::string(name);
}

std::optional<std::int32_t> NodeId(std::string_view word) {
  return IdIn(kNodes, word);
}

std::optional<std::int32_t> CommandId(std::string_view word) {
  return IdIn(kCommands, word);
}

const Control* FindControl(const DialogState& state, std::string_view word) {
  const std::optional<std::int32_t> id = WholeInteger(word);
  const Control* found = nullptr;
  for (const auto* list : {&state.dialog, &state.controls}) {
    for (const Control& control : *list) {
      if (id ? control.id == *id : EqualWithoutCase(NameIn(kControls, control.id), word)) found = &control;
    }
  }
  return found;
}

std::string NearNodes(const DialogState& state, std::string_view word) {
  std::vector<std::string> names;
  for (const TreeNode& node : state.tree) names.push_back(NameOf(node.id, kNodes));
  return Near(word, names);
}

std::string NearControls(const DialogState& state, std::string_view word) {
  std::vector<std::string> names;
  for (const auto* list : {&state.dialog, &state.controls}) {
    for (const Control& control : *list) {
      if (control.isVisible) names.push_back(NameOf(control.id, kControls));
    }
  }
  return Near(word, names);
}

}  // namespace vanzet::view

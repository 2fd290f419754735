#include "host/messages.h"

#include <algorithm>
#include <cassert>

#include "host/host_functions.h"
#include "host/message_ids.h"

namespace vanzet::host {
namespace {

// clang-format off
constexpr Message kMessages[] = {
    {message::kOk,                     "OK"},
    {message::kHelp,                   "Help"},
    {message::kSelectFigure,           "Select Figure"},
    {message::kSolid,                  "Solid"},
    {message::kWrongCenter,            "Wrong clamp device! Only type Center is allowed."},
    {message::kEquipmentDefinition,    "Equipment Definition"},
    {message::kLoadConfiguration,      "Load Configuration"},
    {message::kSaveConfiguration,      "Save Configuration"},
    {message::kClampDevice,            "Clampdevice"},
    {message::kMainSpindle,            "Mainspindle"},
    {message::kMainSpindle,            "*Mainspindle"},
    {message::kMainSpindle,            "Main Spindle"},
    {message::kChuck,                  "Chuck"},
    {message::kJaw,                    "Jaw"},
    {message::kCollet,                 "Collet"},
    {message::kMandrel,                "Mandrel"},
    {message::kFaceDriver,             "Face Driver"},
    {message::kSubSpindle,             "Subspindle"},
    {message::kSubSpindle,             "*Subspindle"},
    {message::kSubSpindle,             "Sub Spindle"},
    {message::kTailstock,              "Tailstock"},
    {message::kCenter,                 "Center"},
    {message::kBezel,                  "Bezel"},
    {message::kBillet,                 "Billet"},
    {message::kBilletCylindric,        "Billet cylindrical"},
    {message::kBilletCylindric,        "Billet cylindric Sub"},
    {message::kBilletFromGeometry,     "Billet from Geometry"},
    {message::kBilletFromGeometry,     "Billet from geometry"},
    {message::kRootDatum,              "Root Datum"},
    {message::kDatum,                  "Datum"},
    {message::kCreateClampDevice,      "Create new Clampdevice"},
    {message::kNoDeviceName,           "Name for clampdevice is missing!"},
    {message::kNoDeviceValue,          "Value # is missing!"},
    {message::kOverwriteDevice,        "Name already exist. Overwrite?"},
    {message::kSelect,                 "Select"},
    {message::kValuesFromSolid,        "Values from Solid >>"},
    {message::kFigureOutside,          "Figure outside F1"},
    {message::kFigureInside,           "Figure inside F2"},
    {message::kNoDeviceSelected,       "Select clampdevice!"},
    {message::kRemoveBillet,           "Remove Billet!"},
    {message::kNoFigure,               "Figure F1 is missing!"},
    {message::kOverwriteDefinition,    "The default vanzetdefinition will be overwritten. Continue?"},
    {message::kDeleteDevice,           "Delete?"},
    {message::kSave,                   "Save"},
    {message::kDelete,                 "Delete"},
    {message::kHideBillet,             "Hide 2D-Billet in screen"},
    {message::kSpindle,                "Spindle"},
    {message::kUseBezel,               "Use bezel"},
    {message::kSelectParametric,       "Select parametric clamp device"},
    {message::kSelectOwn,              "Select own clamp device"},
    {message::kOwnPath,                "VDM-Path for own clamp device"},
    {message::kInvalidVdmName,         "Invalid VDM-Name!"},
    {message::kInvalidDevice,          "Invalid 3D-Geometry for clampdevice!Clampdevice can't be used."},
    {message::kWrongChuck,             "Wrong chuck device! Only type Chuck is allowed."},
    {message::kWrongJaw,               "Wrong jaw device! Only type Jaw is allowed."},
    {message::kBilletFromSolid,        "Billet from Solid"},
    {message::kInvalidSolid,           "Invalid Solid!"},
    {message::kSelectSolid,            "Select Solid!"},
    {message::kPartLength,             "Partlength"},
    {message::kInnerChucking,          "Inner chucking"},
    {message::kClampDiameter,          "Clamp diameter"},
    {message::kAngle,                  "Angle"},
    {message::kBarTooShort,            "*Barlength to short, min. %g or 0 for none bar"},
    {message::kBoreTooWide,            "*outside diameter is short then inside diameter"},
    {message::kNoCatalogue,            "Could not find clampdevice file #! Do you want to search for it?"},
    {message::kFinishPart,             "Finishpart"},
    {message::kFinishPartFromGeometry, "Finishpart from Geometry"},
    {message::kFinishPartFromSolid,    "Finishpart from Solid"},
    {message::kFinishPartFromSolid,    "Finishpart from solid"},
    {message::kDeleteRecord,           "Delete"},
    {message::kClampingOutMain,        "*(A) Clamping out"},
    {message::kClampingOutSub,         "*(B) Clamping out"},
    {message::kOrigin,                 "*Origin Translation"},
    {message::kJawCount,               "Count of Jaws"},
};
// clang-format on

}  // namespace

std::span<const Message> Messages() {
  return kMessages;
}

std::string_view DefaultText(std::int32_t id) {
  const auto* const message = std::ranges::lower_bound(kMessages, id, {}, &Message::id);
  assert(message != std::end(kMessages) && message->id == id && "every text that is shown has a row");
  return message->text;
}

const char* TextMessage(std::int32_t id, std::string_view defaultText, std::string& out) {
  out = hostFunctions.OrvoStrMessage(kMessageGroup, id, "");
  if (out.empty()) out = defaultText;
  return out.c_str();
}

}  // namespace vanzet::host

#include "host/messages.h"

#include <algorithm>
#include <cassert>

#include "host/host_functions.h"

namespace vanzet::host {
namespace {

// clang-format off
constexpr Message kMessages[] = {
    {    5, "OK"},
    {    8, "Help"},
    {   26, "Select Figure"},
    {  406, "Solid"},
    {  699, "Wrong clamp device! Only type Center is allowed."},
    {  700, "Equipment Definition"},
    {  701, "Load Configuration"},
    {  702, "Save Configuration"},
    {  703, "Clampdevice"},
    {  704, "Mainspindle"},
    {  704, "*Mainspindle"},
    {  704, "Main Spindle"},
    {  705, "Chuck"},
    {  706, "Jaw"},
    {  707, "Collet"},
    {  708, "Mandrel"},
    {  709, "Face Driver"},
    {  710, "Subspindle"},
    {  710, "*Subspindle"},
    {  710, "Sub Spindle"},
    {  711, "Tailstock"},
    {  712, "Center"},
    {  713, "Bezel"},
    {  714, "Billet"},
    {  715, "Billet cylindrical"},
    {  715, "Billet cylindric Sub"},
    {  717, "Billet from Geometry"},
    {  717, "Billet from geometry"},
    {  718, "Root Datum"},
    {  719, "Datum"},
    {  720, "Create new Clampdevice"},
    {  721, "Name for clampdevice is missing!"},
    {  722, "Value # is missing!"},
    {  723, "Name already exist. Overwrite?"},
    {  724, "Select"},
    {  725, "Values from Solid >>"},
    {  726, "Figure outside F1"},
    {  727, "Figure inside F2"},
    {  728, "Select clampdevice!"},
    {  729, "Remove Billet!"},
    {  731, "Figure F1 is missing!"},
    {  732, "The default vanzetdefinition will be overwritten. Continue?"},
    {  733, "Delete?"},
    {  734, "Save"},
    {  735, "Delete"},
    {  739, "Hide 2D-Billet in screen"},
    {  741, "Spindle"},
    {  742, "Use bezel"},
    {  743, "Select parametric clamp device"},
    {  744, "Select own clamp device"},
    {  745, "VDM-Path for own clamp device"},
    {  746, "Invalid VDM-Name!"},
    {  747, "Invalid 3D-Geometry for clampdevice!Clampdevice can't be used."},
    {  748, "Wrong chuck device! Only type Chuck is allowed."},
    {  749, "Wrong jaw device! Only type Jaw is allowed."},
    { 1160, "Billet from Solid"},
    { 1162, "Invalid Solid!"},
    { 1163, "Select Solid!"},
    { 1164, "Partlength"},
    { 1165, "Inner chucking"},
    { 1166, "Clamp diameter"},
    { 1167, "Angle"},
    { 1168, "*Barlength to short, min. %g or 0 for none bar"},
    { 1169, "*outside diameter is short then inside diameter"},
    { 1170, "Could not find clampdevice file #! Do you want to search for it?"},
    { 1171, "Finishpart"},
    { 1172, "Finishpart from Geometry"},
    { 1173, "Finishpart from Solid"},
    { 1173, "Finishpart from solid"},
    { 1174, "Delete"},
    { 1175, "*(A) Clamping out"},
    { 1176, "*(B) Clamping out"},
    { 1177, "*Origin Translation"},
    { 1178, "Count of Jaws"},
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

#include "dialog/device_letters.h"

#include "devices/kinds.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

// clang-format off
constexpr LetterControls kLetters[] = {
    // letter, edit, labels on either page
    {'A', control::kEditA, control::kLabelA, control::kNewLabelA},
    {'B', control::kEditB, control::kLabelB, control::kNewLabelB},
    {'C', control::kEditC, control::kLabelC, control::kNewLabelC},
    {'D', control::kEditD, control::kLabelD, control::kNewLabelD},
    {'E', control::kEditE, control::kLabelE, control::kNewLabelE},
    {'F', control::kEditF, control::kLabelF, control::kNewLabelF},
    {'G', control::kEditG, control::kLabelG, control::kNewLabelG},
    {'H', control::kEditH, control::kLabelH, control::kNewLabelH},
    {'I', control::kEditI, control::kLabelI, control::kNewLabelI},
    {'J', control::kEditJ, control::kLabelJ, control::kNewLabelJ},
};

constexpr Field<DeviceParams> kFields[] = {
    {control::kEditA, &DeviceParams::A},
    {control::kEditB, &DeviceParams::B},
    {control::kEditC, &DeviceParams::C},
    {control::kEditD, &DeviceParams::D},
    {control::kEditE, &DeviceParams::E},
    {control::kEditF, &DeviceParams::F},
    {control::kEditG, &DeviceParams::G},
    {control::kEditH, &DeviceParams::H},
    {control::kEditI, &DeviceParams::I},
    {control::kEditJ, &DeviceParams::J},
};
// clang-format on

}  // namespace

std::span<const LetterControls> AllLetterControls() {
  return kLetters;
}

std::span<const Field<DeviceParams>> DeviceFields() {
  return kFields;
}

void EnableLetters(Controls& controls, std::int32_t LetterControls::*label, std::int32_t type) {
  for (const LetterControls& each : kLetters) {
    const devices::Letter* const letter = devices::FindLetter(type, each.letter);
    const bool isOpen = letter != nullptr && letter->entry != devices::Entry::kClosed;
    controls.Enable(each.*label, isOpen);
    controls.Enable(each.edit, isOpen);
  }
}

}  // namespace vanzet::dialog

#pragma once

#include <cstdint>
#include <span>

#include "devices/device_params.h"
#include "dialog/controls.h"
#include "dialog/data_exchange.h"

/// The values of a device on its pages: an edit and a label for each letter.
namespace vanzet::dialog {

/// The controls of a letter.
struct LetterControls {
  char letter;
  std::int32_t edit;
  std::int32_t labelOnClampElem;
  std::int32_t labelOnNew;
};

/// The letters A to J.
std::span<const LetterControls> AllLetterControls();

/// The edits with the values that they show.
std::span<const Field<DeviceParams>> DeviceFields();

/// Enables the letters that can be given for the type, on either page.
void EnableLetters(Controls& controls, std::int32_t LetterControls::*label, std::int32_t type);

}  // namespace vanzet::dialog

#pragma once

#include <cstdint>
#include <span>

#include "devices/device_params.h"
#include "dialog/controls.h"
#include "dialog/data_exchange.h"

/// The values of a device on its pages: an edit and a label for each letter.
namespace vanzet::dialog {

struct TypeRange {
  std::int32_t first, last;
};

/// One letter. What a page does not list of it has no types.
struct DeviceLetter {
  char letter;
  std::int32_t edit;
  std::int32_t labelOnClampElem;
  std::int32_t labelOnNew;
  std::span<const TypeRange> open;    ///< the types for which it can be given
  std::span<const TypeRange> needed;  ///< those for which it must not be 0
};

/// A to J.
std::span<const DeviceLetter> DeviceLetters();

bool HasType(std::span<const TypeRange> types, std::int32_t type);

/// The edits and the values behind them.
std::span<const Field<DeviceParams>> DeviceFields();

/// Enables what can be given for the type, on either page.
void EnableLetters(Controls& controls, std::int32_t DeviceLetter::*label, std::int32_t type);

/// The picture that explains the letters of a type, 0 for none.
std::int32_t DevicePicture(std::int32_t type);

}  // namespace vanzet::dialog

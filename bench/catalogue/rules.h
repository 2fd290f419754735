#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/length_unit.h"
#include "devices/device_params.h"

/// The devices that a catalogue takes: those that the dialog saves and that `vanzet define` uses.
namespace vanzet::catalogue {

/// The reason for refusing a name; empty: none.
std::string NameRefusal(std::string_view name);

/// The reason for refusing the values of a device, with numbers: a letter that its kind needs is 0, is beyond
/// the limits of the form, or the values make no solid. Empty: none. Its lengths are those of the unit.
std::string ValuesRefusal(const DeviceParams& params, LengthUnit unit = LengthUnit::kMillimetre);

/// The values as the catalogue keeps them: six decimals.
DeviceParams Rounded(DeviceParams params);

/// "A 80", with eight decimals at most.
std::string LetterText(const DeviceParams& params, char letter);

/// The letters of a device with their values: "A 80  B 90".
std::string LettersText(const DeviceParams& params);

/// Appends the same to a text.
void AppendLetters(std::string& text, const DeviceParams& params);

}  // namespace vanzet::catalogue

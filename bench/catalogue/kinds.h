#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/length_unit.h"
#include "devices/device_params.h"

/// The kinds of a catalogue by their words: chuck, jaw1, centre2, own_chuck.
namespace vanzet::catalogue {

/// The word of a type; empty for a number that is not one. An older code has the word of the newer one.
std::string_view KindWord(std::int32_t type);

/// The types of a word: one, or those of a whole family for "jaw" and "centre"; none for an unknown word.
std::vector<std::int32_t> TypesOfWord(std::string_view word);

/// The words of parametric types, which a device can be added as, by type.
std::vector<std::string> ParametricWords();

/// All words that a list can be filtered by.
std::vector<std::string> FilterWords();

/// The device with its type's newer code, and 0 in every letter that its type does not have.
DeviceParams Normalised(DeviceParams params);

/// The device with its lengths in a unit in which people read them, to eight decimals; angles stay.
DeviceParams ShownIn(const DeviceParams& params, LengthUnit unit);

/// The value of a letter, to be changed. Requires: 'A' to 'J'.
inline double& LetterOf(DeviceParams& params, char letter) {
  return params.*kDeviceReals.at(static_cast<std::size_t>(letter - 'A'));
}

}  // namespace vanzet::catalogue

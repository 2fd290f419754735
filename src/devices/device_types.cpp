#include "devices/device_types.h"

#include <algorithm>

namespace vanzet {
namespace {

// clang-format off
constexpr DeviceType kDeviceTypes[] = {
    // code  name                      keeps        outline   thickness picture
    {    1, "Chuck",                   "ABC",       "ABC",       ' ',   2056 },
    {    2, "Collet",                  "ABCDEF",    "ABCDEF",    ' ',   2058 },
    {    3, "Mandrel",                 "ABCDEFGH",  "ABCDEFGH",  ' ',   2071 },
    {    4, "Face Driver",             "ABCDEFGHI", "ABCDFI",    ' ',   2060 },
    {    5, "Jaw",                     "ABCDEFGH",  "ABCDEF",    'H',   2062 },
    {    6, "Jaw",                     "ABCDEFGH",  "ABCDEF",    'H',   2063 },
    {    7, "Jaw",                     "ABCDEF",    "ABCD",      'F',   2064 },
    {    8, "Jaw",                     "ABCDEF",    "ABCD",      'F',   2065 },
    {    9, "Jaw",                     "ABCD",      "AB",        'D',   2066 },
    {   10, "Jaw",                     "ABCDE",     "ABCD",      'E',   2067 },
    {   11, "Jaw",                     "ABCDEFGH",  "ABCDEF",    'H',   2068 },
    {   12, "Jaw",                     "ABCDEFGH",  "ABCDEF",    'H',   2069 },
    {   13, "Center",                  "ABCDEFG",   "ABCDEFG",   ' ',   2053 },
    {   14, "Center",                  "ABCDEFGHI", "ABCDEFGHI", ' ',   2054 },
    {  103, "Chuck from a VDM",        "B",         "",          ' ',   2055 },
    {  104, "Jaw from a VDM",          "B",         "",          ' ',   2061 },
    {  105, "Collet from a VDM",       "B",         "",          ' ',   2057 },
    {  106, "Mandrel from a VDM",      "B",         "",          ' ',   2070 },
    {  107, "Face Driver from a VDM",  "B",         "",          ' ',   2059 },
    {  115, "Center from a VDM",       "AB",        "",          ' ',   2052 },
};
// clang-format on

}  // namespace

std::span<const DeviceType> DeviceTypes() {
  return kDeviceTypes;
}

const DeviceType* FindDeviceType(std::int32_t code) {
  const auto* const found = std::ranges::find(kDeviceTypes, code, &DeviceType::code);
  return found == std::end(kDeviceTypes) ? nullptr : found;
}

}  // namespace vanzet

#include "devices/device_types.h"

#include <algorithm>

#include "view/ids.h"

namespace vanzet {
namespace {

// clang-format off
constexpr DeviceType kDeviceTypes[] = {
    // code, name, keeps, outline, thickness, picture
    {  1, "Chuck",                  "ABC",       "ABC",       ' ', picture::kChuck},
    {  2, "Collet",                 "ABCDEF",    "ABCDEF",    ' ', picture::kCollet},
    {  3, "Mandrel",                "ABCDEFGH",  "ABCDEFGH",  ' ', picture::kMandrel},
    {  4, "Face Driver",            "ABCDEFGHI", "ABCDFI",    ' ', picture::kFaceDriver},
    {  5, "Jaw",                    "ABCDEFGH",  "ABCDEF",    'H', picture::kJaw1},
    {  6, "Jaw",                    "ABCDEFGH",  "ABCDEF",    'H', picture::kJaw2},
    {  7, "Jaw",                    "ABCDEF",    "ABCD",      'F', picture::kJaw3},
    {  8, "Jaw",                    "ABCDEF",    "ABCD",      'F', picture::kJaw4},
    {  9, "Jaw",                    "ABCD",      "AB",        'D', picture::kJaw5},
    { 10, "Jaw",                    "ABCDE",     "ABCD",      'E', picture::kJaw6},
    { 11, "Jaw",                    "ABCDEFGH",  "ABCDEF",    'H', picture::kJaw7},
    { 12, "Jaw",                    "ABCDEFGH",  "ABCDEF",    'H', picture::kJaw8},
    { 13, "Center",                 "ABCDEFG",   "ABCDEFG",   ' ', picture::kCenter1},
    { 14, "Center",                 "ABCDEFGHI", "ABCDEFGHI", ' ', picture::kCenter2},
    {103, "Chuck from a VDM",       "B",         "",          ' ', picture::kOwnChuck},
    {104, "Jaw from a VDM",         "B",         "",          ' ', picture::kOwnJaw},
    {105, "Collet from a VDM",      "B",         "",          ' ', picture::kOwnCollet},
    {106, "Mandrel from a VDM",     "B",         "",          ' ', picture::kOwnMandrel},
    {107, "Face Driver from a VDM", "B",         "",          ' ', picture::kOwnFaceDriver},
    {115, "Center from a VDM",      "AB",        "",          ' ', picture::kOwnCenter},
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

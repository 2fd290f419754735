#include "dialog/device_letters.h"

#include <algorithm>

namespace vanzet::dialog {
namespace {

constexpr TypeRange k1To14[] = {{1, 14}};
constexpr TypeRange k1To14And115[] = {{1, 14}, {115, 115}};
constexpr TypeRange k2To14[] = {{2, 14}};
constexpr TypeRange kWithE[] = {{2, 8}, {10, 14}};
constexpr TypeRange kWithF[] = {{2, 8}, {11, 14}};
constexpr TypeRange kNeedingF[] = {{3, 8}, {11, 14}};
constexpr TypeRange kWithG[] = {{3, 6}, {11, 14}};
constexpr TypeRange kWithH[] = {{3, 6}, {11, 12}, {14, 14}};
constexpr TypeRange kNeedingH[] = {{3, 3}, {5, 6}, {11, 12}, {14, 14}};
constexpr TypeRange kWithI[] = {{4, 4}, {14, 14}};

// What has to be given is less than what can be: A of a chuck, F of a collet and H of a face driver may stay
// 0.
// clang-format off
constexpr DeviceLetter kLetters[] = {
    //     edit  labels      open          needed
    {'A', 2031, 2116, 2115, k1To14And115, k2To14},
    {'B', 2033, 2119, 2118, k1To14,       k1To14},
    {'C', 2034, 2121, 2120, k1To14,       k1To14},
    {'D', 2036, 2126, 2125, k2To14,       k2To14},
    {'E', 2037, 2129, 2128, kWithE,       kWithE},
    {'F', 2038, 2131, 2130, kWithF,       kNeedingF},
    {'G', 2041, 2135, 2134, kWithG,       kWithG},
    {'H', 2042, 2137, 2136, kWithH,       kNeedingH},
    {'I', 2043, 2140, 2139, kWithI,       kWithI},
    {'J', 2044, 2143, 2142, {},           {}},
};

constexpr Field<DeviceParams> kFields[] = {
    {2031, &DeviceParams::A}, {2033, &DeviceParams::B}, {2034, &DeviceParams::C}, {2036, &DeviceParams::D},
    {2037, &DeviceParams::E}, {2038, &DeviceParams::F}, {2041, &DeviceParams::G}, {2042, &DeviceParams::H},
    {2043, &DeviceParams::I}, {2044, &DeviceParams::J},
};

struct TypePicture {
  std::int32_t type;
  std::int32_t bitmap;
};

constexpr TypePicture kPictures[] = {
    {  1, 2056}, {  2, 2058}, {  3, 2071}, {  4, 2060}, {  5, 2062}, {  6, 2063}, {  7, 2064}, {  8, 2065},
    {  9, 2066}, { 10, 2067}, { 11, 2068}, { 12, 2069}, { 13, 2053}, { 14, 2054}, {103, 2055}, {104, 2061},
    {105, 2057}, {106, 2070}, {107, 2059}, {109, 2055}, {110, 2061}, {111, 2057}, {112, 2070}, {113, 2059},
    {115, 2052},
};
// clang-format on

}  // namespace

std::span<const DeviceLetter> DeviceLetters() {
  return kLetters;
}

bool HasType(std::span<const TypeRange> types, std::int32_t type) {
  return std::ranges::any_of(
      types, [&](const TypeRange& range) { return type >= range.first && type <= range.last; });
}

std::span<const Field<DeviceParams>> DeviceFields() {
  return kFields;
}

void EnableLetters(Controls& controls, std::int32_t DeviceLetter::*label, std::int32_t type) {
  for (const DeviceLetter& letter : kLetters) {
    const bool isOpen = HasType(letter.open, type);
    controls.Enable(letter.*label, isOpen);
    controls.Enable(letter.edit, isOpen);
  }
}

std::int32_t DevicePicture(std::int32_t type) {
  const auto* const row = std::ranges::find(kPictures, type, &TypePicture::type);
  return row == std::end(kPictures) ? 0 : row->bitmap;
}

}  // namespace vanzet::dialog

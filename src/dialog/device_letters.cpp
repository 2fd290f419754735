#include "dialog/device_letters.h"

#include <algorithm>

#include "view/ids.h"

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
    // letter, edit, labels on either page, open, needed
    {'A', control::kEditA, control::kLabelA, control::kNewLabelA, k1To14And115, k2To14},
    {'B', control::kEditB, control::kLabelB, control::kNewLabelB, k1To14,       k1To14},
    {'C', control::kEditC, control::kLabelC, control::kNewLabelC, k1To14,       k1To14},
    {'D', control::kEditD, control::kLabelD, control::kNewLabelD, k2To14,       k2To14},
    {'E', control::kEditE, control::kLabelE, control::kNewLabelE, kWithE,       kWithE},
    {'F', control::kEditF, control::kLabelF, control::kNewLabelF, kWithF,       kNeedingF},
    {'G', control::kEditG, control::kLabelG, control::kNewLabelG, kWithG,       kWithG},
    {'H', control::kEditH, control::kLabelH, control::kNewLabelH, kWithH,       kNeedingH},
    {'I', control::kEditI, control::kLabelI, control::kNewLabelI, kWithI,       kWithI},
    {'J', control::kEditJ, control::kLabelJ, control::kNewLabelJ, {},           {}},
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

struct TypePicture {
  std::int32_t type;
  std::int32_t bitmap;
};

constexpr TypePicture kPictures[] = {
    {  1, picture::kChuck},
    {  2, picture::kCollet},
    {  3, picture::kMandrel},
    {  4, picture::kFaceDriver},
    {  5, picture::kJaw1},
    {  6, picture::kJaw2},
    {  7, picture::kJaw3},
    {  8, picture::kJaw4},
    {  9, picture::kJaw5},
    { 10, picture::kJaw6},
    { 11, picture::kJaw7},
    { 12, picture::kJaw8},
    { 13, picture::kCenter1},
    { 14, picture::kCenter2},
    {103, picture::kOwnChuck},
    {104, picture::kOwnJaw},
    {105, picture::kOwnCollet},
    {106, picture::kOwnMandrel},
    {107, picture::kOwnFaceDriver},
    {109, picture::kOwnChuck},
    {110, picture::kOwnJaw},
    {111, picture::kOwnCollet},
    {112, picture::kOwnMandrel},
    {113, picture::kOwnFaceDriver},
    {115, picture::kOwnCenter},
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

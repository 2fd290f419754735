#include "devices/kinds.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace vanzet::devices {
namespace {

constexpr const Kind* kKinds[] = {&kChuck, &kCollet, &kMandrel, &kFaceDriver, &kJaw, &kCenter};

struct ClassRow {
  DeviceClass deviceClass;
  std::string_view word;
};
constexpr ClassRow kClasses[] = {
    {DeviceClass::kChuck, "chuck"},
    {DeviceClass::kJaw, "jaw"},
    {DeviceClass::kCenter, "center"},
};

constexpr double kUsualThickness = 2.05;

std::vector<const Device*> AllDevices() {
  std::vector<const Device*> all;
  for (const Kind* const kind : kKinds) {
    for (const Device& device : kind->devices) all.push_back(&device);
    all.push_back(&kind->own);
  }
  std::ranges::sort(all, {}, &Device::code);
  return all;
}

}  // namespace

std::int32_t Kind::ShapeOf(std::int32_t type) const {
  const auto found = std::ranges::find(devices, type, &Device::code);
  return found == devices.end() ? 0 : static_cast<std::int32_t>(found - devices.begin()) + 1;
}

std::span<const Kind* const> Kinds() {
  return kKinds;
}

const Kind* FindKind(std::int32_t number) {
  const auto* const found = std::ranges::find(kKinds, number, &Kind::First);
  return found == std::end(kKinds) ? nullptr : *found;
}

const Kind* KindOf(std::int32_t type) {
  const auto* const found = std::ranges::find_if(kKinds, [&](const Kind* kind) { return kind->Has(type); });
  return found == std::end(kKinds) ? nullptr : *found;
}

std::span<const Device* const> Devices() {
  static const std::vector<const Device*> kDevices = AllDevices();
  return kDevices;
}

const Device* Find(std::int32_t type) {
  const auto found = std::ranges::lower_bound(Devices(), type, {}, &Device::code);
  return found != Devices().end() && (*found)->code == type ? *found : nullptr;
}

std::int32_t PictureOf(std::int32_t type) {
  const Device* const device = Find(NewerCode(type));
  return device == nullptr ? 0 : device->picture;
}

const Device* FindByPicture(std::int32_t picture) {
  const auto found = std::ranges::find(Devices(), picture, &Device::picture);
  return found == Devices().end() ? nullptr : *found;
}

std::span<const Letter> LettersOf(std::int32_t type) {
  const Device* const device = Find(type);
  return device == nullptr ? std::span<const Letter>() : device->letters;
}

const Letter* FindLetter(std::int32_t type, char letter) {
  const auto letters = LettersOf(type);
  const auto found = std::ranges::find(letters, letter, &Letter::letter);
  return found == letters.end() ? nullptr : &*found;
}

bool IsOwn(std::int32_t type) {
  const Kind* const kind = KindOf(type);
  return kind != nullptr && kind->HasOwn(type);
}

std::int32_t NewerCode(std::int32_t type) {
  return IsOwn(type) ? OwnCodeOf(type) : type;
}

std::int32_t OwnCodeOf(std::int32_t type) {
  const Kind* const kind = KindOf(type);
  return kind == nullptr ? type : kind->own.code;
}

double ThicknessOf(const DeviceParams& params) {
  const auto letters = LettersOf(params.type);
  const auto found = std::ranges::find(letters, Drawn::kThickness, &Letter::drawn);
  return found == letters.end() ? kUsualThickness : ValueOf(params, found->letter);
}

std::string_view WordOf(DeviceClass deviceClass) {
  const auto* const row = std::ranges::find(kClasses, deviceClass, &ClassRow::deviceClass);
  return row == std::end(kClasses) ? std::string_view() : row->word;
}

std::optional<DeviceClass> DeviceClassNamed(std::string_view word) {
  const auto* const row = std::ranges::find(kClasses, word, &ClassRow::word);
  return row == std::end(kClasses) ? std::nullopt : std::optional(row->deviceClass);
}

}  // namespace vanzet::devices

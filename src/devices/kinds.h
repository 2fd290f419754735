#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "devices/device.h"

/// The kinds of device, and the questions that are asked about a type.
namespace vanzet::devices {

extern const Kind kChuck;
extern const Kind kCollet;
extern const Kind kMandrel;
extern const Kind kFaceDriver;
extern const Kind kJaw;
extern const Kind kCenter;

/// All kinds, by their numbers.
std::span<const Kind* const> Kinds();

/// The kind with that number, or null.
const Kind* FindKind(std::int32_t number);

/// The kind that a type belongs to, by whatever code, or null.
const Kind* KindOf(std::int32_t type);

/// All types in use, by their codes.
std::span<const Device* const> Devices();

/// The facts of a type, or null. An older code has none: see NewerCode.
const Device* Find(std::int32_t type);

/// The picture of a type, also by its older code; 0 for a type without facts.
std::int32_t PictureOf(std::int32_t type);

/// The type that a picture explains, or null.
const Device* FindByPicture(std::int32_t picture);

/// The letters of a type, in order; none for a type without facts.
std::span<const Letter> LettersOf(std::int32_t type);

/// The letter of a type, or null for one that it does not have.
const Letter* FindLetter(std::int32_t type, char letter);

/// Whether jaws belong to a device of that type.
inline bool IsChuck(std::int32_t type) {
  return kChuck.Has(type);
}
inline bool IsJaw(std::int32_t type) {
  return kJaw.Has(type);
}
inline bool IsCenter(std::int32_t type) {
  return kCenter.Has(type);
}

/// True for a device whose solid is kept in a VDM of its own; it has no outline.
bool IsOwn(std::int32_t type);

/// The code in use for a type: 103 for 109. All other types are returned as they are.
std::int32_t NewerCode(std::int32_t type);

/// The type of the same kind that is kept in a VDM of its own; a type of no kind is returned as it is.
std::int32_t OwnCodeOf(std::int32_t type);

/// The thickness of a jaw; a usual one for a type that has no letter for it.
double ThicknessOf(const DeviceParams& params);

/// The group of clamp devices, which the VDM of an own device names.
inline constexpr std::int32_t kClampDeviceGroup = 3;

/// The word of a class, "chuck", "jaw" or "center", and the class of a word. Empty for anything else.
std::string_view WordOf(DeviceClass deviceClass);
std::optional<DeviceClass> DeviceClassNamed(std::string_view word);

}  // namespace vanzet::devices

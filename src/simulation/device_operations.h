#pragma once

#include <cstdint>

namespace vanzet::simulation {

/// The operations of a definition that keep the simulation data of a kind of device, by spindle
/// (docs/formats/definition.md).
struct DeviceOperations {
  std::int32_t firstType, lastType;
  std::int32_t vrmlMain, vrmlSub;
  std::int32_t outlineMain, outlineSub;

  std::int32_t Vrml(bool isSub) const { return isSub ? vrmlSub : vrmlMain; }
  std::int32_t Outline(bool isSub) const { return isSub ? outlineSub : outlineMain; }
};

/// The row of a type, or null. On a machine without a sub spindle a center's VRML takes the sub spindle's
/// place.
const DeviceOperations* OperationsOf(std::int32_t type, bool subSpindleAvailable);

/// Any jaw stands under this type where only its kind counts.
inline constexpr std::int32_t kAnyJaw = 5;

inline bool IsJaw(std::int32_t type) {
  return type >= 5 && type <= 12;
}

}  // namespace vanzet::simulation

#pragma once

#include <cstdint>

namespace vanzet::simulation {

/// The operations of a definition that keep the simulation data of a kind of device, by spindle
/// (docs/formats/definition.md).
struct DeviceOperations {
  std::int32_t vrmlMain, vrmlSub;
  std::int32_t outlineMain, outlineSub;

  std::int32_t Vrml(bool isSub) const { return isSub ? vrmlSub : vrmlMain; }
  std::int32_t Outline(bool isSub) const { return isSub ? outlineSub : outlineMain; }
};

/// The operations of a parametric type; null for all other types. On a machine without a sub spindle the VRML
/// of a center takes the place of the sub spindle's device.
const DeviceOperations* OperationsOf(std::int32_t type, bool subSpindleAvailable);

}  // namespace vanzet::simulation

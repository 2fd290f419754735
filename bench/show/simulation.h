#pragma once

#include <array>
#include <cstddef>

#include "project/definition.h"
#include "scene/equipment.h"

namespace vanzet::show {

/// A device of the equipment, and the operations that hold its simulation data.
/// Source: docs/formats/definition.md
struct SimulatedDevice {
  const scene::Device* device;
  std::size_t solid;    ///< the operation of its VRML text
  std::size_t outline;  ///< the operation of its outline
};

/// Main clamp device and jaw, those of the sub spindle, center. Valid as long as the equipment.
std::array<SimulatedDevice, 5> SimulatedDevices(const scene::Equipment& equipment);

/// How the simulation data of a device stand to its values.
enum class SimulationState {
  kNone,     ///< no device
  kMissing,  ///< no data
  kCurrent,  ///< the outline is that of the values; of an own device: there are data
  kOther,    ///< the outline is that of other values
};

/// Compares the stored outline with that of the device's values. The thickness of a jaw, which no outline
/// has, and the facets of the solid are not compared. The heads of the records are enough.
SimulationState SimulationStateOf(const SimulatedDevice& device, const project::Definition& definition);

}  // namespace vanzet::show

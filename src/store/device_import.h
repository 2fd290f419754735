#pragma once

#include <cstdint>

namespace vanzet {

/// Copies the simulation data of a prepared device from a VDM into the definition of a spur. The device's
/// class decides which operation takes it: a clamp device, a jaw or a centre.
///
///   spur, spindle        as in store/clamp_records.h
///   subSpindleAvailable  without one the centre goes where the sub spindle's clamp device goes
///   sourceNumber         the VDM, loaded by the caller; not the definition itself
/// Result  0, or -1 when either VDM cannot be opened or the class is none of the three
/// Source  docs/formats/definition.md
std::int32_t ImportDevice(std::int32_t spur, std::int32_t spindle, bool subSpindleAvailable,
                          std::uint32_t sourceNumber);

}  // namespace vanzet

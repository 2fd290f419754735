#pragma once

#include <optional>
#include <string>

#include "devices/device_params.h"

/// Whether the values of a parametric device make a solid.
namespace vanzet::devices {

/// The reason why the values of a device make no solid.
struct SolidFault {
  std::string letters;  ///< those that it is about, the most likely one first; empty: all of the outline
  std::string reason;   ///< "C (100) must be less than A (80)"
};

/// The first fault of the values: a letter beyond its limits, or an outline that crosses or touches itself,
/// encloses nothing, is inside out, or crosses the axis of a device that is spun. The rules of the device
/// explain the outline; values that break a rule and make a solid all the same have no fault.
/// Nothing for a type without an outline. `shown` is the device with the lengths that the reason shows, such
/// as inches. Requires: `shown` differs in its unit of length alone.
std::optional<SolidFault> FindSolidFault(const DeviceParams& params, const DeviceParams& shown);
inline std::optional<SolidFault> FindSolidFault(const DeviceParams& params) {
  return FindSolidFault(params, params);
}

}  // namespace vanzet::devices

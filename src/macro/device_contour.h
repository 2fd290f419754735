#pragma once

#include <cstdint>

#include "devices/device_params.h"

/// Has the host make the outline of a clamp device.
///
/// Story    the lines select the construction window first and the display window last, make the contour from
///          lines and points from number 100 on, and delete these again; the contour stays
/// Errors   none is told: whether the host could do it shows only in what it has made
namespace vanzet {

/// The contours that the outlines are made into: a device is spun from the one, a jaw extruded from the
/// other.
inline constexpr std::int32_t kDeviceContour = 30000;
inline constexpr std::int32_t kJawContour = 30001;

/// Makes the outline of a parametric device the host's contour `contour`. False when there is none: nothing
/// is sent for no device and for one kept in a VDM; for a type that nobody knows the lines that begin the
/// construction are sent and taken back.
bool BuildDeviceContour(const DeviceParams& params, std::int32_t contour);

/// Makes a stand-in for the jaw of a device that has none: a block in contour 30001. Only chucks, collets,
/// mandrels and face drivers have one; for all else nothing is sent, and the result is false.
bool BuildPlaceholderJaw(const DeviceParams& device);

}  // namespace vanzet

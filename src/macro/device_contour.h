#pragma once

#include <cstdint>

#include "devices/device_params.h"

/// Has the host make the outline of a clamp device.
///
/// Story    the lines select the construction window first and the display window last, make the contour from
///          lines and points from number 100 on, and delete these again; the contour stays
/// Errors   none are reported: whether the host could do it shows only in what it has made
namespace vanzet {

/// The contours that the outlines become: the solid of a device is spun from the first one, that of a jaw is
/// extruded from the second.
inline constexpr std::int32_t kDeviceContour = 30000;
inline constexpr std::int32_t kJawContour = 30001;

/// Makes the outline of a parametric device the host's contour `contour`. False when the device has no
/// outline: nothing is sent for type 0 and for a device that is kept in a VDM; for an unknown type the lines
/// that begin the construction are sent and taken back.
bool BuildDeviceContour(const DeviceParams& params, std::int32_t contour);

/// Makes a block in contour 30001 as the jaw of a device that has none. For a type that has no
/// stand-in nothing is sent, and the result is false.
bool BuildPlaceholderJaw(const DeviceParams& params);

}  // namespace vanzet

#pragma once

#include <functional>
#include <string>
#include <string_view>

/// The fixed lines of a device's VRML text, for all who write one: docs/formats/device-vrml.md. Each line has
/// its line end.
namespace vanzet {

using LineSink = std::function<void(const std::string& line)>;

/// How long the markers are, in millimetres.
inline constexpr double kVrmlMarkerLength = 15;

/// What stands before the points of the device.
void GiveDeviceVrmlHead(const LineSink& sink);

/// What stands behind its faces: the markers PLG_0 and SCK_0. `plug` is the x of the plug's base, `tip` that
/// of its end, each with six decimals.
void GiveDeviceVrmlTail(std::string_view plug, std::string_view tip, const LineSink& sink);

}  // namespace vanzet

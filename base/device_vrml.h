#pragma once

#include <functional>
#include <string>
#include <string_view>

/// The fixed lines of a device's VRML text, for every writer of one: docs/formats/device-vrml.md. Each line
/// has its line end.
namespace vanzet {

using LineSink = std::function<void(const std::string& line)>;

/// The length of the markers, in millimetres.
inline constexpr double kVrmlMarkerLength = 15;

/// Writes the lines before the points of the device.
void GiveDeviceVrmlHead(const LineSink& sink);

/// Writes the lines after its faces: the markers PLG_0 and SCK_0. `plug` is the x of the plug's base, `tip`
/// that of its end, each with six decimals.
void GiveDeviceVrmlTail(std::string_view plug, std::string_view tip, const LineSink& sink);

}  // namespace vanzet

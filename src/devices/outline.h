#pragma once

#include <vector>

#include "devices/device.h"

/// The outlines of parametric devices as vertices: what the host's lines must give, and what pictures show.
///
/// Shape    closed; x along the spindle, y away from its axis. The outline of a device that is spun is the
///          half section: the X axis is the spindle's, the working face is at x = 0 and the device is on its
///          negative side. A jaw is seen from the side; it rests on y = 0 and is to the right of x = 0
/// Units    those of the device's values
namespace vanzet {

struct OutlineVertex {
  double x;
  double y;
};

/// The outline of a device; its chamfer is cut when it fits on both sides of its corner. Empty for a type
/// without an outline. The values are not checked: those that make no sense give vertices that make none.
std::vector<OutlineVertex> OutlineOf(const DeviceParams& params);

namespace devices {

/// True when the condition holds for these values. C of a chuck is its bore.
inline bool Holds(Bore bore, const DeviceParams& params) {
  return bore == Bore::kAny || (bore == Bore::kAbove0) == (params.C > 0);
}

/// The outline that a device with these values has, or null.
const Outline* FindOutline(const DeviceParams& params);

}  // namespace devices
}  // namespace vanzet

#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "devices/device_params.h"

/// The outlines of parametric devices as vertices: what the host's lines are to give, and what pictures show.
///
/// Shape    closed; x along the spindle, y away from its axis. What is spun is the half section of the
/// device:
///          the X axis is the spindle's, the working face is at x = 0 and the device lies behind it. A jaw is
///          seen from the side, rests on y = 0 and lies to the right of x = 0
/// Units    those of the device's values
namespace vanzet {

/// When a row of a device's table holds.
enum class Bore { kAny, kAbove0, kNone };

/// True when a row with this condition holds for these values. C of a chuck is its bore.
inline bool Holds(Bore bore, const DeviceParams& params) {
  return bore == Bore::kAny || (bore == Bore::kAbove0) == (params.C > 0);
}

/// A corner of an outline; formulas as in devices/formula.h.
struct OutlineCorner {
  std::string_view x;
  std::string_view y;
  std::string_view chamfer = {};  ///< the length of its chamfer's legs; empty: the corner stays
};

struct DeviceOutline {
  std::int32_t type;
  Bore bore;
  std::span<const OutlineCorner> corners;  ///< in order, without the first one repeated
};

std::span<const DeviceOutline> DeviceOutlines();

struct OutlineVertex {
  double x;
  double y;
};

/// The outline of a device, its chamfer cut when it fits on the corner's two sides; empty for a type that has
/// none. The values are not examined: those that make no sense give vertices that make none.
std::vector<OutlineVertex> OutlineOf(const DeviceParams& params);

}  // namespace vanzet

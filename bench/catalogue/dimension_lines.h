#pragma once

#include <functional>
#include <string>

#include "devices/device.h"
#include "devices/outline.h"

/// The dimensions of a device in a picture.
namespace vanzet::catalogue {

/// The place of a device on paper. y points down there.
struct DevicePlace {
  std::function<OutlineVertex(double x, double y)> onPaper;
  double left, top, right, bottom;  ///< the bounds of its shapes
  double lane;                      ///< the width of a lane of dimensions
};

/// The line of a measure with arrows, its letter and its value, as SVG. Empty for a measure whose points are
/// the same.
std::string DimensionOf(const devices::Measure& measure, const DeviceParams& params,
                        const DevicePlace& place);

}  // namespace vanzet::catalogue

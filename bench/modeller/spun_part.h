#pragma once

#include <optional>
#include <vector>

#include "base/result.h"
#include "geometry/kurve.h"
#include "modeller/body.h"

namespace vanzet::modeller {

/// The solid of a turned part from the curves of two figures: the outside spun about the x axis, the inside
/// spun too and taken away.
///
/// Closed curves are half sections as they are; the first open one of a figure is closed down to the axis.
/// Nothing when the outside has no such curve. A fault when one cannot be spun, or when nothing is left.
/// Requires: the geometry library works in millimetres
Result<std::optional<Body>> SpunPart(const std::vector<geometry::Kurve>& outside,
                                     const std::vector<geometry::Kurve>& inside);

}  // namespace vanzet::modeller

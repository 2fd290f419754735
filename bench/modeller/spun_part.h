#pragma once

#include <optional>
#include <vector>

#include "base/result.h"
#include "geometry/kurve.h"
#include "modeller/body.h"

namespace vanzet::modeller {

/// Makes the solid of a turned part from the curves of two figures: the outside is spun about the x axis,
/// and the spun inside is cut away.
///
/// A closed curve is a half section; the first open curve of a figure is closed down to the axis. Returns
/// nothing when the outside has no such curve. Fails when a curve cannot be spun, and when nothing is left.
///
/// Requires  the geometry library works in millimetres
Result<std::optional<Body>> SpinPart(const std::vector<geometry::Kurve>& outside,
                                     const std::vector<geometry::Kurve>& inside);

}  // namespace vanzet::modeller

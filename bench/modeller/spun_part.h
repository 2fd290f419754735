#pragma once

#include <optional>
#include <vector>

#include "base/result.h"
#include "geometry/kurve.h"
#include "modeller/body.h"

namespace vanzet::modeller {

/// The closed half sections that the curves of a figure are spun from: a closed curve is one, and the first
/// open curve is closed down to the axis.
std::vector<geometry::Kurve> HalfSections(const std::vector<geometry::Kurve>& curves);

/// Makes the solid of a turned part from the curves of two figures: the outside is spun about the x axis,
/// and the spun inside is cut away.
///
/// Returns nothing when the outside has no half section. Fails when a curve cannot be spun, and when nothing
/// is left.
///
/// Requires  the geometry library works in millimetres
Result<std::optional<Body>> SpinPart(const std::vector<geometry::Kurve>& outside,
                                     const std::vector<geometry::Kurve>& inside);

}  // namespace vanzet::modeller

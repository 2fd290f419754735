#pragma once

#include <cstdint>

#include "geometry/point.h"

namespace geometry::region {

/// Some of 64 directions around a point, a bit for each: those in which a curve advances all along, by 3
/// degrees or more from standing still. What advances in a direction does not come back to where it was.
using Advance = std::uint64_t;

/// The directions in which a curve of this unit tangent advances. An arc of less than half a turn advances
/// where it does at both ends.
Advance AdvanceAlong(const Vector2d& tangent);

}  // namespace geometry::region

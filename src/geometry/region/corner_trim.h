#pragma once

#include "geometry/region/sketch.h"

namespace geometry::region {

/// Shortens the offsets of two spans at a corner that turns to the side of the offset, to their common point.
///
/// Without it the curve goes from the end of the first offset to the corner and to the start of the second
/// one, and makes a loop from the common point back to itself, whose inside both strips have in common. The
/// inside is counted one time less without the loop, and so at least once: no sign changes.
///
/// That the inside is in both strips follows from its boundary being there, since strips are simply
/// connected. The boundary is the normal to each end, and each offset from the common point to its end.
/// Beside span A, as along the other one, let the place of a point be its foot on A and its distance from A.
/// From the corner along the normal of B and then along B's offset to the common point, the distance from A
/// only grows, from 0 to that of the offset, as long as B's tangent turns from A's by 0 to 90 degrees to the
/// side of the offset; the foot moves away from the corner on the normal, and back on the offset. So this
/// holds when it does for all tangents of A and of B between the corner and the farthest foot, and it is
/// enough to look at the tangents at the ends of these parts.
///
/// Two corners of a span do not disturb each other: with an arc, the feet are in the half of the span next to
/// the corner. Between two lines the legs are in these halves. A point inside the loops of several corners is
/// then in the strips of more spans than corners.
///
/// Returns false, and leaves `common` alone, when one of these conditions is not met.
/// Requires: both have a length, `before` ends where `after` starts, and the chain turns to the side of
///           `left` there, or not at all.
bool TrimCorner(const Shape& before, const Shape& after, double left, Vector2d& common);

}  // namespace geometry::region

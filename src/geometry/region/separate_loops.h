#pragma once

#include <optional>
#include <vector>

#include "geometry/region.h"
#include "geometry/region/sketch.h"

namespace geometry::region {

/// The positive faces of closed loops of which it is proved that they neither cross nor touch themselves or
/// each other; nothing when it is not proved.
///
/// Such a loop is a Jordan curve, so the winding number steps by one at it and nowhere else. With w the
/// number that all other loops make at one of its points, which is the same at all of them, it is w + 1 on
/// the inside of an anticlockwise loop and w - 1 on that of a clockwise one, and w outside. A loop is a
/// boundary of the positive set exactly when it is anticlockwise and w = 0, or clockwise and w = 1. The
/// others, such as the inverted loop of a part that is gone, are left out. Nothing else of the loops matters:
/// neither where they come from nor what is near to what.
///
/// The proof compares parts, which are lines or arcs that are monotone in x and y:
/// - Parts that follow each other along a loop and all advance in a common direction do not meet but where
///   one ends and the next one begins.
/// - Two parts that follow each other do not meet again if a line through their common end separates them.
/// - Any other two parts are apart if their boxes are. Else they are compared as in the arrangement
///   (curve.h), which would not cut them either.
/// All this with a margin of 16 r (geometry/region.h), thousands of times the rounding of coordinates. Parts
/// that are shorter than that prove nothing, nor arcs whose ends differ in radius by more than a millionth of
/// their chord.
std::optional<Region> PositiveLoopsOf(const Sketch& sketch, std::vector<RegionLoop>& loops,
                                      double resolution);

}  // namespace geometry::region

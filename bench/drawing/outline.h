#pragma once

#include <string>
#include <vector>

#include "base/result.h"
#include "geometry/kurve.h"

namespace vanzet::drawing {

/// One element of a contour that is told by what it goes along.
struct Element {
  enum class Kind {
    kPoint,    ///< a corner; where it is not on the line or circle beside it, its projection counts
    kLine,     ///< along a line, from where it meets the element before to where it meets the next
    kCircle,   ///< along a circle, from the point before to the point behind
    kChamfer,  ///< cuts the corner between the lines before and behind
  };
  Kind kind = Kind::kPoint;
  geometry::Point point = {};    ///< of a point
  geometry::CLine line = {};     ///< of a line
  geometry::Circle circle = {};  ///< of a circle
  int direction = 1;             ///< of a circle: 1 anticlockwise, -1 clockwise
  double length = 0;             ///< of a chamfer: what it takes of either side
  std::string name = {};         ///< as the line called it, for faults
  int column = 0;                ///< where it stands in the line, for faults
};

/// The contour that the elements determine by their successive crossings.
///
/// A chamfer of 0 or less, or longer than what it would be taken from, leaves the corner. What is shorter
/// than the geometry's tolerance is left out. The first and the last element are points.
///
/// Errors   a fault with the column of the element that does not fit: lines that do not meet, a circle that
/// is
///          not between points or an arc of it from a point to itself, a chamfer that is not between lines, a
///          point between lines that is not on both, a contour without a span
Result<geometry::Kurve> OutlineOf(const std::vector<Element>& elements);

/// The contour through explicit corners, and back to the first.
Result<geometry::Kurve> ClosedThrough(const std::vector<geometry::Point>& corners);

}  // namespace vanzet::drawing

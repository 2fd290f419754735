#pragma once

#include <string>
#include <vector>

#include "base/result.h"
#include "geometry/kurve.h"

namespace vanzet::drawing {

/// One element of a contour, which is described by the lines, circles and points along it.
struct Element {
  enum class Kind {
    kPoint,    ///< a corner; off the adjacent line or circle, its projection on it counts
    kLine,     ///< along a line, from where it meets the element before to where it meets the next
    kCircle,   ///< along a circle, from the point before to the point after it
    kChamfer,  ///< cuts the corner between the lines before and after it
  };
  Kind kind = Kind::kPoint;
  geometry::Point point = {};    ///< of a point
  geometry::CLine line = {};     ///< of a line
  geometry::Circle circle = {};  ///< of a circle
  int direction = 1;             ///< of a circle: 1 anticlockwise, -1 clockwise
  double length = 0;             ///< of a chamfer: the length that it cuts off either side
  std::string name = {};         ///< its name in the line, for faults
  int column = 0;                ///< its column in the line, for faults
};

/// Makes the contour that the elements determine by their successive intersections.
///
/// A chamfer of 0 or less, or longer than one of its sides, leaves the corner as it is. Spans shorter than
/// the tolerance of the geometry library are left out. The first and the last element must be points.
///
/// Errors   a fault with the column of the element: lines that do not meet, a circle that is not between
///          points or an arc of it from a point to itself, a chamfer that is not between lines, a point
///          between lines that is not on both, a contour without a span
Result<geometry::Kurve> OutlineOf(const std::vector<Element>& elements);

/// Makes the contour through explicit corners and back to the first.
Result<geometry::Kurve> ClosedThrough(const std::vector<geometry::Point>& corners);

}  // namespace vanzet::drawing

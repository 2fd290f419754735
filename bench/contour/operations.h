#pragma once

#include <vector>

#include "base/result.h"
#include "contour/contour.h"

/// What can be asked of contours, and made of them.
namespace vanzet::contour {

struct Facts {
  int number = 0;
  int spans = 0;
  int arcs = 0;
  bool closed = false;
  double perimeter = 0;
  double area = 0;    ///< in square millimetres, never below 0; 0 when open
  int direction = 0;  ///< 1 anticlockwise, -1 clockwise, 0 open
  geometry::Point low, high;
};
Facts FactsOf(const Contour& contour);

/// The point of a contour that is nearest to another; of equal ones the first along the contour.
struct Nearest {
  int span = 0;  ///< from 1
  geometry::Point point;
  double distance = 0;
};
Nearest NearestOn(const Contour& contour, const geometry::Point& point);

/// Where a point is. An open contour has no inside; on the contour is within the library's `TOLERANCE`.
enum class Side { kOpen, kOn, kInside, kOutside };
Result<Side> SideOf(const Contour& contour, const geometry::Point& point);

/// A point where two contours cross or touch. A vertex is told once, with the first of its spans. Spans that
/// lie on each other are told by no point of their own.
struct Crossing {
  int spanA = 0, spanB = 0;  ///< from 1
  geometry::Point point;
};
Result<std::vector<Crossing>> Crossings(const Contour& a, const Contour& b);

/// Arcs become chords that are nowhere farther from them than `tolerance`. Refused when there would be more
/// than `kMostVertices`. Requires: the tolerance is above 0.
Result<Contour> Chorded(const Contour& contour, double tolerance);

/// Drops vertices between lines while all that are dropped stay within `tolerance` of the new line. The start
/// stays.
Result<Contour> Reduced(const Contour& contour, double tolerance);

/// The contour moved, turned, mirrored or scaled. Refused when it would be too large.
Result<Contour> Transformed(const Contour& contour, const geometry::Matrix& matrix);

/// From the point of the contour nearest to `from` to that nearest to `to`, along its direction, on a closed
/// contour past its start if need be. Refused when the points are one, and on an open contour when they come
/// in the other order.
Result<Contour> PartOf(const Contour& contour, const geometry::Point& from, const geometry::Point& to);

/// A circle of two half turns, anticlockwise. Refused when it is too large, or not larger than a point.
Result<Contour> CircleOf(const geometry::Point& centre, double radius);

}  // namespace vanzet::contour

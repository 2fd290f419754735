#pragma once

#include <vector>

#include "base/result.h"
#include "contour/contour.h"

/// Questions about contours, and simple contours made of others.
///
/// Units    lengths in millimetres; spans and vertices are numbered along the contour, spans from 1
/// Errors   a fault without a place; the given contours never change
namespace vanzet::contour {

/// The figures of one contour.
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

/// The point of a contour that is nearest to another point; of equally near ones the first along the contour.
struct Nearest {
  int span = 0;  ///< from 1
  geometry::Point point;
  double distance = 0;
};
Nearest NearestOn(const Contour& contour, const geometry::Point& point);

/// The place of a point. An open contour has no inside; a point within the library's `TOLERANCE` is on the
/// contour.
enum class Side { kOpen, kOn, kInside, kOutside };
Result<Side> SideOf(const Contour& contour, const geometry::Point& point);

/// A point where two contours cross or touch. A vertex is listed once, with the first of its spans. Spans
/// that overlap add no point of their own.
struct Crossing {
  int spanA = 0, spanB = 0;  ///< from 1
  geometry::Point point;
};
/// Fails when there are more than a million points.
Result<std::vector<Crossing>> Crossings(const Contour& a, const Contour& b);

/// Replaces arcs by chords that are nowhere farther from them than `tolerance`. Fails when there would be
/// more than `kMostVertices`. Requires: the tolerance is above 0.
Result<Contour> SplitArcs(const Contour& contour, double tolerance);

/// Drops vertices between lines while all dropped ones stay within `tolerance` of the new line. The start
/// stays.
Result<Contour> Reduce(const Contour& contour, double tolerance);

/// Moves, turns, mirrors or scales the contour. Fails when it would be too large.
Result<Contour> Transform(const Contour& contour, const geometry::Matrix& matrix);

/// The part from the point nearest to `from` to the point nearest to `to`, along the contour's direction, on
/// a closed contour past its start if need be. Fails when both are the same point, and on an open contour
/// when `to` comes before `from`.
Result<Contour> PartOf(const Contour& contour, const geometry::Point& from, const geometry::Point& to);

/// A circle of two half turns, anticlockwise. Fails when it is too large, or not larger than a point.
Result<Contour> CircleOf(const geometry::Point& centre, double radius);

}  // namespace vanzet::contour

#pragma once

#include <string>

#include "base/result.h"
#include "contour/contour.h"

namespace vanzet::contour {

/// The largest difference between the distances of an arc's centre from both ends, in millimetres. Up to it
/// the centre is moved onto the bisector of the chord.
inline constexpr double kCentreTolerance = 0.01;

/// Builds a contour vertex by vertex and refuses what the library would bend into something else. Arcs that
/// the library has lines for stay arcs in `Contour::drawn`.
///
/// Errors   a fault without a place, and the contour stays as it was
class Builder {
 public:
  bool IsStarted() const { return curve_.start.ok; }
  bool HasSpans() const { return !curve_.spans.empty(); }

  /// Drops the contour so far. Fails when a coordinate is too large.
  Result<void> Start(const geometry::Point& point);

  /// Requires for both: started.
  Result<void> LineTo(const geometry::Point& end);
  Result<void> ArcTo(int direction, const geometry::Point& end, const geometry::Point& centre);

  /// Returns the contour with this number and starts with an empty one.
  Contour Take(int number);

 private:
  Result<void> Add(int type, const geometry::Point& end, const geometry::Point& centre);

  void KeepArc(int direction, const geometry::Point& centre);

  geometry::KurveEx curve_;
  std::vector<geometry::RegionSpan> drawn_;
  int arcsAsLines_ = 0;
};

/// Fails when a coordinate is not a number or larger than `kLargestCoordinate`.
Result<void> CheckPoint(const geometry::Point& point);

/// A contour from a result of the library: in reading order and without spans that have no length. Fails when
/// nothing is left or a coordinate is too large.
Result<Contour> ContourOf(int number, const geometry::KurveEx& curve);

/// "contour 3", for faults.
std::string NameOf(const Contour& contour);

}  // namespace vanzet::contour

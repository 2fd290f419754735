#pragma once

#include "base/result.h"
#include "contour/contour.h"

namespace vanzet::contour {

/// How far an arc's centre may be from being equally far from both ends, in millimetres. Within it the centre
/// is moved onto the bisector of the chord.
inline constexpr double kCentreTolerance = 0.01;

/// Makes a contour vertex by vertex and refuses what the library would bend into something else.
///
/// Errors   a fault without a place, and the contour is as it was before
class Builder {
 public:
  bool IsStarted() const { return curve_.start.ok; }
  bool HasSpans() const { return !curve_.spans.empty(); }

  /// Drops what there is. Refused for a coordinate that is too large.
  Result<void> Start(const geometry::Point& point);

  /// Requires for both: started.
  Result<void> LineTo(const geometry::Point& end);
  Result<void> ArcTo(int direction, const geometry::Point& end, const geometry::Point& centre);

  /// The contour; the builder is as new.
  geometry::KurveEx Take();

 private:
  Result<void> Add(int type, const geometry::Point& end, const geometry::Point& centre);

  geometry::KurveEx curve_;
};

/// A fault when a coordinate is no number or larger than `kLargestCoordinate`.
Result<void> CheckPoint(const geometry::Point& point);

}  // namespace vanzet::contour

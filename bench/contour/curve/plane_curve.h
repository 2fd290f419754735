#pragma once

#include <optional>
#include <vector>

#include "geometry/point.h"

/// Curves of Bezier in the plane, and where they have a direction.
namespace vanzet::contour {

struct PlanePole {
  geometry::Point point;
  double weight = 1;
};
using PlaneBezier = std::vector<PlanePole>;

/// A point of a curve, and its direction there, of length 1.
struct CurveSpot {
  geometry::Point point;
  geometry::Vector2d direction;
};

/// The angle from one direction to another in radians, above 0 to the left.
double TurnOf(const geometry::Vector2d& from, const geometry::Vector2d& to);

/// Consecutive curves of Bezier whose direction does not jump. The parameter counts them: 2.5 is halfway
/// along the third.
class SmoothCurve {
 public:
  void Add(PlaneBezier bezier) { beziers_.push_back(std::move(bezier)); }
  bool IsEmpty() const { return beziers_.empty(); }

  double End() const { return static_cast<double>(beziers_.size()); }
  CurveSpot At(double u) const;

  /// Points of the curve after `from`, the last one at `to`: enough to see how far it is from an arc.
  std::vector<CurveSpot> Between(double from, double to) const;

 private:
  std::vector<PlaneBezier> beziers_;
};

/// Parts consecutive curves where they have a corner or turn back. Curves that are points are dropped.
std::vector<SmoothCurve> SmoothParts(const std::vector<PlaneBezier>& beziers);

}  // namespace vanzet::contour

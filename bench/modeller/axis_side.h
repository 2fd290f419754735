#pragma once

#include "modeller/outline.h"

namespace vanzet::modeller {

/// An axis in the plane of a contour: a point and a direction of length 1.
struct PlaneAxis {
  geometry::Point origin;
  geometry::Vector2d direction;

  /// Above 0 on the left.
  double Distance(const geometry::Point& p) const;
  geometry::Point Foot(const geometry::Point& p) const;
};

/// The outline with what touches the axis put exactly on it: vertices less than 0.001 mm away, and a new
/// vertex where an arc touches it between its ends. Refused when the outline has points on both sides.
Result<Outline> OnOneSide(const Outline& outline, const PlaneAxis& axis);

}  // namespace vanzet::modeller

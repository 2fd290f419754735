#pragma once

#include <optional>

#include "geometry/kurve.h"

namespace vanzet::drawing {

/// Where something of the plane comes to lie: turned, mirrored or not, and moved, never scaled.
/// The image of (x, y) is (xx x + xy y + x, yx x + yy y + y).
struct Placement {
  double xx = 1, xy = 0, yx = 0, yy = 1;
  double x = 0, y = 0;

  bool IsMirrored() const { return xx * yy - xy * yx < 0; }
  bool operator==(const Placement&) const = default;
};

/// Whether lengths stay as they are, within 1e-9.
bool KeepsLengths(const Placement& placement);

/// What a transform of space does to the plane of the drawing, or nothing when it tilts the plane.
std::optional<Placement> PlacementOf(const geometry::Matrix& matrix);

/// Turns by `degrees` about axis 1 (x), 2 (y) or 3 (z), after what is in the matrix. Multiples of a quarter
/// turn are exact.
void TurnExactly(geometry::Matrix& matrix, double degrees, int axis);

/// The images. No zero has a sign; arcs of a mirrored contour run the other way.
geometry::Point Placed(const geometry::Point& point, const Placement& placement);
geometry::Kurve Placed(const geometry::Kurve& curve, const Placement& placement);

/// Sine and cosine of an angle in degrees, exact at multiples of a quarter turn.
geometry::Vector2d DirectionOf(double degrees);

}  // namespace vanzet::drawing

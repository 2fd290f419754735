#pragma once

#include <optional>

#include "geometry/kurve.h"

namespace vanzet::drawing {

/// A placement in the plane: turned, mirrored or not, and moved, but never scaled.
/// The image of (x, y) is (xx x + xy y + x, yx x + yy y + y).
struct Placement {
  double xx = 1, xy = 0, yx = 0, yy = 1;
  double x = 0, y = 0;

  bool IsMirrored() const { return xx * yy - xy * yx < 0; }
  bool operator==(const Placement&) const = default;
};

/// Whether the placement keeps lengths, within 1e-9.
bool KeepsLengths(const Placement& placement);

/// The effect of a transform of space on the plane of the drawing, or nothing when it tilts the plane.
std::optional<Placement> PlacementOf(const geometry::Matrix& matrix);

/// Appends a turn by `degrees` about axis 1 (x), 2 (y) or 3 (z) to the matrix. Multiples of a quarter turn
/// are exact.
void TurnExactly(geometry::Matrix& matrix, double degrees, int axis);

/// The images under the placement. No zero has a sign; arcs of a mirrored contour run the other way.
geometry::Point PlacePoint(const geometry::Point& point, const Placement& placement);
geometry::Kurve PlaceCurve(const geometry::Kurve& curve, const Placement& placement);

/// The direction of an angle in degrees, exact at multiples of a quarter turn.
geometry::Vector2d DirectionOf(double degrees);

}  // namespace vanzet::drawing

#pragma once

#include "base/result.h"
#include "geometry/kurve.h"
#include "modeller/body.h"

/// Making bodies from contours. A contour is in the plane z = 0, in millimetres; its direction does not
/// matter.
///
/// Errors    those of `OutlineOf`, and those listed below; the fault has no place
/// Requires  the geometry library works in millimetres
namespace vanzet::modeller {

/// Makes the solid that the area of the contour sweeps when it turns about an axis, starting in its plane.
/// Positive angles follow the right-hand rule; 360 and -360 are a full turn. The contour may touch the axis,
/// at points and along spans.
///
/// Fails for a contour that crosses the axis, an axis without direction or outside the plane, and an angle
/// of 0 or of more than a full turn.
Result<Body> Spin(const geometry::Kurve& contour, const Axis& axis, double degrees);

/// Makes the solid over the area of the contour from z = 0 to z = thickness, below the plane when that is
/// negative. Fails for a thickness of 0.
Result<Body> Extrude(const geometry::Kurve& contour, double thickness);

}  // namespace vanzet::modeller

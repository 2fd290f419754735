#pragma once

#include "base/result.h"
#include "geometry/kurve.h"
#include "modeller/body.h"

/// Bodies out of contours. A contour lies in the plane z = 0, in millimetres; its direction does not matter.
///
/// Errors    what `OutlineOf` refuses, and what is told below; the fault has no place
/// Requires  the geometry library works in millimetres
namespace vanzet::modeller {

/// The solid that the contour's area passes when it turns about an axis, beginning in the contour's plane. A
/// negative angle turns the other way (the right hand's rule tells which is the positive one); 360 and -360
/// are a full turn. The contour may touch the axis, at points and along spans.
///
/// Refused: a contour that crosses the axis; an axis without direction or not in the contour's plane; an
/// angle of 0 or of more than a full turn.
Result<Body> Spin(const geometry::Kurve& contour, const Axis& axis, double degrees);

/// The solid over the contour's area from z = 0 to z = thickness; below the plane when that is negative.
///
/// Refused: a thickness of 0.
Result<Body> Extrude(const geometry::Kurve& contour, double thickness);

}  // namespace vanzet::modeller

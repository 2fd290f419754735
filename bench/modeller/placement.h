#pragma once

#include "base/result.h"
#include "modeller/body.h"

namespace vanzet::modeller {

/// The body elsewhere; millimetres. Refused when a number is not finite.
Result<Body> Moved(const Body& body, const geometry::Vector3d& by);

/// The body turned by the right hand's rule. Quarter turns about an axis of coordinates leave no dust in the
/// numbers. Refused for an axis without direction and numbers that are not finite.
Result<Body> Turned(const Body& body, const Axis& axis, double degrees);

/// The body under a matrix that moves and turns. Refused when it scales or mirrors.
Result<Body> Placed(const Body& body, const geometry::Matrix& matrix);

}  // namespace vanzet::modeller

#pragma once

#include "geometry/span.h"

namespace vanzet::contour {

/// The angle that an arc sweeps, in radians, below 0 when clockwise. The library's own angle is exactly half
/// a turn for all that is within 0.18 degrees of one.
double SweepOf(const geometry::Span& arc);

}  // namespace vanzet::contour

#pragma once

#include "geometry/span.h"

namespace geometry {

/// Two arcs that lead from A along its direction to B along its direction and meet in a common tangent. The
/// lines carry point and unit direction. Returns how many of the spans are not null; 0 also when there is no
/// such pair, and the spans then stay as they were. Where one half turn does, `span2` stays as it was.
int Biarc(const CLine& lineA, const CLine& lineB, Span& span1, Span& span2);

}  // namespace geometry

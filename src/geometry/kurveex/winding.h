#pragma once

#include "geometry/point.h"

namespace geometry {

/// What one line of a contour adds to the winding about `p`: 1 when it passes upwards on the right, -1 when
/// downwards. A line includes its lower end and not its upper one.
inline int WindingOfLine(const Point& a, const Point& b, const Point& p) {
  const double side = (a.x - p.x) * (b.y - p.y) - (a.y - p.y) * (b.x - p.x);
  if (a.y <= p.y) return b.y > p.y && side > 0 ? 1 : 0;
  return b.y <= p.y && side < 0 ? -1 : 0;
}

}  // namespace geometry

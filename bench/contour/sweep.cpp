#include "contour/sweep.h"

#include <cmath>

namespace vanzet::contour {

double SweepOf(const geometry::Span& arc) {
  const geometry::Vector2d start(arc.pc, arc.p0), end(arc.pc, arc.p1);
  const double angle = std::atan2(Cross(start, end), Dot(start, end));
  return angle * arc.dir < 0 ? angle + 2 * geometry::PI * arc.dir : angle;
}

}  // namespace vanzet::contour

#include <cmath>

#include "geometry/elements.h"
#include "geometry/span.h"

namespace geometry {

CLine::CLine(const Point& a, const Point& b) : p(a), v(a, b) {
  ok = v.Normalise() >= TOLERANCE;
}

CLine::CLine(const Point& from, double degrees)
    : p(from), v(std::cos(degrees * RADIANS_PER_DEGREE), std::sin(degrees * RADIANS_PER_DEGREE)) {}

CLine::CLine(const Point& from, double dx, double dy, bool normalise)
    : CLine(from, Vector2d(dx, dy), normalise) {}

CLine::CLine(const Point& from, const Vector2d& direction, bool normalise) : p(from), v(direction) {
  if (normalise) ok = v.Normalise() >= TOLERANCE;
}

CLine::CLine(const Span& s) : ok(s.propertiesSet && !s.NullSpan), p(s.p0), v(s.vs) {}

double CLine::Dist(const Point& q) const {
  return Cross(v, Vector2d(p, q));
}

Point CLine::At(double d) const {
  Point at = p + v * d;
  at.ok = p.ok;
  return at;
}

Point CLine::At(double d, const Point& q) const {
  return q + v * d;
}

CLine CLine::Parallel(double d) const {
  CLine moved = *this;
  moved.p.x -= v.dy * d;
  moved.p.y += v.dx * d;
  return moved;
}

CLine CLine::Perpendicular(const Point& q) const {
  CLine across = *this;
  across.p = q;
  across.v = v.LeftNormal();
  return across;
}

CLine CLine::Normal() const {
  return Perpendicular(p);
}

CLine CLine::operator-() const {
  CLine back = *this;
  back.v = -v;
  return back;
}

CLine CLine::Transform(const Matrix& m) const {
  CLine moved = *this;
  moved.p = p.Transform(m);
  moved.v.Transform(m);
  return moved;
}

}  // namespace geometry

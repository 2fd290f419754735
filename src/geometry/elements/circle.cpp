#include "geometry/elements.h"
#include "geometry/span.h"

namespace geometry {

Circle::Circle(const Point& centre, double r) : ok(centre.ok), pc(centre), radius(r) {}

Circle::Circle(const Point& centre, const Point& on)
    : ok(centre.ok && on.ok), pc(centre), radius(Dist(centre, on)) {}

Circle::Circle(const Span& s) {
  if (s.dir == LINEAR) return;
  ok = s.propertiesSet;
  pc = s.pc;
  radius = s.radius;
}

bool Circle::ValidRadius() const {
  return !(TOLERANCE > radius);
}

Circle Circle::Transform(const Matrix& m) const {
  double scale = 1.0;
  if (!m.GetUniformScale(scale)) ThrowError(L"Differential Scale not allowed for this method", 0, 1000);
  Circle moved = *this;
  moved.pc = pc.Transform(m);
  moved.radius *= scale;
  return moved;
}

bool Circle::operator==(const Circle& c) const {
  return ok && c.ok && NearEqual(radius, c.radius, TOLERANCE) && pc == c.pc;
}

}  // namespace geometry

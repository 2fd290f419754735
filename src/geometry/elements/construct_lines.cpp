#include <cmath>

#include "geometry/construct.h"

namespace geometry {

CLine AtAngle(double angle, const Point& p, const CLine& s) {
  CLine turned = s;
  turned.p = p;
  turned.v.Rotate(angle);
  return turned;
}

CLine Parallel(const CLine& s, double d) {
  return s.Parallel(d);
}

CLine Parallel(int side, const CLine& s, double d) {
  return s.Parallel(side * d);
}

CLine Perpendicular(const Point& p, const CLine& s) {
  return s.Perpendicular(p);
}

CLine Thru(const Point& a, const Point& b) {
  return {a, b};
}

CLine Tanto(int side, const Circle& c, const Point& p) {
  const double r = c.radius;
  const double d = Dist(p, c.pc);
  if (d < TOLERANCE || std::fabs(r) - TOLERANCE > d) return {};
  if (d > std::fabs(r) + TOLERANCE) {
    Vector2d direction(p, c.pc);
    direction.Rotate(std::sqrt((d - r) * (d + r)), -side * r);
    return {p, direction, true};
  }
  // On the circle: across the radius, which leaves the centre on the side of the signed radius.
  const double sign = r < 0 ? -side : side;
  return {p, Vector2d(c.pc, p).LeftNormal() * sign, true};
}

CLine Tanto(int side1, const Circle& c1, int side2, const Circle& c2) {
  // Moved through the first centre, the line has the second one at the difference of the signed radii.
  const double r1 = side1 * c1.radius;
  const double r2 = side2 * c2.radius;
  return Tanto(1, Circle(c2.pc, r2 - r1), c1.pc).Parallel(-r1);
}

}  // namespace geometry

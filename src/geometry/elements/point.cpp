#include "geometry/point.h"

#include <cmath>

#include "geometry/matrix.h"

namespace geometry {
namespace {

constexpr Point Invalid() {
  Point p(9.9999999e50, 0);
  p.ok = false;
  return p;
}

}  // namespace

constinit const Point INVALID_POINT = Invalid();

Point::Point(const Point& centre, double radius, double degrees)
    : ok(true),
      x(centre.x + radius * std::cos(degrees * RADIANS_PER_DEGREE)),
      y(centre.y + radius * std::sin(degrees * RADIANS_PER_DEGREE)) {}

Point::Point(const Point3d& p) : ok(true), x(p.x), y(p.y) {}

Point& Point::operator*=(double f) {
  x *= f;
  y *= f;
  return *this;
}

Point operator*(const Point& p, double f) {
  Point scaled = p;
  return scaled *= f;
}

Point Point::Transform(const Matrix& m) const {
  Point moved = *this;
  m.Transform2d(x, y, moved.x, moved.y);
  return moved;
}

bool Point::Equal(const Point& p, double t) const {
  return NearEqual(x, p.x, t) && NearEqual(y, p.y, t);
}

Point3d Point3d::Transform(const Matrix& m) const {
  return m.Transform(*this);
}

bool Point3d::operator==(const Point3d& p) const {
  return !Different(x, p.x, TOLERANCE) && !Different(y, p.y, TOLERANCE) && !Different(z, p.z, TOLERANCE);
}

double Dist(const Point3d& a, const Point3d& b) {
  return Vector3d(a, b).Magnitude();
}

}  // namespace geometry

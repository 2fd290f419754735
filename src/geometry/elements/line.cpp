#include <cmath>

#include "geometry/box.h"
#include "geometry/elements.h"
#include "geometry/span.h"

namespace geometry {

Line::Line(const Point3d& origin, const Vector3d& direction, bool box)
    : p0(origin), v(direction), length(direction.Magnitude()), ok(length > TOLERANCE) {
  if (!box) return;
  Box3d corners;
  corners.Insert(p0);
  corners.Insert(p0 + v);
  min = corners.min;
  max = corners.max;
}

Line::Line(const Point3d& a, const Point3d& b) : Line(a, Vector3d(a, b)) {}

Line::Line(const Span& s)
    : p0(s.p0), v(s.vs * s.length), length(s.length), min(s.box.min), max(s.box.max), ok(!s.NullSpan) {
  s.NeedProperties();
}

Point3d Line::Near(const Point3d& q, double& t) const {
  t = 0.0;
  if (length == 0.0) return p0;
  t = Dot(Vector3d(p0, q), v) / length;
  return p0 + v * (t / length);
}

double Dist(const Line& a, const Line& b) {
  const Vector3d across = Cross(a.v, b.v);
  return std::fabs(Dot(Vector3d(a.p0, b.p0), across)) / across.Magnitude();
}

}  // namespace geometry

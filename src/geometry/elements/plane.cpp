#include <cmath>

#include "geometry/elements.h"

namespace geometry {
namespace {

double DotOf(const Vector3d& normal, const Point3d& p) {
  return normal.dx * p.x + normal.dy * p.y + normal.dz * p.z;
}

constexpr Plane ThroughOrigin(const Vector3d& normal) {
  Plane plane;
  plane.ok = true;
  plane.normal = normal;
  return plane;
}

}  // namespace

constinit const Plane PLANE_XY = ThroughOrigin({0, 0, 1});
constinit const Plane PLANE_XZ = ThroughOrigin({0, 1, 0});
constinit const Plane PLANE_YZ = ThroughOrigin({1, 0, 0});

Plane::Plane(const Point3d& p0, const Point3d& p1, const Point3d& p2)
    : normal(Cross(Vector3d(p0, p1), Vector3d(p0, p2))) {
  ok = !NearZero(normal.Normalise(), TIGHT_TOLERANCE);
  d = -DotOf(normal, p0);
}

Plane::Plane(const Point3d& p, const Vector3d& direction, bool normalise) : ok(true), normal(direction) {
  if (normalise) normal.Normalise();
  d = -DotOf(normal, p);
}

Plane::Plane(const Line& l, const Point3d& p) {
  double t = 0;
  Vector3d fromFoot(l.Near(p, t), p);
  d = fromFoot.Normalise();
  ok = !NearZero(d, TIGHT_TOLERANCE);
  Vector3d direction = l.v;
  direction.Normalise();
  normal = Cross(direction, fromFoot);
}

double Plane::Dist(const Point3d& p) const {
  return DotOf(normal, p) + d;
}

bool Plane::Intof(const Line& l, Point3d& p, double& t) const {
  const double along = Dot(normal, l.v);
  if (std::fabs(along) < VECTOR_TOLERANCE) return false;
  t = -Dist(l.p0) / along;
  p = l.p0 + l.v * t;
  return true;
}

bool Plane::Intof(const Plane& b, Line& l) const {
  Vector3d direction = Cross(normal, b.normal);
  if (direction.Normalise() == 0.0) return false;
  // The origin as a combination of both normals that lies on both planes.
  const double dot = Dot(normal, b.normal);
  const double den = dot * dot - 1.0;
  const Vector3d origin = b.normal * ((b.d - d * dot) / den) + normal * ((d - b.d * dot) / den);
  l = Line(Point3d() + origin, direction);
  l.length = 1.0;
  l.ok = true;
  return true;
}

bool Plane::Intof(const Plane& b, const Plane& c, Point3d& p) const {
  Line edge;
  double t = 0;
  return Intof(b, edge) && c.Intof(edge, p, t);
}

bool Plane::operator==(const Plane& b) const {
  return ok == b.ok && !Different(d, b.d, TOLERANCE) && normal == b.normal;
}

}  // namespace geometry

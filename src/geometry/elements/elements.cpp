#include <cmath>

#include "geometry/box.h"
#include "geometry/elements.h"
#include "geometry/span.h"

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
  // The origin is the combination of both normals that is on both planes.
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

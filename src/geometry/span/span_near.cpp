#include <cmath>

#include "geometry/elements.h"
#include "geometry/span.h"

/// Points on a span and points near to it.
namespace geometry {

bool Span::OnSpan(const Point& p) const {
  double t = 0;
  if (dir == LINEAR) return OnSpan(p, t);
  return p == p0 || p == p1 || dir * Cross(Vector2d(p0, p), Vector2d(p0, p1)) > 0;
}

bool Span::OnSpan(const Point& p, double& t) const {
  NeedProperties();
  t = dir == LINEAR ? Dot(Vector2d(p0, p), vs) / length : ArcFraction(p);
  return 0 <= t && t <= 1;
}

double Span::ArcFraction(const Point& p) const {
  if (p == p0) return 0.0;
  if (p == p1) return 1.0;
  Vector2d tangent = Vector2d(pc, p).LeftNormal();
  tangent.Normalise();
  return IncludedAngle(vs, dir == CW ? -tangent : tangent, dir) / angle;
}

/// Whether the whole line or circle passes `p` within `TOLERANCE`.
bool Span::CarriesPoint(const Point& p) const {
  NeedProperties();
  if (dir == LINEAR) return !NonZero(Cross(vs, Vector2d(p0, p)), TOLERANCE);
  return NearEqual(geometry::Dist(pc, p), radius, TOLERANCE);
}

bool Span::On(const Point& p) const {
  if (p == p0 || p == p1) return true;
  return CarriesPoint(p) && OnSpan(p);
}

bool Span::On(const Point& p, double& t) const {
  if (p == p0) {
    t = 0.0;
    return true;
  }
  if (p == p1) {
    t = 1.0;
    return true;
  }
  return CarriesPoint(p) && OnSpan(p, t);
}

Point Span::Near(const Point& p, double& t) const {
  NeedProperties();
  if (dir == LINEAR) {
    t = Dot(Vector2d(p0, p), vs);
    return p0 + vs * t;
  }
  const double d = geometry::Dist(p, pc);
  if (d < TOLERANCE) {
    t = 0.0;
    return p0;
  }
  const Point nearest = p + Vector2d(p, pc) * ((d - radius) / d);
  t = ArcFraction(nearest) * length;
  return nearest;
}

Point Span::NearClamped(const Point& p, double& t) const {
  const Point nearest = Near(p, t);
  if (dir != LINEAR && LessOrNear(std::fabs(angle), PI, TIGHT_TOLERANCE)) {
    // Half a turn, as a distance. A fraction of an arc is never negative, so only one wrap is needed.
    const double half = std::fabs(PI / angle * length);
    if (t > half) t -= 2 * half;
  }
  if (t < TOLERANCE) {
    t = 0.0;
    return p0;
  }
  if (t > length - TOLERANCE) {
    t = length;
    return p1;
  }
  return nearest;
}

double Span::Dist(const Point& p, Point& nearest) const {
  NeedProperties();
  if (dir == LINEAR) {
    double t = 0;
    nearest = Point(Line(*this).Near(Point3d(p), t));
    if (t < -TOLERANCE) nearest = p0;
    if (t > length + TOLERANCE) nearest = p1;
    return geometry::Dist(p, nearest);
  }
  Vector2d spoke(pc, p);
  const double d = spoke.Magnitude();
  if (d < TOLERANCE) {
    nearest = p0;
    return radius;
  }
  nearest = pc + spoke * (radius / d);
  if (OnSpan(nearest)) return std::fabs(d - radius);
  nearest = geometry::Dist(p, p0) < geometry::Dist(p, p1) ? p0 : p1;
  return geometry::Dist(p, nearest);
}

}  // namespace geometry

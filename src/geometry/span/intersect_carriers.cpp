#include <cmath>
#include <utility>

#include "geometry/intersect.h"

/// Crossings of unbounded lines and whole circles.
namespace geometry {

Point Intof(const CLine& a, const CLine& b) {
  double t = 0;
  return Intof(a, b, t);
}

Point Intof(const CLine& a, const CLine& b, double& t) {
  constexpr double kParallel = 1e-6;
  const double det = Cross(b.v, a.v);
  if (!(std::fabs(det) > kParallel)) return INVALID_POINT;
  t = Cross(b.v, Vector2d(a.p, b.p)) / det;
  return a.p + a.v * t;
}

Point Intof(int order, const CLine& s, const Circle& c) {
  Point other;
  return Intof(order, s, c, other);
}

Point Intof(int order, const CLine& s, const Circle& c, Point& other) {
  other = INVALID_POINT;
  const Vector2d w(c.pc, s.p);
  double x1 = 0;
  double x2 = 0;
  const int count = SolveQuadratic(1.0, 2.0 * Dot(w, s.v), Dot(w, w) - c.radius * c.radius, x1, x2);
  if (count == 0) return INVALID_POINT;
  if (count == 1) {
    x2 = x1;
  } else if (x1 < x2) {
    std::swap(x1, x2);
  }
  if (order == 1) std::swap(x1, x2);
  other = s.p + s.v * x2;
  return s.p + s.v * x1;
}

int Intof(const Circle& a, const Circle& b, Point& p1, Point& p2) {
  p1 = p2 = INVALID_POINT;
  Vector2d u(a.pc, b.pc);
  const double d = u.Normalise();
  const double ra = std::fabs(a.radius);
  const double rb = std::fabs(b.radius);
  if (d < TOLERANCE || d > ra + rb + TOLERANCE || std::fabs(ra - rb) - TOLERANCE > d) return 0;

  // The radical line crosses the line of centres at x from a.
  double x = 0.5 * (d + (ra + rb) * (ra - rb) / d);
  if (x - ra > TOLERANCE) return 0;
  const double h2 = (ra - x) * (ra + x);
  if (h2 < 0) x = ra;
  const double h = h2 < 0 ? 0.0 : std::sqrt(h2);
  const Point middle = a.pc + u * x;
  if (!(h < TOLERANCE)) {
    p1 = middle + u.LeftNormal() * h;
    p2 = middle - u.LeftNormal() * h;
    return 2;
  }
  p1 = p2 = middle;
  if (!Different(Dist(middle, b.pc), rb, TOLERANCE)) return 1;
  // Touching from within, a lies on the far side of its centre.
  p1 = p2 = a.pc - u * x;
  const bool onBoth = NearEqual(Dist(p1, a.pc), ra, TOLERANCE) && NearEqual(Dist(p1, b.pc), rb, TOLERANCE);
  if (onBoth) return 1;
  p1 = p2 = INVALID_POINT;
  return 0;
}

Point Intof(int order, const Circle& a, const Circle& b) {
  Point other;
  return Intof(order, a, b, other);
}

Point Intof(int order, const Circle& a, const Circle& b, Point& other) {
  Point p1;
  Point p2;
  const int count = Intof(a, b, p1, p2);
  other = count == 0 ? INVALID_POINT : p2;
  if (count == 0) return INVALID_POINT;
  if (count == 1 || order == 1) return p1;
  other = p1;
  return p2;
}

Point On(const Circle& c, const Point& p) {
  Vector2d spoke(c.pc, p);
  const double d = spoke.Magnitude();
  if (NearZero(d, TOLERANCE)) {
    ThrowError(L",Point on Circle centre - On(Circle& c, Point& p)", 0, 1001);
  }
  return c.pc + spoke * (c.radius / d);
}

Point On(const CLine& s, const Point& p) {
  return s.p + s.v * Dot(Vector2d(s.p, p), s.v);
}

double Dist(const Circle& a, const Circle& b) {
  return Dist(a.pc, b.pc) - a.radius - b.radius;
}

}  // namespace geometry

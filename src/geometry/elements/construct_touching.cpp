#include <cmath>

#include "geometry/construct.h"

/// Circles that touch three elements, none of known radius.
namespace geometry {
namespace {

/// a x + b y + c r = d, for a circle about (x, y) of radius r.
struct Condition {
  double a, b, c, d;
};

/// The circle touches the line on that side: cross(v, centre - p) = side r.
Condition Touches(int side, const CLine& s) {
  return {-s.v.dy, s.v.dx, -static_cast<double>(side), s.v.dx * s.p.y - s.v.dy * s.p.x};
}

/// The circle touches both circles, each |radius + side r| away; the squares subtracted.
Condition TouchesBoth(int sideA, const Circle& a, int sideB, const Circle& b) {
  const auto power = [](const Circle& c) { return c.pc.x * c.pc.x + c.pc.y * c.pc.y - c.radius * c.radius; };
  return {2.0 * (b.pc.x - a.pc.x), 2.0 * (b.pc.y - a.pc.y), 2.0 * (sideB * b.radius - sideA * a.radius),
          power(b) - power(a)};
}

int Solve(const Condition& k1, const Condition& k2, const Circle& c, int side, Circle out[2]) {
  return Apollonius(k1.a, k1.b, k1.c, k1.d, k2.a, k2.b, k2.c, k2.d, c, side, out);
}

/// Between parallel lines the radius is known, and the centre runs along the middle.
int BetweenParallels(int side1, const CLine& s1, int side2, const CLine& s2, int side3, const Circle& c,
                     Circle out[2]) {
  const bool sameDirection = Dot(s1.v, s2.v) > 0;
  if (sameDirection == (side1 == side2)) return 0;
  const double apart = s1.Dist(s2.p);
  const double radius = std::fabs(apart) * 0.5;
  const Circle centres(c.pc, c.radius + side3 * radius);
  Point other;
  const Point centre = Intof(1, s1.Parallel(apart * 0.5), centres, other);
  if (!centre.ok) return 0;
  out[0] = Circle(centre, radius);
  if (centre.x == other.x && centre.y == other.y) return 1;
  out[1] = Circle(other, radius);
  return 2;
}

}  // namespace

int Apollonius(double a1, double b1, double c1, double d1, double a2, double b2, double c2, double d2,
               const Circle& c, int side, Circle out[2]) {
  constexpr double kSingular = 1e-8;
  const double det = a1 * b2 - a2 * b1;
  if (!(std::fabs(det) >= kSingular)) return 0;
  // The centre moves along a line with r: from its place at r = 0, by `pace`.
  const Point atZero((d1 * b2 - d2 * b1) / det, (a1 * d2 - a2 * d1) / det);
  const Vector2d pace(-(c1 * b2 - c2 * b1) / det, -(a1 * c2 - a2 * c1) / det);
  const Vector2d w(c.pc, atZero);
  double roots[2] = {};
  const int rootCount = SolveQuadratic(Dot(pace, pace) - 1.0, 2.0 * (Dot(w, pace) - side * c.radius),
                                       Dot(w, w) - c.radius * c.radius, roots[0], roots[1]);
  int count = 0;
  for (int i = 0; i < rootCount; ++i) {
    if (roots[i] > 0) out[count++] = Circle(atZero + pace * roots[i], roots[i]);
  }
  return count;
}

int Tanto(int side1, const CLine& s1, int side2, const CLine& s2, int side3, const Circle& c, Circle out[2]) {
  if (std::fabs(Dot(s1.v, s2.v)) > COS_ANGLE_TOLERANCE) {
    return BetweenParallels(side1, s1, side2, s2, side3, c, out);
  }
  return Solve(Touches(side1, s1), Touches(side2, s2), c, side3, out);
}

int Tanto(int side1, const CLine& s1, int side2, const Circle& c2, int side3, const Circle& c3,
          Circle out[2]) {
  return Solve(Touches(side1, s1), TouchesBoth(side2, c2, side3, c3), c2, side2, out);
}

int Tanto(int side1, const Circle& c1, int side2, const Circle& c2, int side3, const Circle& c3,
          Circle out[2]) {
  return Solve(TouchesBoth(side1, c1, side2, c2), TouchesBoth(side1, c1, side3, c3), c1, side1, out);
}

int Touching(const Point& onLine, const CLine& s, int side, const Circle& c, Circle out[2]) {
  // The centre stands across the line at the point. Left and right of the line have one circle each.
  const Condition across = {s.v.dx, s.v.dy, 0.0, s.v.dx * onLine.x + s.v.dy * onLine.y};
  int count = 0;
  for (const int sideOfLine : {1, -1}) {
    Circle found[2];
    const CLine through(onLine, s.v, false);
    if (Solve(across, Touches(sideOfLine, through), c, side, found) > 0) out[count++] = found[0];
  }
  return count;
}

}  // namespace geometry

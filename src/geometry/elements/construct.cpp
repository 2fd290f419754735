#include <cmath>

#include "geometry/construct.h"

namespace geometry {
namespace {

Circle NoCircle() {
  return {INVALID_POINT, 0.0};
}

Circle About(const Point& centre, double radius) {
  return centre.ok ? Circle(centre, radius) : NoCircle();
}

Point Middle(const Point& a, const Point& b) {
  return {(a.x + b.x) * 0.5, (a.y + b.y) * 0.5};
}

/// The circle with a diameter from `a` to `b`.
Circle Over(const Point& a, const Point& b) {
  return a == b ? NoCircle() : Circle(Middle(a, b), a);
}

CLine Bisector(const Point& a, const Point& b) {
  return CLine(a, b).Perpendicular(Middle(a, b));
}

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

Circle Thru(int side, const Point& a, const Point& b, double radius) {
  const CLine chord(a, b);
  const double h = Dist(a, b) * 0.5;
  if (!chord.ok || h > radius + TOLERANCE) return NoCircle();
  const Point middle = Middle(a, b);
  if (h > radius - TOLERANCE) return {middle, h};
  return {middle + chord.v.LeftNormal() * (side * std::sqrt((radius + h) * (radius - h))), radius};
}

Circle Thru(const Point& a, const Point& b, const Point& c) {
  if (a == b) return Over(a, c);
  if (a == c || b == c) return Over(a, b);
  const Point centre = Intof(Bisector(a, b), Bisector(b, c));
  return About(centre, Dist(centre, a));
}

Circle Tanto(int side1, const CLine& s1, int side2, const CLine& s2, double radius) {
  return About(Intof(Parallel(side1, s1, radius), Parallel(side2, s2, radius)), radius);
}

Circle Tanto(int side1, const CLine& s1, int side2, const CLine& s2, int side3, const CLine& s3) {
  // cross(v, centre - p) = side r for each line, solved for r by Cramer's rule with the first point as
  // origin.
  const double c12 = Cross(s1.v, s2.v);
  const double c13 = Cross(s1.v, s3.v);
  const double c23 = Cross(s2.v, s3.v);
  const double d = side1 * c23 - side2 * c13 + side3 * c12;
  if (!(std::fabs(d) >= VECTOR_TOLERANCE)) return NoCircle();
  const double k2 = Cross(s2.v, Vector2d(s1.p, s2.p));
  const double k3 = Cross(s3.v, Vector2d(s1.p, s3.p));
  const double radius = (k2 * c13 - k3 * c12) / d;
  if (!(radius >= TOLERANCE)) return NoCircle();
  const CLine second = Parallel(side2, s2, radius);
  Point centre = Intof(Parallel(side1, s1, radius), second);
  if (!centre.ok) centre = Intof(second, Parallel(side3, s3, radius));
  return About(centre, radius);
}

Circle Tanto(int order, int side1, const CLine& s, int side2, const Circle& c, double radius) {
  const Circle centres(c.pc, c.radius + side2 * radius);
  return About(Intof(order, Parallel(side1, s, radius), centres), radius);
}

Circle Tanto(int order, int side1, const Circle& a, int side2, const Circle& b, double radius) {
  const Circle aroundA(a.pc, a.radius + side1 * radius);
  const Circle aroundB(b.pc, b.radius + side2 * radius);
  return About(Intof(order, aroundA, aroundB), radius);
}

Circle Tanto(int order, int side, const CLine& s, const Point& p, double radius) {
  return About(Intof(order, Parallel(side, s, radius), Circle(p, radius)), radius);
}

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
  // The centre is on the normal of the line through the point. Each side of the line has one circle.
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

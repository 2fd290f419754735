#include <cmath>

#include "geometry/construct.h"

/// Circles of a given radius, through points, and tangent to lines.
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

}  // namespace

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

}  // namespace geometry

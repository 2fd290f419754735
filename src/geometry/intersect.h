#pragma once

#include "geometry/span.h"

/// Where elements meet. A failure is INVALID_POINT, a count of 0 or false.
namespace geometry {

/// Lines closer to parallel than |cross| = 1e-6 do not meet. `t` counts along `a`.
Point Intof(const CLine& a, const CLine& b);
Point Intof(const CLine& a, const CLine& b, double& t);
/// Order 1 takes the first crossing along the line, -1 the last; a tangent has one.
Point Intof(int order, const CLine& s, const Circle& c);
Point Intof(int order, const CLine& s, const Circle& c, Point& other);
/// The crossings and their count. The first lies left of the way from `a` to `b`.
int Intof(const Circle& a, const Circle& b, Point& p1, Point& p2);
/// Order 1 takes the first of them, any other the second.
Point Intof(int order, const Circle& a, const Circle& b);
Point Intof(int order, const Circle& a, const Circle& b, Point& other);

/// The crossings that lie on both spans, and their count; places of valid points come first. `t` receives
/// fractions: of two lines t[0] on a and t[1] on b; of a line and an arc t[0], t[1] on the line and t[2],
/// t[3] on the arc. When only the second crossing is valid, t[0] moves with it to the first place, the
/// fractions on the arc do not. Throws L"SetProperties missing".
int Intof(const Span& a, const Span& b, Point& p1, Point& p2, double t[4]);
int Intof(const Span& a, const Span& b, Point& p1, Point& p2);

/// The point of `a` where two lines of space meet between their ends. Lines whose product of directions has
/// no component of 1e-6 do not meet, parallel or short.
bool Intof(const Line& a, const Line& b, Point3d& point);

/// The projection onto the circle. Throws L",Point on Circle centre - On(Circle& c, Point& p)".
Point On(const Circle& c, const Point& p);
Point On(const CLine& s, const Point& p);
/// The gap between two circles, negative when they overlap.
double Dist(const Circle& a, const Circle& b);

/// A line of space prepared for tests against many boxes.
struct BoxRay {
  Point3d origin;
  Vector3d inverse;
  int sign[3];  ///< 1 where the direction is negative: x, y, z

  explicit BoxRay(const Line& l);
};
/// Whether the unbounded line of the ray passes through the box.
bool Hits(const BoxRay& r, const Box3d& b);

}  // namespace geometry

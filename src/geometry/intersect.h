#pragma once

#include "geometry/span.h"

/// Crossings of elements and spans, and projections onto elements.
///
/// Units   lengths in the current unit; `t` as each function says
/// Errors  without a crossing a point is INVALID_POINT, a count 0 and a truth value false
namespace geometry {

/// The crossing of two lines. They do not meet when they are closer to parallel than |cross| = 1e-6. `t` is
/// the distance along `a`.
Point Intof(const CLine& a, const CLine& b);
Point Intof(const CLine& a, const CLine& b, double& t);
/// A crossing of a line with a circle: order 1 selects the first one along the line, -1 the last. A tangent
/// has one only. `other` receives the one that was not selected.
Point Intof(int order, const CLine& s, const Circle& c);
Point Intof(int order, const CLine& s, const Circle& c, Point& other);
/// The crossings of two circles and their count. The first is on the left of the way from `a` to `b`. Circles
/// that touch within `TOLERANCE` have one crossing.
int Intof(const Circle& a, const Circle& b, Point& p1, Point& p2);
/// One of these crossings: order 1 selects the first, any other order the second.
Point Intof(int order, const Circle& a, const Circle& b);
Point Intof(int order, const Circle& a, const Circle& b, Point& other);

/// The crossings that are on both spans, and their count; valid points come first.
///
/// `t` receives fractions: for two lines t[0] on `a` and t[1] on `b`; for a line and an arc t[0], t[1] on the
/// line and t[2], t[3] on the arc. When only the second crossing is valid, t[0] moves with it to the first
/// place, and the fractions on the arc do not. Throws L"SetProperties missing".
int Intof(const Span& a, const Span& b, Point& p1, Point& p2, double t[4]);
int Intof(const Span& a, const Span& b, Point& p1, Point& p2);
/// Finds the crossing of two spans, which need no more than their tangents; false unless they have exactly
/// one.
bool OnlyCrossing(const Span& a, const Span& b, Point& crossing);

/// The point of `a` where two lines of space meet between their ends. Lines whose cross product of directions
/// has no component of 1e-6 do not meet, whether they are parallel or short.
bool Intof(const Line& a, const Line& b, Point3d& point);

/// The projection of `p` onto a circle or a line. The first throws L",Point on Circle centre - On(Circle& c,
/// Point& p)" when `p` is the centre.
Point On(const Circle& c, const Point& p);
Point On(const CLine& s, const Point& p);
/// The gap between two circles, negative when they overlap.
double Dist(const Circle& a, const Circle& b);

/// A line of space, prepared for tests against many boxes.
struct BoxRay {
  Point3d origin;
  Vector3d inverse;
  int sign[3];  ///< 1 where the direction is negative: x, y, z

  explicit BoxRay(const Line& l);
};
/// Whether the line of the ray, without ends, passes through the box. Source: the method of slabs, which
/// intersects the stretches of the line between the two faces of each axis.
bool Hits(const BoxRay& r, const Box3d& b);

}  // namespace geometry

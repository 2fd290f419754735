#pragma once

#include "geometry/intersect.h"

/// Lines and circles from conditions that they meet.
///
/// Side    1 or -1. It gives the radius or the distance of its element a sign, and so selects where the
///         wanted element touches it. For a line 1 is its left; for a given circle and a wanted radius 1 is
///         outside
/// Order   1 or -1. It selects among two crossings, as in geometry/intersect.h
/// Errors  an element that cannot be constructed has `ok` false, and a count is 0
/// Source  Circles of a known radius have their centres where the given elements, moved by that radius,
///         cross. Those of unknown radius solve the linear equations of their conditions: cross(v, centre -
///         p) = side r for a line, and the difference of two squares |centre - c|^2 = (radius + side r)^2 for
///         two circles
namespace geometry {

/// The line through `p` at that angle (radians) from `s`.
CLine AtAngle(double angle, const Point& p, const CLine& s);
/// The line at distance `d` to the left of `s`; with a side, at `d` times the side.
CLine Parallel(const CLine& s, double d);
CLine Parallel(int side, const CLine& s, double d);
/// The line through `p` along the left normal of `s`.
CLine Perpendicular(const Point& p, const CLine& s);
/// The line from `a` to `b`.
CLine Thru(const Point& a, const Point& b);
/// The line from `p` that touches `c`; with side 1 the centre is on the left of the line.
CLine Tanto(int side, const Circle& c, const Point& p);
/// The line from the first circle to the second that touches both, each centre on its side of the line.
CLine Tanto(int side1, const Circle& c1, int side2, const Circle& c2);

/// The circle of that radius through both points. With side 1 the centre is on the left of the way from `a`
/// to `b`.
Circle Thru(int side, const Point& a, const Point& b, double radius);
/// The circle through three points. If two of them are one, the others are the ends of a diameter.
Circle Thru(const Point& a, const Point& b, const Point& c);
/// The circle of that radius that touches two lines.
Circle Tanto(int side1, const CLine& s1, int side2, const CLine& s2, double radius);
/// The circle that touches three lines.
Circle Tanto(int side1, const CLine& s1, int side2, const CLine& s2, int side3, const CLine& s3);
/// The circle of that radius that touches a line and a circle, two circles, or a line and a point.
Circle Tanto(int order, int side1, const CLine& s, int side2, const Circle& c, double radius);
Circle Tanto(int order, int side1, const Circle& a, int side2, const Circle& b, double radius);
Circle Tanto(int order, int side, const CLine& s, const Point& p, double radius);

/// The circles, up to two, that touch three elements, and their count. A point is a circle of radius 0 and
/// side -1.
int Tanto(int side1, const CLine& s1, int side2, const CLine& s2, int side3, const Circle& c, Circle out[2]);
int Tanto(int side1, const CLine& s1, int side2, const Circle& c2, int side3, const Circle& c3,
          Circle out[2]);
int Tanto(int side1, const Circle& c1, int side2, const Circle& c2, int side3, const Circle& c3,
          Circle out[2]);
/// The circles that touch `s` at a given point of it, and a circle.
int Touching(const Point& onLine, const CLine& s, int side, const Circle& c, Circle out[2]);
/// The circles whose centre (x, y) and radius r > 0 meet a1 x + b1 y + c1 r = d1 and a2 x + b2 y + c2 r = d2,
/// and that touch `c` on that side: the centres are |radius of c + side r| apart.
int Apollonius(double a1, double b1, double c1, double d1, double a2, double b2, double c2, double d2,
               const Circle& c, int side, Circle out[2]);

}  // namespace geometry

#pragma once

#include "geometry/intersect.h"

/// Lines and circles from conditions. A side, 1 or -1, gives the radius or distance of its element a sign and
/// so selects where the wanted element touches it: for a line 1 is its left, for a given circle and a wanted
/// radius 1 is outside. An order selects among two crossings. What cannot be built has `ok` false.
namespace geometry {

/// Through `p`, at that angle (radians) from `s`.
CLine AtAngle(double angle, const Point& p, const CLine& s);
CLine Parallel(const CLine& s, double d);
CLine Parallel(int side, const CLine& s, double d);
CLine Perpendicular(const Point& p, const CLine& s);
CLine Thru(const Point& a, const Point& b);
/// From `p`, touching `c`; with side 1 the circle's centre lies left of the line.
CLine Tanto(int side, const Circle& c, const Point& p);
/// From the first circle to the second, each centre on its side.
CLine Tanto(int side1, const Circle& c1, int side2, const Circle& c2);

/// Side 1: the centre lies left of the way from `a` to `b`.
Circle Thru(int side, const Point& a, const Point& b, double radius);
Circle Thru(const Point& a, const Point& b, const Point& c);
Circle Tanto(int side1, const CLine& s1, int side2, const CLine& s2, double radius);
Circle Tanto(int side1, const CLine& s1, int side2, const CLine& s2, int side3, const CLine& s3);
Circle Tanto(int order, int side1, const CLine& s, int side2, const Circle& c, double radius);
Circle Tanto(int order, int side1, const Circle& a, int side2, const Circle& b, double radius);
Circle Tanto(int order, int side, const CLine& s, const Point& p, double radius);

/// Up to two circles each, and their count. Points enter as circles of radius 0 and side -1.
int Tanto(int side1, const CLine& s1, int side2, const CLine& s2, int side3, const Circle& c, Circle out[2]);
int Tanto(int side1, const CLine& s1, int side2, const Circle& c2, int side3, const Circle& c3,
          Circle out[2]);
int Tanto(int side1, const Circle& c1, int side2, const Circle& c2, int side3, const Circle& c3,
          Circle out[2]);
/// Touching `s` at a given point of it, and a circle.
int Touching(const Point& onLine, const CLine& s, int side, const Circle& c, Circle out[2]);
/// The circles whose centre (x, y) and radius r > 0 meet a1 x + b1 y + c1 r = d1 and a2 x + b2 y + c2 r = d2,
/// and that touch `c` on that side: the centres lie |radius of c + side r| apart.
int Apollonius(double a1, double b1, double c1, double d1, double a2, double b2, double c2, double d2,
               const Circle& c, int side, Circle out[2]);

}  // namespace geometry

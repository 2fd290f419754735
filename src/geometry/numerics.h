#pragma once

#include <cmath>

#include "geometry/units.h"

/// Comparisons and guarded functions. Which comparisons are strict is part of the contract: two results that
/// differ by one of them differ visibly in a contour.
namespace geometry {

inline constexpr double PI = 3.14159265358979323846;
inline constexpr double RADIANS_PER_DEGREE = 0.017453292519943295;

/// Whether both numbers are equal within `t`, the limit included.
inline bool NearEqual(double a, double b, double t) {
  return t >= std::fabs(a - b);
}
/// Whether the number is within `t` of 0, the limit included.
inline bool NearZero(double a, double t) {
  return t >= std::fabs(a);
}
/// The negations, so that the limit itself does not count. Each is false when an argument is not a number.
inline bool Different(double a, double b, double t) {
  return std::fabs(a - b) > t;
}
inline bool NonZero(double a, double t) {
  return std::fabs(a) > t;
}
/// Whether `a` is less than `b`, or more by up to `t`.
inline bool LessOrNear(double a, double b, double t) {
  return b + t > a || NearEqual(a, b, t);
}

/// The square root, or 0 when `x` itself (not its root) is below `TOLERANCE`.
double SafeSqrt(double x);

/// The arc functions, with arguments within `TOLERANCE` of 1 and -1 taken as 1 and -1.
double SafeAsin(double x);
double SafeAcos(double x);

/// The angle of (x, y) from 0 to 2 pi; a negative angle too small to change 2 pi gives 2 pi itself.
double Atan2Positive(double y, double x);

/// `RELATIVE_TOLERANCE` over |x|, or over `fallback` when |x| is not above that tolerance.
/// Infinite when both are zero.
double TightRelative(double x, double fallback);

/// The number of chords that keep an arc of that angle (radians) within the chord tolerance; 0 for a line
/// (direction 0) and for a tolerance not below the radius.
int SegmentCount(double chordTolerance, double angle, double radius, int direction);

/// The real roots of a x^2 + b x + c and their count: 0, 1 (in x1) or 2. A root that does not exist leaves
/// its variable as it was. Coefficients that are not finite have no root.
int SolveQuadratic(double a, double b, double c, double& x1, double& x2);

}  // namespace geometry

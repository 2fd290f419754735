#include "geometry/numerics.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace geometry {

double SafeSqrt(double x) {
  return x < TOLERANCE ? 0.0 : std::sqrt(x);
}

double SafeAsin(double x) {
  if (std::fabs(x + 1.0) < TOLERANCE) return -PI / 2;
  if (std::fabs(x - 1.0) < TOLERANCE) return PI / 2;
  return std::asin(x);
}

double SafeAcos(double x) {
  if (std::fabs(x + 1.0) < TOLERANCE) return PI;
  if (std::fabs(x - 1.0) < TOLERANCE) return 0.0;
  return std::acos(x);
}

double Atan2Positive(double y, double x) {
  const double angle = std::atan2(y, x);
  return angle < 0 ? angle + 2 * PI : angle;
}

double TightRelative(double x, double fallback) {
  return RELATIVE_TOLERANCE / (NonZero(x, RELATIVE_TOLERANCE) ? std::fabs(x) : fallback);
}

int SegmentCount(double chordTolerance, double angle, double radius, int direction) {
  if (direction == 0 || chordTolerance >= radius) return 0;
  // A chord with the sagitta s spans 2 acos(1 - s / r); the double angle's cosine saves the acos.
  const double h = std::min(1.0 - chordTolerance / radius, 0.99999999999);
  const double c = 2.0 * h * h - 1.0;
  const double step = std::atan2(std::sqrt(1.0 - c * c) * direction, c);
  const double count = std::fabs(angle / step);
  if (std::isnan(count)) return 0;
  return static_cast<int>(std::min(count, std::numeric_limits<int>::max() - 1.0)) + 1;
}

namespace {

/// Of x^2 + c with |b| below `epsilon`.
int PureQuadraticRoots(double c, double epsilon, double& x1, double& x2) {
  const double d = -c;
  if (d < -epsilon) return 0;
  if (d < epsilon) {
    x1 = 0.0;
    return 1;
  }
  x1 = std::sqrt(d);
  x2 = -x1;
  return 2;
}

}  // namespace

int SolveQuadratic(double a, double b, double c, double& x1, double& x2) {
  if (!std::isfinite(a) || !std::isfinite(b) || !std::isfinite(c)) return 0;
  const double epsilon = Units == 2 ? 1e-9 : 1e-6;
  if (std::fabs(a) < epsilon) {
    if (std::fabs(b) < epsilon) return 0;
    x1 = -c / b;
    return 1;
  }
  b /= a;
  c /= a;
  if (std::fabs(b) < epsilon) return PureQuadraticRoots(c, epsilon, x1, x2);
  const double d = b * b - 4.0 * c;
  if (d < -epsilon) return 0;
  // The root of larger size first, where nothing cancels; the other by their product c.
  const double t = d > 0 ? -(b + (b < 0 ? -1.0 : 1.0) * std::sqrt(d)) : -b;
  x1 = t / 2.0;
  x2 = c / x1;
  return NearEqual(x1, x2, epsilon) ? 1 : 2;
}

}  // namespace geometry

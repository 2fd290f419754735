#include <algorithm>
#include <cmath>

#include "geometry/intersect.h"

/// Crossings in space.
namespace geometry {
namespace {

/// The quotient of two parallel vectors, by the largest component of the divisor; false when that is null.
bool Quotient(const Vector3d& dividend, const Vector3d& divisor, double& quotient) {
  constexpr double kParallel = 1e-6;
  const double parts[] = {dividend.dx, dividend.dy, dividend.dz};
  const double by[] = {divisor.dx, divisor.dy, divisor.dz};
  const auto* largest =
      std::max_element(by, by + 3, [](double a, double b) { return std::fabs(a) < std::fabs(b); });
  if (!(std::fabs(*largest) >= kParallel)) return false;
  quotient = parts[largest - by] / *largest;
  return true;
}

bool BetweenEnds(double t, const Line& l) {
  return -TOLERANCE <= t && t <= l.length + TOLERANCE;
}

}  // namespace

bool Intof(const Line& a, const Line& b, Point3d& point) {
  if (Box3d(a.min, a.max).Outside(Box3d(b.min, b.max))) return false;
  // From a.p0 + fa a.v = b.p0 + fb b.v, crossed with b.v. Directions carry their lengths into the test for
  // parallels, so that lines much shorter than the unit do not meet either.
  double fa = 0;
  double tb = 0;
  if (!Quotient(Cross(Vector3d(a.p0, b.p0), b.v), Cross(a.v, b.v), fa)) return false;
  const double ta = fa * a.length;
  const Point3d onA = a.p0 + a.v * fa;
  const Point3d onB = b.Near(onA, tb);
  if (!NearZero(Dist(onA, onB), TOLERANCE) || !BetweenEnds(ta, a) || !BetweenEnds(tb, b)) return false;
  point = onA;
  return true;
}

BoxRay::BoxRay(const Line& l) : origin(l.p0), inverse(1.0 / l.v.dx, 1.0 / l.v.dy, 1.0 / l.v.dz) {
  sign[0] = inverse.dx < 0;
  sign[1] = inverse.dy < 0;
  sign[2] = inverse.dz < 0;
}

bool Hits(const BoxRay& r, const Box3d& b) {
  struct Interval {
    double enter, leave;
  };
  const auto slab = [](double low, double high, double origin, double inverse, int sign) {
    const Interval within = {(low - origin) * inverse, (high - origin) * inverse};
    return sign != 0 ? Interval{within.leave, within.enter} : within;
  };
  const Interval x = slab(b.min.x, b.max.x, r.origin.x, r.inverse.dx, r.sign[0]);
  const Interval y = slab(b.min.y, b.max.y, r.origin.y, r.inverse.dy, r.sign[1]);
  if (x.enter > y.leave || y.enter > x.leave) return false;
  // A direction along a face gives a bound that is no number, and that bounds nothing: fmax and fmin leave
  // it out, the comparisons find nothing amiss.
  const Interval both = {std::fmax(x.enter, y.enter), std::fmin(x.leave, y.leave)};
  const Interval z = slab(b.min.z, b.max.z, r.origin.z, r.inverse.dz, r.sign[2]);
  return !(both.enter > z.leave || z.enter > both.leave);
}

}  // namespace geometry

#include <algorithm>
#include <cmath>
#include <utility>

#include "geometry/intersect.h"

/// Crossings of unbounded lines and whole circles, of spans, and of lines of space.
namespace geometry {
namespace {

/// Whether fraction `t` of a line is between its ends, or beyond them by at most `TOLERANCE`.
bool BetweenEnds(double t, const Span& line) {
  const double reach = TOLERANCE / line.length;
  return -reach <= t && t <= 1.0 + reach;
}

int LineWithLine(const Span& a, const Span& b, Point& p1, double t[2]) {
  if (std::fabs(Cross(b.vs, a.vs)) < VECTOR_TOLERANCE) return 0;
  const Vector2d da(a.p0, a.p1);
  const Vector2d db(b.p0, b.p1);
  const Vector2d dc(a.p0, b.p0);
  const double den = Cross(db, da);
  t[0] = Cross(db, dc) / den;
  t[1] = Cross(da, dc) / den;
  p1 = a.p0 + da * t[0];
  return BetweenEnds(t[0], a) && BetweenEnds(t[1], b) ? 1 : 0;
}

/// When only the second crossing is valid it moves to the first place.
int CountValid(Point& p1, Point& p2) {
  const int count = (p1.ok ? 1 : 0) + (p2.ok ? 1 : 0);
  if (!p1.ok && p2.ok) {
    p1 = p2;
    p2 = INVALID_POINT;
  }
  return count;
}

/// `isOnArc(place, i)` says whether the root `i` of the line is between the ends of the arc.
template <class IsOnArc>
int LineWithArc(const Span& line, const Span& arc, Point& p1, Point& p2, double t[2], IsOnArc isOnArc) {
  const Vector2d d(line.p0, line.p1);
  const Vector2d f(arc.pc, line.p0);
  const int roots =
      SolveQuadratic(Dot(d, d), 2.0 * Dot(f, d), Dot(f, f) - arc.radius * arc.radius, t[0], t[1]);
  const double reach = TOLERANCE / d.Magnitude();
  Point* const places[] = {&p1, &p2};
  for (int i = 0; i < roots; ++i) {
    if (!(-reach < t[i] && t[i] < 1.0 + reach)) continue;
    *places[i] = line.p0 + d * t[i];
    places[i]->ok = isOnArc(*places[i], i);
  }
  if (!p1.ok && p2.ok) t[0] = t[1];
  return CountValid(p1, p2);
}

int ArcWithArc(const Span& a, const Span& b, Point& p1, Point& p2) {
  const int crossings = Intof(Circle(a), Circle(b), p1, p2);
  if (crossings == 0) {
    p1 = a.p1;
    p1.ok = false;
    return 0;
  }
  p1.ok = a.OnSpan(p1) && b.OnSpan(p1);
  p2.ok = crossings == 2 && a.OnSpan(p2) && b.OnSpan(p2);
  return CountValid(p1, p2);
}

/// The box of the chord with the margin of `Span::box`, of which it is a part.
Box ChordBox(const Span& span) {
  Box box;
  box.Insert(span.p0);
  box.Insert(span.p1);
  box.Grow(TIGHT_TOLERANCE);
  return box;
}

/// Whether a point of the circle is between the ends of the arc, as `Span::OnSpan` says. Tangents decide, and
/// only near the limits angles.
bool BetweenTangents(const Span& arc, const Point& p) {
  constexpr double kClear = 1e-5;  // more than `VECTOR_TOLERANCE`, by which angles are rounded
  if (p == arc.p0 || p == arc.p1) return true;
  Vector2d at = Vector2d(arc.pc, p).LeftNormal();
  at.Normalise();
  if (arc.dir == CW) at = -at;
  const double cosine = Dot(arc.vs, at);
  const double cosineOfEnd = Dot(arc.vs, arc.ve);
  const bool pastHalf = 0 > arc.dir * Cross(arc.vs, at);
  const bool endsPastHalf = 0 > arc.dir * Cross(arc.vs, arc.ve);
  if (std::fabs(cosine) < 1 - kClear) {
    if (pastHalf != endsPastHalf) return endsPastHalf;
    if (std::fabs(cosine - cosineOfEnd) > kClear) return (cosine > cosineOfEnd) != pastHalf;
  }
  const double fraction = IncludedAngle(arc.vs, at, arc.dir) / IncludedAngle(arc.vs, arc.ve, arc.dir);
  return 0 <= fraction && fraction <= 1;
}

Span Measured(const Span& span) {
  Span measured = span;
  if (!measured.propertiesSet) measured.SetMeasures();
  return measured;
}

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

Point Intof(const CLine& a, const CLine& b) {
  double t = 0;
  return Intof(a, b, t);
}

Point Intof(const CLine& a, const CLine& b, double& t) {
  constexpr double kParallel = 1e-6;
  const double det = Cross(b.v, a.v);
  if (!(std::fabs(det) > kParallel)) return INVALID_POINT;
  t = Cross(b.v, Vector2d(a.p, b.p)) / det;
  return a.p + a.v * t;
}

Point Intof(int order, const CLine& s, const Circle& c) {
  Point other;
  return Intof(order, s, c, other);
}

Point Intof(int order, const CLine& s, const Circle& c, Point& other) {
  other = INVALID_POINT;
  const Vector2d w(c.pc, s.p);
  double x1 = 0;
  double x2 = 0;
  const int count = SolveQuadratic(1.0, 2.0 * Dot(w, s.v), Dot(w, w) - c.radius * c.radius, x1, x2);
  if (count == 0) return INVALID_POINT;
  if (count == 1) {
    x2 = x1;
  } else if (x1 < x2) {
    std::swap(x1, x2);
  }
  if (order == 1) std::swap(x1, x2);
  other = s.p + s.v * x2;
  return s.p + s.v * x1;
}

int Intof(const Circle& a, const Circle& b, Point& p1, Point& p2) {
  p1 = p2 = INVALID_POINT;
  Vector2d u(a.pc, b.pc);
  const double d = u.Normalise();
  const double ra = std::fabs(a.radius);
  const double rb = std::fabs(b.radius);
  if (d < TOLERANCE || d > ra + rb + TOLERANCE || std::fabs(ra - rb) - TOLERANCE > d) return 0;

  // The radical line crosses the line of centres at x from a.
  double x = 0.5 * (d + (ra + rb) * (ra - rb) / d);
  if (x - ra > TOLERANCE) return 0;
  const double h2 = (ra - x) * (ra + x);
  if (h2 < 0) x = ra;
  const double h = h2 < 0 ? 0.0 : std::sqrt(h2);
  const Point middle = a.pc + u * x;
  if (!(h < TOLERANCE)) {
    p1 = middle + u.LeftNormal() * h;
    p2 = middle - u.LeftNormal() * h;
    return 2;
  }
  p1 = p2 = middle;
  if (!Different(Dist(middle, b.pc), rb, TOLERANCE)) return 1;
  // When they touch from within, the point of `a` is on the far side of its centre.
  p1 = p2 = a.pc - u * x;
  const bool onBoth = NearEqual(Dist(p1, a.pc), ra, TOLERANCE) && NearEqual(Dist(p1, b.pc), rb, TOLERANCE);
  if (onBoth) return 1;
  p1 = p2 = INVALID_POINT;
  return 0;
}

Point Intof(int order, const Circle& a, const Circle& b) {
  Point other;
  return Intof(order, a, b, other);
}

Point Intof(int order, const Circle& a, const Circle& b, Point& other) {
  Point p1;
  Point p2;
  const int count = Intof(a, b, p1, p2);
  other = count == 0 ? INVALID_POINT : p2;
  if (count == 0) return INVALID_POINT;
  if (count == 1 || order == 1) return p1;
  other = p1;
  return p2;
}

Point On(const Circle& c, const Point& p) {
  Vector2d spoke(c.pc, p);
  const double d = spoke.Magnitude();
  if (NearZero(d, TOLERANCE)) {
    ThrowError(L",Point on Circle centre - On(Circle& c, Point& p)", 0, 1001);
  }
  return c.pc + spoke * (c.radius / d);
}

Point On(const CLine& s, const Point& p) {
  return s.p + s.v * Dot(Vector2d(s.p, p), s.v);
}

double Dist(const Circle& a, const Circle& b) {
  return Dist(a.pc, b.pc) - a.radius - b.radius;
}

int Intof(const Span& a, const Span& b, Point& p1, Point& p2, double t[4]) {
  a.NeedProperties();
  b.NeedProperties();
  p1 = p2 = INVALID_POINT;
  if (a.box.Outside(b.box)) return 0;
  if (a.dir == LINEAR && b.dir == LINEAR) return LineWithLine(a, b, p1, t);
  if (a.dir != LINEAR && b.dir != LINEAR) return ArcWithArc(a, b, p1, p2);
  const Span& line = a.dir == LINEAR ? a : b;
  const Span& arc = a.dir == LINEAR ? b : a;
  return LineWithArc(line, arc, p1, p2, t, [&](const Point& p, int i) { return arc.OnSpan(p, t[2 + i]); });
}

int Intof(const Span& a, const Span& b, Point& p1, Point& p2) {
  double t[4] = {};
  return Intof(a, b, p1, p2, t);
}

bool OnlyCrossing(const Span& a, const Span& b, Point& crossing) {
  const int arcs = (a.dir != LINEAR ? 1 : 0) + (b.dir != LINEAR ? 1 : 0);
  const bool apart = ChordBox(a).Outside(ChordBox(b));
  if (arcs == 2 || (arcs == 1 && apart)) {
    Point unusedSecond;
    return Intof(Measured(a), Measured(b), crossing, unusedSecond) == 1;
  }
  double unusedFractions[2] = {};
  crossing = INVALID_POINT;
  if (arcs == 0) return !apart && LineWithLine(a, b, crossing, unusedFractions) == 1;
  Point second = INVALID_POINT;
  const Span& line = a.dir == LINEAR ? a : b;
  const Span& arc = a.dir == LINEAR ? b : a;
  return LineWithArc(line, arc, crossing, second, unusedFractions,
                     [&arc](const Point& p, int) { return BetweenTangents(arc, p); }) == 1;
}

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
  // A direction along a face gives a bound that is not a number and sets no limit: fmax and fmin leave it
  // out, and comparisons with it are false.
  const Interval both = {std::fmax(x.enter, y.enter), std::fmin(x.leave, y.leave)};
  const Interval z = slab(b.min.z, b.max.z, r.origin.z, r.inverse.dz, r.sign[2]);
  return !(both.enter > z.leave || z.enter > both.leave);
}

}  // namespace geometry

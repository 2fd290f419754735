#include <cmath>

#include "geometry/intersect.h"

/// Crossings of spans, one function for each pair of kinds.
namespace geometry {
namespace {

/// Whether fraction `t` of a line lies between its ends, or beyond them by `TOLERANCE` at most.
bool BetweenEnds(double t, const Span& line) {
  const double reach = TOLERANCE / line.length;
  return -reach <= t && t <= 1.0 + reach;
}

int LineWithLine(const Span& a, const Span& b, Point& p1, double t[4]) {
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

int LineWithArc(const Span& line, const Span& arc, Point& p1, Point& p2, double t[4]) {
  const Vector2d d(line.p0, line.p1);
  const Vector2d f(arc.pc, line.p0);
  const int roots =
      SolveQuadratic(Dot(d, d), 2.0 * Dot(f, d), Dot(f, f) - arc.radius * arc.radius, t[0], t[1]);
  const double reach = TOLERANCE / d.Magnitude();
  Point* const places[] = {&p1, &p2};
  for (int i = 0; i < roots; ++i) {
    if (!(-reach < t[i] && t[i] < 1.0 + reach)) continue;
    *places[i] = line.p0 + d * t[i];
    places[i]->ok = arc.OnSpan(*places[i], t[2 + i]);
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

}  // namespace

int Intof(const Span& a, const Span& b, Point& p1, Point& p2, double t[4]) {
  a.NeedProperties();
  b.NeedProperties();
  p1 = p2 = INVALID_POINT;
  if (a.box.Outside(b.box)) return 0;
  if (a.dir == LINEAR && b.dir == LINEAR) return LineWithLine(a, b, p1, t);
  if (a.dir == LINEAR) return LineWithArc(a, b, p1, p2, t);
  if (b.dir == LINEAR) return LineWithArc(b, a, p1, p2, t);
  return ArcWithArc(a, b, p1, p2);
}

int Intof(const Span& a, const Span& b, Point& p1, Point& p2) {
  double t[4] = {};
  return Intof(a, b, p1, p2, t);
}

}  // namespace geometry

#include <cmath>

#include "geometry/construct.h"
#include "geometry/span.h"

namespace geometry {
namespace {

/// Whether every sample but the ends and the middle one, which made the element, is within `t` of it.
template <class DistanceOf>
bool AllWithin(const Point* p, int n, double t, DistanceOf distanceOf) {
  for (int i = 0; i <= n; ++i) {
    if (i != n / 2 && !NearZero(distanceOf(p[i]), t)) return false;
  }
  return true;
}

}  // namespace

bool Span::Fit(const Point* p, int n, double t) {
  if (n < 1) return false;
  const Point middle = p[n / 2];
  const CLine chord(p[0], p[n]);
  Span fitted = *this;
  if (chord.ok && NearZero(chord.Dist(middle), t * 0.01)) {
    if (!AllWithin(p, n, t, [&](const Point& q) { return chord.Dist(q); })) return false;
    fitted.dir = LINEAR;
    fitted.NullSpan = p[0] == p[n];
  } else {
    const Circle circle = Thru(p[0], middle, p[n]);
    if (!circle.ok) return false;
    if (!AllWithin(p, n, t, [&](const Point& q) { return geometry::Dist(circle.pc, q) - circle.radius; })) {
      return false;
    }
    // A middle right of the chord is on the way round anticlockwise, however long the way.
    fitted.dir = 0.0 > Cross(Vector2d(p[0], p[n]), Vector2d(p[0], middle)) ? ACW : CW;
    fitted.pc = circle.pc;
    fitted.radius = circle.radius;
    fitted.NullSpan = p[0] == circle.pc;
  }
  fitted.p0 = p[0];
  fitted.p1 = p[n];
  fitted.propertiesSet = false;
  *this = fitted;
  return true;
}

}  // namespace geometry

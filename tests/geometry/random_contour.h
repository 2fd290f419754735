#pragma once

#include <cmath>

#include "geometry/kurveex.h"
#include "geometry/support.h"

/// Contours drawn by lot, for laws that hold for all.
namespace geometry::testing {

/// A vertex after the end of the contour: a line, or an arc whose chord bulges by up to about a half circle.
inline spVertex LineOrArc(const Point& from, const Point& to, bool arc, Random& random) {
  if (!arc || Dist(from, to) < 0.1) return {LINEAR, to, Point(0, 0)};
  const int dir = random.Below(2) == 0 ? ACW : CW;
  const Vector2d half = Vector2d(from, to) * 0.5;
  const Point centre = from + half + half.LeftNormal() * random.Between(-2, 2);
  return {dir, to, centre};
}

/// Vertices anywhere: crosses itself at will. Some vertices repeat, so there are null spans.
inline KurveEx Scribble(int count, Random& random) {
  KurveEx k;
  k.Start(Point(random.Between(-20, 20), random.Between(-20, 20)));
  for (int i = 1; i < count; ++i) {
    const Point to(random.Between(-20, 20), random.Between(-20, 20));
    k.Add(random.Below(12) == 0 ? spVertex(LINEAR, k.End(), Point(0, 0))
                                : LineOrArc(k.End(), to, random.Below(3) == 0, random),
          true);
  }
  if (random.Below(2) == 0) k.Add(LineOrArc(k.End(), k.Start(), random.Below(3) == 0, random), true);
  return k;
}

/// A closed ring about the origin that does not cross itself, in lines and flat arcs; anticlockwise.
inline KurveEx Ring(int count, Random& random) {
  KurveEx k;
  const auto corner = [&](int i) {
    const double angle = 2 * kPi * (i + random.Between(-0.3, 0.3)) / count;
    const double r = random.Between(20, 40);
    return Point(r * std::cos(angle), r * std::sin(angle));
  };
  k.Start(corner(0));
  for (int i = 1; i <= count; ++i) {
    const Point from = k.End();
    const Point to = i == count ? k.Start() : corner(i);
    const Vector2d half = Vector2d(from, to) * 0.5;
    const int dir = random.Below(3) - 1;
    // A centre far to the side that the arc turns to.
    k.Add(spVertex(dir, to, from + half + half.LeftNormal() * (dir * random.Between(4, 12))), true);
  }
  return k;
}

}  // namespace geometry::testing

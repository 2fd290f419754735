#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "geometry/random_contour.h"
#include "geometry/region.h"
#include "geometry/support.h"

/// Answers about regions in the plainest way, span by span, and regions drawn by lot.
namespace geometry::testing {

/// Whether the point is between an arc and its chord.
inline bool IsInSegment(const RegionSpan& s, const Point& p) {
  const bool isInDisc = Dist(p, s.pc) < Dist(s.p0, s.pc);
  // A point on the chord is left of it, as in the count of turns.
  const double cross = Cross(Vector2d(s.p0, s.p1), Vector2d(s.p0, p));
  const bool isRight = s.dir > 0 ? cross < 0 : cross >= 0;
  const bool isLong = Cross(Vector2d(s.p0, s.p1), Vector2d(s.p0, s.pc)) * s.dir < 0;
  return isInDisc && (isLong ? isRight || !isInDisc : isRight);
}

/// The turns of a loop around a point that is not on it.
inline int TurnsAround(const RegionLoop& loop, const Point& p) {
  int turns = 0;
  for (const RegionSpan& s : loop.spans) {
    const bool isRight = Cross(Vector2d(s.p0, s.p1), Vector2d(s.p0, p)) < 0;
    if (s.p0.y <= p.y && s.p1.y > p.y && !isRight) ++turns;
    if (s.p0.y > p.y && s.p1.y <= p.y && isRight) --turns;
    if (s.dir != LINEAR && IsInSegment(s, p)) turns += s.dir;
  }
  return turns;
}

inline int TurnsAround(const Region& region, const Point& p) {
  int turns = 0;
  for (const RegionLoop& loop : region.loops) turns += TurnsAround(loop, p);
  return turns;
}

/// Whether the direction from the centre is within the sweep of the arc.
inline bool IsSwept(const RegionSpan& s, const Point& p) {
  const Vector2d from(s.pc, s.p0), to(s.pc, s.p1), at(s.pc, p);
  const auto angle = [&](const Vector2d& v) {
    const double a = s.dir * std::atan2(Cross(from, v), Dot(from, v));
    return a < 0 ? a + 2 * kPi : a;
  };
  return angle(at) <= angle(to);
}

inline double DistanceTo(const RegionSpan& s, const Point& p) {
  const double ends = std::min(Dist(p, s.p0), Dist(p, s.p1));
  if (s.dir != LINEAR)
    return IsSwept(s, p) ? std::min(ends, std::abs(Dist(p, s.pc) - Dist(s.p0, s.pc))) : ends;
  const Vector2d along(s.p0, s.p1), at(s.p0, p);
  const double length = along.Magnitude(), t = Dot(along, at);
  return t > 0 && t < length * length ? std::abs(Cross(along, at)) / length : ends;
}

inline double DistanceTo(const Region& region, const Point& p) {
  double least = kInfinity;
  for (const RegionLoop& loop : region.loops) {
    for (const RegionSpan& s : loop.spans) least = std::min(least, DistanceTo(s, p));
  }
  for (const RegionSpan& s : region.loose) least = std::min(least, DistanceTo(s, p));
  return least;
}

/// The distance from the boundary, positive inside.
inline double Depth(const Region& region, const Point& p) {
  const double away = DistanceTo(region, p);
  return TurnsAround(region, p) > 0 ? away : -away;
}

/// The point at a fraction of the span.
inline Point PointOn(const RegionSpan& s, double t) {
  if (s.dir == LINEAR) return s.p0 + Vector2d(s.p0, s.p1) * t;
  Vector2d out(s.pc, s.p0);
  const double angle = s.dir * t * s.Length() / s.Radius();
  const double sine = std::sin(angle), cosine = std::cos(angle);
  return s.pc + Vector2d(out.dx * cosine - out.dy * sine, out.dy * cosine + out.dx * sine);
}

inline Box BoxOf(const Region& region) {
  Box box;
  for (const RegionLoop& loop : region.loops) {
    for (const RegionSpan& s : loop.spans) {
      for (int i = 0; i < 8; ++i) box.Insert(PointOn(s, i / 8.0));
    }
  }
  return box;
}

/// A closed contour from lattice point to lattice point in lines, quarter and half turns: much of it
/// coincides, touches and overlaps exactly.
inline KurveEx LatticeContour(int count, int size, Random& random) {
  const auto draw = [&] { return Point(random.Below(size), random.Below(size)); };
  KurveEx k;
  k.Start(draw());
  for (int i = 0; i < count; ++i) {
    const Point to = i + 1 == count ? k.Start() : draw();
    const Vector2d half = Vector2d(k.End(), to) * 0.5;
    const int kind = random.Below(6);
    if (half.Magnitude() == 0) continue;
    if (kind > 1) {
      k.Add(to.x, to.y);
      continue;
    }
    const Vector2d away = kind == 0 ? Vector2d() : half.LeftNormal() * (random.Below(2) == 0 ? 1 : -1);
    k.Add(spVertex(random.Below(2) == 0 ? ACW : CW, to, k.End() + half + away));
  }
  return k;
}

}  // namespace geometry::testing

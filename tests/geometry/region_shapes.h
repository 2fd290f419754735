#pragma once

#include <cmath>
#include <vector>

#include "geometry/region.h"
#include "geometry/support.h"

/// Contours and regions for tests, written down briefly.
namespace geometry::testing {

inline KurveEx PathThrough(const std::vector<Point>& points) {
  KurveEx k;
  k.Start(points.front());
  for (std::size_t i = 1; i < points.size(); ++i) k.Add(points[i].x, points[i].y);
  return k;
}

inline KurveEx PolygonContour(const std::vector<Point>& corners) {
  KurveEx k = PathThrough(corners);
  k.Add(corners.front().x, corners.front().y);
  return k;
}

/// A region by its spans: {direction, end, centre}, from a start.
inline Region Drawn(const Point& start, const std::vector<spVertex>& vertices) {
  Region region;
  region.loops.emplace_back();
  Point from = start;
  for (const spVertex& v : vertices) {
    region.loops.back().spans.push_back({v.type, from, v.p, v.pc, v.ID, 0, 0});
    from = v.p;
  }
  return Clean(region, FillRule::EvenOdd);
}

inline Region Polygon(const std::vector<Point>& corners) {
  std::vector<spVertex> vertices;
  for (std::size_t i = 1; i <= corners.size(); ++i) {
    vertices.emplace_back(LINEAR, corners[i % corners.size()], Point());
  }
  return Drawn(corners.front(), vertices);
}

inline Region Rectangle(double x0, double y0, double x1, double y1) {
  return Polygon({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
}

inline Region Disc(double x, double y, double radius) {
  return Clean(KurveEx(Point(x, y), radius, ACW));
}

inline int HoleCount(const Region& region) {
  int holes = 0;
  for (const RegionLoop& loop : region.loops) holes += loop.IsHole() ? 1 : 0;
  return holes;
}

/// The area of the segment that a chord cuts off a circle.
inline double SegmentOf(double radius, double chord) {
  const double half = std::asin(chord / 2 / radius);
  return radius * radius * (half - std::sin(half) * std::cos(half));
}

}  // namespace geometry::testing

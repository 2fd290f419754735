#include "geometry/chorded.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "geometry/region_probe.h"

namespace geometry::testing {
namespace {

/// Adds points of the arc from its start on, all but its end, at another radius.
void AddArc(const RegionSpan& arc, double radius, std::vector<Point>& points) {
  const double sweep = arc.Length() / arc.Radius();
  const double step = 2 * std::acos(1 - std::min(Chorded::kChord / radius, 1.0));
  const int count = std::max(4, static_cast<int>(std::ceil(sweep / step)));
  for (int i = 0; i < count; ++i) {
    const Point p = PointOn(arc, static_cast<double>(i) / count);
    points.push_back(arc.pc + Vector2d(arc.pc, p) * (radius / Dist(arc.pc, p)));
  }
}

void AddSpan(const RegionSpan& span, std::vector<Point>& points) {
  if (span.dir == LINEAR) {
    points.push_back(span.p0);
  } else {
    AddArc(span, span.Radius(), points);
  }
}

RegionSpan Reversed(const RegionSpan& s) {
  return {-s.dir, s.p1, s.p0, s.pc};
}

std::vector<Point> DiscAround(const Point& centre, double radius) {
  const Point right(centre.x + radius, centre.y), left(centre.x - radius, centre.y);
  std::vector<Point> points;
  AddArc({ACW, right, left, centre}, radius, points);
  AddArc({ACW, left, right, centre}, radius, points);
  return points;
}

/// The strip on both sides of a span, without round ends.
std::vector<Point> StripOf(const RegionSpan& span, double distance) {
  if (span.dir == LINEAR) {
    const Vector2d across = Vector2d(span.p0, span.p1).LeftNormal() * (distance / span.Length());
    return {span.p0 + across, span.p0 + -across, span.p1 + -across, span.p1 + across};
  }
  const double radius = span.Radius();
  const auto at = [&](const Point& p, double r) { return span.pc + Vector2d(span.pc, p) * (r / radius); };
  std::vector<Point> points;
  AddArc(span, radius + distance, points);
  points.push_back(at(span.p1, radius + distance));
  if (radius <= distance) {
    points.push_back(span.pc);
    return points;
  }
  AddArc(Reversed(span), radius - distance, points);
  points.push_back(at(span.p0, radius - distance));
  return points;
}

}  // namespace

Chorded::Chorded() : context_(GEOS_init_r(), GEOS_finish_r) {}

Chorded::Shape Chorded::Own(GEOSGeometry* shape) const {
  return {shape, [context = context_](GEOSGeometry* s) {
            if (s) GEOSGeom_destroy_r(context.get(), s);
          }};
}

Chorded::Shape Chorded::PolygonOf(const Points& points) const {
  const auto count = static_cast<unsigned>(points.size());
  GEOSCoordSequence* ring = GEOSCoordSeq_create_r(context_.get(), count + 1, 2);
  for (unsigned i = 0; i <= count; ++i) {
    GEOSCoordSeq_setXY_r(context_.get(), ring, i, points[i % count].x, points[i % count].y);
  }
  GEOSGeometry* line = GEOSGeom_createLinearRing_r(context_.get(), ring);
  const Shape polygon = Own(GEOSGeom_createPolygon_r(context_.get(), line, nullptr, 0));
  return Own(GEOSMakeValid_r(context_.get(), polygon.get()));
}

// By the even-odd rule, which counts holes and islands in them as they are.
Chorded::Shape Chorded::Of(const Region& region) const {
  Shape whole = Own(GEOSGeom_createEmptyPolygon_r(context_.get()));
  for (const RegionLoop& loop : region.loops) {
    Points points;
    for (const RegionSpan& span : loop.spans) AddSpan(span, points);
    whole = Own(GEOSSymDifference_r(context_.get(), whole.get(), PolygonOf(points).get()));
    if (!whole) break;
  }
  return whole;
}

Chorded::Shape Chorded::Around(const RegionSpan& span, double distance) const {
  const Shape ends =
      Union(PolygonOf(DiscAround(span.p0, distance)), PolygonOf(DiscAround(span.p1, distance)));
  return Union(ends, PolygonOf(StripOf(span, distance)));
}

Chorded::Shape Chorded::Within(const Region& region, double distance) const {
  Shape whole = Own(GEOSGeom_createEmptyPolygon_r(context_.get()));
  const auto add = [&](const RegionSpan& span) { whole = Union(whole, Around(span, distance)); };
  for (const RegionLoop& loop : region.loops) std::ranges::for_each(loop.spans, add);
  std::ranges::for_each(region.loose, add);
  return whole;
}

Chorded::Shape Chorded::Union(const Shape& a, const Shape& b) const {
  return a && b ? Own(GEOSUnion_r(context_.get(), a.get(), b.get())) : nullptr;
}

Chorded::Shape Chorded::Common(const Shape& a, const Shape& b) const {
  return a && b ? Own(GEOSIntersection_r(context_.get(), a.get(), b.get())) : nullptr;
}

Chorded::Shape Chorded::Rest(const Shape& a, const Shape& b) const {
  return a && b ? Own(GEOSDifference_r(context_.get(), a.get(), b.get())) : nullptr;
}

double Chorded::Area(const Shape& shape) const {
  double area = 0;
  if (!shape || GEOSArea_r(context_.get(), shape.get(), &area) != 1)
    return std::numeric_limits<double>::quiet_NaN();
  return area;
}

}  // namespace geometry::testing

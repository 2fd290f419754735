#include <algorithm>
#include <cmath>

#include "contour/library.h"
#include "contour/operations.h"

namespace vanzet::contour {
namespace {

using geometry::Point;
using geometry::Span;

/// `Span::Dist` for spans of no length too.
double DistanceTo(const Span& span, const Point& point, Point& nearest) {
  if (!span.NullSpan) return span.Dist(point, nearest);
  nearest = span.p0;
  return Dist(point, nearest);
}

}  // namespace

Facts FactsOf(const Contour& contour) {
  const geometry::KurveEx& curve = contour.curve;
  Facts facts;
  facts.number = contour.number;
  facts.spans = curve.SpanCount();
  facts.arcs = static_cast<int>(std::ranges::count_if(curve.spans, [](const Span& s) { return s.dir != 0; }));
  facts.closed = curve.Closed();
  facts.perimeter = curve.perim;
  facts.area = facts.closed ? std::fabs(curve.area) : 0;
  facts.direction = curve.Direction();
  // The library's boxes are a little larger than what is in them.
  geometry::Box box = curve.Box();
  box.Grow(-geometry::TIGHT_TOLERANCE);
  facts.low = box.min;
  facts.high = box.max;
  return facts;
}

Nearest NearestOn(const Contour& contour, const Point& point) {
  Nearest nearest;
  for (int i = 0; i < contour.curve.SpanCount(); ++i) {
    Point candidate;
    const double distance = DistanceTo(contour.curve.spans[static_cast<std::size_t>(i)], point, candidate);
    if (i == 0 || distance < nearest.distance) nearest = {i + 1, candidate, distance};
  }
  return nearest;
}

Result<Side> SideOf(const Contour& contour, const Point& point) {
  if (!contour.curve.Closed()) return Side::kOpen;
  const double distance = NearestOn(contour, point).distance;
  if (distance <= geometry::TOLERANCE) return Side::kOn;
  // Chords that stay nearer to the contour than the point is have the point on the same side.
  const auto chorded = Chorded(contour, distance / 2);
  if (!chorded) return chorded.fault();
  const auto outside = Guarded([&] { return chorded->curve.Inside(point); });
  if (!outside) return outside.fault();
  return *outside == 0 ? Side::kInside : Side::kOutside;
}

}  // namespace vanzet::contour

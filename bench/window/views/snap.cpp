#include "window/views/snap.h"

#include <cmath>

#include "contour/contour.h"
#include "geometry/intersect.h"

namespace vanzet::window {
namespace {

using geometry::Point;
using geometry::Span;

/// A line without ends, as far as a drawing reaches.
Span LongSpan(const Point& on, const geometry::Vector2d& direction) {
  Span span(on - direction * contour::kLargestCoordinate, on + direction * contour::kLargestCoordinate);
  span.SetProperties();
  return span;
}

/// Finds the nearest of several places. `found` outlives the search.
class Search {
 public:
  Search(const Point& place, double reach, std::optional<Snap>& found)
      : place_(place), distance_(reach), found_(found) {}

  void Consider(Snap::Kind kind, const Point& point) {
    const double distance = Dist(place_, point);
    const bool isBetter = found_ ? distance < distance_ - 1e-9 : distance <= distance_;
    if (!isBetter) return;
    found_ = Snap{kind, point};
    distance_ = distance;
  }

 private:
  Point place_;
  double distance_;
  std::optional<Snap>& found_;
};

bool IsAbout(const Span& span, const Point& place, double reach) {
  return place.x >= span.box.min.x - reach && place.x <= span.box.max.x + reach &&
         place.y >= span.box.min.y - reach && place.y <= span.box.max.y + reach;
}

}  // namespace

SnapPlaces::SnapPlaces(const drawing::ShownLayers& shown, const std::vector<geometry::Kurve>& more) {
  spans_.push_back(LongSpan({0, 0}, {1, 0}));
  const auto add = [this](const geometry::Kurve& curve) {
    for (int i = 1; i <= curve.SpanCount(); ++i) curve.Get(i, spans_.emplace_back(), true);
  };
  for (const geometry::Kurve& curve : more) add(curve);
  for (const auto& [layer, groups] : shown) {
    for (const drawing::ShownGroup& group : groups) {
      for (const drawing::ShownCurve& curve : group.curves) add(curve.curve);
      for (const geometry::CLine& line : group.lines) spans_.push_back(LongSpan(line.p, line.v));
    }
  }
}

std::optional<Snap> SnapPlaces::Near(const Point& place, double reach) const {
  std::optional<Snap> found;
  Search search(place, reach, found);
  std::vector<const Span*> about;
  for (const Span& span : spans_) {
    if (IsAbout(span, place, reach)) about.push_back(&span);
  }
  for (const Span* span : about) {
    search.Consider(Snap::Kind::kEnd, span->p0);
    search.Consider(Snap::Kind::kEnd, span->p1);
  }
  for (std::size_t i = 0; i < about.size(); ++i) {
    for (std::size_t k = i + 1; k < about.size(); ++k) {
      Point points[2];
      const int count = geometry::Intof(*about[i], *about[k], points[0], points[1]);
      for (int n = 0; n < count; ++n) search.Consider(Snap::Kind::kIntersection, points[n]);
    }
  }
  for (const Span& span : spans_) {
    if (span.dir != geometry::LINEAR) search.Consider(Snap::Kind::kCentre, span.pc);
  }
  return found;
}

}  // namespace vanzet::window

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <utility>

#include "contour/library.h"
#include "contour/operations.h"
#include "geometry/intersect.h"

namespace vanzet::contour {
namespace {

using geometry::Point;
using geometry::Span;

/// `Span::Dist`, also for spans without a length.
double DistanceTo(const Span& span, const Point& point, Point& nearest) {
  if (!span.NullSpan) return span.Dist(point, nearest);
  nearest = span.p0;
  return Dist(point, nearest);
}

using geometry::Point;
using geometry::Span;

constexpr std::size_t kMostCrossings = 1'000'000;

/// The spans of a contour in the order of their left ends, so that most of them can be skipped.
class SpansFromLeft {
 public:
  explicit SpansFromLeft(const std::vector<Span>& spans) {
    for (std::size_t i = 0; i < spans.size(); ++i) {
      if (spans[i].NullSpan) continue;
      sorted_.push_back({&spans[i], static_cast<int>(i) + 1});
      widest_ = std::max(widest_, spans[i].box.Width());
    }
    std::ranges::stable_sort(sorted_, {}, LeftEnd);
  }

  template <class Visitor>
  void VisitAround(const geometry::Box& box, Visitor visit) const {
    auto at = std::ranges::lower_bound(sorted_, box.min.x - widest_, {}, LeftEnd);
    for (; at != sorted_.end() && LeftEnd(*at) <= box.max.x; ++at) visit(*at->span, at->number);
  }

 private:
  struct Entry {
    const Span* span;
    int number;
  };
  static double LeftEnd(const Entry& entry) { return entry.span->box.min.x; }

  std::vector<Entry> sorted_;
  double widest_ = 0;
};

/// The places of the crossings so far. A point within `CLOSED_TOLERANCE` of one of them is the same point.
class Places {
 public:
  /// Returns false when the point was there already.
  bool Add(const Point& point) {
    const Cell cell = {CellOf(point.x), CellOf(point.y)};
    for (std::int64_t x = cell.first - 1; x <= cell.first + 1; ++x) {
      for (std::int64_t y = cell.second - 1; y <= cell.second + 1; ++y) {
        const auto found = cells_.find({x, y});
        if (found != cells_.end() && IsNearOne(found->second, point)) return false;
      }
    }
    cells_[cell].push_back(point);
    return true;
  }

 private:
  using Cell = std::pair<std::int64_t, std::int64_t>;

  std::int64_t CellOf(double coordinate) const {
    return static_cast<std::int64_t>(std::floor(coordinate / width_));
  }
  bool IsNearOne(const std::vector<Point>& points, const Point& point) const {
    return std::ranges::any_of(points, [&](const Point& other) { return Dist(other, point) <= width_; });
  }

  double width_ = geometry::CLOSED_TOLERANCE;
  std::map<Cell, std::vector<Point>> cells_;
};

/// One crossing for each point, in the order of the spans: at a vertex up to four pairs of spans meet.
std::vector<Crossing> WithoutRepeats(std::vector<Crossing> found) {
  std::ranges::stable_sort(found, {}, [](const Crossing& c) { return std::pair(c.spanA, c.spanB); });
  Places places;
  std::erase_if(found, [&](const Crossing& crossing) { return !places.Add(crossing.point); });
  return found;
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
  // The point is on the same side of chords that stay nearer to the contour than the point is.
  VANZET_TRY(const Contour chords, SplitArcs(contour, distance / 2));
  VANZET_TRY(const int outside, Guarded([&] { return chords.curve.Inside(point); }));
  return outside == 0 ? Side::kInside : Side::kOutside;
}

Result<std::vector<Crossing>> Crossings(const Contour& a, const Contour& b) {
  const SpansFromLeft others(b.curve.spans);
  std::vector<Crossing> found;
  int number = 0;
  for (const Span& span : a.curve.spans) {
    ++number;
    if (span.NullSpan) continue;
    others.VisitAround(span.box, [&](const Span& other, int otherNumber) {
      Point points[2];
      const int count = geometry::Intof(span, other, points[0], points[1]);
      for (int i = 0; i < count; ++i) found.push_back({number, otherNumber, points[i]});
    });
    if (found.size() > kMostCrossings) {
      return Fault{"the contours meet in more than " + std::to_string(kMostCrossings) + " points"};
    }
  }
  return WithoutRepeats(std::move(found));
}

}  // namespace vanzet::contour

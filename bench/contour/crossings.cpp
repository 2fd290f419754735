#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <utility>

#include "contour/operations.h"
#include "geometry/intersect.h"

namespace vanzet::contour {
namespace {

using geometry::Point;
using geometry::Span;

constexpr std::size_t kMostCrossings = 1'000'000;

/// The spans of a contour in the order of their left ends, so that most of them need not be looked at.
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

/// The places of crossings that were told; what is nearer than this to one of them is the same point.
class Places {
 public:
  /// False when the point was there already.
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

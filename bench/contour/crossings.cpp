#include <algorithm>

#include "contour/operations.h"
#include "geometry/intersect.h"

namespace vanzet::contour {
namespace {

using geometry::Point;
using geometry::Span;

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

bool Before(const Crossing& a, const Crossing& b) {
  return std::pair(a.spanA, a.spanB) < std::pair(b.spanA, b.spanB);
}

/// One crossing for each point: at a vertex up to four pairs of spans meet.
std::vector<Crossing> WithoutRepeats(std::vector<Crossing> found) {
  std::ranges::stable_sort(found, Before);
  std::vector<Crossing> byPlace = found;
  std::ranges::stable_sort(byPlace, {}, [](const Crossing& c) { return c.point.x; });
  std::vector<Crossing> kept;
  const double width = geometry::CLOSED_TOLERANCE;
  for (const Crossing& crossing : byPlace) {
    const auto isSame = [&](const Crossing& other) { return Dist(other.point, crossing.point) <= width; };
    auto near = kept.rbegin();
    while (near != kept.rend() && crossing.point.x - near->point.x <= width && !isSame(*near)) ++near;
    const bool repeats = near != kept.rend() && isSame(*near);
    if (!repeats) {
      kept.push_back(crossing);
    } else if (Before(crossing, *near)) {
      *near = crossing;
    }
  }
  std::ranges::stable_sort(kept, Before);
  return kept;
}

}  // namespace

std::vector<Crossing> Crossings(const Contour& a, const Contour& b) {
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
  }
  return WithoutRepeats(std::move(found));
}

}  // namespace vanzet::contour

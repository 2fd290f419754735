#include "modeller/meetings.h"

#include <algorithm>
#include <array>

#include "geometry/intersect.h"

namespace vanzet::modeller {
namespace {

using geometry::Point;
using geometry::Span;

/// Spans nearer to each other than this touch, in millimetres.
constexpr double kTouch = 1e-3;

/// Around the vertex between two neighbours nothing counts, in millimetres.
constexpr double kJoint = 5e-3;

bool IsOn(const Span& span, const Point& p) {
  Point nearest;
  return span.Dist(p, nearest) < kTouch;
}

/// A pair of spans and the vertices that they have in common because they are neighbours.
class Pair {
 public:
  Pair(const Outline& outline, std::size_t i, std::size_t j) : a_(outline[i]), b_(outline[j]) {
    const std::size_t last = outline.size() - 1;
    if (j == i + 1) joints_[count_++] = a_.p1;
    if (i == 0 && j == last) joints_[count_++] = a_.p0;
  }

  std::optional<Point> Meeting() const {
    // Spans that lie on each other have no crossing, but an end of one lies on the other.
    for (const Point& p : {a_.p0, a_.p1, b_.p0, b_.p1}) {
      if (Counts(p)) return p;
    }
    std::array<Point, 2> crossings;
    const int count = Intof(a_, b_, crossings[0], crossings[1]);
    for (int i = 0; i < count; ++i) {
      if (Counts(crossings[static_cast<std::size_t>(i)])) return crossings[static_cast<std::size_t>(i)];
    }
    return std::nullopt;
  }

 private:
  bool Counts(const Point& p) const {
    const auto* const end = joints_.begin() + static_cast<std::ptrdiff_t>(count_);
    const bool isJoint =
        std::any_of(joints_.begin(), end, [&](const Point& joint) { return Dist(joint, p) < kJoint; });
    return !isJoint && IsOn(a_, p) && IsOn(b_, p);
  }

  const Span& a_;
  const Span& b_;
  std::array<Point, 2> joints_;
  std::size_t count_ = 0;
};

bool Overlap(const geometry::Box& a, const geometry::Box& b) {
  return a.min.x <= b.max.x + kTouch && b.min.x <= a.max.x + kTouch && a.min.y <= b.max.y + kTouch &&
         b.min.y <= a.max.y + kTouch;
}

}  // namespace

std::optional<Point> MeetingWithItself(const Outline& outline) {
  // By their left ends, so that only those that overlap in x are looked at.
  std::vector<std::size_t> order(outline.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  std::ranges::sort(order, {}, [&](std::size_t i) { return outline[i].box.min.x; });
  for (std::size_t a = 0; a < order.size(); ++a) {
    const double right = outline[order[a]].box.max.x + kTouch;
    for (std::size_t b = a + 1; b < order.size() && outline[order[b]].box.min.x <= right; ++b) {
      const auto [i, j] = std::minmax(order[a], order[b]);
      if (!Overlap(outline[i].box, outline[j].box)) continue;
      if (const auto meeting = Pair(outline, i, j).Meeting()) return meeting;
    }
  }
  return std::nullopt;
}

}  // namespace vanzet::modeller

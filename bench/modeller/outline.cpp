#include "modeller/outline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>

#include "base/number_text.h"
#include "geometry/intersect.h"
#include "geometry/kurveex.h"

namespace vanzet::modeller {
namespace {

using geometry::KurveEx;
using geometry::Point;
using geometry::Span;

/// Spans closer to each other than this touch, in millimetres.
constexpr double kTouch = 1e-3;

/// Contacts closer than this to the vertex between two neighbours do not count, in millimetres.
constexpr double kJoint = 5e-3;

bool IsOn(const Span& span, const Point& p) {
  Point nearest;
  return span.Dist(p, nearest) < kTouch;
}

/// Two spans, and the vertices that they share as neighbours.
class Pair {
 public:
  Pair(const Outline& outline, std::size_t i, std::size_t j) : a_(outline[i]), b_(outline[j]) {
    const std::size_t last = outline.size() - 1;
    if (j == i + 1) joints_[count_++] = a_.p1;
    if (i == 0 && j == last) joints_[count_++] = a_.p0;
  }

  std::optional<Point> Meeting() const {
    // Spans along each other have no crossing, but an end of one is on the other.
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

/// Where two spans of a closed contour cross or touch, other than at the vertex between neighbours; nothing
/// when no two do.
std::optional<Point> MeetingWithItself(const Outline& outline) {
  // Sorted by their left ends, so that only spans that overlap in x are compared.
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

/// The smallest area of a contour, in square millimetres.
constexpr double kLeastArea = 1e-4;

std::string At(const Point& p) {
  return " at x " + NumberText(p.x) + ", y " + NumberText(p.y);
}

bool IsInReach(const Point& p) {
  return std::abs(p.x) <= kLargestCoordinate && std::abs(p.y) <= kLargestCoordinate;
}

/// The contour without spans that are no longer than a point, its last end put on its start.
KurveEx JoinSpans(const KurveEx& contour) {
  KurveEx joined;
  joined.Start(contour.Start());
  for (const Span& span : contour.spans) {
    if (!span.NullSpan) joined.Add(span, false);
  }
  if (joined.spans.empty()) return joined;
  Span last = joined.spans.back();
  last.p1 = joined.start;
  joined.RemoveLast();
  joined.Add(last, false);
  return joined;
}

Result<KurveEx> CheckAndJoin(const KurveEx& contour) {
  if (contour.spans.empty()) return Fault{"the contour has no spans"};
  if (contour.spans.size() > kMostSpans) {
    return Fault{"the contour has more than " + std::to_string(kMostSpans) + " spans"};
  }
  for (const Span& span : contour.spans) {
    if (!IsInReach(span.p0) || !IsInReach(span.p1)) {
      return Fault{"the contour has a point that is not within " + NumberText(kLargestCoordinate) + " mm"};
    }
  }
  if (!contour.Closed()) {
    return Fault{"the contour is open: it begins" + At(contour.Start()) + " and ends" + At(contour.End())};
  }
  return JoinSpans(contour);
}

Result<Outline> OutlineOf(const KurveEx& contour) {
  VANZET_TRY(auto joined, CheckAndJoin(contour));
  if (!(std::abs(joined.area) >= kLeastArea)) return Fault{"the contour has no area"};
  Outline outline = joined.area > 0 ? joined.ReversedCopy().spans : joined.spans;
  for (Span& span : outline) span.SetProperties();
  if (const auto meeting = MeetingWithItself(outline)) {
    return Fault{"the contour crosses or touches itself" + At(*meeting)};
  }
  return outline;
}

}  // namespace

Result<Outline> OutlineOf(const geometry::Kurve& contour) {
  try {
    return OutlineOf(KurveEx(contour));
  } catch (const wchar_t*) {
    return Fault{"the contour is invalid: the ends of an arc are not equally far from its centre"};
  }
}

}  // namespace vanzet::modeller

#include "modeller/outline.h"

#include <cmath>
#include <string>

#include "geometry/kurveex.h"
#include "modeller/meetings.h"
#include "modeller/number_text.h"

namespace vanzet::modeller {
namespace {

using geometry::KurveEx;
using geometry::Point;
using geometry::Span;

/// What is smaller bounds nothing, in square millimetres.
constexpr double kLeastArea = 1e-4;

std::string At(const Point& p) {
  return " at x " + NumberText(p.x) + ", y " + NumberText(p.y);
}

bool IsInReach(const Point& p) {
  return std::abs(p.x) <= kLargestCoordinate && std::abs(p.y) <= kLargestCoordinate;
}

/// The contour without spans that are no longer than a point, its last end put on its start.
KurveEx Joined(const KurveEx& contour) {
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

Result<KurveEx> Examined(const KurveEx& contour) {
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
  return Joined(contour);
}

Result<Outline> OutlineOf(const KurveEx& contour) {
  auto joined = Examined(contour);
  if (!joined) return joined.fault();
  if (!(std::abs(joined->area) >= kLeastArea)) return Fault{"the contour has no area"};
  Outline outline = joined->area > 0 ? joined->ReversedCopy().spans : joined->spans;
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
    return Fault{"the contour is torn: an arc's ends are not equally far from its centre"};
  }
}

}  // namespace vanzet::modeller

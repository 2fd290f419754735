#include "geometry/kurveex.h"

/// Places along the perimeter.
namespace geometry {

Point KurveEx::AtFraction(double f, int& spanNumber, double& localFraction) const {
  const double target = f * perim;
  double before = 0;
  for (std::size_t i = 0; i < spans.size(); ++i) {
    const Span span = ReadSpan(i);
    if (before + span.length > target) {
      spanNumber = static_cast<int>(i) + 1;
      localFraction = (target - before) / span.length;
      return span.Along(target - before);
    }
    before += span.length;
  }
  spanNumber = SpanCount();
  localFraction = spans.empty() ? 0.0 : 1.0;
  return spans.empty() ? INVALID_POINT : End();
}

int KurveEx::FindAlong(int spanNumber, const Point& p, double d, double& fraction) const {
  fraction = -1.0;
  Span span;
  if (!Get(spanNumber, span)) return -1;
  double rest = 0;
  span.NearClamped(p, rest);
  rest += d;
  // From here on `rest` counts from the start of the span that is looked at.
  bool mayWrap = Closed();
  while (!(0 <= rest && rest <= span.length)) {
    const bool forwards = rest > span.length;
    if (!forwards && !(rest < 0)) return -1;
    if (forwards) rest -= span.length;
    spanNumber += forwards ? 1 : -1;
    if (spanNumber < 1 || spanNumber > SpanCount()) {
      if (!mayWrap) return -1;
      mayWrap = false;
      spanNumber = forwards ? 1 : SpanCount();
    }
    Get(spanNumber, span);
    if (!forwards) rest += span.length;
  }
  fraction = span.length > 0 ? rest / span.length : 0.0;
  return spanNumber;
}

}  // namespace geometry

#include <cstdlib>

#include "geometry/kurveex.h"
#include "geometry/kurveex/winding.h"

namespace geometry {

int KurveEx::windingNumber(const Point& p) const {
  if (spans.empty()) throw L"No Spans inside!";
  int count = 0;
  Point from = Start();
  for (std::size_t i = 0; i < spans.size(); ++i) {
    const Span& span = spans[reversed ? spans.size() - 1 - i : i];
    if (span.dir != LINEAR) throw L"Arc span not allowed in windingNumber";
    const Point& to = reversed ? span.p0 : span.p1;
    count += WindingOfLine(from, to, p);
    from = to;
  }
  return count;
}

int KurveEx::Inside(const Point& p) const {
  return std::abs(windingNumber(p)) != 1 ? 1 : 0;
}

Point KurveEx::Near(const Point& p, int& spanNumber, double& t) const {
  double best = 1e100;
  Point nearest = INVALID_POINT;
  spanNumber = 0;
  t = 0.0;
  for (std::size_t i = 0; i < spans.size() && !(best < TOLERANCE); ++i) {
    double along = 0;
    const Point candidate = reversed ? ReadSpan(i).NearClamped(p, along) : spans[i].NearClamped(p, along);
    const double distance = Dist(p, candidate);
    if (distance < best) {
      best = distance;
      nearest = candidate;
      spanNumber = static_cast<int>(i) + 1;
      t = along;
    }
  }
  return nearest;
}

}  // namespace geometry

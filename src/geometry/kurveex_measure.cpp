#include <cstdlib>

#include "geometry/kurveex.h"

namespace geometry {
namespace {

/// What one line of a contour adds to the winding about `p`: 1 when it passes upwards on the right, -1 when
/// downwards. A line includes its lower end and not its upper one.
int Crossing(const Point& a, const Point& b, const Point& p) {
  const double side = (a.x - p.x) * (b.y - p.y) - (a.y - p.y) * (b.x - p.x);
  if (a.y <= p.y) return b.y > p.y && side > 0 ? 1 : 0;
  return b.y <= p.y && side < 0 ? -1 : 0;
}

}  // namespace

int KurveEx::windingNumber(const Point& p) const {
  if (spans.empty()) throw L"No Spans inside!";
  int count = 0;
  Point from = Start();
  for (std::size_t i = 0; i < spans.size(); ++i) {
    const Span& span = spans[reversed ? spans.size() - 1 - i : i];
    if (span.dir != LINEAR) throw L"Arc span not allowed in windingNumber";
    const Point& to = reversed ? span.p0 : span.p1;
    count += Crossing(from, to, p);
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

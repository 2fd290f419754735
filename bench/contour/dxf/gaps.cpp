#include "contour/dxf/gaps.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace vanzet::contour {
namespace {

using geometry::Point;

constexpr double kFarthest = 1;  // a wider gap is meant

bool IsOpen(const Piece& piece) {
  return piece.start.x != piece.End().x || piece.start.y != piece.End().y;
}

/// The smallest distance above `join` of two ends: each is compared with those before it, in the order of x,
/// that can still be nearer.
double NearestEnds(std::vector<Point> ends, double join) {
  double nearest = kFarthest;
  bool found = false;
  std::ranges::sort(ends, {}, &Point::x);
  std::multimap<double, Point> before;
  std::size_t oldest = 0;
  for (const Point& end : ends) {
    for (; end.x - ends[oldest].x > nearest; ++oldest) {
      const auto [first, last] = before.equal_range(ends[oldest].y);
      before.erase(
          std::find_if(first, last, [&](const auto& row) { return row.second.x == ends[oldest].x; }));
    }
    for (auto other = before.lower_bound(end.y - nearest);
         other != before.end() && other->first <= end.y + nearest; ++other) {
      const double distance = Dist(end, other->second);
      if (distance <= join || distance > nearest) continue;
      nearest = distance;
      found = true;
    }
    before.emplace(end.y, end);
  }
  return found ? nearest : 0;
}

}  // namespace

Gaps GapsOf(const std::vector<Piece>& joined, double join) {
  std::vector<Point> ends;
  for (const Piece& piece : joined) {
    if (IsOpen(piece)) ends.insert(ends.end(), {piece.start, piece.End()});
  }
  return {static_cast<int>(ends.size() / 2), NearestEnds(std::move(ends), join)};
}

double JoinFor(double gap) {
  const double power = std::pow(10, std::floor(std::log10(2 * gap)));
  for (const double step : {1.0, 2.0, 5.0}) {
    if (step * power >= 2 * gap * (1 - 1e-9)) return step * power;
  }
  return 10 * power;
}

}  // namespace vanzet::contour

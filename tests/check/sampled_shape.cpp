#include "sampled_shape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>

namespace vanzet::test {
namespace {

constexpr double kOnAxis = 1e-9;

double SquaredDistanceFromEdge(const PlanePoint& a, const PlanePoint& b, double x, double y) {
  const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
  const double share = square > 0 ? std::clamp(((x - a.x) * dx + (y - a.y) * dy) / square, 0.0, 1.0) : 0.0;
  const double awayX = a.x + dx * share - x, awayY = a.y + dy * share - y;
  return awayX * awayX + awayY * awayY;
}

bool IsIn(const Polygon& polygon, double x, double y) {
  bool isIn = false;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const PlanePoint &a = polygon[i], &b = polygon[(i + 1) % polygon.size()];
    if ((a.y > y) != (b.y > y) && x < a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y)) isIn = !isIn;
  }
  return isIn;
}

/// Of a turned shape the edges along the axis are not its border, and nothing is below.
double DepthInPolygon(const Polygon& polygon, double x, double y, bool isTurned) {
  double squared = std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const PlanePoint &a = polygon[i], &b = polygon[(i + 1) % polygon.size()];
    if (isTurned && a.y < kOnAxis && b.y < kOnAxis) continue;
    squared = std::min(squared, SquaredDistanceFromEdge(a, b, x, y));
  }
  const double distance = std::sqrt(squared);
  return IsIn(polygon, x, isTurned ? std::max(y, kOnAxis) : y) ? distance : -distance;
}

double DepthInArm(const SampledArm& arm, double x, double y, double z) {
  const double turn = arm.angle * std::numbers::pi / 180;
  const double along = y * std::cos(turn) + z * std::sin(turn),
               aside = z * std::cos(turn) - y * std::sin(turn);
  const double beyond = along - std::clamp(along, arm.foot, arm.head);
  return std::min({x - arm.fromX, arm.toX - x, arm.radius - std::hypot(beyond, aside)});
}

double DepthInSection(const SampledShape& shape, double x, double y, double z) {
  if (shape.thickness == 0) return DepthInPolygon(shape.section, x, std::sqrt(y * y + z * z), true);
  return std::min(DepthInPolygon(shape.section, x, y, false), shape.thickness / 2 - std::fabs(z));
}

using Place = std::array<double, 3>;
using Function = std::function<double(const Place&)>;

/// The ways to the neighbours of a place, in the plane or in space.
std::vector<Place> WaysIn(bool isFlat) {
  std::vector<Place> ways;
  for (const double x : {-1.0, 0.0, 1.0}) {
    for (const double y : {-1.0, 0.0, 1.0}) {
      for (const double z : {-1.0, 0.0, 1.0}) {
        if (!isFlat || z == 0) ways.push_back({x, y, z});
      }
    }
  }
  return ways;
}

/// Climbs from a place by steps that are halved where they do not help.
double ClimbFrom(Place place, const Function& depth, bool isFlat) {
  const std::vector<Place> ways = WaysIn(isFlat);
  double best = depth(place);
  for (double step = 0.5; step > 1e-4;) {
    const Place from = place;
    const double before = best;
    for (const Place& way : ways) {
      const Place next = {from[0] + way[0] * step, from[1] + way[1] * step, from[2] + way[2] * step};
      if (isFlat && next[1] < 0) continue;
      const double found = depth(next);
      if (found <= best) continue;
      best = found;
      place = next;
    }
    if (best <= before) step /= 2;
  }
  return best;
}

/// Places beside the border of a polygon, and at even distances in its box.
std::vector<Place> PlacesIn(const Polygon& polygon, const std::vector<double>& across) {
  constexpr int kAlong = 24, kEven = 24;
  std::vector<Place> places;
  PlanePoint low{1e9, 1e9}, high{-1e9, -1e9};
  const auto add = [&](double x, double y) {
    for (const double z : across) places.push_back({x, across.size() > 1 ? y : std::max(y, 0.0), z});
  };
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const PlanePoint &a = polygon[i], &b = polygon[(i + 1) % polygon.size()];
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    low = {std::min(low.x, a.x), std::min(low.y, a.y)};
    high = {std::max(high.x, a.x), std::max(high.y, a.y)};
    for (int k = 0; length > 0 && k <= kAlong; ++k) {
      const double share = (k + 0.5) / (kAlong + 1), x = a.x + (b.x - a.x) * share,
                   y = a.y + (b.y - a.y) * share;
      for (const double beside : {-1.0, -0.2, -0.03, 0.03, 0.2, 1.0})
        add(x - (b.y - a.y) / length * beside, y + (b.x - a.x) / length * beside);
    }
  }
  for (int i = 0; i <= kEven; ++i) {
    for (int j = 0; j <= kEven; ++j)
      add(low.x + (high.x - low.x) * i / kEven, low.y + (high.y - low.y) * j / kEven);
  }
  return places;
}

/// The places to begin at in a shape; of arms those in the upright ones.
std::vector<Place> PlacesOf(const SampledShape& shape, const std::vector<double>& across) {
  std::vector<Place> places = PlacesIn(shape.section, across);
  for (const SampledArm& arm : shape.arms) {
    if (arm.angle != 0) continue;
    const double foot = arm.foot - arm.radius;
    const Polygon outline = {{arm.fromX, foot}, {arm.toX, foot}, {arm.toX, arm.head}, {arm.fromX, arm.head}};
    for (const Place& each : PlacesIn(outline, across)) places.push_back(each);
  }
  return places;
}

/// How wide a shape is across the upright plane.
double WidthOf(const SampledShape& shape) {
  double width = shape.thickness;
  for (const SampledArm& arm : shape.arms) width = std::max(width, 2 * arm.radius);
  return width;
}

double DeepestOf(const SampledShape& a, const SampledShape& b, const Function& depth) {
  constexpr std::size_t kClimbs = 12;
  const double width = std::max(WidthOf(a), WidthOf(b));
  std::vector<double> across = {0};
  if (width > 0) across = {0, width * 0.25, width * 0.48};
  std::vector<Place> places = PlacesOf(a, across);
  for (const Place& each : PlacesOf(b, across)) places.push_back(each);
  std::vector<std::pair<double, Place>> found;
  for (const Place& each : places) found.emplace_back(depth(each), each);
  const std::size_t best = std::min(kClimbs, found.size());
  std::partial_sort(found.begin(), found.begin() + static_cast<std::ptrdiff_t>(best), found.end(),
                    std::greater());
  double deepest = -std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < best; ++i)
    deepest = std::max(deepest, ClimbFrom(found[i].second, depth, width == 0));
  return deepest;
}

}  // namespace

double DepthIn(const SampledShape& shape, double x, double y, double z) {
  double deepest = DepthInSection(shape, x, y, z);
  for (const SampledArm& arm : shape.arms) deepest = std::max(deepest, DepthInArm(arm, x, y, z));
  return deepest;
}

double DeepestCommon(const SampledShape& a, const SampledShape& b) {
  const auto [least, most] = std::ranges::minmax(a.section, {}, &PlanePoint::x);
  const auto [otherLeast, otherMost] = std::ranges::minmax(b.section, {}, &PlanePoint::x);
  if (least.x >= otherMost.x || otherLeast.x >= most.x) return -1;
  return DeepestOf(a, b, [&](const Place& place) {
    const auto& [x, y, z] = place;
    return std::min(DepthIn(a, x, y, z), DepthIn(b, x, y, z));
  });
}

double DeepestBeyond(const SampledShape& a, const SampledShape& b) {
  return DeepestOf(a, b, [&](const Place& place) {
    const auto& [x, y, z] = place;
    return std::min(DepthIn(a, x, y, z), -DepthIn(b, x, y, z));
  });
}

double NearestOf(const SampledShape& a, const SampledShape& b) {
  constexpr int kAlong = 200;
  double nearest = std::numeric_limits<double>::infinity();
  const auto look = [&](const SampledShape& from, const SampledShape& to) {
    const Polygon& polygon = from.section;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
      const PlanePoint &p = polygon[i], &q = polygon[(i + 1) % polygon.size()];
      if (p.y < kOnAxis && q.y < kOnAxis) continue;
      for (int k = 0; k <= kAlong; ++k) {
        const double share = static_cast<double>(k) / kAlong;
        nearest = std::min(nearest, std::fabs(DepthInPolygon(to.section, p.x + (q.x - p.x) * share,
                                                             p.y + (q.y - p.y) * share, true)));
      }
    }
  };
  look(a, b);
  look(b, a);
  return nearest;
}

}  // namespace vanzet::test

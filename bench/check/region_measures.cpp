#include "check/region_measures.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

#include "section/section.h"

namespace vanzet::check {
namespace {

using geometry::Box;
using geometry::KurveEx;
using geometry::Point;
using geometry::Region;
using geometry::RegionLoop;
using geometry::RegionSpan;

constexpr double kAtAxis = 1e-6;  // millimetres

/// The region below the axis.
Region Mirrored(const Region& region) {
  const auto mirror = [](const Point& point) { return Point(point.x, -point.y); };
  Region mirrored;
  for (const RegionLoop& loop : region.loops) {
    RegionLoop& turned = mirrored.loops.emplace_back();
    for (const RegionSpan& span : loop.spans) {
      RegionSpan& each = turned.spans.emplace_back(span);
      each.p0 = mirror(span.p1);
      each.p1 = mirror(span.p0);
      each.pc = mirror(span.pc);
    }
    std::ranges::reverse(turned.spans);
  }
  return mirrored;
}

/// The region without a border of that width.
Region Inner(const Region& region, double border) {
  return geometry::OffsetRegion(region, border);
}

/// The middle of the largest loop of what is left of a region.
Point MiddleOf(const Region& region) {
  Box box;
  for (const RegionSpan& span : region.loops.front().spans) box.Insert(span.p0);
  return {(box.min.x + box.max.x) / 2, std::fabs(box.min.y + box.max.y) / 2};
}

/// The integral of y^2 dx along an arc: y is cy + r sin(t), dx is -r sin(t) dt.
double SquareAlongArc(const RegionSpan& arc) {
  const double r = arc.Radius(), cy = arc.pc.y;
  const double from = std::atan2(arc.p0.y - cy, arc.p0.x - arc.pc.x);
  double to = std::atan2(arc.p1.y - cy, arc.p1.x - arc.pc.x);
  constexpr double kTurn = 2 * std::numbers::pi;
  if (arc.dir == geometry::ACW && to <= from) to += kTurn;
  if (arc.dir != geometry::ACW && to >= from) to -= kTurn;
  const auto integral = [&](double t) {
    const double c = std::cos(t);
    return cy * cy * -c + 2 * cy * r * (t / 2 - std::sin(2 * t) / 4) + r * r * (c * c * c / 3 - c);
  };
  return -r * (integral(to) - integral(from));
}

/// The same along a line.
double SquareAlongLine(const RegionSpan& line) {
  const double a = line.p0.y, b = line.p1.y;
  return (line.p1.x - line.p0.x) * (a * a + a * b + b * b) / 3;
}

}  // namespace

std::optional<Thickness> ThickestOf(const Region& region, double least) {
  if (region.loops.empty()) return {};
  const bool isAtAxis = section::BoxOf(region).min.y < kAtAxis;
  const Region whole = isAtAxis ? geometry::Unite(region, Mirrored(region)) : region;
  double low = least / 2;
  Region left = Inner(whole, low);
  if (left.loops.empty()) return {};
  double high = low;
  const auto holds = [&](double border) {
    Region inner = Inner(whole, border);
    if (inner.loops.empty()) return false;
    left = std::move(inner);
    low = border;
    return true;
  };
  do high *= 2;
  while (holds(high));
  while (high - low > low / 200) {
    const double middle = (low + high) / 2;
    if (!holds(middle)) high = middle;
  }
  return Thickness{low + high, MiddleOf(left)};
}

double SpunVolume(const Region& region) {
  double sum = 0;
  for (const RegionLoop& loop : region.loops) {
    for (const RegionSpan& span : loop.spans)
      sum += span.dir == geometry::LINEAR ? SquareAlongLine(span) : SquareAlongArc(span);
  }
  return -std::numbers::pi * sum;
}

Region Between(const Region& region, double from, double to) {
  const Box box = section::BoxOf(region);
  if (region.loops.empty() || from >= to || to <= box.min.x || from >= box.max.x) return {};
  constexpr double kBeyond = 1;
  const double bottom = std::min(box.min.y, 0.0) - kBeyond, top = box.max.y + kBeyond;
  KurveEx strip;
  strip.Start(Point(from, bottom));
  strip.Add(to, bottom);
  strip.Add(to, top);
  strip.Add(from, top);
  strip.Add(from, bottom);
  return geometry::Intersect(region, geometry::Clean(strip));
}

double DistanceBetween(const Region& a, const Region& b) {
  double nearest = std::numeric_limits<double>::infinity();
  for (const RegionLoop& one : a.loops) {
    for (const RegionLoop& other : b.loops) {
      nearest =
          std::min(nearest, geometry::NearestDistance(geometry::ContourOf(one), geometry::ContourOf(other)));
    }
  }
  return nearest;
}

}  // namespace vanzet::check

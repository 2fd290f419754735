#include "section/hatch.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace vanzet::section {
namespace {

using geometry::Point;
using geometry::RegionSpan;

constexpr double kChord = 0.02;      // millimetres between an arc and its chords
constexpr double kMostLines = 4000;  // of one region

/// Turns the plane, so that the lines run along x.
class Turn {
 public:
  explicit Turn(double degrees)
      : cos_(std::cos(degrees * geometry::PI / 180)), sin_(std::sin(degrees * geometry::PI / 180)) {}

  Point There(const Point& p) const { return {p.x * cos_ + p.y * sin_, p.y * cos_ - p.x * sin_}; }
  Point Back(const Point& p) const { return {p.x * cos_ - p.y * sin_, p.x * sin_ + p.y * cos_}; }

 private:
  double cos_, sin_;
};

/// The ends of the chords of a span after its start.
std::vector<Point> ChordsOf(const RegionSpan& span) {
  if (span.dir == geometry::LINEAR) return {span.p1};
  const geometry::Vector2d from(span.pc, span.p0), to(span.pc, span.p1);
  const double start = std::atan2(from.dy, from.dx), radius = span.Radius();
  double sweep = std::atan2(to.dy, to.dx) - start;
  if (span.dir == geometry::ACW && sweep <= 0) sweep += 2 * geometry::PI;
  if (span.dir == geometry::CW && sweep >= 0) sweep -= 2 * geometry::PI;
  const double step = radius > kChord ? 2 * std::acos(1 - kChord / radius) : geometry::PI / 2;
  const int count = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / step)));
  std::vector<Point> ends;
  for (int i = 1; i < count; ++i) {
    const double angle = start + sweep * i / count;
    ends.emplace_back(span.pc.x + radius * std::cos(angle), span.pc.y + radius * std::sin(angle));
  }
  ends.push_back(span.p1);
  return ends;
}

/// The places where the lines, numbered by their heights, cross the boundary.
using Crossings = std::map<int, std::vector<double>>;

void Cross(const Point& a, const Point& b, double distance, Crossings& crossings) {
  const Point &low = a.y < b.y ? a : b, &high = a.y < b.y ? b : a;
  // A line through a vertex crosses one of the two edges: each has its lower end only.
  for (int line = static_cast<int>(std::ceil(low.y / distance)); line * distance < high.y; ++line) {
    const double part = (line * distance - low.y) / (high.y - low.y);
    crossings[line].push_back(low.x + (high.x - low.x) * part);
  }
}

}  // namespace

std::vector<Line> HatchOf(const geometry::Region& region, const HatchStyle& style) {
  const Turn turn(style.degrees);
  const geometry::Box box = BoxOf(region);
  if (box.min.x > box.max.x) return {};
  const double distance = std::max(style.distance, (box.Width() + box.Height()) / kMostLines);
  Crossings crossings;
  for (const geometry::RegionLoop& loop : region.loops) {
    for (const RegionSpan& span : loop.spans) {
      Point last = turn.There(span.p0);
      for (const Point& end : ChordsOf(span)) {
        const Point next = turn.There(end);
        Cross(last, next, distance, crossings);
        last = next;
      }
    }
  }
  std::vector<Line> lines;
  for (auto& [line, places] : crossings) {
    std::ranges::sort(places);
    const double y = line * distance;
    for (std::size_t i = 0; i + 1 < places.size(); i += 2) {
      lines.push_back({turn.Back({places[i], y}), turn.Back({places[i + 1], y})});
    }
  }
  return lines;
}

}  // namespace vanzet::section

#include "section/svg_path.h"

#include <cmath>

#include "base/number_text.h"

namespace vanzet::section {
namespace {

using geometry::Point;
using geometry::Region;
using geometry::RegionSpan;

constexpr int kDigits = 10;

bool IsOnAxis(const RegionSpan& span) {
  constexpr double kAxis = 1e-6;
  return span.dir == geometry::LINEAR && std::abs(span.p0.y) < kAxis && std::abs(span.p1.y) < kAxis;
}

/// The part of a path that draws a span, after its start.
std::string StepOf(const RegionSpan& span) {
  if (span.dir == geometry::LINEAR) return "L" + SvgPoint(span.p1);
  const geometry::Vector2d from(span.pc, span.p0), to(span.pc, span.p1);
  const double side = (from.dx * to.dy - from.dy * to.dx) * span.dir;
  const std::string radius = SvgNumber(span.Radius());
  return "A" + radius + " " + radius + " 0 " + (side < 0 ? "1 " : "0 ") +
         (span.dir == geometry::ACW ? "1 " : "0 ") + SvgPoint(span.p1);
}

}  // namespace

std::string SvgNumber(double value) {
  return NumberText(value, kDigits);
}

std::string SvgPoint(const Point& point) {
  return SvgNumber(point.x) + " " + SvgNumber(point.y);
}

std::string SvgAttribute(std::string_view name, const std::string& value) {
  return " " + std::string(name) + "=\"" + value + "\"";
}

std::string SvgArea(const Region& region) {
  std::string path;
  for (const geometry::RegionLoop& loop : region.loops) {
    path += (path.empty() ? "M" : " M") + SvgPoint(loop.spans.front().p0);
    for (const RegionSpan& span : loop.spans) path += " " + StepOf(span);
    path += " Z";
  }
  return path;
}

std::string SvgOutline(const Region& region) {
  std::string path;
  const auto add = [&](const std::vector<RegionSpan>& spans) {
    bool isDown = false;
    for (const RegionSpan& span : spans) {
      if (!IsOnAxis(span)) {
        if (!isDown) path += (path.empty() ? "M" : " M") + SvgPoint(span.p0);
        path += " " + StepOf(span);
      }
      isDown = !IsOnAxis(span);
    }
  };
  for (const geometry::RegionLoop& loop : region.loops) add(loop.spans);
  for (const RegionSpan& span : region.loose) add({span});
  return path;
}

}  // namespace vanzet::section

#include "contour/region.h"

#include <algorithm>
#include <utility>

#include <nlohmann/json.hpp>

#include "contour/builder.h"

namespace vanzet::contour {
namespace {

using geometry::Region;
using geometry::RegionLoop;
using geometry::RegionSpan;
using Json = nlohmann::ordered_json;

Json JsonOf(const RegionSpan& span) {
  Json json = {{"dir", span.dir}, {"x0", span.p0.x}, {"y0", span.p0.y}, {"x1", span.p1.x}, {"y1", span.p1.y}};
  if (span.dir == geometry::LINEAR) return json;
  json["cx"] = span.pc.x;
  json["cy"] = span.pc.y;
  return json;
}

Json JsonOf(const RegionLoop& loop) {
  Json spans = Json::array();
  for (const RegionSpan& span : loop.spans) spans.push_back(JsonOf(span));
  return {{"area", loop.Area()},
          {"perimeter", loop.Perimeter()},
          {"hole", loop.IsHole()},
          {"spans", std::move(spans)}};
}

/// The contours as loops, which need not close.
Region LoopsOf(const Contours& contours) {
  Region drawn;
  for (const Contour& contour : contours) drawn.loops.push_back({SpansOf(contour)});
  return drawn;
}

/// Adds the line that is missing where the ends differ by less than the library's tolerance.
void Close(RegionLoop& loop) {
  const RegionSpan gap{geometry::LINEAR, loop.spans.back().p1, loop.spans.front().p0, {}};
  if (Dist(gap.p0, gap.p1) > 0) loop.spans.push_back(gap);
}

/// The loop as a contour, with its spans as they are when the library has a line for an arc of it.
Contour NumberedLoop(int number, const RegionLoop& loop) {
  Contour contour{number, geometry::ContourOf(loop)};
  const auto isArc = [](const auto& span) { return span.dir != geometry::LINEAR; };
  if (std::ranges::count_if(contour.curve.spans, isArc) != std::ranges::count_if(loop.spans, isArc)) {
    contour.drawn = loop.spans;
  }
  return contour;
}

}  // namespace

Result<Region> Checked(Region region) {
  if (!region.ok) return Fault{"the region cannot be computed: too many spans cross or nearly coincide"};
  return region;
}

Result<Region> RegionOf(const Contours& contours) {
  for (const Contour& contour : contours) {
    if (!contour.curve.Closed()) return Fault{NameOf(contour) + " is open: a region needs closed contours"};
  }
  Region drawn = LoopsOf(contours);
  std::ranges::for_each(drawn.loops, Close);
  return Checked(Clean(drawn, geometry::FillRule::EvenOdd));
}

Result<Region> Thicken(const Contours& contours, double distance, geometry::PathEnd end,
                       const geometry::RegionOffset& options) {
  return Checked(geometry::Thicken(LoopsOf(contours), distance, end, options));
}

Contours ContoursOf(const Region& region) {
  Contours contours;
  for (const RegionLoop& loop : region.loops) {
    contours.push_back(NumberedLoop(static_cast<int>(contours.size()) + 1, loop));
  }
  return contours;
}

Json JsonForm(const Region& region) {
  Json loops = Json::array();
  for (const RegionLoop& loop : region.loops) loops.push_back(JsonOf(loop));
  return {{"loops", std::move(loops)}, {"area", region.Area()}, {"perimeter", region.Perimeter()}};
}

}  // namespace vanzet::contour

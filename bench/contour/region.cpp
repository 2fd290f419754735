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

}  // namespace

Result<Region> Checked(Region region) {
  if (!region.ok) return Fault{"the region cannot be computed: too many spans nearly coincide"};
  return region;
}

Result<Region> RegionOf(const Contours& contours) {
  std::vector<geometry::KurveEx> curves;
  for (const Contour& contour : contours) {
    if (!contour.curve.Closed()) return Fault{NameOf(contour) + " is open: a region needs closed contours"};
    curves.push_back(contour.curve);
  }
  return Checked(Clean(curves));
}

Result<Region> Thicken(const Contours& contours, double distance, geometry::PathEnd end,
                       const geometry::RegionOffset& options) {
  std::vector<geometry::KurveEx> curves;
  for (const Contour& contour : contours) curves.push_back(contour.curve);
  return Checked(geometry::Thicken(curves, distance, end, options));
}

Contours ContoursOf(const Region& region) {
  Contours contours;
  for (const RegionLoop& loop : region.loops) {
    contours.push_back({static_cast<int>(contours.size()) + 1, geometry::ContourOf(loop)});
  }
  return contours;
}

Json JsonForm(const Region& region) {
  Json loops = Json::array();
  for (const RegionLoop& loop : region.loops) loops.push_back(JsonOf(loop));
  return {{"loops", std::move(loops)}, {"area", region.Area()}, {"perimeter", region.Perimeter()}};
}

}  // namespace vanzet::contour

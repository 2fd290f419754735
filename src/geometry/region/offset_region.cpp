#include <algorithm>
#include <cmath>

#include "geometry/region/offset_chain.h"

namespace geometry {
namespace {

using region::ChainLink;
using region::EndForm;
using region::OffsetChain;
using region::Sketch;
using region::Turns;

bool IsPositive(const Turns& turns) {
  return turns[0] > 0;
}

/// The spans that have a length.
std::vector<ChainLink> LinksOf(const Sketch& sketch, const std::vector<RegionSpan>& spans) {
  std::vector<ChainLink> links;
  links.reserve(spans.size());
  for (const RegionSpan& span : spans) {
    const region::Shape shape = sketch.ShapeOf(span);
    if (shape.chord > 0) links.push_back({shape, span});
  }
  return links;
}

RegionSpan Reversed(RegionSpan span) {
  std::swap(span.p0, span.p1);
  span.dir = -span.dir;
  return span;
}

Region Failed() {
  Region failed;
  failed.ok = false;
  return failed;
}

}  // namespace

Region OffsetRegion(const Region& region, double distance, const RegionOffset& options) {
  if (!std::isfinite(distance)) return Failed();
  Sketch sketch({&region});
  if (!sketch.IsSound()) return Failed();
  OffsetChain chain(sketch, distance, options);
  if (distance == 0) sketch.AddLoops(region, {1, 0});
  for (const RegionLoop& loop : region.loops) {
    if (distance != 0) chain.Add(LinksOf(sketch, loop.spans));
  }
  for (const RegionSpan& span : region.loose) {
    if (distance < 0) chain.Add(LinksOf(sketch, {span, Reversed(span)}));
  }
  return FacesOf(sketch, IsPositive);
}

}  // namespace geometry

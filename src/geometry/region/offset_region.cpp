#include <algorithm>
#include <cmath>

#include "geometry/region/offset_chain.h"

namespace geometry {
namespace {

using region::OffsetChain;
using region::Sketch;

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
  if (distance == 0) return PositiveFacesOf(sketch, region.loops, sketch.Resolution(0));
  OffsetChain chain(sketch, distance, options);
  std::vector<RegionLoop> moved;
  for (const RegionLoop& loop : region.loops) moved.push_back(chain.Around(loop.spans));
  for (const RegionSpan& span : region.loose) {
    if (distance < 0) moved.push_back(chain.Around({span, Reversed(span)}));
  }
  return PositiveFacesOf(sketch, std::move(moved), chain.Resolution());
}

}  // namespace geometry

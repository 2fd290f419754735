#include <cmath>
#include <cstdlib>

#include "fuzz/fuzz.h"
#include "geometry/contour_text.h"
#include "geometry/region.h"

namespace {

using namespace geometry;
using namespace geometry::testing;

/// Longer ones are for the benchmarks.
constexpr std::size_t kLongest = 4000;

/// A region is refused or sound: its loops are closed, and each has an area.
void Check(const Region& region) {
  if (!region.ok && !region.loops.empty()) std::abort();
  for (const RegionLoop& loop : region.loops) {
    if (!(std::abs(loop.Area()) > 0) || !(loop.Perimeter() > 0)) std::abort();
    const RegionSpan* before = &loop.spans.back();
    for (const RegionSpan& span : loop.spans) {
      if (span.p0.x != before->p1.x || span.p0.y != before->p1.y) std::abort();
      before = &span;
    }
  }
}

/// All operations for one contour and one distance.
void Work(const KurveEx& contour, double distance) {
  const Region region = Clean(contour);
  Check(region);
  Check(Clean(contour, FillRule::NonZero));
  Check(Thicken(contour, std::abs(distance), PathEnd::Square));
  for (const RegionPath& path : OffsetPath(contour, distance)) {
    if (path.spans.empty()) std::abort();
  }
  for (const Corner corner : {Corner::Round, Corner::Miter, Corner::Chamfer}) {
    const Region made = OffsetRegion(region, distance, {corner});
    Check(made);
    Check(Unite(region, made));
    Check(Subtract(region, made));
    Check(Intersect(region, made));
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > kLongest) return 0;
  const std::string text = vanzet::fuzz::TextOf(data, size);
  SetUnits(0);
  for (const double distance : DistancesOf(text)) {
    try {
      Work(ContourOf(text), distance);
    } catch (const wchar_t*) {
      // A contour of the library refuses arcs whose ends disagree.
    }
  }
  return 0;
}

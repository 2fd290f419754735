#pragma once

#include <vector>

#include "geometry/region.h"
#include "geometry/region/curve.h"

namespace geometry::region {

class SeparateLoops;
class Sketch;

/// Spans that follow each other along a loop and meet nothing but what continues them at both ends: an edge
/// as a whole for the arrangement.
struct Run {
  Vector2d from, to;
  const RegionLoop* loop = nullptr;
  std::size_t firstSpan = 0, spanCount = 0;    ///< over the loop's end to its beginning, if need be
  std::size_t firstCurve = 0, curveCount = 0;  ///< in `Runs::curves`
};

struct Runs {
  std::vector<Run> list;
  std::vector<Curve> curves;
};

/// The runs of spans that meet nothing, and the others as strokes of the sketch.
Runs AddLoopsInRuns(Sketch& sketch, const std::vector<RegionLoop>& loops, const SeparateLoops& separate);

}  // namespace geometry::region

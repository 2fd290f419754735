#pragma once

#include "geometry/matrix.h"
#include "geometry/span.h"
#include "geometry/units.h"

/// All that the geometry library keeps for the process; there is nothing else:
///
///   - the unit, the tolerances and the message sink, geometry/units.h;
///   - the host of stored matrices, geometry/matrix.h;
///   - the pair of spans and the path below.
///
/// Every part is initialised by constants, before any code of the process runs.
namespace geometry {

/// Scratch of the offset that works on pairs of spans; its content means nothing outside that call.
extern SpanPair scratchSpanPair;

/// Where contours go that could not be equalised, geometry/equalise.h; null: to the default place.
extern std::unique_ptr<const std::wstring> diagnosticPath;

}  // namespace geometry

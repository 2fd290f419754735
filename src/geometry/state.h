#pragma once

#include "geometry/matrix.h"
#include "geometry/span.h"
#include "geometry/units.h"

/// The complete list of what the geometry library keeps for the process:
///
///   - the unit, the tolerances and the message sink, geometry/units.h;
///   - the host of stored matrices, geometry/matrix.h;
///   - the pair of spans and the path below.
///
/// Every part is initialised by constants, before any code of the process runs. The library is used from one
/// thread.
namespace geometry {

/// Scratch memory of the offset that works on pairs of spans; its content means nothing outside of that call.
extern SpanPair scratchSpanPair;

/// The path for contours that could not be equalised, geometry/equalise.h; null for the default path.
extern std::unique_ptr<const std::wstring> diagnosticPath;

}  // namespace geometry

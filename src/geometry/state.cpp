#include "geometry/state.h"

namespace geometry {

constinit SpanPair scratchSpanPair;
constinit std::wstring diagnosticPath;

}  // namespace geometry

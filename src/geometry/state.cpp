#include "geometry/state.h"

namespace geometry {

constinit SpanPair scratchSpanPair;

}  // namespace geometry

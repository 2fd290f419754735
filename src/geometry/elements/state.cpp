#include "geometry/state.h"

namespace geometry {

constinit SpanPair scratchSpanPair;
constinit std::unique_ptr<const std::wstring> diagnosticPath;

}  // namespace geometry

#pragma once

#include <functional>

#include "geometry/offset.h"
#include "geometry/offset/span_chain.h"
#include "geometry/offset/vertex_chain.h"

/// The removal of loops, with a choice of the search for crossings.
namespace geometry {

/// `Indexed` skips spans that are excluded by their boxes; `Plain` compares every span, and tests compare the
/// index with it. The results are the same to the last bit, as long as the boxes of all spans are those of
/// `SetProperties`.
enum class Search { Indexed, Plain };

/// Reads the spans of a source. It is called once, and not at all for a contour without crossings.
using SourceSpans = std::function<const std::vector<Span>&()>;

/// `EliminateLoops` of a working contour, in its own storage; its totals are summed up again.
KurveEx EliminateLoops(KurveEx&& raw, const std::vector<Span>& source, double off, int& code, Search search);
/// The same of a raw offset as it was made, by the index.
KurveEx EliminateLoops(RawContour&& raw, const std::vector<Span>& source, double off, int& code);
/// The contour as it is, with its totals.
KurveEx WithTotals(RawContour&& raw);
/// `EliminateLoops` of a compact contour; its spans and those of the source are untransformed.
Kurve EliminateLoops(const Kurve& raw, const SourceSpans& source, double off, int& code, Search search);

/// The same of a raw offset as it was made, in its own storage; `raw.area` is reset when something is cut.
/// The source counts as it is stored.
Kurve EliminateLoops(RawVertices& raw, const Kurve& source, double off, int& code);

/// The spans of a compact contour with their properties, untransformed, in the order of reading.
std::vector<Span> SpansOf(const Kurve& k);

}  // namespace geometry

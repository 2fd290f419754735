#pragma once

#include <functional>

#include "geometry/offset.h"

/// The removal of loops, with a choice of how spans are looked for.
namespace geometry {

/// `Indexed` passes over spans whose boxes exclude them; `Plain` asks every span and is what the index is
/// measured by. The results are the same to the last bit, as long as the boxes of all spans are what
/// `SetProperties` made them.
enum class Search { Indexed, Plain };

/// Reads the spans of a source. It is asked once, and not at all for a contour without crossings.
using SourceSpans = std::function<const std::vector<Span>&()>;

/// As `EliminateLoops`. The contour is worked on in its own storage; its totals are made anew.
KurveEx EliminateLoops(KurveEx&& raw, const std::vector<Span>& source, double off, int& code, Search search);
/// Of a compact contour; its spans and those of the source untransformed.
Kurve EliminateLoops(const Kurve& raw, const SourceSpans& source, double off, int& code, Search search);

/// The spans of a compact contour with their properties, untransformed, in reading order.
std::vector<Span> SpansOf(const Kurve& k);

}  // namespace geometry

#pragma once

#include "geometry/kurveex.h"

/// Offsets of contours, and the removal of their loops.
///
/// A contour is offset in two steps. First each span is moved sideways, and neighbours are joined: at inward
/// corners by their crossing, at the others by a roll arc about the source's vertex. Then the loops of this
/// raw offset are cut out. `Kurve::OffsetMethod1` and `KurveEx::Offset` do both. docs/contours/offset.md
/// shows the steps in pictures.
///
/// Codes   0 good; 1 the contour has a differential scale; 2 it collapsed, or its loops could not be removed;
///         3 it turned inside out. With 2 and 3 the result is the contour as far as it was made
/// Limits  src/geometry/README.md lists what the steps do not promise
namespace geometry {

/// Cuts the loops out of a raw offset: a span ends at its first crossing with a later span that is not nearer
/// to `source` than |off|, and the contour continues from there along the later span.
///
/// `code` is 2 when all crossings of a span are too near; the contour then ends before that span. As long as
/// a span has no crossing it is compared with the next 51 spans, in a `Kurve` with the next 26.
///
/// The form for `Kurve` takes the contours and `off` untransformed; the result has the matrix of `raw`. Spans
/// shorter than `TOLERANCE` stay in a `KurveEx` and are dropped from a `Kurve`.
KurveEx EliminateLoops(const KurveEx& raw, const KurveEx& source, double off, int& code);
Kurve EliminateLoops(const Kurve& raw, const Kurve& source, double off, int& code);

}  // namespace geometry

#pragma once

#include "geometry/kurveex.h"

/// Offsets of contours, and what is left of them when their loops are gone.
///
/// A contour is offset in two steps. First each span is moved sideways, and neighbours are joined, at inward
/// corners by their crossing, at the others by a roll arc about the source vertex. Then the loops of this raw
/// contour are cut out. `Kurve::OffsetMethod1` and `KurveEx::Offset` do both.
///
/// Codes   0 good; 1 the contour has a differential scale; 2 it collapsed, or its loops could not be removed;
///         3 it turned inside out. With 2 and 3 the contour is what had been made so far
namespace geometry {

/// Cuts the loops out of a raw offset: a span ends at its first crossing with a later span that is not nearer
/// to `source` than |off|, and the contour goes on from there.
///
/// `code` is 2 when a span has crossings but only such that are too near; the contour ends before that span
/// then. As long as a span has no crossing it is compared with its next 51 spans, of a `Kurve` 26.
///
/// The form for `Kurve` looks at the contours untransformed, and so at `off`; the result has the matrix of
/// `raw`. Spans shorter than `TOLERANCE` stay in a `KurveEx` and are dropped from a `Kurve`.
KurveEx EliminateLoops(const KurveEx& raw, const KurveEx& source, double off, int& code);
Kurve EliminateLoops(const Kurve& raw, const Kurve& source, double off, int& code);

}  // namespace geometry

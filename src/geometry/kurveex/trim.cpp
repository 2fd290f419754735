#include "geometry/trim.h"

#include <cmath>

#include "geometry/kurveex/contour_place.h"

namespace geometry {
namespace {

/// The contour, to be read in that sense.
KurveEx Turned(KurveEx k, bool reversed) {
  k.Reverse(reversed);
  return k;
}

bool IsTrimmable(double d, const KurveEx& k) {
  return !k.spans.empty() && !k.Closed() && LessOrNear(0.0, d, TIGHT_TOLERANCE) &&
         LessOrNear(d, k.perim, TIGHT_TOLERANCE) && !LessOrNear(k.perim, 0.0, TIGHT_TOLERANCE);
}

/// The contour up to a fraction of its length; all of it when rounding puts that behind the end.
KurveEx UpTo(double fraction, const KurveEx& k) {
  KurveEx cut;
  KurveEx partner;
  const int spans = SectionByFraction(k, k, fraction, cut, partner);
  while (spans > 0 && cut.SpanCount() > spans) cut.RemoveLast();
  return cut;
}

}  // namespace

KurveEx ExtendStart(double d, const KurveEx& k) {
  KurveEx extended = Turned(k, false);
  Span first;
  if (extended.spans.empty()) return extended;
  extended.FirstNonNull(first);
  const Point start = extended.Start();
  extended.AddAtStart(Span(start - first.vs * d, start, UNMARKED), true);
  return Turned(extended, k.reversed);
}

KurveEx ExtendEnd(double d, const KurveEx& k) {
  KurveEx extended = Turned(k, false);
  Span last;
  if (extended.spans.empty()) return extended;
  extended.LastNonNull(last);
  const Point end = extended.End();
  extended.Add(Span(end, end + last.ve * d), true);
  return Turned(extended, k.reversed);
}

KurveEx TrimStart(double d, const KurveEx& k) {
  if (!IsTrimmable(d, k)) return Turned(KurveEx(), k.reversed);
  const KurveEx stored = Turned(k, false);
  ContourPlace from;
  from.point = stored.AtFraction(d / stored.perim, from.span, from.along);
  from.along *= stored.spans[static_cast<std::size_t>(from.span) - 1].length;
  const ContourPlace to{stored.SpanCount(), stored.spans.back().length, stored.End()};
  return Turned(SectionBetween(stored, from, to), k.reversed);
}

KurveEx TrimEnd(double d, const KurveEx& k) {
  if (!IsTrimmable(d, k)) return Turned(KurveEx(), k.reversed);
  return Turned(UpTo(1.0 - d / k.perim, Turned(k, false)), k.reversed);
}

KurveEx TrimTo(double d, const KurveEx& k) {
  const double kept = k.perim - std::fabs(d);
  if (LessOrNear(kept, 0.0, TIGHT_TOLERANCE)) return Turned(KurveEx(), k.reversed);
  KurveEx trimmed;
  double before = 0;
  for (Span span : k.spans) {
    const bool isLast = before + span.length >= kept;
    if (isLast) span.p1 = span.Along(kept - before);
    trimmed.Add(span, true);
    if (isLast) break;
    before += span.length;
  }
  return Turned(trimmed, k.reversed);
}

KurveEx TrimEndMirrored(double d, const KurveEx& k) {
  return TrimEnd(d, k.ReversedCopy()).ReversedCopy();
}

bool ExtendAt(const KurveEx& k, const Point& point, double d, int direction, KurveEx& out) {
  if (k.spans.empty() || !LessOrNear(d, k.perim, TIGHT_TOLERANCE)) return false;
  const KurveEx stored = Turned(k, false);
  if (!k.Closed()) {
    const bool atStart = point == stored.Start();
    if (!atStart && !(point == stored.End())) return false;
    out = atStart ? TrimStart(d, k) : TrimEnd(d, k);
    return true;
  }
  if (std::abs(direction) != 1 || !LessOrNear(0.0, d, TIGHT_TOLERANCE)) return false;
  int span = 0;
  double along = 0;
  const Point seam = stored.Near(point, span, along);
  KurveEx opened;
  if (!stored.ReplaceStart(span, seam, opened)) return false;
  const KurveEx trimmed = direction > 0 ? TrimTo(d, opened.ReversedCopy()).ReversedCopy() : TrimTo(d, opened);
  out = Turned(trimmed, k.reversed);
  return true;
}

}  // namespace geometry

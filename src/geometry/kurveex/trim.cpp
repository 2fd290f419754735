#include <algorithm>
#include <cmath>

#include "geometry/trim.h"

namespace geometry {
namespace {

/// A place on a contour, in reading order.
struct ContourPlace {
  int span = 0;  ///< from 1
  double along = 0;
  Point point;
};

/// The contour, read forwards or reversed.
KurveEx ReadAs(KurveEx k, bool reversed) {
  k.Reverse(reversed);
  return k;
}

bool IsTrimmable(double d, const KurveEx& k) {
  return !k.spans.empty() && !k.Closed() && LessOrNear(0.0, d, TIGHT_TOLERANCE) &&
         LessOrNear(d, k.perim, TIGHT_TOLERANCE) && !LessOrNear(k.perim, 0.0, TIGHT_TOLERANCE);
}

/// The contour up to a fraction of its length; the whole contour when rounding puts that after the end.
KurveEx UpTo(double fraction, const KurveEx& k) {
  KurveEx cut;
  KurveEx partner;
  const int spans = SectionByFraction(k, k, fraction, cut, partner);
  while (spans > 0 && cut.SpanCount() > spans) cut.RemoveLast();
  return cut;
}

ContourPlace PlaceOf(const KurveEx& k, const Point& p) {
  ContourPlace place;
  place.point = k.Near(p, place.span, place.along);
  return place;
}

Span SpanOf(const KurveEx& k, int number) {
  Span span;
  k.Get(number, span);
  return span;
}

/// The span from one point of it to another. An arc's centre is moved onto the bisector by `Add`.
Span Between(Span span, const Point& from, const Point& to) {
  span.p0 = from;
  span.p1 = to;
  return span;
}

void AddWhole(const KurveEx& k, int first, int last, KurveEx& out) {
  for (int i = first; i <= last; ++i) out.Add(SpanOf(k, i), true);
}

bool IsBackwards(const ContourPlace& from, const ContourPlace& to) {
  return from.span > to.span || (from.span == to.span && from.along > to.along);
}

bool AreValid(const std::vector<ExtensionRecord>& records, const KurveEx& k) {
  const auto isValid = [&](const ExtensionRecord& r) {
    return r.firstVertex < r.lastVertex && r.lastVertex <= k.spans.size();
  };
  return !records.empty() && !k.spans.empty() && std::all_of(records.begin(), records.end(), isValid);
}

/// The spans between two vertices in reading order.
KurveEx Stretch(const KurveEx& k, std::uint64_t first, std::uint64_t last) {
  KurveEx stretch;
  spVertex start;
  k.Get(static_cast<int>(first), start);
  stretch.Start(start.p);
  stretch.index0 = k.GetIndex0(static_cast<int>(first));
  stretch.index1 = k.GetIndex1(static_cast<int>(first));
  Span span;
  for (std::uint64_t i = first; i < last && k.Get(static_cast<std::size_t>(i), span); ++i) {
    stretch.Add(span, true);
  }
  return stretch;
}

using Change = KurveEx (*)(double, const KurveEx&);

/// Lengthens one end. A negative length goes to the trim, which refuses it, so that nothing is left.
KurveEx ChangeEnd(const KurveEx& stretch, double d, Change extend, Change trim) {
  if (!NonZero(d, TIGHT_TOLERANCE)) return stretch;
  return LessOrNear(0.0, d, TIGHT_TOLERANCE) ? extend(d, stretch) : trim(d, stretch);
}

void AddPiece(std::vector<KurveEx>& pieces, const KurveEx& piece) {
  Span span;
  if (piece.FirstNonNull(span)) pieces.push_back(piece);
}

KurveEx JoinPieces(const std::vector<KurveEx>& pieces) {
  KurveEx joined;
  for (const KurveEx& piece : pieces) {
    if (!joined.start.ok) {
      joined = piece;
      continue;
    }
    if (Dist(joined.End(), piece.Start()) > TIGHT_TOLERANCE) {
      joined.Add(Span(joined.End(), piece.Start(), UNMARKED), true);
    }
    joined.Add(piece, true);
  }
  return joined;
}

/// The stretch between two places: over the seam of a closed contour when the second comes first. Two places
/// of one span otherwise give that span with these ends, whatever their order. Parts of spans that are null
/// are left out. Requires: the spans exist, and do not run backwards on an open contour.
KurveEx SectionBetween(const KurveEx& k, const ContourPlace& from, const ContourPlace& to) {
  const Span first = SpanOf(k, from.span);
  const Span last = SpanOf(k, to.span);
  const bool overSeam = IsBackwards(from, to) && k.Closed();
  KurveEx section;
  if (from.span == to.span && !overSeam) {
    section.Add(Between(first, from.point, to.point), true);
    return section;
  }
  section.Add(Between(first, from.point, first.p1), false);
  AddWhole(k, from.span + 1, overSeam ? k.SpanCount() : to.span - 1, section);
  if (overSeam) AddWhole(k, 1, to.span - 1, section);
  section.Add(Between(last, last.p0, to.point), false);
  if (section.spans.empty()) section.Start(from.point);
  return section;
}

}  // namespace

KurveEx ExtendStart(double d, const KurveEx& k) {
  KurveEx extended = ReadAs(k, false);
  Span first;
  if (extended.spans.empty()) return extended;
  extended.FirstNonNull(first);
  const Point start = extended.Start();
  extended.AddAtStart(Span(start - first.vs * d, start, UNMARKED), true);
  return ReadAs(extended, k.reversed);
}

KurveEx ExtendEnd(double d, const KurveEx& k) {
  KurveEx extended = ReadAs(k, false);
  Span last;
  if (extended.spans.empty()) return extended;
  extended.LastNonNull(last);
  const Point end = extended.End();
  extended.Add(Span(end, end + last.ve * d), true);
  return ReadAs(extended, k.reversed);
}

KurveEx TrimStart(double d, const KurveEx& k) {
  if (!IsTrimmable(d, k)) return ReadAs(KurveEx(), k.reversed);
  const KurveEx stored = ReadAs(k, false);
  ContourPlace from;
  from.point = stored.AtFraction(d / stored.perim, from.span, from.along);
  from.along *= stored.spans[static_cast<std::size_t>(from.span) - 1].length;
  const ContourPlace to{stored.SpanCount(), stored.spans.back().length, stored.End()};
  return ReadAs(SectionBetween(stored, from, to), k.reversed);
}

KurveEx TrimEnd(double d, const KurveEx& k) {
  if (!IsTrimmable(d, k)) return ReadAs(KurveEx(), k.reversed);
  return ReadAs(UpTo(1.0 - d / k.perim, ReadAs(k, false)), k.reversed);
}

KurveEx TrimTo(double d, const KurveEx& k) {
  const double kept = k.perim - std::fabs(d);
  if (LessOrNear(kept, 0.0, TIGHT_TOLERANCE)) return ReadAs(KurveEx(), k.reversed);
  KurveEx trimmed;
  double before = 0;
  for (Span span : k.spans) {
    const bool isLast = before + span.length >= kept;
    if (isLast) span.p1 = span.Along(kept - before);
    trimmed.Add(span, true);
    if (isLast) break;
    before += span.length;
  }
  return ReadAs(trimmed, k.reversed);
}

KurveEx TrimEndMirrored(double d, const KurveEx& k) {
  return TrimEnd(d, k.ReversedCopy()).ReversedCopy();
}

bool ExtendAt(const KurveEx& k, const Point& point, double d, int direction, KurveEx& out) {
  if (k.spans.empty() || !LessOrNear(d, k.perim, TIGHT_TOLERANCE)) return false;
  const KurveEx stored = ReadAs(k, false);
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
  out = ReadAs(trimmed, k.reversed);
  return true;
}

bool Section(const KurveEx& k, const Point& p, const Point& q, KurveEx& out) {
  const ContourPlace from = PlaceOf(k, p);
  const ContourPlace to = PlaceOf(k, q);
  if (from.span == 0 || to.span == 0) return false;
  if (from.span > to.span && !k.Closed()) return false;
  out = SectionBetween(k, from, to);
  return true;
}

bool Extend(const std::vector<ExtensionRecord>& records, const KurveEx& k, KurveEx& out) {
  if (!AreValid(records, k)) {
    out = KurveEx(k);
    return false;
  }
  std::vector<ExtensionRecord> sorted = records;
  std::stable_sort(sorted.begin(), sorted.end(), [](const ExtensionRecord& a, const ExtensionRecord& b) {
    return a.firstVertex < b.firstVertex;
  });
  std::vector<KurveEx> pieces;
  std::uint64_t reached = 0;
  for (const ExtensionRecord& record : sorted) {
    AddPiece(pieces, Stretch(k, reached, record.firstVertex));
    const KurveEx stretch = Stretch(k, record.firstVertex, record.lastVertex);
    const KurveEx longer = ChangeEnd(stretch, record.atStart, ExtendStart, TrimStart);
    AddPiece(pieces, ChangeEnd(longer, record.atEnd, ExtendEnd, TrimEnd));
    reached = record.lastVertex;
  }
  AddPiece(pieces, Stretch(k, reached, k.spans.size()));
  out = JoinPieces(pieces);
  return true;
}

}  // namespace geometry

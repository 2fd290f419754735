#include <algorithm>

#include "geometry/trim.h"

namespace geometry {
namespace {

bool AreSound(const std::vector<ExtensionRecord>& records, const KurveEx& k) {
  const auto isSound = [&](const ExtensionRecord& r) {
    return r.firstVertex < r.lastVertex && r.lastVertex <= k.spans.size();
  };
  return !records.empty() && !k.spans.empty() && std::all_of(records.begin(), records.end(), isSound);
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

/// Lengthens one end, or trims it; trims refuse what is negative, so nothing is left then.
KurveEx Changed(const KurveEx& stretch, double d, Change extend, Change trim) {
  if (!NonZero(d, TIGHT_TOLERANCE)) return stretch;
  return LessOrNear(0.0, d, TIGHT_TOLERANCE) ? extend(d, stretch) : trim(d, stretch);
}

void AddPiece(std::vector<KurveEx>& pieces, const KurveEx& piece) {
  Span span;
  if (piece.FirstNonNull(span)) pieces.push_back(piece);
}

KurveEx Joined(const std::vector<KurveEx>& pieces) {
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

}  // namespace

bool Extend(const std::vector<ExtensionRecord>& records, const KurveEx& k, KurveEx& out) {
  if (!AreSound(records, k)) {
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
    const KurveEx longer = Changed(stretch, record.atStart, ExtendStart, TrimStart);
    AddPiece(pieces, Changed(longer, record.atEnd, ExtendEnd, TrimEnd));
    reached = record.lastVertex;
  }
  AddPiece(pieces, Stretch(k, reached, k.spans.size()));
  out = Joined(pieces);
  return true;
}

}  // namespace geometry

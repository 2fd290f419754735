#include "geometry/kurveex.h"

namespace geometry {
namespace {

struct Vertex {
  spVertex v;
  IndexWord index0 = 0, index1 = 0;
};

Vertex ReadVertex(const KurveEx& k, int vertexNumber) {
  Vertex vertex;
  k.Get(vertexNumber, vertex.v);
  vertex.index0 = k.GetIndex0(vertexNumber);
  vertex.index1 = k.GetIndex1(vertexNumber);
  return vertex;
}

void AddVertex(KurveEx& k, const Vertex& vertex) {
  k.Add(vertex.v, true);
  k.AddIndex0(k.SpanCount(), vertex.index0);
  k.AddIndex1(k.SpanCount(), vertex.index1);
}

/// Whether the contour turns at `candidate` on its way from `anchor` to `current`.
bool IsCorner(const spVertex& anchor, const spVertex& candidate, const spVertex& current, double tolerance) {
  if (candidate.type != current.type) return true;
  if (candidate.type != LINEAR) return !(candidate.pc == current.pc);
  return NonZero(CLine(anchor.p, current.p).Dist(candidate.p), tolerance);
}

}  // namespace

int KurveEx::ReduceCircle() {
  const int removed = SpanCount() - 2;
  const bool wasReversed = reversed;
  Reverse(false);
  const Span first = FirstNonNullSpan();
  SetAsCircle(first.dir, first.pc, first.radius);
  Reverse(wasReversed);
  return removed;
}

int KurveEx::Reduce(double tolerance) {
  if (SpanCount() < 2) return 0;
  if (IsFullCircle()) return ReduceCircle();
  const bool wasReversed = reversed;
  Reverse(false);
  KurveEx kept;
  Vertex anchor = ReadVertex(*this, 0), candidate = ReadVertex(*this, 1);
  AddVertex(kept, anchor);
  for (int i = 2; i <= SpanCount(); ++i) {
    const Vertex current = ReadVertex(*this, i);
    if (NearZero(Dist(candidate.v.p, current.v.p), TOLERANCE)) {
      // The null span between the two goes; the span that ended at the candidate stays what it was.
      const spVertex before = candidate.v;
      candidate = current;
      candidate.v.type = before.type;
      candidate.v.pc = before.pc;
      continue;
    }
    if (IsCorner(anchor.v, candidate.v, current.v, tolerance)) {
      AddVertex(kept, candidate);
      anchor = candidate;
    }
    candidate = current;
  }
  AddVertex(kept, candidate);
  const int removed = SpanCount() - kept.SpanCount();
  if (removed > 0) *this = kept;
  Reverse(wasReversed);
  return removed;
}

}  // namespace geometry

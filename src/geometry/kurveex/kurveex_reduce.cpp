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

/// Passes over the null span between the two vertices: the candidate moves to its end, and the span that
/// ended at the candidate stays what it was.
void PassOver(Vertex& candidate, const Vertex& current) {
  const spVertex before = candidate.v;
  candidate = current;
  candidate.v.type = before.type;
  candidate.v.pc = before.pc;
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
  KurveEx stored(*this);
  KurveEx kept;
  stored.Reverse(false);
  Vertex anchor = ReadVertex(stored, 0);
  Vertex candidate = ReadVertex(stored, 1);
  AddVertex(kept, anchor);
  for (int i = 2; i <= SpanCount(); ++i) {
    const Vertex current = ReadVertex(stored, i);
    if (NearZero(Dist(candidate.v.p, current.v.p), TOLERANCE)) {
      PassOver(candidate, current);
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
  kept.Reverse(reversed);
  if (removed > 0) *this = kept;
  return removed;
}

}  // namespace geometry

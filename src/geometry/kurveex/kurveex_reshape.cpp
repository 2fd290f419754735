#include <algorithm>

#include "geometry/kurveex.h"

/// Other spans for a contour: fewer, replaced, or from another start.
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

/// Adds a span at a joint: either it begins at the end before, or that end moves to its start.
void KurveEx::AddJoined(const Span& next, bool keepEnd) {
  if (!keepEnd && !spans.empty()) MoveEnd(next.p0);
  Add(next, true);
}

/// Makes one point of the end and the start.
void KurveEx::JoinSeam(bool keepEnd) {
  if (spans.empty()) return;
  if (keepEnd) {
    MoveStart(spans.back().p1);
  } else {
    MoveEnd(spans.front().p0);
  }
}

bool KurveEx::ReplaceSpans(std::vector<SpanReplacement>& list, bool keepEnd, KurveEx& out) const {
  std::stable_sort(list.begin(), list.end(), [](const SpanReplacement& a, const SpanReplacement& b) {
    return a.vertexNumber < b.vertexNumber;
  });
  KurveEx rebuilt;
  bool allNamed = true;
  const auto isNamed = [&](int i) {
    // An entry left over from before names no span, or one that has been replaced.
    for (; !list.empty() && list.front().vertexNumber < i; list.erase(list.begin())) allNamed = false;
    return !list.empty() && list.front().vertexNumber == i;
  };
  const bool firstReplaced = isNamed(1);
  bool behindReplaced = false;
  for (int i = 1; i <= SpanCount(); ++i) {
    if (isNamed(i)) {
      const std::unique_ptr<KurveEx> replacement = std::move(list.front().replacement);
      list.erase(list.begin());
      for (std::size_t k = 0; replacement && k < replacement->spans.size(); ++k) {
        rebuilt.AddJoined(replacement->ReadSpan(k), k > 0 || keepEnd);
      }
      behindReplaced = true;
    } else {
      rebuilt.AddJoined(ReadSpan(static_cast<std::size_t>(i) - 1), !behindReplaced || keepEnd);
      behindReplaced = false;
    }
  }
  if (Closed() && (behindReplaced || firstReplaced)) rebuilt.JoinSeam(keepEnd);
  rebuilt.index0 = GetIndex0(0);
  rebuilt.index1 = GetIndex1(0);
  out = rebuilt;
  return allNamed && list.empty();
}

bool KurveEx::ReplaceStart(int spanNumber, const Point& p, KurveEx& out) const {
  Span cut;
  if (!Get(spanNumber, cut)) return false;
  KurveEx moved;
  moved.Start(p);
  if (p == cut.p0) {
    moved.index0 = GetIndex0(spanNumber - 1);
    moved.index1 = GetIndex1(spanNumber - 1);
  }
  const auto copy = [&](int from, int to) {
    for (int i = from; i <= to; ++i) moved.Add(ReadSpan(static_cast<std::size_t>(i) - 1), true);
  };
  Span rest = cut;
  rest.p0 = p;
  moved.Add(rest, false);
  copy(spanNumber + 1, SpanCount());
  if (Closed()) {
    copy(1, spanNumber - 1);
    cut.p1 = p;
    cut.index0 = cut.index1 = 0;
    moved.Add(cut, false);
  }
  out = moved;
  return true;
}

}  // namespace geometry

#include <algorithm>

#include "geometry/kurveex.h"

/// Rebuilding a contour with other spans, or from another start.
namespace geometry {

bool KurveEx::ReplaceSpans(std::vector<SpanReplacement>& list, bool keepEnd, KurveEx& out) const {
  std::stable_sort(list.begin(), list.end(), [](const SpanReplacement& a, const SpanReplacement& b) {
    return a.vertexNumber < b.vertexNumber;
  });
  KurveEx rebuilt;
  bool atJoint = false;
  const auto join = [&](const Span& next) {
    if (atJoint && !keepEnd && !rebuilt.spans.empty()) rebuilt.MoveEnd(next.p0);
    atJoint = false;
    rebuilt.Add(next, true);
  };
  const bool closed = Closed();
  bool firstReplaced = false;
  for (int i = 1; i <= SpanCount(); ++i) {
    if (list.empty() || list.front().vertexNumber != i) {
      join(ReadSpan(static_cast<std::size_t>(i) - 1));
      continue;
    }
    const std::unique_ptr<KurveEx> replacement = std::move(list.front().replacement);
    list.erase(list.begin());
    atJoint = true;
    for (std::size_t k = 0; replacement && k < replacement->spans.size(); ++k) join(replacement->ReadSpan(k));
    atJoint = true;
    firstReplaced = firstReplaced || i == 1;
  }
  // Over the seam the last span meets the first.
  if (closed && (atJoint || firstReplaced) && !rebuilt.spans.empty()) {
    if (keepEnd) {
      rebuilt.MoveStart(rebuilt.spans.back().p1);
    } else {
      rebuilt.MoveEnd(rebuilt.spans.front().p0);
    }
  }
  rebuilt.index0 = GetIndex0(0);
  rebuilt.index1 = GetIndex1(0);
  out = rebuilt;
  return list.empty();
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

#include "geometry/kurve.h"

namespace geometry {
namespace {

/// A contour that grows by whole spans and pieces of spans of another.
class PartOfContour {
 public:
  PartOfContour(const Kurve& source, const Point& start) : source_(source) { part_.Start(start); }

  void AddWhole(int from, int to) {
    for (int i = from; i <= to; ++i) part_.Add(Read(i), true);
  }

  /// What remains of span `i` behind the start.
  void AddRest(int i) { part_.Add(Read(i), false); }

  /// Span `i` as far as `end`.
  void AddUpTo(int i, const Point& end, bool addNullSpan) {
    Span span = Read(i);
    span.p1 = end;
    part_.Add(span, addNullSpan);
  }

  /// A line over the gap of an open contour.
  void BridgeToStart() {
    if (!source_.Closed()) part_.Add(Read(1).p0, false);
  }

  const Kurve& Result() const { return part_; }

 private:
  Span Read(int i) const {
    Span span;
    source_.Get(i, span, false, true);
    return span;
  }

  const Kurve& source_;
  Kurve part_;
};

}  // namespace

Kurve Part(const Kurve& k, int startSpan, const Point& startPoint, int endSpan, const Point& endPoint) {
  Point start = startPoint;
  Point end = endPoint;
  if (startSpan == 0) start = k.Near(startPoint, startSpan);
  if (endSpan == 0) end = k.Near(endPoint, endSpan);
  if (startSpan == 0 || endSpan == 0) return {};

  PartOfContour part(k, start);
  if (startSpan == endSpan) {
    part.AddUpTo(startSpan, end, true);
  } else {
    part.AddRest(startSpan);
    if (startSpan < endSpan) {
      part.AddWhole(startSpan + 1, endSpan - 1);
    } else {
      part.AddWhole(startSpan + 1, k.SpanCount());
      part.BridgeToStart();
      part.AddWhole(1, endSpan - 1);
    }
    part.AddUpTo(endSpan, end, false);
  }
  return part.Result();
}

}  // namespace geometry

#include <cmath>
#include <utility>

#include "geometry/construct.h"
#include "geometry/intersect.h"
#include "geometry/kurve.h"
#include "geometry/offset/offset_sense.h"
#include "geometry/state.h"

/// The offset that keeps the spans of a contour and extends them to each other.
namespace geometry {

constinit SpanPair scratchSpanPair;

namespace {

/// Directions that differ by less are tangent.
constexpr double kTangent = 1e-5;

class PairOffset {
 public:
  PairOffset(const Kurve& source, double off) : closed_(source.Closed()) {
    pairs_.reserve(static_cast<std::size_t>(source.SpanCount()));
    for (int i = 1; i <= source.SpanCount(); ++i) {
      source.Get(i, scratchSpanPair.source, true, true);
      scratchSpanPair.offset = scratchSpanPair.source.Offset(off);
      pairs_.push_back(scratchSpanPair);
    }
  }

  void JoinAll() {
    for (std::size_t i = 1; i < pairs_.size(); ++i) Join(pairs_[i - 1].offset, pairs_[i].offset);
    if (closed_ && pairs_.size() > 1) Join(pairs_.back().offset, pairs_.front().offset);
  }

  void FitArcs(bool byRadius) {
    for (std::size_t i = 1; i + 1 < pairs_.size(); ++i) {
      if (IsFillet(i, byRadius)) Fit(pairs_[i - 1].offset, pairs_[i].offset, pairs_[i + 1].offset);
    }
  }

  Kurve Result() const {
    Kurve k;
    k.Start(pairs_.front().offset.p0);
    for (const SpanPair& pair : pairs_) k.Add(pair.offset, true);
    return k;
  }

 private:
  static void Join(Span& before, Span& after) {
    if (before.NullSpan || after.NullSpan) return;
    if (!(std::fabs(Cross(before.ve, after.vs)) > kTangent)) return;
    const Point crossing = CarrierCrossing(before, after);
    if (!crossing.ok) return;
    before.p1 = crossing;
    before.SetProperties();
    after.p0 = crossing;
    after.SetProperties();
  }

  /// Whether pair `i` is an arc that is tangent to its neighbours and may be fitted to them again.
  bool IsFillet(std::size_t i, bool byRadius) const {
    const SpanPair& pair = pairs_[i];
    if (pair.offset.dir == LINEAR) return false;
    for (const SpanPair* neighbour : {&pairs_[i - 1], &pairs_[i + 1]}) {
      if (neighbour->offset.NullSpan) return false;
      if (byRadius) {
        const Span& source = neighbour->source;
        if (source.dir != LINEAR && source.radius < pair.source.radius) return false;
      } else if (neighbour->offset.dir != LINEAR) {
        return false;
      }
    }
    return std::fabs(Cross(pairs_[i - 1].source.ve, pair.source.vs)) < kTangent &&
           std::fabs(Cross(pair.source.ve, pairs_[i + 1].source.vs)) < kTangent;
  }

  static void Fit(Span& before, Span& arc, Span& after) {
    const Point centre = FilletCentre(before, after, arc);
    if (!centre.ok) return;
    arc.pc = centre;
    before.p1 = arc.p0 = TouchingPoint(before, centre);
    after.p0 = arc.p1 = TouchingPoint(after, centre);
    for (Span* span : {&before, &arc, &after}) span->SetProperties();
  }

  /// The crossing of the neighbours, moved to the side of the arc by its radius; of two the one nearer to the
  /// former centre.
  static Point FilletCentre(const Span& before, const Span& after, const Span& arc) {
    const double d = arc.dir * arc.radius;
    if (before.dir == LINEAR && after.dir == LINEAR) {
      return Intof(CLine(before).Parallel(d), CLine(after).Parallel(d));
    }
    Point other = INVALID_POINT;
    Point centre = INVALID_POINT;
    if (before.dir == LINEAR || after.dir == LINEAR) {
      const Span& line = before.dir == LINEAR ? before : after;
      const Span& bend = before.dir == LINEAR ? after : before;
      centre = Intof(1, CLine(line).Parallel(d), MovedCircle(bend, d), other);
    } else {
      centre = Intof(1, MovedCircle(before, d), MovedCircle(after, d), other);
    }
    return other.ok && Dist(other, arc.pc) < Dist(centre, arc.pc) ? other : centre;
  }

  static Circle MovedCircle(const Span& arc, double d) { return {arc.pc, arc.radius - arc.dir * d}; }

  static Point TouchingPoint(const Span& span, const Point& centre) {
    return span.dir == LINEAR ? On(CLine(span), centre) : On(Circle(span), centre);
  }

  const bool closed_;
  std::vector<SpanPair> pairs_;
};

}  // namespace

int Kurve::OffsetMethod2(Kurve& kOffset, double offset, int direction, bool byRadius) const {
  if (NearZero(offset, TIGHT_TOLERANCE) || SpanCount() == 0) {
    kOffset = *this;
    return 1;
  }
  PairOffset pairs(*this, direction == 1 ? offset : -offset);
  pairs.JoinAll();
  pairs.FitArcs(byRadius);
  kOffset = pairs.Result();
  return 1;
}

}  // namespace geometry

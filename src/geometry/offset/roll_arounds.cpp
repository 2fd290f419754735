#include <algorithm>
#include <cmath>

#include "geometry/intersect.h"
#include "geometry/kurveex.h"
#include "geometry/offset/offset_sense.h"

/// Removal of roll arcs.
namespace geometry {
namespace {

bool IsRollArc(const Span& span) {
  return (span.ID & ROLL_AROUND) != 0;
}

bool SameDirection(const Vector2d& a, const Vector2d& b) {
  return NearEqual(a.dx, b.dx, TOLERANCE) && NearEqual(a.dy, b.dy, TOLERANCE);
}

/// The point where the neighbours of a roll arc meet without it. INVALID_POINT when the arc has to stay.
Point JoiningPoint(const Span& before, const Span& roll, const Span& after, double limit) {
  if (std::fabs(roll.angle) > limit || IsRollArc(before) || IsRollArc(after)) return INVALID_POINT;
  if (SameDirection(before.ve, roll.vs) || SameDirection(roll.ve, after.vs)) return INVALID_POINT;
  return CarrierCrossing(before, after);
}

/// Copies a contour without the roll arcs that can be removed.
class RollArcRemoval {
 public:
  RollArcRemoval(const KurveEx& source, double rollAngle)
      : source_(source), count_(source.spans.size()), limit_(2 * PI - rollAngle * RADIANS_PER_DEGREE) {}

  KurveEx Make() {
    out_.index0 = source_.GetIndex0(0);
    out_.index1 = source_.GetIndex1(0);
    for (std::size_t i = 0; i < count_; ++i) Step(i);
    if (pending_.ok && source_.Closed()) out_.Replace(0, LINEAR, pending_, Point(0, 0));
    return out_;
  }

 private:
  Span Read(std::size_t i) const {
    Span span;
    source_.Get(i, span);
    return span;
  }

  void Step(std::size_t i) {
    Span span = Read(i);
    const Point joining = IsRollArc(span) ? Joining(i, span) : INVALID_POINT;
    if (joining.ok) {
      pending_ = MoveEndTo(joining, span);
      return;
    }
    if (pending_.ok) BeginAtPending(span);
    out_.Add(span, true);
  }

  /// INVALID_POINT for a roll arc that begins the contour, whose neighbour is not known yet, and for one that
  /// ends an open contour.
  Point Joining(std::size_t i, const Span& roll) const {
    if (i == 0 || (i + 1 == count_ && !source_.Closed())) return INVALID_POINT;
    return JoiningPoint(Read(i - 1), roll, Read(i + 1 == count_ ? 0 : i + 1), limit_);
  }

  /// Moves the end of the result and returns its new place. An end that was away from the start of the arc
  /// keeps that distance, towards the centre of the arc.
  Point MoveEndTo(const Point& joining, const Span& roll) {
    Point moved = joining;
    const Point end = out_.End();
    if (!(end == joining)) {
      Vector2d inward(joining, roll.pc);
      inward.Normalise();
      moved = joining + inward * Dist(end, roll.p0);
    }
    const Span& last = out_.spans.back();
    out_.Replace(out_.SpanCount(), last.dir, moved, last.pc, last.ID);
    return moved;
  }

  void BeginAtPending(Span& span) {
    if (span.dir != LINEAR) {
      Vector2d spoke(span.pc, span.p1);
      if (spoke.Normalise() != 0.0) span.p1 = span.pc + spoke * span.radius;
    }
    span.p0 = pending_;
    span.SetProperties();
    pending_ = INVALID_POINT;
  }

  const KurveEx& source_;
  const std::size_t count_;
  const double limit_;
  KurveEx out_;
  Point pending_ = INVALID_POINT;
};

}  // namespace

bool KurveEx::RemoveRollArounds(double rollAngle, KurveEx& out) const {
  if (std::none_of(spans.begin(), spans.end(), IsRollArc)) return false;
  out = RollArcRemoval(*this, rollAngle).Make();
  return true;
}

}  // namespace geometry

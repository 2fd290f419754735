#include <cmath>
#include <utility>

#include "geometry/intersect.h"
#include "geometry/offset/loop_removal.h"
#include "geometry/offset/offset_sense.h"

/// Offsets of working contours. docs/contours/offset.md explains the steps with pictures.
///
/// Notation of the raw offset, by `number` of spans from 1 in the order of storage:
///   source    a span of the contour that is offset
///   target    the source, moved sideways by `off`. A target is live when it has a length, and null when its
///             source has none or when an arc has shrunk away
///   current   the target under work
///   previous  the last live target before it; at the seam of a closed contour that of the last span
///   crossing  the point where previous and current meet at an inward corner: both end there
///   roll arc  the arc about the source's vertex that closes the gap between previous and current elsewhere
///   result    the raw offset so far: live targets and roll arcs, with the loops that they make
namespace geometry {
namespace {

/// A turn at the seam up to this one counts as none.
constexpr double kNoTurn = 1e-4;

std::uint32_t NumberAsID(int number) {
  return static_cast<std::uint32_t>(number);
}

/// Moves the sources in the order of storage and joins the targets. The result has no totals yet.
///
/// An added span begins where the result ends, as in `KurveEx::Add`, but properties that still hold are not
/// computed again.
class RawOffset {
 public:
  RawOffset(const KurveEx& source, const OffsetSense& sense)
      : spans_(source.spans), sense_(sense), closed_(source.Closed()) {}

  KurveEx Make() {
    ReserveSpans();
    if (closed_) BeginAtSeam();
    for (int number = 1; number <= static_cast<int>(spans_.size()); ++number) Step(number, false);
    if (closed_) Step(1, true);
    if (lastSourceWasNull_ && result_.start.ok) {
      ++current_->ID;
      Append(*current_);
    }
    return std::move(result_);
  }

 private:
  /// Reserves room for all targets and for the roll arcs of gaping corners.
  void ReserveSpans() {
    std::size_t arcs = 2;
    for (std::size_t i = 1; i < spans_.size(); ++i) {
      const Vector2d swing = spans_[i].vs - spans_[i - 1].ve;
      if (Dot(swing, swing) * sense_.off * sense_.off > TOLERANCE * TOLERANCE) ++arcs;
    }
    result_.spans.reserve(spans_.size() + arcs);
  }

  /// The span before the first one is the last. A null source at the seam gets its roll arc here, but only
  /// in a corner to the right; a corner to the left stays open.
  void BeginAtSeam() {
    *previous_ = spans_.back().Offset(sense_.off);
    if (spans_.size() <= 3 || !spans_.front().NullSpan) return;
    if (Cross(previous_->ve, spans_[1].vs) > -kNoTurn) return;
    result_.Start(previous_->p1);
    AddRollArc(spans_[1].Offset(sense_.off).p0, spans_.front().p0, 1);
  }

  void Step(int number, bool closing) {
    const Span& source = spans_[static_cast<std::size_t>(number) - 1];
    lastSourceWasNull_ = source.NullSpan;
    if (source.NullSpan) {
      passedNullSource_ = true;
    } else {
      // A live target becomes the previous one, and its buffer takes the next; a null one is overwritten.
      if (!current_->NullSpan) std::swap(current_, previous_);
      Place(source, number, closing);
      passedNullSource_ = false;
    }
    stepBeforeLeftNull_ = current_->NullSpan;
  }

  void Place(const Span& source, int number, bool closing) {
    *current_ = source;
    current_->MoveSideways(sense_.off);
    current_->ID = 0;
    if (!result_.start.ok) BeginAt(current_->p0);
    const bool crossed = (number > 1 || closing) && Join(source, number);
    if (current_->NullSpan && stepBeforeLeftNull_) {
      AddRollArc(current_->p0, source.p0, NumberAsID(number) | ROLL_AROUND);
      DropNull();
    }
    if (closing) {
      if (crossed) MoveStart(current_->p0);
      return;
    }
    current_->ID = NumberAsID(number);
    // The flag decides: adding would compute the properties again and make a line of an arc that has shrunk
    // away.
    if (current_->NullSpan) return;
    Append(*current_);
    DropNull();
  }

  void BeginAt(const Point& p) {
    result_.Start(p);
    if (passedNullSource_) result_.Add(spVertex(LINEAR, p, Point(0, 0), 1), true);
  }

  /// Closes the gap between previous and current. Returns true when they cross.
  bool Join(const Span& source, int number) {
    const double gap = Dist(previous_->p1, current_->p0);
    if (!(gap > TOLERANCE) || previous_->NullSpan || current_->NullSpan) return false;
    Point crossing;
    if (sense_.Inward(*previous_, *current_) && OnlyCrossing(*previous_, *current_, crossing)) {
      MoveEnd(crossing);
      current_->p0 = crossing;
      current_->SetProperties();
      return true;
    }
    // A smaller gap stays: current begins where the result ends.
    if (gap >= 5 * TOLERANCE) {
      AddRollArc(current_->p0, source.p0,
                 passedNullSource_ ? NumberAsID(number - 1) : NumberAsID(number) | ROLL_AROUND);
      DropNull();
    }
    return false;
  }

  Point End() const { return result_.spans.empty() ? result_.start : result_.spans.back().p1; }

  void Append(const Span& span) {
    const Point end = result_.spans.empty() ? span.p0 : result_.spans.back().p1;
    Span& added = result_.spans.emplace_back(span);
    const bool holds = added.dir == LINEAR && added.p0.x == end.x && added.p0.y == end.y;
    if (!holds) Settle(added, end);
  }

  void AddRollArc(const Point& end, const Point& centre, std::uint32_t ID) {
    const Point begin = End();
    Settle(result_.spans.emplace_back(RollArc(sense_.rollDir, end, centre, ID)), begin);
  }

  static void Settle(Span& added, const Point& begin) {
    added.p0 = begin;
    if (added.dir != LINEAR) added.pc = added.CentreOnBisector();
    added.SetProperties();
  }

  void DropNull() {
    if (result_.spans.back().NullSpan) result_.spans.pop_back();
  }

  /// Lets the previous target end at `p`.
  void MoveEnd(const Point& p) {
    if (result_.spans.empty()) return MoveStart(p);
    Span& last = result_.spans.back();
    last.dir = previous_->dir;
    last.p1 = p;
    last.pc = previous_->pc;
    last.ID = previous_->ID;
    last.SetProperties();
  }

  void MoveStart(const Point& p) {
    result_.start = p;
    if (result_.spans.empty()) return;
    result_.spans.front().p0 = p;
    result_.spans.front().SetProperties();
  }

  const std::vector<Span>& spans_;
  const OffsetSense& sense_;
  const bool closed_;
  KurveEx result_;
  Span buffers_[2];
  Span* previous_ = &buffers_[0];
  Span* current_ = &buffers_[1];
  bool passedNullSource_ = false;    ///< since the last source with a length
  bool stepBeforeLeftNull_ = false;  ///< the step before ended with a null target as current
  bool lastSourceWasNull_ = false;   ///< of the sources so far
};

void CountTotals(KurveEx& k) {
  k.perim = k.area = 0.0;
  for (const Span& span : k.spans) {
    k.perim += span.length;
    k.area += span.Area();
  }
}

/// Closes an offset whose ends cross. Returns the code 2 when they don't.
int TrimEnds(KurveEx& k) {
  Point crossing;
  if (k.spans.empty() || !OnlyCrossing(k.spans.front(), k.spans.back(), crossing)) return 2;
  const Span last = k.spans.back();
  k.Replace(k.SpanCount(), last.dir, crossing, last.pc, last.ID);
  k.Replace(0, LINEAR, crossing, Point(0, 0));
  return 0;
}

/// After roll arcs are gone the contour is shorter, and may have new loops.
int RemoveSmallRollArcs(KurveEx& k, const KurveEx& source, double off, double rollAngle, bool keepLoops) {
  KurveEx without;
  if (!k.RemoveRollArounds(rollAngle, without)) return 0;
  const int before = k.SpanCount();
  k = std::move(without);
  if (k.SpanCount() == before || !k.Closed() || keepLoops) return 0;
  int code = 0;
  KurveEx cleaned = EliminateLoops(KurveEx(k), source.spans, off, code, Search::Indexed);
  if (cleaned.SpanCount() == 0 || cleaned.SpanCount() == k.SpanCount()) return 0;
  k = std::move(cleaned);
  return code;
}

}  // namespace

int KurveEx::Offset(KurveEx& kOffset, double offset, int direction, std::uint32_t flags, double rollAngle,
                    bool keepLoops) const {
  if (this == &kOffset) throw L"Illegal Call - 'this' must not be kOffset";
  const OffsetSense sense(offset, direction, reversed);
  if (std::fabs(sense.off) < TOLERANCE || spans.empty()) {
    kOffset = *this;
    return 0;
  }
  KurveEx made = RawOffset(*this, sense).Make();
  int code = 0;
  if (flags == 0 || keepLoops) {
    CountTotals(made);
  } else {
    made = EliminateLoops(std::move(made), spans, sense.off, code, Search::Indexed);
  }
  if (flags != 0) {
    if (code == 0 && Closed()) {
      const double storedArea = reversed ? -area : area;
      code = made.Closed() ? CodeOfAreas(storedArea, made.area, sense.off) : TrimEnds(made);
    }
    if (code == 0 && (flags & UNMARKED) != 0) {
      code = RemoveSmallRollArcs(made, *this, sense.off, rollAngle, keepLoops);
    }
  }
  made.Reverse(reversed);
  kOffset = std::move(made);
  return code;
}

std::unique_ptr<KurveEx> KurveEx::Offset(double offset, int direction, std::uint32_t flags,
                                         double rollAngle) const {
  auto made = std::make_unique<KurveEx>();
  if (Offset(*made, offset, direction, flags, rollAngle) != 0) made.reset();
  return made;
}

std::unique_ptr<KurveEx> KurveEx::Offset(double offset, int direction) const {
  return Offset(offset, direction, ROLL_AROUND | 1u, 0.0);
}

}  // namespace geometry

#include <cmath>
#include <utility>

#include "geometry/intersect.h"
#include "geometry/loop_removal.h"
#include "geometry/offset_sense.h"

/// Offsets of working contours.
namespace geometry {
namespace {

/// Next to this, the turn at a seam counts as none.
constexpr double kNoTurn = 1e-4;

std::uint32_t NumberAsID(int number) {
  return static_cast<std::uint32_t>(number);
}

/// Moves the spans of a contour, in the order of storage, and joins them.
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
      ++current_.ID;
      result_.Add(current_, true);
    }
    return std::move(result_);
  }

 private:
  /// Room for all spans and for the roll arcs of gaping corners.
  void ReserveSpans() {
    std::size_t arcs = 1;
    for (std::size_t i = 1; i < spans_.size(); ++i) {
      const Vector2d swing = spans_[i].vs - spans_[i - 1].ve;
      if (Dot(swing, swing) * sense_.off * sense_.off > TOLERANCE * TOLERANCE) ++arcs;
    }
    result_.spans.reserve(spans_.size() + arcs);
  }

  /// The span before the first one is the last. A null span at the seam gets its roll arc here, but only in
  /// a corner to the right; the other one is left open.
  void BeginAtSeam() {
    previous_ = spans_.back().Offset(sense_.off);
    if (spans_.size() <= 3 || !spans_.front().NullSpan) return;
    if (Cross(previous_.ve, spans_[1].vs) > -kNoTurn) return;
    result_.Start(previous_.p1);
    AddRollArc(spans_[1].Offset(sense_.off).p0, spans_.front().p0, 1, true);
  }

  void Step(int number, bool closing) {
    const Span& source = spans_[static_cast<std::size_t>(number) - 1];
    lastSourceWasNull_ = source.NullSpan;
    if (source.NullSpan) {
      sourceWasNull_ = true;
    } else {
      Place(source, number, closing);
      sourceWasNull_ = false;
    }
    if (!current_.NullSpan) previous_ = current_;
    previousWasNull_ = current_.NullSpan;
  }

  void Place(const Span& source, int number, bool closing) {
    current_ = source.Offset(sense_.off);
    current_.ID = 0;
    if (!result_.start.ok) BeginAt(current_.p0);
    const bool crossed = (number > 1 || closing) && Join(source, number);
    if (current_.NullSpan && previousWasNull_) {
      AddRollArc(current_.p0, source.p0, NumberAsID(number) | ROLL_AROUND, false);
    }
    if (closing) {
      if (crossed) result_.Replace(0, LINEAR, current_.p0, Point(0, 0));
      return;
    }
    current_.ID = NumberAsID(number);
    // Its flag counts: adding would make the properties anew, and a line of an arc that has shrunk away.
    if (!current_.NullSpan) result_.Add(current_, false);
  }

  void BeginAt(const Point& p) {
    result_.Start(p);
    if (sourceWasNull_) result_.Add(spVertex(LINEAR, p, Point(0, 0), 1), true);
  }

  /// Closes the gap before `current_`; whether by a crossing.
  bool Join(const Span& source, int number) {
    const double gap = Dist(previous_.p1, current_.p0);
    if (!(gap > TOLERANCE) || previous_.NullSpan || current_.NullSpan) return false;
    Point crossing;
    if (sense_.Inward(previous_, current_) && OnlyCrossing(previous_, current_, crossing)) {
      result_.Replace(result_.SpanCount(), previous_.dir, crossing, previous_.pc, previous_.ID);
      current_.p0 = crossing;
      current_.SetProperties();
      return true;
    }
    // A smaller gap is left to the next span, which begins where the contour ends.
    if (gap >= 5 * TOLERANCE) {
      const std::uint32_t ID = sourceWasNull_ ? NumberAsID(number - 1) : NumberAsID(number) | ROLL_AROUND;
      AddRollArc(current_.p0, source.p0, ID, false);
    }
    return false;
  }

  void AddRollArc(const Point& end, const Point& centre, std::uint32_t ID, bool addNullSpan) {
    Span arc = RollArc(sense_.rollDir, end, centre, ID);
    arc.p0 = result_.End();
    result_.Add(arc, addNullSpan);
  }

  const std::vector<Span>& spans_;
  const OffsetSense& sense_;
  const bool closed_;
  KurveEx result_;
  Span previous_, current_;
  bool sourceWasNull_ = false;    ///< since the last live span
  bool previousWasNull_ = false;  ///< what the step before had in hand
  bool lastSourceWasNull_ = false;
};

/// Closes an offset whose ends cross; the code otherwise.
int TrimEnds(KurveEx& k) {
  Point crossing;
  if (k.spans.empty() || !OnlyCrossing(k.spans.front(), k.spans.back(), crossing)) return 2;
  const Span last = k.spans.back();
  k.Replace(k.SpanCount(), last.dir, crossing, last.pc, last.ID);
  k.Replace(0, LINEAR, crossing, Point(0, 0));
  return 0;
}

void RemoveLoops(KurveEx& k, const KurveEx& source, double off, int& code) {
  k = EliminateLoops(std::move(k), source.spans, off, code, Search::Indexed);
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
  if (flags != 0) {
    if (!keepLoops) RemoveLoops(made, *this, sense.off, code);
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

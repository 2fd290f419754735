#include <algorithm>
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

/// Moves the sources in the order of storage and joins the targets.
///
/// A target has its tangents; its measures are made when a crossing is looked for on it.
class RawOffset {
 public:
  RawOffset(const KurveEx& source, const OffsetSense& sense)
      : spans_(source.spans), sense_(sense), closed_(source.Closed()) {}

  RawContour Make() {
    chain_.Reserve(spans_.size() + MostRollArcs());
    if (closed_) BeginAtSeam();
    for (int number = 1; number <= static_cast<int>(spans_.size()); ++number) Step(number, false);
    if (closed_) Step(1, true);
    if (lastSourceWasNull_ && chain_.Started()) {
      ++current_->ID;
      chain_.AddAsIs(*current_);
    }
    return chain_.Take();
  }

 private:
  /// The number of roll arcs, about. Of many spans some are looked at, in pieces all along.
  std::size_t MostRollArcs() const {
    constexpr std::size_t kPieces = 64;
    constexpr std::size_t kOfAPiece = 64;
    const std::size_t n = spans_.size();
    if (n <= kPieces * kOfAPiece) return 2 + RollArcsBetween(1, n);
    std::size_t seen = 0;
    for (std::size_t piece = 0; piece < kPieces; ++piece) {
      const std::size_t begin = 1 + piece * (n - kOfAPiece - 1) / kPieces;
      seen += RollArcsBetween(begin, begin + kOfAPiece);
    }
    // A twentieth more than expected; for still more the storage grows.
    return 2 + n / 20 + seen * n / (kPieces * kOfAPiece);
  }

  std::size_t RollArcsBetween(std::size_t begin, std::size_t end) const {
    std::size_t arcs = 0;
    for (std::size_t i = begin; i < end; ++i) {
      if (GetsRollArc(spans_[i - 1], spans_[i])) ++arcs;
    }
    return arcs;
  }

  /// A corner gets one when it gapes, or when its neighbours are too short to cross.
  bool GetsRollArc(const Span& before, const Span& after) const {
    const Vector2d swing = after.vs - before.ve;
    const double gap = Dot(swing, swing) * sense_.off * sense_.off;
    const double shorter = std::min(before.length, after.length);
    return gap > TOLERANCE * TOLERANCE && (gap > shorter * shorter || !sense_.Inward(before, after));
  }

  /// The span before the first one is the last. A null source at the seam gets its roll arc here, but only
  /// in a corner to the right; a corner to the left stays open.
  void BeginAtSeam() {
    *previous_ = spans_.back().Offset(sense_.off);
    if (spans_.size() <= 3 || !spans_.front().NullSpan) return;
    if (Cross(previous_->ve, spans_[1].vs) > -kNoTurn) return;
    chain_.Start(previous_->p1);
    chain_.AddArc(sense_.rollDir, spans_[1].Offset(sense_.off).p0, spans_.front().p0, 1, true);
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
    Move(source);
    current_->ID = 0;
    if (!chain_.Started()) BeginAt(current_->p0);
    const bool crossed = (number > 1 || closing) && Join(source, number);
    if (current_->NullSpan && stepBeforeLeftNull_) AddRollArc(source, NumberAsID(number) | ROLL_AROUND);
    if (closing) {
      if (crossed) chain_.MoveStart(current_->p0);
      return;
    }
    current_->ID = NumberAsID(number);
    // The flag decides: adding would compute the properties again and make a line of an arc that has shrunk
    // away.
    if (!current_->NullSpan) chain_.Add(*current_);
  }

  /// Makes the source's target the current one. Only what a live target needs is written.
  void Move(const Span& source) {
    source.NeedProperties();
    const double off = sense_.off;
    if (NearZero(off, TIGHT_TOLERANCE) ||
        !(source.dir == LINEAR || source.radius - source.dir * off > TOLERANCE)) {
      *current_ = source;
      current_->MoveSideways(off);
      return;
    }
    current_->p0 = source.p0 + source.vs.LeftNormal() * off;
    current_->p1 = source.p1 + source.ve.LeftNormal() * off;
    current_->dir = source.dir;
    current_->pc = source.pc;
    current_->index0 = source.index0;
    current_->index1 = source.index1;
    SetTangents();
  }

  /// A null target may be added as it is, so it is complete.
  void SetTangents() {
    current_->SetTangents();
    if (current_->NullSpan) current_->SetMeasures();
  }

  void BeginAt(const Point& p) {
    chain_.Start(p);
    if (passedNullSource_) chain_.AddNull(p, 1);
  }

  /// Closes the gap between previous and current. Returns true when they cross.
  bool Join(const Span& source, int number) {
    const double gap = Dist(previous_->p1, current_->p0);
    if (!(gap > TOLERANCE) || previous_->NullSpan || current_->NullSpan) return false;
    Point crossing;
    if (sense_.Inward(*previous_, *current_) && OnlyCrossing(*previous_, *current_, crossing)) {
      chain_.MoveEnd(*previous_, crossing);
      current_->p0 = crossing;
      SetTangents();
      return true;
    }
    // A smaller gap stays: current begins where the result ends.
    if (gap >= 5 * TOLERANCE) {
      AddRollArc(source, passedNullSource_ ? NumberAsID(number - 1) : NumberAsID(number) | ROLL_AROUND);
    }
    return false;
  }

  void AddRollArc(const Span& source, std::uint32_t ID) {
    chain_.AddArc(sense_.rollDir, current_->p0, source.p0, ID, false);
  }

  const std::vector<Span>& spans_;
  const OffsetSense& sense_;
  const bool closed_;
  SpanChain chain_;
  Span buffers_[2];
  Span* previous_ = &buffers_[0];
  Span* current_ = &buffers_[1];
  bool passedNullSource_ = false;    ///< since the last source with a length
  bool stepBeforeLeftNull_ = false;  ///< the step before ended with a null target as current
  bool lastSourceWasNull_ = false;   ///< of the sources so far
};

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
  RawContour raw = RawOffset(*this, sense).Make();
  int code = 0;
  KurveEx made = flags == 0 || keepLoops ? WithTotals(std::move(raw))
                                         : EliminateLoops(std::move(raw), spans, sense.off, code);
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

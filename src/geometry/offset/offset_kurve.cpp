#include <cmath>
#include <utility>

#include "geometry/offset/loop_removal.h"
#include "geometry/offset/offset_sense.h"

/// Offsets of compact contours. The words source, target, previous, current, crossing and roll arc mean what
/// they mean in offset_kurveex.cpp; here a target without a length is simply skipped.
namespace geometry {
namespace {

/// Moves the sources, in the order of storage and untransformed, and joins the targets.
class RawOffset {
 public:
  RawOffset(const Kurve& source, const OffsetSense& sense) : source_(source), sense_(sense) {
    result_ = static_cast<const Matrix&>(source);
  }

  Kurve Make() {
    const int n = source_.SpanCount();
    const bool closed = source_.Closed();
    if (closed) {
      ReadMoved(n);
      if (!current_.NullSpan) previous_ = current_;
    }
    for (int number = 1; number <= n; ++number) Step(number, false);
    if (closed) Step(1, true);
    return std::move(result_);
  }

 private:
  /// Passes over sources and targets without a length.
  void Step(int number, bool closing) {
    const Span source = ReadMoved(number);
    if (current_.NullSpan) {
      skipped_ = true;
      return;
    }
    if (!result_.started) result_.Add(spVertex(LINEAR, current_.p0, Point(0, 0), 0));
    const bool crossed = (number > 1 || closing) && Join(source.p0);
    if (closing) {
      if (crossed) result_.Replace(0, LINEAR, current_.p0, Point(0, 0), 0);
      return;
    }
    // A crossing may have left nothing of the target.
    skipped_ = current_.NullSpan;
    if (skipped_) return;
    current_.ID = static_cast<std::uint32_t>(number);
    result_.Add(current_, false);
    previous_ = current_;
  }

  /// Returns the source and puts its target into `current_`.
  Span ReadMoved(int number) {
    Span source;
    source_.GetStored(number, source);
    source.SetProperties();
    current_ = source.Offset(sense_.off);
    return source;
  }

  /// Closes the gap between previous and current. Returns true when they cross.
  bool Join(const Point& vertex) {
    if (previous_.NullSpan || !(Dist(previous_.p1, current_.p0) > TOLERANCE)) return false;
    Point crossing;
    if (sense_.Inward(previous_, current_) && OnlyCrossing(previous_, current_, crossing)) {
      result_.Replace(result_.nVertices - 1, previous_.dir, crossing, previous_.pc, previous_.ID);
      current_.p0 = crossing;
      current_.SetProperties();
      return true;
    }
    Span arc = RollArc(sense_.rollDir, current_.p0, vertex, ROLL_AROUND);
    if (skipped_) {
      // Next to a span that has gone, the vertex is not equally far from both ends.
      Point unusedCentre;
      result_.Get(result_.nVertices - 1, arc.p0, unusedCentre);
      arc.pc = arc.CentreOnBisector();
    }
    result_.Add(arc, false);
    return false;
  }

  const Kurve& source_;
  const OffsetSense& sense_;
  Kurve result_;
  Span previous_, current_;
  bool skipped_ = false;
};

int CheckClosed(const Kurve& source, const Kurve& made, double off) {
  return made.Closed() ? CodeOfAreas(source.Area(), made.Area(), off) : 2;
}

}  // namespace

int Kurve::Offset(std::vector<Kurve*>& list, double offset, int direction, int method) const {
  if (method != 0 && method != 1) throw L"Requested Offsetting Method not available";
  auto made = std::make_unique<Kurve>();
  const int code = OffsetMethod1(*made, offset, direction, method);
  list.push_back(made.get());
  static_cast<void>(made.release());  // the list owns it
  return code;
}

int Kurve::OffsetMethod1(Kurve& kOffset, double offset, int direction, int method) const {
  if (this == &kOffset) throw L"Illegal Call - 'this' must not be kOffset";
  double scale = 1.0;
  if (!GetUniformScale(scale)) return 1;
  // Under a mirror, the reader's left is the right in storage.
  const OffsetSense sense((mirrored ? -offset : offset) / scale, direction, reversed);
  if (std::fabs(sense.off) < TOLERANCE || nVertices < 2) {
    kOffset = *this;
    return 0;
  }
  Kurve made = RawOffset(*this, sense).Make();
  int code = 0;
  if (method != 0) {
    std::vector<Span> spans;
    const SourceSpans asStored = [&]() -> const std::vector<Span>& {
      Kurve stored(*this);
      stored.reversed = false;
      return spans = SpansOf(stored);
    };
    made = EliminateLoops(made, asStored, sense.off, code, Search::Indexed);
    if (code == 0 && Closed()) code = CheckClosed(*this, made, sense.off);
  }
  made.reversed = reversed;
  kOffset = std::move(made);
  return code;
}

}  // namespace geometry

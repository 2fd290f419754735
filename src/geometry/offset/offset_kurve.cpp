#include <cmath>
#include <utility>

#include "geometry/intersect.h"
#include "geometry/offset/loop_removal.h"
#include "geometry/offset/offset_sense.h"

/// Offsets of compact contours. The words source, target, previous, current, crossing and roll arc mean what
/// they mean in offset_kurveex.cpp; here a target without a length is simply skipped.
namespace geometry {
namespace {

/// Moves the sources, in the order of storage and untransformed, and joins the targets.
class RawOffset {
 public:
  /// `method` as in `Kurve::OffsetMethod1`.
  RawOffset(const Kurve& source, const OffsetSense& sense, int method)
      : source_(source),
        sense_(sense),
        closed_(source.Closed()),
        countsArea_(closed_ && method != 0),
        chain_(source, source.SpanCount(), method != 0) {}

  RawVertices Make() {
    const int n = source_.SpanCount();
    if (closed_) {
      ReadMoved(n);
      if (!current_->NullSpan) std::swap(current_, previous_);
    }
    for (int number = 1; number <= n; ++number) Step(number, false);
    if (closed_) Step(1, true);
    return chain_.Take();
  }

  /// The area of the sources, untransformed. Requires: made for a method but 0, of a closed contour.
  double AreaOfSource() const { return area_; }

 private:
  /// Passes over sources and targets without a length.
  void Step(int number, bool closing) {
    ReadMoved(number);
    if (countsArea_ && !closing) CountArea();
    if (current_->NullSpan) {
      skipped_ = true;
      return;
    }
    if (!chain_.Started()) chain_.Start(current_->p0);
    const bool crossed = (number > 1 || closing) && Join();
    if (closing) {
      if (crossed) chain_.MoveStart(current_->p0);
      return;
    }
    // A crossing may have left nothing of the target.
    skipped_ = current_->NullSpan;
    if (skipped_) return;
    current_->ID = static_cast<std::uint32_t>(number);
    chain_.Add(*current_);
    std::swap(current_, previous_);
  }

  /// Reads a source, and makes its target the current one.
  void ReadMoved(int number) {
    source_.GetStored(number, read_);
    read_.SetTangents();
    const double off = sense_.off;
    if (NearZero(off, TIGHT_TOLERANCE)) {
      *current_ = read_;
      return;
    }
    const bool stays = !read_.NullSpan && (read_.dir == LINEAR || read_.radius - read_.dir * off > TOLERANCE);
    current_->NullSpan = !stays;
    if (!stays) return;
    current_->p0 = read_.p0 + read_.vs.LeftNormal() * off;
    current_->p1 = read_.p1 + read_.ve.LeftNormal() * off;
    current_->dir = read_.dir;
    current_->pc = read_.pc;
    current_->ID = read_.ID;
    current_->SetTangents();
  }

  void CountArea() {
    if (read_.dir != LINEAR) read_.SetMeasures();
    area_ += read_.Area();
  }

  /// Closes the gap between previous and current. Returns true when they cross.
  bool Join() {
    if (previous_->NullSpan || !(Dist(previous_->p1, current_->p0) > TOLERANCE)) return false;
    Point crossing;
    if (sense_.Inward(*previous_, *current_) && OnlyCrossing(*previous_, *current_, crossing)) {
      chain_.MoveEnd(*previous_, crossing);
      current_->p0 = crossing;
      current_->SetTangents();
      return true;
    }
    Span arc = RollArc(sense_.rollDir, current_->p0, read_.p0, ROLL_AROUND);
    if (skipped_) {
      // Next to a span that has gone, the vertex is not equally far from both ends.
      arc.p0 = chain_.End();
      arc.pc = arc.CentreOnBisector();
    }
    chain_.AddArc(arc);
    return false;
  }

  const Kurve& source_;
  const OffsetSense& sense_;
  const bool closed_;
  const bool countsArea_;
  VertexChain chain_;
  Span read_;  ///< the source under work
  Span buffers_[2];
  Span* previous_ = &buffers_[0];
  Span* current_ = &buffers_[1];
  bool skipped_ = false;
  double area_ = 0;
};

/// The code of a closed source.
int CheckClosed(const Kurve& made, double sourceArea, double madeArea, double off) {
  return made.Closed() ? CodeOfAreas(sourceArea, madeArea, off) : 2;
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
  RawOffset maker(*this, sense, method);
  RawVertices raw = maker.Make();
  int code = 0;
  Kurve made;
  if (method == 0) {
    made = std::move(raw.contour);
  } else {
    made = EliminateLoops(raw, *this, sense.off, code);
    if (code == 0 && Closed()) {
      const double area = raw.area ? *raw.area * scale * scale : made.Area();
      code = CheckClosed(made, maker.AreaOfSource() * scale * scale, area, sense.off);
    }
  }
  made.reversed = reversed;
  kOffset = std::move(made);
  return code;
}

}  // namespace geometry

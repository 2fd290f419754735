#include <algorithm>
#include <cstdlib>

#include "geometry/kurveex.h"

/// Operations on a working contour as a whole.
namespace geometry {

bool KurveEx::Closed() const {
  return !spans.empty() && Dist(spans.front().p0, spans.back().p1) < CLOSED_TOLERANCE;
}

int KurveEx::Direction() const {
  if (!Closed()) return 0;
  return area > 0 ? -1 : 1;
}

bool KurveEx::Reverse(bool isReversed) {
  if (reversed != isReversed) area = -area;
  reversed = isReversed;
  return reversed;
}

KurveEx KurveEx::ReversedCopy() const {
  KurveEx turned(*this);
  turned.Reverse(!reversed);
  KurveEx copy;
  if (turned.Start().ok) copy.Start(turned.Start());
  copy.index0 = turned.GetIndex0(0);
  copy.index1 = turned.GetIndex1(0);
  for (std::size_t i = 0; i < spans.size(); ++i) copy.Add(turned.ReadSpan(i), true);
  return copy;
}

void KurveEx::Scale(double f) {
  std::vector<Span> scaled = spans;
  for (Span& span : scaled) span.Scale(f);
  spans.swap(scaled);
  start *= f;
  perim *= f;
  area *= f;  // once, not twice as an area would have it
}

void KurveEx::Transform(const Matrix& m) {
  std::vector<Span> moved = spans;
  for (Span& span : moved) span.Transform(m);
  spans.swap(moved);
  if (start.ok) start = start.Transform(m);
}

bool KurveEx::IsFullCircle() const {
  const Span* arc = nullptr;
  for (const Span& span : spans) {
    if (span.NullSpan) continue;
    if (arc == nullptr) arc = &span;
    if (span.dir == LINEAR || span.dir != arc->dir || !(span.pc == arc->pc)) return false;
  }
  return arc != nullptr && Closed();
}

geometry::Box KurveEx::Box() const {
  geometry::Box box;
  for (const Span& span : spans) box.Insert(span.box);
  return box;
}

void KurveEx::Identify(int firstID, int step, bool readingOrder) {
  // Reading gives copies, so numbers given in reading order are lost with them. Callers count on that.
  if (readingOrder) return;
  auto ID = static_cast<std::uint32_t>(firstID);
  for (Span& span : spans) {
    span.ID = ID;
    ID += static_cast<std::uint32_t>(step);
  }
}

std::uint32_t KurveEx::LargestIDGap() const {
  constexpr std::uint32_t kNone = 0x80000000u;
  std::uint32_t previous = kNone;
  std::int64_t largest = 0;
  spVertex v;
  for (int i = 0; i <= SpanCount() && Get(i, v); ++i) {
    const std::uint32_t ID = v.ID & ~ROLL_AROUND;
    const std::int64_t step = static_cast<std::int64_t>(ID) - static_cast<std::int64_t>(previous);
    const bool gap = previous != kNone && (std::llabs(step) > 1 || step == 0);
    if (gap) largest = std::max<std::int64_t>(largest, std::llabs(step - 1));
    previous = ID;
  }
  return static_cast<std::uint32_t>(largest);
}

bool KurveEx::SameUnderTransforms(const Matrix& a, const Matrix& b) const {
  spVertex v;
  for (int i = 0; i <= SpanCount() && Get(i, v); ++i) {
    if (!(v.p.Transform(a) == v.p.Transform(b))) return false;
  }
  return true;
}

}  // namespace geometry

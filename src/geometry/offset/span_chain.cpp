#include "geometry/offset/span_chain.h"

#include <cmath>
#include <utility>

#include "platform/huge_pages.h"

namespace geometry {

void SpanChain::Reserve(std::size_t spans) {
  k_.spans.reserve(spans);
  boxes_.reserve(spans);
  vanzet::platform::PreferHugePages(k_.spans.data(), k_.spans.capacity() * sizeof(Span));
  vanzet::platform::PreferHugePages(boxes_.data(), boxes_.capacity() * sizeof(FlatBox));
}

void SpanChain::Add(const Span& target) {
  const Point begin = k_.spans.empty() ? target.p0 : k_.spans.back().p1;
  Span& added = k_.spans.emplace_back();
  added.p0 = target.p0;
  added.p1 = target.p1;
  added.dir = target.dir;
  added.pc = target.pc;
  added.ID = target.ID;
  added.index0 = target.index0;
  added.index1 = target.index1;
  if (target.dir == LINEAR && target.p0.x == begin.x && target.p0.y == begin.y) {
    added.vs = target.vs;
    added.ve = target.ve;
    added.length = target.length;
    added.radius = target.radius;  // of an arc that is too flat to be one
    added.NullSpan = target.NullSpan;
  } else {
    Settle(added, begin);
  }
  DropNull();
  CompleteAllButLast();
}

void SpanChain::AddAsIs(const Span& target) {
  const Point begin = k_.spans.empty() ? target.p0 : k_.spans.back().p1;
  Span& added = k_.spans.emplace_back(target);
  if (target.dir != LINEAR || target.p0.x != begin.x || target.p0.y != begin.y) Settle(added, begin);
  CompleteAllButLast();
}

void SpanChain::AddNull(const Point& p, std::uint32_t ID) {
  k_.Add(spVertex(LINEAR, p, Point(0, 0), ID), true);
}

void SpanChain::AddArc(int dir, const Point& end, const Point& centre, std::uint32_t ID, bool keepNull) {
  const Point begin = End();
  Span& arc = k_.spans.emplace_back();
  arc.dir = dir;
  arc.p1 = end;
  arc.pc = centre;
  arc.ID = ID;
  Settle(arc, begin);
  if (!keepNull) DropNull();
  CompleteAllButLast();
}

void SpanChain::Settle(Span& added, const Point& begin) {
  added.p0 = begin;
  if (added.dir != LINEAR) added.pc = added.CentreOnBisector();
  added.SetTangents();
}

void SpanChain::DropNull() {
  if (k_.spans.back().NullSpan) k_.spans.pop_back();
}
void SpanChain::CompleteAllButLast() {
  while (boxes_.size() + 1 < k_.spans.size()) Complete(k_.spans[boxes_.size()]);
}

void SpanChain::Complete(Span& span) {
  if (!span.propertiesSet) span.SetMeasures();
  boxes_.emplace_back(span.box);
  perim_ += span.length;
  area_ += span.Area();
}

void SpanChain::MoveEnd(const Span& along, const Point& p) {
  if (k_.spans.empty()) return MoveStart(p);
  Span& last = k_.spans.back();
  last.dir = along.dir;
  last.p1 = p;
  last.pc = along.pc;
  last.ID = along.ID;
  last.SetTangents();
}

void SpanChain::MoveStart(const Point& p) {
  k_.start = p;
  if (k_.spans.empty()) return;
  Span& first = k_.spans.front();
  first.p0 = p;
  first.SetProperties();
  if (boxes_.empty()) return;
  boxes_.front() = first.box;
  startMoved_ = true;
}

RawContour SpanChain::Take() {
  if (boxes_.size() < k_.spans.size()) Complete(k_.spans.back());
  k_.perim = perim_;
  k_.area = area_;
  // A coordinate that is not a number is not even equal to itself.
  const bool finite = std::isfinite(perim_) && (k_.spans.empty() || std::isfinite(k_.spans.front().length));
  return {std::move(k_), std::move(boxes_), finite, !startMoved_};
}

}  // namespace geometry

#include "geometry/offset/vertex_chain.h"

#include <bit>
#include <utility>

#include "platform/huge_pages.h"

namespace geometry {
namespace {

/// A zero and its negative are different here, as in what is computed from them.
bool SameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool SameBits(const Point& a, const Point& b) {
  return SameBits(a.x, b.x) && SameBits(a.y, b.y);
}

}  // namespace

VertexChain::VertexChain(const Matrix& m, int spans, bool measured) : measured_(measured) {
  k_ = m;
  const auto n = static_cast<std::size_t>(spans);
  k_.blocks.reserve((n + n / 2) / SPANSTORAGE + 1);
  if (!measured) return;
  boxes_.reserve(n + n / 2 + 2);
  vanzet::platform::PreferHugePages(boxes_.data(), boxes_.capacity() * sizeof(FlatBox));
}

void VertexChain::Start(const Point& p) {
  k_.Add(spVertex(LINEAR, p, Point(0, 0), 0));
  end_ = p;
}

void VertexChain::Add(const Span& target) {
  const Point begin = end_;
  if (!Append(target)) return;
  // An arc that is too flat to be one is a line in storage, and has another radius as a line.
  const bool holds = SameBits(target.p0, begin) && (target.dir != LINEAR || target.radius == 0.0);
  if (holds) {
    last_.vs = target.vs;
    last_.ve = target.ve;
    last_.length = target.length;
    last_.radius = target.radius;
    last_.NullSpan = target.NullSpan;
    last_.propertiesSet = false;
  } else {
    SetTangents(last_);
  }
}

void VertexChain::AddArc(const Span& arc) {
  if (Append(arc)) SetTangents(last_);
}

/// Appends the vertex. True when the tangents of its span have to be set.
bool VertexChain::Append(const Span& span) {
  if (!k_.Add(span, false)) return false;
  if (measured_ && k_.nVertices > 2) CompleteLast();
  last_.p0 = end_;
  last_.p1 = end_ = span.p1;
  last_.dir = span.dir;
  last_.pc = span.pc;
  last_.ID = span.ID;
  return measured_;
}

void VertexChain::SetTangents(Span& span) {
  const int stored = span.dir;
  span.SetTangents();
  if (span.dir != stored) asStored_ = false;
}

void VertexChain::CompleteLast() {
  last_.SetMeasures();
  if (last_.NullSpan) asStored_ = false;
  boxes_.emplace_back(last_.box);
  area_ += last_.Area();
}

void VertexChain::MoveEnd(const Span& along, const Point& p) {
  k_.Replace(k_.nVertices - 1, along.dir, p, along.pc, along.ID);
  end_ = p;
  if (k_.nVertices == 1) asStored_ = false;  // the first vertex has a centre now
  if (!measured_ || k_.nVertices == 1) return;
  last_.p1 = p;
  last_.dir = along.dir;
  last_.pc = along.pc;
  last_.ID = along.ID;
  SetTangents(last_);
}

void VertexChain::MoveStart(const Point& p) {
  k_.Replace(0, LINEAR, p, Point(0, 0), 0);
  if (!measured_ || k_.nVertices < 2) return;
  Span first;
  k_.GetStored(1, first);
  SetTangents(first);
  first.SetMeasures();
  if (first.NullSpan) asStored_ = false;
  if (boxes_.empty()) {
    last_ = first;
  } else {
    boxes_.front() = first.box;
    startMoved_ = true;
  }
}

RawVertices VertexChain::Take() {
  RawVertices raw;
  if (measured_ && k_.nVertices > 1) CompleteLast();
  raw.contour = std::move(k_);
  raw.boxes = std::move(boxes_);
  raw.asStored = asStored_;
  if (measured_ && !startMoved_) raw.area = area_;
  return raw;
}

}  // namespace geometry

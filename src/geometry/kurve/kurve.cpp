#include "geometry/kurve.h"

#include <algorithm>
#include <utility>

#include "geometry/kurveex.h"

/// Storage and building of contours.
namespace geometry {

SpanVertexBlock::SpanVertexBlock() {
  std::fill(std::begin(index), std::end(index), IndexWord{0});
}

Kurve::Kurve() = default;

Kurve::Kurve(const Kurve& k) : Matrix(k) {
  CopyVertices(k);
}

Kurve::Kurve(Kurve&& k) noexcept : Matrix(k) {
  TakeVertices(k);
  reversed = k.reversed;
  k.Clear();
}

Kurve::Kurve(const KurveEx& k) {
  if (k.spans.empty() && k.start.ok) Start(k.start);
  for (const Span& span : k.spans) Add(span, true);
  reversed = k.reversed;
}

Kurve::Kurve(const Point& c, double r, int dir) {
  Start(Point(c.x + r, c.y));
  blocks[0]->ID[0] = FULL_CIRCLE_KURVE;
  Add(spVertex(dir, Point(c.x - r, c.y), c, FULL_CIRCLE_KURVE));
  Add(spVertex(dir, Point(c.x + r, c.y), c, FULL_CIRCLE_KURVE));
}

Kurve::~Kurve() {
  DropVertices();
}

Kurve& Kurve::operator=(const Kurve& k) {
  if (this == &k) return *this;
  DropVertices();
  Matrix::operator=(k);
  CopyVertices(k);
  return *this;
}

Kurve& Kurve::operator=(Kurve&& k) noexcept {
  if (this == &k) return *this;
  Matrix::operator=(k);
  TakeVertices(k);
  reversed = k.reversed;
  k.Clear();
  return *this;
}

Kurve& Kurve::operator=(const Matrix& m) {
  Matrix::operator=(m);
  return *this;
}

void Kurve::Clear() {
  DropVertices();
  started = false;
  reversed = false;
}

void Kurve::DropVertices() {
  for (SpanVertexBlock* block : blocks) delete block;
  blocks.clear();
  nVertices = 0;
}

/// Requires: no vertices here.
void Kurve::CopyVertices(const Kurve& k) {
  blocks.reserve(k.blocks.size());
  for (const SpanVertexBlock* block : k.blocks) blocks.push_back(new SpanVertexBlock(*block));
  nVertices = k.nVertices;
  started = nVertices > 0;
  reversed = k.reversed;
}

/// Leaves `k` with the former vertices; matrix and `reversed` stay on both sides.
void Kurve::TakeVertices(Kurve& k) {
  std::swap(blocks, k.blocks);
  std::swap(nVertices, k.nVertices);
  std::swap(started, k.started);
}

void Kurve::Start(const Point& p) {
  if (started) DropVertices();
  started = true;
  Append(LINEAR, p, Point(0, 0));
}

void Kurve::Append(int type, const Point& p, const Point& pc) {
  if (nVertices % SPANSTORAGE == 0) blocks.push_back(new SpanVertexBlock);
  Store(nVertices, type, p, pc, UNMARKED);
  ++nVertices;
}

/// Requires: a block for that number.
void Kurve::Store(int vertexNumber, int type, const Point& p, const Point& pc, std::uint32_t ID) {
  SpanVertexBlock& block = *blocks[static_cast<std::size_t>(vertexNumber / SPANSTORAGE)];
  const int i = vertexNumber % SPANSTORAGE;
  block.type[i] = type;
  block.ID[i] = ID;
  block.x[i] = p.x;
  block.y[i] = p.y;
  block.xc[i] = pc.x;
  block.yc[i] = pc.y;
}

bool Kurve::Add(int type, const Point& p, const Point& pc, bool addNullSpans) {
  return Add(spVertex(type, p, pc), addNullSpans);
}

bool Kurve::Add(const spVertex& v, bool addNullSpans) {
  if (!started) {
    Start(v.p);
    Store(nVertices - 1, LINEAR, v.p, Point(0, 0), v.ID);
    return true;
  }
  int type = v.type;
  if (nVertices > 0 && Dist(StoredPoint(nVertices - 1), v.p) < TOLERANCE) {
    if (!addNullSpans) return false;
    type = LINEAR;
  }
  if (nVertices % SPANSTORAGE == 0) blocks.push_back(new SpanVertexBlock);
  Store(nVertices++, type, v.p, v.pc, v.ID);
  return true;
}

bool Kurve::Add(const Span& s, bool addNullSpans) {
  if (!started) Start(s.p0);
  return Add(spVertex(s.dir, s.p1, s.pc, s.ID), addNullSpans);
}

bool Kurve::Add(const Point& p, bool addNullSpans) {
  return Add(LINEAR, p, Point(0, 0), addNullSpans);
}

void Kurve::Add(const Kurve& k, bool addNullSpans) {
  if (this == &k) return Add(Kurve(k), addNullSpans);
  Matrix bring(k);
  if (!unit) bring.Multiply(Inverse());
  // All are brought before the first is added, as any of them may be refused.
  std::vector<Span> brought(static_cast<std::size_t>(k.SpanCount()));
  for (int i = 1; i <= k.SpanCount(); ++i) {
    Span& span = brought[static_cast<std::size_t>(i) - 1];
    k.Get(i, span);
    if (!bring.unit) span.Transform(bring);
  }
  if (brought.empty()) return;
  const Point& begin = brought.front().p0;
  if (nVertices > 0 && Dist(Stored(nVertices - 1).p, begin) > TOLERANCE) Add(begin, addNullSpans);
  for (const Span& span : brought) Add(span, addNullSpans);
}

void Kurve::AddNullSpan() {
  if (nVertices == 0) throw L"Invalid attempt to add null span - no start";
  Add(Stored(nVertices - 1).p, true);
}

void Kurve::Replace(int vertexNumber, int type, const Point& p, const Point& pc, std::uint32_t ID) {
  if (vertexNumber < 0 || vertexNumber > nVertices) {
    ThrowError(L"Kurve::Replace - vertexNumber out of range", 0, 1007);
  }
  // The number after the last vertex has a slot unless the last block is full.
  if (vertexNumber / SPANSTORAGE < static_cast<int>(blocks.size())) Store(vertexNumber, type, p, pc, ID);
}

bool Add(Kurve* k, int type, const Point& p, const Point& pc, bool addNullSpans) {
  if (k == nullptr) throw L"Kurve::Add - No Kurve Object";
  return k->Add(type, p, pc, addNullSpans);
}

void Replace(Kurve* k, int vertexNumber, int type, const Point& p, const Point& pc, std::uint32_t ID) {
  if (k == nullptr) ThrowError(L"Kurve::Replace - vertexNumber out of range", 0, 1007);
  k->Replace(vertexNumber, type, p, pc, ID);
}

}  // namespace geometry

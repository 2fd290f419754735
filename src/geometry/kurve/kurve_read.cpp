#include "geometry/kurve.h"

/// Reading of vertices, spans and index words, forwards and reversed.
namespace geometry {
namespace {

constexpr int kNoSpan = -99;

[[noreturn]] void RefuseGet() {
  ThrowError(L"Kurve::Get - vertexNumber out of range", 0, 1007);
}
[[noreturn]] void RefuseGetIndex() {
  ThrowError(L"Kurve::GetIndex - vertexNumber out of range", 0, 1007);
}
[[noreturn]] void RefuseModifyIndex() {
  ThrowError(L"Kurve::ModifyIndex - vertexNumber out of range", 0, 1007);
}

/// Fills a span between two vertices and declares its caches stale.
void FillSpan(Span& span, const Point& start, const spVertex& end) {
  span.p0 = start;
  span.p1 = end.p;
  span.dir = end.type;
  span.pc = end.pc;
  span.ID = end.ID;
  span.propertiesSet = false;
}

}  // namespace

int Kurve::Get(int vertexNumber, Point& p, Point& pc) const {
  if (vertexNumber < 0 || vertexNumber >= nVertices) RefuseGet();
  if (!reversed) {
    const spVertex v = Stored(vertexNumber);
    p = v.p;
    pc = v.pc;
    return v.type;
  }
  p = StoredPoint(nVertices - 1 - vertexNumber);
  if (vertexNumber == 0) return LINEAR;
  const spVertex owner = Stored(nVertices - vertexNumber);
  pc = owner.pc;
  return -owner.type;
}

int Kurve::Get(int vertexNumber, Point3d& p, Point3d& pc) const {
  Point flat;
  Point centre(pc);
  const int type = Get(vertexNumber, flat, centre);
  p = Point3d(flat);
  pc = Point3d(centre);
  return type;
}

int Kurve::Get(int vertexNumber, spVertex& v) const {
  v.type = Get(vertexNumber, v.p, v.pc);
  v.ID = GetSpanID(vertexNumber);
  return v.type;
}

std::uint32_t Kurve::GetSpanID(int vertexNumber) const {
  if (vertexNumber < 0 || vertexNumber >= nVertices) RefuseGet();
  const int stored = reversed ? nVertices - 1 - vertexNumber : vertexNumber;
  return BlockOf(stored).ID[stored % SPANSTORAGE];
}

int Kurve::Get(int spanNumber, Span& span, bool returnProperties, bool transform) const {
  if (spanNumber < 1 || spanNumber > nVertices) RefuseGet();
  if (nVertices < 2) return kNoSpan;
  if (spanNumber == nVertices) RefuseGet();
  if (!reversed) {
    FillSpan(span, StoredPoint(spanNumber - 1), Stored(spanNumber));
  } else {
    spVertex end;
    Get(spanNumber, end);
    FillSpan(span, StoredPoint(nVertices - spanNumber), end);
  }
  if (transform && !unit) {
    span.Transform(*this);
  } else if (returnProperties) {
    span.SetProperties();
  }
  return span.dir;
}

int Kurve::GetStored(int spanNumber, Span& span) const {
  if (spanNumber < 1 || spanNumber > nVertices) RefuseGet();
  if (nVertices < 2) return kNoSpan;
  if (spanNumber == nVertices) RefuseGet();
  FillSpan(span, StoredPoint(spanNumber - 1), Stored(spanNumber));
  return span.dir;
}

IndexWord Kurve::GetIndex(int vertexNumber) const {
  if (vertexNumber < 0 || vertexNumber > nVertices - 1) RefuseGetIndex();
  return StoredIndex(reversed ? nVertices - 1 - vertexNumber : vertexNumber);
}

IndexWord Kurve::StoredIndex(int vertexNumber) const {
  return BlockOf(vertexNumber).index[vertexNumber % SPANSTORAGE];
}

void Kurve::ModifyIndex(int vertexNumber, IndexWord value) {
  if (vertexNumber < 0 || vertexNumber > nVertices) RefuseModifyIndex();
  const auto block = static_cast<std::size_t>(vertexNumber / SPANSTORAGE);
  if (block < blocks.size()) blocks[block]->index[vertexNumber % SPANSTORAGE] = value;
}

bool Kurve::operator==(const Kurve& k) const {
  if (nVertices != k.nVertices) return false;
  for (int i = 0; i < nVertices; ++i) {
    spVertex mine;
    spVertex other;
    Get(i, mine);
    k.Get(i, other);
    if (!(mine == other)) return false;
  }
  return true;
}

IndexWord GetIndex(const Kurve* k, int vertexNumber) {
  if (k == nullptr) RefuseGetIndex();
  return k->GetIndex(vertexNumber);
}

void ModifyIndex(Kurve* k, int vertexNumber, IndexWord value) {
  if (k == nullptr) RefuseModifyIndex();
  k->ModifyIndex(vertexNumber, value);
}

}  // namespace geometry

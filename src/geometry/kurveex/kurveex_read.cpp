#include "geometry/kurveex.h"

/// Reading of working contours, forwards and reversed, and their index words.
namespace geometry {
namespace {

const wchar_t* const kAddIndex0 = L"KurveEx::AddIndex0 - vertexNumber out of range";
const wchar_t* const kAddIndex1 = L"KurveEx::AddIndex1 - vertexNumber out of range";
const wchar_t* const kGetIndex = L"KurveEx::GetIndex - vertexNumber out of range";

[[noreturn]] void Refuse(const wchar_t* text) {
  ThrowError(text, 0, 0);
}

}  // namespace

/// Requires: the index is in range.
Span KurveEx::ReadSpan(std::size_t index) const {
  if (!reversed) return spans[index];
  const std::size_t stored = spans.size() - 1 - index;
  Span span = spans[stored].Reversed();
  // Words belong to vertices: the end of the reversed span is the start of the stored one.
  span.index0 = stored > 0 ? spans[stored - 1].index0 : index0;
  span.index1 = stored > 0 ? spans[stored - 1].index1 : index1;
  return span;
}

bool KurveEx::Get(int spanNumber, Span& span) const {
  return spanNumber >= 1 && Get(static_cast<std::size_t>(spanNumber) - 1, span);
}

bool KurveEx::Get(std::size_t index, Span& span) const {
  if (index >= spans.size()) return false;
  span = ReadSpan(index);
  return true;
}

bool KurveEx::Get(int vertexNumber, spVertex& v) const {
  const int n = SpanCount();
  if (vertexNumber < 0 || vertexNumber > n || (n == 0 && !start.ok)) return false;
  if (vertexNumber == 0) {
    v = spVertex(LINEAR, reversed ? StoredEnd() : start, Point(0, 0), 0);
    return true;
  }
  const Span& span = spans[static_cast<std::size_t>(reversed ? n - vertexNumber : vertexNumber - 1)];
  v = reversed ? spVertex(-span.dir, span.p0, span.pc, span.ID)
               : spVertex(span.dir, span.p1, span.pc, span.ID);
  return true;
}

Point KurveEx::Start() const {
  if (spans.empty()) return start.ok ? start : INVALID_POINT;
  return reversed ? spans.back().p1 : spans.front().p0;
}

Point KurveEx::End() const {
  if (spans.empty()) return start.ok ? start : INVALID_POINT;
  return reversed ? spans.front().p0 : spans.back().p1;
}

bool KurveEx::FirstNonNull(Span& span) const {
  for (std::size_t i = 0; i < spans.size(); ++i) {
    if (spans[reversed ? spans.size() - 1 - i : i].NullSpan) continue;
    span = ReadSpan(i);
    return true;
  }
  return false;
}

bool KurveEx::LastNonNull(Span& span) const {
  for (std::size_t i = spans.size(); i-- > 0;) {
    if (spans[reversed ? spans.size() - 1 - i : i].NullSpan) continue;
    span = ReadSpan(i);
    return true;
  }
  return false;
}

Point KurveEx::FirstNonNullPoint() const {
  Span span;
  return FirstNonNull(span) ? span.p0 : INVALID_POINT;
}

Point KurveEx::LastNonNullPoint() const {
  Span span;
  return LastNonNull(span) ? span.p1 : INVALID_POINT;
}

Span KurveEx::FirstNonNullSpan() const {
  if (spans.empty()) throw std::runtime_error("Kurve ist empty.");
  Span span;
  if (!FirstNonNull(span)) throw std::runtime_error("Kurve has no non-null spans");
  return span;
}

Span KurveEx::LastNonNullSpan() const {
  if (spans.empty()) throw std::runtime_error("Kurve ist empty.");
  Span span;
  if (!LastNonNull(span)) throw std::runtime_error("Kurve has no non-null spans");
  return span;
}

bool KurveEx::operator==(const KurveEx& k) const {
  if (spans.size() != k.spans.size()) return false;
  for (std::size_t i = 0; i < spans.size(); ++i) {
    if (!(ReadSpan(i) == k.ReadSpan(i))) return false;
  }
  return true;
}

/// The number in storage of the vertex that is read under that number.
std::size_t KurveEx::StoredVertex(int vertexNumber, const wchar_t* refusal) const {
  const int n = SpanCount();
  if (vertexNumber < 0 || vertexNumber > n) Refuse(refusal);
  return static_cast<std::size_t>(reversed ? n - vertexNumber : vertexNumber);
}

const IndexWord& KurveEx::WordAt(int vertexNumber, Word word, SpanWord spanWord,
                                 const wchar_t* refusal) const {
  const std::size_t stored = StoredVertex(vertexNumber, refusal);
  return stored == 0 ? this->*word : spans[stored - 1].*spanWord;
}

IndexWord& KurveEx::WordAt(int vertexNumber, Word word, SpanWord spanWord, const wchar_t* refusal) {
  const std::size_t stored = StoredVertex(vertexNumber, refusal);
  return stored == 0 ? this->*word : spans[stored - 1].*spanWord;
}

void KurveEx::AddIndex0(int vertexNumber, IndexWord value) {
  WordAt(vertexNumber, &KurveEx::index0, &Span::index0, kAddIndex0) = value;
}

void KurveEx::AddIndex1(int vertexNumber, IndexWord value) {
  WordAt(vertexNumber, &KurveEx::index1, &Span::index1, kAddIndex1) = value;
}

IndexWord KurveEx::GetIndex0(int vertexNumber) const {
  return WordAt(vertexNumber, &KurveEx::index0, &Span::index0, kGetIndex);
}

IndexWord KurveEx::GetIndex1(int vertexNumber) const {
  return WordAt(vertexNumber, &KurveEx::index1, &Span::index1, kGetIndex);
}

void AddIndex0(KurveEx* k, int vertexNumber, IndexWord value) {
  if (k == nullptr) Refuse(kAddIndex0);
  k->AddIndex0(vertexNumber, value);
}

void AddIndex1(KurveEx* k, int vertexNumber, IndexWord value) {
  if (k == nullptr) Refuse(kAddIndex1);
  k->AddIndex1(vertexNumber, value);
}

IndexWord GetIndex0(const KurveEx* k, int vertexNumber) {
  if (k == nullptr) Refuse(kGetIndex);
  return k->GetIndex0(vertexNumber);
}

IndexWord GetIndex1(const KurveEx* k, int vertexNumber) {
  if (k == nullptr) Refuse(kGetIndex);
  return k->GetIndex1(vertexNumber);
}

}  // namespace geometry

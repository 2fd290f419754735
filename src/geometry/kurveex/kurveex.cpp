#include <cmath>

#include "geometry/biarc.h"
#include "geometry/kurveex.h"

/// Building of working contours, with their running totals.
namespace geometry {

KurveEx::~KurveEx() = default;
KurveEx::KurveEx() = default;
KurveEx::KurveEx(const KurveEx& k) = default;
KurveEx& KurveEx::operator=(const KurveEx& k) = default;
KurveEx::KurveEx(KurveEx&& k) noexcept = default;
KurveEx& KurveEx::operator=(KurveEx&& k) noexcept = default;

KurveEx::KurveEx(const Kurve& k) {
  Span span;
  if (k.nVertices == 1) {
    Point only;
    Point unusedCentre;
    k.Get(0, only, unusedCentre);
    Start(only.Transform(k));
  }
  for (int i = 1; i <= k.SpanCount(); ++i) {
    k.Get(i, span, true, true);
    // The vertex before, not the one that owns the span.
    span.ID = k.GetSpanID(i - 1);
    Add(span, true);
  }
}

KurveEx::KurveEx(const Point& c, double r, int dir) {
  SetAsCircle(dir, c, r);
}

void KurveEx::SetAsCircle(int dir, const Point& centre, double radius) {
  Start(Point(centre.x + radius, centre.y));
  Add(spVertex(dir, Point(centre.x - radius, centre.y), centre, FULL_CIRCLE_KURVE), true);
  Add(spVertex(dir, Point(centre.x + radius, centre.y), centre, FULL_CIRCLE_KURVE), true);
}

void KurveEx::Clear() {
  spans.clear();
  reversed = false;
  perim = area = 0.0;
  index0 = index1 = 0;
  start = Point();
  flag = 1;
}

void KurveEx::Start(const Point& p) {
  const Point first(p.x, p.y);  // `p` may belong to this contour
  Clear();
  start = first;
}

/// Takes a span into the totals, or out of them with sign -1.
void KurveEx::CountIn(const Span& span, double sign) {
  perim += sign * span.length;
  area += sign * (reversed ? -span.Area() : span.Area());
}

Point KurveEx::StoredEnd() const {
  return spans.empty() ? start : spans.back().p1;
}

bool KurveEx::Add(const Span& span, bool addNullSpans) {
  Span added = span;
  if (!spans.empty()) added.p0 = spans.back().p1;
  if (added.dir != LINEAR) added.pc = added.CentreOnBisector();
  added.SetProperties();
  if (!addNullSpans && added.NullSpan) return false;
  if (!start.ok) {
    start = added.p0;
    start.ok = true;
  }
  CountIn(added, 1);
  spans.push_back(added);
  return true;
}

void KurveEx::Add(const KurveEx& k, bool addNullSpans) {
  if (this == &k) return Add(KurveEx(k), addNullSpans);
  IndexWord& joint0 = spans.empty() ? index0 : spans.back().index0;
  IndexWord& joint1 = spans.empty() ? index1 : spans.back().index1;
  const IndexWord word0 = k.GetIndex0(0);
  const IndexWord word1 = k.GetIndex1(0);
  if (word0 != 0 && joint0 != 0 && joint0 != word0) throw L"Adding 2 Kurves - looses Index0";
  if (word1 != 0 && joint1 != 0 && joint1 != word1) throw L"Adding 2 Kurves - looses Index1";
  if (word0 != 0) joint0 = word0;
  if (word1 != 0) joint1 = word1;
  for (std::size_t i = 0; i < k.spans.size(); ++i) Add(k.ReadSpan(i), addNullSpans);
}

bool KurveEx::Add(int type, const Point& p, const Point& pc, bool addNullSpans) {
  return Add(spVertex(type, p, pc), addNullSpans);
}

bool KurveEx::Add(const spVertex& v, bool addNullSpans) {
  if (!start.ok) {
    Start(v.p);
    return true;
  }
  return Add(Span(v.type, StoredEnd(), v.p, v.pc, v.ID), addNullSpans);
}

bool KurveEx::Add(double x, double y, bool addNullSpans) {
  return Add(LINEAR, Point(x, y), Point(0, 0), addNullSpans);
}

void KurveEx::AddNullSpan() {
  if (!start.ok) throw L"Cannot add Nullspan if no start";
  Add(LINEAR, StoredEnd(), Point(0, 0), true);
}

bool KurveEx::AddAtStart(const Span& span, bool addNullSpans) {
  if (spans.empty()) return Add(span, addNullSpans);
  KurveEx rebuilt;
  rebuilt.reversed = reversed;
  if (!rebuilt.Add(span, addNullSpans)) return false;
  // What was the start's is the new span's end now, unless the span brings words of its own.
  Span& first = rebuilt.spans.front();
  if (first.index0 == 0) first.index0 = index0;
  if (first.index1 == 0) first.index1 = index1;
  for (const Span& old : spans) rebuilt.Add(old, true);
  *this = rebuilt;
  return true;
}

void KurveEx::Replace(int vertexNumber, int type, const Point& p, const Point& pc, std::uint32_t ID) {
  if (reversed) throw L"KurveEx::Replace reversed - not coded";
  if (vertexNumber == 0) {
    SetStartPoint(p);
  } else if (vertexNumber == SpanCount()) {
    SetEndVertex(type, p, pc, ID);
  } else {
    throw L"Kurve::Replace - vertexNumber out of range";
  }
}

void KurveEx::SetStartPoint(const Point& p) {
  Point moved = p;
  moved.ok = true;
  if (!spans.empty()) {
    Span first = spans.front();
    first.p0 = moved;
    first.SetProperties();
    CountIn(spans.front(), -1);
    CountIn(first, 1);
    spans.front() = first;
  }
  start = moved;
}

void KurveEx::SetEndVertex(int type, const Point& p, const Point& pc, std::uint32_t ID) {
  Span last = spans.back();
  last.dir = type;
  last.p1 = p;
  last.pc = pc;
  last.ID = ID;
  last.SetProperties();
  CountIn(spans.back(), -1);
  CountIn(last, 1);
  spans.back() = last;
}

/// Moves the end of the last span; the centre of an arc follows.
void KurveEx::MoveEnd(const Point& p) {
  Span last = spans.back();
  RemoveLast();
  last.p1 = p;
  Add(last, true);
}

/// Moves the start of the first span; the centre of an arc follows.
void KurveEx::MoveStart(const Point& p) {
  Span& first = spans.front();
  CountIn(first, -1);
  first.p0 = p;
  if (first.dir != LINEAR) first.pc = first.CentreOnBisector();
  first.SetProperties();
  CountIn(first, 1);
  start = p;
}

void KurveEx::RemoveFirst() {
  if (spans.empty()) return;
  CountIn(spans.front(), -1);
  spans.erase(spans.begin());
}

void KurveEx::RemoveLast() {
  if (spans.empty()) return;
  CountIn(spans.back(), -1);
  spans.pop_back();
}

KurveEx EllipseToSpans(const Point& centre, double radiusX, double radiusY, const Matrix& m) {
  constexpr int kSteps = 37;
  constexpr double kStep = 0.17453292519943295;  // 10 degrees: the last step is the first again
  const auto tangentAt = [&](int i) {
    const double x = std::cos(i * kStep);
    const double y = std::sin(i * kStep);
    Vector2d direction(-radiusX * y, radiusY * x);
    direction.Transform(m);
    return CLine(Point(centre.x + radiusX * x, centre.y + radiusY * y).Transform(m), direction, true);
  };
  KurveEx ellipse;
  CLine from = tangentAt(0);
  ellipse.Start(from.p);
  for (int i = 1; i < kSteps; ++i) {
    const CLine to = tangentAt(i);
    Span first(from.p, to.p);
    Span second(to.p, to.p);
    Biarc(from, to, first, second);
    ellipse.Add(first, true);
    ellipse.Add(second, true);
    from = to;
  }
  return ellipse;
}

}  // namespace geometry

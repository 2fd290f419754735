#include <cmath>

#include "geometry/equalise.h"

namespace geometry {
namespace {

using Infos = std::vector<SpanInfo>;

/// How two spans, or two lists of them, compare.
enum Comparison { kEqual = 0, kMirrored = 1, kDifferent = 2 };

/// Sets the members that depend on the neighbours in the list.
void Connect(Infos& infos, bool closed) {
  const std::size_t n = infos.size();
  for (std::size_t i = 0; i < n; ++i) {
    SpanInfo& info = infos[i];
    info.hasNext = closed || i + 1 < n;
    info.hasPrevious = closed || i > 0;
    if (info.hasNext) info.dotNext = Dot(info.ve, infos[(i + 1) % n].vs);
    if (info.hasPrevious) info.dotPrevious = Dot(info.vs, infos[(i + n - 1) % n].ve);
  }
}

Infos InfosOf(const KurveEx& k) {
  Infos infos;
  Span span;
  for (int i = 1; k.Get(i, span); ++i) infos.push_back({span, false, false, 0, 0, span.vs, span.ve});
  Connect(infos, k.Closed());
  return infos;
}

/// From the last span backwards, with tangents exchanged. Spans keep their sense: a mirrored contour that
/// runs the other way round turns as the first one does.
Infos Backwards(const Infos& infos, bool closed) {
  Infos back;
  for (std::size_t i = infos.size(); i-- > 0;) {
    back.push_back({infos[i].span, false, false, 0, 0, infos[i].ve, infos[i].vs});
  }
  Connect(back, closed);
  return back;
}

Comparison CompareJoints(const SpanInfo& a, const SpanInfo& b) {
  if (a.hasNext && a.hasPrevious) {
    const double stepA = a.dotNext - a.dotPrevious;
    const double stepB = b.dotNext - b.dotPrevious;
    if (NearEqual(stepA, stepB, TOLERANCE)) return kEqual;
    return NearEqual(stepA, -stepB, TOLERANCE) ? kMirrored : kDifferent;
  }
  if (a.hasNext) return NearEqual(a.dotNext, b.dotNext, TOLERANCE) ? kEqual : kDifferent;
  if (a.hasPrevious) return NearEqual(a.dotPrevious, b.dotPrevious, TOLERANCE) ? kEqual : kDifferent;
  return kEqual;
}

Comparison ComparePair(const SpanInfo& a, const SpanInfo& b) {
  if (a.span.dir != b.span.dir || a.hasNext != b.hasNext || a.hasPrevious != b.hasPrevious) return kDifferent;
  if (!NearEqual(a.span.length, b.span.length, TOLERANCE)) return kDifferent;
  if (a.span.dir != LINEAR && !NearEqual(a.span.radius, b.span.radius, TOLERANCE)) return kDifferent;
  return CompareJoints(a, b);
}

Comparison CompareLists(const Infos& a, const Infos& b, std::size_t offset) {
  Comparison result = kEqual;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const Comparison pair = ComparePair(a[i], b[(i + offset) % b.size()]);
    if (pair == kDifferent) return kDifferent;
    if (pair == kMirrored) result = kMirrored;
  }
  return result;
}

/// Where the lists match, and how.
struct Match {
  Comparison result = kDifferent;
  std::size_t offset = 0;
};

Match FindOffset(const Infos& a, const Infos& b, bool closed) {
  for (std::size_t k = 0; k < (closed ? b.size() : 1); ++k) {
    const Comparison result = CompareLists(a, b, k);
    if (result != kDifferent) return {result, k};
  }
  return {};
}

Vector2d UnitChord(const Point& from, const Point& to) {
  Vector2d chord(from, to);
  chord.Normalise();
  return chord;
}

/// Takes span `s` onto span `t`, mirrored so that its start comes to the end of `t`.
Matrix Onto(const Span& s, const Span& t, bool mirrored) {
  Matrix m;
  if (mirrored) m.Mirror(Plane(Point3d(s.p0), Point3d(s.p1), Point3d(s.p1, 1.0)));
  m.Translate(-s.p0.x, -s.p0.y);
  const Vector2d from = UnitChord(s.p0, s.p1);
  const Vector2d to = mirrored ? UnitChord(t.p1, t.p0) : UnitChord(t.p0, t.p1);
  m.Rotate(Cross(from, to), Dot(from, to), 3);
  const Point& target = mirrored ? t.p1 : t.p0;
  m.Translate(target.x, target.y);
  return m;
}

/// Whether each span of `a`, moved, is a span of `b`, from one that the first is on cyclically.
bool Covers(const Infos& a, const Infos& b, const Matrix& move) {
  const auto isMoved = [&](const Span& source, const Span& other) {
    Span moved = source;
    moved.Transform(move);
    return moved == other;
  };
  std::size_t k = 0;
  while (k < b.size() && !isMoved(a.front().span, b[k].span)) ++k;
  if (k == b.size()) return false;
  for (std::size_t i = 1; i < a.size(); ++i) {
    if (!isMoved(a[i].span, b[(i + k) % b.size()].span)) return false;
  }
  return true;
}

/// Replaces a matrix that does not turn by the translation of the boxes, where that does.
void FitTranslation(const KurveEx& a, const KurveEx& b, const Infos& infosA, const Infos& infosB, Matrix& m) {
  double angles[3] = {};
  m.GetRotation(angles[0], angles[1], angles[2]);
  for (const double angle : angles) {
    if (!NearZero(angle, TIGHT_TOLERANCE)) return;
  }
  const Box boxA = a.Box();
  const Box boxB = b.Box();
  if (!NearEqual(boxA.Width(), boxB.Width(), TOLERANCE) ||
      !NearEqual(boxA.Height(), boxB.Height(), TOLERANCE)) {
    return;
  }
  Matrix translation;
  translation.Translate(boxB.min.x - boxA.min.x, boxB.min.y - boxA.min.y);
  if (Covers(infosA, infosB, translation)) m = translation;
}

bool TotalsAgree(const KurveEx& a, const KurveEx& b, bool allowMirror) {
  if (a.Closed() != b.Closed() || a.SpanCount() != b.SpanCount() || a.spans.empty()) return false;
  const double areaA = allowMirror ? std::fabs(a.area) : a.area;
  const double areaB = allowMirror ? std::fabs(b.area) : b.area;
  return NearEqual(a.perim, b.perim, TOLERANCE) && NearEqual(areaA, areaB, TOLERANCE);
}

/// The first span with a chord, which gives the direction; the first of all when no span has one.
std::size_t Guide(const Infos& infos) {
  std::size_t i = 0;
  while (i < infos.size() && infos[i].span.NullSpan) ++i;
  return i < infos.size() ? i : 0;
}

}  // namespace

bool SameShape(const KurveEx& a, const KurveEx& b, Matrix*& matrix, bool reversedA, int dirA, bool reversedB,
               int dirB, bool allowMirror) {
  if (reversedA != reversedB || dirA != dirB || !TotalsAgree(a, b, allowMirror)) return false;
  const Infos infosA = InfosOf(a);
  Infos infosB = InfosOf(b);
  if (matrix == nullptr) matrix = new Matrix;
  const bool closed = a.Closed();
  Match match = FindOffset(infosA, infosB, closed);
  if (match.result == kDifferent && closed) {
    infosB = Backwards(infosB, closed);
    match = FindOffset(infosA, infosB, closed);
    if (match.result == kEqual) match.result = kMirrored;
  }
  const bool mirrored = match.result == kMirrored;
  if (match.result == kDifferent || (mirrored && !allowMirror)) return false;
  const std::size_t guide = Guide(infosA);
  *matrix = Onto(infosA[guide].span, infosB[(guide + match.offset) % infosB.size()].span, mirrored);
  if (!mirrored) FitTranslation(a, b, infosA, infosB, *matrix);
  return true;
}

}  // namespace geometry

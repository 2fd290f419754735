#include <cmath>

#include "geometry/construct.h"
#include "geometry/intersect.h"
#include "geometry/span.h"

/// Points, tangents and measures along a span, and the span that runs along given points.
namespace geometry {
namespace {

constexpr double kFractionTolerance = 1e-14;
constexpr int kSearchSteps = 10000;

/// The fraction among 10001 samples where `distanceAt` is least, the first of equal ones, or -1 when even the
/// least is above `TOLERANCE`.
template <class DistanceAt>
double SearchFraction(DistanceAt distanceAt) {
  double best = 1e100;
  double fraction = -1.0;
  for (int i = 0; i <= kSearchSteps; ++i) {
    const double f = static_cast<double>(i) / kSearchSteps;
    const double distance = distanceAt(f);
    if (distance < best) {
      best = distance;
      fraction = f;
    }
  }
  return NearZero(best, TOLERANCE) ? fraction : -1.0;
}

/// Whether every sample but the ends and the middle one, which made the element, is within `t` of it.
template <class DistanceOf>
bool AllWithin(const Point* p, int n, double t, DistanceOf distanceOf) {
  for (int i = 0; i <= n; ++i) {
    if (i != n / 2 && !NearZero(distanceOf(p[i]), t)) return false;
  }
  return true;
}

}  // namespace

Point Span::Mid() const {
  if (dir == LINEAR) return {(p0.x + p1.x) * 0.5, (p0.y + p1.y) * 0.5};
  NeedProperties();
  Vector2d chord(p0, p1);
  if (chord.Normalise() == 0.0) return p0;
  const Point middle((p0.x + p1.x) * 0.5, (p0.y + p1.y) * 0.5);
  // An anticlockwise arc is on the right of its chord, so the chord's left normal meets it first.
  return Intof(dir == CW ? -1 : 1, CLine(middle, chord.LeftNormal(), true), Circle(pc, radius));
}

Point Span::CentreOnBisector() const {
  Vector2d chord(p0, p1);
  if (chord.Normalise() == 0.0) return pc;
  const Point middle((p0.x + p1.x) * 0.5, (p0.y + p1.y) * 0.5);
  const Vector2d normal = chord.LeftNormal();
  return middle + normal * Dot(Vector2d(middle, pc), normal);
}

Point Span::Along(double d) const {
  NeedProperties();
  if (NullSpan) return p0;
  if (dir == LINEAR) return p0 + vs * d;
  Vector2d spoke(pc, p0);
  const double turn = d * dir / radius;
  spoke.Rotate(std::cos(turn), std::sin(turn));
  return pc + spoke;
}

Point Span::AlongFraction(double f) const {
  NeedProperties();
  if (NullSpan || NearZero(f, kFractionTolerance)) return p0;
  if (NearEqual(f, 1.0, kFractionTolerance)) return p1;
  return Along(f * length);
}

Vector2d Span::Tangent(double t) const {
  NeedProperties();
  if (dir == LINEAR) return vs;
  Vector2d spoke(pc, AlongFraction(t));
  spoke.Normalise();
  return dir == CW ? -spoke.LeftNormal() : spoke.LeftNormal();
}

void Span::StepMatrix(int n, Matrix& m) const {
  NeedProperties();
  m.Unit();
  if (dir == LINEAR) {
    const Vector2d step = vs * (length / n);
    m.Translate(step.dx, step.dy);
  } else {
    m.Translate(-pc.x, -pc.y);
    m.Rotate(angle / n, 3);
    m.Translate(pc.x, pc.y);
  }
}

double Span::Area() const {
  if (dir == LINEAR) return 0.5 * (p1.x - p0.x) * (p0.y + p1.y);
  NeedProperties();
  // The trapezoids under the two spokes, less the sector between them.
  return 0.5 * ((pc.x - p0.x) * (pc.y + p0.y) - (pc.x - p1.x) * (pc.y + p1.y) - angle * radius * radius);
}

double Span::FindTangent(const Vector2d& v) const {
  return SearchFraction([&](double f) { return (Tangent(f) - v).Magnitude(); });
}

double Span::FindPoint(const Point& p) const {
  return SearchFraction([&](double f) { return geometry::Dist(AlongFraction(f), p); });
}

double SweepOf(const Span& arc) {
  const Vector2d start(arc.pc, arc.p0), end(arc.pc, arc.p1);
  const double angle = std::atan2(Cross(start, end), Dot(start, end));
  return angle * arc.dir < 0 ? angle + 2 * PI * arc.dir : angle;
}

int Span::ChordCount(double chordTolerance) const {
  NeedProperties();
  return SegmentCount(chordTolerance, angle, radius, dir);
}

bool Span::Fit(const Point* p, int n, double t) {
  if (n < 1) return false;
  const Point middle = p[n / 2];
  const CLine chord(p[0], p[n]);
  Span fitted = *this;
  if (chord.ok && NearZero(chord.Dist(middle), t * 0.01)) {
    if (!AllWithin(p, n, t, [&](const Point& q) { return chord.Dist(q); })) return false;
    fitted.dir = LINEAR;
    fitted.NullSpan = p[0] == p[n];
  } else {
    const Circle circle = Thru(p[0], middle, p[n]);
    if (!circle.ok) return false;
    if (!AllWithin(p, n, t, [&](const Point& q) { return geometry::Dist(circle.pc, q) - circle.radius; })) {
      return false;
    }
    // A middle right of the chord is on the way round anticlockwise, however long the way.
    fitted.dir = 0.0 > Cross(Vector2d(p[0], p[n]), Vector2d(p[0], middle)) ? ACW : CW;
    fitted.pc = circle.pc;
    fitted.radius = circle.radius;
    fitted.NullSpan = p[0] == circle.pc;
  }
  fitted.p0 = p[0];
  fitted.p1 = p[n];
  fitted.propertiesSet = false;
  *this = fitted;
  return true;
}

}  // namespace geometry

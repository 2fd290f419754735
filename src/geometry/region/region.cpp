#include "geometry/region.h"

#include <cmath>

#include "geometry/region/sketch.h"

namespace geometry {
namespace {

using region::FacesOf;
using region::Sketch;
using region::Turns;

constexpr double kEighth = 0.7853981633974483;

struct Measured {
  double chord = 0;
  double half = 0;  ///< half of the angle, 0 for a line
  double radius = 0;
};

Measured Measure(const RegionSpan& span) {
  const Vector2d chord(span.p0, span.p1);
  Measured m{chord.Magnitude()};
  if (span.dir == LINEAR || m.chord == 0) return m;
  const Vector2d toCentre(span.p0, span.pc);
  const double left = (Cross(chord, toCentre) / m.chord) * span.dir;
  m.half = std::atan2(m.chord / 2, left);
  m.radius = m.half < kEighth ? std::hypot(m.chord / 2, left)
                              : (toCentre.Magnitude() + Vector2d(span.p1, span.pc).Magnitude()) / 2;
  return m;
}

/// Half of (angle - sine of the angle) r^2, by its series while the arc is flat.
double SegmentOf(const Measured& m) {
  const double h = m.half, sine = std::sin(h);
  if (h == 0) return 0;
  if (h > 0.05) return m.radius * m.radius * (h - sine * std::cos(h));
  const double q = sine * sine;
  return m.chord * m.chord * sine / 6 * (1 + q * (0.3 + q * (9.0 / 56 + q * (5.0 / 48))));
}

/// A contour's spans as a loop, closed by a line if need be.
RegionLoop LoopOf(const KurveEx& contour) {
  RegionLoop loop;
  for (const Span& s : contour.spans) {
    const Point start = loop.spans.empty() ? s.p0 : loop.spans.back().p1;
    loop.spans.push_back({s.dir, start, s.p1, s.pc, s.ID, s.index0, s.index1});
  }
  if (loop.spans.empty()) return loop;
  RegionSpan close{LINEAR, loop.spans.back().p1, loop.spans.front().p0, {}, loop.spans.front().ID, 0, 0};
  if (Dist(close.p0, close.p1) > 0) loop.spans.push_back(close);
  return loop;
}

bool IsOdd(const Turns& turns) {
  return turns[0] % 2 != 0;
}
bool IsNotZero(const Turns& turns) {
  return turns[0] != 0;
}
bool IsPositive(const Turns& turns) {
  return turns[0] > 0;
}

region::Rule RuleOf(FillRule rule) {
  if (rule == FillRule::EvenOdd) return IsOdd;
  return rule == FillRule::NonZero ? IsNotZero : IsPositive;
}

Region Combine(const Region& a, const Region& b, region::Rule rule) {
  Sketch sketch({&a, &b});
  if (sketch.IsSound()) {
    sketch.AddLoops(a.loops, {1, 0});
    sketch.AddLoops(b.loops, {0, 1});
  }
  return FacesOf(sketch, rule);
}

}  // namespace

double RegionSpan::Length() const {
  const Measured m = Measure(*this);
  return m.half == 0 ? m.chord : 2 * m.half * m.radius;
}

double RegionSpan::Radius() const {
  return Measure(*this).radius;
}

double RegionLoop::Area() const {
  double area = 0;
  for (const RegionSpan& span : spans) {
    area += Cross(Vector2d(spans.front().p0, span.p0), Vector2d(spans.front().p0, span.p1)) / 2 +
            span.dir * SegmentOf(Measure(span));
  }
  return area;
}

double RegionLoop::Perimeter() const {
  double length = 0;
  for (const RegionSpan& span : spans) length += span.Length();
  return length;
}

double Region::Area() const {
  double area = 0;
  for (const RegionLoop& loop : loops) area += loop.Area();
  return area;
}

double Region::Perimeter() const {
  double length = 0;
  for (const RegionLoop& loop : loops) length += loop.Perimeter();
  return length;
}

Region Clean(const Region& loops, FillRule rule) {
  Sketch sketch({&loops});
  if (sketch.IsSound()) sketch.AddLoops(loops.loops, {1, 0});
  return FacesOf(sketch, RuleOf(rule), region::Cancelled::kKept);
}

Region Clean(const std::vector<KurveEx>& contours, FillRule rule) {
  Region drawn;
  for (const KurveEx& contour : contours) drawn.loops.push_back(LoopOf(contour));
  return Clean(drawn, rule);
}

Region Clean(const KurveEx& contour, FillRule rule) {
  Region drawn;
  drawn.loops.push_back(LoopOf(contour));
  return Clean(drawn, rule);
}

Region Unite(const Region& a, const Region& b) {
  return Combine(a, b, [](const Turns& turns) { return turns[0] > 0 || turns[1] > 0; });
}

Region Intersect(const Region& a, const Region& b) {
  return Combine(a, b, [](const Turns& turns) { return turns[0] > 0 && turns[1] > 0; });
}

Region Subtract(const Region& a, const Region& b) {
  return Combine(a, b, [](const Turns& turns) { return turns[0] > 0 && turns[1] <= 0; });
}

KurveEx ContourOf(const RegionLoop& loop) {
  KurveEx contour;
  if (loop.spans.empty()) return contour;
  contour.Start(loop.spans.front().p0);
  for (const RegionSpan& s : loop.spans) {
    contour.Add(Span(s.dir, s.p0, s.p1, s.pc, s.ID, s.index0, s.index1));
  }
  return contour;
}

}  // namespace geometry

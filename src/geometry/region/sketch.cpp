#include "geometry/region/sketch.h"

#include <algorithm>
#include <cmath>

namespace geometry::region {
namespace {

constexpr double kLargest = 1e60;
/// A centre is kept out of the base's way: a base is necessary only for what is far from the origin.
constexpr double kFarInSizes = 4;

bool IsModerate(const Point& p) {
  return std::abs(p.x) <= kLargest && std::abs(p.y) <= kLargest;
}

Vector2d Turned(const Vector2d& v, double sine, double cosine) {
  return {v.dx * cosine - v.dy * sine, v.dy * cosine + v.dx * sine};
}

/// The least power of two that is not below the value.
double PowerAbove(double value) {
  int exponent = 0;
  std::frexp(value, &exponent);
  return std::ldexp(1.0, exponent);
}

/// A multiple of a large power of two, so that taking it off is exact.
double BaseOf(double low, double high) {
  const double size = PowerAbove(high - low), middle = low + (high - low) / 2;
  return std::abs(middle) > kFarInSizes * size ? std::round(middle / size) * size : 0;
}

/// The arc's tangents: by its chord while it is flat, else by its centre.
void SetArc(Shape& shape, const Vector2d& centre, int dir) {
  const Vector2d chord = shape.b - shape.a, middle = shape.a + chord * 0.5;
  const double half = shape.chord / 2;
  const double centreLeft = Cross(chord, centre - middle) / shape.chord * dir;
  if (half < centreLeft) {
    const double radius = std::sqrt(half * half + centreLeft * centreLeft);
    shape.k = dir / radius;
    const double sine = dir * half / radius, cosine = centreLeft / radius;
    const Vector2d unit = chord * (1 / shape.chord);
    shape.tangents = {Turned(unit, -sine, cosine), Turned(unit, sine, cosine)};
    return;
  }
  const Vector2d first = shape.a - centre, second = shape.b - centre;
  const double atStart = std::sqrt(Dot(first, first)), atEnd = std::sqrt(Dot(second, second));
  shape.k = 2 * dir / (atStart + atEnd);
  shape.tangents = {first.LeftNormal() * (dir / atStart), second.LeftNormal() * (dir / atEnd)};
}

/// The angle of an arc, twice that between its chord and its tangent.
double SweepOf(const Shape& shape) {
  const Vector2d chord = shape.b - shape.a;
  const double side = std::abs(Cross(shape.tangents.start, chord));
  return shape.k == 0 ? 0 : 2 * std::atan2(side, Dot(shape.tangents.start, chord));
}

}  // namespace

Sketch::Sketch(const std::vector<const Region*>& regions) {
  for (const Region* region : regions) {
    isSound_ &= region->ok;
    for (const RegionLoop& loop : region->loops) {
      for (const RegionSpan& span : loop.spans) Include(span);
    }
    for (const RegionSpan& span : region->loose) Include(span);
  }
  if (!isSound_ || ends_.min.x > ends_.max.x) return;
  base_ = {BaseOf(ends_.min.x, ends_.max.x), BaseOf(ends_.min.y, ends_.max.y)};
}

void Sketch::Include(const RegionSpan& span) {
  isSound_ &= IsModerate(span.p0) && IsModerate(span.p1);
  ends_.Insert(span.p0);
  ends_.Insert(span.p1);
  if (span.dir == LINEAR) return;
  const double first = Dist(span.p0, span.pc), second = Dist(span.p1, span.pc);
  isSound_ &= IsModerate(span.pc) && std::abs(first - second) <= TOLERANCE;
  const bool isLong = Cross(Vector2d(span.p0, span.p1), Vector2d(span.p0, span.pc)) * span.dir < 0;
  if (!isLong) return;
  ends_.Insert(span.pc - Vector2d(first, first));
  ends_.Insert(span.pc + Vector2d(first, first));
}

Shape Sketch::ShapeOf(const RegionSpan& span) const {
  const auto local = [&](const Point& p) { return Vector2d(p.x - base_.dx, p.y - base_.dy); };
  Shape shape{local(span.p0), local(span.p1), {}};
  const Vector2d chord = shape.b - shape.a;
  shape.chord = std::sqrt(Dot(chord, chord));
  if (!(shape.chord > 0)) return shape;
  shape.tangents.start = shape.tangents.end = chord * (1 / shape.chord);
  if (span.dir != LINEAR) SetArc(shape, local(span.pc), span.dir > 0 ? 1 : -1);
  return shape;
}

void Sketch::AddSpan(const RegionSpan& span, const Turns& turns) {
  const Shape shape = ShapeOf(span);
  if (!(shape.chord > 0)) return;
  strokes_.push_back({shape.a, shape.b, shape.tangents.start, shape.k, SweepOf(shape),
                      static_cast<std::uint32_t>(origins_.size()), turns});
  origins_.push_back(&span);
}

void Sketch::AddLoops(const std::vector<RegionLoop>& loops, const Turns& turns) {
  for (const RegionLoop& loop : loops) {
    for (const RegionSpan& span : loop.spans) AddSpan(span, turns);
  }
}

double Sketch::ResolutionOf(const Box& box) const {
  const double size = std::max(box.Width(), box.Height());
  const double largest =
      std::max({std::abs(box.min.x), std::abs(box.max.x), std::abs(box.min.y), std::abs(box.max.y)}) +
      std::max(std::abs(base_.dx), std::abs(base_.dy));
  return std::max(std::ldexp(PowerAbove(size), -43), std::ldexp(PowerAbove(largest), -50));
}

double Sketch::Distance() const {
  Box box;
  for (const Stroke& stroke : strokes_) {
    const double bulge = stroke.k == 0 ? 0 : (1 - std::cos(stroke.sweep / 2)) / std::abs(stroke.k);
    for (const Vector2d& p : {stroke.from, stroke.to}) {
      box.Insert(Point(p.dx - bulge, p.dy - bulge));
      box.Insert(Point(p.dx + bulge, p.dy + bulge));
    }
  }
  return ResolutionOf(box);
}

double Sketch::Resolution(double reach, const Box& others) const {
  Box box(ends_.min - base_, ends_.max - base_);
  box.Grow(reach);
  box.Insert(others);
  return ResolutionOf(box);
}

}  // namespace geometry::region

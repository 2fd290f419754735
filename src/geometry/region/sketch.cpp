#include "geometry/region/sketch.h"

#include <algorithm>
#include <cmath>

namespace geometry::region {
namespace {

constexpr double kLargest = 1e60;
constexpr double kEighth = 0.7853981633974483;
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
  const double halfSweep = std::atan2(half, centreLeft);
  const double radius = std::hypot(half, centreLeft);
  shape.sweep = 2 * halfSweep;
  if (halfSweep < kEighth) {
    shape.k = dir / radius;
    const double sine = dir * half / radius, cosine = centreLeft / radius;
    const Vector2d unit = chord * (1 / shape.chord);
    shape.tangents = {Turned(unit, -sine, cosine), Turned(unit, sine, cosine)};
    return;
  }
  shape.k = 2 * dir / ((shape.a - centre).Magnitude() + (shape.b - centre).Magnitude());
  const auto tangent = [&](const Vector2d& p) {
    const Vector2d out = p - centre;
    return out.LeftNormal() * (dir / out.Magnitude());
  };
  shape.tangents = {tangent(shape.a), tangent(shape.b)};
}

}  // namespace

Shape LineShape(const Vector2d& a, const Vector2d& b) {
  Shape line{a, b, {}, 0, 0, (b - a).Magnitude()};
  if (line.chord > 0) line.tangents.start = line.tangents.end = (b - a) * (1 / line.chord);
  return line;
}

Sketch::Sketch(const std::vector<const Region*>& regions) {
  Box box;
  for (const Region* region : regions) {
    isSound_ &= region->ok;
    for (const RegionLoop& loop : region->loops) {
      for (const RegionSpan& span : loop.spans) Include(span, box);
    }
    for (const RegionSpan& span : region->loose) Include(span, box);
  }
  if (!isSound_ || box.min.x > box.max.x) return;
  base_ = {BaseOf(box.min.x, box.max.x), BaseOf(box.min.y, box.max.y)};
}

void Sketch::Include(const RegionSpan& span, Box& box) {
  isSound_ &= IsModerate(span.p0) && IsModerate(span.p1);
  box.Insert(span.p0);
  box.Insert(span.p1);
  if (span.dir == LINEAR) return;
  const double first = Dist(span.p0, span.pc), second = Dist(span.p1, span.pc);
  isSound_ &= IsModerate(span.pc) && std::abs(first - second) <= TOLERANCE;
}

Shape Sketch::ShapeOf(const RegionSpan& span) const {
  const auto local = [&](const Point& p) { return Vector2d(p.x - base_.dx, p.y - base_.dy); };
  Shape shape = LineShape(local(span.p0), local(span.p1));
  if (span.dir != LINEAR && shape.chord > 0) SetArc(shape, local(span.pc), span.dir > 0 ? 1 : -1);
  return shape;
}

void Sketch::Add(const Shape& shape, const RegionSpan& origin, const Turns& turns) {
  if (!(shape.chord > 0)) return;
  strokes_.push_back({shape.a, shape.b, shape.tangents.start, shape.k, shape.sweep,
                      static_cast<std::uint32_t>(origins_.size()), turns});
  origins_.push_back(origin);
}

void Sketch::AddLine(const Vector2d& a, const Vector2d& b, const RegionSpan& origin) {
  RegionSpan line = origin;
  line.dir = LINEAR;
  Add(LineShape(a, b), line, {1, 0});
}

void Sketch::AddLoops(const Region& region, const Turns& turns) {
  for (const RegionLoop& loop : region.loops) {
    for (const RegionSpan& span : loop.spans) Add(ShapeOf(span), span, turns);
  }
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
  const double size = std::max(box.Width(), box.Height());
  const double largest =
      std::max({std::abs(box.min.x), std::abs(box.max.x), std::abs(box.min.y), std::abs(box.max.y)}) +
      std::max(std::abs(base_.dx), std::abs(base_.dy));
  return std::max(std::ldexp(PowerAbove(size), -43), std::ldexp(PowerAbove(largest), -50));
}

}  // namespace geometry::region

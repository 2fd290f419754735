#pragma once

#include <algorithm>
#include <cmath>
#include <utility>

#include "geometry/kurve.h"
#include "geometry/offset/box_levels.h"

namespace geometry {

inline double SizeOf(const Point& p) {
  return std::fabs(p.x) + std::fabs(p.y);
}

/// A box that contains a span, and the radius of the span; 0 for a line.
struct Surround {
  Box box;
  double radius;
};

inline Surround Around(const std::vector<Span>& spans, std::size_t i) {
  return {spans[i].box, spans[i].radius};
}

/// The spans of a compact contour as they are stored, each made when it is asked for.
class VertexSpans {
 public:
  explicit VertexSpans(const Kurve& k) : k_(k) {}
  std::size_t size() const { return static_cast<std::size_t>(k_.SpanCount()); }
  Span operator[](std::size_t i) const {
    Span span = Bare(i);
    span.SetProperties();
    return span;
  }

  /// The box around the chord and, of an arc, the whole circle, for which no properties are needed.
  friend Surround Around(const VertexSpans& spans, std::size_t i) {
    const Span span = spans.Bare(i);
    Surround around = {Box(), span.dir == LINEAR ? 0.0 : Dist(span.pc, span.p0)};
    around.box.Insert(span.p0);
    around.box.Insert(span.p1);
    if (span.dir == LINEAR) return around;
    const Vector2d reach(around.radius, around.radius);
    around.box.Insert(span.pc - reach);
    around.box.Insert(span.pc + reach);
    return around;
  }

 private:
  Span Bare(std::size_t i) const {
    Span span;
    k_.GetStored(static_cast<int>(i) + 1, span);
    return span;
  }

  const Kurve& k_;
};

/// Says whether spans of a source are near to points. `Spans` is a vector of them, or `VertexSpans`.
template <class Spans>
class NearIndex {
 public:
  explicit NearIndex(const Spans& spans) : spans_(spans), boxes_(BoxesAround(spans)) {}

  bool AnyWithin(const Point& p, double distance) {
    const double reach = distance + TOLERANCE + kRounding * (size_ + SizeOf(p));
    const FlatBox around(Box(Point(p.x - reach, p.y - reach), Point(p.x + reach, p.y + reach)));
    const auto misses = [&around](const FlatBox& box) { return around.Outside(box); };
    const std::size_t n = spans_.size();
    for (std::size_t i = boxes_.Next(0, n, misses); i < n; i = boxes_.Next(i + 1, n, misses)) {
      double unusedAlong = 0;
      if (Dist(p, spans_[i].NearClamped(p, unusedAlong)) < distance) return true;
    }
    return false;
  }

 private:
  std::vector<FlatBox> BoxesAround(const Spans& spans) {
    std::vector<FlatBox> boxes;
    boxes.reserve(spans.size());
    for (std::size_t i = 0; i < spans.size(); ++i) {
      const Surround around = Around(spans, i);
      boxes.emplace_back(around.box);
      size_ = std::max({size_, around.radius, SizeOf(around.box.min), SizeOf(around.box.max)});
    }
    return boxes;
  }

  /// Points of a span are in its box but for rounding, which this covers amply.
  static constexpr double kRounding = 1e-12;

  const Spans& spans_;
  double size_ = 0;  ///< of the coordinates and radii
  BoxLevels boxes_;
};

}  // namespace geometry

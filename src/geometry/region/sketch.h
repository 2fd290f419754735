#pragma once

#include <vector>

#include "geometry/region.h"
#include "geometry/region/arrangement.h"

namespace geometry::region {

/// A span of a region, resolved: a line (k = 0, sweep = 0), or an arc.
struct Shape {
  Vector2d a, b;
  Tangents tangents;
  double k = 0;
  double sweep = 0;
  double chord = 0;  ///< 0: the span has no length, and no tangents
};

/// Curves for an arrangement, in coordinates from a base near them.
///
/// Shape  `origins` describe the curves in the plane's own coordinates; `Stroke::origin` counts them
class Sketch {
 public:
  /// Chooses the base for the spans of these regions.
  explicit Sketch(const std::vector<const Region*>& regions);

  /// Whether all coordinates so far are moderate numbers, and the ends of arcs equally far from their
  /// centres.
  bool IsSound() const { return isSound_; }
  Shape ShapeOf(const RegionSpan& span) const;
  Point PointAt(const Vector2d& p) const { return {p.dx + base_.dx, p.dy + base_.dy}; }

  /// Adds a part of the line or circle of `origin`; the ends of `origin` do not matter.
  void Add(const Shape& shape, const RegionSpan& origin, const Turns& turns);
  void AddLine(const Vector2d& a, const Vector2d& b, const RegionSpan& origin);
  void AddLoops(const Region& region, const Turns& turns);

  const std::vector<Stroke>& Strokes() const { return strokes_; }
  const RegionSpan& Origin(std::uint32_t i) const { return origins_[i]; }
  /// The distance below which points are one, r of geometry/region.h.
  double Distance() const;

 private:
  void Include(const RegionSpan& span, Box& box);

  Vector2d base_;
  bool isSound_ = true;
  std::vector<Stroke> strokes_;
  std::vector<RegionSpan> origins_;
};

/// The line from a to b with its tangents.
Shape LineShape(const Vector2d& a, const Vector2d& b);

/// Whether a face of these winding numbers belongs to the result.
using Rule = bool (*)(const Turns&);

/// The faces of the sketch's arrangement that the rule names. With `kKept` the curves outside of the result
/// that do not bound it are its loose ones. The result is not ok when the sketch is not sound or could not be
/// normalised.
Region FacesOf(const Sketch& sketch, Rule rule, Cancelled cancelled = Cancelled::kDropped);

}  // namespace geometry::region

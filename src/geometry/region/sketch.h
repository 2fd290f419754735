#pragma once

#include <vector>

#include "geometry/region.h"
#include "geometry/region/arrangement.h"

namespace geometry::region {

/// A span of a region, resolved: a line (k = 0), or an arc.
struct Shape {
  Vector2d a, b;
  Tangents tangents;
  double k = 0;
  double chord = 0;  ///< 0: the span has no length, and no tangents
};

/// Curves for an arrangement, in coordinates from a base near them.
///
/// Shape  origins describe the curves in the plane's own coordinates; `Stroke::origin` counts them
/// Owns   nothing of the spans and loops that are added: they are the origins, and have to stay
class Sketch {
 public:
  /// Chooses the base for the spans of these regions.
  explicit Sketch(const std::vector<const Region*>& regions);

  /// Whether all coordinates so far are moderate numbers, and the ends of arcs equally far from their
  /// centres.
  bool IsSound() const { return isSound_; }
  Shape ShapeOf(const RegionSpan& span) const;
  const Vector2d& Base() const { return base_; }
  Point PointAt(const Vector2d& p) const { return {p.dx + base_.dx, p.dy + base_.dy}; }

  void AddSpan(const RegionSpan& span, const Turns& turns);
  void AddLoops(const std::vector<RegionLoop>& loops, const Turns& turns);

  const std::vector<Stroke>& Strokes() const { return strokes_; }
  const RegionSpan& Origin(std::uint32_t i) const { return *origins_[i]; }
  /// The distance below which points are one, r of geometry/region.h, for the curves so far.
  double Distance() const;
  /// The same for curves within `reach` of the regions and in a box, which is in the sketch's coordinates;
  /// not above it.
  double Resolution(double reach, const Box& others = {}) const;

 private:
  void Include(const RegionSpan& span);
  double ResolutionOf(const Box& box) const;

  Box ends_;  ///< of the ends of the regions' spans, and of the circles of long arcs
  Vector2d base_;
  bool isSound_ = true;
  std::vector<Stroke> strokes_;
  std::vector<const RegionSpan*> origins_;
};

/// Whether a face of these winding numbers belongs to the result.
using Rule = bool (*)(const Turns&);

/// The faces of the sketch's arrangement that the rule names. With `kKept` the curves outside of the result
/// that do not bound it are its loose ones. The result is not ok when the sketch is not sound or could not be
/// normalised.
Region FacesOf(const Sketch& sketch, Rule rule, Cancelled cancelled = Cancelled::kDropped);

/// The points around which the loops have a positive winding number. The sketch is that of the regions which
/// they were made of.
Region PositiveFacesOf(Sketch& sketch, std::vector<RegionLoop> loops, double resolution);

}  // namespace geometry::region

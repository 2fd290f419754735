#pragma once

#include <geos_c.h>

#include <memory>
#include <vector>

#include "geometry/region.h"

namespace geometry::testing {

/// Regions as polygons, whose arcs are chords, and what another library makes of these.
///
/// Units    chords are nowhere farther from their arc than `kChord`, in millimetres
/// Errors   a null shape; `Area` of it is not a number
class Chorded {
 public:
  static constexpr double kChord = 1e-4;
  using Shape = std::shared_ptr<GEOSGeometry>;

  Chorded();

  Shape Of(const Region& region) const;
  /// The points within the distance of the region's boundary: of each of its spans, all united.
  Shape Within(const Region& region, double distance) const;

  Shape Union(const Shape& a, const Shape& b) const;
  Shape Common(const Shape& a, const Shape& b) const;
  Shape Rest(const Shape& a, const Shape& b) const;
  double Area(const Shape& shape) const;

 private:
  using Context = std::shared_ptr<GEOSContextHandle_HS>;
  using Points = std::vector<Point>;

  Shape Own(GEOSGeometry* shape) const;
  Shape PolygonOf(const Points& points) const;
  Shape Around(const RegionSpan& span, double distance) const;

  Context context_;
};

}  // namespace geometry::testing

#pragma once

#include <array>

#include "base/result.h"
#include "modeller/body.h"

namespace vanzet::modeller {

/// What a body is in numbers: mm, mm^2, mm^3. Of facets alone when the body is one of an STL file.
struct Measures {
  double volume = 0;  ///< of its solids and closed shells; 0 when it has none
  double area = 0;
  geometry::Point3d centroid;  ///< of the volume; of the area when there is none
  bool closed = false;         ///< each edge has faces on both sides
};
Result<Measures> MeasuresOf(const Body& body);

/// The box that the body just fits in, of its surfaces and not of what controls them; of its triangles when
/// it came from an STL file. Within 0.001 mm. Refused for a body without extent.
Result<geometry::Box3d> Extents(const Body& body);

/// The box as the host tells it: minimum x, y, z, maximum x, y, z, in metres.
std::array<double, 6> InMetres(const geometry::Box3d& box);

}  // namespace vanzet::modeller

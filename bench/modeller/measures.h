#pragma once

#include <array>

#include "base/result.h"
#include "modeller/body.h"
#include "modeller/mesh.h"

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

/// What facets enclose: the volume between them and the origin, added up with its sign, if they are closed,
/// and 0 if they are not.
Measures MeasuresOf(const Mesh& mesh);

/// Whether each edge belongs to two triangles, in opposite senses.
bool IsClosed(const Mesh& mesh);

}  // namespace vanzet::modeller

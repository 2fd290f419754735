#pragma once

#include <array>

#include "base/result.h"
#include "modeller/body.h"
#include "modeller/mesh.h"

namespace vanzet::modeller {

/// The measures of a body, in mm, mm^2 and mm^3; those of its facets when it comes from an STL file.
struct Measures {
  double volume = 0;  ///< of its solids and closed shells, else 0
  double area = 0;
  geometry::Point3d centroid;  ///< of the volume, or of the area when the volume is 0
  bool closed = false;         ///< each edge has faces on both sides
};
Result<Measures> MeasuresOf(const Body& body);

/// The smallest box around the body: of its surfaces, not of their control points, and of its triangles when
/// it comes from an STL file. Exact to 0.001 mm. Fails for a body without extent.
Result<geometry::Box3d> Extents(const Body& body);

/// The box in the form of the host function: minimum x, y, z, maximum x, y, z, in metres.
std::array<double, 6> InMetres(const geometry::Box3d& box);

/// The measures of facets. The volume is the signed sum of the volumes between facets and origin when the
/// mesh is closed, else 0.
Measures MeasuresOf(const Mesh& mesh);

/// The area of facets alone, without the search for holes that the other measures take.
double AreaOf(const Mesh& mesh);

/// Whether as many triangles run along each edge in one direction as in the other: two, or four where solids
/// touch. Such a mesh encloses a volume.
bool IsClosed(const Mesh& mesh);

/// Whether the mesh is closed with two triangles at each edge.
bool IsManifold(const Mesh& mesh);

}  // namespace vanzet::modeller

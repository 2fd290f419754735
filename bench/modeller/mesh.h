#pragma once

#include <array>
#include <vector>

#include "base/result.h"
#include "modeller/body.h"

namespace vanzet::modeller {

/// The largest distance of a facet from its surface, and the largest angle between neighbours.
struct MeshTolerance {
  double chord = 0.05;  ///< millimetres
  double angle = 10;    ///< degrees

  bool operator==(const MeshTolerance&) const = default;
};

/// Triangles between points. The mesh of a closed body is closed: each edge belongs to two triangles, in
/// opposite directions. Seen from outside, the points of a triangle run anticlockwise.
struct Mesh {
  std::vector<geometry::Point3d> points;
  std::vector<std::array<int, 3>> triangles;
};

/// Returns the body as triangles; a body of facets keeps its own. Fails for a tolerance that is out of range
/// and for a body without faces.
Result<Mesh> MeshOf(const Body& body, const MeshTolerance& tolerance);

}  // namespace vanzet::modeller

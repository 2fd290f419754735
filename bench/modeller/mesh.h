#pragma once

#include <array>
#include <vector>

#include "base/result.h"
#include "modeller/body.h"

namespace vanzet::modeller {

/// How far a facet may be from the surface that it stands for, and how much neighbours may turn.
struct MeshTolerance {
  double chord = 0.05;  ///< millimetres
  double angle = 10;    ///< degrees
};

/// Triangles between points. Those of a closed body are closed too: each edge belongs to two triangles, in
/// opposite senses; seen from outside, a triangle's points run anticlockwise.
struct Mesh {
  std::vector<geometry::Point3d> points;
  std::vector<std::array<int, 3>> triangles;
};

/// The body as triangles; an STL body as it is. Refused for a tolerance that is not above 0 and for a body
/// without faces.
Result<Mesh> MeshOf(const Body& body, const MeshTolerance& tolerance);

}  // namespace vanzet::modeller

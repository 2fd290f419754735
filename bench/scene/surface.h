#pragma once

#include <array>
#include <optional>
#include <vector>

#include "geometry/matrix.h"
#include "modeller/mesh.h"

namespace vanzet::scene {

/// A triangle with the normals of its corners, which are smooth where the surface is smooth.
struct Facet {
  std::array<geometry::Point3d, 3> corners;
  std::array<geometry::Vector3d, 3> normals;
};

/// An edge between two triangles with the normals of both; an edge of only one triangle has its normal twice.
struct SurfaceEdge {
  geometry::Point3d from, to;
  geometry::Vector3d left, right;
  bool isSharp = false;  ///< the surface has a corner here, or ends
};

/// The facets and edges of a body.
struct Surface {
  std::vector<Facet> facets;
  std::vector<SurfaceEdge> edges;
};

/// The surface of a mesh after a placement. Points at the same place are one point.
Surface SurfaceOf(const modeller::Mesh& mesh, const geometry::Matrix& placement);

// The section by the plane z = 0: what is above the plane is taken away.

/// The parts of a facet below the plane: none, one or two facets.
std::vector<Facet> Below(const Facet& facet);

struct Stroke {
  geometry::Point3d from, to;
};

/// The part of a line below the plane.
std::optional<Stroke> Below(const Stroke& stroke);

/// The line in which the plane cuts a facet.
std::optional<Stroke> CutOf(const Facet& facet);

}  // namespace vanzet::scene

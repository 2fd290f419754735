#pragma once

#include <array>
#include <optional>
#include <vector>

#include "geometry/matrix.h"
#include "modeller/mesh.h"

namespace vanzet::scene {

/// A triangle with the directions in which its corners face: smooth where the surface is.
struct Facet {
  std::array<geometry::Point3d, 3> corners;
  std::array<geometry::Vector3d, 3> normals;
};

/// An edge between two triangles and how these face; an edge of one alone has that one twice.
struct SurfaceEdge {
  geometry::Point3d from, to;
  geometry::Vector3d left, right;
  bool isSharp = false;  ///< the surface has a corner here, or ends
};

/// What a picture needs of a body.
struct Surface {
  std::vector<Facet> facets;
  std::vector<SurfaceEdge> edges;
};

/// The surface of a mesh where a placement puts it. Points at the same place are one point.
Surface SurfaceOf(const modeller::Mesh& mesh, const geometry::Matrix& placement);

// The section by the plane z = 0: what is above the plane is taken away.

/// What is left of a facet: none, one or two.
std::vector<Facet> Below(const Facet& facet);

struct Stroke {
  geometry::Point3d from, to;
};

/// What is left of a line.
std::optional<Stroke> Below(const Stroke& stroke);

/// Where the plane cuts a facet.
std::optional<Stroke> CutOf(const Facet& facet);

}  // namespace vanzet::scene

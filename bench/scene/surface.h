#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "geometry/box.h"
#include "geometry/matrix.h"
#include "modeller/mesh.h"

/// The surfaces of bodies as they are drawn: facets between shared points, small enough that a million of
/// them is some 50 MB.
namespace vanzet::scene {

/// A unit vector in three signed numbers of ten bits, 511 for 1: x in the lowest. A vector of length 0 is 0.
using PackedVector = std::uint32_t;
PackedVector PackVector(const geometry::Vector3d& unit);

inline geometry::Vector3d UnpackVector(PackedVector packed) {
  // The upper bits of a signed number carry its sign.
  const auto part = [packed](int shift) {
    return static_cast<double>(static_cast<std::int32_t>(packed << (22 - shift)) >> 22) / 511;
  };
  return {part(0), part(10), part(20)};
}

/// A corner of facets with the normal there, which is smooth where the surface is smooth. A graphics card
/// takes it as it is.
struct SurfacePoint {
  float x, y, z;
  PackedVector normal;

  geometry::Point3d Place() const { return {x, y, z}; }
  bool operator==(const SurfacePoint&) const = default;
};

/// Three points by their numbers; anticlockwise when seen from outside.
using Facet = std::array<std::uint32_t, 3>;

/// An edge between two facets with the normals of both; an edge of only one has its normal twice.
struct SurfaceEdge {
  std::uint32_t from, to;
  PackedVector left, right;

  bool operator==(const SurfaceEdge&) const = default;
};

/// Facets that are close to each other, with a box about them.
struct FacetGroup {
  std::uint32_t first, count;
  geometry::Box3d box;
};

/// The facets and edges of a body.
struct Surface {
  std::vector<SurfacePoint> points;
  std::vector<Facet> facets;
  std::vector<FacetGroup> groups;  ///< all facets, in their order
  std::vector<SurfaceEdge> edges;  ///< the sharp ones first: those with a corner, and those where it ends
  std::size_t sharpEdges = 0;
  bool isClosed = false;  ///< each edge has two facets, which face outwards: no back of a facet is seen
};

/// The surface of a mesh after a placement. Points at the same place are one point. Edges within a plane are
/// left out.
Surface SurfaceOf(modeller::Mesh mesh, const geometry::Matrix& placement);

/// Makes the groups of a surface from its facets, as they follow each other.
void GroupFacets(Surface& surface);

}  // namespace vanzet::scene

#pragma once

#include "geometry/matrix.h"
#include "geometry/region.h"
#include "modeller/mesh.h"
#include "scene/scene.h"

namespace vanzet::section {

/// The section of facets, where a placement puts them, by the upright plane z = 0 above the axis. A body
/// that is not closed has the lines of its open contours in `loose`.
geometry::Region CutOf(const modeller::Mesh& mesh, const geometry::Matrix& placement);

/// A body of the equipment by its kind and its place.
struct Placing {
  scene::Kind kind;
  geometry::Matrix placement;
};

/// A half section in the coordinates of its body, put where the body is. Devices that face each other are
/// mirrored.
geometry::Region Placed(const geometry::Region& profile, const Placing& placing);

/// The half section of a body of the equipment: that of its values where it has them.
/// Fails when the body has no facets.
Result<geometry::Region> CutOf(const scene::SceneBody& body);

}  // namespace vanzet::section

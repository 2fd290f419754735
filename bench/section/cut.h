#pragma once

#include "geometry/matrix.h"
#include "geometry/region.h"
#include "modeller/mesh.h"
#include "scene/scene.h"

namespace vanzet::section {

/// The section of facets, where a placement puts them, by the upright plane z = 0 above the axis. A body
/// that is not closed has the lines of its open contours in `loose`.
geometry::Region CutOf(const modeller::Mesh& mesh, const geometry::Matrix& placement);

/// The half section of a body of the equipment: that of its values where it has them.
/// Fails when the body has no facets.
Result<geometry::Region> CutOf(const scene::SceneBody& body);

}  // namespace vanzet::section

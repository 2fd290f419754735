#pragma once

#include "project/project.h"
#include "scene/scene.h"

namespace vanzet::results {

/// Makes the equipment of a spur in space, with the figures of the project's drawing and folder of figures
/// and the solids of the folder of bodies. Fails with `kMissing` without such a spur or definition, with
/// `kDamaged` for a damaged definition, and when a part of the equipment cannot be made.
Result<scene::Scene> SceneOf(const project::Project& project, std::int32_t spur,
                             const modeller::Exchange& exchange);

/// The same; fails also when the definition has no equipment.
Result<scene::Scene> EquipmentOf(const project::Project& project, std::int32_t spur,
                                 const modeller::Exchange& exchange);

}  // namespace vanzet::results

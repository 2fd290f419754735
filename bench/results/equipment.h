#pragma once

#include "project/project.h"
#include "scene/scene.h"

namespace vanzet::results {

/// The equipment of a spur in space; its figures are those of the project's drawing and its folder of
/// figures, its solids those of the folder of bodies. A fault when there is no such spur or no definition,
/// when the definition is damaged, and when something in it cannot be made.
Result<scene::Scene> SceneOf(const project::Project& project, std::int32_t spur,
                             const modeller::Exchange& exchange);

/// The same; a fault as well when the definition holds none.
Result<scene::Scene> EquipmentOf(const project::Project& project, std::int32_t spur,
                                 const modeller::Exchange& exchange);

}  // namespace vanzet::results

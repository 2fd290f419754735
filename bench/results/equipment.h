#pragma once

#include "project/message_panel.h"
#include "project/project.h"
#include "scene/scene.h"

namespace vanzet::results {

/// Makes the equipment of a spur in space, with the figures of the project's drawing and folder of figures
/// and the solids of the folder of bodies. Fails with `kMissing` without such a spur or definition, and with
/// `kDamaged` for a damaged definition. What of the equipment cannot be made is missing in the scene.
Result<scene::Scene> SceneOf(const project::Project& project, std::int32_t spur,
                             const modeller::Exchange& exchange);

/// The same; what is missing is shown on the panel. Fails also when nothing of the equipment is left.
Result<scene::Scene> EquipmentOf(const project::Project& project, std::int32_t spur,
                                 const modeller::Exchange& exchange, project::MessagePanel& panel);

}  // namespace vanzet::results

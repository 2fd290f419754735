#pragma once

#include <filesystem>

#include "modeller/export.h"
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

/// Writes the equipment into a folder, which is made when it is not there: a file with all bodies, and one
/// for each. Files of the same names are replaced.
Result<void> WriteEquipment(const scene::Scene& scene, modeller::ExportFormat format,
                            const std::filesystem::path& folder, const modeller::Exchange& exchange);

}  // namespace vanzet::results

#pragma once

#include <filesystem>

#include "modeller/export.h"
#include "scene/scene.h"

namespace vanzet::results {

/// Writes the equipment into a folder, which is made when it is not there: a file with all bodies, and one
/// for each. Files of the same names are replaced.
Result<void> WriteEquipment(const scene::Scene& scene, modeller::ExportFormat format,
                            const std::filesystem::path& folder, const modeller::Exchange& exchange);

}  // namespace vanzet::results

#pragma once

#include <filesystem>
#include <vector>

#include "base/result.h"
#include "modeller/mesh.h"
#include "modeller/parcel.h"

namespace vanzet::modeller {

/// Writes named and coloured solids, in millimetres. A body of facets gets a face for each triangle.
Result<void> WriteStep(std::vector<ParcelBody> bodies, const std::filesystem::path& file);

/// Writes named and coloured meshes to one binary file, in metres with y upwards, as the format requires.
Result<void> WriteGltf(const std::vector<ParcelBody>& bodies, const std::filesystem::path& file,
                       const MeshTolerance& tolerance);

}  // namespace vanzet::modeller

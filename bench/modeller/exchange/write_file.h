#pragma once

#include <filesystem>
#include <vector>

#include "base/result.h"
#include "modeller/mesh.h"
#include "modeller/parcel.h"

namespace vanzet::modeller {

/// Named and coloured solids, in millimetres. Bodies of facets get a face for each triangle.
Result<void> WriteStep(std::vector<ParcelBody> bodies, const std::filesystem::path& file);

/// Named and coloured meshes in one binary file, in metres with y upwards, as the format wants it.
Result<void> WriteGltf(const std::vector<ParcelBody>& bodies, const std::filesystem::path& file,
                       const MeshTolerance& tolerance);

}  // namespace vanzet::modeller

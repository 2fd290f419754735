#pragma once

#include <filesystem>
#include <vector>

#include "base/result.h"
#include "modeller/mesh.h"
#include "modeller/parcel.h"

namespace vanzet::modeller {

/// Writes named and coloured solids, in millimetres. Each body must be prepared: then a body of facets has a
/// face for each triangle.
void PrepareForStep(std::vector<ParcelBody>& bodies);
Result<void> WriteStep(const std::vector<ParcelBody>& bodies, const std::filesystem::path& file);

/// Writes named and coloured meshes to one binary file, in metres with y upwards, as bodies have it and the
/// format requires. Each body must be prepared: then it has triangles.
Result<void> PrepareForGltf(std::vector<ParcelBody>& bodies, const MeshTolerance& tolerance);
Result<void> WriteGltf(const std::vector<ParcelBody>& bodies, const std::filesystem::path& file);

}  // namespace vanzet::modeller

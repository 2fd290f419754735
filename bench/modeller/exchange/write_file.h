#pragma once

#include <filesystem>
#include <vector>

#include "base/result.h"
#include "modeller/mesh.h"
#include "modeller/parcel.h"

namespace vanzet::modeller {

/// Makes bodies ready for files of surfaces: then a body of facets has a face for each triangle.
void PrepareSurfaces(std::vector<ParcelBody>& bodies);

/// Writes named and coloured solids, in millimetres; several are the parts of one assembly. Their places
/// are named in it, one of a name. The time is that of the head; empty: the present. The same bodies and
/// time give the same bytes.
/// Requires: prepared bodies
Result<void> WriteStep(const std::vector<ParcelBody>& bodies, const std::filesystem::path& file,
                       const std::string& time);

/// Writes named and coloured solids, in millimetres.
/// Requires: prepared bodies
Result<void> WriteIges(const std::vector<ParcelBody>& bodies, const std::filesystem::path& file);

/// Makes bodies ready for files of meshes: then each has triangles.
Result<void> PrepareMeshes(std::vector<ParcelBody>& bodies, const MeshTolerance& tolerance);

/// Writes named and coloured meshes to one binary file, in metres with y upwards, as bodies have it and the
/// format requires.
/// Requires: prepared bodies
Result<void> WriteGltf(const std::vector<ParcelBody>& bodies, const std::filesystem::path& file);

}  // namespace vanzet::modeller

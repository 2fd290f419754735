#pragma once

#include <TopoDS_Shape.hxx>
#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"
#include "modeller/parcel.h"

/// 3MF files, through lib3mf. They have triangles in single precision and no surfaces.
namespace vanzet::modeller {

/// Reads all that a file builds, in its places, as one body of facets; millimetres, whatever its unit.
Result<TopoDS_Shape> ReadThreeMf(const std::filesystem::path& file);

/// The word of the unit of a file, such as "inch"; empty for a file that cannot be read.
std::string ThreeMfUnit(const std::filesystem::path& file);

/// Writes named and coloured meshes, in millimetres.
/// Requires: bodies that have triangles
Result<void> WriteThreeMf(const std::vector<ParcelBody>& bodies, const std::filesystem::path& file);

}  // namespace vanzet::modeller

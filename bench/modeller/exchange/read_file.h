#pragma once

#include <TopoDS_Shape.hxx>
#include <filesystem>

#include "base/result.h"

namespace vanzet::modeller {

/// Reads the shape of a file by the file's ending, in millimetres; several bodies become one compound. Fails
/// when it has no faces, or a point that is not within `kLargestCoordinate`.
Result<TopoDS_Shape> ReadFile(const std::filesystem::path& file);

}  // namespace vanzet::modeller

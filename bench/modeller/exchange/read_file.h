#pragma once

#include <TopoDS_Shape.hxx>
#include <filesystem>

#include "base/result.h"

namespace vanzet::modeller {

/// What a file of another program holds, by the file's ending, in millimetres. Several bodies come as one
/// compound. Refused when it has no faces, or a point that is not within `kLargestCoordinate`.
Result<TopoDS_Shape> ReadFile(const std::filesystem::path& file);

}  // namespace vanzet::modeller

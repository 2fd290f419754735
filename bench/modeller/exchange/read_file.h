#pragma once

#include <TopoDS_Shape.hxx>
#include <filesystem>

#include "base/result.h"
#include "modeller/answers.h"

namespace vanzet::modeller {

/// Reads the shape of a file by the file's ending, in millimetres; several bodies become one compound. Fails
/// when it has no faces, or a point that is not within `kLargestCoordinate`.
Result<TopoDS_Shape> ReadFile(const std::filesystem::path& file);

/// The shape in the form in which the workbench keeps it.
ReadBody AnswerOf(const TopoDS_Shape& shape);

}  // namespace vanzet::modeller

#pragma once

#include <TopoDS_Shape.hxx>
#include <filesystem>

#include "base/result.h"
#include "modeller/answers.h"

namespace vanzet::modeller {

struct FileShape {
  TopoDS_Shape shape;
  int roots = 1;  ///< of a STEP file: bodies that no assembly holds together
};

/// Reads the shape of a file by the file's ending, in millimetres; several bodies become one compound. Fails
/// when it has no faces, or a point that is not within `kLargestCoordinate`.
Result<FileShape> ReadFile(const std::filesystem::path& file);

/// The shape in the form in which the workbench keeps it.
ReadBody AnswerOf(const FileShape& read);

}  // namespace vanzet::modeller

#pragma once

#include <TopoDS_Shape.hxx>
#include <filesystem>
#include <string>
#include <vector>

namespace vanzet::test {

/// What Open CASCADE's readers find in a written file.
struct ReadBack {
  std::vector<std::string> roots;    ///< the names of what is not part of something else
  std::vector<std::string> names;    ///< of the bodies, in order
  std::vector<std::string> colours;  ///< "FF8000", red green blue
  TopoDS_Shape shape;                ///< all of them
};

ReadBack ReadStepDocument(const std::filesystem::path& file);

/// With the numbers that stand in the file.
ReadBack ReadGltfDocument(const std::filesystem::path& file);

}  // namespace vanzet::test

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"
#include "geometry/kurve.h"

namespace vanzet::drawing {

/// The files of a project's folder of figures: drawings (.dxf) and contours as text. A file's stem is the
/// figure's name; of several files with one stem the first in the order of bytes counts.
class FigureFolder {
 public:
  explicit FigureFolder(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// Rising in the order of bytes; none when there is no folder.
  std::vector<std::string> Names() const;

  /// The contours of a figure. A fault with the file: there is none of that name, or it cannot be read.
  Result<std::vector<geometry::Kurve>> Read(const std::string& name) const;

 private:
  std::vector<std::filesystem::path> Files() const;

  std::filesystem::path folder_;
};

}  // namespace vanzet::drawing

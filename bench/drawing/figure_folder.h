#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"
#include "geometry/kurve.h"

namespace vanzet::drawing {

/// The folder of figures of a project: drawings (.dxf) and contours as text. The stem of a file is the name
/// of the figure; of several files with one stem, the first in the order of bytes counts.
class FigureFolder {
 public:
  explicit FigureFolder(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// The names in the order of bytes; none if the folder does not exist.
  std::vector<std::string> Names() const;

  /// Reads the contours of a figure. Fails with `kMissing` for an unknown name, and when the file cannot be
  /// read.
  Result<std::vector<geometry::Kurve>> Read(const std::string& name) const;

 private:
  std::vector<std::filesystem::path> Files() const;

  std::filesystem::path folder_;
};

}  // namespace vanzet::drawing

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "geometry/kurve.h"

namespace vanzet::language {

/// What lines ask of the project that they run in, beyond its variables, VDMs and drawing.
class Workplace {
 public:
  virtual ~Workplace() = default;

  /// A value of the host's environment, empty when there is none.
  virtual std::string Environment(std::string_view key) = 0;

  /// The project's own settings; one that is not there is empty.
  virtual Result<std::string> Setting(std::string_view key) = 0;
  virtual Result<void> SetSetting(std::string_view key, std::string_view value) = 0;

  /// The figures that stand as files beside the drawing, rising in the order of bytes.
  virtual std::vector<std::string> FigureFiles() = 0;

  /// The contours of one of them. A fault when there is none of that name.
  virtual Result<std::vector<geometry::Kurve>> ReadFigureFile(const std::string& name) = 0;

  /// Shows help on a topic; where nobody can, nothing happens.
  virtual Result<void> ShowHelp(const std::string& topic) = 0;
};

}  // namespace vanzet::language

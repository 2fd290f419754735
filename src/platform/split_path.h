#pragma once

#include <string>
#include <string_view>

namespace vanzet::platform {

/// The four parts of a path text. Joined they give the path again.
struct PathParts {
  std::string drive;      ///< "D:", or "/" for a path that begins with one; else empty
  std::string directory;  ///< up to and with the last separator
  std::string name;       ///< without the extension
  std::string extension;  ///< with its point
};

/// Splits at the last separator ('/' or '\') and at the last point behind it. What does not fit the fixed
/// buffers that hosts reserve (3 bytes for the drive, 256 for each other part, with their ends) is cut.
PathParts SplitPath(std::string_view path);

/// The parts as one text; a separator is put behind a directory that has none.
std::string JoinPath(const PathParts& parts);

}  // namespace vanzet::platform

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

/// Splits at the last separator ('/' or '\') and at the last point after it. Parts are cut to the fixed
/// buffers of hosts (3 bytes for the drive, 256 for each other part, with the closing NUL).
PathParts SplitPath(std::string_view path);

/// The parts as one text, with a separator after a directory that has none.
std::string JoinPath(const PathParts& parts);

}  // namespace vanzet::platform

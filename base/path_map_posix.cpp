#include <algorithm>
#include <system_error>

#include "base/letter_case.h"
#include "base/path_map.h"

namespace vanzet {
namespace {

namespace fs = std::filesystem;

/// Below a file that is not a folder no file exists, and none can be created.
constexpr std::string_view kNowhere = "/dev/null/";

/// The entry of `folder` that is `name` but for the case of its letters.
std::optional<fs::path> MatchWithoutCase(const fs::path& folder, const std::string& name) {
  std::optional<fs::path> match;
  std::error_code error;
  for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const fs::path found = entry->path().filename();
    if (EqualWithoutCase(found.string(), name) && (!match || found < *match)) match = found;
  }
  return match;
}

fs::path Descend(const fs::path& folder, const fs::path& part) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(folder / part, error))) return folder / part;
  return folder / MatchWithoutCase(folder, part.string()).value_or(part);
}

}  // namespace

fs::path PathMap::Resolve(std::string_view text) const {
  std::string path(text);
  std::replace(path.begin(), path.end(), '\\', '/');
  if (const auto letter = DriveLetter(path)) {
    const auto root = drives_.find(*letter);
    std::string below = root == drives_.end() ? std::string(kNowhere).append(path, 0, 2) : root->second;
    path.replace(0, 2, below.append("/"));
  }
  fs::path resolved;
  for (const fs::path& part : fs::path(path)) {
    resolved = resolved.empty() && part.is_absolute() ? part : Descend(resolved, part);
  }
  return resolved;
}

std::string_view DriveOf(std::string_view path) {
  if (path.starts_with('/')) return path.substr(0, 1);
  return DriveLetter(path) ? path.substr(0, 2) : std::string_view();
}

}  // namespace vanzet

#include <algorithm>

#include "base/files/wide_text_windows.h"
#include "base/path_map.h"

namespace vanzet {
namespace {

constexpr std::string_view kSeparators = "/\\";

/// The length of "\\host\share" at the beginning of a path on a server; 0 for other paths.
std::size_t ServerLength(std::string_view path) {
  const auto isSeparator = [&](std::size_t at) {
    return at < path.size() && kSeparators.find(path[at]) != std::string_view::npos;
  };
  if (!isSeparator(0) || !isSeparator(1) || isSeparator(2)) return 0;
  const std::size_t host = path.find_first_of(kSeparators, 2);
  if (host == std::string_view::npos || host + 1 == path.size() || isSeparator(host + 1)) return 0;
  return std::min(path.find_first_of(kSeparators, host + 1), path.size());
}

}  // namespace

std::filesystem::path PathMap::Resolve(std::string_view text) const {
  const auto letter = DriveLetter(text);
  const auto root = letter ? drives_.find(*letter) : drives_.end();
  // A root and what follows it need not be in the same coding.
  std::wstring path = root == drives_.end()
                          ? files::WideText(text)
                          : files::WideText(root->second) + L'\\' + files::WideText(text.substr(2));
  std::replace(path.begin(), path.end(), L'/', L'\\');
  return files::NameOfAnyLength(path);
}

std::string_view DriveOf(std::string_view path) {
  return path.substr(0, DriveLetter(path) ? 2 : ServerLength(path));
}

}  // namespace vanzet

#include "platform/split_path.h"

namespace vanzet::platform {
namespace {

constexpr std::size_t kLongestDrive = 2;
constexpr std::size_t kLongestPart = 255;
constexpr std::string_view kSeparators = "/\\";

std::size_t DriveLength(std::string_view path) {
  if (path.starts_with('/')) return 1;
  return path.size() >= kLongestDrive && path[1] == ':' ? kLongestDrive : 0;
}

}  // namespace

PathParts SplitPath(std::string_view path) {
  PathParts parts;
  parts.drive = path.substr(0, DriveLength(path));
  path.remove_prefix(parts.drive.size());

  const std::size_t separator = path.find_last_of(kSeparators);
  const std::size_t nameStart = separator == std::string_view::npos ? 0 : separator + 1;
  parts.directory = path.substr(0, nameStart).substr(0, kLongestPart);
  path.remove_prefix(nameStart);

  const std::string_view name = path.substr(0, path.find_last_of('.'));
  parts.name = name.substr(0, kLongestPart);
  parts.extension = path.substr(name.size()).substr(0, kLongestPart);
  return parts;
}

std::string JoinPath(const PathParts& parts) {
  std::string path = parts.drive + parts.directory;
  if (!parts.directory.empty() && kSeparators.find(parts.directory.back()) == std::string_view::npos) {
    path += '\\';
  }
  return path + parts.name + parts.extension;
}

}  // namespace vanzet::platform

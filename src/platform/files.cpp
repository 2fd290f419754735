#include "platform/files.h"

#include <fstream>

#include "base/files/regular_file.h"
#include "base/files/whole_file.h"
#include "base/path_map.h"

namespace vanzet::platform {

std::filesystem::path FileOf(std::string_view path) {
  return PathMap::OfProcess().Resolve(path);
}

bool IsReadableFile(std::string_view path) {
  const std::filesystem::path file = FileOf(path);
  return files::CheckRegularFile(file) && std::ifstream(file).is_open();
}

bool CopyWholeFile(std::string_view from, std::string_view to) {
  const auto bytes = files::ReadWholeFile(FileOf(from));
  return bytes && files::ReplaceFile(FileOf(to), *bytes, files::Keep::kIdentity);
}

}  // namespace vanzet::platform

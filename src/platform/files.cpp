#include "platform/files.h"

#include <fstream>
#include <system_error>

#include "base/path_map.h"

namespace vanzet::platform {

std::filesystem::path FileOf(std::string_view path) {
  return PathMap::OfProcess().Resolve(path);
}

bool IsReadableFile(std::string_view path) {
  const std::filesystem::path file = FileOf(path);
  std::error_code error;
  return std::filesystem::is_regular_file(file, error) && std::ifstream(file).is_open();
}

bool CopyWholeFile(std::string_view from, std::string_view to) {
  std::error_code error;
  return std::filesystem::copy_file(FileOf(from), FileOf(to),
                                    std::filesystem::copy_options::overwrite_existing, error);
}

}  // namespace vanzet::platform

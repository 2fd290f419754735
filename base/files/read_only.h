#pragma once

#include <filesystem>

namespace vanzet::files {

/// True when the file, or the folder it is in, has no write permission bit at all. The kernel lets the
/// superuser write nevertheless; whoever took the bits away did not want that.
inline bool IsReadOnly(const std::filesystem::path& file) {
  namespace fs = std::filesystem;
  constexpr fs::perms kWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
  for (const fs::path& path : {file, folder}) {
    std::error_code unknown;
    const fs::file_status status = fs::status(path, unknown);
    if (fs::exists(status) && (status.permissions() & kWrite) == fs::perms::none) return true;
  }
  return false;
}

}  // namespace vanzet::files

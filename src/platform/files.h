#pragma once

#include <filesystem>
#include <string_view>

namespace vanzet::platform {

/// The file on this machine that a path text of the host or of a shop's file names; see base/path_map.h.
std::filesystem::path FileOf(std::string_view path);

/// True for a regular file that can be opened for reading.
bool IsReadableFile(std::string_view path);

/// Copies the first file over the second. Returns false when that fails; the second is then as it was.
bool CopyWholeFile(std::string_view from, std::string_view to);

}  // namespace vanzet::platform

#pragma once

#include <filesystem>
#include <string_view>

namespace vanzet::platform {

/// Where a path text of the host or of a shop's file leads on this machine; see base/path_map.h.
std::filesystem::path FileOf(std::string_view path);

/// True for a regular file that can be opened for reading.
bool IsReadableFile(std::string_view path);

/// Makes the second file a copy of the first, whatever it was. False when that cannot be done.
bool CopyWholeFile(std::string_view from, std::string_view to);

}  // namespace vanzet::platform

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "base/result.h"

namespace vanzet::project {

/// The largest settings file that is read.
inline constexpr std::uintmax_t kLargestTextFile = std::uintmax_t{16} << 20U;

/// The whole text of a settings file of a project. A fault names the file as `name`: it cannot be read, is
/// larger than 16 MiB, or is no text, with the first line that holds a control character.
Result<std::string> ReadTextFile(const std::filesystem::path& file, const std::string& name);

}  // namespace vanzet::project

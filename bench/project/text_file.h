#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "base/result.h"

namespace vanzet::project {

/// The largest settings file that is read.
inline constexpr std::uintmax_t kLargestTextFile = std::uintmax_t{16} << 20U;

/// Reads the whole text of a settings file of a project; `name` is the file's name in faults.
/// Errors   the file does not exist (`kMissing`), cannot be read (`kSystem`), is larger than 16 MiB, or is
///          not a text file: then with the first line that has a control character
Result<std::string> ReadTextFile(const std::filesystem::path& file, const std::string& name);

}  // namespace vanzet::project

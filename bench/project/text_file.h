#pragma once

#include <filesystem>
#include <string>

#include "base/result.h"

namespace vanzet::project {

/// Reads the whole text of a settings file of a project; `name` is the file's name in faults.
/// Errors   those of `files::ReadWholeFile`; and it is not a text file: then with the first line that has a
///          control character
Result<std::string> ReadTextFile(const std::filesystem::path& file, const std::string& name);

}  // namespace vanzet::project

#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"

/// Files of other programs that are copied into a project.
namespace vanzet::window {

/// The folder of a project for such a file, "bodies" or "figures", by the ending of its name.
std::optional<std::string> FolderFor(const std::filesystem::path& file);

/// The ways to copy a file whose name is in use.
enum class NameAnswer { kReplace, kKeepBoth, kSkip };

/// Decides about the file `existing`, whose name, or that name with another ending, is taken again.
using NameQuestion = std::function<NameAnswer(const std::filesystem::path& existing)>;

/// Copies the files into the project, and returns the places of the copies. `ask` is called for each name
/// that is in use. Ends with a fault at the first file that cannot be copied.
Result<std::vector<std::filesystem::path>> ImportFiles(const std::vector<std::filesystem::path>& files,
                                                       const std::filesystem::path& project,
                                                       const NameQuestion& ask);

}  // namespace vanzet::window

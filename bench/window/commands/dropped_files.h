#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"

/// Files of other programs that are taken into a project.
namespace vanzet::window {

/// The folder of a project that takes such a file, "bodies" or "figures", by its ending.
std::optional<std::string> FolderFor(const std::filesystem::path& file);

/// What is to be done with a file whose name is taken.
enum class Taken { kReplace, kKeepBoth, kSkip };

/// Copies the files into the project. `ask` is asked for each name that is taken already, as another file's
/// stem counts too. Gives the places of what was copied; a fault at the first file that could not be.
Result<std::vector<std::filesystem::path>> ImportFiles(
    const std::vector<std::filesystem::path>& files, const std::filesystem::path& project,
    const std::function<Taken(const std::filesystem::path& existing)>& ask);

}  // namespace vanzet::window

#pragma once

#include <filesystem>
#include <vector>

#include "base/result.h"

namespace vanzet::project {

/// Removes the litter of killed runs from a project: their folders in tmp/, and new files that did not become
/// `bench.ini`, `drawing.txt`, a body or a figure. The folders and files of living runs stay, and so does
/// everything that cannot be removed. A link in place of tmp/ is not followed.
void RemoveLitter(const std::filesystem::path& project);

/// The folders in tmp/ that killed runs left, which `RemoveLitter` would remove. Fails where tmp/ or such a
/// folder cannot be looked at.
Result<std::vector<std::filesystem::path>> DeadRunFolders(const std::filesystem::path& project);

}  // namespace vanzet::project

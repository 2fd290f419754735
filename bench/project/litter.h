#pragma once

#include <filesystem>

namespace vanzet::project {

/// Removes the litter of killed runs from a project: their folders in tmp/, and new files that did not become
/// `bench.ini`, `drawing.txt`, a body or a figure. The folders and files of living runs stay, and so does
/// everything that cannot be removed. A link in place of tmp/ is not followed.
void RemoveLitter(const std::filesystem::path& project);

}  // namespace vanzet::project

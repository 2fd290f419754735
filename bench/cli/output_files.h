#pragma once

#include <filesystem>

#include "base/result.h"

/// Checks of the files that a command writes, before it begins its work.
namespace vanzet::cli {

/// Fails when the file cannot be opened for writing. One that does not exist is created, empty; of one that
/// exists the content stays. Pipes and devices are not opened: their readers would see it.
Result<void> CheckOutputFile(const std::filesystem::path& file);

}  // namespace vanzet::cli

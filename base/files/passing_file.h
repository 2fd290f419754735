#pragma once

#include <filesystem>
#include <string_view>

#include "base/result.h"

namespace vanzet::files {

/// Makes `bytes` the content of a file that nobody needs after this run. The file is written in place and not
/// put on the disk: after a crash of the machine it may be gone or half there. No link is followed.
/// Errors   a fault with the file's name and the reason
Result<void> WritePassingFile(const std::filesystem::path& file, std::string_view bytes);

}  // namespace vanzet::files

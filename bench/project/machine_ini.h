#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "base/result.h"

namespace vanzet::project {

/// How many spindle spurs the machine of a post-processor ini has, 1 to 50, as the module counts them: 1
/// where the file is missing or says nothing sensible. A fault when the file is no text or too large to be
/// one; docs/formats/machine-ini.md.
Result<std::int32_t> CountSpindleSpurs(const std::filesystem::path& file, const std::string& name);

}  // namespace vanzet::project

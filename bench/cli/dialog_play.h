#pragma once

#include <filesystem>
#include <string>

#include "cli/context.h"

namespace vanzet::cli {

/// Has the module serve its dialog from the script on the host; the transcript is written to the file and
/// given back. Forms: docs/formats/script.md
Result<std::string> PlayDialog(const std::filesystem::path& script, const std::filesystem::path& transcript,
                               api::Host& host, const Context& context);

}  // namespace vanzet::cli

#pragma once

#include <string>

#include "cli/commands.h"

namespace vanzet::cli {

/// The code of the language of the help and of headings: "de".
std::string LanguageOf(const Context& context);

}  // namespace vanzet::cli

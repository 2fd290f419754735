#pragma once

#include <string>

#include "base/translations.h"
#include "cli/command.h"

namespace vanzet::cli {

/// The help of a command or of a group. `path` is "vanzet vdm save"; the texts of the tree are translated
/// already, the headings are translated here.
std::string HelpText(const Command& command, const std::string& path, const Translations& texts);

/// The purpose of a parameter, with the words that are allowed and its default: "the view (top, iso);
/// default: iso".
std::string DescriptionOf(const Parameter& parameter, const Translations& texts);

/// Operands and required options, as in a usage line: " [PROJECT] FILE --out FILE".
std::string UsageOf(const Command& command);

}  // namespace vanzet::cli

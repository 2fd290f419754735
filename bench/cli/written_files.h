#pragma once

#include <vector>

#include "cli/commands.h"
#include "results/export.h"

namespace vanzet::cli {

/// Prints the files that a command has written, one a line: for people the path, the volume and the size of
/// its bodies, for programs as docs/command-line.md describes.
Result<void> PrintWrittenFiles(const std::vector<results::WrittenFile>& files, bool isJson);

/// True for the name that stands for standard output, "-".
bool IsStandardOutput(const std::string& file);

/// Adds the option --strict, with which bodies that are missing make the command fail.
void AddStrict(Command& command, bool& isStrict);

/// The outcome of work whose missing bodies, if any, are on the panel.
Result<void> OutcomeOfMissing(bool isStrict, const Context& context);

/// Throws `WrongUsage` for a listing as JSON when the file itself goes to standard output.
void CheckListing(const std::string& out, bool isJson);

}  // namespace vanzet::cli

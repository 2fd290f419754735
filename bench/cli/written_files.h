#pragma once

#include <vector>

#include "base/length_unit.h"
#include "cli/commands.h"
#include "results/export.h"

namespace vanzet::cli {

/// How the files that a command has written are listed.
struct Listing {
  bool isJson = false;
  LengthUnit unit = LengthUnit::kMillimetre;
};

/// Prints the files that a command has written, one a line: for people the path, the volume and the size of
/// its bodies, for programs as docs/scene.md describes.
Result<void> PrintWrittenFiles(const std::vector<results::WrittenFile>& files, const Listing& listing);

/// True for the name that stands for standard output, "-".
bool IsStandardOutput(const std::string& file);

/// Adds the option --strict, with which bodies that are missing make the command fail.
void AddStrict(Command& command, bool& isStrict);

/// The outcome of work whose missing bodies, if any, are on the panel.
Result<void> OutcomeOfMissing(bool isStrict, const Context& context);

/// Throws `WrongUsage` for an option of the listing when the file itself goes to standard output.
void CheckListing(const std::string& out, const std::string& option, bool isGiven);

}  // namespace vanzet::cli

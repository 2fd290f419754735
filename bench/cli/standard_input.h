#pragma once

#include <string>

#include "api/host.h"
#include "base/result.h"

/// Standard input, for commands that read a file named "-" from there.
namespace vanzet::cli {

/// Says on standard error that the program waits for what is typed, when standard input is a terminal.
/// `what` is awaited: "the script".
void HintAtTerminal(const std::string& what);

/// All of standard input, after the hint.
std::string ReadStandardInput(const std::string& what);

/// Has the host take its picks from the file; "-" is standard input, and an empty name no file.
Result<void> LoadPicks(const std::string& file, api::Host& host);

}  // namespace vanzet::cli

#pragma once

#include <string>
#include <vector>

#include "base/translations.h"
#include "cli/command.h"

/// The words of a command line. The rules for them:
///
/// Commands   the first words name the command: "vdm save"
/// Options    "--out FILE", "--out=FILE", "-o FILE", "-oFILE", anywhere after the command. An option without
///            `Repeatable` can be given once; a flag, or an option with a list, any number of times
/// Operands   all other words, in order; also "-", negative numbers, and everything after "--"
/// Help       "--help" ends the reading wherever it is met
namespace vanzet::cli {

/// The request of a command line.
struct Request {
  Work work;       ///< of the command, or printing help; empty when the usage was wrong
  int status = 0;  ///< the exit status without work
};

inline constexpr int kWrongUsageStatus = 2;

/// Reads a command line. Wrong usage is reported on standard error, in two lines: what is wrong, and which
/// help to read. Without any word the help of the program is asked for.
/// `version` is the program's name and version; the headings of the help are translated by `texts`.
Request ReadCommandLine(const Command& program, const std::string& version, const Translations& texts,
                        int argc, const char* const* argv);

/// The command or group that words of the command line name.
struct NamedCommand {
  const Command* command;
  std::string path;       ///< "vanzet vdm save"
  std::size_t words = 0;  ///< how many words name it
};

/// The command that the first words name, as far as they are commands; without any, the program.
NamedCommand CommandOf(const Command& program, const std::vector<std::string>& words);

}  // namespace vanzet::cli

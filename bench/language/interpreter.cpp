#include "language/interpreter.h"

#include <array>

#include "language/commands.h"

namespace vanzet::language {
namespace {

struct Command {
  std::array<std::string_view, 2> words;  ///< that the line begins with
  Result<void> (*run)(CommandLine& line, Surroundings& surroundings);
};

// clang-format off
constexpr Command kCommands[] = {
    { {"vdm", "load"}, VdmLoad },
    { {"vdm", "save"}, VdmSave },
};
// clang-format on

}  // namespace

Result<void> Run(std::string_view line, Surroundings& surroundings) {
  for (const Command& command : kCommands) {
    CommandLine words(line);
    if (words.Take(command.words[0]) && words.Take(command.words[1])) return command.run(words, surroundings);
  }
  return Fault{"unknown command '" + std::string(line) + "'", "", 0, 1};
}

}  // namespace vanzet::language

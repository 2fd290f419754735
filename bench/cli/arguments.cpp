#include "cli/arguments.h"

#include <CLI/CLI.hpp>

#include "base/numbers.h"
#include "cli/context.h"

namespace vanzet::cli {

std::int32_t NumberOf(const std::string& name, const std::string& word) {
  const auto number = WholeInteger(word);
  if (!number || *number < 0)
    throw CLI::ValidationError(name, "expected a number from 0 to 2147483647, found '" + word + "'");
  return *number;
}

std::string FileOf(const std::string& name, const std::string& word) {
  if (word.empty()) throw CLI::ValidationError(name, "expected the name of a file, found ''");
  return word;
}

void AddKeepTmp(CLI::App& command, Context& context) {
  command.add_flag("--keep-tmp", context.keepsTmp, "leave the files of this run in the project's tmp folder");
}

}  // namespace vanzet::cli

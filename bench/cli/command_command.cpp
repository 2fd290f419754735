#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>

#include "cli/commands.h"
#include "cli/output.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::vector<std::string> words;
};

/// The project is the first word when it names a folder and others follow.
Operands SplitLines(const std::vector<std::string>& words) {
  std::error_code error;
  const bool named = words.size() > 1 && std::filesystem::is_directory(words.front(), error);
  if (!named) return {".", words};
  return {words.front(), {words.begin() + 1, words.end()}};
}

std::vector<std::string> LinesOf(std::istream& input) {
  std::vector<std::string> lines;
  for (std::string line; std::getline(input, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (line.find_first_not_of(" \t") != std::string::npos) lines.push_back(line);
  }
  return lines;
}

Result<void> Command(const Arguments& arguments, Context& context) {
  const Operands operands = SplitLines(arguments.words);
  const auto session = OpenSession(operands.project, "", context);
  if (!session) return session.fault();
  const bool fromInput = operands.words == std::vector<std::string>{"-"};
  const std::vector<std::string> lines = fromInput ? LinesOf(std::cin) : operands.words;
  std::size_t failed = 0;
  for (const std::string& line : lines) {
    if (!(*session)->host->Command(line)) ++failed;
  }
  if (failed == 0) return {};
  return Fault{std::to_string(failed) + " of " + Counted(lines.size(), "line") + " failed"};
}

}  // namespace

void AddCommand(CLI::App& app, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* const command = app.add_subcommand(
      "command", "Runs lines of the macro language, one an argument, or from standard input for '-'.");
  command->add_option("[PROJECT] LINE...", arguments->words)->required();
  command->footer("Example:\n  vanzet command lathe \"vdm save 'job.vdm' i_ret i_billet_vdm\"");
  command->callback([=, &context] { context.run = [=, &context] { return Command(*arguments, context); }; });
}

}  // namespace vanzet::cli

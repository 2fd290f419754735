#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/commands.h"
#include "cli/output.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::vector<std::string> words;
};

std::vector<std::string> LinesOf(std::istream& input) {
  std::vector<std::string> lines;
  for (std::string line; std::getline(input, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (line.find_first_not_of(" \t") != std::string::npos) lines.push_back(line);
  }
  return lines;
}

Result<void> Command(const Arguments& arguments, Context& context) {
  const SplitWords operands = SplitProject(arguments.words);
  const auto hosted = HostProject(operands.project, "", context);
  if (!hosted) return hosted.fault();
  const bool fromInput = operands.words == std::vector<std::string>{"-"};
  const std::vector<std::string> lines = fromInput ? LinesOf(std::cin) : operands.words;
  if (lines.size() == 1) return (*hosted)->host->Command(lines.front());
  std::size_t failed = 0;
  for (const std::string& line : lines) {
    const auto run = (*hosted)->host->Command(line);
    if (run) continue;
    context.panel.Tell(run.fault());
    ++failed;
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

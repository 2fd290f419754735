#include <iostream>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::vector<std::string> words;
  std::string picks;
};

std::vector<std::string> LinesOf(std::istream& input) {
  std::vector<std::string> lines;
  for (std::string line; std::getline(input, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (line.find_first_not_of(" \t") != std::string::npos) lines.push_back(line);
  }
  return lines;
}

/// Runs all lines, whatever becomes of each.
Result<void> RunLines(const std::vector<std::string>& lines, api::Host& host, Context& context) {
  if (lines.size() == 1) return host.Command(lines.front());
  std::size_t failed = 0;
  for (const std::string& line : lines) {
    const auto run = host.Command(line);
    if (run) continue;
    context.panel.Tell(run.fault());
    ++failed;
  }
  if (failed == 0) return {};
  return Fault{std::to_string(failed) + " of " + Counted(lines.size(), "line") + " failed"};
}

Result<void> RunCommand(const Arguments& arguments, Context& context) {
  const SplitWords operands = SplitProject(arguments.words);
  VANZET_TRY(const auto hosted, HostProject(operands.project, "", context));
  api::Host& host = *hosted->host;
  if (!arguments.picks.empty()) {
    VANZET_TRY(auto picks, drawing::Picks::ReadFile(arguments.picks));
    host.picks = std::make_unique<drawing::Picks>(std::move(picks));
  }
  const bool fromInput = operands.words == std::vector<std::string>{"-"};
  const auto run = RunLines(fromInput ? LinesOf(std::cin) : operands.words, host, context);
  const auto kept = host.board.Save();
  return run ? kept : run;
}

}  // namespace

void AddCommand(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand(
      "command", "Runs lines of the macro language, one an argument, or from standard input for '-'.");
  command.AddOperands("[PROJECT] LINE...", "", arguments->words).Required();
  command.AddOption("--picks", "FILE", "what the lines ask for with the mouse, a pick a line",
                    StoreFile(arguments->picks));
  AddKeepTmp(command, context);
  command.examples = {"vanzet command lathe \"vdm save 'job.vdm' i_ret i_billet_vdm\"",
                      "vanzet command lathe - <billet.txt"};
  command.work = [=, &context] { return RunCommand(*arguments, context); };
}

}  // namespace vanzet::cli

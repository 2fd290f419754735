#include <algorithm>
#include <map>

#include "base/near_words.h"
#include "base/one_line.h"
#include "base/quote.h"
#include "base/text_stream.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/hosted_project.h"
#include "cli/output.h"
#include "cli/standard_input.h"
#include "language/interpreter.h"
#include "project/text_file.h"

/// The command that runs lines of the macro language.
namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

struct LineArguments {
  std::vector<std::string> words;
  SplitWords operands;
  std::string file;  ///< with the lines; "-": standard input; empty: the lines are operands
  std::string picks;
  bool doesEcho = false;
  bool isStrict = false;
};

/// A line and its place; lines that are operands have none.
struct Line {
  std::string text;
  std::string file;
  int number = 0;
};

/// The names of the projects in the current folder.
std::vector<std::string> ProjectsHere() {
  std::vector<std::string> projects;
  std::error_code error;
  for (fs::directory_iterator entry(".", error), end; !error && entry != end; entry.increment(error)) {
    if (fs::exists(entry->path() / "bench.ini", error)) projects.push_back(entry->path().filename().string());
  }
  std::ranges::sort(projects);
  return projects;
}

/// True for a line without a command: a blank one, or a comment.
bool IsIdle(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t");
  return first == std::string::npos || line[first] == '#';
}

/// Assigns the operands. A first word that cannot begin a line was meant as a project, and the lines after it
/// must not run in the current one.
void AssignOperands(LineArguments& arguments) {
  arguments.operands = SplitProject(arguments.words);
  auto& lines = arguments.operands.words;
  const bool isCurrent = arguments.operands.project == ".";
  const bool isNoCommand = lines.empty() || lines.front() == "-" || IsIdle(lines.front());
  if (isCurrent && !isNoCommand && !language::CanBeginLine(lines.front())) {
    throw WrongUsage{"", Quoted(lines.front()) + " is neither a project nor a line of the macro language" +
                             DidYouMean(lines.front(), ProjectsHere())};
  }
  if (lines.empty() && arguments.file.empty()) throw WrongUsage{"", "LINE is missing"};
  if (!lines.empty() && !arguments.file.empty())
    throw WrongUsage{"--file", "cannot be given together with LINE"};
  if (lines == std::vector<std::string>{"-"}) arguments.file = "-";
  if (arguments.file == "-" && arguments.picks == "-") {
    throw WrongUsage{"--picks", "standard input can be read only once"};
  }
}

std::vector<Line> LinesOf(const std::string& text, const std::string& file) {
  std::vector<Line> lines;
  TextStream stream(text);
  int number = 0;
  for (std::string line; std::getline(stream, line);) {
    ++number;
    if (line.ends_with('\r')) line.pop_back();
    if (!IsIdle(line)) lines.push_back({line, file, number});
  }
  return lines;
}

Result<std::vector<Line>> ReadLines(const LineArguments& arguments) {
  if (arguments.file == "-") return LinesOf(ReadStandardInput("the lines"), "-");
  if (!arguments.file.empty()) {
    VANZET_TRY(const auto text, project::ReadTextFile(arguments.file, arguments.file));
    return LinesOf(text, arguments.file);
  }
  std::vector<Line> lines;
  for (const std::string& word : arguments.operands.words) {
    if (!IsIdle(word)) lines.push_back({word, "", 0});
  }
  return lines;
}

/// Puts the place of a line of a file into the fault of the line, which names the line itself.
Fault AtPlace(const Line& line, Fault fault) {
  if (line.number == 0) return fault;
  if (fault.file != "'" + line.text + "'") fault.text = fault.Message();
  fault.file = line.file;
  fault.line = line.number;
  return fault;
}

using Values = std::map<std::string, std::string>;

/// "  i_ret = 0" for each variable that a line has changed.
std::string ChangesOf(const Values& before, const Values& after) {
  std::string changes;
  for (const auto& [name, value] : after) {
    const auto former = before.find(name);
    if (former != before.end() && former->second == value) continue;
    changes += "  " + OneLine(name + " = " + value) + "\n";
  }
  return changes;
}

Result<void> RunLine(const Line& line, bool doesEcho, api::Host& host, Context& context) {
  if (doesEcho) VANZET_DO(Print("> " + OneLine(line.text) + "\n"));
  const Values before = doesEcho ? host.variables.Texts() : Values();
  if (const auto run = host.Command(line.text); !run) context.panel.Tell(AtPlace(line, run.fault()));
  return doesEcho ? Print(ChangesOf(before, host.variables.Texts())) : Result<void>();
}

/// Runs all lines, unless it is strict also after one of them failed.
Result<void> RunLines(const std::vector<Line>& lines, const LineArguments& arguments, api::Host& host,
                      Context& context) {
  for (const Line& line : lines) {
    VANZET_DO(RunLine(line, arguments.doesEcho, host, context));
    if (arguments.isStrict && context.panel.faults() > 0) break;
  }
  return context.panel.faults() == 0 ? Result<void>() : ReportedFault();
}

Result<void> RunCommand(const LineArguments& arguments, Context& context) {
  VANZET_TRY(const auto hosted, HostProject(arguments.operands.project, "", context));
  api::Host& host = *hosted->host;
  VANZET_DO(LoadPicks(arguments.picks, host));
  VANZET_TRY(const auto lines, ReadLines(arguments));
  // Files that the lines name are counted from the project's folder.
  fs::current_path(hosted->project.folder());
  host.store.WaitAtMost(context.wait);
  VANZET_DO(RunLines(lines, arguments, host, context));
  return KeepRun([&] { return host.Commit("command"); });
}

}  // namespace

void AddCommand(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<LineArguments>();
  Command& command = vanzet.AddCommand(
      "command", "Runs lines of the macro language: one per argument, or, for '-', those on standard input.");
  command.AddOperands("[PROJECT] LINE...", "", arguments->words);
  command.AddOption("--file", "FILE", "run the lines of this file; '-' is standard input",
                    StoreFile(arguments->file));
  command.AddFlag("--echo", "print each line, and the variables that it changed", arguments->doesEcho);
  command.AddFlag("--strict", "stop at the first line that fails", arguments->isStrict);
  command.AddOption("--picks", "FILE", "read the picks with the mouse from this file, one pick per line",
                    StoreFile(arguments->picks));
  AddKeepTmp(command, context);
  AddWait(command, context);
  command.notes =
      "A line that begins with # is a comment. Relative paths in lines start in the project's folder. When a "
      "line fails,\nthe next ones still run, but nothing is stored.";
  command.examples = {"vanzet command lathe \"vdm save 'job.vdm' i_ret i_billet_vdm\" --echo",
                      "vanzet command lathe --file billet.txt --strict"};
  command.check = [=] { AssignOperands(*arguments); };
  command.work = [=, &context] { return RunCommand(*arguments, context); };
}

}  // namespace vanzet::cli

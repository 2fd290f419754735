#include <iostream>

#include "base/files/whole_file.h"
#include "base/one_line.h"
#include "cli/arguments.h"
#include "cli/check_report.h"
#include "cli/commands.h"
#include "cli/hosted_project.h"
#include "cli/output.h"
#include "cli/output_files.h"
#include "cli/script_report.h"
#include "cli/standard_input.h"
#include "project/text_file.h"

/// The command that plays scripts of the dialog.
namespace vanzet::cli {
namespace {

struct ScriptArguments {
  std::vector<std::string> words;
  std::string picks;
  std::string transcript;
  std::string trace;
  bool isStrict = false;
  bool isDryRun = false;
  bool isChecked = false;
};

/// The script of a command: a file, or what is read from standard input.
struct ScriptSource {
  std::string file;  ///< "-": standard input
  std::string name = file == "-" ? "standard input" : file;
};

/// Returns the file of the script; standard input becomes a file of the run. Fails when it is not a text.
Result<std::filesystem::path> ReadScript(const ScriptSource& source, api::Host& host) {
  std::filesystem::path file = source.file;
  if (source.file == "-") {
    VANZET_TRY(const auto folder, host.runFolder.Path());
    file = folder / "script.txt";
    VANZET_DO(files::ReplaceFile(file, ReadStandardInput("the script")));
  }
  VANZET_DO(project::ReadTextFile(file, source.name));
  return file;
}

/// Says what a real run would have changed, besides the store and the drawing.
void PrintLeftOut(const api::DryRun& run) {
  for (const auto& file : run.LeftOut()) {
    std::cerr << "vanzet: " + OneLine(file.string()) + ": not written in a dry run\n";
  }
}

/// Checks and reads all that a script needs besides its own text.
Result<void> Prepare(const ScriptArguments& arguments, HostedProject& hosted, Context& context) {
  api::Host& host = *hosted.host;
  VANZET_DO(HoldProject(host, context));
  // Each line that draws would meet a drawing that cannot be read, and others would miss what it draws.
  VANZET_DO(host.board.Load());
  VANZET_DO(LoadPicks(arguments.picks, host));
  VANZET_DO(CheckIsNoInput(arguments.transcript, InputsOf(hosted.project)));
  VANZET_DO(CheckOutputFile(arguments.transcript));
  return UpgradeFirst(host, context);
}

/// Checks and reads all that the script needs, plays it, and returns the line about it. Nothing is kept yet.
Result<std::string> Play(const ScriptSource& source, const ScriptArguments& arguments, HostedProject& hosted,
                         Context& context) {
  api::Host& host = *hosted.host;
  if (arguments.isDryRun) VANZET_DO(host.BeginDryRun());
  VANZET_TRY(const auto file, ReadScript(source, host));
  VANZET_DO(Prepare(arguments, hosted, context));
  VANZET_TRY(const auto report, ScriptReport::Begin(hosted.project, host.store));
  const char* const mode = arguments.isStrict ? "strict" : "";
  VANZET_DO(PlayScript({file, arguments.transcript, source.name, mode}, host, context));
  if (context.panel.faults() > 0) return ReportedFault();
  return report.Line(source.name, arguments.transcript);
}

Result<void> Script(const ScriptArguments& arguments, Context& context) {
  const SplitWords operands = SplitOperands(arguments.words, 1);
  const ScriptSource source{operands.words.front()};
  if (source.file == "-" && arguments.picks == "-") return Fault{"standard input can be read only once"};
  for (const std::string& output : {arguments.trace, arguments.transcript}) {
    VANZET_DO(CheckIsNoInput(output, {source.file, arguments.picks}));
  }
  const std::string transcript = arguments.transcript.empty() ? "-" : arguments.transcript;
  VANZET_DO(CheckAreTwoFiles(transcript, arguments.trace));
  VANZET_TRY(const auto hosted, HostProject(operands.project, arguments.trace, context));
  if (arguments.isChecked) VANZET_DO(CheckCanBeChecked(hosted->project));
  VANZET_TRY(const auto line, Play(source, arguments, *hosted, context));
  const auto print = [&] { return PrintBeside({transcript, arguments.trace}, line); };
  if (arguments.isDryRun) {
    PrintLeftOut(*hosted->host->dryRun);
    return print();
  }
  VANZET_DO(KeepRun([&] { return hosted->host->Commit("script", print); }));
  if (!arguments.isChecked) return {};
  return CheckAfterRun(hosted->project, {transcript, arguments.trace}, context);
}

}  // namespace

void AddScript(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<ScriptArguments>();
  Command& command = vanzet.AddCommand(
      "script", "Runs a script of the equipment dialog, without a display, and prints a transcript.");
  command.AddOperands("[PROJECT] FILE", "the script; '-' is standard input", arguments->words)
      .Required()
      .Count(1, 2);
  command.AddFlag("--strict", "fail at a message or a question that no 'answer' line awaits",
                  arguments->isStrict);
  command.AddFlag("--dry-run", "play the script and keep nothing of what it changes", arguments->isDryRun);
  command
      .AddFlag("--check", "check the project afterwards; what is found refuses nothing", arguments->isChecked)
      .Excludes({"--dry-run"});
  command.AddOption("--picks", "FILE", "read the picks with the mouse from this file, one pick per line",
                    StoreFile(arguments->picks));
  command.AddOption("--transcript", "FILE", "write the transcript to this file instead of standard output",
                    [=](const std::string& name, const std::string& word) {
                      arguments->transcript = word == "-" ? "" : FileOf(name, word);
                    });
  AddTrace(command, arguments->trace);
  AddKeepTmp(command, context);
  AddWait(command, context);
  command.notes =
      "Prints a line about the run: the spurs that were changed, the messages, how the dialog was closed.\n"
      "Without --transcript standard output has the transcript alone, and the line goes to standard error.\n"
      "With --check the findings of 'vanzet check' follow that line, and the exit status is 3 when one of "
      "them "
      "is an error:\nwhat the script has changed is stored all the same.";
  command.examples = {"vanzet script lathe bar-job.txt --transcript bar-job.jsonl",
                      "vanzet script lathe - --strict <bar-job.txt"};
  command.work = [=, &context] { return Script(*arguments, context); };
}

}  // namespace vanzet::cli

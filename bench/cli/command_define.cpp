#include <fstream>
#include <iostream>
#include <sstream>

#include <nlohmann/json.hpp>

#include "base/files/system_fault.h"
#include "cli/arguments.h"
#include "cli/check_report.h"
#include "cli/commands.h"
#include "cli/hosted_project.h"
#include "cli/length_unit.h"
#include "cli/output.h"
#include "cli/output_files.h"
#include "cli/standard_input.h"
#include "define/changes.h"
#include "define/events.h"
#include "define/outcome.h"
#include "define/schema.h"
#include "define/write.h"
#include "project/text_file.h"
#include "results/definitions.h"
#include "scene/equipment.h"
#include "vdm/vdm_file.h"

namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;
using define::Refusals;
using define::Script;
using define::Step;

struct Arguments {
  std::vector<std::string> words;
  std::string transcript, trace;
  std::optional<LengthUnit> unit;
  bool isDryRun = false, printsSchema = false, printsExample = false, isChecked = false;
};

/// A form that passed its check, and the project that it is for.
struct Job {
  std::string name;  ///< of the form's file, for faults
  define::Json form;
  const project::Project& project;
  api::Host& host;
  Context& context;
};

Result<define::Json> ReadForm(const std::string& file) {
  if (file == "-") {
    return define::ReadJson(ReadStandardInput("the form"), "standard input");
  }
  VANZET_TRY(const auto text, project::ReadTextFile(file, file));
  return define::ReadJson(text, file);
}

/// The unit of the command line is that of a form that does not name one.
Result<void> SetUnit(define::Json& form, std::optional<LengthUnit> unit, const std::string& name) {
  if (!unit || !form.is_object()) return {};
  const std::string word(WordOf(*unit));
  define::Json& own = form.emplace(define::kUnitKey, word).first.value();
  if (own == word) return {};
  return Fault{"$.unit: is " + own.dump() + ", but '--unit' is " + word, name};
}

/// Reports all refusals but the last on the panel, and returns the last one as a fault.
Result<void> ReportRefusals(const Refusals& refusals, const std::string& name, Context& context) {
  for (const define::Refusal& refusal : refusals) {
    const Fault fault{refusal.path + ": " + refusal.reason, name};
    if (&refusal == &refusals.back()) return fault;
    context.panel.Tell(fault);
  }
  return {};
}

Result<void> WriteFile(const fs::path& file, const std::string& text) {
  std::ofstream stream(file, std::ios::binary);
  stream << text << std::flush;
  if (stream.good()) return {};
  return Fault{"cannot be written", file.string()};
}

/// Plays the steps in the dialog, reports what it refuses, and appends to the transcript. `name` is the name
/// of the script among the files of the run.
Result<void> PlaySteps(const std::string& name, const std::vector<Step>& steps, const Job& job,
                       std::string& transcript) {
  VANZET_TRY(const auto folder, job.host.runFolder.Path());
  const Script script = define::ScriptOf(steps);
  const fs::path file = folder / (name + ".txt");
  VANZET_DO(WriteFile(file, script.text));
  std::istringstream pickLines(script.picks);
  VANZET_TRY(auto picks, drawing::Picks::Read(pickLines, job.name));
  job.host.picks = std::make_unique<drawing::Picks>(std::move(picks));
  const int faultsBefore = job.context.panel.faults();
  VANZET_TRY(const auto played, PlayDialog(file, folder / (name + ".jsonl"), job.host, job.context));
  transcript += played;
  // Refusals of the dialog after a failure of the system follow from it.
  const bool hasFailed = job.context.panel.faults() > faultsBefore;
  if (hasFailed && job.context.panel.HasSystemFailed()) return ReportedFault();
  const auto done = ReportRefusals(define::RefusedBy(played, steps, script), job.name, job.context);
  return done && hasFailed ? ReportedFault() : done;
}

/// The equipment that is defined now for the spurs of the form, as a form; without a definition it is empty.
Result<define::Json> StoredForm(const Job& job) {
  define::Json stored = {{"spurs", define::Json::array()}};
  Refusals leftOut;
  VANZET_TRY(const auto definitions, results::ReadDefinitions(job.project, job.host.store));
  for (const define::Json& spur : job.form["spurs"]) {
    const auto number = spur["spur"].get<std::int32_t>();
    const auto& definition = definitions[static_cast<std::size_t>(number)].definition;
    const scene::Equipment equipment = definition ? scene::ReadEquipment(*definition) : scene::Equipment();
    stored["spurs"].push_back(define::SpurForm(number, equipment, "$", leftOut));
  }
  return stored;
}

/// The steps of the dialog before OK.
std::vector<Step> StepsOfJob(const Job& job, const define::Json& former,
                             const define::Surroundings& surroundings) {
  return define::StepsOf(job.form, former, surroundings.hasSubSpindle, surroundings.spurs > 1);
}

/// Writes a catalogue of the devices in the steps, from which the dialog chooses. The catalogue of the shop
/// is not changed and need not contain them.
Result<void> WriteCatalogue(const std::vector<Step>& steps, const Job& job) {
  VANZET_TRY(const auto folder, job.host.runFolder.Path());
  job.host.catalogue = folder / "clampdevice.cld";
  return WriteFile(job.host.catalogue, define::CatalogueText(steps));
}

/// Enters the values in the dialog, presses OK if it accepted all of them, and compares the definitions with
/// the form.
Result<void> Play(const std::vector<Step>& steps, const Job& job, std::string& transcript) {
  for (const std::vector<Step>& play : define::PlaysOf(steps)) {
    VANZET_DO(WriteCatalogue(play, job));
    VANZET_DO(PlaySteps("values", play, job, transcript));
  }
  if (const auto done = PlaySteps("ok", {define::OkStep()}, job, transcript); !done) return done;
  VANZET_TRY(const auto stored, StoredForm(job));
  return ReportRefusals(define::Differences(job.form, stored), job.name, job.context);
}

/// Puts blank definitions in the place of those of the form's spurs, and returns a line about each.
Result<std::string> BeginDefinitions(const Job& job) {
  VANZET_TRY(const auto blank, vdm::ReadVdmFile(job.context.places.share / "support" / "Turn_Multiax" /
                                                "utils" / "template.vdm"));
  std::string lines;
  for (const define::Json& spur : job.form["spurs"]) {
    const auto index = spur["spur"].get<std::int32_t>();
    const std::uint32_t number = job.project.DefinitionOf(index);
    VANZET_DO(job.host.store.Replace(number, blank));
    lines += "spur " + std::to_string(index) + ": VDM " + std::to_string(number) + ", defined\n";
  }
  return lines;
}

/// A drawing that cannot be read does not keep anybody from defining: all of the equipment is drawn again.
Result<void> BeginDrawing(api::Host& host) {
  VANZET_TRY(const auto damage, host.board.LoadOrBegin());
  if (!damage) return {};
  const std::string aside = host.project.folder() / (std::string(drawing::Board::kFile) + ".damaged");
  std::error_code error;
  fs::copy_file(host.project.folder() / drawing::Board::kFile, aside, fs::copy_options::overwrite_existing,
                error);
  if (error) return files::SystemFault("cannot be written", error, aside);
  std::cerr << "vanzet: " + damage->Message() + "; the drawing is made again, and its old file is kept as " +
                   aside + "\n";
  return {};
}

/// Returns a line about each spur.
Result<std::string> DefineAll(const Job& job, const define::Surroundings& surroundings,
                              std::string& transcript) {
  VANZET_DO(BeginDrawing(job.host));
  VANZET_DO(UpgradeFirst(job.host, job.context));
  VANZET_TRY(const auto former, StoredForm(job));
  VANZET_TRY(const auto lines, BeginDefinitions(job));
  VANZET_DO(Play(StepsOfJob(job, former, surroundings), job, transcript));
  return lines;
}

/// An empty name is that of no file, "-" standard output.
Result<void> WriteTranscript(const std::string& file, const std::string& transcript) {
  if (file.empty()) return {};
  return file == "-" ? Print(transcript) : WriteFile(file, transcript);
}

Result<void> Run(const Job& job, const define::Surroundings& surroundings, const Arguments& arguments) {
  std::string transcript;
  const auto lines = DefineAll(job, surroundings, transcript);
  const auto written = WriteTranscript(arguments.transcript, transcript);
  if (!lines) return lines.fault();
  if (!written) return written;
  const auto print = [&] { return PrintBeside({arguments.transcript, arguments.trace}, *lines); };
  VANZET_DO(KeepRun([&] { return job.host.Commit("define", print); }));
  if (!arguments.isChecked) return {};
  return CheckAfterRun(job.project, {arguments.transcript, arguments.trace}, job.context);
}

/// Prints what would change as comments, and the script that would be played.
Result<void> PrintPlan(const Job& job, const define::Surroundings& surroundings) {
  VANZET_TRY(const auto former, StoredForm(job));
  std::string plan = "# What would change, lengths in mm:\n";
  for (const std::string& change : define::ChangesOf(job.form, former))
    plan += "#   " + OneLine(change) + "\n";
  auto steps = StepsOfJob(job, former, surroundings);
  steps.push_back(define::OkStep());
  return Print(plan + define::ScriptOf(steps).text);
}

/// `define --schema` and `--example` need no form and no project.
void CheckOperands(const Arguments& arguments) {
  const bool prints = arguments.printsSchema || arguments.printsExample;
  const char* const flag = arguments.printsSchema ? "--schema" : "--example";
  if (!prints && arguments.words.empty())
    throw WrongUsage{"FILE", "is missing: a form, or '-' for standard input"};
  if (prints && !arguments.words.empty()) throw WrongUsage{flag, "takes no operands"};
}

Result<void> PrintExample(const Context& context) {
  const fs::path file = context.places.share / "schema" / "example.json";
  VANZET_TRY(const auto example, project::ReadTextFile(file, file.string()));
  return Print(example);
}

/// The outputs are two files, and none is the form.
Result<void> CheckOutputs(const Arguments& arguments, const std::string& form) {
  VANZET_DO(CheckAreTwoFiles(arguments.transcript, arguments.trace));
  for (const std::string& output : {arguments.trace, arguments.transcript}) {
    VANZET_DO(CheckIsNoInput(output, {form}));
  }
  return {};
}

/// Checks that the project can take what the run does, and holds it.
Result<void> Prepare(const HostedProject& hosted, const Arguments& arguments, const Context& context) {
  VANZET_DO(CheckIsNoInput(arguments.transcript, InputsOf(hosted.project)));
  if (arguments.isChecked) VANZET_DO(CheckCanBeChecked(hosted.project));
  return arguments.isDryRun ? Result<void>() : HoldProject(*hosted.host, context);
}

Result<void> Define(const Arguments& arguments, Context& context) {
  if (arguments.printsSchema) return Print(define::FormSchema().dump(2) + "\n");
  if (arguments.printsExample) return PrintExample(context);
  const SplitWords operands = SplitOperands(arguments.words, 1);
  const std::string& file = operands.words.front();
  VANZET_DO(CheckOutputs(arguments, file));
  const std::string name = file == "-" ? "standard input" : file;
  VANZET_TRY(auto form, ReadForm(file));
  VANZET_DO(SetUnit(form, arguments.unit, name));
  VANZET_TRY(const auto hosted, HostProject(operands.project, arguments.trace, context));
  VANZET_DO(Prepare(*hosted, arguments, context));
  VANZET_TRY(const auto surroundings, SurroundingsOf(hosted->project, *hosted->host));
  VANZET_DO(ReportRefusals(define::CheckForm(form, surroundings), name, context));
  const Job job{name, std::move(form), hosted->project, *hosted->host, context};
  if (!arguments.isDryRun) return Run(job, surroundings, arguments);
  return PrintPlan(job, surroundings);
}

}  // namespace

void AddDefine(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand("define", "Defines equipment from a JSON form, through the dialog.");
  command.AddOperands("FILE [PROJECT]", "the form, a .json file; '-' is standard input", arguments->words)
      .Count(0, 2);
  const std::vector<std::string> idle = {"--dry-run", "--schema", "--example"};  // the dialog is not played
  command
      .AddFlag("--dry-run",
               "only check the form, and print what would change and the script that would be run",
               arguments->isDryRun)
      .Excludes({"--schema", "--example"});
  command.AddFlag("--schema", "print the JSON schema of the form, for editors", arguments->printsSchema)
      .Excludes({"--example"});
  command.AddFlag("--example", "print a form with comments, to begin with", arguments->printsExample);
  AddUnit(command, arguments->unit, "the unit of lengths of a form that does not name one; default: mm")
      .Excludes({"--schema", "--example"});
  command
      .AddOption("--transcript", "FILE", "write the transcript of the dialog to this file",
                 StoreFile(arguments->transcript))
      .Excludes(idle);
  command
      .AddFlag("--check", "check the project afterwards; what is found refuses nothing", arguments->isChecked)
      .Excludes(idle);
  AddTrace(command, arguments->trace).Excludes(idle);
  AddKeepTmp(command, context).Excludes(idle);
  AddWait(command, context).Excludes(idle);
  command.check = [=] { CheckOperands(*arguments); };
  command.notes =
      "With --check the findings of 'vanzet check' follow the lines about the spurs, and the exit status is "
      "3 "
      "when one of\nthem is an error: the definition is stored all the same.";
  command.examples = {"vanzet define bar-job.json lathe", "vanzet define bar-job.json lathe --check",
                      "vanzet show lathe --json | vanzet define - other",
                      "vanzet define --example > job.json"};
  command.work = [=, &context] { return Define(*arguments, context); };
}

}  // namespace vanzet::cli

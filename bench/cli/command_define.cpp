#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <sstream>

#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/hosted_project.h"
#include "cli/output.h"
#include "define/catalogue.h"
#include "define/events.h"
#include "define/outcome.h"
#include "define/write.h"
#include "project/text_file.h"
#include "results/definitions.h"
#include "scene/equipment.h"
#include "vdm/store.h"
#include "vdm/vdm_file.h"

namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;
using define::Refusals;
using define::Script;
using define::Step;

/// Replaces definitions by new ones, all or none: unless `Keep` is called, the destructor restores the former
/// ones and deletes those that did not exist before. It reports on the panel what it cannot restore, because
/// another process has opened it.
class NewDefinitions {
 public:
  /// All of them have to outlive this object; `blank` is the content of a new definition.
  NewDefinitions(vdm::VdmStore& store, const vdm::Vdm& blank, project::MessagePanel& panel)
      : store_(store), blank_(blank), panel_(panel) {}
  ~NewDefinitions();
  NewDefinitions(const NewDefinitions&) = delete;
  NewDefinitions& operator=(const NewDefinitions&) = delete;

  /// Replaces the VDM with this number by a new definition. Fails when it is open, here or elsewhere.
  Result<void> Make(std::uint32_t number);

  void Keep() { formers_.clear(); }

 private:
  struct Former {
    std::uint32_t number;
    std::optional<vdm::Vdm> content;
  };

  vdm::VdmStore& store_;
  const vdm::Vdm& blank_;
  project::MessagePanel& panel_;
  std::vector<Former> formers_;
};

NewDefinitions::~NewDefinitions() {
  for (const Former& former : formers_) {
    const auto done =
        former.content ? store_.Replace(former.number, *former.content) : store_.Delete(former.number);
    if (!done) panel_.Tell(Fault{"the former definition could not be restored: " + done.fault().Message()});
  }
}

Result<void> NewDefinitions::Make(std::uint32_t number) {
  Former former{number, std::nullopt};
  VANZET_TRY(const auto numbers, store_.Numbers());
  if (std::ranges::find(numbers, vdm::Number{number}) != numbers.end()) {
    VANZET_TRY(auto content, store_.Snapshot(number));
    former.content = std::move(content);
  }
  VANZET_DO(store_.Replace(number, blank_));
  formers_.push_back(std::move(former));
  return {};
}

struct Arguments {
  std::vector<std::string> words;
  std::string transcript, trace;
  bool isDryRun = false;
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
    return define::ReadJson({std::istreambuf_iterator<char>(std::cin), {}}, "standard input");
  }
  VANZET_TRY(const auto text, project::ReadTextFile(file, file));
  return define::ReadJson(text, file);
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
  const auto done = ReportRefusals(define::RefusedBy(played, steps, script), job.name, job.context);
  if (!done || job.context.panel.faults() == faultsBefore) return done;
  return Fault{"the dialog reported errors; see the messages above", job.name};
}

/// The equipment that is defined now for the spurs of the form, as a form; without a definition it is empty.
Result<define::Json> StoredForm(const Job& job) {
  define::Json stored = {{"spurs", define::Json::array()}};
  Refusals leftOut;
  for (const define::Json& spur : job.form["spurs"]) {
    const auto number = spur["spur"].get<std::int32_t>();
    VANZET_TRY(const auto read, results::ReadDefinition(job.project, number));
    const scene::Equipment equipment =
        read.definition ? scene::ReadEquipment(*read.definition) : scene::Equipment();
    stored["spurs"].push_back(define::SpurForm(number, equipment, "$", leftOut));
  }
  return stored;
}

/// The steps of the dialog before OK.
Result<std::vector<Step>> StepsOfJob(const Job& job, const define::Surroundings& surroundings) {
  VANZET_TRY(const auto former, StoredForm(job));
  return define::StepsOf(job.form, former, surroundings.hasSubSpindle, surroundings.spurs > 1);
}

/// Enters the values in the dialog, presses OK if it accepted all of them, and compares the definitions with
/// the form.
Result<void> Play(const std::vector<Step>& steps, const Job& job, std::string& transcript) {
  VANZET_DO(PlaySteps("values", steps, job, transcript));
  if (const auto done = PlaySteps("ok", {define::OkStep()}, job, transcript); !done) return done;
  VANZET_TRY(const auto stored, StoredForm(job));
  return ReportRefusals(define::Differences(job.form, stored), job.name, job.context);
}

/// Writes a catalogue of the devices in the form, from which the dialog chooses. The catalogue of the shop is
/// not changed and need not contain them.
Result<void> WriteCatalogue(const Job& job) {
  VANZET_TRY(const auto folder, job.host.runFolder.Path());
  job.host.catalogue = folder / "clampdevice.cld";
  return WriteFile(job.host.catalogue, define::CatalogueText(job.form));
}

/// Defines all spurs or none: after a failure the former definitions and the drawing are unchanged.
Result<std::string> DefineAll(const Job& job, const define::Surroundings& surroundings,
                              std::string& transcript) {
  VANZET_TRY(const auto blank, vdm::ReadVdmFile(job.context.places.share / "support" / "Turn_Multiax" /
                                                "utils" / "template.vdm"));
  VANZET_TRY(const auto steps, StepsOfJob(job, surroundings));
  VANZET_DO(WriteCatalogue(job));
  NewDefinitions definitions(job.host.store, blank, job.context.panel);
  std::string lines;
  for (const define::Json& spur : job.form["spurs"]) {
    const auto index = spur["spur"].get<std::int32_t>();
    const std::uint32_t number = job.project.DefinitionOf(index);
    VANZET_DO(definitions.Make(number));
    lines += "spur " + std::to_string(index) + ": VDM " + std::to_string(number) + ", defined\n";
  }
  job.host.board.isHeld = true;
  auto done = Play(steps, job, transcript);
  if (!done) job.host.board = drawing::Board(job.project.folder());
  job.host.board.isHeld = false;
  if (done) done = job.host.board.Save();
  if (!done) return done.fault();
  definitions.Keep();
  return lines;
}

Result<void> Run(const Job& job, const define::Surroundings& surroundings, const Arguments& arguments) {
  VANZET_DO(job.host.store.Check());
  std::string transcript;
  const auto lines = DefineAll(job, surroundings, transcript);
  const auto written =
      arguments.transcript.empty() ? Result<void>() : WriteFile(arguments.transcript, transcript);
  if (!lines) return lines.fault();
  if (!written) return written;
  return Print(*lines);
}

Result<void> Define(const Arguments& arguments, Context& context) {
  const SplitWords operands = SplitOperands(arguments.words, 1);
  const std::string& file = operands.words.front();
  VANZET_TRY(auto form, ReadForm(file));
  VANZET_TRY(const auto hosted, HostProject(operands.project, arguments.trace, context));
  VANZET_TRY(const auto surroundings, SurroundingsOf(hosted->project, *hosted->host));
  const std::string name = file == "-" ? "standard input" : file;
  VANZET_DO(ReportRefusals(define::CheckForm(form, surroundings), name, context));
  const Job job{name, std::move(form), hosted->project, *hosted->host, context};
  if (!arguments.isDryRun) return Run(job, surroundings, arguments);
  VANZET_TRY(auto steps, StepsOfJob(job, surroundings));
  steps.push_back(define::OkStep());
  return Print(define::ScriptOf(steps).text);
}

}  // namespace

void AddDefine(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand("define", "Defines equipment from a JSON form, through the dialog.");
  command.AddOperands("FILE [PROJECT]", "the form, a .json file; '-' is standard input", arguments->words)
      .Required()
      .Count(1, 2);
  command.AddFlag("--dry-run", "only check the form, and print the script that would be run",
                  arguments->isDryRun);
  command.AddOption("--transcript", "FILE", "write the transcript of the dialog to this file",
                    StoreFile(arguments->transcript));
  AddTrace(command, arguments->trace);
  AddKeepTmp(command, context);
  command.examples = {"vanzet define bar-job.json lathe", "vanzet show lathe --json | vanzet define - other"};
  command.work = [=, &context] { return Define(*arguments, context); };
}

}  // namespace vanzet::cli

#include <filesystem>
#include <iostream>
#include <optional>

#include <nlohmann/json.hpp>

#include "base/numbers.h"
#include "base/one_line.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/hosted_project.h"
#include "cli/output.h"
#include "cli/output_files.h"
#include "cli/standard_input.h"
#include "process/last_words.h"
#include "project/definition.h"
#include "project/project.h"
#include "project/project_store.h"
#include "vdm/store.h"
#include "vdm/vdm_file.h"

/// The commands on single VDMs and on .vdm files.
namespace vanzet::cli {
namespace {

constexpr const char* kFileHelp = "FILE is a .vdm file; '-' is standard input or output";

/// The operands of save and load.
struct VdmArguments {
  std::vector<std::string> words;
  std::filesystem::path project;
  std::int32_t number = 0;
  std::string file;
};

/// Assigns the words. Without the project, the number is the word at `numberAt`, 0 or 1.
void AssignOperands(VdmArguments& arguments, std::size_t numberAt) {
  constexpr std::size_t kOperands = 2;
  const std::string& first = arguments.words.front();
  std::error_code error;
  if (arguments.words.size() == kOperands && !WholeInteger(first) &&
      std::filesystem::is_directory(first, error)) {
    throw WrongUsage{"", numberAt == 0 ? "FILE is missing" : "NUMBER is missing"};
  }
  const SplitWords split = SplitOperands(arguments.words, kOperands);
  arguments.project = split.project;
  arguments.number = NumberOf("NUMBER", split.words[numberAt]);
  arguments.file = FileOf("FILE", split.words[1 - numberAt]);
}

Result<void> Save(const VdmArguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  const auto file = project.paths().Resolve(arguments.file);
  VANZET_DO(CheckIsNoInput(file, InputsOf(project)));
  VANZET_TRY(const auto content, project::StoreOf(project).Snapshot(arguments.number));
  if (arguments.file == "-") return vdm::WriteVdm(content, Print);
  VANZET_DO(vdm::WriteVdmFile(file, content));
  return Print("saved VDM " + std::to_string(arguments.number) + ", " + Counted(content.Size(), "record") +
               ", to " + OneLine(file.string()) + "\n");
}

/// Reads a .vdm file, or standard input for the name "-".
Result<vdm::Vdm> ReadVdm(const std::string& name, const std::filesystem::path& file) {
  if (name != "-") return vdm::ReadVdmFile(file);
  HintAtTerminal("the text of a VDM");
  return vdm::ReadVdm(std::cin, "standard input");
}

/// Where a VDM came from, for a message.
std::string SourceOf(const std::string& name, const std::filesystem::path& file) {
  return name == "-" ? "standard input" : OneLine(file.string());
}

Result<void> Load(const VdmArguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  const auto file = project.paths().Resolve(arguments.file);
  VANZET_TRY(const auto content, ReadVdm(arguments.file, file));
  process::SetKept(process::Kept::kNothing);
  vdm::VdmStore store = project::StoreOf(project);
  store.WaitAtMost(context.wait);
  VANZET_DO(store.Replace(arguments.number, content));
  const std::string line = "loaded VDM " + std::to_string(arguments.number) + ", " +
                           Counted(content.Size(), "record") + ", from " + SourceOf(arguments.file, file) +
                           "\n";
  return KeepRun([&] { return store.Commit("vdm load", {}, [&] { return Print(line); }); });
}

Result<void> Check(const std::string& file, bool json) {
  VANZET_TRY(const auto content, ReadVdm(file, PathMap::OfProcess().Resolve(file)));
  std::size_t items = 0;
  for (std::size_t i = 0; i < content.Size(); ++i) {
    VANZET_TRY(const auto record, content.Read(i));
    items += record->Size();
  }
  if (json) return PrintJson({{"file", file}, {"records", content.Size()}, {"items", items}});
  return Print(SourceOf(file, file) + ": " + Counted(content.Size(), "record") + ", " +
               Counted(items, "item") + "\n");
}

void AddSave(Command& vdm, const Context& context) {
  const auto arguments = std::make_shared<VdmArguments>();
  Command& command = vdm.AddCommand("save", "Saves a VDM to a .vdm file.");
  command.AddOperands("[PROJECT] NUMBER FILE", kFileHelp, arguments->words).Required().Count(2, 3);
  command.examples = {"vanzet vdm save lathe 1000 job.vdm"};
  command.check = [=] { AssignOperands(*arguments, 0); };
  command.work = [=, &context] { return Save(*arguments, context); };
}

void AddLoad(Command& vdm, Context& context) {
  const auto arguments = std::make_shared<VdmArguments>();
  Command& command = vdm.AddCommand(
      "load",
      "Replaces a VDM with the content of a .vdm file. When the file is rejected, the VDM is unchanged.");
  command.AddOperands("[PROJECT] FILE NUMBER", kFileHelp, arguments->words).Required().Count(2, 3);
  AddWait(command, context);
  command.examples = {"vanzet vdm load lathe job.vdm 1000"};
  command.check = [=] { AssignOperands(*arguments, 1); };
  command.work = [=, &context] { return Load(*arguments, context); };
}

void AddCheck(Command& vdm) {
  struct CheckArguments {
    std::string file;
    bool json = false;
  };
  const auto arguments = std::make_shared<CheckArguments>();
  Command& command = vdm.AddCommand("check", "Checks a .vdm file, and counts its records and items.");
  command.AddOperand("FILE", kFileHelp, StoreFile(arguments->file)).Required();
  command.AddFlag("--json", "print JSON", arguments->json);
  command.examples = {"vanzet vdm check job.vdm"};
  command.work = [=] { return Check(arguments->file, arguments->json); };
}

struct ItemsArguments {
  std::string project = ".";
  std::optional<std::int32_t> vdm;
  bool json = false;
  bool isSummary = false;
};

std::string ItemCounts(const project::Operation& operation) {
  std::string counts;
  for (const std::size_t count : operation.counts)
    counts += (counts.empty() ? "" : " ") + std::to_string(count);
  return counts;
}

std::string SummaryOf(const project::Definition& definition, const Context& context) {
  std::vector<std::vector<std::string>> rows = {
      {context.Heading(Translatable("op")), context.Heading(Translatable("label")),
       context.Heading(Translatable("kind")), context.Heading(Translatable("sections")),
       context.Heading(Translatable("items of each"))}};
  for (std::size_t i = 0; i < definition.operations.size(); ++i) {
    const project::Operation& operation = definition.operations[i];
    const std::string damage = operation.damage.empty() ? "" : "  damaged: " + OneLine(operation.damage);
    rows.push_back({std::to_string(i), OneLine(operation.Label()), std::to_string(operation.kind),
                    std::to_string(operation.counts.size()), ItemCounts(operation) + damage});
  }
  return Columns(rows, "rlrrl", "  ");
}

/// Prints the counts of a VDM whose records are operations.
Result<void> PrintSummary(vdm::Number number, const vdm::VdmStore& store, const Context& context) {
  VANZET_TRY(const auto heads, store.Heads({number}));
  const auto head = heads.find(number);
  if (head == heads.end()) {
    return Fault{.text = vdm::NameOf(number) + " does not exist", .kind = FaultKind::kMissing};
  }
  const project::Definition definition = project::ReadDefinition(head->second);
  return Print(vdm::NameOf(number) + ", version " + std::to_string(definition.version) + ", " +
               Counted(definition.operations.size(), "operation") + "\n" + SummaryOf(definition, context));
}

Result<void> PrintLines(const vdm::Vdm& content) {
  for (std::size_t i = 0; i < content.Size(); ++i) {
    VANZET_TRY(const auto record, content.Read(i));
    std::string lines;
    for (std::size_t item = 0; item < record->Size(); ++item) {
      lines += std::to_string(i) + "." + std::to_string(item) + "\t" + EscapedItem((*record)[item]) + "\n";
    }
    VANZET_DO(Print(lines));
  }
  return {};
}

Result<void> PrintAsJson(std::int64_t number, const vdm::Vdm& content) {
  Json records = Json::array();
  for (std::size_t i = 0; i < content.Size(); ++i) {
    VANZET_TRY(const auto record, content.Read(i));
    Json items = Json::array();
    for (std::size_t item = 0; item < record->Size(); ++item) items.push_back((*record)[item]);
    records.push_back(std::move(items));
  }
  return PrintJson({{"vdm", number}, {"records", records}});
}

Result<void> Items(const ItemsArguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  const std::int64_t number = arguments.vdm.value_or(project.DefinitionOf(0));
  const vdm::VdmStore store = project::StoreOf(project);
  if (arguments.isSummary) {
    VANZET_TRY(const auto known, vdm::NumberFrom(number));
    return PrintSummary(known, store, context);
  }
  VANZET_TRY(const auto content, store.Snapshot(number));
  return arguments.json ? PrintAsJson(number, content) : PrintLines(content);
}

}  // namespace

void AddVdm(Command& vanzet, Context& context) {
  Command& vdm = vanzet.AddCommand("vdm", "Saves VDMs to .vdm files, and loads them.");
  vdm.examples = {"vanzet vdm save lathe 1000 job.vdm"};
  AddSave(vdm, context);
  AddLoad(vdm, context);
  AddCheck(vdm);
}

void AddItems(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<ItemsArguments>();
  Command& command = vanzet.AddCommand(
      "items", "Prints the raw records of a VDM: one line per item, with record.item, a tab, and the text.");
  AddProject(command, arguments->project);
  command.AddOption("--vdm", "N", "the VDM; default: the definition of spur 0", StoreNumber(arguments->vdm));
  command.AddFlag("--json", "print JSON", arguments->json);
  command
      .AddFlag("--summary", "print the operations of a definition, and the number of items in each section",
               arguments->isSummary)
      .Excludes({"--json"});
  command.examples = {"vanzet items lathe --vdm 1001 | grep Billet", "vanzet items lathe --summary"};
  command.work = [=, &context] { return Items(*arguments, context); };
}

}  // namespace vanzet::cli

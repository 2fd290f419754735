#include <filesystem>
#include <fstream>
#include <set>

#include <nlohmann/json.hpp>

#include "base/files/whole_file.h"
#include "base/one_line.h"
#include "catalogue/check.h"
#include "catalogue/shop_place.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/hosted_project.h"
#include "cli/output.h"
#include "drawing/board.h"
#include "project/catalogue.h"
#include "project/litter.h"
#include "project/project.h"
#include "project/project_store.h"
#include "project/run_folder.h"
#include "project/settings_file.h"
#include "vdm/embedded/engine.h"
#include "vdm/embedded/store_care.h"

/// The commands that look after what a project has stored.
namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kStore = vdm::SqliteEngine::kStoreFile;

/// One thing that is wrong, in one file of the project.
struct Finding {
  std::string file;
  std::string text;
};
using Findings = std::vector<Finding>;

void AddFault(Findings& findings, const Fault& fault, const fs::path& project) {
  const std::string line = fault.line > 0 ? "line " + std::to_string(fault.line) + ": " : "";
  const fs::path file = fs::path(fault.file).lexically_relative(project);
  findings.push_back({file.empty() ? fault.file : file.string(), line + fault.text});
}

/// A failure that is not of the file: it says nothing about its content.
bool IsOfSystem(const Fault& fault) {
  return fault.kind == FaultKind::kSystem;
}

Result<void> CheckDrawing(const project::Project& project, Findings& findings) {
  drawing::Board board(project.folder());
  const auto loaded = board.Load();
  if (!loaded && IsOfSystem(loaded.fault())) return loaded;
  if (!loaded) AddFault(findings, loaded.fault(), project.folder());
  return {};
}

/// The catalogue that the project uses, also one on a server; a missing one is not a finding.
Result<void> CheckCatalogue(const project::Project& project, Findings& findings) {
  VANZET_TRY(const auto setting, project::SettingsFile(project.folder()).Value(project::kCatalogueSetting));
  const auto place = catalogue::PlaceOf(project, setting);
  const auto devices = ReadCatalogue(place);
  if (!devices && devices.fault().kind == FaultKind::kMissing) return {};
  if (!devices && IsOfSystem(devices.fault())) return devices.fault();
  if (!devices) return AddFault(findings, devices.fault(), project.folder()), Result<void>();
  for (const catalogue::Entry& entry : devices->entries()) {
    const std::string fault = FormFaultOf(entry);
    if (fault.empty()) continue;
    AddFault(findings, {.text = fault, .file = place.file.string(), .line = entry.ValuesLine()},
             project.folder());
    break;
  }
  return {};
}

bool IsOnServer(const project::Project& project) {
  return !project.settings().store.connection.empty();
}

/// Adds the damaged records of a generation; one that several generations share is found once.
Result<void> CheckGeneration(const vdm::PastGeneration& past, std::set<std::string>& damages) {
  for (const auto& [number, content] : past.vdms) {
    for (std::size_t i = 0; content && i < content->Size(); ++i) {
      const auto record = content->Read(i);
      if (record) continue;
      if (record.fault().kind != FaultKind::kDamaged) return record.fault();
      damages.insert(record.fault().Message());
    }
  }
  return {};
}

/// The server looks after its own files; each record is read from it and verified.
Result<void> CheckServer(const project::Project& project, Findings& findings) {
  std::set<std::string> damages;
  const auto visited = project::StoreOf(project).Visit(
      {}, [&](const vdm::PastGeneration& past) { return CheckGeneration(past, damages); });
  if (!visited && visited.fault().kind != FaultKind::kDamaged) return visited;
  if (!visited) damages.insert(visited.fault().Message());
  for (const std::string& text : damages) findings.push_back({"the server", text});
  return {};
}

Result<void> CheckStoreOf(const project::Project& project, Findings& findings) {
  if (IsOnServer(project)) return CheckServer(project, findings);
  VANZET_TRY(const auto found, vdm::CheckStore(project.folder() / kStore));
  for (const std::string& text : found) findings.push_back({kStore, text});
  return {};
}

Result<Findings> FindingsOf(const project::Project& project) {
  Findings findings;
  VANZET_DO(CheckStoreOf(project, findings));
  VANZET_DO(CheckDrawing(project, findings));
  VANZET_DO(CheckCatalogue(project, findings));
  VANZET_TRY(const auto deadRuns, project::DeadRunFolders(project.folder()));
  for (const fs::path& folder : deadRuns) {
    findings.push_back(
        {folder.lexically_relative(project.folder()).string(), "is left from a run that was killed"});
  }
  return findings;
}

struct CheckArguments {
  std::string project = ".";
  bool json = false;
};

Result<void> PrintFindings(const Findings& findings) {
  std::string lines;
  for (const Finding& finding : findings) lines += OneLine(finding.file + ": " + finding.text) + "\n";
  return Print(findings.empty() ? "nothing was found\n" : lines);
}

Result<void> PrintFindingsAsJson(const Findings& findings) {
  Json list = Json::array();
  for (const Finding& finding : findings) list.push_back({{"file", finding.file}, {"text", finding.text}});
  return PrintJson({{"findings", list}});
}

Result<void> Check(const CheckArguments& arguments, Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  VANZET_TRY(const auto findings, FindingsOf(project));
  VANZET_DO(arguments.json ? PrintFindingsAsJson(findings) : PrintFindings(findings));
  context.hasFindings = !findings.empty();
  return {};
}

Result<void> Repair(const std::string& folder, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(folder, context.places.share));
  if (IsOnServer(project)) {
    return Fault{
        "the store is on a server, which keeps its own files: restore the server's backup, or copy the "
        "project",
        project.folder().string()};
  }
  vdm::VdmStore store = project::StoreOf(project);
  store.WaitAtMost(context.wait);
  VANZET_DO(store.Hold());
  project::RunFolder run(project.folder());
  VANZET_TRY(const auto scratch, run.Path());
  VANZET_TRY(const auto repair, vdm::RepairStore(project.folder() / kStore, scratch));
  if (repair.aside.empty()) return Print("the store is sound; nothing was changed\n");
  std::string lines;
  for (const std::string& text : repair.missing) lines += OneLine("missing: " + text) + "\n";
  return Print(lines + "kept " + Counted(repair.vdms, "VDM") + " with " + Counted(repair.records, "record") +
               "; the damaged file is " + OneLine(repair.aside.string()) + "\n");
}

/// Copies a file piece by piece; the target has its old content or all of the new one.
Result<void> ReplaceByCopy(const fs::path& from, const fs::path& to) {
  constexpr std::size_t kPiece = 1 << 20;
  VANZET_TRY(auto replacement, files::FileReplacement::Begin(to));
  std::ifstream bytes(from, std::ios::binary);
  std::string piece(kPiece, '\0');
  while (bytes.read(piece.data(), kPiece) || bytes.gcount() > 0) {
    VANZET_DO(replacement.Write({piece.data(), static_cast<std::size_t>(bytes.gcount())}));
  }
  if (!bytes.eof()) return Fault{.text = "cannot be read", .file = from.string(), .kind = FaultKind::kSystem};
  return replacement.Commit();
}

/// Writes a copy of the project's store, wherever it is, to a file that does not exist.
Result<void> WriteCopy(const project::Project& project, const fs::path& file) {
  if (!IsOnServer(project)) return vdm::CopyStore(project.folder() / kStore, file);
  const vdm::VdmStore store = project::StoreOf(project);
  VANZET_TRY(const auto changes, store.ListChanges({}));
  if (changes.empty()) {
    return Fault{.text = "the project has no store yet", .kind = FaultKind::kMissing};
  }
  return vdm::SqliteEngine(file).Fill(
      [&](const vdm::GenerationVisitor& visitor) { return store.Visit({}, visitor); });
}

struct BackupArguments {
  std::vector<std::string> words;
};

Result<void> Backup(const BackupArguments& arguments, const Context& context) {
  const SplitWords operands = SplitOperands(arguments.words, 1);
  VANZET_TRY(const auto project, project::Project::Open(operands.project, context.places.share));
  const std::string& file = operands.words.front();
  VANZET_DO(project::StoreOf(project).CheckTarget(file));
  project::RunFolder run(project.folder());
  VANZET_TRY(const auto folder, run.Path());
  VANZET_DO(WriteCopy(project, folder / kStore));
  VANZET_DO(ReplaceByCopy(folder / kStore, file));
  return Print("saved the store to " + OneLine(file) + "\n");
}

void AddStoreCheck(Command& store, Context& context) {
  const auto arguments = std::make_shared<CheckArguments>();
  Command& command = store.AddCommand("check",
                                      "Reads the whole store, the drawing and the catalogue, and reports "
                                      "what is wrong, one line per finding.");
  AddProject(command, arguments->project);
  command.AddFlag("--json", "print JSON", arguments->json);
  command.notes = "The exit status is 3 when something was found.";
  command.examples = {"vanzet store check lathe"};
  command.work = [=, &context] { return Check(*arguments, context); };
}

void AddRepair(Command& store, Context& context) {
  const auto project = std::make_shared<std::string>(".");
  Command& command = store.AddCommand(
      "repair",
      "Keeps what can be read of a damaged store, sets the damaged file aside, and reports what is missing.");
  AddProject(command, *project);
  AddWait(command, context);
  command.examples = {"vanzet store repair lathe"};
  command.work = [=, &context] { return Repair(*project, context); };
}

void AddBackup(Command& store, const Context& context) {
  const auto arguments = std::make_shared<BackupArguments>();
  Command& command = store.AddCommand("backup", "Saves a copy of the store, also while others work.");
  command.AddOperands("[PROJECT] FILE", "", arguments->words).Required().Count(1, 2);
  command.examples = {"vanzet store backup lathe monday.db"};
  command.work = [=, &context] { return Backup(*arguments, context); };
}

}  // namespace

void AddStore(Command& vanzet, Context& context) {
  Command& store = vanzet.AddCommand("store", "Checks, repairs and saves what a project has stored.");
  store.examples = {"vanzet store check lathe"};
  AddStoreCheck(store, context);
  AddRepair(store, context);
  AddBackup(store, context);
  AddStoreCopy(store, context);
}

}  // namespace vanzet::cli

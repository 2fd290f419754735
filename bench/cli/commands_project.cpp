#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "api/module.h"
#include "api/upgrade.h"
#include "base/files/system_fault.h"
#include "base/one_line.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/hosted_project.h"
#include "cli/output.h"
#include "cli/output_files.h"
#include "project/known_settings.h"
#include "project/sample.h"

/// The commands that create, upgrade and open projects.
namespace vanzet::cli {
namespace {

struct UpgradeArguments {
  std::string project = ".";
  std::string trace;
};

std::string LinesOf(const std::vector<api::DefinitionState>& definitions) {
  std::string lines;
  for (const api::DefinitionState& each : definitions) {
    lines += "spur " + std::to_string(each.spur) + ": VDM " + std::to_string(each.vdm) + ", version " +
             std::to_string(each.version) + ", " + Counted(each.operations, "operation") + "\n";
  }
  return lines;
}

Result<void> Upgrade(const UpgradeArguments& arguments, Context& context) {
  VANZET_TRY(const auto hosted, HostProject(arguments.project, arguments.trace, context));
  api::Host& host = *hosted->host;
  VANZET_DO(HoldProject(host, context));
  VANZET_TRY(const auto module, api::FindModule(context.places.program));
  VANZET_TRY(const auto definitions, api::UpgradeDefinitions(module, host));
  return KeepRun([&] {
    return host.Commit("upgrade", [&] { return PrintBeside({arguments.trace}, LinesOf(definitions)); });
  });
}

struct NewArguments {
  std::string folder;
  std::string sample = "mill-turn";
  std::vector<project::SettingChange> settings;
};

/// Until the folder gets its name, the settings have that of the project on a server.
Result<void> NameOnServer(const std::filesystem::path& folder, const NewArguments& arguments,
                          const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(folder, context.places.share));
  const project::StorePlace& store = project.settings().store;
  if (store.connection.empty() || store.project != project.folder().filename()) return {};
  auto target = std::filesystem::absolute(arguments.folder).lexically_normal();
  if (!target.has_filename()) target = target.parent_path();
  return project::ChangeSettings(folder, {{"bench.ini", "store", "project", target.filename().string()}});
}

/// Changes settings and makes the definitions in the folder that becomes the project, and reports both.
Result<void> FillProject(const std::filesystem::path& folder, const NewArguments& arguments,
                         Context& context) {
  VANZET_DO(project::ChangeSettings(folder, arguments.settings));
  VANZET_DO(NameOnServer(folder, arguments, context));
  VANZET_TRY(const auto hosted, HostProject(folder, "", context));
  VANZET_TRY(const auto module, api::FindModule(context.places.program));
  VANZET_TRY(const auto definitions, api::UpgradeDefinitions(module, *hosted->host));
  const std::string report =
      "created project " + OneLine(arguments.folder) + " from sample " + arguments.sample + "\n";
  return KeepRun(
      [&] { return hosted->host->Commit("new", [&] { return Print(report + LinesOf(definitions)); }); });
}

Result<void> New(const NewArguments& arguments, Context& context) {
  return project::MakeProject(
      arguments.folder, arguments.sample, context.places.share,
      [&](const std::filesystem::path& folder) { return FillProject(folder, arguments, context); });
}

struct OpenArguments {
  std::string project = ".";
  std::string recording;  ///< empty: none
  bool hasDialog = false;
};

/// The environment variables that say where windows can be opened.
constexpr const char* kDisplays[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};

bool HasDisplay() {
  return std::ranges::any_of(kDisplays, [](const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr && *value != '\0';
  });
}

/// Creates and upgrades definitions, so that the window shows what the dialog works on.
Result<void> UpgradeBefore(const OpenArguments& arguments, Context& context) {
  VANZET_TRY(const auto hosted, HostProject(arguments.project, "", context));
  VANZET_DO(HoldProject(*hosted->host, context));
  VANZET_DO(UpgradeFirst(*hosted->host, context));
  return KeepRun([&] { return hosted->host->Commit("upgrade"); });
}

/// Replaces this process by the program of the window, and returns only when that fails.
Result<void> Open(const OpenArguments& arguments, Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  if (!HasDisplay()) return Fault{"no display is available to open a window"};
  VANZET_DO(CheckIsNoInput(arguments.recording, InputsOf(project)));
  VANZET_DO(CheckOutputFile(arguments.recording));
  // The window shows also a project that cannot be changed.
  if (const auto upgraded = UpgradeBefore(arguments, context); !upgraded)
    context.panel.Tell(upgraded.fault());
  if (!arguments.recording.empty()) setenv("VANZET_RECORD", arguments.recording.c_str(), 1);
  const std::string program = (context.places.Sibling("vanzet-window")).string();
  const std::string folder = project.folder().string();
  const char* const words[] = {program.c_str(), folder.c_str(), arguments.hasDialog ? "--dialog" : nullptr,
                               nullptr};
  execv(program.c_str(), const_cast<char* const*>(words));
  return files::SystemFault(program + " cannot be run", errno);
}

}  // namespace

void AddUpgrade(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<UpgradeArguments>();
  Command& command = vanzet.AddCommand(
      "upgrade", "Creates the definition of every spindle spur, or upgrades it to the current version.");
  AddProject(command, arguments->project);
  AddTrace(command, arguments->trace);
  AddKeepTmp(command, context);
  AddWait(command, context);
  command.examples = {"vanzet upgrade lathe --trace calls.jsonl"};
  command.work = [=, &context] { return Upgrade(*arguments, context); };
}

void AddNew(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<NewArguments>();
  Command& command = vanzet.AddCommand("new", "Creates a project folder from a sample.");
  command.AddOperand("DIR", "the folder to create", StoreText(arguments->folder)).Required();
  command.AddOption("--sample", "NAME", "the sample to start from", StoreText(arguments->sample))
      .Default(arguments->sample);
  command
      .AddOption("--set", "KEY=VALUE", "change a setting of the sample, such as TailStockAvailable=0",
                 [=](const std::string& name, const std::string& word) {
                   auto change = project::ReadSettingChange(word);
                   if (!change) throw WrongUsage{name, change.fault().text};
                   arguments->settings.push_back(std::move(*change));
                 })
      .Repeatable();
  command.notes =
      "The samples: 'lathe' has one spindle and a tailstock; 'mill-turn' has two spindles, two spindle "
      "spurs, a "
      "tailstock\nand a steady rest. The keys of --set are those of bench.ini and machine.ini, in capitals "
      "or "
      "not.";
  command.examples = {"vanzet new lathe --sample mill-turn", "vanzet new lathe --set NR_SPINDEL_SPUR=1"};
  command.work = [=, &context] { return New(*arguments, context); };
}

void AddOpen(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<OpenArguments>();
  Command& command = vanzet.AddCommand("open", "Opens the project in the workbench's window.");
  AddProject(command, arguments->project);
  command.AddFlag("--dialog", "open the equipment dialog as well", arguments->hasDialog);
  command.AddOption(
      "--record", "FILE",
      "write what is done in the equipment dialog to this file, as a script that 'vanzet script' plays",
      StoreFile(arguments->recording));
  command.examples = {"vanzet open lathe --dialog", "vanzet open lathe --dialog --record job.txt"};
  command.work = [=, &context] { return Open(*arguments, context); };
}

}  // namespace vanzet::cli

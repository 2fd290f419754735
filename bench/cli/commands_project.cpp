#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "api/module.h"
#include "base/files/system_fault.h"
#include "base/one_line.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/hosted_project.h"
#include "cli/output.h"
#include "project/definition.h"
#include "project/sample.h"

/// The commands that create, upgrade and open projects.
namespace vanzet::cli {
namespace {

/// An upgraded definition.
constexpr std::int32_t kVersion = 100;
constexpr std::size_t kLeastOperations = 18;

struct UpgradeArguments {
  std::string project = ".";
  std::string trace;
};

/// Checks the definition of one spur after the upgrade, and returns a line about it.
Result<std::string> CheckDefinition(std::int32_t spur, const HostedProject& hosted) {
  const std::uint32_t number = hosted.project.DefinitionOf(spur);
  const std::string name = "spur " + std::to_string(spur) + ": VDM " + std::to_string(number);
  VANZET_TRY(const auto open, hosted.host->store.IsOpen(number));
  if (open) return Fault{name + " is open in another process and was not upgraded"};
  VANZET_TRY(const auto content, hosted.host->store.Snapshot(number));
  VANZET_TRY(const auto definition, project::ReadDefinition(content));
  if (definition.version != kVersion || definition.operations.size() < kLeastOperations) {
    return Fault{name + " is not a definition of version " + std::to_string(kVersion) + " after the upgrade"};
  }
  return name + ", version " + std::to_string(definition.version) + ", " +
         Counted(definition.operations.size(), "operation") + "\n";
}

Result<void> Upgrade(const UpgradeArguments& arguments, Context& context) {
  VANZET_TRY(const auto hosted, HostProject(arguments.project, arguments.trace, context));
  api::Host& host = *hosted->host;
  VANZET_TRY(const auto spurs, hosted->project.SpindleSpurs());
  VANZET_DO(HoldProject(host, context));
  VANZET_TRY(const auto module, api::FindModule(context.places.program));
  VANZET_DO(api::CallModule(module, "ReOrgVdm", host));
  if (context.panel.faults() > 0) return ReportedFault();

  std::string lines;
  for (std::int32_t spur = 0; spur < spurs; ++spur) {
    VANZET_TRY(const auto line, CheckDefinition(spur, *hosted));
    lines += line;
  }
  return KeepRun([&] { return host.Commit("upgrade", [&] { return Print(lines); }); });
}

struct NewArguments {
  std::string folder;
  std::string sample = "mill-turn";
};

Result<void> New(const NewArguments& arguments, const Context& context) {
  VANZET_DO(project::MakeProject(arguments.folder, arguments.sample, context.places.share));
  return Print("created project " + OneLine(arguments.folder) + " from sample " + arguments.sample + "\n");
}

struct OpenArguments {
  std::string project = ".";
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

/// Replaces this process by the program of the window, and returns only when that fails.
Result<void> Open(const OpenArguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  if (!HasDisplay()) return Fault{"no display is available to open a window"};
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
  command.examples = {"vanzet new lathe --sample mill-turn"};
  command.work = [=, &context] { return New(*arguments, context); };
}

void AddOpen(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<OpenArguments>();
  Command& command = vanzet.AddCommand("open", "Opens the project in the workbench's window.");
  AddProject(command, arguments->project);
  command.AddFlag("--dialog", "open the equipment dialog as well", arguments->hasDialog);
  command.examples = {"vanzet open lathe --dialog"};
  command.work = [=, &context] { return Open(*arguments, context); };
}

}  // namespace vanzet::cli

#include "api/module.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "project/definition.h"

namespace vanzet::cli {
namespace {

/// What an upgraded definition has.
constexpr std::int32_t kVersion = 100;
constexpr std::size_t kOperations = 18;

struct Arguments {
  std::string project = ".";
  std::string trace;
};

/// Looks at the definition of one spur after the call: what is wrong with it, or a line about it.
Result<std::string> Check(std::int32_t spur, const HostedProject& hosted) {
  const std::uint32_t number = hosted.project.DefinitionOf(spur);
  const std::string name = "spur " + std::to_string(spur) + ": VDM " + std::to_string(number);
  VANZET_TRY(const auto open, hosted.host->store.IsOpen(number));
  if (open) return Fault{name + " is open in another process and was not upgraded"};
  VANZET_TRY(const auto content, hosted.host->store.Snapshot(number));
  VANZET_TRY(const auto definition, project::ReadDefinition(content));
  if (definition.version != kVersion || definition.operations.size() < kOperations) {
    return Fault{name + " is no definition of version " + std::to_string(kVersion) + " after the upgrade"};
  }
  return name + ", version " + std::to_string(definition.version) + ", " +
         Counted(definition.operations.size(), "operation") + "\n";
}

Result<void> Upgrade(const Arguments& arguments, Context& context) {
  VANZET_TRY(const auto hosted, HostProject(arguments.project, arguments.trace, context));
  api::Host& host = *hosted->host;
  VANZET_TRY(const auto spurs, hosted->project.SpindleSpurs());
  // The module would tell a store that cannot be used once for each of its calls.
  VANZET_DO(host.store.Check());
  VANZET_TRY(const auto module, api::FindModule(context.program));
  VANZET_DO(api::CallModule(module, "ReOrgVdm", host));

  std::string lines;
  for (std::int32_t spur = 0; spur < spurs; ++spur) {
    VANZET_TRY(const auto line, Check(spur, *hosted));
    lines += line;
  }
  if (context.panel.faults() > 0) return Fault{"the upgrade did not go through; see above"};
  return Print(lines);
}

}  // namespace

void AddUpgrade(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand(
      "upgrade", "Makes the definition of every spindle spur, or brings it to the current version.");
  AddProject(command, arguments->project);
  AddTrace(command, arguments->trace);
  AddKeepTmp(command, context);
  command.examples = {"vanzet upgrade lathe --trace calls.jsonl"};
  command.work = [=, &context] { return Upgrade(*arguments, context); };
}

}  // namespace vanzet::cli

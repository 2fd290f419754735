#include <optional>

#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "vdm/store.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::string project = ".";
  std::optional<std::int32_t> vdm;
  bool json = false;
};

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

Result<void> Items(const Arguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.share));
  const std::int64_t number = arguments.vdm.value_or(project.DefinitionOf(0));
  VANZET_TRY(const auto content, vdm::VdmStore(project.folder()).Snapshot(number));
  return arguments.json ? PrintAsJson(number, content) : PrintLines(content);
}

}  // namespace

void AddItems(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand(
      "items", "Prints the raw records of a VDM: a line an item, record.item, a tab, and the text.");
  AddProject(command, arguments->project);
  command.AddOption("--vdm", "N", "the VDM; without it the definition of spur 0",
                    StoreNumber(arguments->vdm));
  command.AddFlag("--json", "for programs", arguments->json);
  command.examples = {"vanzet items lathe --vdm 1001 | grep Billet"};
  command.work = [=, &context] { return Items(*arguments, context); };
}

}  // namespace vanzet::cli

#include <algorithm>
#include <optional>

#include <nlohmann/json.hpp>

#include "base/one_line.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/length_unit.h"
#include "cli/output.h"
#include "define/write.h"
#include "project/project.h"
#include "results/definitions.h"
#include "scene/equipment.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::string project = ".";
  std::optional<std::int32_t> spur;
  bool json = false;
  std::optional<LengthUnit> unit;
};

using Spurs = std::vector<results::SpurDefinition>;

Result<Spurs> ReadSpurs(const Arguments& arguments, const project::Project& project) {
  if (!arguments.spur) return results::ReadDefinitions(project);
  VANZET_TRY(auto spur, results::ReadDefinition(project, *arguments.spur));
  return Spurs{std::move(spur)};
}

std::string ItemCounts(const project::Operation& operation) {
  std::string counts;
  for (const auto& section : operation.sections) {
    counts += (counts.empty() ? "" : " ") + std::to_string(section.size());
  }
  return counts;
}

std::string Table(const project::Definition& definition, const Context& context) {
  std::vector<std::vector<std::string>> rows = {
      {context.Heading(Translatable("op")), context.Heading(Translatable("label")),
       context.Heading(Translatable("kind")), context.Heading(Translatable("sections")),
       context.Heading(Translatable("items of each"))}};
  for (std::size_t i = 0; i < definition.operations.size(); ++i) {
    const project::Operation& operation = definition.operations[i];
    const std::string damage = operation.damage.empty() ? "" : "  damaged: " + OneLine(operation.damage);
    rows.push_back({std::to_string(i), OneLine(operation.Label()), std::to_string(operation.kind),
                    std::to_string(operation.sections.size()), ItemCounts(operation) + damage});
  }
  return Columns(rows, "rlrrl", "  ");
}

std::string Text(const Spurs& spurs, const Context& context) {
  std::string text;
  for (const results::SpurDefinition& spur : spurs) {
    text += (text.empty() ? "" : "\n") + context.Heading(Translatable("Spur")) + " " +
            std::to_string(spur.spur) + ": VDM " + std::to_string(spur.vdm);
    if (!spur.definition) {
      text += ", no definition ('vanzet upgrade' creates it)\n";
      continue;
    }
    text += ", version " + std::to_string(spur.definition->version) + ", " +
            Counted(spur.definition->operations.size(), "operation") + "\n" +
            Table(*spur.definition, context);
  }
  return text;
}

/// The form that 'vanzet define' reads. What the form cannot express is reported on the panel.
Json ToJson(const Spurs& spurs, LengthUnit unit, project::MessagePanel& panel) {
  Json list = Json::array();
  define::Refusals leftOut;
  for (const results::SpurDefinition& spur : spurs) {
    if (!spur.definition) continue;
    const std::string path = "$.spurs[" + std::to_string(list.size()) + "]";
    list.push_back(define::SpurForm(spur.spur, scene::ReadEquipment(*spur.definition), path, leftOut, unit));
  }
  for (const define::Refusal& each : leftOut) panel.Tell(Fault{each.path + ": " + each.reason});
  return define::WholeForm(std::move(list), unit);
}

Result<void> Show(const Arguments& arguments, Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  VANZET_TRY(const auto spurs, ReadSpurs(arguments, project));
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, project));
  VANZET_DO(arguments.json ? PrintJson(ToJson(spurs, unit, context.panel)) : Print(Text(spurs, context)));
  for (const results::SpurDefinition& spur : spurs) {
    if (spur.definition && spur.definition->IsDamaged()) {
      return Fault{.text = "the definition of spur " + std::to_string(spur.spur) + " is damaged",
                   .kind = FaultKind::kDamaged};
    }
  }
  if (std::ranges::any_of(spurs,
                          [](const results::SpurDefinition& spur) { return spur.definition.has_value(); }))
    return {};
  return Fault{.text = "the project has no definition yet; 'vanzet upgrade' creates it",
               .kind = FaultKind::kMissing};
}

}  // namespace

void AddShow(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand("show", "Prints the definition of every spindle spur.");
  AddProject(command, arguments->project);
  command.AddOption("--spur", "N", "only this spur; the first is 0", StoreNumber(arguments->spur));
  command.AddFlag("--json", "print the equipment as JSON that 'vanzet define' can read", arguments->json);
  AddUnit(command, arguments->unit).Needs("--json");
  command.examples = {"vanzet show lathe --spur 1 --json"};
  command.work = [=, &context] { return Show(*arguments, context); };
}

}  // namespace vanzet::cli

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>

#include "cli/commands.h"
#include "cli/output.h"
#include "project/definition.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::string project = ".";
  std::optional<std::int32_t> spur;
  bool json = false;
};

/// One spur and its definition, when it has one.
struct Spur {
  std::int32_t index;
  std::uint32_t vdm;
  std::optional<project::Definition> definition;
};

Result<Spur> ReadSpur(std::int32_t index, const project::Project& project, const vdm::VdmStore& store) {
  Spur spur{index, project.DefinitionOf(index), std::nullopt};
  const auto numbers = store.Numbers();
  if (!numbers) return numbers.fault();
  if (std::ranges::find(*numbers, vdm::Number{spur.vdm}) == numbers->end()) return spur;
  const auto content = store.Snapshot(spur.vdm);
  if (!content) return content.fault();
  auto definition = project::ReadDefinition(*content);
  if (!definition) return definition.fault();
  spur.definition = std::move(*definition);
  return spur;
}

Result<std::vector<Spur>> ReadSpurs(const Arguments& arguments, const project::Project& project) {
  const auto count = project.SpindleSpurs();
  if (!count) return count.fault();
  if (arguments.spur && (*arguments.spur < 0 || *arguments.spur >= *count)) {
    return Fault{"there is no spur " + std::to_string(*arguments.spur) + "; the machine has " +
                 Counted(static_cast<std::size_t>(*count), "spur") + ", counted from 0"};
  }
  const vdm::VdmStore store(project.folder());
  std::vector<Spur> spurs;
  for (std::int32_t index = 0; index < *count; ++index) {
    if (arguments.spur && index != *arguments.spur) continue;
    auto spur = ReadSpur(index, project, store);
    if (!spur) return spur.fault();
    spurs.push_back(std::move(*spur));
  }
  return spurs;
}

std::string ItemCounts(const project::Operation& operation) {
  std::string counts;
  for (const auto& section : operation.sections) {
    counts += (counts.empty() ? "" : " ") + std::to_string(section.size());
  }
  return counts;
}

std::string Table(const project::Definition& definition) {
  std::size_t width = 5;
  for (const auto& operation : definition.operations)
    width = std::max(width, Width(OneLine(operation.Label())));
  std::string table = "  op  " + Left("label", width) + "  kind  sections  items of each\n";
  for (std::size_t i = 0; i < definition.operations.size(); ++i) {
    const project::Operation& operation = definition.operations[i];
    table += Right(std::to_string(i), 4) + "  " + Left(OneLine(operation.Label()), width) + "  " +
             Right(std::to_string(operation.kind), 4) + "  " +
             Right(std::to_string(operation.sections.size()), 8) + "  " + ItemCounts(operation) +
             (operation.damage.empty() ? "" : "  damaged: " + OneLine(operation.damage)) + "\n";
  }
  return table;
}

std::string Text(const std::vector<Spur>& spurs) {
  std::string text;
  for (const Spur& spur : spurs) {
    text += (text.empty() ? "Spur " : "\nSpur ") + std::to_string(spur.index) + ": VDM " +
            std::to_string(spur.vdm);
    if (!spur.definition) {
      text += ", no definition ('vanzet upgrade' makes it)\n";
      continue;
    }
    text += ", version " + std::to_string(spur.definition->version) + ", " +
            Counted(spur.definition->operations.size(), "operation") + "\n" + Table(*spur.definition);
  }
  return text;
}

Json ToJson(const project::Operation& operation) {
  Json json = {{"label", operation.Label()},
               {"kind", operation.kind},
               {"flag", operation.flag},
               {"sections", operation.sections}};
  if (!operation.damage.empty()) json["damage"] = operation.damage;
  return json;
}

Json ToJson(const std::vector<Spur>& spurs) {
  Json list = Json::array();
  for (const Spur& spur : spurs) {
    Json json = {
        {"spur", spur.index}, {"vdm", spur.vdm}, {"version", nullptr}, {"operations", Json::array()}};
    if (spur.definition) {
      json["version"] = spur.definition->version;
      for (const auto& operation : spur.definition->operations)
        json["operations"].push_back(ToJson(operation));
    }
    list.push_back(std::move(json));
  }
  return {{"spurs", list}};
}

Result<void> Show(const Arguments& arguments, const Context& context) {
  const auto project = project::Project::Open(arguments.project, context.share);
  if (!project) return project.fault();
  const auto spurs = ReadSpurs(arguments, *project);
  if (!spurs) return spurs.fault();
  const auto printed = arguments.json ? PrintJson(ToJson(*spurs)) : Print(Text(*spurs));
  if (!printed) return printed;
  for (const Spur& spur : *spurs) {
    if (spur.definition && spur.definition->IsDamaged()) {
      return Fault{"the definition of spur " + std::to_string(spur.index) + " is damaged"};
    }
  }
  if (std::ranges::any_of(*spurs, [](const Spur& spur) { return spur.definition.has_value(); })) return {};
  return Fault{"there is no definition yet"};
}

}  // namespace

void AddShow(CLI::App& app, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* const command = app.add_subcommand("show", "Shows the definition of every spindle spur.");
  command->add_option("PROJECT", arguments->project, "the project's folder");
  command->add_option("--spur", arguments->spur, "only this spur, counted from 0")->type_name("N");
  command->add_flag("--json", arguments->json, "for programs");
  command->footer("Example:\n  vanzet show lathe --spur 1 --json");
  command->callback([=, &context] { context.run = [=, &context] { return Show(*arguments, context); }; });
}

}  // namespace vanzet::cli

#include <algorithm>
#include <optional>

#include <nlohmann/json.hpp>

#include "base/length_unit.h"
#include "cli/arguments.h"
#include "cli/check_report.h"
#include "cli/commands.h"
#include "cli/length_unit.h"
#include "cli/output.h"
#include "define/check.h"
#include "define/write.h"
#include "project/project.h"
#include "results/definitions.h"
#include "scene/equipment.h"
#include "show/page.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::string project = ".";
  std::optional<std::int32_t> spur;
  bool json = false;
  std::optional<LengthUnit> unit;
};

using Spurs = std::vector<results::SpurDefinition>;

/// The words of a place in the form of one spur: "main chuck B" for "$.spurs[0].main.chuck.letters.B".
std::string WordsOf(std::string path) {
  constexpr std::string_view kSpur = "$.spurs[0].", kLetters = ".letters.";
  path.erase(0, kSpur.size());
  if (const std::size_t letters = path.find(kLetters); letters != std::string::npos)
    path.replace(letters, kLetters.size(), " ");
  std::ranges::replace_if(
      path, [](char c) { return c == '.' || c == '_'; }, ' ');
  return path;
}

/// Sentences about what the dialog has stored and no form may have.
std::vector<std::string> ImpossibleIn(const results::SpurDefinition& spur, LengthUnit unit) {
  define::Refusals leftOut;
  const Json form = define::SpurForm(spur.spur, scene::ReadEquipment(*spur.definition), "$", leftOut, unit);
  std::vector<std::string> sentences;
  for (const auto& [path, reason] : define::FindImpossible(define::WholeForm(Json::array({form}), unit)))
    sentences.push_back(WordsOf(path) + ": " + reason);
  return sentences;
}

std::string PageOf(const results::SpurDefinition& spur, LengthUnit unit, const show::Style& style) {
  if (!spur.definition) return show::PageWithoutDefinition(spur.spur, spur.vdm, style);
  return show::PageOf({spur.spur, spur.vdm, *spur.definition, ImpossibleIn(spur, unit)}, style);
}

std::string Text(const Spurs& spurs, LengthUnit unit, const Context& context) {
  const show::Style style{context.texts,
                          [unit](double millimetres) { return show::LengthForPeople(millimetres, unit); }};
  std::string text;
  for (const results::SpurDefinition& spur : spurs) {
    text += (text.empty() ? "" : "\n") + PageOf(spur, unit, style);
  }
  return text;
}

/// The form that 'vanzet define' reads. What the form cannot express, and what it may not have, is reported
/// on the panel.
Json ToJson(const Spurs& spurs, LengthUnit unit, project::MessagePanel& panel) {
  Json list = Json::array();
  define::Refusals leftOut;
  for (const results::SpurDefinition& spur : spurs) {
    if (!spur.definition) continue;
    const std::string path = "$.spurs[" + std::to_string(list.size()) + "]";
    list.push_back(define::SpurForm(spur.spur, scene::ReadEquipment(*spur.definition), path, leftOut, unit));
  }
  for (const define::Refusal& each : leftOut) panel.Tell(Fault{each.path + ": " + each.reason});
  Json form = define::WholeForm(std::move(list), unit);
  if (form["spurs"].empty()) return form;
  for (const auto& [path, reason] : define::FindImpossible(form))
    panel.Tell(Fault{path + ": " + reason + "; 'vanzet define' refuses this"});
  return form;
}

Result<void> Show(const Arguments& arguments, Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  VANZET_TRY(const auto spurs, results::ReadHeads(project, arguments.spur));
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, project));
  if (arguments.json) {
    VANZET_DO(PrintJson(ToJson(spurs, unit, context.panel)));
  } else {
    VANZET_TRY(const auto mention, MentionOfFindings(project, spurs, context));
    VANZET_DO(Print(Text(spurs, unit, context) + mention));
  }
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
  Command& command =
      vanzet.AddCommand("show", "Prints what is defined for every spindle spur, and what is missing.");
  AddProject(command, arguments->project);
  command.AddOption("--spur", "N", "only this spur; the first is 0", StoreNumber(arguments->spur));
  command.AddFlag("--json", "print the equipment as JSON that 'vanzet define' can read", arguments->json);
  AddUnit(command, arguments->unit);
  command.examples = {"vanzet show lathe", "vanzet show lathe --spur 1 --json"};
  command.work = [=, &context] { return Show(*arguments, context); };
}

}  // namespace vanzet::cli

#include <algorithm>
#include <memory>
#include <optional>

#include <nlohmann/json.hpp>

#include "check/project_check.h"
#include "check/report.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/length_unit.h"
#include "cli/output.h"
#include "cli/progress_line.h"
#include "project/project.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::string project = ".";
  std::optional<std::int32_t> spur;
  bool json = false, strict = false;
  std::optional<LengthUnit> unit;
};

Result<void> Check(const Arguments& arguments, Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, project));
  VANZET_TRY(const auto findings, check::CheckProject(project, arguments.spur, ExchangeWithProgress()));
  const check::Style style{context.texts, unit};
  VANZET_DO(arguments.json ? PrintJson(check::JsonOf(findings, style))
                           : Print(check::PageOf(findings, style)));
  const check::Severity worst = arguments.strict ? check::Severity::kWarning : check::Severity::kError;
  context.hasFindings =
      std::ranges::any_of(findings, [&](const check::Finding& finding) { return finding.severity >= worst; });
  return {};
}

}  // namespace

void AddCheck(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand(
      "check", "Finds out whether a set-up is possible: what clashes, holds nothing, or is out of range.");
  AddProject(command, arguments->project);
  command.AddOption("--spur", "N", "only this spur; the first is 0", StoreNumber(arguments->spur));
  command.AddFlag("--json", "print the findings as JSON, always in millimetres", arguments->json);
  command.AddFlag("--strict", "exit with status 3 for warnings, too", arguments->strict);
  AddUnit(command, arguments->unit);
  command.notes =
      "Exit status: 0 nothing worse than a warning was found, 3 an error was found. Each finding has the "
      "number "
      "of\nits rule, which docs/checks explains. [check] of bench.ini changes the severity of a rule: "
      "EQ-305=off.";
  command.examples = {"vanzet check lathe", "vanzet check lathe --spur 0 --json --strict"};
  command.work = [=, &context] { return Check(*arguments, context); };
}

}  // namespace vanzet::cli

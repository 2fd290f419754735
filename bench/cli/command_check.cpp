#include <memory>
#include <optional>

#include <nlohmann/json.hpp>

#include "base/files/whole_file.h"
#include "base/one_line.h"
#include "base/path_map.h"
#include "check/project_check.h"
#include "check/report.h"
#include "check/sarif.h"
#include "cli/arguments.h"
#include "cli/check_report.h"
#include "cli/commands.h"
#include "cli/exchange_options.h"
#include "cli/language.h"
#include "cli/length_unit.h"
#include "cli/output.h"
#include "cli/output_files.h"
#include "cli/written_files.h"
#include "project/project.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::string project = ".";
  std::optional<std::int32_t> spur;
  bool json = false, strict = false;
  std::string sarif, pictures;
  std::optional<LengthUnit> unit;
};

/// The file of a project that a log names: its definitions are in a store.
std::filesystem::path NamedFileOf(const project::Project& project) {
  return project.folder() / "bench.ini";
}

Result<void> WriteSarif(const std::string& file, const Findings& findings, const project::Project& project,
                        const check::Style& style, const Context& context) {
  if (file.empty()) return {};
  const auto pages = context.places.share.parent_path() / "doc" / "vanzet" / "checks";
  const Json log =
      check::SarifOf(findings, style, {NamedFileOf(project), pages, VANZET_VERSION, LanguageOf(context)});
  if (IsStandardOutput(file)) return PrintJson(log);
  return files::ReplaceFile(PathMap::OfProcess().Resolve(file),
                            log.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
}

/// Returns a line for each picture.
Result<std::string> Draw(const std::string& folder, const Findings& findings, const project::Project& project,
                         const check::Style& style) {
  std::string lines;
  if (folder.empty()) return lines;
  VANZET_TRY(const auto files, WritePictures(PathMap::OfProcess().Resolve(folder), findings, project, style));
  for (const auto& file : files) lines += OneLine(file.string()) + "\n";
  return lines;
}

Result<void> Check(const Arguments& arguments, Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  VANZET_DO(CheckIsNoInput(arguments.sarif, InputsOf(project)));
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, project));
  VANZET_TRY(const auto findings, check::CheckProject(project, arguments.spur, ExchangeWithProgress()));
  const check::Style style{context.texts, unit};
  VANZET_TRY(const auto pictures, Draw(arguments.pictures, findings, project, style));
  VANZET_DO(WriteSarif(arguments.sarif, findings, project, style, context));
  VANZET_DO(arguments.json ? PrintJson(check::JsonOf(findings, style))
                           : PrintBeside({arguments.sarif}, check::PageOf(findings, style) + pictures));
  CountFindings(findings, arguments.strict, context);
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
  command.AddOption("--sarif", "FILE", "write the findings to this file as SARIF, for pipelines and editors",
                    StoreFile(arguments->sarif));
  command.AddOption("--picture", "DIR",
                    "draw each finding into this folder, as a half section and in space, the clash in red",
                    StoreFile(arguments->pictures));
  AddUnit(command, arguments->unit);
  command.notes =
      "Exit status: 0 nothing worse than a warning was found, 3 an error was found. Each finding has the "
      "number "
      "of\nits rule, which docs/checks explains. [check] of bench.ini changes the severity of a rule: "
      "EQ-305=off.";
  command.check = [=] {
    if (arguments->json && IsStandardOutput(arguments->sarif))
      throw WrongUsage{"--json", "has no effect when the SARIF log is written to standard output"};
  };
  command.examples = {"vanzet check lathe", "vanzet check lathe --spur 0 --json --strict",
                      "vanzet check lathe --sarif findings.sarif", "vanzet check lathe --picture findings"};
  command.work = [=, &context] { return Check(*arguments, context); };
}

}  // namespace vanzet::cli

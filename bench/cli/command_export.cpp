#include <algorithm>

#include "base/path_map.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/exchange_options.h"
#include "cli/length_unit.h"
#include "cli/output.h"
#include "cli/output_files.h"
#include "cli/written_files.h"
#include "project/project.h"
#include "results/equipment.h"
#include "results/export.h"
#include "results/export_folder.h"
#include "results/setup.h"

/// The command that writes the equipment as 3D files.
namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

struct ExportArguments {
  std::string project = ".";
  std::string out;
  std::string format;
  std::string body;
  std::int32_t spur = 0;
  bool isJson = false;
  std::optional<LengthUnit> unit;
  bool isStrict = false;
  Fineness fineness;
  std::optional<std::int32_t> limit;
};

/// A STEP file has the time of the definition, so that the same equipment gives the same bytes.
Result<results::ExportOptions> OptionsOf(const ExportArguments& arguments, const project::Project& project) {
  VANZET_TRY(const auto time, results::TimeOf(project, arguments.spur));
  return results::ExportOptions{.format = *modeller::FormatNamed(arguments.format),
                                .body = arguments.body,
                                .fineness = arguments.fineness.Tolerance(),
                                .time = time};
}

/// All formats: those of bodies, then those of whole set-ups.
const std::vector<std::string>& AllFormats() {
  static const auto words = [] {
    std::vector<std::string> all = modeller::FormatWords();
    all.insert(all.end(), results::SetupWords().begin(), results::SetupWords().end());
    return all;
  }();
  return words;
}

/// The scene to export. Surfaces in a file are measured.
Result<scene::Scene> SceneToExport(const ExportArguments& arguments, const project::Project& project,
                                   const modeller::Exchange& exchange, project::MessagePanel& panel) {
  modeller::Foresight foresight = results::kForPictures;
  foresight.mesh = !arguments.fineness.IsGiven();
  foresight.measures = modeller::HasSurfaces(*modeller::FormatNamed(arguments.format));
  return results::EquipmentOf(project, arguments.spur, exchange, panel, foresight);
}

Result<results::ExportReport> WriteTo(const fs::path& folder, const ExportArguments& arguments,
                                      const project::Project& project, const Context& context) {
  const auto exchange = ExchangeWithProgress(arguments.limit);
  if (const auto format = results::SetupNamed(arguments.format)) {
    VANZET_TRY(const auto setup, results::SetupOf(project, arguments.spur, exchange, context.panel));
    return results::WriteSetup(setup, *format, folder);
  }
  VANZET_TRY(const auto scene, SceneToExport(arguments, project, exchange, context.panel));
  VANZET_TRY(const auto options, OptionsOf(arguments, project));
  return results::WriteEquipment(scene, options, folder, exchange);
}

Result<void> ExportToFolder(const ExportArguments& arguments, const project::Project& project,
                            const Context& context) {
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, project));
  const fs::path folder = PathMap::OfProcess().Resolve(arguments.out);
  VANZET_DO(CheckIsNoInputFolder(folder, project));
  VANZET_TRY(const auto report, WriteTo(folder, arguments, project, context));
  for (const Fault& fault : report.missing) context.panel.Tell(fault);
  const auto outcome = OutcomeOfMissing(arguments.isStrict, context);
  for (const fs::path& file : report.changed) context.panel.Tell(results::ChangedSinceExport(file));
  VANZET_DO(PrintWrittenFiles(report.files, {arguments.isJson, unit}));
  return outcome;
}

Result<std::string> FileOf(const ExportArguments& arguments, const project::Project& project,
                           const Context& context) {
  const auto exchange = ExchangeWithProgress(arguments.limit);
  if (const auto format = results::SetupNamed(arguments.format)) {
    VANZET_TRY(const auto setup, results::SetupOf(project, arguments.spur, exchange, context.panel));
    return results::SetupText(setup, *format);
  }
  VANZET_TRY(const auto scene, SceneToExport(arguments, project, exchange, context.panel));
  VANZET_TRY(const auto options, OptionsOf(arguments, project));
  return results::EquipmentFile(scene, options, exchange);
}

Result<void> ExportToStandardOutput(const ExportArguments& arguments, const project::Project& project,
                                    const Context& context) {
  VANZET_TRY(const auto file, FileOf(arguments, project, context));
  VANZET_DO(Print(file));
  return OutcomeOfMissing(arguments.isStrict, context);
}

Result<void> Export(const ExportArguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  return IsStandardOutput(arguments.out) ? ExportToStandardOutput(arguments, project, context)
                                         : ExportToFolder(arguments, project, context);
}

/// Throws `WrongUsage` for an option that the format has no use for.
void CheckFormat(const ExportArguments& arguments) {
  const auto format = modeller::FormatNamed(arguments.format);
  const std::string with = "has no effect with the format " + arguments.format;
  if (!format && !arguments.body.empty()) throw WrongUsage{"--body", with + ", which has the whole set-up"};
  const bool hasFacets = format && !modeller::HasSurfaces(*format);
  if (arguments.fineness.chord && !hasFacets) throw WrongUsage{"--chord", with};
  if (arguments.fineness.angle && !hasFacets) throw WrongUsage{"--angle", with};
}

}  // namespace

void AddExport(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<ExportArguments>();
  Command& command = vanzet.AddCommand("export", "Writes the equipment of a spur for other programs.");
  AddProject(command, arguments->project);
  command
      .AddOption("--out", "DIR",
                 "the folder for the files; it is created if it does not exist; '-': one file on standard "
                 "output",
                 StoreFile(arguments->out))
      .Required();
  command.AddOption("--format", "FORMAT", "the format of the files", StoreText(arguments->format))
      .Required()
      .OneOf(AllFormats());
  command.AddOption("--body", "NAME", "only the bodies of this name, such as 'main jaw 1' or jaw",
                    StoreText(arguments->body));
  command.AddOption("--spur", "N", "the spur; default: 0, the first", StoreNumber(arguments->spur));
  command.AddFlag("--json", "print JSON", arguments->isJson);
  AddUnit(command, arguments->unit);
  AddFineness(command, arguments->fineness);
  AddLimit(command, arguments->limit);
  AddStrict(command, arguments->isStrict);
  command.notes =
      "Prints the files that were written; their own lengths do not depend on the unit. Those of an earlier "
      "export to the folder, which are no longer "
      "among them, are removed; vanzet-export.json in the folder lists them. With --body nothing is "
      "removed. "
      "The formats json, linuxcnc and mtconnect are one file about the whole set-up. "
      "A body that cannot be made is named on standard error, and the others are written all the same.";
  command.examples = {"vanzet export lathe --out models --format step",
                      "vanzet export lathe --out - --format stl --body 'main billet' >billet.stl"};
  command.check = [=] {
    CheckFormat(*arguments);
    CheckListing(arguments->out, "--json", arguments->isJson);
    CheckListing(arguments->out, "--unit", arguments->unit.has_value());
  };
  command.work = [=, &context] { return Export(*arguments, context); };
}

}  // namespace vanzet::cli

#include <algorithm>

#include "base/path_map.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/length_unit.h"
#include "cli/output.h"
#include "cli/progress_line.h"
#include "cli/written_files.h"
#include "project/project.h"
#include "results/equipment.h"
#include "results/export.h"

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

  results::ExportOptions Options() const { return {*modeller::FormatNamed(format), body}; }
};

/// The scene to export. A STEP file has surfaces, which are measured.
Result<scene::Scene> SceneToExport(const ExportArguments& arguments, const project::Project& project,
                                   const modeller::Exchange& exchange, project::MessagePanel& panel) {
  modeller::Foresight foresight = results::kForPictures;
  foresight.measures = arguments.Options().format == modeller::ExportFormat::kStep;
  return results::EquipmentOf(project, arguments.spur, exchange, panel, foresight);
}

/// Fails for the folders in which the project reads what it finds.
Result<void> CheckIsNoInputFolder(const fs::path& folder, const project::Project& project) {
  for (const char* const input : {"bodies", "figures"}) {
    std::error_code unknown;
    if (!fs::equivalent(folder, project.folder() / input, unknown)) continue;
    return Fault{
        "cannot be the folder of the 3D files: the project reads its " + std::string(input) + " there",
        folder.string()};
  }
  return {};
}

Result<void> ExportToFolder(const ExportArguments& arguments, const project::Project& project,
                            const Context& context) {
  VANZET_TRY(const auto unit, UnitOf(arguments.unit, project));
  const fs::path folder = PathMap::OfProcess().Resolve(arguments.out);
  VANZET_DO(CheckIsNoInputFolder(folder, project));
  const auto exchange = ExchangeWithProgress();
  VANZET_TRY(const auto scene, SceneToExport(arguments, project, exchange, context.panel));
  VANZET_TRY(const auto report, results::WriteEquipment(scene, arguments.Options(), folder, exchange));
  for (const Fault& fault : report.missing) context.panel.Tell(fault);
  const auto outcome = OutcomeOfMissing(arguments.isStrict, context);
  for (const fs::path& file : report.changed) context.panel.Tell(results::ChangedSinceExport(file));
  VANZET_DO(PrintWrittenFiles(report.files, {arguments.isJson, unit}));
  return outcome;
}

Result<void> ExportToStandardOutput(const ExportArguments& arguments, const project::Project& project,
                                    const Context& context) {
  const auto exchange = ExchangeWithProgress();
  VANZET_TRY(const auto scene, SceneToExport(arguments, project, exchange, context.panel));
  VANZET_TRY(const auto file, results::EquipmentFile(scene, arguments.Options(), exchange));
  VANZET_DO(Print(file));
  return OutcomeOfMissing(arguments.isStrict, context);
}

Result<void> Export(const ExportArguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.places.share));
  return IsStandardOutput(arguments.out) ? ExportToStandardOutput(arguments, project, context)
                                         : ExportToFolder(arguments, project, context);
}

}  // namespace

void AddExport(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<ExportArguments>();
  Command& command = vanzet.AddCommand("export", "Writes the equipment of a spur as 3D files.");
  AddProject(command, arguments->project);
  command
      .AddOption("--out", "DIR",
                 "the folder for the files; it is created if it does not exist; '-': one file on standard "
                 "output",
                 StoreFile(arguments->out))
      .Required();
  command.AddOption("--format", "FORMAT", "the format of the files", StoreText(arguments->format))
      .Required()
      .OneOf({"wrl", "stl", "step", "gltf"});
  command.AddOption("--body", "NAME", "only the bodies of this name, such as 'main jaw 1' or jaw",
                    StoreText(arguments->body));
  command.AddOption("--spur", "N", "the spur; default: 0, the first", StoreNumber(arguments->spur));
  command.AddFlag("--json", "print JSON", arguments->isJson);
  AddUnit(command, arguments->unit);
  AddStrict(command, arguments->isStrict);
  command.notes =
      "Prints the files that were written; their own lengths do not depend on the unit. Those of an earlier "
      "export to the folder, which are no longer "
      "among them, are removed; vanzet-export.json in the folder lists them. With --body nothing is "
      "removed. "
      "A body that cannot be made is named on standard error, and the others are written all the same.";
  command.examples = {"vanzet export lathe --out models --format step",
                      "vanzet export lathe --out - --format stl --body 'main billet' >billet.stl"};
  command.check = [=] {
    CheckListing(arguments->out, "--json", arguments->isJson);
    CheckListing(arguments->out, "--unit", arguments->unit.has_value());
  };
  command.work = [=, &context] { return Export(*arguments, context); };
}

}  // namespace vanzet::cli

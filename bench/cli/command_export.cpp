#include "base/path_map.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/progress_line.h"
#include "results/equipment.h"

namespace vanzet::cli {
namespace {

struct Arguments {
  std::string project = ".";
  std::string out;
  std::string format;
  std::int32_t spur = 0;
};

Result<void> ExportEquipment(const Arguments& arguments, const Context& context) {
  VANZET_TRY(const auto project, project::Project::Open(arguments.project, context.share));
  const auto exchange = ToldExchange();
  VANZET_TRY(const auto scene, results::EquipmentOf(project, arguments.spur, exchange));
  return results::WriteEquipment(scene, *modeller::FormatNamed(arguments.format),
                                 PathMap::OfProcess().Resolve(arguments.out), exchange);
}

}  // namespace

void AddExport(Command& vanzet, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  Command& command = vanzet.AddCommand("export", "Writes the equipment of a spur as 3D files.");
  AddProject(command, arguments->project);
  command
      .AddOption("--out", "DIR", "the folder for the files; it is made when it is not there",
                 StoreFile(arguments->out))
      .Required();
  command.AddOption("--format", "FORMAT", "the files' format", StoreText(arguments->format))
      .Required()
      .OneOf({"wrl", "stl", "step", "gltf"});
  command.AddOption("--spur", "N", "of this spur, counted from 0; without it the first",
                    StoreNumber(arguments->spur));
  command.examples = {"vanzet export lathe --out models --format step"};
  command.work = [=, &context] { return ExportEquipment(*arguments, context); };
}

}  // namespace vanzet::cli

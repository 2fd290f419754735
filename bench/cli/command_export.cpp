#include <CLI/CLI.hpp>

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
  const auto project = project::Project::Open(arguments.project, context.share);
  if (!project) return project.fault();
  const auto exchange = ToldExchange();
  const auto scene = results::EquipmentOf(*project, arguments.spur, exchange);
  if (!scene) return scene.fault();
  return results::WriteEquipment(*scene, *modeller::FormatNamed(arguments.format),
                                 PathMap::OfProcess().Resolve(arguments.out), exchange);
}

}  // namespace

void AddExport(CLI::App& app, Context& context) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* const command = app.add_subcommand("export", "Writes the equipment of a spur as 3D files.");
  command->add_option("PROJECT", arguments->project, "the project's folder");
  command
      ->add_option_function<std::string>(
          "--out", [=](const std::string& word) { arguments->out = FileOf("--out", word); },
          "the folder for the files; it is made when it is not there")
      ->required()
      ->type_name("DIR");
  command->add_option("--format", arguments->format, "the files' format")
      ->required()
      ->check(CLI::IsMember({"wrl", "stl", "step", "gltf"}))
      ->type_name("FORMAT");
  command
      ->add_option_function<std::string>(
          "--spur", [=](const std::string& word) { arguments->spur = NumberOf("--spur", word); },
          "of this spur, counted from 0; without it the first")
      ->type_name("N");
  command->footer("Example:\n  vanzet export lathe --out models --format step");
  command->callback(
      [=, &context] { context.run = [=, &context] { return ExportEquipment(*arguments, context); }; });
}

}  // namespace vanzet::cli

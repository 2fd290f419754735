#include <CLI/CLI.hpp>

#include "base/path_map.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/equipment.h"

namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

struct Arguments {
  std::string project = ".";
  std::string out;
  std::string format;
  std::int32_t spur = 0;
};

std::vector<modeller::NamedBody> NamedBodies(const scene::Scene& scene, modeller::ExportFormat format) {
  std::vector<modeller::NamedBody> bodies;
  for (const scene::SceneBody& body : scene.bodies) {
    const bool isExact = format == modeller::ExportFormat::kStep && body.exact;
    bodies.push_back(
        {body.name, isExact ? *body.exact : body.body, body.placement, scene::ColourOf(body.kind)});
  }
  return bodies;
}

/// "main jaw 1": main-jaw-1.step
fs::path FileNameOf(const std::string& name, modeller::ExportFormat format) {
  std::string stem = name;
  std::ranges::replace(stem, ' ', '-');
  return stem + std::string(modeller::EndingOf(format));
}

/// A file with all bodies, and one for each.
Result<void> ExportAll(const std::vector<modeller::NamedBody>& bodies, modeller::ExportFormat format,
                       const fs::path& folder) {
  const auto exchange = modeller::Exchange::OfProcess();
  const auto done = modeller::Export(bodies, format, folder / FileNameOf("equipment", format), {}, exchange);
  if (!done) return done;
  for (const modeller::NamedBody& body : bodies) {
    const auto written =
        modeller::Export({body}, format, folder / FileNameOf(body.name, format), {}, exchange);
    if (!written) return written;
  }
  return {};
}

Result<void> ExportEquipment(const Arguments& arguments, const Context& context) {
  const auto project = project::Project::Open(arguments.project, context.share);
  if (!project) return project.fault();
  const auto scene = EquipmentOf(*project, arguments.spur);
  if (!scene) return scene.fault();
  const fs::path folder = PathMap::OfProcess().Resolve(arguments.out);
  std::error_code error;
  fs::create_directories(folder, error);
  if (!fs::is_directory(folder)) return Fault{"the folder cannot be made", folder.string()};
  const modeller::ExportFormat format = *modeller::FormatNamed(arguments.format);
  return ExportAll(NamedBodies(*scene, format), format, folder);
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

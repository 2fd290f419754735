#include "results/export.h"

#include <algorithm>
#include <numeric>

#include "results/export_folder.h"
#include "scene/body_names.h"

namespace vanzet::results {
namespace {

namespace fs = std::filesystem;
using Bodies = std::vector<modeller::NamedBody>;

/// The bodies of an export, in the order of the scene.
Result<Bodies> ChooseBodies(const scene::Scene& scene, const ExportOptions& options) {
  std::set<std::size_t> chosen;
  if (!options.body.empty()) {
    VANZET_TRY(chosen, scene::FindBodies(scene, options.body));
  }
  Bodies bodies;
  for (std::size_t i = 0; i < scene.bodies.size(); ++i) {
    if (!options.body.empty() && !chosen.contains(i)) continue;
    const scene::SceneBody& body = scene.bodies[i];
    const bool isExact = modeller::HasSurfaces(options.format) && body.exact;
    bodies.push_back({body.name,
                      isExact ? *body.exact : body.body,
                      body.placement,
                      {scene::ColourOf(body.kind), scene::IsDevice(body.kind), body.isSeenThrough}});
  }
  return bodies;
}

modeller::FileBodies AllOf(const Bodies& bodies) {
  modeller::FileBodies all(bodies.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  return all;
}

/// "main jaw 1": main-jaw-1.step
std::string FileNameOf(const std::string& name, modeller::ExportFormat format) {
  std::string stem = name;
  std::ranges::replace(stem, ' ', '-');
  return stem + std::string(modeller::EndingOf(format));
}

/// A file of an export, before it has its content.
struct PlannedFile {
  std::string name;
  modeller::FileBodies bodies;
};

/// The file of the whole equipment, unless only some bodies are wanted, and one for each body.
std::vector<PlannedFile> PlanFiles(const Bodies& bodies, const ExportOptions& options) {
  std::vector<PlannedFile> files;
  if (options.body.empty()) files.push_back({FileNameOf("equipment", options.format), AllOf(bodies)});
  for (std::size_t i = 0; i < bodies.size(); ++i) {
    files.push_back({FileNameOf(bodies[i].name, options.format), {i}});
  }
  return files;
}

/// Measures the bodies; those that cannot be measured are removed, with the reasons in `missing`.
Result<std::vector<WrittenBody>> MeasureAll(Bodies& bodies, const ExportOptions& options,
                                            std::vector<Fault>& missing) {
  std::vector<WrittenBody> measured;
  Bodies sound;
  for (modeller::NamedBody& body : bodies) {
    const auto facts = modeller::FactsOf(body, options.format, options.fineness);
    if (facts) {
      measured.push_back({body.name, *facts});
      sound.push_back(std::move(body));
      continue;
    }
    Fault fault = facts.fault();
    fault.text = body.name + ": " + fault.text;
    if (fault.kind == FaultKind::kSystem) return fault;
    missing.push_back(std::move(fault));
  }
  bodies = std::move(sound);
  if (bodies.empty() && !missing.empty()) return missing.front();
  return measured;
}

}  // namespace

Result<ExportReport> WriteEquipment(const scene::Scene& scene, const ExportOptions& options,
                                    const fs::path& folder, const modeller::Exchange& exchange) {
  ExportReport report;
  VANZET_TRY(Bodies bodies, ChooseBodies(scene, options));
  VANZET_TRY(const auto measured, MeasureAll(bodies, options, report.missing));
  VANZET_TRY(auto target, ExportFolder::Begin(folder));
  const std::vector<PlannedFile> planned = PlanFiles(bodies, options);
  std::vector<modeller::FileBodies> contents;
  contents.reserve(planned.size());
  for (const PlannedFile& file : planned) contents.push_back(file.bodies);
  VANZET_DO(modeller::MakeFiles(
      bodies, contents, options.format, options.fineness, exchange,
      [&](std::size_t file, const std::string& content) { return target.Add(planned[file].name, content); }));
  VANZET_TRY(report.changed, target.Commit(options.body.empty() ? Others::kRemoved : Others::kKept));
  for (const PlannedFile& file : planned) {
    WrittenFile& written = report.files.emplace_back(WrittenFile{folder / file.name, {}});
    for (const std::size_t body : file.bodies) written.bodies.push_back(measured[body]);
  }
  return report;
}

Result<std::string> EquipmentFile(const scene::Scene& scene, const ExportOptions& options,
                                  const modeller::Exchange& exchange) {
  VANZET_TRY(const Bodies bodies, ChooseBodies(scene, options));
  std::string file;
  VANZET_DO(modeller::MakeFiles(bodies, {AllOf(bodies)}, options.format, options.fineness, exchange,
                                [&](std::size_t, const std::string& content) {
                                  file = content;
                                  return Result<void>();
                                }));
  return file;
}

}  // namespace vanzet::results

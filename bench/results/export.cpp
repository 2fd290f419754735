#include "results/export.h"

#include <algorithm>
#include <numeric>

#include "results/export_folder.h"
#include "scene/body_names.h"

namespace vanzet::results {
namespace {

namespace fs = std::filesystem;
using Bodies = std::vector<modeller::NamedBody>;

/// A place in the coordinates of the scene.
modeller::NamedPlace PlaceOf(const std::string& name, const geometry::Matrix& matrix,
                             const geometry::Point3d& origin, const geometry::Vector3d& upwards) {
  const geometry::Point3d at = matrix.Transform(origin);
  const auto turned = [&](const geometry::Vector3d& along) {
    return geometry::Vector3d(at, matrix.Transform(origin + along));
  };
  return {name, at, turned({1, 0, 0}), turned(upwards)};
}

/// The plug and the socket of a device, and the datum of the spindle that the body belongs to.
std::vector<modeller::NamedPlace> PlacesOf(const scene::SceneBody& body, const scene::Scene& scene) {
  std::vector<modeller::NamedPlace> places;
  const bool isSub = body.name.starts_with("sub ");
  // The axis of each runs away from its spindle.
  const geometry::Vector3d axis(isSub ? -1 : 1, 0, 0), upwards(0, 1, 0);
  places.push_back({isSub ? "sub datum" : "main datum", {isSub ? scene.subDatum : 0, 0, 0}, axis, upwards});
  if (!body.seats) return places;
  // The height of a jaw is along its own z.
  const geometry::Vector3d height = body.kind == scene::Kind::kJaw ? geometry::Vector3d(0, 0, 1) : upwards;
  places.push_back(PlaceOf(body.name + " plug", body.placement, body.seats->plug, height));
  places.push_back(PlaceOf(body.name + " socket", body.placement, body.seats->socket, height));
  return places;
}

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
                      {scene::ColourOf(body.kind), scene::IsDevice(body.kind), body.isSeenThrough},
                      PlacesOf(body, scene)});
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
      bodies, contents, options.format, {options.fineness, options.time}, exchange,
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
  VANZET_DO(modeller::MakeFiles(bodies, {AllOf(bodies)}, options.format, {options.fineness, options.time},
                                exchange, [&](std::size_t, const std::string& content) {
                                  file = content;
                                  return Result<void>();
                                }));
  return file;
}

}  // namespace vanzet::results

#include "results/export.h"

#include <algorithm>
#include <numeric>

#include "base/files/whole_file.h"
#include "results/export_manifest.h"
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
    const bool isExact = options.format == modeller::ExportFormat::kStep && body.exact;
    bodies.push_back({body.name, isExact ? *body.exact : body.body, body.placement,
                      scene::ColourOf(body.kind), scene::IsDevice(body.kind)});
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
Result<std::vector<WrittenBody>> MeasureAll(Bodies& bodies, modeller::ExportFormat format,
                                            std::vector<Fault>& missing) {
  std::vector<WrittenBody> measured;
  Bodies sound;
  for (modeller::NamedBody& body : bodies) {
    const auto facts = modeller::FactsOf(body, format, {});
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

/// A folder that is created if it does not exist, and removed again if nothing has come into it.
class TargetFolder {
 public:
  static Result<TargetFolder> Make(const fs::path& folder) {
    std::error_code error;
    const bool isNew = fs::create_directories(folder, error);
    if (fs::is_directory(folder, error)) return TargetFolder(isNew ? folder : fs::path());
    return Fault{.text = "the folder cannot be created", .file = folder.string(), .kind = FaultKind::kSystem};
  }
  ~TargetFolder() {
    std::error_code isInUse;
    if (!folder_.empty()) fs::remove(folder_, isInUse);
  }
  TargetFolder(TargetFolder&& other) noexcept : folder_(std::exchange(other.folder_, {})) {}
  TargetFolder& operator=(TargetFolder&&) = delete;

 private:
  explicit TargetFolder(fs::path folder) : folder_(std::move(folder)) {}

  fs::path folder_;  ///< empty: it was there before
};

/// The new files of an export, which take their names only when all are on the disk.
class NewFiles {
 public:
  Result<void> Add(const fs::path& folder, const std::string& name, const std::string& content) {
    VANZET_TRY(auto file, files::FileReplacement::Begin(folder / name));
    VANZET_DO(file.Write(content));
    VANZET_DO(file.Prepare());
    files_.push_back(std::move(file));
    manifest_.Add(name, content);
    return {};
  }

  Result<void> Commit() {
    for (files::FileReplacement& file : files_) VANZET_DO(file.Commit());
    return {};
  }

  const ExportManifest& manifest() const { return manifest_; }

 private:
  std::vector<files::FileReplacement> files_;
  ExportManifest manifest_;
};

/// While both the old and the new files may be in the folder, its list has both, so that an export that is
/// killed leaves nothing that the next one does not know.
Result<std::vector<fs::path>> Replace(const ExportManifest& old, NewFiles& made, const fs::path& folder,
                                      bool keepsOld) {
  ExportManifest both = old;
  both.Add(made.manifest());
  VANZET_DO(both.Write(folder));
  VANZET_DO(made.Commit());
  if (keepsOld) return std::vector<fs::path>();
  VANZET_TRY(auto changed, old.RemoveAllBut(made.manifest(), folder));
  VANZET_DO(made.manifest().Write(folder));
  return changed;
}

}  // namespace

Fault ChangedSinceExport(const fs::path& file) {
  return {"is not removed: it was changed after it was exported", file.string()};
}

Result<ExportReport> WriteEquipment(const scene::Scene& scene, const ExportOptions& options,
                                    const fs::path& folder, const modeller::Exchange& exchange) {
  ExportReport report;
  VANZET_TRY(Bodies bodies, ChooseBodies(scene, options));
  VANZET_TRY(const auto measured, MeasureAll(bodies, options.format, report.missing));
  VANZET_TRY(const auto old, ExportManifest::Read(folder));
  VANZET_TRY(const auto target, TargetFolder::Make(folder));
  const std::vector<PlannedFile> planned = PlanFiles(bodies, options);
  std::vector<modeller::FileBodies> contents;
  contents.reserve(planned.size());
  for (const PlannedFile& file : planned) contents.push_back(file.bodies);
  NewFiles made;
  VANZET_DO(modeller::MakeFiles(bodies, contents, options.format, {}, exchange,
                                [&](std::size_t file, const std::string& content) {
                                  return made.Add(folder, planned[file].name, content);
                                }));
  VANZET_TRY(report.changed, Replace(old, made, folder, !options.body.empty()));
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
  VANZET_DO(modeller::MakeFiles(bodies, {AllOf(bodies)}, options.format, {}, exchange,
                                [&](std::size_t, const std::string& content) {
                                  file = content;
                                  return Result<void>();
                                }));
  return file;
}

}  // namespace vanzet::results

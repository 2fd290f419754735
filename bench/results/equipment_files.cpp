#include "results/equipment_files.h"

#include <algorithm>

namespace vanzet::results {
namespace {

namespace fs = std::filesystem;

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

}  // namespace

Result<void> WriteEquipment(const scene::Scene& scene, modeller::ExportFormat format, const fs::path& folder,
                            const modeller::Exchange& exchange) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (!fs::is_directory(folder, error)) return Fault{"the folder cannot be made", folder.string()};
  const auto bodies = NamedBodies(scene, format);
  VANZET_DO(modeller::Export(bodies, format, folder / FileNameOf("equipment", format), {}, exchange));
  for (const modeller::NamedBody& body : bodies) {
    const auto written =
        modeller::Export({body}, format, folder / FileNameOf(body.name, format), {}, exchange);
    if (!written) return written;
  }
  return {};
}

}  // namespace vanzet::results

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "modeller/export.h"
#include "scene/scene.h"

/// The equipment as 3D files.
namespace vanzet::results {

struct ExportOptions {
  modeller::ExportFormat format = modeller::ExportFormat::kStep;
  std::string body = {};  ///< only the bodies of this name, as `scene::FindBodies` finds them; empty: all
  modeller::MeshTolerance fineness = {};
  std::string time = {};  ///< of the equipment, for the heads of STEP files; empty: the present
};

/// A body in a file.
struct WrittenBody {
  std::string name;
  modeller::BodyFacts facts;
};

struct WrittenFile {
  std::filesystem::path path;
  std::vector<WrittenBody> bodies;
};

/// The outcome of an export.
struct ExportReport {
  std::vector<WrittenFile> files;
  std::vector<Fault> missing;                  ///< why bodies of the scene are in no file
  std::vector<std::filesystem::path> changed;  ///< what `ExportFolder::Commit` returns
};

/// Writes the equipment to a folder, which is created if it does not exist: a file with all bodies, and a
/// file for each. Files of the same names are replaced; what an earlier export has written besides is
/// removed when all new files are in their places. Without a fault the folder has all of them; with a fault
/// of the work itself it is unchanged.
///
/// A body that cannot be measured or meshed is missing; without any other the export fails.
///
/// For bodies of a name only their files are written, and nothing is removed.
Result<ExportReport> WriteEquipment(const scene::Scene& scene, const ExportOptions& options,
                                    const std::filesystem::path& folder, const modeller::Exchange& exchange);

/// The content of one file with all bodies, or with those of a name. Fails when one of them cannot be
/// written.
Result<std::string> EquipmentFile(const scene::Scene& scene, const ExportOptions& options,
                                  const modeller::Exchange& exchange);

}  // namespace vanzet::results

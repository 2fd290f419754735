#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "project/message_panel.h"
#include "project/project.h"
#include "results/export.h"
#include "scene/equipment.h"
#include "section/section.h"

/// A whole set-up as one text for other programs.
namespace vanzet::results {

/// The contents of the formats: docs/formats/setup.md.
enum class SetupFormat {
  kJson,       ///< the scene: bodies, places, colours, facets
  kLinuxCnc,   ///< the stock as a comment, the clamping as lines of the preview
  kMtConnect,  ///< assets: a fixture for each spindle, a raw material for each billet
};

/// The formats by their words on the command line.
const std::vector<std::string>& SetupWords();
std::optional<SetupFormat> SetupNamed(std::string_view word);

/// The facts of which these texts are made.
///
/// Units    millimetres
struct Setup {
  std::string project;  ///< the name of its folder
  std::int32_t spur = 0;
  std::string time;  ///< of the last change of the definition, in UTC: "2026-11-22T09:00:00Z"
  scene::Equipment equipment;
  scene::Scene scene;
};

/// The time of the last change of the definition of a spur, in UTC. A store that keeps none has no time.
Result<std::string> TimeOf(const project::Project& project, std::int32_t spur);

/// Reads the set-up of a spur. What of it cannot be made is shown on the panel, and missing.
/// Errors   those of `EquipmentOf`
Result<Setup> SetupOf(const project::Project& project, std::int32_t spur, const modeller::Exchange& exchange,
                      project::MessagePanel& panel);

/// The content of a file. Fails when a body cannot be meshed.
Result<std::string> SetupText(const Setup& setup, SetupFormat format);

/// Writes the file `equipment` to a folder, as `WriteEquipment` does it.
Result<ExportReport> WriteSetup(const Setup& setup, SetupFormat format, const std::filesystem::path& folder);

}  // namespace vanzet::results

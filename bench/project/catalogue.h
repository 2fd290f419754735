#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "project/project.h"

namespace vanzet::project {

/// The setting of a project that names its catalogue of devices.
inline constexpr const char* kCatalogueSetting = "CLAMP_DB_PATH";

/// The file of the catalogue, which need not exist: the one that the value of the setting names, or, where it
/// is too short for a path, that of the environment key "clampmdb".
std::filesystem::path CatalogueFile(const Project& project, std::string_view setting);

}  // namespace vanzet::project

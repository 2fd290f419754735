#pragma once

#include <set>
#include <string>
#include <vector>

#include "scene/scene.h"

namespace vanzet::scene {

/// The places of the bodies whose names have all words of `name`, in any case and with blanks or hyphens
/// between them: "main-jaw-1" is one body, "jaw" all jaws, "main" all bodies of the main spindle.
/// Errors   kMissing, with the near names, when no body has the name
Result<std::set<std::size_t>> FindBodies(const Scene& scene, const std::string& name);

/// The bodies with any of the names.
Result<std::set<std::size_t>> FindBodies(const Scene& scene, const std::vector<std::string>& names);

/// The name in the catalogue of the device that a body is; empty for what is not one.
std::string DeviceNameOf(const SceneBody& body, const Equipment& equipment);

}  // namespace vanzet::scene

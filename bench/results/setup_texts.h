#pragma once

#include <string>

#include "results/setup.h"

namespace vanzet::results {

/// The formats of `SetupText`.
Result<std::string> SceneJson(const Setup& setup);
Result<std::string> LinuxCncText(const Setup& setup);
Result<std::string> MtConnectText(const Setup& setup);

/// The billet of a spindle in the scene, or null.
const scene::SceneBody* BilletOf(const Setup& setup, bool isSub);

}  // namespace vanzet::results

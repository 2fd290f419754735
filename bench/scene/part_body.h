#pragma once

#include <optional>

#include "scene/equipment.h"
#include "scene/scene.h"

namespace vanzet::scene {

/// Billets and finish parts about the x axis, their front face at x = 0 and the part behind it. Nothing when
/// there is none. A fault when a figure or a solid is not there or gives no body.
/// Requires: the geometry library works in millimetres
Result<std::optional<modeller::Body>> BodyOf(const Billet& billet, const Sources& sources);
Result<std::optional<modeller::Body>> BodyOf(const FinishPart& part, const Sources& sources);

}  // namespace vanzet::scene

#pragma once

#include <optional>

#include "scene/equipment.h"
#include "scene/scene.h"

/// Bodies made from the values of a definition.
///
/// Requires: the geometry library works in millimetres
namespace vanzet::scene {

/// The body of a billet or a finish part about the x axis: its front face is at x = 0, and the part is on the
/// negative side. Nothing when the definition has none.
/// Errors   a figure or a solid does not exist, or gives no body
Result<std::optional<modeller::Body>> BodyOf(const Billet& billet, const Sources& sources);
Result<std::optional<modeller::Body>> BodyOf(const FinishPart& part, const Sources& sources);

/// The body of a parametric device with its true surfaces: a device that is spun is about the x axis; a jaw
/// has its thickness along y and its height along z. Nothing when the device has no outline, and when its
/// values give no body.
std::optional<modeller::Body> DeviceBody(const DeviceParams& params);

/// The same body; nothing, too, when it is not as large as `facets`, by which the definition shows the
/// device.
std::optional<modeller::Body> ExactBody(const DeviceParams& params, const modeller::Body& facets);

}  // namespace vanzet::scene

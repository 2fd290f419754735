#pragma once

#include <optional>

#include "devices/device_params.h"
#include "modeller/body.h"

namespace vanzet::scene {

/// The body of a parametric device with its true surfaces, lying as the definition's 3D text has it: what is
/// spun about the x axis; a jaw with its thickness along y and its height along z.
///
/// Nothing when the device has no outline, when its values give no body, and when that body is not as large
/// as `facets`, by which the definition shows the device. Requires: the geometry library works in millimetres
std::optional<modeller::Body> ExactBody(const DeviceParams& params, const modeller::Body& facets);

}  // namespace vanzet::scene

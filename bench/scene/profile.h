#pragma once

#include <optional>

#include "geometry/region.h"
#include "scene/equipment.h"
#include "scene/scene.h"

/// The half sections from which bodies are made: x along the axis, y away from it.
///
/// Requires: the geometry library works in millimetres
namespace vanzet::scene {

/// The half section of a cylinder; nothing when its values give none.
std::optional<geometry::Kurve> CylinderSection(const Billet& billet);

/// The outline of a device: the half section of one that is spun, the side of a jaw with its height along y.
/// Nothing for a device without an outline.
std::optional<geometry::Kurve> DeviceContour(const DeviceParams& params);

/// The curves of a figure; none for an empty name.
Result<std::vector<geometry::Kurve>> CurvesNamed(const std::string& name, const Sources& sources);

// The same as regions, in the coordinates of the body. Nothing for what has to be cut to see its section:
// solids, and devices without an outline.

std::optional<geometry::Region> ProfileOf(const DeviceParams& params);
std::optional<geometry::Region> ProfileOf(const Billet& billet, const Sources& sources);
std::optional<geometry::Region> ProfileOf(const FinishPart& part, const Sources& sources);

}  // namespace vanzet::scene

#pragma once

#include <optional>

#include "check/finding.h"
#include "check/half_sections.h"
#include "scene/equipment.h"

/// The one value of a definition by which a clash would vanish; nothing where that takes more, or another
/// device.
namespace vanzet::check {

/// The clamping out of a spindle, for what its device or jaws cut into along the axis.
std::optional<Change> ClampingOutChange(const scene::Spindle& spindle, const Area& common);

/// The origin of the sub spindle, for what its side cuts into along the axis.
std::optional<Change> SubOriginChange(const scene::Equipment& equipment, const Area& common);

/// A diameter or an allowance of a cylinder, for the area of a finished part that is beyond it.
std::optional<Change> CylinderChange(const scene::Spindle& spindle, const HalfSection& billet,
                                     const Area& beyond);

}  // namespace vanzet::check

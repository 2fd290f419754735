#pragma once

#include "scene/equipment.h"
#include "sheet/spur.h"

namespace vanzet::sheet {

/// The facets that the 3D of a sheet has at most; finer bodies become coarse.
inline constexpr std::size_t kMostFacets = 250'000;

/// The equipment of a spur in 3D, and the picture of it that does not turn.
Result<Space> SpaceOf(const Spur& spur, const Words& words);

/// The equipment as the small picture of a list.
Result<Picture> SmallPictureOf(const scene::Model& model, const Words& words);

}  // namespace vanzet::sheet

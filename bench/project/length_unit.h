#pragma once

#include <string_view>

#include "base/length_unit.h"
#include "project/project.h"

namespace vanzet::project {

/// The workbench's own key of the section [project]. What runs in a project neither reads nor changes it.
inline constexpr std::string_view kLengthUnitSetting = "unit";

/// The unit in which the people of a project read and type lengths: `unit` of the section [project].
/// Millimetres without it. Fails for a word that is not a unit.
Result<LengthUnit> LengthUnitOf(const Project& project);

}  // namespace vanzet::project

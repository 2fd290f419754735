#pragma once

#include <optional>

#include "cli/command.h"
#include "project/length_unit.h"

namespace vanzet::cli {

/// Adds the option --unit, for commands that print or take lengths.
Parameter& AddUnit(Command& command, std::optional<LengthUnit>& unit,
                   const std::string& help = "the unit of lengths; default: that of the project, or mm");

/// The same for commands without a project.
Parameter& AddUnit(Command& command, LengthUnit& unit);

/// The unit that the command line gives, else that of the project.
Result<LengthUnit> UnitOf(std::optional<LengthUnit> given, const project::Project& project);

}  // namespace vanzet::cli

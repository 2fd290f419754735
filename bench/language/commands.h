#pragma once

#include "language/interpreter.h"

/// The commands, one function for each; the line stands behind the command's words. The table that finds
/// them by these words is in interpreter.cpp.
namespace vanzet::language {

Result<void> VdmSave(CommandLine& line, Surroundings& surroundings);
Result<void> VdmLoad(CommandLine& line, Surroundings& surroundings);

}  // namespace vanzet::language

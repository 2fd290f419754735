#pragma once

#include "language/command_line.h"
#include "language/interpreter.h"

/// Reading the names of existing entities. Faults have the column of the name.
namespace vanzet::language {

/// Reads the name of an entity, which a blank or the end must follow, and returns the entity.
Result<geometry::CLine> LineOf(CommandLine& line, Surroundings& surroundings);
Result<geometry::Point> PointOf(CommandLine& line, Surroundings& surroundings);

/// Returns the entity whose name has been read.
Result<geometry::CLine> LineOf(const Entity& entity, const CommandLine& line, Surroundings& surroundings);
Result<geometry::Point> PointOf(const Entity& entity, const CommandLine& line, Surroundings& surroundings);
Result<geometry::Circle> CircleOf(const Entity& entity, const CommandLine& line, Surroundings& surroundings);

/// Reads a point such as X5 Y0.
Result<geometry::Point> ReadCoordinates(CommandLine& line);

/// Returns the result of work on the whole line; a fault without a place gets the start of the line.
Result<void> AtStart(const CommandLine& line, const Result<void>& done);

}  // namespace vanzet::language

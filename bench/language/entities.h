#pragma once

#include "language/command_line.h"
#include "language/interpreter.h"

/// Reading entities that are there. Faults tell where the name stands.
namespace vanzet::language {

/// What the next word names, a blank or the end behind it.
Result<geometry::CLine> LineOf(CommandLine& line, Surroundings& surroundings);
Result<geometry::Point> PointOf(CommandLine& line, Surroundings& surroundings);

/// The entity of an element that was read already.
Result<geometry::CLine> LineOf(const Entity& entity, const CommandLine& line, Surroundings& surroundings);
Result<geometry::Point> PointOf(const Entity& entity, const CommandLine& line, Surroundings& surroundings);
Result<geometry::Circle> CircleOf(const Entity& entity, const CommandLine& line, Surroundings& surroundings);

/// A point as X5 Y0.
Result<geometry::Point> ReadCoordinates(CommandLine& line);

/// The fault of something that was done with the whole line, told at its start.
Result<void> AtStart(const CommandLine& line, const Result<void>& done);

}  // namespace vanzet::language

#pragma once

#include "language/interpreter.h"
#include "language/operands.h"

/// The commands, one function for each. Commands that begin with words are given their operands; definitions
/// of entities read their own. The tables of them are in interpreter.cpp and macros.cpp.
namespace vanzet::language {

// Definitions: the entity has been read and, except for contours, the equals sign.
Result<void> DefineLine(const Entity& entity, CommandLine& line, Surroundings& surroundings);
Result<void> DefinePoint(const Entity& entity, CommandLine& line, Surroundings& surroundings);
Result<void> DefineCircle(const Entity& entity, CommandLine& line, Surroundings& surroundings);
Result<void> DefineContour(const Entity& entity, CommandLine& line, Surroundings& surroundings);

/// The equals sign has been read.
Result<void> Assign(const std::string& variable, CommandLine& line, Surroundings& surroundings);

// Deleting and transforms.
Result<void> DeleteEntities(const Operands& operands, Surroundings& surroundings);
Result<void> SetTransform(const Operands& operands, Surroundings& surroundings);
Result<void> RotateTransform(const Operands& operands, Surroundings& surroundings);
Result<void> TranslateTransform(const Operands& operands, Surroundings& surroundings);
Result<void> CopyContour(const Operands& operands, Surroundings& surroundings);

/// The placement in the plane of the transform that an operand names.
Result<drawing::Placement> PlacementOf(const Operand& operand, Surroundings& surroundings);

// Figures and layers.
Result<void> FigureCreate(const Operands& operands, Surroundings& surroundings);
Result<void> FigureAppend(const Operands& operands, Surroundings& surroundings);
Result<void> FigureInsert(const Operands& operands, Surroundings& surroundings);
Result<void> FigureDelete(const Operands& operands, Surroundings& surroundings);
Result<void> LayerChange(const Operands& operands, Surroundings& surroundings);
Result<void> LayerDelete(const Operands& operands, Surroundings& surroundings);

// The state of the host.
Result<void> SelectWindow(const Operands& operands, Surroundings& surroundings);
Result<void> BeginTurning(const Operands& operands, Surroundings& surroundings);
Result<void> ResetOrigin(const Operands& operands, Surroundings& surroundings);
Result<void> Refresh(const Operands& operands, Surroundings& surroundings);
Result<void> CallMacro(const Operands& operands, Surroundings& surroundings);

// Bodies.
Result<void> SpinContour(const Operands& operands, Surroundings& surroundings);
Result<void> ExtrudeContour(const Operands& operands, Surroundings& surroundings);
Result<void> MoveBody(const Operands& operands, Surroundings& surroundings);
Result<void> TurnBody(const Operands& operands, Surroundings& surroundings);
Result<void> ExportBody(const Operands& operands, Surroundings& surroundings);

// The project's environment, settings and files.
Result<void> ReadEnvironment(const Operands& operands, Surroundings& surroundings);
Result<void> FileRead(const Operands& operands, Surroundings& surroundings);
Result<void> FileStore(const Operands& operands, Surroundings& surroundings);
Result<void> VdmSave(const Operands& operands, Surroundings& surroundings);
Result<void> VdmLoad(const Operands& operands, Surroundings& surroundings);

// Picking objects.
Result<void> PickObject(const Operands& operands, Surroundings& surroundings);
Result<void> ObjectInformation(const Operands& operands, Surroundings& surroundings);
Result<void> ClearMarks(const Operands& operands, Surroundings& surroundings);

/// Runs a macro; the columns of faults count in the line.
Result<void> RunMacro(const Operand& name, const Operand& arguments, Surroundings& surroundings);

// Macros: `arguments` reads their arguments.
Result<void> LayerMacro(CommandLine& arguments, Surroundings& surroundings);
Result<void> PickPosition(CommandLine& arguments, Surroundings& surroundings);
Result<void> LoadHelp(CommandLine& arguments, Surroundings& surroundings);
Result<void> BilletFromFigures(CommandLine& arguments, Surroundings& surroundings);

}  // namespace vanzet::language

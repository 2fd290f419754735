#include "language/commands.h"

/// The state of the host: win 0, ori, mct turning, red -1, call @@lay.
namespace vanzet::language {

Result<void> SelectWindow(const Operands& operands, Surroundings& surroundings) {
  const std::int32_t number = operands[0].number;
  if (number != 0 && number != 1) return operands[0].At("there are the windows 0 and 1 only");
  surroundings.board.window = number == 0 ? drawing::Window::kConstruction : drawing::Window::kDisplay;
  return {};
}

Result<void> BeginDrawing(const Operands&, Surroundings&) {
  // Every drawing is one of turning, about the origin; diameters are drawn as they are sent.
  return {};
}

Result<void> Refresh(const Operands& operands, Surroundings& surroundings) {
  if (operands[0].number != -1) return operands[0].At("expected -1, for all that is shown");
  // Whoever looks at the drawing looks at its file.
  return surroundings.board.Save();
}

Result<void> CallMacro(const Operands& operands, Surroundings& surroundings) {
  return RunMacro(operands[0], operands[1], surroundings);
}

}  // namespace vanzet::language

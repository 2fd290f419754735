#include "base/near_words.h"
#include "language/commands.h"

/// Figures, layers and windows: fig cre F z0x0y0, figure append F k1, fig ins F m1, fig del F yes, lay ch
/// 'L', lay del L, win 0, ori, mct turning, red -1.
namespace vanzet::language {
namespace {

constexpr const char* kTurningPlane = "z0x0y0";

Result<void> CheckFigure(const Operand& operand, const Surroundings& surroundings) {
  const drawing::Drawing& drawing = surroundings.board.drawing();
  if (drawing.HasFigure(operand.text)) return {};
  std::vector<std::string> names;
  for (const auto& [name, figure] : drawing.figures) names.push_back(name);
  return operand.At("figure '" + operand.text + "' does not exist" + DidYouMean(operand.text, names),
                    FaultKind::kMissing);
}

}  // namespace

Result<void> FigureCreate(const Operands& operands, Surroundings& surroundings) {
  // All figures have the axes of the drawing, in either order; only the plane of turning knows diameters.
  const std::string& axes = operands[1].text;
  if (axes != kTurningPlane && axes != "x0y0z0") {
    return operands[1].At("expected the axes z0x0y0 or x0y0z0, found '" + axes + "'");
  }
  drawing::Board& board = surroundings.board;
  VANZET_DO(operands[0].WithPlace(board.CreateFigure(operands[0].text)));
  const bool hasDiameters = surroundings.variables.Integer("i_diaprg").value_or(0) != 0;
  if (axes == kTurningPlane && board.isTurning && hasDiameters) board.TakeDiameters(operands[0].text);
  return {};
}

Result<void> FigureAppend(const Operands& operands, Surroundings& surroundings) {
  const Operand &figure = operands[0], &contour = operands[1];
  VANZET_DO(CheckFigure(figure, surroundings));
  if (surroundings.board.FindContour(contour.number) == nullptr) {
    return contour.Missing();
  }
  return contour.WithPlace(surroundings.board.Append(figure.text, contour.number));
}

Result<void> FigureInsert(const Operands& operands, Surroundings& surroundings) {
  VANZET_DO(CheckFigure(operands[0], surroundings));
  VANZET_TRY(const auto placement, PlacementOf(operands[1], surroundings));
  return operands[1].WithPlace(surroundings.board.Insert(operands[0].text, placement));
}

Result<void> FigureDelete(const Operands& operands, Surroundings& surroundings) {
  surroundings.board.DeleteFigure(operands[0].text);
  return {};
}

Result<void> LayerChange(const Operands& operands, Surroundings& surroundings) {
  return operands[0].WithPlace(surroundings.board.SelectLayer(operands[0].text));
}

Result<void> LayerDelete(const Operands& operands, Surroundings& surroundings) {
  return operands[0].WithPlace(surroundings.board.DeleteLayer(operands[0].text));
}

Result<void> SelectWindow(const Operands& operands, Surroundings& surroundings) {
  const std::int32_t number = operands[0].number;
  if (number != 0 && number != 1) return operands[0].At("expected window 0 or 1");
  surroundings.board.window = number == 0 ? drawing::Window::kConstruction : drawing::Window::kDisplay;
  return {};
}

Result<void> ResetOrigin(const Operands&, Surroundings&) {
  // Every drawing is about the origin.
  return {};
}

Result<void> BeginTurning(const Operands&, Surroundings& surroundings) {
  surroundings.board.isTurning = true;
  return {};
}

Result<void> Refresh(const Operands& operands, Surroundings&) {
  // The window draws after each line, and viewers elsewhere see the drawing when the run ends.
  if (operands[0].number != -1) return operands[0].At("expected -1, for all that is shown");
  return {};
}

}  // namespace vanzet::language

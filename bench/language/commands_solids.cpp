#include "language/commands.h"
#include "modeller/export.h"
#include "modeller/sweep.h"

/// Bodies: sld spu kur k1 0 0 0 1 0 0 360 i_return, sld ext kur k1 12 i_return, sld tra 1 7 0 0 0 0 0 -6,
/// sld rot 1 7 0 0 0 1 0 0 90, dll kelvane.dll exportVRML 'file' 1 7.
namespace vanzet::language {
namespace {

constexpr std::int32_t kNoBody = 0;

geometry::Point3d PointAt(const Operands& operands, std::size_t first) {
  return {operands[first].real, operands[first + 1].real, operands[first + 2].real};
}

/// The axis of three coordinates and three components of a direction.
modeller::Axis AxisAt(const Operands& operands, std::size_t first) {
  return {PointAt(operands, first),
          {operands[first + 3].real, operands[first + 4].real, operands[first + 5].real}};
}

/// All that a swept body depends on: the numbers of the line, the contour's place, and its vertices.
modeller::Recipe RecipeOf(char kind, const Operands& operands, const geometry::Kurve& curve) {
  modeller::Recipe recipe(kind);
  for (const Operand& operand : operands) recipe.Add({operand.real});
  for (const double number : curve.e) recipe.Add({number});
  for (int vertex = 0; vertex < curve.nVertices; ++vertex) {
    geometry::Point point(0, 0), centre(0, 0);
    const int type = curve.Get(vertex, point, centre);
    recipe.Add({static_cast<double>(type), point.x, point.y, centre.x, centre.y});
  }
  return recipe;
}

/// Makes a body of a contour, and sets the variable to its number, or to 0 when it fails.
template <class Sweep>
Result<void> MakeBody(char kind, const Operands& operands, const Operand& variable,
                      Surroundings& surroundings, Sweep sweep) {
  const Operand& contour = operands[1];
  const geometry::Kurve* const curve = surroundings.board.FindContour(contour.number);
  Result<std::int32_t> number = contour.Missing();
  if (curve != nullptr) {
    const auto body =
        surroundings.bodies.MakeOnce(RecipeOf(kind, operands, *curve), [&] { return sweep(*curve); });
    number = body ? surroundings.bodies.Add(*body) : Result<std::int32_t>(contour.At(body.fault()));
  }
  if (const auto set = surroundings.variables.Set(variable.text, number ? *number : kNoBody); !set) {
    return variable.At(set.fault());
  }
  return number ? Result<void>() : number.fault();
}

}  // namespace

Result<void> SpinContour(const Operands& operands, Surroundings& surroundings) {
  // The word, the contour, six numbers of the axis, the degrees, the variable.
  return MakeBody('s', operands, operands[9], surroundings, [&](const geometry::Kurve& curve) {
    return modeller::Spin(curve, AxisAt(operands, 2), operands[8].real);
  });
}

Result<void> ExtrudeContour(const Operands& operands, Surroundings& surroundings) {
  return MakeBody('e', operands, operands[3], surroundings,
                  [&](const geometry::Kurve& curve) { return modeller::Extrude(curve, operands[2].real); });
}

Result<void> MoveBody(const Operands& operands, Surroundings& surroundings) {
  const geometry::Vector3d way(PointAt(operands, 2), PointAt(operands, 5));
  return operands[1].WithPlace(surroundings.bodies.Move(operands[1].number, way));
}

Result<void> TurnBody(const Operands& operands, Surroundings& surroundings) {
  return operands[1].WithPlace(
      surroundings.bodies.Turn(operands[1].number, AxisAt(operands, 2), operands[8].real));
}

Result<void> ExportBody(const Operands& operands, Surroundings& surroundings) {
  const auto file = surroundings.paths.Resolve(operands[1].text);
  const bool isPassing = surroundings.workplace.IsPassing(file);
  if (!isPassing) {
    VANZET_DO(operands[1].WithPlace(surroundings.store.CheckTarget(file)));
    if (!surroundings.workplace.MayWrite(file)) return {};
  }
  return operands[3].WithPlace(
      modeller::ExportVrml(surroundings.bodies, operands[3].number, file, surroundings.mesh,
                           isPassing ? modeller::Lasting::kNo : modeller::Lasting::kYes));
}

}  // namespace vanzet::language

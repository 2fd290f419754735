#include "modeller/sweep.h"

#include <BRepLib.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <BRepPrimAPI_MakeRevol.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Solid.hxx>
#include <cmath>
#include <gp_Ax1.hxx>
#include <numbers>
#include <string>

#include "modeller/axis_side.h"
#include "modeller/face.h"
#include "modeller/kernel.h"
#include "modeller/measures.h"
#include "modeller/number_text.h"
#include "modeller/shape.h"

namespace vanzet::modeller {
namespace {

constexpr double kFullTurn = 360;
constexpr double kAngleTolerance = 1e-9;  // degrees

/// A swept solid, turned right side out. The kernel's own check of soundness takes minutes over some thousand
/// spans; what it would find comes of contours that `OutlineOf` refuses.
Result<Body> Sound(const TopoDS_Shape& swept) {
  if (swept.IsNull() || swept.ShapeType() != TopAbs_SOLID) return Fault{"Open CASCADE made no solid of it"};
  TopoDS_Solid solid = TopoDS::Solid(swept);
  BRepLib::OrientClosedSolid(solid);
  const Body body = BodyOf(solid);
  const auto measures = MeasuresOf(body);
  if (!measures) return measures.fault();
  if (!measures->closed || !(measures->volume > 0)) return Fault{"Open CASCADE made no sound solid of it"};
  return body;
}

Result<PlaneAxis> InThePlane(const Axis& axis) {
  const double length = axis.direction.Magnitude();
  if (!(length > 0) || !std::isfinite(length)) return Fault{"the axis has no direction"};
  if (axis.origin.z != 0 || axis.direction.dz != 0) {
    return Fault{"the axis is not in the plane of the contour"};
  }
  const geometry::Point origin(axis.origin.x, axis.origin.y);
  if (!std::isfinite(origin.x) || !std::isfinite(origin.y)) return Fault{"the axis has no place"};
  return PlaneAxis{origin, {axis.direction.dx / length, axis.direction.dy / length}};
}

Result<void> CheckAngle(double degrees) {
  const double turn = std::abs(degrees);
  if (turn >= kAngleTolerance && turn <= kFullTurn + kAngleTolerance) return {};
  return Fault{"the angle is " + NumberText(degrees) + " degrees; it has to be up to 360 and not 0"};
}

TopoDS_Shape Revolved(const TopoDS_Face& face, const PlaneAxis& axis, double degrees) {
  const double sense = degrees < 0 ? -1 : 1;
  const gp_Ax1 line(gp_Pnt(axis.origin.x, axis.origin.y, 0),
                    gp_Dir(sense * axis.direction.dx, sense * axis.direction.dy, 0));
  if (std::abs(degrees) > kFullTurn - kAngleTolerance) return BRepPrimAPI_MakeRevol(face, line);
  return BRepPrimAPI_MakeRevol(face, line, std::abs(degrees) * std::numbers::pi / 180);
}

}  // namespace

Result<Body> Spin(const geometry::Kurve& contour, const Axis& axis, double degrees) {
  const auto plane = InThePlane(axis);
  if (!plane) return plane.fault();
  if (const auto checked = CheckAngle(degrees); !checked) return checked.fault();
  const auto outline = OutlineOf(contour);
  if (!outline) return outline.fault();
  const auto placed = OnOneSide(*outline, *plane);
  if (!placed) return placed.fault();
  return Guarded([&]() -> Result<Body> { return Sound(Revolved(FaceOf(*placed), *plane, degrees)); });
}

Result<Body> Extrude(const geometry::Kurve& contour, double thickness) {
  if (thickness == 0 || !(std::abs(thickness) <= kLargestCoordinate)) {
    return Fault{"the thickness is " + NumberText(thickness) + " mm; it has to be up to " +
                 NumberText(kLargestCoordinate) + " and not 0"};
  }
  const auto outline = OutlineOf(contour);
  if (!outline) return outline.fault();
  return Guarded([&]() -> Result<Body> {
    return Sound(BRepPrimAPI_MakePrism(FaceOf(*outline), gp_Vec(0, 0, thickness)));
  });
}

}  // namespace vanzet::modeller

#include "modeller/sweep.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepLib.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <BRepPrimAPI_MakeRevol.hxx>
#include <BRep_Builder.hxx>
#include <GC_MakeArcOfCircle.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Solid.hxx>
#include <TopoDS_Wire.hxx>
#include <algorithm>
#include <cmath>
#include <gp_Ax1.hxx>
#include <gp_Pln.hxx>
#include <gp_Pnt.hxx>
#include <numbers>
#include <optional>
#include <string>
#include <vector>

#include "base/number_text.h"
#include "modeller/facets.h"
#include "modeller/kernel.h"
#include "modeller/measures.h"
#include "modeller/outline.h"

namespace vanzet::modeller {
namespace {

using geometry::Point;
using geometry::Span;

/// An axis in the plane of a contour: a point and a direction of length 1.
struct PlaneAxis {
  Point origin;
  geometry::Vector2d direction;

  /// Above 0 on the left.
  double Distance(const Point& p) const { return Cross(direction, geometry::Vector2d(origin, p)); }
  Point Foot(const Point& p) const {
    return origin + direction * Dot(direction, geometry::Vector2d(origin, p));
  }
};

/// Points closer to the axis than this are on it, in millimetres.
constexpr double kOnAxis = 1e-3;

bool IsOn(const PlaneAxis& axis, const Point& p) {
  return std::abs(axis.Distance(p)) < kOnAxis;
}

/// The points between the ends of an arc that are farthest to either side of the axis.
std::vector<Point> ExtremesOf(const Span& span, const PlaneAxis& axis) {
  std::vector<Point> extremes;
  if (span.dir == geometry::LINEAR) return extremes;
  for (const double side : {1.0, -1.0}) {
    const Point extreme = span.pc + axis.direction.LeftNormal() * (side * span.radius);
    if (span.OnSpan(extreme)) extremes.push_back(extreme);
  }
  return extremes;
}

/// Where an arc touches the axis away from its ends.
std::optional<Point> ContactOf(const Span& span, const PlaneAxis& axis) {
  if (IsOn(axis, span.p0) || IsOn(axis, span.p1)) return std::nullopt;
  for (const Point& extreme : ExtremesOf(span, axis)) {
    if (IsOn(axis, extreme)) return axis.Foot(extreme);
  }
  return std::nullopt;
}

struct Reach {
  double left = 0;
  double right = 0;
  Point leftmost, rightmost;
};

void Extend(Reach& reach, const PlaneAxis& axis, const Point& p) {
  const double distance = axis.Distance(p);
  if (distance > reach.left) reach.left = distance, reach.leftmost = p;
  if (distance < reach.right) reach.right = distance, reach.rightmost = p;
}

Reach ReachOf(const Outline& outline, const PlaneAxis& axis) {
  Reach reach;
  for (const Span& span : outline) {
    Extend(reach, axis, span.p0);
    for (const Point& extreme : ExtremesOf(span, axis)) Extend(reach, axis, extreme);
  }
  return reach;
}

/// Moves the ends of a span; an arc gets the centre that fits them.
Span MoveEnds(const Span& span, const Point& p0, const Point& p1) {
  Span moved = span;
  moved.p0 = p0;
  moved.p1 = p1;
  if (span.dir != geometry::LINEAR) {
    const geometry::Vector2d chord(p0, p1);
    const geometry::Vector2d half = chord * 0.5;
    const geometry::Vector2d normal = chord.LeftNormal() * (1 / chord.Magnitude());
    moved.pc = p0 + half + normal * Dot(normal, geometry::Vector2d(p0, span.pc));
  }
  moved.SetProperties();
  return moved;
}

/// Puts the contacts of the outline with the axis exactly on the axis: vertices less than 0.001 mm away, and
/// a new vertex where an arc touches it between its ends. Fails when the outline has points on both sides.
Result<Outline> AlignWithAxis(const Outline& outline, const PlaneAxis& axis) {
  const Reach reach = ReachOf(outline, axis);
  if (reach.left >= kOnAxis && reach.right <= -kOnAxis) {
    return Fault{"the contour crosses the axis: it reaches " + NumberText(reach.left) +
                 " mm to its left and " + NumberText(-reach.right) + " mm to its right"};
  }
  const auto place = [&](const Point& p) { return IsOn(axis, p) ? axis.Foot(p) : p; };
  Outline placed;
  for (const Span& span : outline) {
    Point from = place(span.p0);
    if (const auto contact = ContactOf(span, axis)) {
      placed.push_back(MoveEnds(span, from, *contact));
      from = *contact;
    }
    placed.push_back(MoveEnds(span, from, place(span.p1)));
  }
  std::erase_if(placed, [](const Span& span) { return Dist(span.p0, span.p1) == 0; });
  return placed;
}

gp_Pnt PointOf(const Point& p) {
  return {p.x, p.y, 0};
}

TopoDS_Vertex VertexAt(const Point& p) {
  TopoDS_Vertex vertex;
  BRep_Builder().MakeVertex(vertex, PointOf(p), Precision::Confusion());
  return vertex;
}

/// An arc through its ends and its middle: the ends are met exactly, whatever the centre's last digits.
TopoDS_Edge EdgeOf(const Span& span, const TopoDS_Vertex& from, const TopoDS_Vertex& to) {
  if (span.dir == geometry::LINEAR) return BRepBuilderAPI_MakeEdge(from, to);
  const Handle(Geom_TrimmedCurve) arc =
      GC_MakeArcOfCircle(PointOf(span.p0), PointOf(span.Mid()), PointOf(span.p1)).Value();
  return BRepBuilderAPI_MakeEdge(arc, from, to);
}

/// The plane face that the outline bounds, with its normal along z. Throws the exceptions of the kernel.
TopoDS_Face FaceOf(const Outline& outline) {
  const BRep_Builder builder;
  TopoDS_Wire wire;
  builder.MakeWire(wire);
  const TopoDS_Vertex first = VertexAt(outline.front().p0);
  TopoDS_Vertex from = first;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const TopoDS_Vertex to = i + 1 < outline.size() ? VertexAt(outline[i].p1) : first;
    builder.Add(wire, EdgeOf(outline[i], from, to));
    from = to;
  }
  wire.Closed(Standard_True);
  return BRepBuilderAPI_MakeFace(gp_Pln(), wire, Standard_True);
}

constexpr double kFullTurn = 360;
constexpr double kAngleTolerance = 1e-9;  // degrees

/// Makes a body of a swept solid, with its outside outwards. The kernel's own validity check takes minutes
/// for some thousand spans; the defects that it would find come from contours that `OutlineOf` refuses.
Result<Body> ValidBody(const TopoDS_Shape& swept) {
  if (swept.IsNull() || swept.ShapeType() != TopAbs_SOLID) return Fault{"Open CASCADE did not make a solid"};
  TopoDS_Solid solid = TopoDS::Solid(swept);
  BRepLib::OrientClosedSolid(solid);
  const Body body(
      std::make_shared<const Shape>(Shape{.shape = solid, .meshes = std::make_shared<MadeMeshes>()}));
  VANZET_TRY(const auto measures, MeasuresOf(body));
  if (!measures.closed || !(measures.volume > 0)) return Fault{"Open CASCADE did not make a valid solid"};
  return body;
}

Result<PlaneAxis> PlaneAxisOf(const Axis& axis) {
  const double length = axis.direction.Magnitude();
  if (!(length > 0) || !std::isfinite(length)) return Fault{"the axis has no direction"};
  if (axis.origin.z != 0 || axis.direction.dz != 0) {
    return Fault{"the axis is not in the plane of the contour"};
  }
  const geometry::Point origin(axis.origin.x, axis.origin.y);
  if (!std::isfinite(origin.x) || !std::isfinite(origin.y))
    return Fault{"the origin of the axis is not a finite number"};
  return PlaneAxis{origin, {axis.direction.dx / length, axis.direction.dy / length}};
}

Result<void> CheckAngle(double degrees) {
  const double turn = std::abs(degrees);
  if (turn >= kAngleTolerance && turn <= kFullTurn + kAngleTolerance) return {};
  return Fault{"the angle is " + NumberText(degrees) + " degrees; it must be at most 360 and not 0"};
}

TopoDS_Shape Revolve(const TopoDS_Face& face, const PlaneAxis& axis, double degrees) {
  const double sense = degrees < 0 ? -1 : 1;
  const gp_Ax1 line(gp_Pnt(axis.origin.x, axis.origin.y, 0),
                    gp_Dir(sense * axis.direction.dx, sense * axis.direction.dy, 0));
  if (std::abs(degrees) > kFullTurn - kAngleTolerance) return BRepPrimAPI_MakeRevol(face, line);
  return BRepPrimAPI_MakeRevol(face, line, std::abs(degrees) * std::numbers::pi / 180);
}

}  // namespace

Result<Body> Spin(const geometry::Kurve& contour, const Axis& axis, double degrees) {
  VANZET_TRY(const auto plane, PlaneAxisOf(axis));
  VANZET_DO(CheckAngle(degrees));
  VANZET_TRY(const auto outline, OutlineOf(contour));
  VANZET_TRY(const auto placed, AlignWithAxis(outline, plane));
  return CatchKernelFailures(
      [&]() -> Result<Body> { return ValidBody(Revolve(FaceOf(placed), plane, degrees)); });
}

Result<Body> Extrude(const geometry::Kurve& contour, double thickness) {
  if (thickness == 0 || !(std::abs(thickness) <= kLargestCoordinate)) {
    return Fault{"the thickness is " + NumberText(thickness) + " mm; it must be at most " +
                 NumberText(kLargestCoordinate) + " and not 0"};
  }
  VANZET_TRY(const auto outline, OutlineOf(contour));
  return CatchKernelFailures([&]() -> Result<Body> {
    return ValidBody(BRepPrimAPI_MakePrism(FaceOf(outline), gp_Vec(0, 0, thickness)));
  });
}

}  // namespace vanzet::modeller

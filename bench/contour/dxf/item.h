#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "contour/curve/spline.h"
#include "contour/dxf/entity.h"

/// The shapes of a drawing as its entities describe them, before they are placed.
namespace vanzet::contour {

/// A line or an arc, whose bulge is about the z axis.
struct Stroke {
  Space end;
  double bulge = 0;
};

/// An arc of a circle or an ellipse: centre + u cos a + v sin a, for the angles from `from` over `sweep`,
/// which is above 0 and at most a full turn.
struct Turn {
  Space centre, u, v;
  double from = 0, sweep = 0;
  Space At(double angle) const { return centre + u * std::cos(angle) + v * std::sin(angle); }
};

using Edge = std::variant<Stroke, Turn, Bezier>;

/// Edges of which each begins where the former ends.
struct Path {
  Space start;
  std::vector<Edge> edges;
};

/// The insertion of a block, maybe in columns and rows.
struct Insertion {
  std::string block;
  int columns = 1, rows = 1;
  double columnStep = 0, rowStep = 0;
  Placement scale;  ///< within its place of the grid
};

/// An entity.
struct Item {
  std::string kind, layer;
  int place = 0;
  bool isOnPaper = false;
  Placement frame;  ///< of its paths, or of the grid of its insertion
  std::vector<Path> paths = {};
  std::optional<Insertion> insertion = {};
  std::string leftOut = {};  ///< not empty: why it has no paths, such as "ARC without a radius"
};

/// The shapes of an entity that is not a POLYLINE.
Item ItemOf(const DxfEntity& entity);

/// The shapes of a POLYLINE with its VERTEX entities.
Item ItemOfPolyline(const DxfEntity& polyline, const std::vector<DxfEntity>& entities);

/// The shapes of a SPLINE, or why it has none.
std::vector<Path> PathsOfSpline(const DxfEntity& entity, std::string& leftOut);

/// The boundaries of a HATCH, or why it has none. The edges of a boundary are paths of their own, as if they
/// had been drawn, unless the boundary is a polyline.
std::vector<Path> PathsOfHatch(const DxfEntity& entity, std::string& leftOut);

/// Why the spline cannot be drawn, such as "whose knots do not fit"; empty when it can.
std::string FaultOf(const Spline& spline);

/// The paths along consecutive curves; a new one begins where a curve does not begin at the former one's end.
std::vector<Path> PathsAlong(const std::vector<Bezier>& beziers);

/// A vertex of a polyline; its bulge is that of the edge to the next one.
struct Vertex {
  Space point;
  double bulge = 0;
};

/// The path along the vertices; without edges for less than two different ones.
Path PathAlong(const std::vector<Vertex>& vertices, bool isClosed);

/// The ellipse, or the circle, from the angle `from` to the angle `to`, which is taken one turn farther where
/// it is not above.
Path PathOfTurn(Turn turn, double to);

}  // namespace vanzet::contour

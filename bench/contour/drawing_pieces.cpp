#include "contour/drawing_pieces.h"

#include <cmath>

#include "geometry/numerics.h"

namespace vanzet::contour {
namespace {

using geometry::PI;
using geometry::Point;

/// A larger turn becomes two arcs, since the library has no full circle.
constexpr double kLargestSweep = 2 * PI - 0.02;

constexpr int kClosedPolyline = 1;
/// Splines, polygons in space and meshes, whose vertices are not those of a contour.
constexpr int kOtherPolylines = 4 | 8 | 16 | 64;

double Radians(double degrees) {
  return degrees * PI / 180;
}

Point OnCircle(const Point& centre, double radius, double angle, int side) {
  return {side * (centre.x + radius * std::cos(angle)), centre.y + radius * std::sin(angle)};
}

}  // namespace

/// An entity in a plane is seen from above, or mirrored when the normal of the plane points down.
bool DrawingPieces::IsSeen(const std::string& kind, int& side) {
  constexpr double kTilt = 1e-6;
  const double* const normal = getExtrusion()->getDirection();
  const bool isTilted = std::fabs(normal[0]) > kTilt || std::fabs(normal[1]) > kTilt || normal[2] == 0;
  side = normal[2] < 0 ? -1 : 1;
  if (getAttributes().isInPaperSpace()) {
    leftOut_.push_back(kind + " on paper");
  } else if (isTilted) {
    leftOut_.push_back(kind + " in a tilted plane");
  } else {
    return true;
  }
  return false;
}

void DrawingPieces::addLine(const DL_LineData& line) {
  // Unlike those of the others, the ends of a line are given in the coordinates of the world.
  if (getAttributes().isInPaperSpace()) {
    leftOut_.emplace_back("LINE on paper");
    return;
  }
  const Point start(line.x1, line.y1), end(line.x2, line.y2);
  if (start.x == end.x && start.y == end.y) return;
  entries_.push_back({getAttributes().getLayer(), {start, {{end}}, line_}});
}

void DrawingPieces::addArc(const DL_ArcData& arc) {
  int side = 1;
  if (!IsSeen("ARC", side)) return;
  double sweep = std::fmod(Radians(arc.angle2 - arc.angle1), 2 * PI);
  if (sweep <= 0) sweep += 2 * PI;
  AddTurn({arc.cx, arc.cy}, arc.radius, Radians(arc.angle1), sweep, side);
}

void DrawingPieces::addCircle(const DL_CircleData& circle) {
  int side = 1;
  if (!IsSeen("CIRCLE", side)) return;
  AddTurn({circle.cx, circle.cy}, circle.radius, 0, 2 * PI, side);
}

void DrawingPieces::AddTurn(const Point& centre, double radius, double from, double sweep, int side) {
  if (!(radius > 0)) {
    leftOut_.emplace_back("ARC or CIRCLE without a radius");
    return;
  }
  const bool isFull = sweep >= 2 * PI;
  const int parts = sweep > kLargestSweep ? 2 : 1;
  Piece piece{OnCircle(centre, radius, from, side), {}, line_};
  for (int i = 1; i <= parts; ++i) {
    const Point end =
        isFull && i == parts ? piece.start : OnCircle(centre, radius, from + sweep * i / parts, side);
    piece.segments.push_back({end, side * std::tan(sweep / parts / 4)});
  }
  entries_.push_back({getAttributes().getLayer(), std::move(piece)});
}

void DrawingPieces::addPolyline(const DL_PolylineData& data) {
  polyline_.reset();
  auto polyline = std::make_unique<Polyline>();
  if (!IsSeen("POLYLINE", polyline->side)) return;
  if ((data.flags & kOtherPolylines) != 0) {
    leftOut_.emplace_back("POLYLINE that is a spline or a mesh");
    return;
  }
  polyline->layer = getAttributes().getLayer();
  polyline->line = line_;
  polyline->closed = (data.flags & kClosedPolyline) != 0;
  polyline_ = std::move(polyline);
}

void DrawingPieces::addVertex(const DL_VertexData& vertex) {
  if (!polyline_) return;
  polyline_->points.emplace_back(polyline_->side * vertex.x, vertex.y);
  polyline_->bulges.push_back(polyline_->side * vertex.bulge);
}

void DrawingPieces::EndPolyline() {
  const auto polyline = std::move(polyline_);
  if (!polyline) return;
  const std::size_t count = polyline->points.size();
  if (count < 2) {
    leftOut_.emplace_back("POLYLINE of less than two vertices");
    return;
  }
  Piece piece{polyline->points.front(), {}, polyline->line};
  for (std::size_t i = 1; i < count + (polyline->closed ? 1 : 0); ++i) {
    const Point& end = polyline->points[i % count];
    if (end.x == piece.End().x && end.y == piece.End().y) continue;
    piece.segments.push_back({end, polyline->bulges[i - 1]});
  }
  if (!piece.segments.empty()) entries_.push_back({polyline->layer, std::move(piece)});
}

}  // namespace vanzet::contour

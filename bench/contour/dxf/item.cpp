#include "contour/dxf/item.h"

#include <algorithm>
#include <cmath>

#include "geometry/numerics.h"

namespace vanzet::contour {
namespace {

using geometry::PI;

constexpr int kLayer = 8, kOnPaper = 67, kFlags = 70, kExtrusion = 210;
constexpr int kFirst = 10, kSecond = 11, kElevation = 38, kRadius = 40, kBulge = 42;
constexpr int kClosed = 1, kInSpace = 8, kMesh = 16 | 64, kOfFrame = 16;

double Radians(double degrees) {
  return degrees * PI / 180;
}

/// The coordinates of an entity that is drawn in a plane, by the normal of the plane: their x axis is level.
Placement FrameOf(const DxfEntity& entity) {
  Space normal = entity.Point(kExtrusion, {0, 0, 1});
  const double length = LengthOf(normal);
  if (!(length > 0) || (normal.x == 0 && normal.y == 0 && normal.z > 0)) return {};
  normal = normal * (1 / length);
  constexpr double kNearTheAxis = 1.0 / 64;
  const bool isNear = std::fabs(normal.x) < kNearTheAxis && std::fabs(normal.y) < kNearTheAxis;
  Space x = CrossOf(isNear ? Space{0, 1, 0} : Space{0, 0, 1}, normal);
  x = x * (1 / LengthOf(x));
  return {x, CrossOf(normal, x), normal, {}};
}

void TakeLine(const DxfEntity& entity, Item& item) {
  // Unlike those of the others, the ends of a line are given in the coordinates of the world.
  item.frame = {};
  item.paths.push_back({entity.Point(kFirst), {Stroke{entity.Point(kSecond)}}});
}

void TakeArc(const DxfEntity& entity, Item& item) {
  const double radius = entity.Real(kRadius);
  if (!(radius > 0)) {
    item.leftOut = "ARC or CIRCLE without a radius";
    return;
  }
  const bool isCircle = entity.kind == "CIRCLE";
  const double from = isCircle ? 0 : Radians(entity.Real(50)),
               to = isCircle ? 2 * PI : Radians(entity.Real(51));
  item.paths.push_back(PathOfTurn({entity.Point(kFirst), {radius, 0, 0}, {0, radius, 0}, from}, to));
}

/// The axes of an ellipse are given in the coordinates of the world; the second is a share of the first.
void TakeEllipse(const DxfEntity& entity, Item& item) {
  const Space major = entity.Point(kSecond);
  const Space minor = CrossOf(item.frame.z, major) * entity.Real(40);
  item.frame = {};
  if (!(LengthOf(major) > 0) || !(LengthOf(minor) > 0)) {
    item.leftOut = "ELLIPSE without a radius";
    return;
  }
  item.paths.push_back(
      PathOfTurn({entity.Point(kFirst), major, minor, entity.Real(41)}, entity.Real(42, 2 * PI)));
}

void TakePath(Path path, Item& item) {
  if (path.edges.empty()) {
    item.leftOut = "POLYLINE of less than two vertices";
  } else {
    item.paths.push_back(std::move(path));
  }
}

void TakeFlatPolyline(const DxfEntity& entity, Item& item) {
  std::vector<Vertex> vertices;
  const double z = entity.Real(kElevation);
  for (const DxfGroup& group : entity.groups) {
    if (group.code == kFirst) vertices.push_back({{group.number, 0, z}});
    if (group.code == kFirst + 10) vertices.back().point.y = group.number;
    if (group.code == kBulge) vertices.back().bulge = group.number;
  }
  TakePath(PathAlong(vertices, (entity.Integer(kFlags) & kClosed) != 0), item);
}

void TakeSpline(const DxfEntity& entity, Item& item) {
  item.frame = {};
  item.paths = PathsOfSpline(entity, item.leftOut);
}

void TakeHatch(const DxfEntity& entity, Item& item) {
  item.paths = PathsOfHatch(entity, item.leftOut);
}

void TakeInsertion(const DxfEntity& entity, Item& item) {
  item.frame = item.frame * Placement::Move(entity.Point(kFirst)) * Placement::Turn(Radians(entity.Real(50)));
  const Placement scale = Placement::Scale(entity.Real(41, 1), entity.Real(42, 1), entity.Real(43, 1));
  item.insertion = {entity.Text(2),
                    std::max(entity.Integer(70, 1), 1),
                    std::max(entity.Integer(71, 1), 1),
                    entity.Real(44),
                    entity.Real(45),
                    scale};
}

constexpr struct {
  std::string_view kind;
  void (*take)(const DxfEntity&, Item&);
} kMakers[] = {
    {"LINE", TakeLine},       {"ARC", TakeArc},          {"CIRCLE", TakeArc},
    {"ELLIPSE", TakeEllipse}, {"SPLINE", TakeSpline},    {"LWPOLYLINE", TakeFlatPolyline},
    {"HATCH", TakeHatch},     {"INSERT", TakeInsertion},
};

Item Plain(const DxfEntity& entity) {
  return {.kind = entity.kind,
          .layer = entity.Text(kLayer),
          .place = entity.place,
          .isOnPaper = entity.Integer(kOnPaper) != 0,
          .frame = FrameOf(entity)};
}

}  // namespace

Item ItemOf(const DxfEntity& entity) {
  Item item = Plain(entity);
  const auto* const maker =
      std::ranges::find(kMakers, std::string_view(entity.kind), [](const auto& row) { return row.kind; });
  if (maker == std::end(kMakers)) {
    item.leftOut = entity.kind;
  } else {
    maker->take(entity, item);
  }
  return item;
}

Item ItemOfPolyline(const DxfEntity& polyline, const std::vector<DxfEntity>& entities) {
  Item item = Plain(polyline);
  const int flags = polyline.Integer(kFlags);
  if ((flags & kMesh) != 0) {
    item.leftOut = "POLYLINE that is a mesh";
    return item;
  }
  const bool isInSpace = (flags & kInSpace) != 0;
  if (isInSpace) item.frame = {};
  std::vector<Vertex> vertices;
  for (const DxfEntity& entity : entities) {
    if ((entity.Integer(kFlags) & kOfFrame) != 0) continue;  // the frame of a spline is not drawn
    Vertex vertex{entity.Point(kFirst), isInSpace ? 0 : entity.Real(kBulge)};
    if (!isInSpace) vertex.point.z = polyline.Real(30);
    vertices.push_back(vertex);
  }
  TakePath(PathAlong(vertices, (flags & kClosed) != 0), item);
  return item;
}

Path PathAlong(const std::vector<Vertex>& vertices, bool isClosed) {
  if (vertices.size() < 2) return {};
  Path path{vertices.front().point, {}};
  for (std::size_t i = 1; i < vertices.size(); ++i) {
    path.edges.emplace_back(Stroke{vertices[i].point, vertices[i - 1].bulge});
  }
  if (isClosed) path.edges.emplace_back(Stroke{path.start, vertices.back().bulge});
  return path;
}

Path PathOfTurn(Turn turn, double to) {
  constexpr double kNothing = 1e-9;
  turn.sweep = std::fmod(to - turn.from, 2 * PI);
  if (turn.sweep < 0) turn.sweep += 2 * PI;
  if (turn.sweep < kNothing || turn.sweep > 2 * PI - kNothing) turn.sweep = 2 * PI;
  return {turn.At(turn.from), {turn}};
}

}  // namespace vanzet::contour

#include "drawing/placement.h"

#include <cmath>
#include <numbers>

namespace vanzet::drawing {
namespace {

constexpr double kSameLength = 1e-9;

/// Adding it removes the sign of a zero.
constexpr double kPlainZero = 0.0;

}  // namespace

bool KeepsLengths(const Placement& p) {
  const double lengthX = p.xx * p.xx + p.yx * p.yx, lengthY = p.xy * p.xy + p.yy * p.yy;
  const double skew = p.xx * p.xy + p.yx * p.yy;
  return std::fabs(lengthX - 1) <= kSameLength && std::fabs(lengthY - 1) <= kSameLength &&
         std::fabs(skew) <= kSameLength && std::isfinite(p.x) && std::isfinite(p.y);
}

std::optional<Placement> PlacementOf(const geometry::Matrix& matrix) {
  const double* const e = matrix.e;
  const Placement placement{e[0], e[1], e[4], e[5], e[3], e[7]};
  return KeepsLengths(placement) ? std::optional(placement) : std::nullopt;
}

geometry::Vector2d DirectionOf(double degrees) {
  const double turn = std::fmod(degrees, 360.0);
  const double quarters = turn / 90.0;
  if (quarters == std::floor(quarters)) {
    constexpr geometry::Vector2d kQuarters[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    return kQuarters[(static_cast<int>(quarters) + 4) % 4];
  }
  const double radians = turn * (std::numbers::pi / 180.0);
  return {std::cos(radians), std::sin(radians)};
}

void TurnExactly(geometry::Matrix& matrix, double degrees, int axis) {
  const geometry::Vector2d direction = DirectionOf(degrees);
  matrix.Rotate(direction.dy, direction.dx, axis);
}

geometry::Point PlacePoint(const geometry::Point& point, const Placement& p) {
  return {p.xx * point.x + p.xy * point.y + p.x + kPlainZero,
          p.yx * point.x + p.yy * point.y + p.y + kPlainZero};
}

geometry::Kurve PlaceCurve(const geometry::Kurve& curve, const Placement& placement) {
  geometry::Kurve placed;
  const int sense = placement.IsMirrored() ? -1 : 1;
  for (int i = 0; i < curve.nVertices; ++i) {
    geometry::spVertex vertex;
    curve.Get(i, vertex);
    vertex.p = PlacePoint(vertex.p, placement);
    if (vertex.type != geometry::LINEAR) vertex.pc = PlacePoint(vertex.pc, placement);
    vertex.type *= sense;
    placed.Add(vertex);
  }
  return placed;
}

}  // namespace vanzet::drawing

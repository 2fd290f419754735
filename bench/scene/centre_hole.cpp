#include "scene/centre_hole.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "modeller/mesh.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using modeller::Mesh;

constexpr double kOnePlane = 0.01;  // millimetres: points closer to the foremost one are in its plane
constexpr double kNone = std::numeric_limits<double>::infinity();

double RadiusAt(const Point3d& point) {
  return std::hypot(point.y, point.z);
}

/// Whether the x axis goes through a triangle.
bool IsOnAxis(const Point3d& a, const Point3d& b, const Point3d& c) {
  const auto side = [](const Point3d& p, const Point3d& q) { return p.y * q.z - p.z * q.y; };
  const double ab = side(a, b), bc = side(b, c), ca = side(c, a);
  return (ab >= 0 && bc >= 0 && ca >= 0) || (ab <= 0 && bc <= 0 && ca <= 0);
}

double ForemostOf(const Mesh& mesh) {
  const auto isBehind = [](const Point3d& a, const Point3d& b) { return a.x < b.x; };
  return std::ranges::max(mesh.points, isBehind).x;
}

/// The depth at which an edge of the center, between two points with their depths and radii, has a radius.
double DepthOfRadius(double radius, double depth, double own, double otherDepth, double other) {
  if (std::max(own, other) < radius) return kNone;
  if (std::min(own, other) >= radius) return std::min(depth, otherDepth);
  return depth + (otherDepth - depth) * (radius - own) / (other - own);
}

}  // namespace

double CentreHoleRadius(const modeller::Body& billet) {
  const auto mesh = modeller::MeshOf(billet, {});
  if (!mesh || mesh->points.empty()) return 0;
  const double front = ForemostOf(*mesh) - kOnePlane;
  double radius = kNone;
  for (const auto& [i, j, k] : mesh->triangles) {
    const auto at = [&](int point) { return mesh->points[static_cast<std::size_t>(point)]; };
    const Point3d a = at(i), b = at(j), c = at(k);
    if (std::min({a.x, b.x, c.x}) < front) continue;
    if (IsOnAxis(a, b, c)) return 0;
    radius = std::min({radius, RadiusAt(a), RadiusAt(b), RadiusAt(c)});
  }
  return radius == kNone ? 0 : radius;
}

double SeatDepth(const DeviceText& center, double bore) {
  const auto mesh = modeller::MeshOf(center.body, {});
  if (!mesh || bore <= 0) return 0;
  double depth = kNone;
  for (const auto& corners : mesh->triangles) {
    for (std::size_t i = 0; i < 3; ++i) {
      const Point3d& a = mesh->points[static_cast<std::size_t>(corners[i])];
      const Point3d& b = mesh->points[static_cast<std::size_t>(corners[(i + 1) % 3])];
      depth = std::min(
          depth, DepthOfRadius(bore, center.socket.x - a.x, RadiusAt(a), center.socket.x - b.x, RadiusAt(b)));
    }
  }
  return depth == kNone ? 0 : std::max(depth, 0.0);
}

}  // namespace vanzet::scene

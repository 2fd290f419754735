#include <algorithm>
#include <utility>

#include "modeller/measures.h"

namespace vanzet::modeller {
namespace {

using geometry::Point3d;
using geometry::Vector3d;

struct Corners {
  Vector3d a, b, c;
};

Corners CornersOf(const Mesh& mesh, const std::array<int, 3>& triangle) {
  const auto corner = [&](int i) {
    return Vector3d(Point3d(), mesh.points[static_cast<std::size_t>(triangle[static_cast<std::size_t>(i)])]);
  };
  return {corner(0), corner(1), corner(2)};
}

/// A sum of places, each with its weight.
struct Weighted {
  double weight = 0;
  Vector3d moment;

  void Add(double part, const Vector3d& place) {
    weight += part;
    moment = moment + place * part;
  }
  Point3d Centre() const { return Point3d() + moment * (1 / weight); }
};

/// The edges in the directions in which the triangles run along them, in order.
using Ways = std::vector<std::pair<int, int>>;

Ways WaysOf(const Mesh& mesh) {
  Ways ways;
  for (const auto& [a, b, c] : mesh.triangles) ways.insert(ways.end(), {{a, b}, {b, c}, {c, a}});
  std::ranges::sort(ways);
  return ways;
}

}  // namespace

std::array<double, 6> InMetres(const geometry::Box3d& box) {
  std::array<double, 6> metres = {box.min.x, box.min.y, box.min.z, box.max.x, box.max.y, box.max.z};
  for (double& number : metres) number /= 1000;
  return metres;
}

bool IsClosed(const Mesh& mesh) {
  const Ways ways = WaysOf(mesh);
  Ways back;
  for (const auto& [from, to] : ways) back.emplace_back(to, from);
  std::ranges::sort(back);
  return !ways.empty() && ways == back;
}

bool IsManifold(const Mesh& mesh) {
  const Ways ways = WaysOf(mesh);
  return std::ranges::adjacent_find(ways) == ways.end() && IsClosed(mesh);
}

double AreaOf(const Mesh& mesh) {
  double area = 0;
  for (const auto& triangle : mesh.triangles) {
    const auto [a, b, c] = CornersOf(mesh, triangle);
    area += Cross(b - a, c - a).Magnitude() / 2;
  }
  return area;
}

Measures MeasuresOf(const Mesh& mesh) {
  Weighted volume, area;
  for (const auto& triangle : mesh.triangles) {
    const auto [a, b, c] = CornersOf(mesh, triangle);
    volume.Add(Dot(a, Cross(b, c)) / 6, (a + b + c) * 0.25);
    area.Add(Cross(b - a, c - a).Magnitude() / 2, (a + b + c) * (1.0 / 3));
  }
  Measures measures;
  measures.closed = IsClosed(mesh);
  measures.area = area.weight;
  if (measures.closed) measures.volume = volume.weight;
  if (area.weight > 0) measures.centroid = (measures.volume != 0 ? volume : area).Centre();
  return measures;
}

}  // namespace vanzet::modeller

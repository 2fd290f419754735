#include "scene/surface.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "scene/vectors.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using geometry::Vector3d;

constexpr double kSmooth = 0.8660254037844386;  // cosine of 30 degrees: an edge that turns less is smooth

constexpr std::size_t kMostAround = 1000;  // triangles about a point whose directions are compared

class Maker {
 public:
  Maker(const modeller::Mesh& mesh, const geometry::Matrix& placement) {
    for (const auto& corners : mesh.triangles) {
      std::array<int, 3> triangle{};
      for (std::size_t i = 0; i < 3; ++i) {
        triangle[i] = Number(placement.Transform(mesh.points[static_cast<std::size_t>(corners[i])]));
      }
      Add(triangle);
    }
  }

  Surface Make() const {
    Surface surface;
    for (std::size_t t = 0; t < triangles_.size(); ++t) {
      Facet facet;
      for (std::size_t i = 0; i < 3; ++i) {
        facet.corners[i] = At(triangles_[t][i]);
        facet.normals[i] = Smoothed(triangles_[t][i], t);
      }
      surface.facets.push_back(facet);
    }
    for (const auto& [ends, sides] : edges_) surface.edges.push_back(EdgeOf(ends, sides));
    return surface;
  }

 private:
  using Ends = std::pair<int, int>;

  const Point3d& At(int point) const { return points_[static_cast<std::size_t>(point)]; }

  int Number(const Point3d& point) {
    const auto [entry, isNew] =
        numbers_.try_emplace({point.x, point.y, point.z}, static_cast<int>(points_.size()));
    if (isNew) {
      points_.push_back(point);
      around_.emplace_back();
    }
    return entry->second;
  }

  void Add(const std::array<int, 3>& triangle) {
    const Vector3d area =
        Cross(Vector3d(At(triangle[0]), At(triangle[1])), Vector3d(At(triangle[0]), At(triangle[2])));
    if (!(area.Magnitude() > 0)) return;
    const std::size_t number = triangles_.size();
    triangles_.push_back(triangle);
    areas_.push_back(area);
    for (std::size_t i = 0; i < 3; ++i) {
      around_[static_cast<std::size_t>(triangle[i])].push_back(number);
      edges_[std::minmax(triangle[i], triangle[(i + 1) % 3])].push_back(number);
    }
  }

  /// The normal of a triangle's corner: that of its smooth neighbours, weighted by their areas.
  Vector3d Smoothed(int point, std::size_t triangle) const {
    const Vector3d own = UnitVector(areas_[triangle]);
    const auto& around = around_[static_cast<std::size_t>(point)];
    if (around.size() > kMostAround) return own;
    Vector3d sum;
    for (const std::size_t other : around) {
      if (Dot(own, UnitVector(areas_[other])) >= kSmooth) sum = sum + areas_[other];
    }
    return UnitVector(sum);
  }

  SurfaceEdge EdgeOf(const Ends& ends, const std::vector<std::size_t>& sides) const {
    const Vector3d left = UnitVector(areas_[sides.front()]), right = UnitVector(areas_[sides.back()]);
    return {At(ends.first), At(ends.second), left, right, sides.size() != 2 || Dot(left, right) < kSmooth};
  }

  std::map<std::tuple<double, double, double>, int> numbers_;
  std::vector<Point3d> points_;
  std::vector<std::vector<std::size_t>> around_;  ///< the triangles about each point
  std::vector<std::array<int, 3>> triangles_;
  std::vector<Vector3d> areas_;
  std::map<Ends, std::vector<std::size_t>> edges_;
};

struct Corner {
  Point3d point;
  Vector3d normal;
};

bool IsBelow(const Point3d& point) {
  return point.z <= 0;
}

/// The fraction of the way from `a` to `b` at which the plane is. Requires: they are on different sides.
double FractionOnPlane(const Point3d& a, const Point3d& b) {
  return a.z / (a.z - b.z);
}

Point3d Between(const Point3d& a, const Point3d& b, double fraction) {
  return a + Vector3d(a, b) * fraction;
}

Corner Crossing(const Corner& a, const Corner& b) {
  const double fraction = FractionOnPlane(a.point, b.point);
  return {Between(a.point, b.point, fraction), a.normal + (b.normal - a.normal) * fraction};
}

Facet FacetOf(const Corner& a, const Corner& b, const Corner& c) {
  return {{a.point, b.point, c.point}, {a.normal, b.normal, c.normal}};
}

}  // namespace

Surface SurfaceOf(const modeller::Mesh& mesh, const geometry::Matrix& placement) {
  return Maker(mesh, placement).Make();
}

std::vector<Facet> Below(const Facet& facet) {
  std::vector<Corner> left;
  for (std::size_t i = 0; i < 3; ++i) {
    const std::size_t next = (i + 1) % 3;
    const Corner a{facet.corners[i], facet.normals[i]}, b{facet.corners[next], facet.normals[next]};
    if (IsBelow(a.point)) left.push_back(a);
    if (IsBelow(a.point) != IsBelow(b.point)) left.push_back(Crossing(a, b));
  }
  std::vector<Facet> facets;
  for (std::size_t i = 2; i < left.size(); ++i) facets.push_back(FacetOf(left[0], left[i - 1], left[i]));
  return facets;
}

std::optional<Stroke> Below(const Stroke& stroke) {
  const bool fromIs = IsBelow(stroke.from), toIs = IsBelow(stroke.to);
  if (fromIs && toIs) return stroke;
  if (!fromIs && !toIs) return std::nullopt;
  const Point3d cut = Between(stroke.from, stroke.to, FractionOnPlane(stroke.from, stroke.to));
  return fromIs ? Stroke{stroke.from, cut} : Stroke{cut, stroke.to};
}

std::optional<Stroke> CutOf(const Facet& facet) {
  std::vector<Point3d> ends;
  for (std::size_t i = 0; i < 3; ++i) {
    const Point3d &a = facet.corners[i], &b = facet.corners[(i + 1) % 3];
    if (IsBelow(a) != IsBelow(b)) ends.push_back(Between(a, b, FractionOnPlane(a, b)));
  }
  if (ends.size() != 2) return std::nullopt;
  return Stroke{ends[0], ends[1]};
}

}  // namespace vanzet::scene

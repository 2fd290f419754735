#include "scene/surface.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>
#include <tuple>

#include "scene/vectors.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using geometry::Vector3d;

constexpr double kSmooth = 0.8660254037844386;  // cosine of 30 degrees: an edge that turns less is smooth

constexpr std::size_t kMostAround = 1000;  // triangles about a point whose directions are compared
constexpr std::size_t kGroup = 64;         // facets

/// The numbers from 0 on, in the order that `isBefore` gives them.
template <class IsBefore>
std::vector<std::uint32_t> SortNumbers(std::size_t count, IsBefore isBefore) {
  std::vector<std::uint32_t> numbers(count);
  std::iota(numbers.begin(), numbers.end(), 0U);
  std::ranges::sort(numbers, isBefore);
  return numbers;
}

/// Spreads ten bits so that two more fit between each and the next.
std::uint32_t SpreadBits(std::uint32_t bits) {
  bits = (bits | bits << 16) & 0x030000FF;
  bits = (bits | bits << 8) & 0x0300F00F;
  bits = (bits | bits << 4) & 0x030C30C3;
  return (bits | bits << 2) & 0x09249249;
}

/// A number on a curve through a box that keeps what is close together (Z-order).
std::uint32_t PlaceOnCurve(const Point3d& point, const geometry::Box3d& box) {
  const auto part = [](double value, double low, double high) {
    const double share = high > low ? (value - low) / (high - low) : 0;
    return SpreadBits(static_cast<std::uint32_t>(std::clamp(share, 0.0, 1.0) * 1023));
  };
  return part(point.x, box.min.x, box.max.x) | part(point.y, box.min.y, box.max.y) << 1 |
         part(point.z, box.min.z, box.max.z) << 2;
}

class Maker {
 public:
  Maker(const modeller::Mesh& mesh, const geometry::Matrix& placement) {
    JoinPoints(mesh, placement);
    for (const auto& corners : mesh.triangles) Add(corners);
    Arrange();
    for (const Facet& triangle : triangles_) {
      areas_.push_back(AreaOf(triangle));
      units_.push_back(UnitVector(areas_.back()));
    }
  }

  Surface Make() {
    Surface surface;
    AddFacets(surface);
    AddEdges(surface);
    GroupFacets(surface);
    return surface;
  }

 private:
  /// A side of a triangle, from the point with the lower number.
  struct Side {
    std::uint32_t from, to, triangle;
    bool isReverse;
  };

  void JoinPoints(const modeller::Mesh& mesh, const geometry::Matrix& placement) {
    std::vector<Point3d> placed;
    placed.reserve(mesh.points.size());
    for (const Point3d& point : mesh.points) placed.push_back(placement.Transform(point));
    const auto key = [&](std::uint32_t i) { return std::tie(placed[i].x, placed[i].y, placed[i].z); };
    numbers_.resize(placed.size());
    const auto order = SortNumbers(placed.size(), [&](auto a, auto b) { return key(a) < key(b); });
    for (std::size_t i = 0; i < order.size(); ++i) {
      if (i == 0 || key(order[i - 1]) < key(order[i])) points_.push_back(placed[order[i]]);
      numbers_[order[i]] = static_cast<std::uint32_t>(points_.size() - 1);
    }
  }

  Vector3d AreaOf(const Facet& triangle) const {
    const Point3d& first = points_[triangle[0]];
    return Cross(Vector3d(first, points_[triangle[1]]), Vector3d(first, points_[triangle[2]]));
  }

  void Add(const std::array<int, 3>& corners) {
    Facet triangle{};
    for (std::size_t i = 0; i < 3; ++i) triangle[i] = numbers_[static_cast<std::size_t>(corners[i])];
    if (AreaOf(triangle).Magnitude() > 0) triangles_.push_back(triangle);
  }

  /// Triangles that are close to each other follow each other, so that groups are small.
  void Arrange() {
    geometry::Box3d box;
    for (const Point3d& point : points_) box.Insert(point);
    std::vector<std::uint32_t> places;
    for (const Facet& t : triangles_) {
      const Vector3d sum = Vector3d(Point3d(0, 0, 0), points_[t[0]]) +
                           Vector3d(Point3d(0, 0, 0), points_[t[1]]) +
                           Vector3d(Point3d(0, 0, 0), points_[t[2]]);
      places.push_back(PlaceOnCurve({sum.dx / 3, sum.dy / 3, sum.dz / 3}, box));
    }
    const auto key = [&](std::uint32_t i) { return std::pair(places[i], i); };
    std::vector<Facet> arranged;
    arranged.reserve(triangles_.size());
    for (const std::uint32_t i :
         SortNumbers(triangles_.size(), [&](auto a, auto b) { return key(a) < key(b); }))
      arranged.push_back(triangles_[i]);
    triangles_ = std::move(arranged);
  }

  /// The corners about each point: triangle times 3, and which of its corners. Those of point `i` begin at
  /// `begin[i]`.
  struct Around {
    std::vector<std::uint32_t> begin, corners;
  };
  Around CornersAround() const {
    Around around{std::vector<std::uint32_t>(points_.size() + 1), {}};
    for (const Facet& triangle : triangles_) {
      for (const std::uint32_t point : triangle) ++around.begin[point + 1];
    }
    std::partial_sum(around.begin.begin(), around.begin.end(), around.begin.begin());
    around.corners.resize(3 * triangles_.size());
    std::vector<std::uint32_t> next = around.begin;
    for (std::uint32_t corner = 0; corner < around.corners.size(); ++corner)
      around.corners[next[triangles_[corner / 3][corner % 3]]++] = corner;
    return around;
  }

  /// The normal of a triangle's corner: that of its smooth neighbours, weighted by their areas.
  PackedVector Smoothed(std::uint32_t corner, std::span<const std::uint32_t> around) const {
    const Vector3d& own = units_[corner / 3];
    if (around.size() > kMostAround) return PackVector(own);
    Vector3d sum;
    for (const std::uint32_t other : around) {
      if (Dot(own, units_[other / 3]) >= kSmooth) sum = sum + areas_[other / 3];
    }
    return PackVector(UnitVector(sum));
  }

  /// Corners at one point with the same normal are one point of the surface. Points are numbered as the
  /// facets need them, so that what is drawn together is together in memory.
  void AddFacets(Surface& surface) {
    const Around around = CornersAround();
    std::vector<PackedVector> normals(3 * triangles_.size());
    std::vector<std::uint32_t> leaders(3 * triangles_.size());  // the first corner with the same normal
    for (std::size_t point = 0; point < points_.size(); ++point) {
      const std::span<const std::uint32_t> here(around.corners.data() + around.begin[point],
                                                around.begin[point + 1] - around.begin[point]);
      std::vector<std::pair<PackedVector, std::uint32_t>> found;
      for (const std::uint32_t corner : here) found.emplace_back(Smoothed(corner, here), corner);
      std::ranges::sort(found);
      std::uint32_t leader = 0;
      for (std::size_t i = 0; i < found.size(); ++i) {
        if (i == 0 || found[i].first != found[i - 1].first) leader = found[i].second;
        normals[found[i].second] = found[i].first;
        leaders[found[i].second] = leader;
      }
    }
    surface.facets.resize(triangles_.size());
    places_.assign(points_.size(), 0);
    for (std::uint32_t corner = 0; corner < leaders.size(); ++corner) {
      std::uint32_t& number = surface.facets[corner / 3][corner % 3];
      const std::uint32_t point = triangles_[corner / 3][corner % 3];
      if (leaders[corner] == corner) {
        const Point3d& p = points_[point];
        number = static_cast<std::uint32_t>(surface.points.size());
        surface.points.push_back(
            {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z), normals[corner]});
      } else {
        number = surface.facets[leaders[corner] / 3][leaders[corner] % 3];
      }
      places_[point] = number;
    }
    surface.points.shrink_to_fit();
  }

  std::vector<Side> Sides() const {
    std::vector<Side> sides;
    sides.reserve(3 * triangles_.size());
    for (std::uint32_t t = 0; t < triangles_.size(); ++t) {
      for (std::size_t i = 0; i < 3; ++i) {
        const std::uint32_t a = triangles_[t][i], b = triangles_[t][(i + 1) % 3];
        sides.push_back({std::min(a, b), std::max(a, b), t, a > b});
      }
    }
    std::ranges::sort(sides, [](const Side& a, const Side& b) {
      return std::tie(a.from, a.to, a.triangle) < std::tie(b.from, b.to, b.triangle);
    });
    return sides;
  }

  void AddEdges(Surface& surface) const {
    const std::vector<Side> sides = Sides();
    std::vector<SurfaceEdge> smooth;
    bool isClosed = true;
    for (auto first = sides.begin(); first != sides.end();) {
      const auto last = std::find_if(first, sides.end(), [&](const Side& side) {
        return side.from != first->from || side.to != first->to;
      });
      const bool isPair = last - first == 2;
      isClosed = isClosed && isPair && first->isReverse != (last - 1)->isReverse;
      const Vector3d &left = units_[first->triangle], &right = units_[(last - 1)->triangle];
      const SurfaceEdge edge = {places_[first->from], places_[first->to], PackVector(left),
                                PackVector(right)};
      if (!isPair || Dot(left, right) < kSmooth) {
        surface.edges.push_back(edge);
      } else if (edge.left != edge.right) {
        smooth.push_back(edge);
      }
      first = last;
    }
    surface.sharpEdges = surface.edges.size();
    surface.edges.insert(surface.edges.end(), smooth.begin(), smooth.end());
    surface.edges.shrink_to_fit();
    surface.isClosed = isClosed && Volume() > 0;
  }

  /// Six times the volume; negative when the facets face inwards.
  double Volume() const {
    double volume = 0;
    for (std::size_t t = 0; t < triangles_.size(); ++t)
      volume += Dot(Vector3d(points_[0], points_[triangles_[t][0]]), areas_[t]);
    return volume;
  }

  std::vector<std::uint32_t> numbers_;  ///< of the mesh's points in `points_`
  std::vector<Point3d> points_;
  std::vector<Facet> triangles_;
  std::vector<Vector3d> areas_, units_;
  std::vector<std::uint32_t> places_;  ///< a point of the surface at each of `points_`
};

}  // namespace

PackedVector PackVector(const Vector3d& unit) {
  const auto part = [](double value) {
    const double rounded = std::round(std::clamp(value, -1.0, 1.0) * 511);
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(rounded)) & 1023U;
  };
  return part(unit.dx) | part(unit.dy) << 10 | part(unit.dz) << 20;
}

Surface SurfaceOf(const modeller::Mesh& mesh, const geometry::Matrix& placement) {
  return Maker(mesh, placement).Make();
}

void GroupFacets(Surface& surface) {
  surface.groups.clear();
  for (std::size_t first = 0; first < surface.facets.size(); first += kGroup) {
    const std::size_t count = std::min(kGroup, surface.facets.size() - first);
    FacetGroup group{static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(count), {}};
    for (std::size_t i = first; i < first + count; ++i) {
      for (const std::uint32_t point : surface.facets[i]) group.box.Insert(surface.points[point].Place());
    }
    surface.groups.push_back(group);
  }
}

}  // namespace vanzet::scene

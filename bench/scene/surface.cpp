#include "scene/surface.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>
#include <tuple>
#include <utility>

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

/// Makes a surface of a mesh. What can be computed again is not kept: of a body with a million facets each
/// list is some ten megabytes.
class Maker {
 public:
  Maker(modeller::Mesh mesh, const geometry::Matrix& placement) {
    const std::vector<std::uint32_t> numbers = JoinPoints(std::move(mesh.points), placement);
    triangles_.reserve(mesh.triangles.size());
    for (const auto& corners : mesh.triangles) Add(corners, numbers);
    mesh = {};
    Arrange();
    FindCorners();
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
    std::uint32_t to, triangle;
    bool isReverse;
  };

  /// Where sides of triangles meet.
  struct Edge {
    SurfaceEdge edge;
    bool isSharp;
    bool isClosed;  ///< two triangles meet, in opposite directions
  };

  /// The areas of the triangles about a point as vectors, and their units.
  struct Directions {
    std::vector<Vector3d> areas, units;
  };

  /// Returns the numbers that the points of the mesh have in `points_`.
  std::vector<std::uint32_t> JoinPoints(std::vector<Point3d> placed, const geometry::Matrix& placement) {
    for (Point3d& point : placed) point = placement.Transform(point);
    const auto key = [&](std::uint32_t i) { return std::tie(placed[i].x, placed[i].y, placed[i].z); };
    std::vector<std::uint32_t> numbers(placed.size());
    const auto order = SortNumbers(placed.size(), [&](auto a, auto b) { return key(a) < key(b); });
    points_.reserve(placed.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
      if (i == 0 || key(order[i - 1]) < key(order[i])) points_.push_back(placed[order[i]]);
      numbers[order[i]] = static_cast<std::uint32_t>(points_.size() - 1);
    }
    return numbers;
  }

  Vector3d AreaOf(const Facet& triangle) const {
    const Point3d& first = points_[triangle[0]];
    return Cross(Vector3d(first, points_[triangle[1]]), Vector3d(first, points_[triangle[2]]));
  }

  void Add(const std::array<int, 3>& corners, const std::vector<std::uint32_t>& numbers) {
    Facet triangle{};
    for (std::size_t i = 0; i < 3; ++i) triangle[i] = numbers[static_cast<std::size_t>(corners[i])];
    if (AreaOf(triangle).Magnitude() > 0) triangles_.push_back(triangle);
  }

  /// Triangles that are close to each other follow each other, so that groups are small.
  void Arrange() {
    geometry::Box3d box;
    for (const Point3d& point : points_) box.Insert(point);
    std::vector<std::uint32_t> places;
    places.reserve(triangles_.size());
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

  void FindCorners() {
    begin_.resize(points_.size() + 1);
    for (const Facet& triangle : triangles_) {
      for (const std::uint32_t point : triangle) ++begin_[point + 1];
    }
    std::partial_sum(begin_.begin(), begin_.end(), begin_.begin());
    corners_.resize(3 * triangles_.size());
    std::vector<std::uint32_t> next = begin_;
    for (std::uint32_t corner = 0; corner < corners_.size(); ++corner)
      corners_[next[PointAt(corner)]++] = corner;
  }

  /// The point of the corner `corner % 3` of the triangle `corner / 3`.
  std::uint32_t PointAt(std::uint32_t corner) const { return triangles_[corner / 3][corner % 3]; }

  std::span<const std::uint32_t> CornersAround(std::uint32_t point) const {
    return {corners_.data() + begin_[point], begin_[point + 1] - begin_[point]};
  }

  Vector3d UnitOf(std::uint32_t triangle) const { return UnitVector(AreaOf(triangles_[triangle])); }

  void Collect(std::span<const std::uint32_t> corners, Directions& directions) const {
    directions.areas.clear();
    directions.units.clear();
    for (const std::uint32_t corner : corners) {
      directions.areas.push_back(AreaOf(triangles_[corner / 3]));
      directions.units.push_back(UnitVector(directions.areas.back()));
    }
  }

  /// The normal of a triangle's corner: that of its smooth neighbours, weighted by their areas.
  static PackedVector Smoothed(const Directions& directions, std::size_t which) {
    const Vector3d& own = directions.units[which];
    if (directions.units.size() > kMostAround) return PackVector(own);
    Vector3d sum;
    for (std::size_t other = 0; other < directions.units.size(); ++other) {
      if (Dot(own, directions.units[other]) >= kSmooth) sum = sum + directions.areas[other];
    }
    return PackVector(UnitVector(sum));
  }

  /// The normal of each corner and the first corner at its point that has the same.
  struct Normals {
    std::vector<PackedVector> normals;
    std::vector<std::uint32_t> leaders;
  };
  Normals FindNormals() const {
    Normals all{std::vector<PackedVector>(corners_.size()), std::vector<std::uint32_t>(corners_.size())};
    Directions directions;
    std::vector<std::pair<PackedVector, std::uint32_t>> found;
    for (std::uint32_t point = 0; point < points_.size(); ++point) {
      const auto here = CornersAround(point);
      Collect(here, directions);
      found.clear();
      for (std::size_t i = 0; i < here.size(); ++i) found.emplace_back(Smoothed(directions, i), here[i]);
      std::ranges::sort(found);
      std::uint32_t leader = 0;
      for (std::size_t i = 0; i < found.size(); ++i) {
        if (i == 0 || found[i].first != found[i - 1].first) leader = found[i].second;
        all.normals[found[i].second] = found[i].first;
        all.leaders[found[i].second] = leader;
      }
    }
    return all;
  }

  /// Corners at one point with the same normal are one point of the surface. Points are numbered as the
  /// facets need them, so that what is drawn together is together in memory.
  void AddFacets(Surface& surface) {
    const Normals all = FindNormals();
    std::size_t leaders = 0;
    for (std::uint32_t corner = 0; corner < corners_.size(); ++corner) {
      if (all.leaders[corner] == corner) ++leaders;
    }
    surface.points.reserve(leaders);
    surface.facets.resize(triangles_.size());
    places_.assign(points_.size(), 0);
    for (std::uint32_t corner = 0; corner < corners_.size(); ++corner) {
      const std::uint32_t leader = all.leaders[corner];
      std::uint32_t& number = surface.facets[corner / 3][corner % 3];
      number = surface.facets[leader / 3][leader % 3];
      if (leader == corner) number = AddPoint(surface, points_[PointAt(corner)], all.normals[corner]);
      places_[PointAt(corner)] = number;
    }
  }

  static std::uint32_t AddPoint(Surface& surface, const Point3d& p, PackedVector normal) {
    surface.points.push_back(
        {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z), normal});
    return static_cast<std::uint32_t>(surface.points.size() - 1);
  }

  /// The sides that lead from a point to those with a higher number, one beside the other where they meet.
  void FindSides(std::uint32_t from, std::vector<Side>& sides) const {
    sides.clear();
    for (const std::uint32_t corner : CornersAround(from)) {
      const Facet& triangle = triangles_[corner / 3];
      const std::uint32_t next = triangle[(corner + 1) % 3], last = triangle[(corner + 2) % 3];
      if (next > from) sides.push_back({next, corner / 3, false});
      if (last > from) sides.push_back({last, corner / 3, true});
    }
    std::ranges::sort(sides, [](const Side& a, const Side& b) {
      return std::tie(a.to, a.triangle) < std::tie(b.to, b.triangle);
    });
  }

  Edge EdgeOf(std::uint32_t from, std::span<const Side> sides) const {
    const bool isPair = sides.size() == 2;
    const Vector3d left = UnitOf(sides.front().triangle), right = UnitOf(sides.back().triangle);
    return {{places_[from], places_[sides.front().to], PackVector(left), PackVector(right)},
            !isPair || Dot(left, right) < kSmooth,
            isPair && sides.front().isReverse != sides.back().isReverse};
  }

  template <class Visit>
  void VisitEdges(Visit visit) const {
    std::vector<Side> sides;
    for (std::uint32_t from = 0; from < points_.size(); ++from) {
      FindSides(from, sides);
      for (auto first = sides.begin(); first != sides.end();) {
        const auto last =
            std::find_if(first, sides.end(), [&](const Side& side) { return side.to != first->to; });
        visit(EdgeOf(from, {first, last}));
        first = last;
      }
    }
  }

  /// Counts first: a list that grows takes twice its memory.
  void AddEdges(Surface& surface) const {
    std::size_t smooth = 0;
    bool isClosed = true;
    const auto isBent = [](const Edge& edge) { return !edge.isSharp && edge.edge.left != edge.edge.right; };
    VisitEdges([&](const Edge& edge) {
      isClosed = isClosed && edge.isClosed;
      if (edge.isSharp) ++surface.sharpEdges;
      if (isBent(edge)) ++smooth;
    });
    surface.edges.resize(surface.sharpEdges + smooth);
    auto nextSharp = surface.edges.begin(), nextSmooth = nextSharp + std::ptrdiff_t(surface.sharpEdges);
    VisitEdges([&](const Edge& edge) {
      if (edge.isSharp) *nextSharp++ = edge.edge;
      if (isBent(edge)) *nextSmooth++ = edge.edge;
    });
    surface.isClosed = isClosed && Volume() > 0;
  }

  /// Six times the volume; negative when the facets face inwards.
  double Volume() const {
    double volume = 0;
    for (const Facet& triangle : triangles_)
      volume += Dot(Vector3d(points_[0], points_[triangle[0]]), AreaOf(triangle));
    return volume;
  }

  std::vector<Point3d> points_;
  std::vector<Facet> triangles_;
  std::vector<std::uint32_t> begin_, corners_;  ///< the corners about point i are from `begin_[i]` on
  std::vector<std::uint32_t> places_;           ///< a point of the surface at each of `points_`
};

}  // namespace

PackedVector PackVector(const Vector3d& unit) {
  const auto part = [](double value) {
    const double rounded = std::round(std::clamp(value, -1.0, 1.0) * 511);
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(rounded)) & 1023U;
  };
  return part(unit.dx) | part(unit.dy) << 10 | part(unit.dz) << 20;
}

Surface SurfaceOf(modeller::Mesh mesh, const geometry::Matrix& placement) {
  return Maker(std::move(mesh), placement).Make();
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

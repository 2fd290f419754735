#include "scene/coarse.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using geometry::Vector3d;

constexpr double kFacetsOfCell = 3;  // that a plane at any angle has, more or less
constexpr double kSharp = 1000;      // the weight of a point at a sharp edge among the others of its cell
constexpr double kLarger = 1.3;      // the next cells, where there were still too many facets
constexpr int kCellBits = 21;        // of a cell's place along an axis

double AreaOf(const Surface& surface) {
  double area = 0;
  for (const Facet& facet : surface.facets) {
    const Point3d first = surface.points[facet[0]].Place();
    const Vector3d to(first, surface.points[facet[1]].Place()), on(first, surface.points[facet[2]].Place());
    area += Cross(to, on).Magnitude() / 2;
  }
  return area;
}

/// The points of a surface in cells of a size: one point for each.
class Cells {
 public:
  Cells(const Surface& surface, double size) : surface_(surface), size_(size) {
    for (const FacetGroup& group : surface.groups) box_.Insert(group.box);
    std::vector<std::uint64_t> keys;
    keys.reserve(surface.points.size());
    for (const SurfacePoint& point : surface.points) keys.push_back(KeyOf(point));
    Number(keys);
    Place();
  }

  modeller::Mesh Make() && {
    for (const Facet& facet : surface_.facets) {
      const auto cell = [&](std::size_t corner) { return static_cast<int>(cells_[facet[corner]]); };
      const std::array<int, 3> corners = {cell(0), cell(1), cell(2)};
      const bool isFlat = corners[0] == corners[1] || corners[1] == corners[2] || corners[2] == corners[0];
      if (!isFlat) mesh_.triangles.push_back(corners);
    }
    return std::move(mesh_);
  }

 private:
  std::uint64_t KeyOf(const SurfacePoint& point) const {
    const auto part = [&](double value, double low) {
      return static_cast<std::uint64_t>(std::max(0.0, (value - low) / size_));
    };
    return part(point.x, box_.min.x) << (2 * kCellBits) | part(point.y, box_.min.y) << kCellBits |
           part(point.z, box_.min.z);
  }

  void Number(const std::vector<std::uint64_t>& keys) {
    std::vector<std::uint32_t> order(keys.size());
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::sort(order, [&](auto a, auto b) { return keys[a] < keys[b]; });
    cells_.resize(keys.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
      if (i > 0 && keys[order[i - 1]] != keys[order[i]]) ++count_;
      cells_[order[i]] = count_;
    }
    if (!keys.empty()) ++count_;
  }

  /// The mean of a cell's points; where a sharp edge goes through it, of those at the edge.
  void Place() {
    std::vector<float> weights(surface_.points.size(), 1);
    for (std::size_t i = 0; i < surface_.sharpEdges; ++i)
      weights[surface_.edges[i].from] = weights[surface_.edges[i].to] = kSharp;
    std::vector<double> sums(count_);
    mesh_.points.assign(count_, Point3d(0, 0, 0));
    for (std::size_t i = 0; i < weights.size(); ++i) {
      const SurfacePoint& p = surface_.points[i];
      Point3d& sum = mesh_.points[cells_[i]];
      sum = Point3d(sum.x + weights[i] * p.x, sum.y + weights[i] * p.y, sum.z + weights[i] * p.z);
      sums[cells_[i]] += weights[i];
    }
    for (std::uint32_t i = 0; i < count_; ++i) {
      const Point3d& sum = mesh_.points[i];
      mesh_.points[i] = Point3d(sum.x / sums[i], sum.y / sums[i], sum.z / sums[i]);
    }
  }

  const Surface& surface_;
  double size_;
  geometry::Box3d box_;
  std::vector<std::uint32_t> cells_;  ///< of each point
  std::uint32_t count_ = 0;
  modeller::Mesh mesh_;
};

/// The least size of cells whose places along an axis fit into their bits; not 0.
double LeastSize(const Surface& surface) {
  geometry::Box3d box;
  for (const FacetGroup& group : surface.groups) box.Insert(group.box);
  return std::max(Dist(box.min, box.max) / ((1 << kCellBits) - 1), 1e-6);
}

}  // namespace

Surface CoarseSurface(const Surface& surface, std::size_t most) {
  if (surface.facets.size() <= most) return surface;
  const double wanted = static_cast<double>(std::max<std::size_t>(most, 1));
  double size = std::max(std::sqrt(kFacetsOfCell * AreaOf(surface) / wanted), LeastSize(surface));
  for (;; size *= kLarger) {
    modeller::Mesh mesh = Cells(surface, size).Make();
    if (mesh.triangles.size() > most) continue;
    Surface coarse = SurfaceOf(std::move(mesh), geometry::Matrix());
    // Large facets meet at larger angles: more sharp edges than the body has are none of its own.
    if (coarse.sharpEdges > surface.sharpEdges) coarse.sharpEdges = 0;
    return coarse;
  }
}

std::size_t CountFacets(const Model& model) {
  return std::accumulate(
      model.bodies.begin(), model.bodies.end(), std::size_t{0},
      [](std::size_t count, const ModelBody& body) { return count + body.surface.facets.size(); });
}

namespace {

/// The facets that each body may have so that all together have `most`: what small bodies leave is for the
/// large ones.
std::size_t MostOfBody(const Model& model, std::size_t most) {
  std::vector<std::size_t> counts;
  for (const ModelBody& body : model.bodies) counts.push_back(body.surface.facets.size());
  std::ranges::sort(counts);
  std::size_t ofBody = most;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    ofBody = most / (counts.size() - i);
    if (counts[i] > ofBody) break;
    most -= counts[i];
  }
  return ofBody;
}

}  // namespace

Model CoarseModel(const Model& whole, std::size_t most) {
  const std::size_t ofBody = MostOfBody(whole, most);
  Model coarse{{}, whole.marks, whole.section, whole.missing};
  for (const ModelBody& body : whole.bodies) {
    coarse.bodies.push_back({body.name, body.solid, CoarseSurface(body.surface, ofBody), body.cuts,
                             body.colour, body.isSeenThrough});
  }
  return coarse;
}

}  // namespace vanzet::scene

#include "scene/plane_cut.h"

#include <algorithm>

#include "scene/vectors.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using geometry::Vector3d;

constexpr std::uint32_t kTakenAway = 0xFFFFFFFF;

class Cutter {
 public:
  Cutter(const Surface& surface, const Plane& plane) : surface_(surface) {
    for (const SurfacePoint& point : surface.points) heights_.push_back(plane.Height(point.Place()));
  }

  PlaneCut Make() {
    KeepPoints();
    for (const Facet& facet : surface_.facets) CutFacet(facet);
    CutEdges();
    GroupFacets(cut_.left);
    cut_.left.isClosed = surface_.isClosed && cut_.left.points.size() == surface_.points.size();
    return std::move(cut_);
  }

 private:
  bool IsLeft(std::uint32_t point) const { return heights_[point] <= 0; }

  void KeepPoints() {
    numbers_.assign(surface_.points.size(), kTakenAway);
    for (std::uint32_t i = 0; i < numbers_.size(); ++i) {
      if (IsLeft(i)) numbers_[i] = AddPoint(surface_.points[i]);
    }
  }

  std::uint32_t AddPoint(const SurfacePoint& point) {
    cut_.left.points.push_back(point);
    return static_cast<std::uint32_t>(cut_.left.points.size() - 1);
  }

  /// The point where the plane is between two points on different sides.
  std::uint32_t AddCrossing(std::uint32_t a, std::uint32_t b) {
    const double fraction = heights_[a] / (heights_[a] - heights_[b]);
    const SurfacePoint &p = surface_.points[a], &q = surface_.points[b];
    const Point3d at = p.Place() + Vector3d(p.Place(), q.Place()) * fraction;
    const Vector3d from = UnpackVector(p.normal), way = UnpackVector(q.normal) - from;
    return AddPoint({static_cast<float>(at.x), static_cast<float>(at.y), static_cast<float>(at.z),
                     PackVector(UnitVector(from + way * fraction))});
  }

  void CutFacet(const Facet& facet) {
    std::vector<std::uint32_t>& corners = corners_;
    corners.clear();
    std::vector<std::uint32_t>& crossings = crossings_;
    crossings.clear();
    for (std::size_t i = 0; i < 3; ++i) {
      const std::uint32_t a = facet[i], b = facet[(i + 1) % 3];
      if (IsLeft(a)) corners.push_back(numbers_[a]);
      if (IsLeft(a) == IsLeft(b)) continue;
      corners.push_back(AddCrossing(a, b));
      crossings.push_back(corners.back());
    }
    for (std::size_t i = 2; i < corners.size(); ++i)
      cut_.left.facets.push_back({corners[0], corners[i - 1], corners[i]});
    if (crossings.size() != 2) return;
    const auto place = [&](std::uint32_t point) { return cut_.left.points[point].Place(); };
    cut_.strokes.push_back({place(crossings[0]), place(crossings[1])});
  }

  void CutEdges() {
    for (std::size_t i = 0; i < surface_.edges.size(); ++i) {
      if (i == surface_.sharpEdges) cut_.left.sharpEdges = cut_.left.edges.size();
      SurfaceEdge edge = surface_.edges[i];
      const std::uint32_t from = edge.from, to = edge.to;
      if (!IsLeft(from) && !IsLeft(to)) continue;
      edge.from = IsLeft(from) ? numbers_[from] : AddCrossing(from, to);
      edge.to = IsLeft(to) ? numbers_[to] : AddCrossing(from, to);
      cut_.left.edges.push_back(edge);
    }
    if (surface_.sharpEdges == surface_.edges.size()) cut_.left.sharpEdges = cut_.left.edges.size();
  }

  const Surface& surface_;
  std::vector<double> heights_;
  std::vector<std::uint32_t> numbers_;              ///< of the points in the cut
  std::vector<std::uint32_t> corners_, crossings_;  ///< of the facet that is being cut
  PlaneCut cut_;
};

}  // namespace

PlaneCut CutByPlane(const Surface& surface, const Plane& plane) {
  return Cutter(surface, plane).Make();
}

}  // namespace vanzet::scene

#include "section/cut.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "geometry/box.h"

namespace vanzet::section {
namespace {

using geometry::KurveEx;
using geometry::Point;
using geometry::Point3d;
using geometry::Region;

constexpr double kSteps = 1e6;      // a millimetre: points closer than that are one
constexpr double kStraight = 1e-6;  // millimetres: how far a point may be from the line of its neighbours
constexpr double kBeyond = 1;       // millimetres by which the upper half is larger than the body

/// The two points of a mesh between which the plane passes.
using Crossing = std::pair<std::size_t, std::size_t>;

/// The facets that the plane cuts, as a chain of crossings: each facet leads from one to the next, with the
/// body on its left.
class MeshCut {
 public:
  MeshCut(const modeller::Mesh& mesh, const geometry::Matrix& placement) {
    std::vector<bool> above(mesh.points.size()), isNeeded(mesh.points.size());
    for (std::size_t i = 0; i < above.size(); ++i) above[i] = Key(placement.Transform(mesh.points[i]).z) >= 0;
    const auto isCut = [&](const std::array<int, 3>& triangle) {
      const auto isAbove = [&](std::size_t i) { return above[static_cast<std::size_t>(triangle[i])]; };
      return isAbove(0) != isAbove(1) || isAbove(1) != isAbove(2);
    };
    for (const auto& triangle : mesh.triangles) {
      if (!isCut(triangle)) continue;
      for (const int corner : triangle) isNeeded[static_cast<std::size_t>(corner)] = true;
    }
    indices_.resize(mesh.points.size());
    for (std::size_t i = 0; i < indices_.size(); ++i) {
      if (isNeeded[i]) indices_[i] = AddPoint(placement.Transform(mesh.points[i]));
    }
    for (const auto& triangle : mesh.triangles) {
      if (isCut(triangle)) AddTriangle(triangle);
    }
  }

  Region Make() {
    std::vector<KurveEx> loops, open;
    while (!steps_.empty()) {
      KurveEx chain = NextChain();
      if (chain.SpanCount() == 0) continue;
      const bool isClosed = chain.spans.size() > 1 && chain.Start() == chain.End();
      if (isClosed) chain.Reduce(kStraight);
      (isClosed ? loops : open).push_back(std::move(chain));
    }
    Region region = geometry::Clean(loops, geometry::FillRule::NonZero);
    for (const KurveEx& chain : open) AddLoose(chain, region);
    return region;
  }

 private:
  static std::int64_t Key(double value) { return std::llround(value * kSteps); }

  /// Returns its number.
  std::size_t AddPoint(const Point3d& point) {
    const std::array<std::int64_t, 3> key = {Key(point.x), Key(point.y), Key(point.z)};
    const auto [found, isNew] = numbers_.try_emplace(key, points_.size());
    // A point on the plane counts as above it: the plane never passes through a point.
    if (isNew) points_.emplace_back(point.x, point.y, key[2] == 0 ? 0 : point.z);
    return found->second;
  }

  void AddTriangle(const std::array<int, 3>& triangle) {
    std::optional<Crossing> down, up;
    for (std::size_t i = 0; i < 3; ++i) {
      const std::size_t from = indices_[static_cast<std::size_t>(triangle[i])];
      const std::size_t to = indices_[static_cast<std::size_t>(triangle[(i + 1) % 3])];
      if (IsAbove(from) && !IsAbove(to)) down = Crossing(from, to);
      if (!IsAbove(from) && IsAbove(to)) up = Crossing(to, from);
    }
    if (down && up) steps_.emplace(*down, *up);
  }

  bool IsAbove(std::size_t point) const { return points_[point].z >= 0; }

  Point At(const Crossing& crossing) const {
    const Point3d &above = points_[crossing.first], &below = points_[crossing.second];
    const double part = above.z / (above.z - below.z);
    return {above.x + (below.x - above.x) * part, above.y + (below.y - above.y) * part};
  }

  KurveEx NextChain() {
    // Begin at an open end where there is one.
    auto step = std::ranges::find_if(steps_, [&](const auto& each) { return !IsReached(each.first); });
    if (step == steps_.end()) step = steps_.begin();
    KurveEx chain;
    chain.Start(At(step->first));
    while (step != steps_.end()) {
      const Crossing next = step->second;
      steps_.erase(step);
      chain.Add(geometry::LINEAR, At(next), Point(0, 0), false);
      step = steps_.find(next);
    }
    return chain;
  }

  bool IsReached(const Crossing& crossing) {
    if (reached_.empty()) {
      for (const auto& [from, to] : steps_) reached_.insert(to);
    }
    return reached_.contains(crossing);
  }

  static void AddLoose(const KurveEx& chain, Region& region) {
    for (const geometry::Span& span : chain.spans) {
      region.loose.push_back({.dir = geometry::LINEAR, .p0 = span.p0, .p1 = span.p1, .pc = {}});
    }
  }

  std::map<std::array<std::int64_t, 3>, std::size_t> numbers_;
  std::vector<Point3d> points_;
  std::vector<std::size_t> indices_;  ///< of the points of the mesh that are needed among those that differ
  std::multimap<Crossing, Crossing> steps_;
  std::set<Crossing> reached_;
};

void InsertPoints(const std::vector<geometry::RegionSpan>& spans, geometry::Box& box) {
  for (const geometry::RegionSpan& span : spans) {
    const double reach = span.Radius();
    for (const Point& point : {span.p0, span.p1}) {
      box.Insert({point.x - reach, point.y - reach});
      box.Insert({point.x + reach, point.y + reach});
    }
  }
}

/// The part of a region above the axis.
Region UpperHalf(const Region& whole) {
  geometry::Box box;
  for (const geometry::RegionLoop& loop : whole.loops) InsertPoints(loop.spans, box);
  if (whole.loops.empty() || box.min.y >= 0) return whole;
  KurveEx half;
  half.Start(Point(box.min.x - kBeyond, 0));
  half.Add(box.max.x + kBeyond, 0);
  half.Add(box.max.x + kBeyond, std::max(box.max.y, 0.0) + kBeyond);
  half.Add(box.min.x - kBeyond, std::max(box.max.y, 0.0) + kBeyond);
  half.Add(box.min.x - kBeyond, 0);
  Region upper = geometry::Intersect(whole, geometry::Clean(half));
  for (const geometry::RegionSpan& span : whole.loose) {
    if (span.p0.y >= 0 && span.p1.y >= 0) upper.loose.push_back(span);
  }
  return upper;
}

}  // namespace

Region CutOf(const modeller::Mesh& mesh, const geometry::Matrix& placement) {
  return UpperHalf(MeshCut(mesh, placement).Make());
}

Region Placed(const Region& profile, const Placing& placing) {
  const auto place = [&](const Point& point) {
    const bool isJaw = placing.kind == scene::Kind::kJaw;
    const Point3d own = isJaw ? Point3d(point.x, 0, point.y) : Point3d(point.x, point.y, 0);
    const Point3d placed = placing.placement.Transform(own);
    return Point(placed.x, placed.y);
  };
  const bool isMirrored = placing.placement.e[0] < 0;
  Region placed;
  for (const geometry::RegionLoop& loop : profile.loops) {
    geometry::RegionLoop& moved = placed.loops.emplace_back();
    for (const geometry::RegionSpan& span : loop.spans) {
      geometry::RegionSpan& each = moved.spans.emplace_back(span);
      each.p0 = place(isMirrored ? span.p1 : span.p0);
      each.p1 = place(isMirrored ? span.p0 : span.p1);
      each.pc = place(span.pc);
    }
    if (isMirrored) std::ranges::reverse(moved.spans);
  }
  return placed;
}

Result<Region> CutOf(const scene::SceneBody& body) {
  if (body.profile) return Placed(*body.profile, {body.kind, body.placement});
  VANZET_TRY(const modeller::Mesh mesh, modeller::MeshOf(body.body, {}));
  return CutOf(mesh, body.placement);
}

}  // namespace vanzet::section

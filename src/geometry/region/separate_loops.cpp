#include "geometry/region/separate_loops.h"

#include <algorithm>
#include <cmath>

#include "geometry/region/loop_parts.h"

namespace geometry::region {
namespace {

/// The parts of loops, compared with each other.
class Comparison {
 public:
  explicit Comparison(LoopParts& parts) : parts_(parts), tree_(parts.TakeBoxes()) {}

  bool AreSeparate() const {
    for (const std::uint32_t i : parts_.DoubtfulJoints()) {
      if (MeetAgain(i, parts_.Next(i))) return false;
    }
    bool isSeparate = true;
    tree_.VisitPairs([&](std::uint32_t i, std::uint32_t j) {
      if (isSeparate && parts_.Next(i) != j && parts_.Next(j) != i) isSeparate = AreApart(i, j);
    });
    return isSeparate;
  }

  /// The winding number of all other loops at a point of the loop.
  int TurnsAround(const LoopParts::Loop& loop) const {
    const Vector2d p = parts_[loop.first].a;
    int turns = 0;
    tree_.VisitBox({p.dx, p.dy, p.dx, parts_.Top()}, [&](std::uint32_t i) {
      const Curve c = parts_[i];
      const bool isOwn = i >= loop.first && i <= loop.last;
      if (isOwn || (c.a.dx <= p.dx) == (c.b.dx <= p.dx) || !PreparedCurve(c, 0).IsAbove(p)) return;
      turns += c.b.dx < c.a.dx ? 1 : -1;
    });
    return turns;
  }

 private:
  bool AreApart(std::uint32_t i, std::uint32_t j) const {
    const PreparedCurve a(parts_[i], parts_.Margin()), b(parts_[j], parts_.Margin());
    for (const Vector2d& end : {a.Shape().a, a.Shape().b}) {
      if (b.Passes(end) || IsAtEnd(end, b.Shape())) return false;
    }
    if (a.Passes(b.Shape().a) || a.Passes(b.Shape().b)) return false;
    Vector2d found[2];
    return a.Meet(b, {}, found) == 0;
  }

  bool IsAtEnd(const Vector2d& p, const Curve& c) const { return IsNear(p, c.a) || IsNear(p, c.b); }
  bool IsNear(const Vector2d& p, const Vector2d& q) const {
    return std::abs(p.dx - q.dx) <= 2 * parts_.Margin() && std::abs(p.dy - q.dy) <= 2 * parts_.Margin();
  }

  /// Whether two parts that follow each other may meet, other than where the first one ends.
  bool MeetAgain(std::uint32_t i, std::uint32_t j) const {
    const PreparedCurve a(parts_[i], parts_.Margin()), b(parts_[j], parts_.Margin());
    const Vector2d common = b.Shape().a;
    if (parts_.Next(j) == i || IsNearlyCusp(a.Shape(), b.Shape())) return true;
    if (a.Passes(b.Shape().b) || b.Passes(a.Shape().a) || IsNear(a.Shape().a, b.Shape().b)) return true;
    Vector2d found[2];
    const int count = a.Meet(b, {false, true}, found);
    return std::any_of(found, found + count, [&](const Vector2d& p) { return !IsNear(p, common); });
  }

  /// Whether the second curve turns back along the first one, or one of them turns within the margin.
  bool IsNearlyCusp(const Curve& a, const Curve& b) const {
    constexpr double kCusp = 1e-6;
    return 1 + Dot(TangentsOf(a).end, TangentsOf(b).start) <= kCusp ||
           std::max(std::abs(a.k), std::abs(b.k)) * parts_.Margin() > kCusp;
  }

  const LoopParts& parts_;
  BoxTree tree_;
};

void SortBySize(std::vector<RegionLoop>& loops) {
  if (loops.size() < 2) return;
  std::vector<std::pair<double, std::size_t>> order;
  for (std::size_t i = 0; i < loops.size(); ++i) order.emplace_back(-std::abs(loops[i].Area()), i);
  std::sort(order.begin(), order.end());
  std::vector<RegionLoop> sorted;
  for (const auto& [area, i] : order) sorted.push_back(std::move(loops[i]));
  loops = std::move(sorted);
}

}  // namespace

std::optional<Region> PositiveLoopsOf(const Sketch& sketch, std::vector<RegionLoop>& loops,
                                      double resolution) {
  LoopParts parts(sketch, resolution);
  for (const RegionLoop& loop : loops) {
    if (!parts.Add(loop)) return std::nullopt;
  }
  const Comparison comparison(parts);
  if (!comparison.AreSeparate()) return std::nullopt;
  Region region;
  for (std::size_t i = 0; i < loops.size(); ++i) {
    const LoopParts::Loop& loop = parts.Loops()[i];
    const int turns = loops.size() > 1 && !loops[i].spans.empty() ? comparison.TurnsAround(loop) : 0;
    const bool isBoundary = turns == (loop.isAnticlockwise ? 0 : 1);
    if (isBoundary && !loops[i].spans.empty()) region.loops.push_back(std::move(loops[i]));
  }
  SortBySize(region.loops);
  return region;
}

}  // namespace geometry::region

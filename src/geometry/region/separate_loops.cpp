#include "geometry/region/separate_loops.h"

#include <algorithm>
#include <cmath>

namespace geometry::region {
namespace {

/// So many pairs of spans that are both known to meet others are passed by, and so many for each part. Where
/// there are more, to compare the rest takes longer than to arrange it.
constexpr std::size_t kMostKnown = 1'000'000, kMostKnownPerPart = 64;

void SortBySize(std::vector<RegionLoop>& loops) {
  if (loops.size() < 2) return;
  std::vector<std::pair<double, std::size_t>> order;
  order.reserve(loops.size());
  for (std::size_t i = 0; i < loops.size(); ++i) order.emplace_back(-std::abs(loops[i].Area()), i);
  std::sort(order.begin(), order.end());
  std::vector<RegionLoop> sorted;
  sorted.reserve(loops.size());
  for (const auto& [area, i] : order) sorted.push_back(std::move(loops[i]));
  loops = std::move(sorted);
}

}  // namespace

SeparateLoops::SeparateLoops(const Sketch& sketch, const std::vector<RegionLoop>& loops, double resolution)
    : parts_(sketch, resolution) {
  std::size_t spans = 0;
  for (const RegionLoop& loop : loops) spans += loop.spans.size();
  parts_.Reserve(spans);
  isSound_ =
      std::all_of(loops.begin(), loops.end(), [&](const RegionLoop& loop) { return parts_.Add(loop); });
  if (!isSound_) return;
  meets_.assign(spans, false);
  Compare();
}

void SeparateLoops::Mark(std::uint32_t part) {
  const std::uint32_t span = parts_.SpanOf(part);
  if (!meets_[span]) ++meetingCount_;
  meets_[span] = true;
}

void SeparateLoops::MarkAll() {
  meets_.assign(meets_.size(), true);
  meetingCount_ = meets_.size();
}

void SeparateLoops::Compare() {
  for (const std::uint32_t i : parts_.DoubtfulJoints()) {
    if (!MeetAgain(i, parts_.Next(i))) continue;
    Mark(i);
    Mark(parts_.Next(i));
  }
  tree_.emplace(parts_.TakeBoxes());
  std::size_t known = 0;
  const std::size_t mostKnown = kMostKnown + kMostKnownPerPart * parts_.Count();
  tree_->VisitPairs([&](std::uint32_t i, std::uint32_t j) {
    if (parts_.Next(i) == j || parts_.Next(j) == i) return true;
    if (meets_[parts_.SpanOf(i)] && meets_[parts_.SpanOf(j)]) return ++known <= mostKnown;
    if (AreApart(i, j)) return true;
    Mark(i);
    Mark(j);
    return true;
  });
  if (known > mostKnown) MarkAll();
}

bool SeparateLoops::AreApart(std::uint32_t i, std::uint32_t j) const {
  if (parts_.IsShort(i) || parts_.IsShort(j)) return false;
  const PreparedCurve a(parts_[i], parts_.Margin()), b(parts_[j], parts_.Margin());
  for (const Vector2d& end : {a.Shape().a, a.Shape().b}) {
    if (b.Passes(end) || IsNear(end, b.Shape().a) || IsNear(end, b.Shape().b)) return false;
  }
  if (a.Passes(b.Shape().a) || a.Passes(b.Shape().b)) return false;
  Vector2d found[2];
  return a.Meet(b, {}, found) == 0;
}

bool SeparateLoops::IsNear(const Vector2d& p, const Vector2d& q) const {
  return std::abs(p.dx - q.dx) <= 2 * parts_.Margin() && std::abs(p.dy - q.dy) <= 2 * parts_.Margin();
}

/// Whether two parts that follow each other may meet, other than where the first one ends.
bool SeparateLoops::MeetAgain(std::uint32_t i, std::uint32_t j) const {
  if (parts_.Next(j) == i || parts_.IsShort(i) || parts_.IsShort(j)) return true;
  const PreparedCurve a(parts_[i], parts_.Margin()), b(parts_[j], parts_.Margin());
  const Vector2d common = b.Shape().a;
  if (IsNearlyCusp(a.Shape(), b.Shape())) return true;
  if (a.Passes(b.Shape().b) || b.Passes(a.Shape().a) || IsNear(a.Shape().a, b.Shape().b)) return true;
  Vector2d found[2];
  const int count = a.Meet(b, {false, true}, found);
  return std::any_of(found, found + count, [&](const Vector2d& p) { return !IsNear(p, common); });
}

/// Whether the second curve turns back along the first one, or one of them turns within the margin.
bool SeparateLoops::IsNearlyCusp(const Curve& a, const Curve& b) const {
  constexpr double kCusp = 1e-6;
  return 1 + Dot(TangentsOf(a).end, TangentsOf(b).start) <= kCusp ||
         std::max(std::abs(a.k), std::abs(b.k)) * parts_.Margin() > kCusp;
}

/// The winding number of all other loops at a point of the loop.
int SeparateLoops::TurnsAround(const LoopParts::Loop& loop) const {
  const Vector2d p = parts_[loop.first].a;
  int turns = 0;
  tree_->VisitBox({p.dx, p.dy, p.dx, parts_.Top()}, [&](std::uint32_t i) {
    const Curve c = parts_[i];
    const bool isOwn = i >= loop.first && i <= loop.last;
    if (isOwn || (c.a.dx <= p.dx) == (c.b.dx <= p.dx) || !PreparedCurve(c, 0).IsAbove(p)) return;
    turns += c.b.dx < c.a.dx ? 1 : -1;
  });
  return turns;
}

Region SeparateLoops::TakeBoundary(std::vector<RegionLoop>& loops) const {
  Region region;
  for (std::size_t i = 0; i < loops.size(); ++i) {
    if (loops[i].spans.empty()) continue;
    const LoopParts::Loop& loop = parts_.Loops()[i];
    const int turns = loops.size() > 1 ? TurnsAround(loop) : 0;
    if (turns == (loop.isAnticlockwise ? 0 : 1)) region.loops.push_back(std::move(loops[i]));
  }
  SortBySize(region.loops);
  return region;
}

}  // namespace geometry::region

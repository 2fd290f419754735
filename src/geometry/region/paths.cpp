#include <algorithm>
#include <cmath>

#include "geometry/region/offset_chain.h"

/// Paths: contours that need not be closed.
namespace geometry {
namespace {

using region::EndForm;
using region::OffsetChain;
using region::Sketch;

RegionSpan Reversed(RegionSpan span) {
  std::swap(span.p0, span.p1);
  span.dir = -span.dir;
  return span;
}

std::vector<RegionSpan> SpansOf(const KurveEx& path) {
  std::vector<RegionSpan> spans;
  for (const Span& s : path.spans) {
    const Point start = spans.empty() ? s.p0 : spans.back().p1;
    spans.push_back({s.dir, start, s.p1, s.pc, s.ID, s.index0, s.index1});
  }
  return spans;
}

EndForm FormOf(PathEnd end) {
  if (end == PathEnd::Square) return EndForm::kSquare;
  return end == PathEnd::Round ? EndForm::kRound : EndForm::kButt;
}

/// The path on both sides of itself: there, then back.
struct ThereAndBack {
  std::vector<RegionSpan> spans;
  std::size_t there = 0;
  bool isClosed = false;
};

ThereAndBack BothWays(const std::vector<RegionSpan>& spans) {
  ThereAndBack path{spans, spans.size()};
  for (auto span = spans.rbegin(); span != spans.rend(); ++span) path.spans.push_back(Reversed(*span));
  if (!spans.empty()) path.isClosed = Dist(spans.front().p0, spans.back().p1) == 0;
  return path;
}

void AddBothSides(OffsetChain& chain, const ThereAndBack& path, EndForm end, std::vector<RegionLoop>& moved) {
  if (!path.isClosed) return moved.push_back(chain.Around(path.spans, path.there, end));
  const auto middle = path.spans.begin() + static_cast<std::ptrdiff_t>(path.there);
  moved.push_back(chain.Around({path.spans.begin(), middle}));
  moved.push_back(chain.Around({middle, path.spans.end()}));
}

Region AsRegion(std::vector<RegionSpan> spans) {
  Region region;
  region.loops.push_back({std::move(spans)});
  return region;
}

/// The runs of a loop's spans that `isWanted`; a loop of wanted spans alone is one run.
template <class Wanted>
void AddRuns(const RegionLoop& loop, Wanted isWanted, std::vector<RegionPath>& runs) {
  const std::size_t count = loop.spans.size();
  std::size_t start = 0;
  while (start < count && isWanted(loop.spans[start])) ++start;
  const std::size_t before = runs.size();
  bool isOpen = false;
  for (std::size_t i = 0; i < count; ++i) {
    const RegionSpan& span = loop.spans[(start + i) % count];
    if (isWanted(span) && !isOpen) runs.emplace_back();
    isOpen = isWanted(span);
    if (isOpen) runs[runs.size() - 1].spans.push_back(span);
  }
  if (start == count && runs.size() > before) runs.back().isClosed = true;
}

void Reverse(RegionPath& path) {
  std::reverse(path.spans.begin(), path.spans.end());
  for (RegionSpan& span : path.spans) span = Reversed(span);
}

}  // namespace

Region Thicken(const Region& paths, double distance, PathEnd end, const RegionOffset& options) {
  Sketch sketch({&paths});
  Region failed;
  failed.ok = false;
  if (!sketch.IsSound() || !(distance >= 0) || !std::isfinite(distance)) return failed;
  if (distance == 0) return {};
  OffsetChain chain(sketch, -distance, options);
  std::vector<RegionLoop> moved;
  for (const RegionLoop& path : paths.loops) AddBothSides(chain, BothWays(path.spans), FormOf(end), moved);
  return PositiveFacesOf(sketch, std::move(moved), chain.Resolution());
}

Region Thicken(const std::vector<KurveEx>& paths, double distance, PathEnd end, const RegionOffset& options) {
  Region drawn;
  for (const KurveEx& path : paths) drawn.loops.push_back({SpansOf(path)});
  return Thicken(drawn, distance, end, options);
}

Region Thicken(const KurveEx& path, double distance, PathEnd end, const RegionOffset& options) {
  return Thicken(std::vector<KurveEx>{path}, distance, end, options);
}

// While the boundary of the thick path is made, the first word of a span is the number of its source, there
// and back; the round ends have none.
std::vector<RegionPath> OffsetPath(const KurveEx& path, double distance, const RegionOffset& options) {
  const Region drawn = AsRegion(SpansOf(path));
  Sketch sketch({&drawn});
  if (!sketch.IsSound() || !std::isfinite(distance) || distance == 0) return {};
  ThereAndBack both = BothWays(drawn.loops[0].spans);
  std::vector<IndexWord> words;
  for (RegionSpan& span : both.spans) {
    words.push_back(span.index0);
    span.index0 = words.size();
  }
  OffsetChain chain(sketch, -std::abs(distance), options);
  std::vector<RegionLoop> moved;
  AddBothSides(chain, both, EndForm::kRound, moved);
  // There, the boundary is on the right.
  const auto isWanted = [&](const RegionSpan& span) {
    return span.index0 != 0 && (span.index0 <= both.there) == (distance < 0);
  };
  std::vector<RegionPath> runs;
  const Region thick = PositiveFacesOf(sketch, std::move(moved), chain.Resolution());
  for (const RegionLoop& loop : thick.loops) AddRuns(loop, isWanted, runs);
  for (RegionPath& run : runs) {
    if (distance > 0) Reverse(run);
  }
  std::stable_sort(runs.begin(), runs.end(), [&](const RegionPath& a, const RegionPath& b) {
    const IndexWord first = a.spans[0].index0, second = b.spans[0].index0;
    return distance < 0 ? first < second : first > second;
  });
  for (RegionPath& run : runs) {
    for (RegionSpan& span : run.spans) span.index0 = words[span.index0 - 1];
  }
  return runs;
}

}  // namespace geometry

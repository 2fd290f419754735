#include "geometry/region/runs.h"

#include "geometry/region/separate_loops.h"

namespace geometry::region {
namespace {

/// Divides loops into runs and strokes.
class Divider {
 public:
  Divider(Sketch& sketch, const SeparateLoops& separate) : sketch_(sketch), separate_(separate) {
    const LoopParts& parts = separate.Parts();
    for (std::uint32_t i = 0; i < parts.Count(); ++i) {
      if (parts.SpanOf(i) == firstParts_.size()) firstParts_.push_back(i);
    }
    firstParts_.push_back(static_cast<std::uint32_t>(parts.Count()));
  }

  // A run may go over the end of the loop, unless the loop is a run as a whole.
  void Add(const RegionLoop& loop) {
    const std::size_t count = loop.spans.size();
    std::size_t start = 0;
    while (start < count && !separate_.Meets(first_ + start)) ++start;
    bool isOpen = false;
    for (std::size_t i = start; i < start + count; ++i) {
      const std::size_t span = i % count;
      const bool meets = separate_.Meets(first_ + span);
      if (meets) {
        sketch_.AddSpan(loop.spans[span], {1, 0});
      } else {
        if (!isOpen) runs_.list.push_back({{}, {}, &loop, span, 0, runs_.curves.size(), 0});
        Lengthen(runs_.list.back(), first_ + span);
      }
      isOpen = !meets;
    }
    first_ += count;
  }

  Runs Take() { return std::move(runs_); }

 private:
  void Lengthen(Run& run, std::size_t span) {
    for (std::uint32_t part = firstParts_[span]; part < firstParts_[span + 1]; ++part) {
      runs_.curves.push_back(separate_.Parts()[part]);
    }
    ++run.spanCount;
    run.curveCount = runs_.curves.size() - run.firstCurve;
    run.from = runs_.curves[run.firstCurve].a;
    run.to = runs_.curves.back().b;
  }

  Sketch& sketch_;
  const SeparateLoops& separate_;
  std::vector<std::uint32_t> firstParts_;  ///< by span, of all loops
  std::size_t first_ = 0;                  ///< the number of the loop's first span
  Runs runs_;
};

}  // namespace

Runs AddLoopsInRuns(Sketch& sketch, const std::vector<RegionLoop>& loops, const SeparateLoops& separate) {
  Divider divider(sketch, separate);
  for (const RegionLoop& loop : loops) divider.Add(loop);
  return divider.Take();
}

}  // namespace geometry::region

#pragma once

#include "geometry/span.h"

namespace geometry {

/// Boxes around runs of neighbouring spans: of 8, of 64, of 512 and so on.
///
/// They serve a walk over spans in their order that passes over those whose box is of no interest. What is
/// skipped is only what the boxes of the spans themselves exclude, so the walk sees the same spans as one
/// without it.
///
/// Owns     nothing of the spans; they have to stay. Spans that the walk has passed may change
class BoxLevels {
 public:
  explicit BoxLevels(const std::vector<Span>& spans);

  /// The first span from `from` on, and before `end`, whose box is not missed; `end` when there is none.
  /// `misses(box)` has to hold for every box within a box that it holds for.
  template <class Misses>
  std::size_t Next(std::size_t from, std::size_t end, const Misses& misses) const {
    while (from < end) {
      const std::size_t skip = SkipAt(from, misses);
      if (skip == 0) return from;
      from += skip;
    }
    return end;
  }

 private:
  static constexpr std::size_t kFan = 8;

  /// How many spans from `k` on can be passed over at once.
  template <class Misses>
  std::size_t SkipAt(std::size_t k, const Misses& misses) const {
    std::size_t skip = 0;
    std::size_t run = kFan;
    for (const std::vector<Box>& level : levels_) {
      if (k % run != 0 || !misses(level[k / run])) break;
      skip = run;
      run *= kFan;
    }
    if (skip != 0) return skip;
    return misses(spans_[k].box) ? 1 : 0;
  }

  const std::vector<Span>& spans_;
  std::vector<std::vector<Box>> levels_;
};

}  // namespace geometry

#pragma once

#include "geometry/span.h"

namespace geometry {

/// Boxes around runs of neighbouring spans: of 8, of 64, of 512 and so on.
///
/// They serve a walk over spans in their order that passes over those whose box is of no interest. What is
/// skipped is only what the boxes of the spans themselves exclude, so the walk sees the same spans as one
/// without it. Boxes are made when a walk comes to them; those of long runs with the first long walk.
///
/// Owns     nothing of the spans; they have to stay, and walks that begin before `from` are over once spans
///          before it have changed
class BoxLevels {
 public:
  explicit BoxLevels(const std::vector<Span>& spans) : spans_(spans) {}

  /// The first span from `from` on, and before `end`, whose box is not missed; `end` when there is none.
  /// `misses(box)` has to hold for every box within a box that it holds for.
  template <class Misses>
  std::size_t Next(std::size_t from, std::size_t end, const Misses& misses) {
    Reach(from, end);
    while (from < end) {
      const std::size_t skip = SkipAt(from, misses);
      if (skip == 0) return from;
      from += skip;
    }
    return end;
  }

 private:
  static constexpr unsigned kFanBits = 3;
  static constexpr std::size_t kFan = std::size_t{1} << kFanBits;

  /// How many spans from `k` on can be passed over at once.
  template <class Misses>
  std::size_t SkipAt(std::size_t k, const Misses& misses) const {
    std::size_t run = 1;
    unsigned bits = kFanBits;
    for (const std::vector<Box>& level : levels_) {
      if ((k & ((std::size_t{1} << bits) - 1)) != 0 || !misses(level[k >> bits])) break;
      run = std::size_t{1} << bits;
      bits += kFanBits;
    }
    return run > 1 || misses(spans_[k].box) ? run : 0;
  }

  /// Makes the boxes that a walk needs.
  void Reach(std::size_t from, std::size_t end) {
    if (end > reached_ || (end > from + kFan * kFan && levels_.size() == 1)) Extend(from, end);
  }
  void Extend(std::size_t from, std::size_t end);

  const std::vector<Span>& spans_;
  std::vector<std::vector<Box>> levels_;
  std::size_t reached_ = 0;  ///< the spans that have their runs of 8
};

}  // namespace geometry

#pragma once

#include <algorithm>
#include <bit>
#include <utility>

#include "geometry/span.h"

namespace geometry {

/// A box in 32 bytes: long walks read nothing else of their spans.
struct FlatBox {
  double minX = 1e61, minY = 1e61, maxX = -1e61, maxY = -1e61;

  FlatBox() = default;
  FlatBox(const Box& b) : minX(b.min.x), minY(b.min.y), maxX(b.max.x), maxY(b.max.y) {}

  void Insert(const FlatBox& b) {
    if (minX > b.minX) minX = b.minX;
    if (minY > b.minY) minY = b.minY;
    if (b.maxX > maxX) maxX = b.maxX;
    if (b.maxY > maxY) maxY = b.maxY;
  }
  /// Whether the boxes are disjoint, as `Box::Outside` says.
  bool Outside(const FlatBox& b) const {
    return b.minX > maxX || b.minY > maxY || minX > b.maxX || minY > b.maxY;
  }
};

/// The boxes of spans, in their order.
std::vector<FlatBox> BoxesOf(const std::vector<Span>& spans);

/// Boxes around runs of neighbouring spans: of 8, of 64, of 512 and so on.
///
/// They serve walks over spans in their order that skip spans by their boxes. Only spans that their own boxes
/// exclude are skipped, so a walk sees the same spans as one without the runs. The box of a run is computed
/// when a walk reaches it; those of long runs with the first long walk.
class BoxLevels {
 public:
  explicit BoxLevels(std::vector<FlatBox> boxes) : boxes_(std::move(boxes)) {}

  const FlatBox& At(std::size_t i) const { return boxes_[i]; }

  /// The first span from `from` on, and before `end`, whose box is not missed; `end` if all are.
  /// Requires: `misses(box)` holds for every box inside of a box that it holds for.
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

  /// The first span from `from` on, and before `end`, whose box meets that of span `i`, which is before them.
  /// For walks of up to 64 spans, with `i` ascending: what the whole run of `i` does not meet is determined
  /// once for all its spans.
  std::size_t NextMeeting(std::size_t i, std::size_t from, std::size_t end) {
    if (from >= end) return end;
    if (i >> kFanBits != home_) Enter(i >> kFanBits);
    const FlatBox& box = boxes_[i];
    if (met_ <= 3 && box.Outside(RestFrom(from))) return end;
    while (from < end) {
      const std::size_t run = from >> kFanBits;
      const std::uint32_t met = met_ >> (run - home_);
      if ((met & 1) == 0) {
        if (met == 0) return end;
        from = (run + static_cast<std::size_t>(std::countr_zero(met))) << kFanBits;
      } else if (box.Outside(RestFrom(from))) {
        from = std::max(run + 1, home_ + 2) << kFanBits;
      } else {
        const std::size_t last = std::min(end, (run + 1) << kFanBits);
        for (; from < last; ++from) {
          if (!box.Outside(boxes_[from])) return from;
        }
      }
    }
    return end;
  }

 private:
  static constexpr unsigned kFanBits = 3;
  static constexpr std::size_t kFan = std::size_t{1} << kFanBits;
  static constexpr std::size_t kLongest = 10 * kFan;  ///< of a short walk

  /// The number of spans from `k` on that can be skipped at once: the longest run that begins there and is
  /// missed.
  template <class Misses>
  std::size_t SkipAt(std::size_t k, const Misses& misses) const {
    const auto aligned = static_cast<std::size_t>(std::countr_zero(k)) / kFanBits;
    for (std::size_t level = std::min(aligned, levels_.size()); level > 0; --level) {
      const std::size_t bits = level * kFanBits;
      if (misses(levels_[level - 1][k >> bits])) return std::size_t{1} << bits;
    }
    return misses(boxes_[k]) ? 1 : 0;
  }

  /// Computes the boxes that a walk needs.
  void Reach(std::size_t from, std::size_t end) {
    if (end > reached_ || (end > from + kLongest && levels_.size() == 1)) Extend(from, end);
  }
  void Extend(std::size_t from, std::size_t end);
  /// The box around the spans from there to the end of the run after `home_`, or of a later run.
  const FlatBox& RestFrom(std::size_t span) const {
    const std::size_t ahead = span - (home_ << kFanBits);
    return ahead < 2 * kFan ? rests_[ahead] : levels_[0][span >> kFanBits];
  }
  void FillRests();
  /// Determines which of the next runs meet that one.
  void Enter(std::size_t run);

  std::vector<FlatBox> boxes_;
  std::vector<std::vector<FlatBox>> levels_;
  std::size_t reached_ = 0;                          ///< the spans that have their runs of 8
  std::size_t home_ = static_cast<std::size_t>(-2);  ///< the run of short walks; none yet
  std::uint32_t met_ = 0;                            ///< bit r: run `home_` + r
  FlatBox rests_[2 * kFan];  ///< from each span of `home_` and of the next run to the end of that one
};

}  // namespace geometry

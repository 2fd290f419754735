#include "geometry/offset/box_levels.h"

#include <algorithm>

namespace geometry {

void BoxLevels::Extend(std::size_t from, std::size_t end) {
  const bool longWalk = end > from + kLongest;
  if (longWalk) end = spans_.size();
  if (levels_.empty()) levels_.emplace_back((spans_.size() + kFan - 1) / kFan);
  std::vector<Box>& runs = levels_.front();
  while (reached_ < end) {
    Box& run = runs[reached_ / kFan];
    const std::size_t last = std::min(reached_ + kFan, spans_.size());
    for (; reached_ < last; ++reached_) run.Insert(spans_[reached_].box);
  }
  while (longWalk && levels_.back().size() > kFan) {
    const std::vector<Box>& below = levels_.back();
    std::vector<Box> above((below.size() + kFan - 1) / kFan);
    for (std::size_t i = 0; i < below.size(); ++i) above[i / kFan].Insert(below[i]);
    levels_.push_back(std::move(above));
  }
}

void BoxLevels::Enter(std::size_t run) {
  constexpr std::size_t kAhead = 10;  // a walk of 64 from the end of the run
  const std::size_t runs = (spans_.size() + kFan - 1) >> kFanBits;
  const std::size_t last = std::min(runs, run + kAhead);
  Reach(run << kFanBits, std::min(last << kFanBits, spans_.size()));
  home_ = run;
  met_ = 0;
  for (std::size_t r = run + 1; r < last; ++r) {
    if (!levels_[0][run].Outside(levels_[0][r])) met_ |= std::uint32_t{1} << (r - run);
  }
}

}  // namespace geometry

#include "geometry/offset/box_levels.h"

#include <algorithm>

namespace geometry {

std::vector<FlatBox> BoxesOf(const std::vector<Span>& spans) {
  std::vector<FlatBox> boxes;
  boxes.reserve(spans.size());
  for (const Span& span : spans) boxes.emplace_back(span.box);
  return boxes;
}

void BoxLevels::Extend(std::size_t from, std::size_t end) {
  const bool longWalk = end > from + kLongest;
  if (longWalk) end = boxes_.size();
  if (levels_.empty()) levels_.emplace_back((boxes_.size() + kFan - 1) / kFan);
  std::vector<FlatBox>& runs = levels_.front();
  while (reached_ < end) {
    FlatBox& run = runs[reached_ / kFan];
    const std::size_t last = std::min(reached_ + kFan, boxes_.size());
    for (; reached_ < last; ++reached_) run.Insert(boxes_[reached_]);
  }
  while (longWalk && levels_.back().size() > kFan) {
    const std::vector<FlatBox>& below = levels_.back();
    std::vector<FlatBox> above((below.size() + kFan - 1) / kFan);
    for (std::size_t i = 0; i < below.size(); ++i) above[i / kFan].Insert(below[i]);
    levels_.push_back(std::move(above));
  }
}

void BoxLevels::FillRests() {
  FlatBox rest;
  const std::size_t first = home_ << kFanBits;
  for (std::size_t k = 2 * kFan; k-- > 0;) {
    if (first + k < boxes_.size()) rest.Insert(boxes_[first + k]);
    rests_[k] = rest;
  }
}

void BoxLevels::Enter(std::size_t run) {
  constexpr std::size_t kAhead = 10;  // a walk of 64 from the end of the run
  const std::size_t runs = (boxes_.size() + kFan - 1) >> kFanBits;
  const std::size_t last = std::min(runs, run + kAhead);
  Reach(run << kFanBits, std::min(last << kFanBits, boxes_.size()));
  home_ = run;
  FillRests();
  met_ = 1;
  for (std::size_t r = run + 1; r < last; ++r) {
    if (!levels_[0][run].Outside(levels_[0][r])) met_ |= std::uint32_t{1} << (r - run);
  }
}

}  // namespace geometry

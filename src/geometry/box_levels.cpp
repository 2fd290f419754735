#include "geometry/box_levels.h"

namespace geometry {

BoxLevels::BoxLevels(const std::vector<Span>& spans) : spans_(spans) {
  if (spans.size() <= kFan) return;
  std::vector<Box> runs((spans.size() + kFan - 1) / kFan);
  for (std::size_t i = 0; i < spans.size(); ++i) runs[i / kFan].Insert(spans[i].box);
  levels_.push_back(std::move(runs));
  while (levels_.back().size() > kFan) {
    const std::vector<Box>& below = levels_.back();
    std::vector<Box> above((below.size() + kFan - 1) / kFan);
    for (std::size_t i = 0; i < below.size(); ++i) above[i / kFan].Insert(below[i]);
    levels_.push_back(std::move(above));
  }
}

}  // namespace geometry

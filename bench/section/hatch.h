#pragma once

#include <vector>

#include "section/layout.h"

namespace vanzet::section {

/// Parallel lines inside of a region.
struct HatchStyle {
  double degrees = 45;  ///< of the lines, from x against the clock
  double distance = 3;  ///< millimetres, above 0
};
std::vector<Line> HatchOf(const geometry::Region& region, const HatchStyle& style);

}  // namespace vanzet::section

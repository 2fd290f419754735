#include "view/shared/pictures/outline_check.h"

#include <algorithm>
#include <cmath>

namespace vanzet::view {
namespace {

/// Twice the area of the triangle, above 0 for a turn to the left.
double Turn(OutlineVertex a, OutlineVertex b, OutlineVertex c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool Cross(OutlineVertex a, OutlineVertex b, OutlineVertex c, OutlineVertex d) {
  return Turn(a, b, c) * Turn(a, b, d) < 0 && Turn(c, d, a) * Turn(c, d, b) < 0;
}

bool IsFinite(OutlineVertex vertex) {
  return std::isfinite(vertex.x) && std::isfinite(vertex.y);
}

double DoubleArea(const std::vector<OutlineVertex>& outline) {
  double area = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const OutlineVertex& a = outline[i];
    const OutlineVertex& b = outline[(i + 1) % outline.size()];
    area += a.x * b.y - a.y * b.x;
  }
  return std::abs(area);
}

}  // namespace

bool IsSimple(const std::vector<OutlineVertex>& outline) {
  const std::size_t count = outline.size();
  if (count < 3 || !std::ranges::all_of(outline, IsFinite) || DoubleArea(outline) == 0) return false;
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = i + 1; j < count; ++j) {
      if (Cross(outline[i], outline[(i + 1) % count], outline[j], outline[(j + 1) % count])) return false;
    }
  }
  return true;
}

}  // namespace vanzet::view

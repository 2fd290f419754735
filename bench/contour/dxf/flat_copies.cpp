#include "contour/dxf/flat_copies.h"

namespace vanzet::contour {
namespace {

bool AreSame(const Space& a, const Space& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z;
}

bool IsMoved(const Placement& a, const Placement& b) {
  return AreSame(a.x, b.x) && AreSame(a.y, b.y) && AreSame(a.z, b.z);
}

FlatPath Moved(FlatPath flat, const Space& by) {
  const geometry::Vector2d seen(by.x, by.y);
  flat.piece.start = flat.piece.start + seen;
  for (Segment& segment : flat.piece.segments) segment.end = segment.end + seen;
  return flat;
}

}  // namespace

Result<FlatPath> FlatCopies::Take(const Path& path, const Placement& placement) {
  const auto known = known_.find(&path);
  if (known != known_.end() && IsMoved(known->second.placement, placement)) {
    return Moved(known->second.flat, placement.origin - known->second.placement.origin);
  }
  const std::size_t before = budget_.used();
  VANZET_TRY(FlatPath flat, Flatten(path, placement, budget_));
  if (budget_.used() > before) known_.insert_or_assign(&path, Known{placement, flat});
  return flat;
}

}  // namespace vanzet::contour

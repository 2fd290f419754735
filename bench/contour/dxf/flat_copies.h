#pragma once

#include <map>

#include "contour/dxf/flatten.h"

namespace vanzet::contour {

/// Flattens the paths of a drawing. Curves of a block that is inserted many times are replaced by arcs once;
/// its other copies are moved, so that a grid of thousands is quick.
class FlatCopies {
 public:
  /// The arcs of copies do not count.
  explicit FlatCopies(const ArcBudget& budget) : budget_(budget) {}

  /// As `Flatten` does. Requires: the path stays where it is in memory.
  Result<FlatPath> Take(const Path& path, const Placement& placement);

 private:
  struct Known {
    Placement placement;
    FlatPath flat;
  };

  ArcBudget budget_;
  std::map<const Path*, Known> known_;  ///< paths with curves, as they were placed last
};

}  // namespace vanzet::contour

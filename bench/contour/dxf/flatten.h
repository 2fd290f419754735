#pragma once

#include "base/result.h"
#include "contour/curve/arc_budget.h"
#include "contour/dxf/item.h"
#include "contour/piece.h"

namespace vanzet::contour {

/// A path as it is seen from above.
struct FlatPath {
  Piece piece;            ///< without segments when nothing of it has a length
  bool isLevel = true;    ///< parallel to the drawing's plane, so that its true lengths are seen
  bool isEdgeOn = false;  ///< seen as a point, or an arc as a line: it has no piece
};

/// Places the path and looks at it from above. Arcs stay arcs where the placement keeps circles round;
/// other arcs, ellipses and splines become tangent arcs of the budget. Fails when a coordinate is not
/// within `kLargestCoordinate`, or the budget does not suffice.
Result<FlatPath> Flatten(const Path& path, const Placement& placement, ArcBudget& budget);

}  // namespace vanzet::contour

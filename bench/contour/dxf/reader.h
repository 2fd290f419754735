#pragma once

#include "contour/dxf/groups.h"
#include "contour/dxf/layout.h"

namespace vanzet::contour {

/// Reads the unit, the blocks and the entities of a drawing. Fails for a file that is not a drawing or is cut
/// short, an entity that lacks a number, and vertices out of order.
Result<DxfDrawing> ReadDrawing(DxfGroups& groups);

}  // namespace vanzet::contour

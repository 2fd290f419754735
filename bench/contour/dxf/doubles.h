#pragma once

#include <map>
#include <string>
#include <vector>

#include "contour/dxf/layout.h"

namespace vanzet::contour {

/// Removes pieces that are there twice, in either direction and, if they are closed, from any start. The
/// first one stays. Returns how many of each kind were removed.
///
/// Same are pieces whose vertices, and the heights of whose arcs, round to the same 1e-6 mm.
std::map<std::string, int> DropDoubles(std::vector<PlacedPiece>& pieces);

/// The same for contours that were joined of pieces; returns how many.
int DropDoubles(std::vector<Piece>& pieces);

}  // namespace vanzet::contour

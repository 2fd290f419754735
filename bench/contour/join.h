#pragma once

#include "contour/piece.h"

namespace vanzet::contour {

/// Joins pieces whose ends are not farther apart than `tolerance`, in millimetres, into longer ones.
///
/// The first piece that is left begins one and gives it its sense; it grows at its end until it closes or
/// nothing is near, then at its start. The nearest end is taken, of equal ones the first of the drawing; a
/// piece is turned round when it fits the other way, and its near end is moved to where the contour had come.
/// What closes ends exactly where it starts.
/// Requires: all coordinates within `kLargestCoordinate`; `tolerance` not below 0.
std::vector<Piece> Joined(std::vector<Piece> pieces, double tolerance);

}  // namespace vanzet::contour

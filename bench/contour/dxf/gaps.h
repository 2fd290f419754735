#pragma once

#include <optional>
#include <string>
#include <vector>

#include "contour/piece.h"

namespace vanzet::contour {

/// The contours that are open, and the nearest two of their ends.
struct Gaps {
  int open = 0;
  double nearest = 0;  ///< in millimetres; 0 when no two ends are near
};

/// Looks for ends that are farther apart than `join`, but not by more than 1 mm.
Gaps GapsOf(const std::vector<Piece>& joined, double join);

/// A value of `--join` that closes a gap: 1, 2 or 5 times a power of ten, at least twice as wide.
double JoinFor(double gap);

}  // namespace vanzet::contour

#pragma once

#include <vector>

#include "contour/piece.h"

namespace vanzet::contour {

/// The lines that overlap another one before them, and the start of the first such line, in millimetres.
struct Overlaps {
  int lines = 0;
  geometry::Point place;
};

/// Looks for lines that have more than 0.001 mm in common with another line, however long the two are. Arcs
/// are not compared.
Overlaps OverlapsOf(const std::vector<Piece>& pieces);

}  // namespace vanzet::contour

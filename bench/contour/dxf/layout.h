#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/letter_case.h"
#include "base/result.h"
#include "contour/curve/arc_budget.h"
#include "contour/dxf/item.h"
#include "contour/piece.h"

namespace vanzet::contour {

/// The entities of a block, which are drawn where the block is inserted.
struct Block {
  Space base;
  bool isElsewhere = false;  ///< in a file of its own
  std::vector<Item> items;
};

/// A drawing as it is described.
struct DxfDrawing {
  int unit = 0;  ///< $INSUNITS
  std::vector<Item> items;
  std::map<std::string, Block, LessWithoutCase> blocks;
};

/// A piece of a drawing, with the kind of entity that it is from.
struct PlacedPiece {
  std::string kind;
  Piece piece;
};

/// The drawing of a layer, or of all.
struct DxfLayout {
  std::vector<PlacedPiece> pieces;      ///< in millimetres
  std::map<std::string, int> leftOut;   ///< how many entities of each kind, or for which reason
  std::map<std::string, int> notLevel;  ///< how many of each kind are seen at an angle
  std::set<std::string> layers;         ///< all that have a piece
};

struct LayoutOptions {
  std::string layer;       ///< empty: all layers
  double millimetres = 1;  ///< of a unit of the drawing
  ArcBudget arcs;          ///< in place of other curves
};

/// Draws the entities, and those of blocks where they are inserted. Fails, with `place` set, for coordinates
/// that are too large, blocks that are nested too deep, more entities or vertices than a million, and too
/// many arcs.
Result<DxfLayout> LayOut(const DxfDrawing& drawing, const LayoutOptions& options, int& place);

}  // namespace vanzet::contour

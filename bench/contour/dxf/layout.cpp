#include "contour/dxf/layout.h"

#include <algorithm>
#include <utility>

#include "base/quote.h"
#include "contour/contour.h"
#include "contour/dxf/flat_copies.h"

namespace vanzet::contour {
namespace {

/// Blocks within blocks. No drawing that people make nears these.
constexpr int kDeepest = 32;
constexpr int kMostPlaced = 1'000'000;

class Layouter {
 public:
  Layouter(const DxfDrawing& drawing, const LayoutOptions& options, int& place)
      : drawing_(drawing), options_(options), place_(place), copies_(options.arcs) {}

  Result<DxfLayout> LayOut() {
    const double scale = options_.millimetres;
    VANZET_DO(PlaceAll(drawing_.items, Placement::Scale(scale, scale, scale), "0", 0));
    return std::move(layout_);
  }

 private:
  /// Entities on layer 0 of a block are on the layer that the block is inserted on.
  Result<void> PlaceAll(const std::vector<Item>& items, const Placement& placement, const std::string& layer,
                        int depth) {
    for (const Item& item : items) {
      if (depth == 0) place_ = item.place;
      if (depth > 0 && ++placed_ > kMostPlaced) return TooMany();
      const std::string& own = depth > 0 && (item.layer.empty() || item.layer == "0") ? layer : item.layer;
      VANZET_DO(PlaceItem(item, placement, own, depth));
    }
    return {};
  }

  Result<void> PlaceItem(const Item& item, const Placement& placement, const std::string& layer, int depth) {
    const bool isWanted = options_.layer.empty() || EqualWithoutCase(layer, options_.layer);
    if (item.isOnPaper || !item.leftOut.empty()) {
      if (isWanted) ++layout_.leftOut[item.isOnPaper ? item.kind + " on paper" : item.leftOut];
      return {};
    }
    if (item.insertion) return Insert(item, placement, layer, depth);
    layout_.layers.insert(layer);
    return isWanted ? PlacePaths(item, placement * item.frame) : Result<void>();
  }

  Result<void> PlacePaths(const Item& item, const Placement& placement) {
    bool isLevel = true, isEdgeOn = false;
    for (const Path& path : item.paths) {
      VANZET_TRY(FlatPath flat, copies_.Take(path, placement));
      isLevel = isLevel && flat.isLevel;
      isEdgeOn = isEdgeOn || flat.isEdgeOn;
      if (flat.isEdgeOn || flat.piece.segments.empty()) continue;
      flat.piece.line = place_;
      vertices_ += flat.piece.segments.size();
      if (vertices_ > kMostVertices) {
        return Fault{"the drawing has more than " + std::to_string(kMostVertices) + " vertices"};
      }
      layout_.pieces.push_back({item.kind, std::move(flat.piece)});
    }
    if (isEdgeOn) {
      ++layout_.leftOut[item.kind + " seen edge-on"];
    } else if (!isLevel) {
      ++layout_.notLevel[item.kind];
    }
    return {};
  }

  Result<void> Insert(const Item& item, const Placement& placement, const std::string& layer, int depth) {
    const Insertion& insertion = *item.insertion;
    const auto block = drawing_.blocks.find(insertion.block);
    if (block == drawing_.blocks.end() || block->second.isElsewhere) {
      ++layout_.leftOut["INSERT of a block that the drawing does not have"];
      return {};
    }
    if (depth == kDeepest) {
      return Fault{"blocks are nested more than " + std::to_string(kDeepest) + " deep, at the block " +
                   Quoted(insertion.block)};
    }
    const Placement inner = insertion.scale * Placement::Move(block->second.base * -1);
    for (int row = 0; row < insertion.rows; ++row) {
      for (int column = 0; column < insertion.columns; ++column) {
        if (++placed_ > kMostPlaced) return TooMany();
        const Space step{column * insertion.columnStep, row * insertion.rowStep, 0};
        VANZET_DO(PlaceAll(block->second.items, placement * item.frame * Placement::Move(step) * inner, layer,
                           depth + 1));
      }
    }
    return {};
  }

  static Fault TooMany() {
    return Fault{"the blocks insert more than " + std::to_string(kMostPlaced) + " entities"};
  }

  const DxfDrawing& drawing_;
  const LayoutOptions& options_;
  int& place_;
  FlatCopies copies_;
  DxfLayout layout_;
  int placed_ = 0;
  std::size_t vertices_ = 0;
};

}  // namespace

Result<DxfLayout> LayOut(const DxfDrawing& drawing, const LayoutOptions& options, int& place) {
  return Layouter(drawing, options, place).LayOut();
}

}  // namespace vanzet::contour

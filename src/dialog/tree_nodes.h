#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace vanzet::dialog {

/// The pages in the order of the sheet.
enum class PageId {
  kEmpty,
  kClampElem,
  kBezel,
  kBilletCylindric,
  kBilletFromFigure,
  kBilletFromSolid,
  kFinishpartFromFigure,
  kFinishpartFromSolid,
  kZeroPiontShift,
  kClampElemNew
};
inline constexpr std::size_t kPages = 10;

/// What a machine has to have for a node to be there.
enum class NeedsOf { kNothing, kSubSpindle, kTailStock, kLun };

/// A node of the equipment tree, and what its selection means.
struct TreeNodeRow {
  std::int32_t id;
  std::int32_t message;
  std::string_view text;
  std::int32_t number;  ///< stands behind the text; 0: none
  std::int32_t parent;  ///< 0: a root
  NeedsOf needs;
  std::int32_t bitmap;
  std::int32_t selectedBitmap;
  PageId page;
  std::int32_t spindle;
  std::int32_t deviceType;
};

/// All nodes, by id; parents stand before their children.
std::span<const TreeNodeRow> TreeNodes();

/// The row of a node. Requires: there is one.
const TreeNodeRow& TreeNodeOf(std::int32_t id);

}  // namespace vanzet::dialog

#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "view/ids.h"

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

/// The equipment that a machine needs for a node to be in the tree.
enum class NeedsOf { kNothing, kSubSpindle, kTailStock, kLun };

/// A node of the equipment tree, and what its selection means.
struct TreeNodeRow {
  std::int32_t id;
  std::int32_t parent;  ///< node::kNone: the node is a root
  std::int32_t message;
  NeedsOf needs;
  std::int32_t bitmap;
  PageId page;
  std::int32_t spindle;
  std::int32_t deviceType;
  std::int32_t number = 0;            ///< follows the text; 0: none
  std::string_view defaultText = {};  ///< of the message; empty: the plain one

  /// The bitmap of the node while it is selected. A root keeps its own.
  std::int32_t SelectedBitmap() const { return parent == node::kNone ? bitmap : icon::Selected(bitmap); }
};

/// All nodes, by id; parents precede their children.
std::span<const TreeNodeRow> TreeNodes();

/// The row of a node. Requires: the node exists.
const TreeNodeRow& TreeNodeOf(std::int32_t id);

}  // namespace vanzet::dialog

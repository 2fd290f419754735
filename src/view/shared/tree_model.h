#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "view/dialog_state.h"

/// The texts that follow from the tree of a dialog.
namespace vanzet::view {

/// The sign of values that are not stored yet, after the text of their node and of the button that stores
/// them.
inline constexpr const char* kUnstoredSign = "\u25CF";

/// Null for an unknown id.
const TreeNode* FindNode(const DialogState& state, std::int32_t id);

/// The texts of the selected node and of those above it but the root, for the title of a page.
std::string PlaceInTree(const DialogState& state);

/// The text of a node for readers of the screen: "Chuck, defined, values not stored yet".
std::string SpokenNode(const TreeNode& node, bool isUnstored);

/// The way to a node below the selected one.
struct FolderEntry {
  const TreeNode* node;
  std::vector<std::string> lines = {};  ///< of what is defined at the node and below it
};

/// The contents of a node that has nothing to edit: its children; the roots while no node is selected.
struct FolderPage {
  std::string title;
  std::string hint;
  std::vector<FolderEntry> entries;
};

/// Valid until the state changes.
FolderPage FolderPageOf(const DialogState& state);

/// The line about values of the page that are not stored, or were not when the last page was left. Stops
/// nobody.
class UnstoredLine {
 public:
  /// Has to be called for each state that is shown.
  void Follow(const DialogState& state);

  std::string Text() const;

  /// The names of the values of the page in front that are not stored: "A, B".
  const std::string& Names() const { return names_; }

 private:
  std::string place_;  ///< of the page in front
  std::int32_t spur_ = -1;
  std::string names_;
  std::string left_;  ///< about the page that was left
};

}  // namespace vanzet::view

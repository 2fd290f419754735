#include "view/shared/tree_model.h"

#include <algorithm>

#include "view/ids.h"
#include "view/shared/lengths.h"
#include "view/shared/page_model.h"
#include "view/shared/texts.h"

namespace vanzet::view {
namespace {

constexpr const char* kHint = Translatable("Choose what to define. Bold entries are defined already.");
constexpr const char* kCatalogueHint =
    Translatable("Choose the kind of device to add to the catalogue, to change or to delete.");

constexpr const char* kDefined = Translatable("%1, defined");
constexpr const char* kNotStored = Translatable("%1, values not stored yet");

constexpr const char* kUnstored = Translatable("Not stored yet: %1");
constexpr const char* kLeft = Translatable("%1 was left with values that were not stored: %2");

/// The name of what is defined at a node, or its values: "Chuck 210", "A 80, B 120". The name of a device of
/// the user's own is a path.
std::string Content(const TreeNode& node) {
  if (!node.name.empty()) return node.name.substr(node.name.find_last_of("/\\") + 1);
  std::vector<std::string> values;
  for (const NodeValue& each : node.values) values.push_back(each.sign + ' ' + LengthLabel(each.value));
  return Joined(values, ", ");
}

/// A line for each defined node at `top` and below it.
std::vector<std::string> LinesBelow(const DialogState& state, const TreeNode& top) {
  std::vector<std::string> lines;
  const std::string content = Content(top);
  if (top.isBold && !content.empty()) lines.push_back(content);
  for (const TreeNode& node : state.tree) {
    if (node.parent != top.id) continue;
    if (node.isBold && Content(node).empty()) lines.push_back(node.text);
    for (const std::string& line : LinesBelow(state, node)) lines.push_back(node.text + ": " + line);
  }
  return lines;
}

/// True for nodes of the catalogue, where nothing of a definition is made.
bool IsOfCatalogue(const TreeNode& node) {
  return node.id == node::kNewDevices || node.parent == node::kNewDevices;
}

}  // namespace

const TreeNode* FindNode(const DialogState& state, std::int32_t id) {
  const auto node = std::ranges::find(state.tree, id, &TreeNode::id);
  return node == state.tree.end() ? nullptr : &*node;
}

std::string PlaceInTree(const DialogState& state) {
  std::vector<std::string> place;
  for (const TreeNode* node = FindNode(state, state.selectedNode); node != nullptr;
       node = FindNode(state, node->parent)) {
    if (place.empty() || node->parent != 0) place.insert(place.begin(), node->text);
  }
  return Joined(place, ": ");
}

std::string SpokenNode(const TreeNode& node, bool isUnstored) {
  const std::string text = node.isBold ? Filled(Translate(kDefined), {node.text}) : node.text;
  return isUnstored ? Filled(Translate(kNotStored), {text}) : text;
}

FolderPage FolderPageOf(const DialogState& state) {
  const TreeNode* const folder = FindNode(state, state.selectedNode);
  FolderPage page;
  page.title = folder != nullptr ? folder->text : state.caption;
  page.hint = Translate(folder != nullptr && IsOfCatalogue(*folder) ? kCatalogueHint : kHint);
  for (const TreeNode& node : state.tree) {
    if (node.parent == state.selectedNode) page.entries.push_back({&node, LinesBelow(state, node)});
  }
  return page;
}

void UnstoredLine::Follow(const DialogState& state) {
  const std::string place = PlaceInTree(state);
  if (place != place_ || state.spur != spur_)
    left_ = names_.empty() ? std::string() : Filled(Translate(kLeft), {place_, names_});
  place_ = place;
  spur_ = state.spur;
  const PageLayout* const layout = FindPageLayout(state.page);
  names_ = layout == nullptr ? std::string() : NamesOf(*layout, state.unstored, state.controls);
}

std::string UnstoredLine::Text() const {
  return names_.empty() ? left_ : Filled(Translate(kUnstored), {names_});
}

}  // namespace vanzet::view

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The contents of a dialog, as plain data. A view draws it and knows controls by their ids only.
namespace vanzet::view {

enum class ControlKind { kButton, kEdit, kCheck, kCombo, kSpin, kLabel, kPicture };

/// A device that a combo offers: its type and the values of its letters, A first.
struct ListedDevice {
  std::int32_t type = 0;
  std::array<double, 10> values = {};
};

/// One control. Which fields count depends on its kind; the others stay as they are here.
struct Control {
  std::int32_t id = 0;
  ControlKind kind = ControlKind::kLabel;
  std::string text = {};              ///< a caption, or the content of an edit or of a combo's field
  std::string caption = {};           ///< edits: a fixed letter or word next to it
  bool isReal = false;                ///< edits: the content has to be a real
  std::optional<double> number = {};  ///< of such an edit; empty while its text is not a number
  bool isEnabled = true;
  bool isVisible = true;
  bool isChecked = false;                  ///< check boxes
  std::vector<std::string> items = {};     ///< combos
  std::int32_t selected = -1;              ///< combos: an index in the items, -1 for none
  std::vector<ListedDevice> devices = {};  ///< combos of devices: one for each item
  bool isList = false;                     ///< combos: the user can select, but not type
  std::int32_t value = 0;                  ///< spins, within the next two
  std::int32_t least = 0;
  std::int32_t most = 0;
  std::int32_t bitmap = 0;  ///< pictures: the id of what is shown, 0 for nothing
};

/// A length of what is defined, with its sign in the picture of its page.
struct NodeValue {
  std::string sign;
  double value = 0;

  bool operator==(const NodeValue&) const = default;
};

struct TreeNode {
  std::int32_t id = 0;
  std::int32_t parent = 0;  ///< 0: a root
  std::string text = {};
  bool isBold = false;
  bool isOpen = false;
  std::int32_t bitmap = 0;             ///< 16 by 16, white is transparent
  std::int32_t selectedBitmap = 0;     ///< the same while the node is selected
  std::string name = {};               ///< of the device, the figure or the solid that is defined here
  std::vector<NodeValue> values = {};  ///< of what has no name, without those that are 0

  bool operator==(const TreeNode&) const = default;
};

struct DialogState {
  std::string caption;
  std::string page;  ///< the class of the page in front: "CPageBezel"
  std::int32_t spindle = 0;
  std::int32_t deviceType = 0;
  std::int32_t spur = -1;
  std::int32_t selectedNode = 0;            ///< 0: none
  std::vector<TreeNode> tree;               ///< parents before their children, brothers in order
  std::vector<Control> dialog;              ///< the dialog's own controls, without the tree
  std::vector<Control> controls;            ///< the controls of the page in front
  std::vector<std::int32_t> unstored = {};  ///< those whose contents differ from what is stored
};

}  // namespace vanzet::view

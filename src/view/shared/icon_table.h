#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// The files in share/icons of nodes and buttons: pictures of 16 by 16, whose lines have the colour of the
/// text around them.
namespace vanzet::view {

/// The drawing of a bitmap of the tree.
struct NodeIcon {
  std::int32_t bitmap;  ///< of a plain node; the next id is that of a selected one
  const char* file;     ///< its name in share/icons, without the ending
  bool isMirrored;      ///< the sub spindle looks the other way
};

/// The icons of the tree, by id.
std::span<const NodeIcon> NodeIcons();

/// The icon of a bitmap, plain or selected; null for an id that is not in the table.
const NodeIcon* FindNodeIcon(std::int32_t bitmap);

struct ButtonIcon {
  const char* file;   ///< of share/icons; null: the button has none
  bool replacesText;  ///< the text is a sign that the icon says better
};

/// The icon of a button, by its text where that is a mere sign, else by its id.
ButtonIcon IconOfButton(std::int32_t id, std::string_view text);

}  // namespace vanzet::view

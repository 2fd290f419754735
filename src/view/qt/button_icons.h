#pragma once

#include <cstdint>
#include <string_view>

namespace vanzet::view::qt {

struct ButtonIcon {
  const char* file;   ///< of share/icons; null: the button has none
  bool replacesText;  ///< the text is a sign that the icon says better
};

/// The icon of a button, by its text where that is a mere sign, else by its id.
ButtonIcon IconOfButton(std::int32_t id, std::string_view text);

}  // namespace vanzet::view::qt

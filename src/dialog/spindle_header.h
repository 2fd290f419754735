#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vanzet::dialog {

/// The control of a page's header text.
inline constexpr std::int32_t kHeader = 2171;

/// "Main Spindle: Billet from Solid": whose record a page shows, and its title by message id.
std::string SpindleHeader(std::int32_t spindle, std::int32_t title, std::string_view titleText);

}  // namespace vanzet::dialog

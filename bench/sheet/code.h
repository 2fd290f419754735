#pragma once

#include <optional>
#include <string>

namespace vanzet::sheet {

/// A text as a QR code, an SVG picture of squares that are one unit wide, with the border that readers need.
/// Nothing for a text that is too long for a code.
std::optional<std::string> CodeSvg(const std::string& text);

}  // namespace vanzet::sheet

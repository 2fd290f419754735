#pragma once

#include <string>
#include <string_view>

namespace vanzet {

/// A text as the content or an attribute of XML; bytes that are not UTF-8 become U+FFFD.
std::string EscapeXml(std::string_view text);

}  // namespace vanzet

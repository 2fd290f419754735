#pragma once

#include <cstddef>
#include <string_view>

namespace vanzet {

/// What stands for a byte that is no UTF-8: U+FFFD, the replacement character.
inline constexpr std::string_view kNoUtf8 = "\xEF\xBF\xBD";

/// How many bytes the character has that `text` begins with; 0 when no character of UTF-8 stands there: a
/// byte out of place, a longer form than needed, half of a surrogate pair, or beyond U+10FFFF.
std::size_t Utf8Length(std::string_view text);

}  // namespace vanzet

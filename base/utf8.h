#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vanzet {

/// The text shown for a byte that is not UTF-8: U+FFFD, the replacement character.
inline constexpr std::string_view kNoUtf8 = "\xEF\xBF\xBD";

/// The number of bytes of the character that `text` begins with; 0 when it does not begin with one: a byte
/// out of place, a longer form than needed, half of a surrogate pair, or beyond U+10FFFF.
std::size_t Utf8Length(std::string_view text);

/// Appends a character to a text; the replacement character for half of a surrogate pair and beyond U+10FFFF.
void AppendUtf8(std::string& text, std::uint32_t character);

/// The number of bytes of the control character that `text` begins with, which a terminal would act on:
/// U+0000 to U+001F, U+007F to U+009F, and a byte out of place from 0x80 to 0x9F, which is such a character
/// on a terminal of 8 bits. 0 when it begins with something else.
std::size_t ControlLength(std::string_view text);

}  // namespace vanzet

#pragma once

#include <string>
#include <string_view>

/// Wide text to bytes and back.
namespace geometry {

/// A character below 128 is one byte, below 2048 two, and three otherwise, as in UTF-8. One that does not fit
/// in three is written as its two halves of 16 bits, three bytes each.
std::string Narrow(std::wstring_view text);

/// The inverse of `Narrow`. Halves are joined, and four-byte sequences are read too; a byte that does not
/// begin a sequence becomes the character of that number.
std::wstring Widen(std::string_view bytes);

}  // namespace geometry

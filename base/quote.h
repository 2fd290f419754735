#pragma once

#include <string>
#include <string_view>

namespace vanzet {

/// A word of the input in quotes, as a message shows it: "'word'". Of a longer word the first 40 characters
/// of UTF-8 are shown, followed by "..."; a byte that is not UTF-8 counts as one character.
std::string Quoted(std::string_view word);

}  // namespace vanzet

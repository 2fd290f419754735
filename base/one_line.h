#pragma once

#include <string>
#include <string_view>

namespace vanzet {

/// The text with its control characters as \n, \r, \t and \x1b, so that it stays on one line whatever names
/// and texts it quotes. A backslash stays as it is: the form is for people.
std::string OneLine(std::string_view text);

}  // namespace vanzet

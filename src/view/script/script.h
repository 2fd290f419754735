#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace vanzet::view {

/// One line of a script, as words. A word in double quotes may be empty and may hold blanks, '#', and the
/// escapes \" \\ \n.
struct ScriptLine {
  int number;  ///< from 1
  std::vector<std::string> words;
};

/// Reads the words of one line; none when it is blank or a comment. A fault tells the column, from 1.
Result<std::vector<std::string>> ScriptWords(std::string_view line);

/// Reads a whole script, without the lines that say nothing. A fault tells line and column.
Result<std::vector<ScriptLine>> ReadScript(std::istream& text);

}  // namespace vanzet::view

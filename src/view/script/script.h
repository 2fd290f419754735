#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace vanzet::view {

struct ScriptWord {
  std::string text;
  bool isQuoted = false;  ///< stood in double quotes
};
using ScriptLine = std::vector<ScriptWord>;

/// Reads the words of one line; none when it is blank or a comment. A word in double quotes may be empty and
/// may hold blanks, '#', and the escapes \" \\ \n. A fault tells the column, from 1.
Result<ScriptLine> ScriptWords(std::string_view line);

/// A walk over the lines of a script that say something.
class ScriptReader {
 public:
  /// `text` has to outlive the reader.
  explicit ScriptReader(std::istream& text) : text_(text) {}

  /// The words of the next line, none at the end. A fault tells line and column, and the walk may go on
  /// behind it.
  Result<ScriptLine> Next();

  /// The number of the line read last, from 1.
  int LineNumber() const { return lineNumber_; }

 private:
  std::istream& text_;
  int lineNumber_ = 0;
};

}  // namespace vanzet::view

#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace vanzet::view {

struct ScriptWord {
  std::string text;
  bool isQuoted = false;  ///< it was in double quotes
};
using ScriptLine = std::vector<ScriptWord>;

/// Reads the words of one line; none when it is blank or a comment. A word in double quotes may be empty and
/// may hold blanks, '#', and the escapes \" \\ \n; before other characters a backslash is one itself. A fault
/// has the column, from 1.
Result<ScriptLine> ScriptWords(std::string_view line);

/// Reads a script line by line, without blank lines and comments.
class ScriptReader {
 public:
  /// `text` has to outlive the reader.
  explicit ScriptReader(std::istream& text) : text_(text) {}

  /// The words of the next line, none at the end. A fault has line, column and source line; reading can go on
  /// after it. A text that cannot be read to its end is a fault of the kind `kSystem`.
  Result<ScriptLine> Next();

  /// The number of the line read last, from 1.
  int LineNumber() const { return lineNumber_; }

 private:
  std::istream& text_;
  int lineNumber_ = 0;
};

}  // namespace vanzet::view

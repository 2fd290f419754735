#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/result.h"

namespace vanzet {

/// One line of an ini text. The views live until the next line is read.
struct IniLine {
  enum class Kind {
    kNothing,  ///< blank, or a comment: its first character is ';' or '#'
    kSection,  ///< "[name]"; text after the bracket is ignored
    kEntry,    ///< "key = value"
    kOther,    ///< none of these
  };
  Kind kind;
  std::string_view name;   ///< of the section or the key, without blanks around it
  std::string_view value;  ///< without blanks around it and then without one pair of enclosing quotes
};

/// Reads an ini text line by line. Lines end with LF or CR LF; a byte order mark at the start is skipped.
class IniReader {
 public:
  /// `text` must outlive the reader. `name` is the name of the file in faults.
  explicit IniReader(std::istream& text, std::string name = {}) : text_(text), name_(std::move(name)) {}

  /// Reads the next line; returns false at the end.
  bool Next(IniLine& line);

  /// The number of the line that was read last, from 1.
  int LineNumber() const { return lineNumber_; }

  /// A fault at the line that was read last, with the line as its source. Its column is that of `part`, a
  /// name or value of the line; without one it is the first character that is not a blank.
  Fault At(std::string text, std::string_view part = {}) const;

 private:
  std::istream& text_;
  std::string name_;
  std::string buffer_;
  std::string_view line_;  ///< of the buffer, without byte order mark and carriage return
  int lineNumber_ = 0;
};

/// Returns the value of a key in a section of an ini text, or nothing. The case of sections and keys is
/// ignored; the first section of the name and the first of equal keys count.
std::optional<std::string> FindIniValue(std::istream& text, std::string_view section, std::string_view key);

}  // namespace vanzet

#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace vanzet {

/// One line of an ini text. The views live until the next line is read.
struct IniLine {
  enum class Kind {
    kNothing,  ///< blank, or a comment: its first character is ';' or '#'
    kSection,  ///< "[name]"; what follows the bracket does not count
    kEntry,    ///< "key = value"
    kOther,    ///< none of these
  };
  Kind kind;
  std::string_view name;   ///< of the section or the key, without blanks around it
  std::string_view value;  ///< without blanks around it and then without one pair of enclosing quotes
};

/// Reads an ini text line by line. Lines end with LF or CR LF; a byte order mark at the start is passed over.
class IniReader {
 public:
  /// `text` has to outlive the reader.
  explicit IniReader(std::istream& text) : text_(text) {}

  /// False at the end.
  bool Next(IniLine& line);

  /// The number of the line read last, from 1.
  int LineNumber() const { return lineNumber_; }

 private:
  std::istream& text_;
  std::string buffer_;
  int lineNumber_ = 0;
};

/// The value of a key in a section of an ini text, or nothing. Sections and keys are compared without regard
/// to case; the first section of the name and the first of equal keys count.
std::optional<std::string> FindIniValue(std::istream& text, std::string_view section, std::string_view key);

}  // namespace vanzet

#pragma once

#include <istream>
#include <string>
#include <string_view>

#include "base/result.h"

namespace vanzet::contour {

/// Reads a foreign text line by line and knows where it is. Lines end with LF or CR LF; a byte
/// order mark before the first is passed over.
///
/// Errors   a fault with file and line: a control character other than the tab (the file is no text), a
///          line of more than `kLongestLine` bytes, more than `kMostLines` lines, or a stream that cannot be
///          read
class LineReader {
 public:
  static constexpr std::size_t kLongestLine = 4096;
  static constexpr int kMostLines = 50'000'000;

  /// `text` has to outlive the reader; `name` is what faults call the file.
  LineReader(std::istream& text, std::string name) : text_(text), name_(std::move(name)) {}

  /// Gives the next line, without its end. False at the end of the text.
  Result<bool> Next(std::string& line);

  /// The number of the line read last, from 1.
  int LineNumber() const { return number_; }

  /// A fault at the line read last, or at another one.
  Fault At(std::string text, int column = 0) const { return AtLine(number_, std::move(text), column); }
  Fault AtLine(int line, std::string text, int column = 0) const {
    return {std::move(text), name_, line, column};
  }

 private:
  Result<bool> Ended();

  std::istream& text_;
  std::string name_;
  int number_ = 0;
};

/// The text between quotes for a message, shortened when it is long.
std::string Quoted(std::string_view text);

}  // namespace vanzet::contour

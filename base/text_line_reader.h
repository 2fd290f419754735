#pragma once

#include <istream>
#include <string>

#include "base/result.h"

namespace vanzet {

/// Reads a foreign text line by line and keeps the place, for faults. Lines end with LF or CR LF; a byte
/// order mark before the first line is skipped.
///
/// Errors   a fault with file and line: a control character other than the tab (the file is not a text file),
///          a line of more than `kLongestLine` bytes, more than `kMostLines` lines, or a stream that cannot
///          be read (`FaultKind::kSystem`)
class TextLineReader {
 public:
  static constexpr std::size_t kLongestLine = 4096;
  static constexpr int kMostLines = 50'000'000;

  /// The stream must outlive the reader. `name` is the name of the file in faults.
  TextLineReader(std::istream& text, std::string name) : text_(text), name_(std::move(name)) {}

  /// Reads the next line, without its end. Returns false at the end of the text.
  Result<bool> Next(std::string& line);

  /// The number of the line that was read last, from 1.
  int LineNumber() const { return number_; }

  /// A fault at the line that was read last, or at another one. It quotes the line where it is one of the
  /// last two.
  Fault At(std::string text, int column = 0) const { return AtLine(number_, std::move(text), column); }
  Fault AtLine(int line, std::string text, int column = 0) const;

  /// The fault of a part of the line that was read last, with the place added.
  Fault At(const Fault& fault) const;

 private:
  Result<bool> AtEnd() const;
  Fault Unreadable(std::string text) const { return {std::move(text), name_, number_}; }

  std::istream& text_;
  std::string name_;
  std::string line_, lineBefore_;
  int number_ = 0;
};

}  // namespace vanzet

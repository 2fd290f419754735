#include "base/text_line_reader.h"

namespace vanzet {
namespace {

constexpr auto kEndOfStream = std::istream::traits_type::eof();

bool IsControl(int byte) {
  return (byte < 0x20 && byte != '\t') || byte == 0x7f;
}

}  // namespace

Result<bool> TextLineReader::Next(std::string& line) {
  line.clear();
  if (text_.peek() == kEndOfStream) return AtEnd();
  if (++number_ > kMostLines)
    return Unreadable("there are more than " + std::to_string(kMostLines) + " lines");
  int byte = 0;
  while ((byte = text_.get()) != kEndOfStream && byte != '\n') {
    if (byte == '\r' && (text_.peek() == '\n' || text_.peek() == kEndOfStream)) continue;
    if (IsControl(byte)) return Unreadable("not a text file: the line has a control character");
    if (line.size() == kLongestLine) {
      return Unreadable("the line is longer than " + std::to_string(kLongestLine) + " bytes");
    }
    line += static_cast<char>(byte);
  }
  if (text_.bad()) return AtEnd();
  constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
  if (number_ == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
  lineBefore_.swap(line_);
  line_ = line;
  return true;
}

Result<bool> TextLineReader::AtEnd() const {
  if (text_.bad() || !text_.eof()) return Fault{"cannot be read", name_, 0, 0, FaultKind::kSystem};
  return false;
}

Fault TextLineReader::AtLine(int line, std::string text, int column) const {
  Fault fault{std::move(text), name_, line, column};
  if (line == number_) fault.source = line_;
  if (line == number_ - 1) fault.source = lineBefore_;
  return fault;
}

Fault TextLineReader::At(const Fault& fault) const {
  Fault placed = At(fault.text, fault.column);
  placed.kind = fault.kind;
  return placed;
}

}  // namespace vanzet

#include "contour/lines.h"

namespace vanzet::contour {
namespace {

bool IsControl(int byte) {
  return (byte < 0x20 && byte != '\t') || byte == 0x7f;
}

}  // namespace

Result<bool> LineReader::Next(std::string& line) {
  line.clear();
  if (text_.peek() == std::istream::traits_type::eof()) return Ended();
  if (++number_ > kMostLines) return At("there are more than " + std::to_string(kMostLines) + " lines");
  int byte = 0;
  while ((byte = text_.get()) != std::istream::traits_type::eof() && byte != '\n') {
    if (byte == '\r' && (text_.peek() == '\n' || text_.peek() == std::istream::traits_type::eof())) continue;
    if (IsControl(byte)) return At("is no text: the line has a control character");
    if (line.size() == kLongestLine) {
      return At("the line is longer than " + std::to_string(kLongestLine) + " bytes");
    }
    line += static_cast<char>(byte);
  }
  if (text_.bad()) return Ended();
  constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
  if (number_ == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
  return true;
}

Result<bool> LineReader::Ended() {
  if (text_.bad() || !text_.eof()) return Fault{"cannot be read", name_};
  return false;
}

std::string Quoted(std::string_view text) {
  constexpr std::size_t kShown = 40;
  if (text.size() <= kShown) return "'" + std::string(text) + "'";
  return "'" + std::string(text.substr(0, kShown)) + "...'";
}

}  // namespace vanzet::contour

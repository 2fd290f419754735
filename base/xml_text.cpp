#include "base/xml_text.h"

#include <algorithm>

#include "base/utf8.h"

namespace vanzet {
namespace {

std::string EscapeCharacter(char c) {
  switch (c) {
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '&': return "&amp;";
    case '"': return "&quot;";
    default: return {c};
  }
}

}  // namespace

std::string EscapeXml(std::string_view text) {
  std::string escaped;
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    if (length == 0) escaped += kNoUtf8;
    if (length == 1) escaped += EscapeCharacter(text.front());
    if (length > 1) escaped += text.substr(0, length);
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return escaped;
}

}  // namespace vanzet

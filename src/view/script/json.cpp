#include "view/script/json.h"

#include <algorithm>

#include "base/utf8.h"

namespace vanzet::view {
namespace {

std::string EscapeCharacter(char c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  switch (c) {
    case '"': return "\\\"";
    case '\\': return "\\\\";
    case '\n': return "\\n";
    case '\r': return "\\r";
    case '\t': return "\\t";
    default: break;
  }
  const auto byte = static_cast<unsigned char>(c);
  if (byte >= 0x20) return {c};
  return std::string("\\u00") + kDigits[byte >> 4U] + kDigits[byte & 0xFU];
}

}  // namespace

std::string JsonString(std::string_view text) {
  std::string json = "\"";
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    if (length == 0) json += kNoUtf8;
    if (length == 1) json += EscapeCharacter(text.front());
    if (length > 1) json += text.substr(0, length);
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return json + '"';
}

JsonList& JsonList::Json(std::string_view key, std::string_view json) {
  return Element(JsonString(key) + ":" + std::string(json));
}

JsonList& JsonList::Element(std::string_view json) {
  if (!list_.empty()) list_ += ',';
  list_ += json;
  return *this;
}

}  // namespace vanzet::view

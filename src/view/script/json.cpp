#include "view/script/json.h"

#include <algorithm>

#include "base/utf8.h"

namespace vanzet::view {
namespace {

/// Escapes a character of one byte, or one of two that is a control character: its last byte is its number.
std::string Escape(std::string_view character) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  switch (character.front()) {
    case '"': return "\\\"";
    case '\\': return "\\\\";
    case '\n': return "\\n";
    case '\r': return "\\r";
    case '\t': return "\\t";
    default: break;
  }
  if (ControlLength(character) == 0) return std::string(character);
  const auto number = static_cast<unsigned char>(character.back());
  return std::string("\\u00") + kDigits[number >> 4U] + kDigits[number & 0xFU];
}

}  // namespace

std::string JsonString(std::string_view text) {
  std::string json = "\"";
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    json += length == 0 ? std::string(kNoUtf8) : Escape(text.substr(0, length));
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

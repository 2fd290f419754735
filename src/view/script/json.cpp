#include "view/script/json.h"

namespace vanzet::view {
namespace {

std::string Escaped(char c) {
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
  for (const char c : text) json += Escaped(c);
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

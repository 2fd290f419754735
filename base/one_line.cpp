#include "base/one_line.h"

#include <algorithm>

#include "base/utf8.h"

namespace vanzet {
namespace {

std::string Escaped(char c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  switch (c) {
    case '\n': return "\\n";
    case '\r': return "\\r";
    case '\t': return "\\t";
    default: break;
  }
  const auto byte = static_cast<unsigned char>(c);
  return std::string("\\x") + kDigits[byte >> 4U] + kDigits[byte & 0xFU];
}

}  // namespace

std::string OneLine(std::string_view text) {
  // Most texts have nothing to escape, and long lists have very many of them.
  if (std::ranges::all_of(text, [](char c) { return c >= ' ' && c < '\x7f'; })) return std::string(text);
  std::string line;
  while (!text.empty()) {
    const std::size_t control = ControlLength(text);
    const std::size_t length = std::max({control, Utf8Length(text), std::size_t{1}});
    if (control == 0) line += text.substr(0, length);
    for (const char c : text.substr(0, control)) line += Escaped(c);
    text.remove_prefix(length);
  }
  return line;
}

}  // namespace vanzet

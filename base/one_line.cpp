#include "base/one_line.h"

namespace vanzet {
namespace {

std::string Shown(char c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  switch (c) {
    case '\n': return "\\n";
    case '\r': return "\\r";
    case '\t': return "\\t";
    default: break;
  }
  const auto byte = static_cast<unsigned char>(c);
  if (byte >= 0x20 && byte != 0x7F) return {c};
  return std::string("\\x") + kDigits[byte >> 4U] + kDigits[byte & 0xFU];
}

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line;
  for (const char c : text) line += Shown(c);
  return line;
}

}  // namespace vanzet

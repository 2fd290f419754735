#include "cli/output.h"

#include <algorithm>
#include <iostream>

#include <nlohmann/json.hpp>

namespace vanzet::cli {
namespace {

/// The blanks that fill the text up to `width`.
std::string Padding(const std::string& text, std::size_t width) {
  const std::size_t length = Width(text);
  return std::string(width > length ? width - length : 0, ' ');
}

}  // namespace

Result<void> Print(const std::string& text) {
  std::cout << text << std::flush;
  if (std::cout.good()) return {};
  return Fault{"standard output cannot be written"};
}

Result<void> PrintJson(const Json& json) {
  return Print(json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
}

std::string EscapedItem(std::string_view item) {
  std::string line;
  for (const char c : item) {
    switch (c) {
      case '\\': line += "\\\\"; break;
      case '\n': line += "\\n"; break;
      case '\r': line += "\\r"; break;
      case '\t': line += "\\t"; break;
      default: line += c;
    }
  }
  return line;
}

std::string Counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::size_t Width(std::string_view text) {
  const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
  return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, continues));
}

std::string Right(const std::string& text, std::size_t width) {
  return Padding(text, width) + text;
}

std::string Left(const std::string& text, std::size_t width) {
  return text + Padding(text, width);
}

}  // namespace vanzet::cli

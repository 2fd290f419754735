#include "cli/output.h"

#include <algorithm>
#include <iostream>

#include <nlohmann/json.hpp>

#include "base/one_line.h"
#include "base/utf8.h"

namespace vanzet::cli {
namespace {

/// The blanks that fill the text up to `width`.
std::string Padding(const std::string& text, std::size_t width) {
  const std::size_t length = Width(text);
  return std::string(width > length ? width - length : 0, ' ');
}

/// JSON in UTF-8 with the control characters that JSON allows in texts as "\\u007f".
std::string WithEscapedControls(std::string_view json) {
  const auto isPlain = [](char c) { return (c >= ' ' && c < '\x7f') || c == '\n'; };
  if (std::ranges::all_of(json, isPlain)) return std::string(json);
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string escaped;
  while (!json.empty()) {
    const std::size_t length = std::max<std::size_t>(Utf8Length(json), 1);
    const auto last = static_cast<unsigned char>(json[length - 1]);
    if (json.front() == '\n' || ControlLength(json) == 0) {
      escaped += json.substr(0, length);
    } else {
      escaped += std::string("\\u00") + kDigits[last >> 4U] + kDigits[last & 0xFU];
    }
    json.remove_prefix(length);
  }
  return escaped;
}

}  // namespace

Result<void> Print(const std::string& text) {
  std::cout << text << std::flush;
  if (std::cout.good()) return {};
  return Fault{"standard output cannot be written"};
}

Result<void> PrintBeside(std::initializer_list<std::string_view> outputs, const std::string& text) {
  if (std::ranges::find(outputs, "-") == outputs.end()) return Print(text);
  std::cerr << text << std::flush;
  return {};
}

Result<void> PrintJson(const Json& json) {
  return Print(WithEscapedControls(json.dump(2, ' ', false, Json::error_handler_t::replace)) + "\n");
}

std::string EscapedItem(std::string_view item) {
  std::string line;
  for (const char c : item) line += c == '\\' ? "\\\\" : std::string(1, c);
  return OneLine(line);
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

std::string Columns(const std::vector<std::vector<std::string>>& rows, std::string_view alignment,
                    const std::string& indent) {
  const std::size_t last = alignment.size() - 1;
  std::vector<std::size_t> widths(alignment.size());
  for (const auto& row : rows) {
    for (std::size_t i = 0; i <= last; ++i) widths[i] = std::max(widths[i], Width(row[i]));
  }
  std::string text;
  for (const auto& row : rows) {
    text += indent;
    for (std::size_t i = 0; i < last; ++i) {
      text += (alignment[i] == 'r' ? Right(row[i], widths[i]) : Left(row[i], widths[i])) + "  ";
    }
    text += (alignment[last] == 'r' ? Right(row[last], widths[last]) : row[last]) + "\n";
  }
  return text;
}

}  // namespace vanzet::cli

#include "project/ini_edit.h"

#include <algorithm>
#include <vector>

#include "base/ini.h"
#include "base/letter_case.h"
#include "base/quote.h"
#include "base/text_stream.h"

namespace vanzet::project {
namespace {

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F;
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

Result<void> CheckKey(std::string_view key) {
  const bool fits = !key.empty() && !IsBlank(key.front()) && !IsBlank(key.back()) &&
                    std::ranges::none_of(key, IsControl) && key.find('=') == std::string_view::npos &&
                    std::string_view(";#[").find(key.front()) == std::string_view::npos;
  if (fits) return {};
  return Fault{"the settings cannot hold a key " + Quoted(key)};
}

/// The value as it is written to a line: in quotes when reading it back would lose something.
Result<std::string> ValueText(std::string_view value) {
  if (std::ranges::any_of(value, IsControl)) {
    return Fault{"the settings cannot hold a value with control characters"};
  }
  const auto isQuote = [](char c) { return c == '"' || c == '\''; };
  const bool loses = !value.empty() && (IsBlank(value.front()) || IsBlank(value.back()) ||
                                        (isQuote(value.front()) && value.front() == value.back()));
  return loses ? "\"" + std::string(value) + "\"" : std::string(value);
}

/// The lines of a text, each with its own line end.
std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
    lines.push_back(text.substr(at, end - at));
    at = end;
  }
  return lines;
}

/// The place of an entry, or of a new one.
struct Place {
  std::size_t entry = 0;  ///< the number of its line from 1; 0: not found
  std::size_t after = 0;  ///< the last line with content in the section's first part; 0: no section
};

Place FindPlace(const std::string& text, std::string_view section, std::string_view key) {
  TextStream stream(text);
  IniReader reader(stream);
  IniLine line;
  Place place;
  bool isInside = false, isFirst = true;
  while (reader.Next(line)) {
    const auto number = static_cast<std::size_t>(reader.LineNumber());
    if (line.kind == IniLine::Kind::kSection) {
      if (isInside) isFirst = false;
      isInside = EqualWithoutCase(line.name, section);
    }
    if (isInside && isFirst && line.kind != IniLine::Kind::kNothing) place.after = number;
    if (!isInside || line.kind != IniLine::Kind::kEntry || !EqualWithoutCase(line.name, key)) continue;
    place.entry = number;
    break;
  }
  return place;
}

}  // namespace

Result<std::string> WithIniEntry(const std::string& text, std::string_view section, std::string_view key,
                                 std::string_view value) {
  VANZET_DO(CheckKey(key));
  VANZET_TRY(const auto written, ValueText(value));
  std::vector<std::string> lines = LinesOf(text);
  const std::string end = !lines.empty() && lines.front().ends_with("\r\n") ? "\r\n" : "\n";
  const Place place = FindPlace(text, section, key);
  if (place.entry > 0) {
    std::string& line = lines[place.entry - 1];
    const std::size_t lineEnd = line.find_last_not_of("\r\n") + 1;
    line = line.substr(0, line.find('=') + 1) + " " + written + line.substr(lineEnd);
  } else {
    if (!lines.empty() && !lines.back().ends_with('\n')) lines.back() += end;
    if (place.after == 0) {
      if (!lines.empty()) lines.push_back(end);
      lines.push_back("[" + std::string(section) + "]" + end);
    }
    const auto at = place.after == 0 ? lines.end() : lines.begin() + static_cast<std::ptrdiff_t>(place.after);
    lines.insert(at, std::string(key) + " = " + written + end);
  }
  std::string joined;
  for (const std::string& line : lines) joined += line;
  return joined;
}

}  // namespace vanzet::project

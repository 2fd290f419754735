#include "project/settings_file.h"

#include <algorithm>
#include <sstream>
#include <system_error>
#include <vector>

#include "base/files/folder_lock.h"
#include "base/files/whole_file.h"
#include "base/ini.h"
#include "base/letter_case.h"
#include "base/quote.h"
#include "project/bench_ini.h"
#include "project/text_file.h"

namespace vanzet::project {
namespace {

constexpr std::string_view kSection = "project";

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

Place FindPlace(const std::string& text, std::string_view key) {
  std::istringstream stream(text);
  IniReader reader(stream);
  IniLine line;
  Place place;
  bool isInside = false, isFirst = true;
  while (reader.Next(line)) {
    const auto number = static_cast<std::size_t>(reader.LineNumber());
    if (line.kind == IniLine::Kind::kSection) {
      if (isInside) isFirst = false;
      isInside = EqualWithoutCase(line.name, kSection);
    }
    if (isInside && isFirst && line.kind != IniLine::Kind::kNothing) place.after = number;
    if (!isInside || line.kind != IniLine::Kind::kEntry || !EqualWithoutCase(line.name, key)) continue;
    place.entry = number;
    break;
  }
  return place;
}

/// The text with the entry, its line ends as those of the text.
std::string WithEntry(const std::string& text, std::string_view key, const std::string& value) {
  std::vector<std::string> lines = LinesOf(text);
  const std::string end = !lines.empty() && lines.front().ends_with("\r\n") ? "\r\n" : "\n";
  const Place place = FindPlace(text, key);
  if (place.entry > 0) {
    std::string& line = lines[place.entry - 1];
    const std::size_t lineEnd = line.find_last_not_of("\r\n") + 1;
    line = line.substr(0, line.find('=') + 1) + " " + value + line.substr(lineEnd);
  } else {
    if (!lines.empty() && !lines.back().ends_with('\n')) lines.back() += end;
    if (place.after == 0) {
      if (!lines.empty()) lines.push_back(end);
      lines.push_back("[" + std::string(kSection) + "]" + end);
    }
    const auto at = place.after == 0 ? lines.end() : lines.begin() + static_cast<std::ptrdiff_t>(place.after);
    lines.insert(at, std::string(key) + " = " + value + end);
  }
  std::string joined;
  for (const std::string& line : lines) joined += line;
  return joined;
}

}  // namespace

Result<std::string> SettingsFile::Value(std::string_view key) const {
  VANZET_TRY(const auto text, Text());
  VANZET_TRY(const auto settings, ReadBenchIni(text, File().string()));
  const auto entry = settings.project.find(key);
  return entry == settings.project.end() ? std::string() : entry->second.value;
}

Result<void> SettingsFile::Set(std::string_view key, std::string_view value) const {
  VANZET_DO(CheckKey(key));
  VANZET_TRY(const auto written, ValueText(value));
  VANZET_TRY(const auto lock, files::FolderLock::Acquire(folder_));
  VANZET_TRY(const auto text, Text());
  // Settings that cannot be read are not changed: a person has to correct them first.
  VANZET_DO(ReadBenchIni(text, File().string()));
  return files::ReplaceFile(File(), WithEntry(text, key, written));
}

Result<std::string> SettingsFile::Text() const {
  std::error_code error;
  if (!std::filesystem::exists(File(), error)) return std::string();
  return ReadTextFile(File(), File().string());
}

}  // namespace vanzet::project

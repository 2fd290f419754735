#include "base/ini.h"

#include <istream>

#include "base/letter_case.h"

namespace vanzet {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return text.substr(text.size());
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string_view WithoutQuotes(std::string_view text) {
  const bool quoted =
      text.size() >= 2 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
  return quoted ? text.substr(1, text.size() - 2) : text;
}

IniLine Read(std::string_view text) {
  using Kind = IniLine::Kind;
  text = WithoutBlanks(text);
  if (text.empty() || text.front() == ';' || text.front() == '#') return {Kind::kNothing, {}, {}};
  if (text.front() == '[') {
    const std::size_t end = text.find(']');
    if (end == std::string_view::npos) return {Kind::kOther, {}, {}};
    return {Kind::kSection, WithoutBlanks(text.substr(1, end - 1)), {}};
  }
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) return {Kind::kOther, {}, {}};
  return {Kind::kEntry, WithoutBlanks(text.substr(0, equals)),
          WithoutQuotes(WithoutBlanks(text.substr(equals + 1)))};
}

bool GoToSection(IniReader& ini, std::string_view section) {
  IniLine line;
  while (ini.Next(line)) {
    if (line.kind == IniLine::Kind::kSection && EqualWithoutCase(line.name, section)) return true;
  }
  return false;
}

}  // namespace

bool IniReader::Next(IniLine& line) {
  if (!std::getline(text_, buffer_)) return false;
  std::string_view text = buffer_;
  if (++lineNumber_ == 1 && text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  if (text.ends_with('\r')) text.remove_suffix(1);
  line_ = text;
  line = Read(text);
  return true;
}

Fault IniReader::At(std::string text, std::string_view part) const {
  if (part.data() == nullptr) part = WithoutBlanks(line_);
  return {.text = std::move(text),
          .file = name_,
          .line = lineNumber_,
          .column = static_cast<int>(part.data() - line_.data()) + 1,
          .source = std::string(line_)};
}

std::optional<std::string> FindIniValue(std::istream& text, std::string_view section, std::string_view key) {
  IniReader ini(text);
  if (!GoToSection(ini, section)) return std::nullopt;
  IniLine line;
  while (ini.Next(line) && line.kind != IniLine::Kind::kSection) {
    if (line.kind == IniLine::Kind::kEntry && EqualWithoutCase(line.name, key))
      return std::string(line.value);
  }
  return std::nullopt;
}

}  // namespace vanzet

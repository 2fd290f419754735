#include "language/command_line.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/numbers.h"

namespace vanzet::language {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The decimal number at the start of `text`, and its length. No plus sign and no hexadecimal form.
std::optional<std::pair<double, std::size_t>> DecimalPrefix(std::string_view text) {
  const std::size_t sign = text.starts_with('-') ? 1 : 0;
  const bool begins =
      text.size() > sign &&
      (IsDigit(text[sign]) || (text[sign] == '.' && text.size() > sign + 1 && IsDigit(text[sign + 1])));
  if (!begins) return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || !std::isfinite(value)) return std::nullopt;
  return std::pair(value + 0.0, static_cast<std::size_t>(end - text.data()));
}

}  // namespace

bool CommandLine::SkipWord(std::string_view word) {
  SkipBlanks();
  const std::string_view rest = line_.substr(at_);
  if (!rest.starts_with(word) || (rest.size() > word.size() && !IsBlank(rest[word.size()]))) return false;
  at_ += word.size();
  return true;
}

bool CommandLine::SkipMark(std::string_view mark) {
  const std::size_t before = at_;
  SkipBlanks();
  const bool isThere = line_.substr(at_).starts_with(mark);
  at_ = isThere ? at_ + mark.size() : before;
  return isThere;
}

char CommandLine::Peek() {
  SkipBlanks();
  return at_ < line_.size() ? line_[at_] : '\0';
}

Result<std::string> CommandLine::ReadQuotedText(std::string_view meaning) {
  return ReadQuotes(meaning, false);
}

Result<std::string> CommandLine::ReadLongestQuotedText(std::string_view meaning) {
  return ReadQuotes(meaning, true);
}

Result<std::string> CommandLine::ReadQuotes(std::string_view meaning, bool toTheLast) {
  if (Peek() != '\'') return FaultHere("expected " + std::string(meaning) + " in single quotes");
  std::size_t end = toTheLast ? line_.rfind('\'') : line_.find('\'', at_ + 1);
  while (!toTheLast && end < line_.size() && end + 1 < line_.size() && !IsBlank(line_[end + 1])) {
    end = line_.find('\'', end + 1);
  }
  if (end == std::string_view::npos || end == at_) return FaultHere("the closing quote is missing");
  std::string text(line_.substr(at_ + 1, end - at_ - 1));
  at_ = end + 1;
  return text;
}

Result<std::string_view> CommandLine::ReadWord(std::string_view meaning) {
  SkipBlanks();
  const std::size_t length = std::min(line_.find_first_of(" \t", at_), line_.size()) - at_;
  if (length == 0) return FaultHere("expected " + std::string(meaning));
  at_ += length;
  return line_.substr(start_, length);
}

std::string_view CommandLine::ReadRest() {
  SkipBlanks();
  const std::string_view rest = line_.substr(at_);
  at_ = line_.size();
  return rest.substr(0, rest.find_last_not_of(" \t") + 1);
}

Result<std::int32_t> CommandLine::ReadInteger(std::string_view meaning, const project::Variables& variables) {
  VANZET_TRY(const auto word, ReadWord(meaning));
  if (const auto number = WholeInteger(word)) return *number;
  if (const auto value = variables.Integer(word)) return *value;
  return FaultHere("expected " + std::string(meaning) + " or an integer variable that has a value, found '" +
                   std::string(word) + "'");
}

Result<double> CommandLine::ReadNumber(std::string_view meaning) {
  SkipBlanks();
  const auto number = DecimalPrefix(line_.substr(at_));
  if (!number) return Expected(meaning);
  at_ += number->second;
  return number->first;
}

Result<double> CommandLine::ReadWholeNumber(std::string_view meaning) {
  VANZET_TRY(const auto number, ReadNumber(meaning));
  VANZET_DO(ExpectWordEnd());
  return number;
}

std::optional<std::int32_t> CommandLine::ReadDigits(std::size_t& at) const {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(line_.data() + at, line_.data() + line_.size(), number);
  if (error != std::errc()) return std::nullopt;
  at = static_cast<std::size_t>(end - line_.data());
  return number;
}

std::optional<Entity> CommandLine::ReadEntity(std::string_view letters) {
  const char letter = Peek();
  if (letter == '\0' || letters.find(letter) == std::string_view::npos) return std::nullopt;
  std::size_t end = at_ + 1;
  const auto number = ReadDigits(end);
  if (!number) return std::nullopt;
  at_ = end;
  return Entity{letter, *number};
}

Result<Entity> CommandLine::ReadEntity(char letter, std::string_view meaning) {
  if (const auto entity = ReadEntity(std::string_view(&letter, 1))) return *entity;
  return Expected(meaning);
}

std::optional<std::string> CommandLine::ReadAssignment() {
  SkipBlanks();
  const std::size_t nameEnd = std::min(line_.find_first_of(" \t=", at_), line_.size());
  const std::size_t mark = std::min(line_.find_first_not_of(" \t", nameEnd), line_.size());
  if (nameEnd == at_ || mark == line_.size() || line_[mark] != '=') return std::nullopt;
  std::string name(line_.substr(at_, nameEnd - at_));
  at_ = mark + 1;
  return name;
}

Result<void> CommandLine::ExpectWordEnd() {
  if (at_ == line_.size() || IsBlank(line_[at_])) return {};
  start_ = at_;
  return Expected("a blank");
}

Result<void> CommandLine::ExpectEnd() {
  SkipBlanks();
  if (at_ == line_.size()) return {};
  return Expected("the end of the line");
}

Fault CommandLine::Expected(std::string_view meaning) const {
  const std::string_view rest = line_.substr(start_);
  const std::string expected = "expected " + std::string(meaning);
  return FaultHere(rest.empty() ? expected : expected + ", found '" + std::string(rest) + "'");
}

void CommandLine::SkipBlanks() {
  while (at_ < line_.size() && IsBlank(line_[at_])) ++at_;
  start_ = at_;
}

}  // namespace vanzet::language

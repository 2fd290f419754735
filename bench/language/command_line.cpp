#include "language/command_line.h"

#include <algorithm>

#include "base/numbers.h"

namespace vanzet::language {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

}  // namespace

bool CommandLine::Take(std::string_view word) {
  PassBlanks();
  const std::string_view rest = line_.substr(at_);
  if (!rest.starts_with(word) || (rest.size() > word.size() && !IsBlank(rest[word.size()]))) return false;
  at_ += word.size();
  return true;
}

Result<std::string> CommandLine::QuotedText(std::string_view meaning) {
  PassBlanks();
  if (at_ == line_.size() || line_[at_] != '\'') {
    return FaultHere("expected " + std::string(meaning) + " in single quotes");
  }
  std::size_t end = line_.find('\'', at_ + 1);
  while (end < line_.size() && end + 1 < line_.size() && !IsBlank(line_[end + 1])) {
    end = line_.find('\'', end + 1);
  }
  if (end == std::string_view::npos) return FaultHere("the closing quote is missing");
  std::string text(line_.substr(at_ + 1, end - at_ - 1));
  at_ = end + 1;
  return text;
}

Result<std::string_view> CommandLine::Word(std::string_view meaning) {
  PassBlanks();
  const std::size_t length =
      static_cast<std::size_t>(
          std::find_if(line_.begin() + static_cast<std::ptrdiff_t>(at_), line_.end(), IsBlank) -
          line_.begin()) -
      at_;
  if (length == 0) return FaultHere("expected " + std::string(meaning));
  at_ += length;
  return line_.substr(start_, length);
}

Result<std::int32_t> CommandLine::Integer(std::string_view meaning, const project::Variables& variables) {
  const auto word = Word(meaning);
  if (!word) return word.fault();
  if (const auto number = WholeInteger(*word)) return *number;
  if (const auto value = variables.Integer(*word)) return *value;
  return FaultHere("expected " + std::string(meaning) + " or an integer variable that has a value, found '" +
                   std::string(*word) + "'");
}

Result<void> CommandLine::End() {
  PassBlanks();
  if (at_ == line_.size()) return {};
  return FaultHere("expected the end of the line, found '" + std::string(line_.substr(at_)) + "'");
}

Fault CommandLine::FaultHere(std::string text) const {
  return Fault{std::move(text), "", 0, static_cast<int>(start_) + 1};
}

void CommandLine::PassBlanks() {
  while (at_ < line_.size() && IsBlank(line_[at_])) ++at_;
  start_ = at_;
}

}  // namespace vanzet::language

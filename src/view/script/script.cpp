#include "view/script/script.h"

#include <istream>
#include <utility>

namespace vanzet::view {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

/// A walk over one line, word by word.
class Words {
 public:
  explicit Words(std::string_view line) : line_(line) {}

  bool AtEnd() {
    while (at_ < line_.size() && IsBlank(line_[at_])) ++at_;
    return at_ == line_.size() || line_[at_] == '#';
  }

  Result<ScriptWord> Next() { return line_[at_] == '"' ? Quoted() : Plain(); }

 private:
  Result<ScriptWord> Plain() {
    const std::size_t start = at_;
    while (at_ < line_.size() && !IsBlank(line_[at_]) && line_[at_] != '#') ++at_;
    return ScriptWord{std::string(line_.substr(start, at_ - start))};
  }

  Result<ScriptWord> Quoted() {
    const std::size_t start = at_++;
    std::string word;
    while (at_ < line_.size() && line_[at_] != '"') {
      if (line_[at_] != '\\') {
        word += line_[at_++];
        continue;
      }
      const char escaped = at_ + 1 < line_.size() ? line_[at_ + 1] : '\0';
      const bool isEscape = escaped == '"' || escaped == '\\' || escaped == 'n';
      if (isEscape) ++at_;
      word += isEscape && escaped == 'n' ? '\n' : line_[at_];
      ++at_;
    }
    if (at_ == line_.size()) return FaultAt(start, "the closing quote is missing");
    ++at_;
    if (at_ < line_.size() && !IsBlank(line_[at_]) && line_[at_] != '#') {
      return FaultAt(at_, "expected a blank after the closing quote");
    }
    return ScriptWord{word, true};
  }

  static Fault FaultAt(std::size_t position, const char* text) {
    return {text, "", 0, static_cast<int>(position) + 1};
  }

  std::string_view line_;
  std::size_t at_ = 0;
};

}  // namespace

Result<ScriptLine> ScriptWords(std::string_view line) {
  ScriptLine words;
  for (Words walk(line); !walk.AtEnd();) {
    VANZET_TRY(ScriptWord word, walk.Next());
    words.push_back(std::move(word));
  }
  return words;
}

Result<ScriptLine> ScriptReader::Next() {
  for (std::string line; std::getline(text_, line);) {
    ++lineNumber_;
    auto words = ScriptWords(line);
    if (!words) {
      Fault fault = words.fault();
      fault.line = lineNumber_;
      fault.source = line;
      return fault;
    }
    if (!words->empty()) return words;
  }
  if (text_.bad()) {
    return Fault{.text = "the script cannot be read to its end", .kind = FaultKind::kSystem};
  }
  return ScriptLine();
}

}  // namespace vanzet::view

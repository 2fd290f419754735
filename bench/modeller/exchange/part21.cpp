#include "modeller/exchange/part21.h"

#include <charconv>
#include <optional>

#include "base/numbers.h"
#include "base/quote.h"
#include "base/utf8.h"

namespace vanzet::modeller {
namespace {

constexpr int kDeepest = 100;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsOfWord(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || IsDigit(c) || c == '_' || c == '-';
}

/// The number of hexadecimal digits at the begin of a text; nothing where they are not there.
std::optional<std::uint32_t> Hexadecimal(std::string_view text, std::size_t digits) {
  if (text.size() < digits) return std::nullopt;
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + digits, number, 16);
  if (error != std::errc() || end != text.data() + digits) return std::nullopt;
  return number;
}

/// The characters of "\X2\00E4\X0\", of which `text` begins with what follows the head.
std::string WideCharacters(std::string_view& text, std::size_t digits) {
  std::string characters;
  while (const auto code = Hexadecimal(text, digits)) {
    AppendUtf8(characters, *code);
    text.remove_prefix(digits);
  }
  if (text.starts_with("\\X0\\")) text.remove_prefix(4);
  return characters;
}

/// A text without the escapes of its format: \X2\, \X4\, \X\ and \S\ are characters beyond ASCII.
std::string Unescaped(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const auto take = [&](std::string_view head) {
      const bool isThere = text.starts_with(head);
      if (isThere) text.remove_prefix(head.size());
      return isThere;
    };
    constexpr std::size_t kTwoBytes = 4, kFourBytes = 8;
    if (take("\\X2\\")) {
      plain += WideCharacters(text, kTwoBytes);
    } else if (take("\\X4\\")) {
      plain += WideCharacters(text, kFourBytes);
    } else if (take("\\X\\")) {
      if (const auto code = Hexadecimal(text, 2)) {
        AppendUtf8(plain, *code);
        text.remove_prefix(2);
      }
    } else if (text.size() > 3 && text.starts_with("\\S\\")) {
      constexpr std::uint32_t kUpperHalf = 128;
      AppendUtf8(plain, static_cast<unsigned char>(text[3]) + kUpperHalf);
      text.remove_prefix(4);
    } else if (text.size() > 3 && text.starts_with("\\P") && text[3] == '\\') {
      text.remove_prefix(4);  // the code page of \S\, which is taken to be the first one
    } else {
      plain += text.front();
      text.remove_prefix(take("\\\\") ? 0 : 1);
    }
  }
  return plain;
}

/// Reads a text from its begin, and counts its lines.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  Fault At(const std::string& text) const { return {.text = text, .line = line_}; }

  /// Skips blanks and comments.
  void Skip() {
    while (!rest_.empty()) {
      if (IsWhiteSpace(rest_.front())) {
        Advance(1);
      } else if (rest_.starts_with("/*")) {
        const std::size_t end = rest_.find("*/", 2);
        Advance(end == std::string_view::npos ? rest_.size() : end + 2);
      } else {
        return;
      }
    }
  }

  bool AtEnd() {
    Skip();
    return rest_.empty();
  }

  char Next() const { return rest_.empty() ? '\0' : rest_.front(); }

  bool Take(char c) {
    Skip();
    const bool isThere = !rest_.empty() && rest_.front() == c;
    if (isThere) Advance(1);
    return isThere;
  }

  Result<void> Expect(char c) {
    if (Take(c)) return {};
    return At(std::string("expected '") + c + "'" + Found());
  }

  /// Letters, digits, hyphens and underscores, or nothing.
  std::string_view Word() {
    Skip();
    return TakeWhile(IsOfWord);
  }

  Result<std::uint64_t> InstanceNumber() {
    const std::string_view digits = TakeWhile(IsDigit);
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc() && !digits.empty()) return number;
    return At("expected the number of an instance" + Found());
  }

  /// The rest of a text whose quote was taken.
  Result<std::string> Text() {
    std::string raw;
    while (true) {
      const std::size_t end = rest_.find('\'');
      if (end == std::string_view::npos) return At("the text has no end");
      raw += rest_.substr(0, end);
      Advance(end + 1);
      if (rest_.empty() || rest_.front() != '\'') return Unescaped(raw);
      raw += '\'';
      Advance(1);
    }
  }

  /// A number, an enumeration, a binary, "$" or "*".
  std::string_view Literal() {
    Skip();
    return TakeWhile([](char c) {
      return !IsWhiteSpace(c) && std::string_view(",();'#=").find(c) == std::string_view::npos;
    });
  }

  /// Goes on after the end of a statement; quotes hide its semicolon.
  Result<void> SkipStatement() {
    while (!AtEnd()) {
      const char c = Next();
      Advance(1);
      if (c == ';') return {};
      if (c == '\'') {
        const auto text = Text();
        if (!text) return text.fault();
      }
    }
    return At("is cut short");
  }

 private:
  template <class Test>
  std::string_view TakeWhile(Test test) {
    std::size_t size = 0;
    while (size < rest_.size() && test(rest_[size])) ++size;
    const std::string_view taken = rest_.substr(0, size);
    Advance(size);
    return taken;
  }

  std::string Found() const {
    return rest_.empty() ? ", found the end" : ", found " + Quoted(rest_.substr(0, 1));
  }

  void Advance(std::size_t count) {
    for (const char c : rest_.substr(0, count)) line_ += c == '\n' ? 1 : 0;
    rest_.remove_prefix(count);
  }

  std::string_view rest_;
  int line_ = 1;
};

std::string Capitals(std::string_view word) {
  std::string capitals(word);
  for (char& c : capitals) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return capitals;
}

Result<Part21Value> ReadValue(Reader& reader) {
  using Kind = Part21Value::Kind;
  if (reader.Take('\'')) {
    VANZET_TRY(auto text, reader.Text());
    return Part21Value{Kind::kText, std::move(text)};
  }
  if (reader.Take('#')) {
    VANZET_TRY(const auto number, reader.InstanceNumber());
    return Part21Value{Kind::kReference, "", number};
  }
  const std::string_view literal = reader.Literal();
  if (literal.empty()) return reader.At("expected a value");
  return Part21Value{WholeReal(literal) ? Kind::kNumber : Kind::kOther, std::string(literal)};
}

/// Reads values up to the bracket that closes the one which was taken.
Result<void> ReadValues(Reader& reader, std::vector<Part21Value>& values) {
  int depth = 1;
  while (depth > 0) {
    if (reader.Take('(')) {
      if (++depth > kDeepest) return reader.At("has lists within lists, more than 100 levels deep");
    } else if (reader.Take(')')) {
      --depth;
    } else if (!reader.Take(',')) {
      VANZET_TRY(auto value, ReadValue(reader));
      values.push_back(std::move(value));
    }
  }
  return {};
}

/// Reads what follows "#12".
Result<Part21Instance> ReadInstance(Reader& reader) {
  Part21Instance instance;
  VANZET_DO(reader.Expect('='));
  const bool isOfSeveralTypes = reader.Take('(');
  do {
    const std::string_view type = reader.Word();
    if (type.empty()) return reader.At("expected the type of an instance");
    if (instance.type.empty()) instance.type = Capitals(type);
    VANZET_DO(reader.Expect('('));
    VANZET_DO(ReadValues(reader, instance.values));
  } while (isOfSeveralTypes && !reader.Take(')'));
  VANZET_DO(reader.Expect(';'));
  return instance;
}

}  // namespace

Result<Part21Instances> ReadPart21(std::string_view text) {
  constexpr std::string_view kFirst = "ISO-10303-21", kLast = "END-ISO-10303-21";
  Reader reader(text);
  if (Capitals(reader.Word()) != kFirst) return reader.At("expected 'ISO-10303-21;'");
  VANZET_DO(reader.Expect(';'));
  Part21Instances instances;
  while (!reader.AtEnd()) {
    if (!reader.Take('#')) {
      const bool isLast = Capitals(reader.Word()) == kLast;
      VANZET_DO(reader.SkipStatement());
      if (isLast) return instances;
      continue;
    }
    VANZET_TRY(const auto number, reader.InstanceNumber());
    VANZET_TRY(auto instance, ReadInstance(reader));
    if (!instances.emplace(number, std::move(instance)).second)
      return reader.At("the instance #" + std::to_string(number) + " is here twice");
  }
  return reader.At("is cut short: it does not end with 'END-ISO-10303-21;'");
}

}  // namespace vanzet::modeller

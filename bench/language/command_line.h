#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"
#include "project/variables.h"

namespace vanzet::language {

/// A working entity or a contour by its letter and number, such as s100 or s-100.
struct Entity {
  char letter = 0;
  std::int32_t number = 0;

  std::string Name() const { return letter + std::to_string(number); }
};

/// Reads one line of the macro language from left to right. Every fault has a column, from 1, and says what
/// was expected.
class CommandLine {
 public:
  /// `column` is the place of the text in the line that it is a part of.
  explicit CommandLine(std::string_view line, int column = 1) : line_(line), firstColumn_(column) {}

  /// Skips blanks, and `word` when it is next and a blank or the end follows. Returns whether it was there.
  bool SkipWord(std::string_view word);

  /// Skips blanks and `mark`, whatever follows it. Without the mark the position does not change.
  bool SkipMark(std::string_view mark);

  /// The next character after blanks, or NUL at the end.
  char Peek();

  /// Reads a text in single quotes. It ends at the first quote that a blank or the end of the line follows,
  /// so that the names of files may contain others.
  Result<std::string> ReadQuotedText(std::string_view meaning);

  /// Reads a text in single quotes that ends at the last quote of the line.
  Result<std::string> ReadLongestQuotedText(std::string_view meaning);

  /// Reads a word up to the next blank.
  Result<std::string_view> ReadWord(std::string_view meaning);

  /// Reads the rest of the line, without blanks around it; it may be empty.
  std::string_view ReadRest();

  /// Reads an integer, or the name of an integer variable and returns its value.
  Result<std::int32_t> ReadInteger(std::string_view meaning, const project::Variables& variables);

  /// Reads a decimal number, whatever follows it. No zero has a sign.
  Result<double> ReadNumber(std::string_view meaning);

  /// The same; a blank or the end must follow.
  Result<double> ReadWholeNumber(std::string_view meaning);

  /// Reads an entity of that letter, after blanks; whatever follows it.
  Result<Entity> ReadEntity(char letter, std::string_view meaning);

  /// Reads an entity of one of the letters if one is next, else returns nothing and stays.
  std::optional<Entity> ReadEntity(std::string_view letters);

  /// Reads the name of a variable and the '=' after it; returns nothing and stays when they are not next.
  std::optional<std::string> ReadAssignment();

  /// Fails unless a blank or the end is next.
  Result<void> ExpectWordEnd();

  /// Fails unless only blanks are left.
  Result<void> ExpectEnd();

  bool IsAtEnd() { return Peek() == '\0'; }

  /// The line as messages quote it.
  std::string_view text() const { return line_; }

  /// The column of the next word.
  int NextColumn() {
    SkipBlanks();
    return column();
  }

  /// The column of the text.
  int firstColumn() const { return firstColumn_; }

  /// The column of the word that was read last, or where the next one was expected.
  int column() const { return static_cast<int>(start_) + firstColumn_; }

  /// A fault at that place.
  Fault FaultHere(std::string text, FaultKind kind = FaultKind::kRefused) const {
    return {.text = std::move(text), .column = column(), .kind = kind};
  }

  /// A fault at that place: something else was expected.
  Fault Expected(std::string_view meaning) const;

 private:
  void SkipBlanks();
  Result<std::string> ReadQuotes(std::string_view meaning, bool toTheLast);
  std::optional<std::int32_t> ReadDigits(std::size_t& at) const;

  std::string_view line_;
  int firstColumn_;
  std::size_t at_ = 0;     ///< the position of the next character to read
  std::size_t start_ = 0;  ///< the position of the last word
};

}  // namespace vanzet::language

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

/// A walk over one line of the macro language. Every fault tells the column, from 1, and what was expected.
class CommandLine {
 public:
  /// `column` is where the text stands in the line that it is a part of.
  explicit CommandLine(std::string_view line, int column = 1) : line_(line), firstColumn_(column) {}

  /// Passes over blanks and then `word`, when it stands there and a blank or the end follows.
  bool Take(std::string_view word);

  /// Passes over blanks and then `mark`, whatever follows; the walk stays where it was when it is not there.
  bool TakeMark(std::string_view mark);

  /// The next character behind blanks, or NUL at the end.
  char Peek();

  /// A text in single quotes. It ends at the first quote before a blank or the end of the line, so that names
  /// of files may hold others.
  Result<std::string> QuotedText(std::string_view meaning);

  /// A text in single quotes that ends at the last quote of the line.
  Result<std::string> LongestQuotedText(std::string_view meaning);

  /// A word up to the next blank.
  Result<std::string_view> Word(std::string_view meaning);

  /// All that is left, without blanks around it; may be empty.
  std::string_view Rest();

  /// An integer, or the name of an integer variable, whose value is taken.
  Result<std::int32_t> Integer(std::string_view meaning, const project::Variables& variables);

  /// A decimal number, whatever follows. No zero has a sign.
  Result<double> Number(std::string_view meaning);

  /// The same where a blank or the end follows.
  Result<double> WholeNumber(std::string_view meaning);

  /// An entity of that letter, behind blanks; whatever follows.
  Result<Entity> EntityOf(char letter, std::string_view meaning);

  /// An entity of one of the letters where one stands, else nothing and the walk stays.
  std::optional<Entity> TakeEntity(std::string_view letters);

  /// The name of a variable where '=' follows, behind which the walk then is; else nothing and the walk
  /// stays.
  std::optional<std::string> TakeAssignment();

  /// Requires a blank or the end here.
  Result<void> WordEnd();

  /// Nothing more but blanks.
  Result<void> End();

  bool IsAtEnd() { return Peek() == '\0'; }

  /// What the line says, as messages quote it.
  std::string_view text() const { return line_; }

  /// Where the next word begins.
  int NextColumn() {
    PassBlanks();
    return column();
  }

  /// Where the text begins.
  int firstColumn() const { return firstColumn_; }

  /// Where the word that was taken last begins, or where the next one was expected.
  int column() const { return static_cast<int>(start_) + firstColumn_; }

  /// A fault at that place.
  Fault FaultHere(std::string text) const { return Fault{std::move(text), "", 0, column()}; }

  /// A fault at that place: something else was expected.
  Fault Expected(std::string_view meaning) const;

 private:
  void PassBlanks();
  Result<std::string> Quoted(std::string_view meaning, bool toTheLast);
  std::optional<std::int32_t> TakeDigits(std::size_t& at) const;

  std::string_view line_;
  int firstColumn_;
  std::size_t at_ = 0;     ///< where the next word is looked for
  std::size_t start_ = 0;  ///< where the last one began
};

}  // namespace vanzet::language

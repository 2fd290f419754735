#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/result.h"
#include "project/variables.h"

namespace vanzet::language {

/// A walk over one line of the macro language. Every fault tells the column, from 1, and what was expected.
class CommandLine {
 public:
  explicit CommandLine(std::string_view line) : line_(line) {}

  /// Passes over blanks and then `word`, when it stands there and a blank or the end follows.
  bool Take(std::string_view word);

  /// A text in single quotes. It ends at the first quote before a blank or the end of the line, so that names
  /// of files may hold others.
  Result<std::string> QuotedText(std::string_view meaning);

  /// A word up to the next blank.
  Result<std::string_view> Word(std::string_view meaning);

  /// An integer, or the name of an integer variable, whose value is taken.
  Result<std::int32_t> Integer(std::string_view meaning, const project::Variables& variables);

  /// Nothing more but blanks.
  Result<void> End();

  /// What the line says, as messages quote it.
  std::string_view text() const { return line_; }

  /// A fault at the place of the word that was taken last, or where the next one was expected.
  Fault FaultHere(std::string text) const;

 private:
  void PassBlanks();

  std::string_view line_;
  std::size_t at_ = 0;     ///< where the next word is looked for
  std::size_t start_ = 0;  ///< where the last one began
};

}  // namespace vanzet::language

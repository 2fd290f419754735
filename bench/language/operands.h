#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "language/command_line.h"
#include "project/variables.h"

namespace vanzet::language {

/// The kinds of operand that follow the words of a command.
enum class OperandKind : std::uint8_t {
  kNone,
  kWord,             ///< a word of the command itself, given in `meaning`
  kName,             ///< any word
  kRest,             ///< the rest of the line, which may be empty
  kTitle,            ///< the rest of the line, which must not be empty
  kQuoted,           ///< a text in single quotes
  kLongText,         ///< a text in single quotes up to the last quote of the line
  kLayer,            ///< the text between the last two quotes of the line
  kInteger,          ///< a number or an integer variable
  kReal,             ///< a number
  kIntegerVariable,  ///< the name of one
  kTextVariable,     ///< the name of one
  kContour,          ///< k30000
  kTransform,        ///< m30000
  kAlongAxis,        ///< an axis and a number: x180
  kEntities,         ///< entities and ranges of them, one or more, each an operand: s100>103 p100
};

/// The form of an operand in the table of commands.
struct OperandForm {
  OperandKind kind = OperandKind::kNone;
  std::string_view meaning = {};  ///< for messages; the word of a `kWord`
  int count = 1;                  ///< the number of such operands in a row
};

/// The largest number of forms of a command.
inline constexpr std::size_t kMostForms = 4;
using OperandForms = std::array<OperandForm, kMostForms>;

/// One operand of a line; its kind determines which members are set.
struct Operand {
  int column = 0;
  std::string text = {};    ///< names, texts, variables
  std::int32_t number = 0;  ///< integers, entities; the first of a range
  std::int32_t last = 0;    ///< the last of a range, else as `number`
  double real = 0;          ///< numbers, also the one after an axis
  char letter = 0;          ///< of an entity or axis

  /// A fault at this operand.
  Fault At(std::string reason, FaultKind kind = FaultKind::kRefused) const {
    return {.text = std::move(reason), .column = column, .kind = kind};
  }
  /// The fault at this operand, unless it is in a file.
  Fault At(const Fault& fault) const { return fault.file.empty() ? At(fault.text, fault.kind) : fault; }
  /// The fault of an entity that does not exist.
  Fault Missing() const { return At(Name() + " does not exist", FaultKind::kMissing); }

  /// Returns the result of work with this operand; a fault gets the place of the operand.
  Result<void> WithPlace(const Result<void>& done) const { return done ? done : At(done.fault()); }

  /// An entity as the line names it.
  std::string Name() const { return letter + std::to_string(number); }
};
using Operands = std::vector<Operand>;

/// Reads the rest of the line by the forms of a command.
Result<Operands> ReadOperands(const OperandForms& forms, CommandLine& line,
                              const project::Variables& variables);

}  // namespace vanzet::language

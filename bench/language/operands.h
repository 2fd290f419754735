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

/// What a command takes behind its words.
enum class OperandKind : std::uint8_t {
  kNone,
  kWord,             ///< a word of the command itself, told in `meaning`
  kName,             ///< any word
  kRest,             ///< all that is left, perhaps nothing
  kTitle,            ///< all that is left, and something
  kQuoted,           ///< a text in single quotes
  kLongText,         ///< a text in single quotes up to the last quote of the line
  kLayer,            ///< what stands between the last two quotes of the line
  kInteger,          ///< a number or an integer variable
  kReal,             ///< a number
  kIntegerVariable,  ///< the name of one
  kTextVariable,     ///< the name of one
  kContour,          ///< k30000
  kTransform,        ///< m30000
  kAlongAxis,        ///< an axis and a number: x180
  kEntities,         ///< entities and ranges of them, one or more, each an operand: s100>103 p100
};

/// One operand as the table of commands has it.
struct OperandForm {
  OperandKind kind = OperandKind::kNone;
  std::string_view meaning = {};  ///< for messages; of a `kWord` the word
  int count = 1;                  ///< how many of them stand one after the other
};

/// No command has more forms.
inline constexpr std::size_t kMostForms = 4;
using OperandForms = std::array<OperandForm, kMostForms>;

/// One operand of a line; which members count follows from its kind.
struct Operand {
  int column = 0;
  std::string text = {};    ///< names, texts, variables
  std::int32_t number = 0;  ///< integers, entities; of a range the first
  std::int32_t last = 0;    ///< of a range the last, else as `number`
  double real = 0;          ///< numbers, also the one behind an axis
  char letter = 0;          ///< of an entity or axis

  /// A fault at this operand.
  Fault At(std::string fault) const { return Fault{std::move(fault), "", 0, column}; }
  /// The same for a fault that has no place yet.
  Fault At(const Fault& fault) const { return fault.file.empty() ? At(fault.text) : fault; }

  /// What became of this operand; a fault without a place stands here.
  Result<void> Told(const Result<void>& done) const { return done ? done : At(done.fault()); }

  /// An entity as the line names it.
  std::string Name() const { return letter + std::to_string(number); }
};
using Operands = std::vector<Operand>;

/// Reads what is left of the line by its forms, to the end.
Result<Operands> ReadOperands(const OperandForms& forms, CommandLine& line,
                              const project::Variables& variables);

}  // namespace vanzet::language

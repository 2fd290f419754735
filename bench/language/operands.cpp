#include "language/operands.h"

namespace vanzet::language {
namespace {

using project::Variables;

/// A reader returns one operand; its column is that of the word that was read last.
using Reader = Result<Operand> (*)(const OperandForm& form, CommandLine& line, const Variables& variables);

template <class Text>
Result<Operand> TextOperand(const CommandLine& line, const Result<Text>& text) {
  if (!text) return text.fault();
  return Operand{.column = line.column(), .text = std::string(*text)};
}

Result<Operand> ReadWord(const OperandForm& form, CommandLine& line, const Variables&) {
  if (line.SkipWord(form.meaning)) return Operand{.column = line.column()};
  return line.Expected("'" + std::string(form.meaning) + "'");
}

Result<Operand> ReadName(const OperandForm& form, CommandLine& line, const Variables&) {
  return TextOperand(line, line.ReadWord(form.meaning));
}

Result<Operand> ReadRest(const OperandForm&, CommandLine& line, const Variables&) {
  const std::string rest(line.ReadRest());
  return Operand{.column = line.column(), .text = rest};
}

Result<Operand> ReadTitle(const OperandForm& form, CommandLine& line, const Variables& variables) {
  if (line.IsAtEnd()) return line.Expected(form.meaning);
  return ReadRest(form, line, variables);
}

Result<Operand> ReadQuoted(const OperandForm& form, CommandLine& line, const Variables&) {
  return TextOperand(line, line.ReadQuotedText(form.meaning));
}

Result<Operand> ReadLongText(const OperandForm& form, CommandLine& line, const Variables&) {
  // A translated text may contain quotes before blanks; the operand after it contains none.
  return TextOperand(line, line.ReadLongestQuotedText(form.meaning));
}

Result<Operand> ReadLayer(const OperandForm& form, CommandLine& line, const Variables&) {
  if (line.Peek() != '\'') return line.Expected(std::string(form.meaning) + " in single quotes");
  const int column = line.column();
  const std::string_view rest = line.ReadRest();
  const std::size_t end = rest.rfind('\''), begin = end == 0 ? 0 : rest.rfind('\'', end - 1);
  if (end == 0) return Fault{.text = "the closing quote is missing", .column = column};
  if (end + 1 != rest.size()) {
    return Fault{.text = "expected the end of the line after the layer, found '" +
                         std::string(rest.substr(end + 1)) + "'",
                 .column = column + static_cast<int>(end) + 1};
  }
  return Operand{.column = column + static_cast<int>(begin),
                 .text = std::string(rest.substr(begin + 1, end - begin - 1))};
}

Result<Operand> ReadInteger(const OperandForm& form, CommandLine& line, const Variables& variables) {
  VANZET_TRY(const auto number, line.ReadInteger(form.meaning, variables));
  return Operand{.column = line.column(), .number = number, .last = number};
}

Result<Operand> ReadReal(const OperandForm& form, CommandLine& line, const Variables&) {
  VANZET_TRY(const auto number, line.ReadWholeNumber(form.meaning));
  return Operand{.column = line.column(), .real = number};
}

template <bool (*IsOfType)(std::string_view name)>
Result<Operand> ReadVariable(const OperandForm& form, CommandLine& line, const Variables&) {
  VANZET_TRY(const auto name, line.ReadWord(form.meaning));
  if (IsOfType(name)) return Operand{.column = line.column(), .text = std::string(name)};
  return line.FaultHere("expected " + std::string(form.meaning) + ", found '" + std::string(name) + "'");
}

bool IsText(std::string_view name) {
  return name.size() > 1 && name.starts_with('$');
}

template <char letter>
Result<Operand> ReadEntity(const OperandForm& form, CommandLine& line, const Variables&) {
  VANZET_TRY(const auto entity, line.ReadEntity(letter, form.meaning));
  const int column = line.column();
  VANZET_DO(line.ExpectWordEnd());
  return Operand{.column = column, .number = entity.number, .last = entity.number, .letter = letter};
}

Result<Operand> ReadAlongAxis(const OperandForm& form, CommandLine& line, const Variables&) {
  for (const char* axis : {"x", "y", "z"}) {
    if (!line.SkipMark(axis)) continue;
    const int column = line.column();
    VANZET_TRY(const auto number, line.ReadWholeNumber("a number after the axis"));
    return Operand{.column = column, .real = number, .letter = *axis};
  }
  return line.Expected(form.meaning);
}

/// One entity or a range of them.
Result<Operand> ReadEntityRange(const OperandForm& form, CommandLine& line, const Variables& variables) {
  const auto entity = line.ReadEntity("spckm");
  if (!entity) return line.Expected(form.meaning);
  Operand operand{
      .column = line.column(), .number = entity->number, .last = entity->number, .letter = entity->letter};
  if (line.SkipMark(">")) {
    VANZET_TRY(const auto last, line.ReadInteger("the last number of the range", variables));
    operand.last = last;
    if (operand.last < operand.number) return line.FaultHere("the range ends before it begins");
  }
  VANZET_DO(line.ExpectWordEnd());
  return operand;
}

/// By kind.
constexpr Reader kReaders[] = {
    nullptr,
    ReadWord,
    ReadName,
    ReadRest,
    ReadTitle,
    ReadQuoted,
    ReadLongText,
    ReadLayer,
    ReadInteger,
    ReadReal,
    ReadVariable<Variables::IsInteger>,
    ReadVariable<IsText>,
    ReadEntity<'k'>,
    ReadEntity<'m'>,
    ReadAlongAxis,
    ReadEntityRange,
};

}  // namespace

Result<Operands> ReadOperands(const OperandForms& forms, CommandLine& line, const Variables& variables) {
  Operands operands;
  for (const OperandForm& form : forms) {
    if (form.kind == OperandKind::kNone) break;
    int left = form.count;
    do {
      VANZET_TRY(auto operand, kReaders[static_cast<std::size_t>(form.kind)](form, line, variables));
      operands.push_back(std::move(operand));
      --left;
    } while (left > 0 || (form.kind == OperandKind::kEntities && !line.IsAtEnd()));
  }
  VANZET_DO(line.ExpectEnd());
  return operands;
}

}  // namespace vanzet::language

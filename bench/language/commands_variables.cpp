#include "language/commands.h"

/// Assignments: i1215=5, w_x=2.5, $_return=$_misc, $_x='a text'.
namespace vanzet::language {
namespace {

Result<void> AssignInteger(const std::string& variable, CommandLine& line, project::Variables& variables) {
  VANZET_TRY(const auto value, line.ReadInteger("an integer", variables));
  VANZET_DO(line.ExpectEnd());
  return variables.Set(variable, value);
}

Result<void> AssignReal(const std::string& variable, CommandLine& line, project::Variables& variables) {
  CommandLine word = line;
  VANZET_TRY(const auto name, word.ReadWord("a number or a real variable"));
  const auto known = variables.Real(name);
  VANZET_TRY(const auto value,
             known ? Result<double>(*known) : line.ReadNumber("a number or a real variable"));
  if (known) line = word;
  VANZET_DO(line.ExpectEnd());
  return variables.Set(variable, value);
}

Result<void> AssignText(const std::string& variable, CommandLine& line, project::Variables& variables) {
  const bool isQuoted = line.Peek() == '\'';
  VANZET_TRY(const auto text, isQuoted ? line.ReadLongestQuotedText("a text") : std::string(line.ReadRest()));
  const auto value = isQuoted ? std::optional(text) : variables.Text(text);
  if (!value) return line.Expected("a text in single quotes or a text variable that has a value");
  VANZET_DO(line.ExpectEnd());
  return variables.Set(variable, *value);
}

}  // namespace

Result<void> Assign(const std::string& variable, CommandLine& line, Surroundings& surroundings) {
  // The variables refuse a name of one letter themselves.
  switch (variable.front()) {
    case 'i': return AssignInteger(variable, line, surroundings.variables);
    case 'w': return AssignReal(variable, line, surroundings.variables);
    case '$': return AssignText(variable, line, surroundings.variables);
    default: break;
  }
  return Fault{
      .text = "expected a command or a variable that begins with i, w or $, found '" + variable + "'",
      .column = line.firstColumn()};
}

}  // namespace vanzet::language

#include "cli/help_text.h"

#include "cli/command_words.h"
#include "cli/output.h"

namespace vanzet::cli {
namespace {

using Kind = Parameter::Kind;

std::string InLanguage(const Translations& texts, std::string_view english) {
  return std::string(texts.Translate(kTextSection, english));
}

/// A row of the help: the name in a column of its own, which a long name fills to the end of the line.
std::string Row(const std::string& name, const std::string& text) {
  constexpr std::size_t kColumn = 28;
  const std::string begin = "  " + name;
  const bool fits = Width(begin) + 1 < kColumn;
  return (fits ? Left(begin, kColumn) : begin + "\n" + std::string(kColumn, ' ')) + text + "\n";
}

/// "-o, --out FILE".
std::string NameInHelp(const Parameter& parameter) {
  std::string name = parameter.name;
  if (const std::size_t comma = name.find(','); comma != std::string::npos) name.insert(comma + 1, " ");
  return name + (parameter.type.empty() ? "" : " " + parameter.type);
}

/// Rows under a heading, after an empty line; nothing without rows.
std::string Section(const std::string& heading, const std::string& rows) {
  return rows.empty() ? "" : "\n" + heading + ":\n" + rows;
}

std::string RowsOf(const Command& command, bool areOperands, const Translations& texts) {
  std::string rows;
  for (const Parameter& parameter : command.parameters) {
    if (parameter.help.empty() || (parameter.kind == Kind::kOperand) != areOperands) continue;
    rows += Row(NameInHelp(parameter), DescriptionOf(parameter, texts));
  }
  return rows;
}

/// The rows of the options that are not in the tree.
std::string RowsOfOwnOptions(bool isProgram, const Translations& texts) {
  std::string rows = Row("-h, --help", InLanguage(texts, Translatable("print this help")));
  if (isProgram) rows += Row("-V, --version", InLanguage(texts, Translatable("print the version")));
  return rows;
}

std::string RowsOfCommands(const Command& command) {
  std::string rows;
  for (const Command& each : command.commands) rows += Row(each.name, each.help);
  return rows;
}

/// The end of the help: notes, and examples under a heading.
std::string FooterOf(const Command& command, const Translations& texts) {
  std::string footer = command.notes.empty() ? "" : "\n" + command.notes + "\n";
  std::string examples;
  for (const std::string& example : command.examples) examples += "  " + example + "\n";
  return footer + Section(InLanguage(texts, Translatable("Example")), examples);
}

}  // namespace

std::string DescriptionOf(const Parameter& parameter, const Translations& texts) {
  std::string text = parameter.help;
  for (std::size_t i = 0; i < parameter.choices.size(); ++i) {
    text += (i == 0 ? " (" : ", ") + parameter.choices[i];
  }
  if (!parameter.choices.empty()) text += ")";
  if (parameter.defaultWord.empty()) return text;
  return text + "; " + InLanguage(texts, Translatable("default")) + ": " + parameter.defaultWord;
}

std::string UsageOf(const Command& command) {
  std::string operands, options;
  for (const Parameter& parameter : command.parameters) {
    const bool isBare = parameter.isRequired || parameter.name.starts_with('[');
    if (parameter.kind == Kind::kOperand) {
      operands += " " + (isBare ? parameter.name : "[" + parameter.name + "]");
    } else if (parameter.isRequired) {
      options += " " + parameter.LongName() + " " + parameter.type;
    }
  }
  return operands + options;
}

std::string HelpText(const Command& command, const std::string& path, const Translations& texts) {
  const bool isProgram = path == command.name;
  const bool isGroup = !command.commands.empty();
  const std::string options = " [" + InLanguage(texts, Translatable("OPTIONS")) + "]";
  const std::string usage =
      isGroup ? " " + InLanguage(texts, Translatable("COMMAND")) : options + UsageOf(command);
  return command.help + "\n" + InLanguage(texts, Translatable("Usage")) + ": " + path + usage + "\n" +
         Section(InLanguage(texts, Translatable("Commands")), RowsOfCommands(command)) +
         Section(InLanguage(texts, Translatable("Operands")), RowsOf(command, true, texts)) +
         Section(InLanguage(texts, Translatable("Options")),
                 RowsOfOwnOptions(isProgram, texts) + RowsOf(command, false, texts)) +
         FooterOf(command, texts);
}

}  // namespace vanzet::cli

#include "cli/commands.h"
#include "cli/output.h"

namespace vanzet::cli {
namespace {

/// "--out" of "-o,--out".
std::string LongName(const Parameter& parameter) {
  return parameter.name.substr(parameter.name.rfind(',') + 1);
}

/// " (step, stl)"; empty without choices.
std::string ChoicesOf(const Parameter& parameter) {
  std::string choices;
  for (const std::string& word : parameter.choices) choices += (choices.empty() ? " (" : ", ") + word;
  return choices.empty() ? "" : choices + ")";
}

/// Operands and required options, as in a usage line: " [PROJECT] FILE --out FILE".
std::string UsageOf(const Command& command) {
  std::string operands, options;
  for (const Parameter& parameter : command.parameters) {
    const std::string& name = parameter.name;
    const bool isBare = parameter.isRequired || name.starts_with('[');
    if (parameter.kind == Parameter::Kind::kOperand)
      operands += " " + (isBare ? name : "[" + name + "]");
    else if (parameter.isRequired)
      options += " " + LongName(parameter) + " " + parameter.type;
  }
  return operands + options;
}

/// The text in a cell of a table.
std::string Cell(const std::string& text) {
  std::string cell;
  for (const char c : text) cell += c == '|' ? "\\|" : std::string(1, c);
  return cell;
}

std::string RowOf(const Parameter& parameter) {
  std::string name = parameter.name;
  if (const std::size_t comma = name.find(','); comma != std::string::npos) name.insert(comma + 1, " ");
  const std::string type = parameter.type.empty() ? "" : " " + parameter.type;
  return "| `" + Cell(name + type) + "` | " + Cell(parameter.help + ChoicesOf(parameter)) + " |\n";
}

std::string OptionsOf(const Command& command) {
  std::string rows;
  for (const Parameter& parameter : command.parameters) {
    if (!parameter.help.empty()) rows += RowOf(parameter);
  }
  return rows.empty() ? "" : "| | |\n|---|---|\n" + rows + "\n";
}

/// The notes, and the examples as a block.
std::string FooterOf(const Command& command) {
  std::string block;
  for (const std::string& example : command.examples) block += example + "\n";
  return command.notes + (command.notes.empty() ? "" : "\n\n") + "```\n" + block + "```\n\n";
}

/// The section of a command, or those of the commands of a group. `name` is "vanzet vdm save".
std::string SectionsOf(const Command& command, const std::string& name) {
  if (command.commands.empty()) {
    return "## " + name + "\n\n" + command.help + "\n\n    " + name + UsageOf(command) + "\n\n" +
           OptionsOf(command) + FooterOf(command);
  }
  std::string sections;
  for (const Command& each : command.commands) sections += SectionsOf(each, name + " " + each.name);
  return sections;
}

std::string ManualOf(const Command& program) {
  std::string text = "# The command line\n\n" + program.help + "\n\n" + FooterOf(program) +
                     SectionsOf(program, program.name);
  text.pop_back();
  return text;
}

}  // namespace

void AddManual(Command& vanzet, Context&) {
  Command& command =
      vanzet.AddCommand("manual", "Prints all that the helps of the commands tell, as Markdown.");
  command.examples = {"vanzet manual > command-line.md"};
  command.work = [&] { return Print(ManualOf(vanzet)); };
}

}  // namespace vanzet::cli

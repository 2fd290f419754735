#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/output.h"

namespace vanzet::cli {
namespace {

/// Commands without those that are only a word before others.
std::vector<const CLI::App*> CommandsBelow(const CLI::App& app) {
  std::vector<const CLI::App*> commands;
  for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
    const auto below = CommandsBelow(*command);
    if (below.empty()) commands.push_back(command);
    commands.insert(commands.end(), below.begin(), below.end());
  }
  return commands;
}

/// "vanzet vdm save".
std::string FullName(const CLI::App& command) {
  const CLI::App* const parent = command.get_parent();
  return (parent == nullptr ? "" : FullName(*parent) + " ") + command.get_name();
}

/// "FILE" of "FILE" and of "FORMAT:{step,stl}".
std::string TypeOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  return type.substr(0, type.find(':'));
}

/// " (step, stl)" of "FORMAT:{step,stl}"; empty without choices.
std::string ChoicesOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::size_t from = type.find('{'), to = type.find('}');
  if (from == std::string::npos || to == std::string::npos) return "";
  std::string choices;
  for (const char c : type.substr(from + 1, to - from - 1)) choices += c == ',' ? ", " : std::string(1, c);
  return " (" + choices + ")";
}

/// Operands, and options that must be there, as they stand in a usage line: "[PROJECT] FILE --out FILE".
std::string UsageOf(const CLI::App& command) {
  std::string operands, options;
  for (const CLI::Option* const option : command.get_options()) {
    const bool isOperand = option->get_positional();
    const std::string name = option->get_name(isOperand);
    const bool isBare = option->get_required() || name.starts_with('[');
    if (isOperand) operands += " " + (isBare ? name : "[" + name + "]");
    if (!isOperand && option->get_required()) options += " " + name + " " + TypeOf(*option);
  }
  return operands + options;
}

/// The text in a cell of a table.
std::string Cell(const std::string& text) {
  std::string cell;
  for (const char c : text) cell += c == '|' ? "\\|" : std::string(1, c);
  return cell;
}

std::string RowOf(const CLI::Option& option) {
  std::string name = option.get_positional() ? option.get_name(true) : option.get_name(false, true);
  for (std::size_t comma = 0; (comma = name.find(',', comma)) != std::string::npos; comma += 2)
    name.insert(comma + 1, " ");
  const std::string type =
      option.get_positional() || option.get_expected_max() == 0 ? "" : " " + TypeOf(option);
  return "| `" + Cell(name + type) + "` | " + Cell(option.get_description() + ChoicesOf(option)) + " |\n";
}

std::string OptionsOf(const CLI::App& command) {
  std::string rows;
  for (const CLI::Option* const option : command.get_options()) {
    if (option != command.get_help_ptr() && !option->get_description().empty()) rows += RowOf(*option);
  }
  return rows.empty() ? "" : "| | |\n|---|---|\n" + rows + "\n";
}

/// The example of a footer as a block; what stands before it as text.
std::string FooterOf(const CLI::App& command) {
  constexpr std::string_view kExample = "Example:\n";
  const std::string footer = command.get_footer();
  const std::size_t at = footer.find(kExample);
  if (at == std::string::npos) return footer.empty() ? "" : footer + "\n\n";
  std::string block;
  std::istringstream lines(footer.substr(at + kExample.size()));
  for (std::string line; std::getline(lines, line);)
    block += line.substr(line.starts_with("  ") ? 2 : 0) + "\n";
  return footer.substr(0, at) + "```\n" + block + "```\n\n";
}

std::string SectionOf(const CLI::App& command) {
  const std::string name = FullName(command);
  return "## " + name + "\n\n" + command.get_description() + "\n\n    " + name + UsageOf(command) + "\n\n" +
         OptionsOf(command) + FooterOf(command);
}

std::string ManualOf(const CLI::App& app) {
  std::string text = "# The command line\n\n" + app.get_description() + "\n\n" + FooterOf(app);
  for (const CLI::App* const command : CommandsBelow(app)) text += SectionOf(*command);
  text.pop_back();
  return text;
}

}  // namespace

void AddManual(CLI::App& app, Context& context) {
  CLI::App* const command =
      app.add_subcommand("manual", "Prints all that the helps of the commands tell, as Markdown.");
  command->footer("Example:\n  vanzet manual > command-line.md");
  command->callback([&app, &context] { context.run = [&app] { return Print(ManualOf(app)); }; });
}

}  // namespace vanzet::cli

#include <functional>
#include <map>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"

/// The commands that print the help in other forms: the manual, and the completion for shells.
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

/// The words that may follow some words of the command line: commands and options. Longer words come first,
/// so that a shell that takes the first that fits takes "vdm save" before "vdm".
using Choices = std::map<std::string, std::string, std::greater<>>;

void Collect(const Command& command, const std::string& words, Choices& choices) {
  std::string here;
  for (const Command& each : command.commands) {
    here += each.name + " ";
    Collect(each, words.empty() ? each.name : words + " " + each.name, choices);
  }
  here += kHelpOption;
  for (const Parameter& parameter : command.parameters) {
    const std::size_t dashes = parameter.name.find("--");
    if (dashes != std::string::npos) here += " " + parameter.name.substr(dashes);
  }
  choices[words] = here;
}

/// The cases of a shell's `case` over the words before the one that is completed; each sets `variable`.
std::string Cases(const Choices& choices, const std::string& variable) {
  std::string cases;
  for (const auto& [words, list] : choices) {
    if (words.empty()) continue;
    cases.append("    \"" + words + "\"*) " + variable + "=\"" + list + "\" ;;\n");
  }
  return cases + "    *) " + variable + "=\"" + choices.at("") + "\" ;;\n";
}

std::string Bash(const Choices& choices) {
  return "# Completion of vanzet for bash: source <(vanzet completion bash)\n"
         "_vanzet() {\n"
         "  local words current=\"${COMP_WORDS[COMP_CWORD]}\"\n"
         "  local before=\"${COMP_WORDS[*]:1:COMP_CWORD-1}\"\n"
         "  case \"$before\" in\n" +
         Cases(choices, "words") +
         "  esac\n"
         "  COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n"
         "  [ ${#COMPREPLY[@]} -eq 0 ] && COMPREPLY=($(compgen -f -- \"$current\"))\n"
         "}\n"
         "complete -o filenames -F _vanzet vanzet\n";
}

std::string Zsh(const Choices& choices) {
  return "#compdef vanzet\n"
         "# Completion of vanzet for zsh: source <(vanzet completion zsh)\n"
         "_vanzet() {\n"
         "  local words_before=\"${words[2,CURRENT-1]}\" choices\n"
         "  case \"$words_before\" in\n" +
         Cases(choices, "choices") +
         "  esac\n"
         "  compadd -- ${(s: :)choices}\n"
         "  _files\n"
         "}\n"
         "compdef _vanzet vanzet\n";
}

}  // namespace

void AddManual(Command& vanzet, Context&) {
  Command& command = vanzet.AddCommand("manual", "Prints the help of all commands as Markdown.");
  command.examples = {"vanzet manual > command-line.md"};
  command.work = [&] { return Print(ManualOf(vanzet)); };
}

void AddCompletion(Command& vanzet, Context&) {
  const auto shell = std::make_shared<std::string>();
  Command& command = vanzet.AddCommand("completion", "Prints the completion script for a shell.");
  command.AddOperand("SHELL", "bash or zsh", StoreText(*shell)).Required().OneOf({"bash", "zsh"});
  command.examples = {"source <(vanzet completion bash)"};
  command.work = [=, &vanzet] {
    Choices choices;
    Collect(vanzet, "", choices);
    choices[""].append(" ").append(kVersionOption);
    return Print(*shell == "bash" ? Bash(choices) : Zsh(choices));
  };
}

}  // namespace vanzet::cli

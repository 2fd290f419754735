#include <algorithm>

#include "base/near_words.h"
#include "base/quote.h"
#include "cli/arguments.h"
#include "cli/command_line.h"
#include "cli/command_words.h"
#include "cli/commands.h"
#include "cli/help_text.h"
#include "cli/output.h"

/// The commands that print the help in other forms: the manual, and the completion for shells.
namespace vanzet::cli {
namespace {

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
  return "| `" + Cell(name + type) + "` | " + Cell(DescriptionOf(parameter, {})) + " |\n";
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

/// The words that may follow some words of the command line.
struct Choice {
  std::string before;  ///< the words before, as far as they name the command: "vdm save"
  std::string option;  ///< the last word before, when its value is completed; else empty
  std::string words;   ///< separated by blanks; empty: names of files
};

void CollectOptions(const Command& command, const std::string& path, std::vector<Choice>& choices) {
  Choice all{path, "", ""};
  for (const Parameter& parameter : command.parameters) {
    std::string values;
    for (const std::string& word : parameter.choices) values += (values.empty() ? "" : " ") + word;
    if (parameter.kind == Parameter::Kind::kOption) choices.push_back({path, parameter.LongName(), values});
    const bool isOperand = parameter.kind == Parameter::Kind::kOperand;
    if (!isOperand) values = parameter.LongName();
    if (!values.empty()) all.words += values + " ";
  }
  all.words += kHelpOptions.back();
  choices.push_back(all);
}

/// Longer words come first, so that a shell that takes the first that fits takes "vdm save" before "vdm".
void Collect(const Command& command, const std::string& path, std::vector<Choice>& choices) {
  std::string here;
  for (const Command& each : command.commands) {
    here += each.name + " ";
    Collect(each, path.empty() ? each.name : path + " " + each.name, choices);
  }
  if (here.empty()) return CollectOptions(command, path, choices);
  choices.push_back({path, "", here + kHelpOptions.back()});
}

/// The words before the one that is completed, as a pattern of shells: "picture* --view ".
std::string PatternOf(const Choice& choice) {
  return choice.before + "*" + (choice.option.empty() ? "" : " " + choice.option + " ");
}

/// A case of bash and zsh.
std::string PlainCase(const Choice& choice) {
  std::string pattern;
  for (const char c : PatternOf(choice)) pattern += c == ' ' ? "\\ " : std::string(1, c);
  return "    " + pattern + ") choices=\"" + choice.words + "\" ;;\n";
}

std::string FishCase(const Choice& choice) {
  return "    case '" + PatternOf(choice) + "'\n      string split -n ' ' -- '" + choice.words + "'\n";
}

/// The completion script of a shell, around the cases that set or print the words to choose from.
struct Shell {
  std::string_view name;
  std::string_view head;
  std::string (*caseOf)(const Choice& choice);
  std::string_view tail;
};

constexpr Shell kShells[] = {
    {"bash",
     R"(# Completion of vanzet for bash: source <(vanzet completion bash)
_vanzet() {
  local choices current="${COMP_WORDS[COMP_CWORD]}"
  local before="${COMP_WORDS[*]:1:COMP_CWORD-1} "
  # The shell makes three words of --option=value.
  before="${before%= }" current="${current#=}"
  case "$before" in
)",
     PlainCase,
     R"(  esac
  COMPREPLY=($(compgen -W "$choices" -- "$current"))
  [ ${#COMPREPLY[@]} -eq 0 ] && COMPREPLY=($(compgen -f -- "$current"))
}
complete -o filenames -F _vanzet vanzet
)"},
    {"zsh",
     R"(#compdef vanzet
# Completion of vanzet for zsh: source <(vanzet completion zsh)
_vanzet() {
  local before="${words[2,CURRENT-1]} " choices
  if [[ $PREFIX == --*=* ]]; then
    before+="${PREFIX%%=*} "
    compset -P '*='
  fi
  case "$before" in
)",
     PlainCase,
     R"(  esac
  compadd -- ${(s: :)choices} || _files
}
compdef _vanzet vanzet
)"},
    {"fish",
     R"(# Completion of vanzet for fish: vanzet completion fish | source
function __vanzet_words
  switch "$argv "
)",
     FishCase,
     R"(  end
end
function __vanzet_complete
  set -l before (commandline -opc)
  set -l current (commandline -ct)
  set -l option
  if string match -q -- '--*=*' "$current"
    set option (string split -m 1 = -- $current)
    set -a before $option[1]
    set current "$option[2]"
    set option "$option[1]="
  end
  set -l wanted '^'(string escape --style=regex -- "$current")
  set -l words (__vanzet_words $before[2..] | string match --entire --regex -- $wanted)
  if set -q words[1]
    printf '%s\n' "$option"$words
  else
    printf '%s\n' "$option"(__fish_complete_path $current)
  end
end
complete -c vanzet -f -a '(__vanzet_complete)'
)"},
};

std::string CompletionOf(const Command& program, const std::string& shellName) {
  const Shell& shell = *std::ranges::find(kShells, shellName, &Shell::name);
  std::vector<Choice> choices;
  Collect(program, "", choices);
  choices.back().words += " " + kVersionOptions.back();
  std::string cases;
  for (const Choice& choice : choices) cases += shell.caseOf(choice);
  return std::string(shell.head) + cases + std::string(shell.tail);
}

/// The text that the command `help` prints. Throws `WrongUsage`.
std::string HelpOn(const std::vector<std::string>& words, const Command& program, const Translations& texts) {
  const NamedCommand named = CommandOf(program, words);
  if (named.words == words.size()) return HelpText(*named.command, named.path, texts);
  std::vector<std::string> names;
  for (const Command& each : named.command->commands) names.push_back(each.name);
  const std::string& word = words[named.words];
  throw WrongUsage{"", "no such command: " + Quoted(word) + DidYouMean(word, names)};
}

}  // namespace

void AddHelp(Command& vanzet, Context& context) {
  const auto words = std::make_shared<std::vector<std::string>>();
  Command& command = vanzet.AddCommand("help", "Prints the help of a command.");
  command.AddOperands("[COMMAND...]", "the words of the command; without them, the help of the program",
                      *words);
  command.examples = {"vanzet help vdm save"};
  command.check = [=, &vanzet, &context] { HelpOn(*words, vanzet, context.texts); };
  command.work = [=, &vanzet, &context] { return Print(HelpOn(*words, vanzet, context.texts)); };
}

void AddManual(Command& vanzet, Context&) {
  Command& command = vanzet.AddCommand("manual", "Prints the help of all commands as Markdown.");
  command.examples = {"vanzet manual > command-line.md"};
  command.work = [&] { return Print(ManualOf(vanzet)); };
}

void AddCompletion(Command& vanzet, Context&) {
  const auto shell = std::make_shared<std::string>();
  std::vector<std::string> names;
  for (const Shell& each : kShells) names.emplace_back(each.name);
  Command& command = vanzet.AddCommand("completion", "Prints the completion script for a shell.");
  command.AddOperand("SHELL", "the shell", StoreText(*shell)).Required().OneOf(std::move(names));
  command.examples = {"source <(vanzet completion bash)", "vanzet completion fish | source"};
  command.work = [=, &vanzet] { return Print(CompletionOf(vanzet, *shell)); };
}

}  // namespace vanzet::cli

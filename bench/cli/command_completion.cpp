#include <functional>
#include <map>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"

namespace vanzet::cli {
namespace {

/// What may stand behind some words of the command line: commands and options. Longer words come first, so
/// that a shell that takes the first that fits takes "vdm save" before "vdm".
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

void AddCompletion(Command& vanzet, Context&) {
  const auto shell = std::make_shared<std::string>();
  Command& command = vanzet.AddCommand("completion", "Prints the completion of a shell.");
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

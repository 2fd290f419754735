#include <CLI/CLI.hpp>
#include <functional>
#include <map>

#include "cli/commands.h"
#include "cli/output.h"

namespace vanzet::cli {
namespace {

/// What may stand behind some words of the command line: commands and options. Longer words come first, so
/// that a shell that takes the first that fits takes "vdm save" before "vdm".
using Choices = std::map<std::string, std::string, std::greater<>>;

void Collect(const CLI::App& app, const std::string& words, Choices& choices) {
  std::string& here = choices[words];
  for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
    const std::string& name = command->get_name();
    here.append(here.empty() ? "" : " ").append(name);
    Collect(*command, words.empty() ? name : words + " " + name, choices);
  }
  for (const CLI::Option* const option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) here += (here.empty() ? "--" : " --") + name;
  }
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

void AddCompletion(CLI::App& app, Context& context) {
  const auto shell = std::make_shared<std::string>();
  CLI::App* const command = app.add_subcommand("completion", "Prints the completion of a shell.");
  command->add_option("SHELL", *shell, "bash or zsh")->required()->check(CLI::IsMember({"bash", "zsh"}));
  command->footer("Example:\n  source <(vanzet completion bash)");
  command->callback([=, &app, &context] {
    context.run = [=, &app] {
      Choices choices;
      Collect(app, "", choices);
      return Print(*shell == "bash" ? Bash(choices) : Zsh(choices));
    };
  });
}

}  // namespace vanzet::cli

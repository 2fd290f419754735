#include "cli/command_line.h"

#include <algorithm>
#include <iostream>

#include "base/near_words.h"
#include "base/one_line.h"
#include "base/quote.h"
#include "cli/command_words.h"
#include "cli/help_text.h"
#include "cli/output.h"

namespace vanzet::cli {
namespace {

bool IsOneOf(const std::string& word, const std::vector<std::string>& words) {
  return std::ranges::find(words, word) != words.end();
}

/// Prints the two lines of wrong usage. `path` is the command that was understood.
Request RefuseUsage(const WrongUsage& wrong, const std::string& path) {
  std::cerr << "vanzet: " + OneLine(wrong.Message()) + "\ntry '" + path + " --help'\n";
  return {{}, kWrongUsageStatus};
}

Request RequestToPrint(const std::string& text) {
  return {[text] { return Print(text); }};
}

/// The usage that is wrong when words end with a group, or go on with a word that the group does not know.
WrongUsage UsageOfGroup(const NamedCommand& named, const std::vector<std::string>& words) {
  std::vector<std::string> names;
  for (const Command& each : named.command->commands) names.push_back(each.name);
  if (named.words == words.size()) {
    std::string list;
    for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
    return {"", "expected a command: " + list};
  }
  const std::string& word = words[named.words];
  if (word.starts_with('-')) return UnknownOption(*named.command, word);
  return {"", "no such command: " + Quoted(word) + DidYouMean(word, names)};
}

Request ReadWords(const NamedCommand& named, const std::vector<std::string>& words) {
  CommandWords reader(*named.command);
  reader.Read({words.begin() + static_cast<std::ptrdiff_t>(named.words), words.end()});
  reader.Store();
  if (named.command->check) named.command->check();
  return {named.command->work};
}

/// True when help is asked for: after a command by an option before "--", or by no words at all.
bool WantsHelp(const NamedCommand& named, const std::vector<std::string>& words) {
  if (words.empty()) return true;
  const auto begin = words.begin() + static_cast<std::ptrdiff_t>(named.words);
  return std::any_of(begin, std::find(begin, words.end(), "--"),
                     [](const std::string& word) { return IsOneOf(word, kHelpOptions); });
}

}  // namespace

NamedCommand CommandOf(const Command& program, const std::vector<std::string>& words) {
  NamedCommand named{&program, program.name};
  for (; !named.command->commands.empty() && named.words < words.size(); ++named.words) {
    const Command* const found = named.command->Find(words[named.words]);
    if (found == nullptr) break;
    named.command = found;
    named.path += " " + words[named.words];
  }
  return named;
}

Request ReadCommandLine(const Command& program, const std::string& version, const Translations& texts,
                        int argc, const char* const* argv) {
  const std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
  const NamedCommand named = CommandOf(program, words);
  if (WantsHelp(named, words)) return RequestToPrint(HelpText(*named.command, named.path, texts));
  try {
    if (named.command == &program && IsOneOf(words.front(), kVersionOptions)) {
      return RequestToPrint(version + "\n");
    }
    if (!named.command->commands.empty()) throw UsageOfGroup(named, words);
    return ReadWords(named, words);
  } catch (const WrongUsage& wrong) {
    return RefuseUsage(wrong, named.path);
  }
}

}  // namespace vanzet::cli

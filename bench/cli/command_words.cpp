#include "cli/command_words.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "base/near_words.h"
#include "base/quote.h"

namespace vanzet::cli {
namespace {

using Kind = Parameter::Kind;

constexpr const char* kEndOfOptions = "--";
constexpr const char* kSet = "true";  ///< the word of a flag without a word of its own

using List = std::vector<std::string>*;

/// True for "-o" and "--out"; "-", "-5" and "-.5" are operands.
bool IsOption(const std::string& word) {
  constexpr std::string_view kOfNumbers = ".0123456789";
  return word.size() > 1 && word.front() == '-' && kOfNumbers.find(word[1]) == std::string_view::npos;
}

bool IsList(const Parameter& parameter) {
  return std::holds_alternative<List>(parameter.target);
}

/// Takes one operand or any number of them.
bool TakesRest(const Parameter& operand) {
  return IsList(operand);
}

/// The name as the usage has it: "FILE", "--out FILE".
std::string UsageName(const Parameter& parameter) {
  return parameter.LongName() + (parameter.type.empty() ? "" : " " + parameter.type);
}

void CheckChoice(const Parameter& parameter, const std::string& word) {
  const auto& choices = parameter.choices;
  if (choices.empty() || std::ranges::find(choices, word) != choices.end()) return;
  std::string list;
  for (const std::string& choice : choices) list += (list.empty() ? "" : ", ") + choice;
  throw WrongUsage{parameter.LongName(),
                   "expected one of " + list + "; found " + Quoted(word) + DidYouMean(word, choices)};
}

void StoreInList(const Parameter& parameter, const std::string& word, std::vector<std::string>& list) {
  std::string_view rest = word;
  for (std::size_t end = 0;
       parameter.separator != '\0' && (end = rest.find(parameter.separator)) != std::string_view::npos;
       rest.remove_prefix(end + 1)) {
    list.emplace_back(rest.substr(0, end));
  }
  list.emplace_back(rest);
}

void StoreWord(const Parameter& parameter, const std::string& word) {
  if (const auto* const flag = std::get_if<bool*>(&parameter.target)) **flag = true;
  if (const auto* const list = std::get_if<List>(&parameter.target)) StoreInList(parameter, word, **list);
  if (const auto* const take = std::get_if<TakeWord>(&parameter.target)) (*take)(parameter.LongName(), word);
}

/// Describes an option or flag to the library, which splits the words; all that is asked of them is checked
/// here.
CLI::Option* AddToParser(CLI::App& app, const Parameter& parameter) {
  if (parameter.kind == Kind::kFlag) return app.add_flag(parameter.name);
  return app.add_option(parameter.name)
      ->expected(1)
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

/// "--view solid" or "--view solid or --view wire".
std::string NeededWords(const Need& need) {
  std::string text;
  for (const std::string& word : need.words) {
    text += (text.empty() ? "" : " or ") + need.option + " " + word;
  }
  return text.empty() ? need.option : text;
}

}  // namespace

WrongUsage UnknownOption(const Command& command, const std::string& word) {
  const std::string name = word.substr(0, word.find('='));
  std::vector<std::string> names = {kHelpOptions.back()};
  for (const Parameter& parameter : command.parameters) {
    if (parameter.kind != Kind::kOperand) names.push_back(parameter.LongName());
  }
  return {"", "no such option: " + Quoted(name) + DidYouMean(name, names)};
}

void CommandWords::Read(const Words& words) {
  CheckValuesBehindSigns(words);
  AssignOperands(ReadOptions(words));
  CheckRequired();
  for (const Parameter& parameter : command_.parameters) {
    if (IsGiven(parameter)) CheckTogether(parameter);
  }
}

CommandWords::Words CommandWords::ReadOptions(const Words& words) {
  CLI::App app;
  app.set_help_flag();
  app.allow_extras();
  std::map<const CLI::Option*, const Parameter*> parameters;
  for (const Parameter& parameter : command_.parameters) {
    if (parameter.kind != Kind::kOperand) parameters[AddToParser(app, parameter)] = &parameter;
  }
  try {
    app.parse(Words(words.rbegin(), words.rend()));
  } catch (const CLI::ParseError&) {
    throw MissingValue(words.back());
  }
  TakeInOrder(app, parameters);
  return OperandsAmong(app.remaining());
}

/// The library takes the next word for the missing one of "--out=".
void CommandWords::CheckValuesBehindSigns(const Words& words) const {
  for (const std::string& word : words) {
    if (word == kEndOfOptions) return;
    if (word.starts_with("--") && word.find('=') == word.size() - 1) throw MissingValue(word);
  }
}

WrongUsage CommandWords::MissingValue(std::string_view word) const {
  const Parameter* const option = FindOption(word.substr(0, word.find('=')));
  if (option == nullptr) return UnknownOption(command_, std::string(word));
  if (option->kind == Kind::kFlag) return {option->LongName(), "takes no value"};
  return {option->LongName(), option->type + " is missing"};
}

CommandWords::Words CommandWords::OperandsAmong(Words remaining) const {
  const auto end = std::ranges::find(remaining, kEndOfOptions);
  const auto unknown = std::find_if(remaining.begin(), end, IsOption);
  if (unknown != end) throw UnknownOption(command_, *unknown);
  if (end != remaining.end()) remaining.erase(end);
  return remaining;
}

void CommandWords::TakeInOrder(const CLI::App& app,
                               const std::map<const CLI::Option*, const Parameter*>& parameters) {
  std::map<const CLI::Option*, std::size_t> taken;
  for (const CLI::Option* const option : app.parse_order()) {
    const auto found = parameters.find(option);
    if (found == parameters.end()) continue;
    const Parameter& parameter = *found->second;
    const std::string& word = option->results().at(taken[option]++);
    if (parameter.kind == Kind::kFlag) {
      if (word != kSet) throw WrongUsage{parameter.LongName(), "takes no value"};
    } else if (word == kEndOfOptions || FindOption(word) != nullptr) {
      throw MissingValue(parameter.LongName());
    }
    Give(parameter, word);
  }
}

void CommandWords::Give(const Parameter& parameter, const std::string& word) {
  const bool isOnce = parameter.kind == Kind::kOption && !parameter.isRepeatable && !IsList(parameter);
  if (isOnce && IsGiven(parameter)) throw WrongUsage{parameter.LongName(), "is given twice"};
  CheckChoice(parameter, word);
  given_.emplace_back(&parameter, word);
}

void CommandWords::AssignOperands(const Words& operands) {
  auto next = operands.begin();
  for (const Parameter& parameter : command_.parameters) {
    if (parameter.kind != Kind::kOperand) continue;
    const auto end = TakesRest(parameter) ? operands.end() : std::min(next + 1, operands.end());
    const auto count = static_cast<int>(end - next);
    const bool isCounted = TakesRest(parameter) && parameter.most > 0;
    if (isCounted && (count > 0 || parameter.isRequired) &&
        (count < parameter.least || count > parameter.most)) {
      throw WrongUsage{"", "expected " + parameter.name + ", found " + std::to_string(count) +
                               (count == 1 ? " operand" : " operands")};
    }
    for (; next != end; ++next) Give(parameter, *next);
  }
  if (next != operands.end()) throw WrongUsage{"", "unexpected operand " + Quoted(*next)};
}

const Parameter* CommandWords::FindOption(std::string_view name) const {
  const auto found = std::ranges::find_if(command_.parameters, [&](const Parameter& parameter) {
    return parameter.kind != Kind::kOperand && parameter.IsNamed(name);
  });
  return found == command_.parameters.end() ? nullptr : &*found;
}

CommandWords::Words CommandWords::GivenTo(const Parameter& parameter) const {
  Words words;
  for (const auto& [given, word] : given_) {
    if (given == &parameter) words.push_back(word);
  }
  return words;
}

void CommandWords::CheckRequired() const {
  for (const Parameter& parameter : command_.parameters) {
    if (parameter.isRequired && !IsGiven(parameter)) {
      throw WrongUsage{"", UsageName(parameter) + " is missing"};
    }
  }
}

void CommandWords::CheckTogether(const Parameter& parameter) const {
  for (const std::string& flag : parameter.rivals) {
    const Parameter* const rival = FindOption(flag);
    if (rival == nullptr || !IsGiven(*rival)) continue;
    throw WrongUsage{"", parameter.LongName() + " cannot be given together with " + flag};
  }
  for (const Need& need : parameter.needs) CheckNeed(parameter, need);
}

void CommandWords::CheckNeed(const Parameter& parameter, const Need& need) const {
  const Parameter* const option = FindOption(need.option);
  Words words = option == nullptr ? Words() : GivenTo(*option);
  if (words.empty() && option != nullptr && !option->defaultWord.empty()) words = {option->defaultWord};
  const bool isMet =
      need.words.empty() ? !words.empty() : std::ranges::find_first_of(words, need.words) != words.end();
  if (!isMet) throw WrongUsage{"", parameter.LongName() + " has no effect without " + NeededWords(need)};
}

void CommandWords::Store() const {
  for (const Parameter& parameter : command_.parameters) {
    if (parameter.isRepeatable) continue;
    for (const std::string& word : GivenTo(parameter)) StoreWord(parameter, word);
  }
  for (const auto& [parameter, word] : given_) {
    if (parameter->isRepeatable) StoreWord(*parameter, word);
  }
}

}  // namespace vanzet::cli

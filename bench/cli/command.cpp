#include "cli/command.h"

#include <algorithm>

namespace vanzet::cli {
namespace {

Parameter& AddParameter(std::list<Parameter>& parameters, Parameter::Kind kind, const std::string& name,
                        const std::string& help, decltype(Parameter::target) target) {
  Parameter& parameter = parameters.emplace_back();
  parameter.kind = kind;
  parameter.name = name;
  parameter.help = help;
  parameter.target = std::move(target);
  return parameter;
}

}  // namespace

bool Parameter::IsNamed(std::string_view word) const {
  const std::size_t comma = name.find(',');
  return word == name.substr(0, comma) || word == LongName();
}

const Command* Command::Find(std::string_view word) const {
  const auto found = std::ranges::find(commands, word, &Command::name);
  return found == commands.end() ? nullptr : &*found;
}

Parameter& Parameter::Required() {
  isRequired = true;
  return *this;
}

Parameter& Parameter::OneOf(std::vector<std::string> words) {
  choices = std::move(words);
  return *this;
}

Parameter& Parameter::Count(int fewest, int largest) {
  least = fewest;
  most = largest;
  return *this;
}

Parameter& Parameter::SeparatedBy(char character) {
  separator = character;
  return *this;
}

Parameter& Parameter::Default(std::string word) {
  defaultWord = std::move(word);
  return *this;
}

Parameter& Parameter::Excludes(const std::vector<std::string>& flags) {
  rivals.insert(rivals.end(), flags.begin(), flags.end());
  return *this;
}

Parameter& Parameter::Needs(std::string option, std::vector<std::string> words) {
  needs.push_back({std::move(option), std::move(words)});
  return *this;
}

Parameter& Parameter::Repeatable() {
  isRepeatable = true;
  return *this;
}

Command& Command::AddCommand(const std::string& word, const std::string& sentence) {
  Command& command = commands.emplace_back();
  command.name = word;
  command.help = sentence;
  return command;
}

Parameter& Command::AddFlag(const std::string& flag, const std::string& text, bool& isGiven) {
  return AddParameter(parameters, Parameter::Kind::kFlag, flag, text, &isGiven);
}

Parameter& Command::AddFlag(const std::string& flag, const std::string& text) {
  return AddParameter(parameters, Parameter::Kind::kFlag, flag, text, {});
}

Parameter& Command::AddOption(const std::string& option, const std::string& type, const std::string& text,
                              TakeWord take) {
  Parameter& parameter = AddParameter(parameters, Parameter::Kind::kOption, option, text, std::move(take));
  parameter.type = type;
  return parameter;
}

Parameter& Command::AddOption(const std::string& option, const std::string& type, const std::string& text,
                              std::vector<std::string>& words) {
  Parameter& parameter = AddParameter(parameters, Parameter::Kind::kOption, option, text, &words);
  parameter.type = type;
  return parameter;
}

Parameter& Command::AddOperand(const std::string& operand, const std::string& text, TakeWord take) {
  return AddParameter(parameters, Parameter::Kind::kOperand, operand, text, std::move(take));
}

Parameter& Command::AddOperands(const std::string& operands, const std::string& text,
                                std::vector<std::string>& words) {
  return AddParameter(parameters, Parameter::Kind::kOperand, operands, text, &words);
}

void TranslateHelp(Command& command, const Translations& texts) {
  const auto translate = [&](std::string& text) { text = texts.Translate(kTextSection, text); };
  translate(command.help);
  translate(command.notes);
  for (Parameter& parameter : command.parameters) translate(parameter.help);
  for (Command& each : command.commands) TranslateHelp(each, texts);
}

}  // namespace vanzet::cli

#include "cli/command.h"

#include <CLI/CLI.hpp>
#include <string_view>

namespace vanzet::cli {
namespace {

constexpr int kMostRepetitions = 1000;

/// The headings of the help, as the parsing library names them.
constexpr const char* kLabels[] = {Translatable("Usage"),       Translatable("OPTIONS"),
                                   Translatable("Positionals"), Translatable("SUBCOMMAND"),
                                   Translatable("REQUIRED"),    Translatable("Excludes")};
constexpr const char* kOptions = Translatable("Options");
constexpr const char* kCommands = Translatable("Subcommands");
constexpr const char* kExample = Translatable("Example:");
constexpr const char* kHelpOfHelp = Translatable("Print this help message and exit");
constexpr const char* kHelpOfVersion = Translatable("Display program version information and exit");

std::string InLanguage(const Translations& texts, std::string_view english) {
  return std::string(texts.Translate(kTextSection, english));
}

/// Shows operands by their names alone: "[PROJECT]" where one may be left out.
class HelpFormat : public CLI::Formatter {
 public:
  std::string make_option_usage(const CLI::Option* option) const override {
    const std::string name = make_option_name(option, true);
    return option->get_required() ? name : "[" + name + "]";
  }
  std::string make_option_opts(const CLI::Option* option) const override {
    return option->get_positional() ? "" : Formatter::make_option_opts(option);
  }
};

/// Calls a function that reads words, and throws the parser's exception for wrong usage.
template <class Read>
void ReadWords(const Read& read) {
  try {
    read();
  } catch (const WrongUsage& wrong) {
    throw CLI::ValidationError(wrong.name, wrong.reason);
  }
}

CLI::Option* AddList(CLI::App& app, const Parameter& parameter, std::vector<std::string>& words) {
  CLI::Option* const option = app.add_option(parameter.name, words, parameter.help);
  if (parameter.most > 0) option->expected(parameter.least, parameter.most);
  if (parameter.separator != '\0') option->delimiter(parameter.separator);
  return option;
}

CLI::Option* AddWord(CLI::App& app, const Parameter& parameter, const TakeWord& take) {
  if (parameter.isRepeatable) {
    return app.add_option(parameter.name, parameter.help)
        ->expected(1, kMostRepetitions)
        ->allow_extra_args(false);
  }
  return app.add_option_function<std::string>(
      parameter.name, [&](const std::string& word) { ReadWords([&] { take(parameter.name, word); }); },
      parameter.help);
}

CLI::Option* AddTarget(CLI::App& app, const Parameter& parameter) {
  if (const auto* const flag = std::get_if<bool*>(&parameter.target)) {
    return app.add_flag(parameter.name, **flag, parameter.help);
  }
  if (const auto* const words = std::get_if<std::vector<std::string>*>(&parameter.target)) {
    return AddList(app, parameter, **words);
  }
  if (const auto* const take = std::get_if<TakeWord>(&parameter.target)) {
    return AddWord(app, parameter, *take);
  }
  return app.add_flag(parameter.name, parameter.help);
}

void AddToParser(CLI::App& app, const Parameter& parameter) {
  CLI::Option* const option = AddTarget(app, parameter);
  option->required(parameter.isRequired);
  if (!parameter.type.empty()) option->type_name(parameter.type);
  if (!parameter.choices.empty()) option->check(CLI::IsMember(parameter.choices));
  if (!parameter.defaultWord.empty()) option->default_str(parameter.defaultWord);
  if (!parameter.rival.empty()) option->excludes(app.get_option(parameter.rival));
}

/// Gives the words of repeatable options to their functions, in the order of the command line.
void TakeRepeated(const CLI::App& app, const Command& command) {
  std::map<const CLI::Option*, std::size_t> taken;
  for (const CLI::Option* const option : app.parse_order()) {
    for (const Parameter& parameter : command.parameters) {
      if (!parameter.isRepeatable || option->get_name() != parameter.name) continue;
      std::get<TakeWord>(parameter.target)(parameter.name, option->results().at(taken[option]++));
    }
  }
}

/// The end of the help: notes, and examples under a heading.
std::string FooterOf(const Command& command, const Translations& texts) {
  std::string footer = command.notes;
  if (command.examples.empty()) return footer;
  footer += (command.notes.empty() ? "" : "\n\n") + InLanguage(texts, kExample);
  for (const std::string& example : command.examples) footer += "\n  " + example;
  return footer;
}

/// Describes the program's own options and the headings to the parser; commands inherit them.
void AddHeadings(CLI::App& app, const std::string& version, const Translations& texts) {
  const auto format = std::make_shared<HelpFormat>();
  for (const char* const label : kLabels) format->label(label, InLanguage(texts, label));
  app.formatter(format);
  app.option_defaults()->group(InLanguage(texts, kOptions));
  app.set_help_flag("-h,--help", InLanguage(texts, kHelpOfHelp));
  app.set_version_flag(kVersionOption, version, InLanguage(texts, kHelpOfVersion));
}

/// Describes the command to the parser, which sets `chosen` to the one that was given.
void AddToParser(CLI::App& app, const Command& command, const Translations& texts, const Command*& chosen) {
  app.footer(FooterOf(command, texts));
  for (const Parameter& parameter : command.parameters) AddToParser(app, parameter);
  for (const Command& each : command.commands) {
    CLI::App* const sub = app.add_subcommand(each.name, each.help);
    sub->get_help_ptr()->group(InLanguage(texts, kOptions));
    AddToParser(*sub->group(InLanguage(texts, kCommands)), each, texts, chosen);
  }
  if (!command.commands.empty()) {
    app.require_subcommand(1);
    return;
  }
  app.callback([&] {
    ReadWords([&] {
      TakeRepeated(app, command);
      if (command.check) command.check();
    });
    chosen = &command;
  });
}

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

Parameter& Parameter::Excludes(std::string flag) {
  rival = std::move(flag);
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
  command.help = InLanguage(texts, command.help);
  command.notes = InLanguage(texts, command.notes);
  for (Parameter& parameter : command.parameters) parameter.help = InLanguage(texts, parameter.help);
  for (Command& each : command.commands) TranslateHelp(each, texts);
}

Request ReadCommandLine(const Command& program, const std::string& version, const Translations& texts,
                        int argc, const char* const* argv) {
  CLI::App app(program.help, program.name);
  AddHeadings(app, version, texts);
  const Command* chosen = nullptr;
  AddToParser(app, program, texts, chosen);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return {{}, app.exit(error) == 0 ? 0 : kWrongUsageStatus};
  }
  return {chosen->work, 0};
}

}  // namespace vanzet::cli

#pragma once

#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/result.h"
#include "base/translations.h"

/// The commands of the command line as data: names, operands, options, help. The reader of words
/// (command_line.h), the help, the manual and the shells' completion all use the same tree.
namespace vanzet::cli {

/// Thrown while words are read: the word that was given for `name`, an option or operand, is not acceptable.
/// The program prints both, and exits with the status of wrong usage.
struct WrongUsage {
  std::string name;    ///< empty: the reason says all
  std::string reason;  ///< "expected a number, found 'x'"

  /// "--spur: expected a number, found 'x'".
  std::string Message() const { return name.empty() ? reason : name + ": " + reason; }
};

/// Takes the word that was given for the option or operand `name`. Throws `WrongUsage`.
using TakeWord = std::function<void(const std::string& name, const std::string& word)>;

/// The work of a command, done after all words were read.
using Work = std::function<Result<void>()>;

/// The condition of an option that has an effect only with another one, which has to have, given or by
/// default, one of these words.
struct Need {
  std::string option;              ///< "--view"
  std::vector<std::string> words;  ///< empty: any word will do
};

/// A flag, option or operand of a command.
struct Parameter {
  enum class Kind {
    kFlag,     ///< "--json"
    kOption,   ///< "--spur N"
    kOperand,  ///< "PROJECT"
  };

  Kind kind;
  std::string name;  ///< "--spur", "PROJECT"; several names of an option with commas: "-o,--out"
  std::string type;  ///< of an option: what its word is called in the help, "FILE"
  std::string help;
  /// Where the words go: a flag that is set, a list that grows, or a function for each word.
  std::variant<std::monostate, bool*, std::vector<std::string>*, TakeWord> target;

  bool isRequired = false;
  bool isRepeatable = false;
  std::vector<std::string> choices;  ///< the words that are allowed; empty: all
  int least = 0, most = 0;           ///< of a list: how many words; both 0: any number
  char separator = '\0';             ///< of a list: between entries of one word
  std::string defaultWord;           ///< as the help shows it
  std::vector<std::string> rivals;   ///< the flags that cannot be given together with this one
  std::vector<Need> needs;           ///< without these the option is refused

  /// "--out" of "-o,--out".
  std::string LongName() const { return name.substr(name.rfind(',') + 1); }

  /// True for each of the names of an option.
  bool IsNamed(std::string_view word) const;

  Parameter& Required();
  Parameter& OneOf(std::vector<std::string> words);
  Parameter& Count(int fewest, int largest);
  Parameter& SeparatedBy(char character);
  Parameter& Default(std::string word);
  Parameter& Excludes(const std::vector<std::string>& flags);

  /// The option has no effect without another one, and is refused then:
  ///   Needs("--svg")              --svg has to be given
  ///   Needs("--view", {"solid"})  --view has to be, by the words given or by default, one of these
  Parameter& Needs(std::string option, std::vector<std::string> words = {});

  /// The option may be given several times. Words of such options are taken after all others, in the order of
  /// the command line.
  Parameter& Repeatable();
};

/// A command, or a group of commands.
///
/// Owns     its parameters and sub-commands. The variables that words are stored in are the caller's and have
///          to live until the work is done; usually the work holds them.
/// Story    the functions below describe the command; `ReadCommandLine` fills the variables, calls `check`,
///          and returns `work`
struct Command {
  std::string name;
  std::string help;                   ///< a sentence
  std::string notes;                  ///< paragraphs of the help after the options
  std::vector<std::string> examples;  ///< command lines
  std::list<Parameter> parameters;
  std::list<Command> commands;  ///< not empty: a group
  std::function<void()> check;  ///< called when all words were read; throws `WrongUsage`
  Work work;

  Command& AddCommand(const std::string& word, const std::string& sentence);

  /// The command of a group with that name, or null.
  const Command* Find(std::string_view word) const;

  /// The references stay valid.
  Parameter& AddFlag(const std::string& flag, const std::string& text, bool& isGiven);
  Parameter& AddFlag(const std::string& flag, const std::string& text);
  Parameter& AddOption(const std::string& option, const std::string& type, const std::string& text,
                       TakeWord take);
  /// An option with several words: "--layers a,b".
  Parameter& AddOption(const std::string& option, const std::string& type, const std::string& text,
                       std::vector<std::string>& words);
  /// An operand without text has no row in the table of the help.
  Parameter& AddOperand(const std::string& operand, const std::string& text, TakeWord take);
  /// Several operands, of which a command finds out itself which is which: "[PROJECT] FILE".
  Parameter& AddOperands(const std::string& operands, const std::string& text,
                         std::vector<std::string>& words);
};

/// The section of the translations that holds the texts of the command line.
inline constexpr const char* kTextSection = "cli";

/// Translates the sentences of the help. Names, types and examples stay as they are.
void TranslateHelp(Command& command, const Translations& texts);

}  // namespace vanzet::cli

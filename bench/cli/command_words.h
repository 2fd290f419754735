#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/command.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace vanzet::cli {

/// The options that every command has, and those of the program alone; their long names come last.
inline const std::vector<std::string> kHelpOptions = {"-h", "--help"};
inline const std::vector<std::string> kVersionOptions = {"-V", "--version"};

/// The options and operands that were given to one command.
///
/// Story    `Read` has the words split by CLI11, assigns each to a parameter and checks what can be seen
///          without the meaning of the words; `Store` hands the words to the parameters' targets
/// Errors   both throw `WrongUsage`
class CommandWords {
 public:
  /// The command has to outlive the reader.
  explicit CommandWords(const Command& command) : command_(command) {}

  void Read(const std::vector<std::string>& words);
  void Store() const;

 private:
  using Words = std::vector<std::string>;

  /// Takes the options and flags among the words; returns the operands.
  Words ReadOptions(const Words& words);
  void CheckValuesBehindSigns(const Words& words) const;
  /// The words that the library did not take, but for the mark before the last operands.
  Words OperandsAmong(Words remaining) const;
  void TakeInOrder(const CLI::App& app, const std::map<const CLI::Option*, const Parameter*>& parameters);
  /// The fault of an option that ends without the word it needs: "--out", "--out=".
  WrongUsage MissingValue(std::string_view word) const;
  void Give(const Parameter& parameter, const std::string& word);
  void AssignOperands(const Words& operands);

  const Parameter* FindOption(std::string_view name) const;
  Words GivenTo(const Parameter& parameter) const;
  bool IsGiven(const Parameter& parameter) const { return !GivenTo(parameter).empty(); }

  void CheckRequired() const;
  void CheckTogether(const Parameter& parameter) const;
  void CheckNeed(const Parameter& parameter, const Need& need) const;

  const Command& command_;
  std::vector<std::pair<const Parameter*, std::string>> given_;  ///< in the order of the command line
};

/// The fault of an option that the command does not have.
WrongUsage UnknownOption(const Command& command, const std::string& word);

}  // namespace vanzet::cli

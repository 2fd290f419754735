#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/command.h"

namespace vanzet::cli {

/// The options that every command has, and those of the program alone; their long names come last.
inline const std::vector<std::string> kHelpOptions = {"-h", "--help"};
inline const std::vector<std::string> kVersionOptions = {"-V", "--version"};

/// The options and operands that were given to one command.
///
/// Story    `Read` assigns each word to a parameter and checks what can be seen without the meaning of the
///          words; `Store` hands the words to the parameters' targets
/// Errors   both throw `WrongUsage`
class CommandWords {
 public:
  /// The command has to outlive the reader.
  explicit CommandWords(const Command& command) : command_(command) {}

  void Read(const std::vector<std::string>& words);
  void Store() const;

 private:
  using Words = std::vector<std::string>;

  /// Reads the option at the position, and moves to its last word.
  void ReadOption(const Words& words, std::size_t& at);
  std::string ValueOf(const Parameter& option, const Words& words, std::size_t& at) const;
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

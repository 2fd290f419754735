#pragma once

#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "cli/command.h"

/// Words of the command line as values. All of these throw `WrongUsage` for a word that is not acceptable;
/// `name` is the option or operand that it was given for.
namespace vanzet::cli {

/// A decimal integer within the limits.
std::int32_t IntegerOf(const std::string& name, const std::string& word, std::int32_t least,
                       std::int32_t most);

/// A number that counts something: 0 or more.
std::int32_t NumberOf(const std::string& name, const std::string& word);

/// A finite real within the limits.
double RealOf(const std::string& name, const std::string& word, double least, double most);

/// The name of a file; it is not empty.
std::string FileOf(const std::string& name, const std::string& word);

/// The functions of parameters that store the value of their word in a variable.
TakeWord StoreText(std::string& text);
TakeWord StoreFile(std::string& file);

/// `Number` is std::int32_t or an optional one.
template <class Number>
TakeWord StoreNumber(Number& number) {
  return [&number](const std::string& name, const std::string& word) { number = NumberOf(name, word); };
}

template <class Number>
TakeWord StoreInteger(Number& number, std::int32_t least = std::numeric_limits<std::int32_t>::min(),
                      std::int32_t most = std::numeric_limits<std::int32_t>::max()) {
  return [=, &number](const std::string& name, const std::string& word) {
    number = IntegerOf(name, word, least, most);
  };
}

/// `Real` is double or an optional one.
template <class Real>
TakeWord StoreReal(Real& real, double least = std::numeric_limits<double>::lowest(),
                   double most = std::numeric_limits<double>::max()) {
  return [=, &real](const std::string& name, const std::string& word) {
    real = RealOf(name, word, least, most);
  };
}

/// The words of a command that takes a project among other operands.
struct SplitWords {
  std::filesystem::path project = ".";
  std::vector<std::string> words;
};

/// Splits words of which one may be the project: with one word more than `count`, the project is the first if
/// it names a project, or a folder while the last does not name a project; else the last.
SplitWords SplitOperands(const std::vector<std::string>& words, std::size_t count);

/// Splits any number of words: the project is the first if it names a folder.
SplitWords SplitProject(const std::vector<std::string>& words);

struct Context;

/// Adds the operand PROJECT; the current folder is the default.
void AddProject(Command& command, std::string& project);

/// Adds the option --keep-tmp, for commands whose work has a folder of its own.
Parameter& AddKeepTmp(Command& command, Context& context);

/// Adds the option --wait, for commands that change the project.
Parameter& AddWait(Command& command, Context& context);

/// Adds the option --trace.
Parameter& AddTrace(Command& command, std::string& file);

}  // namespace vanzet::cli

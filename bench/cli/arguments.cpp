#include "cli/arguments.h"

#include <cmath>
#include <system_error>

#include "base/number_text.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "cli/commands.h"

namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

bool IsFolder(const fs::path& folder) {
  std::error_code error;
  return fs::is_directory(folder, error);
}

bool IsProject(const fs::path& folder) {
  std::error_code error;
  return fs::exists(folder / "bench.ini", error);
}

}  // namespace

std::int32_t IntegerOf(const std::string& name, const std::string& word, std::int32_t least,
                       std::int32_t most) {
  const auto number = WholeInteger(word);
  if (number && *number >= least && *number <= most) return *number;
  throw WrongUsage{name, "expected a number from " + std::to_string(least) + " to " + std::to_string(most) +
                             ", found '" + word + "'"};
}

std::int32_t NumberOf(const std::string& name, const std::string& word) {
  return IntegerOf(name, word, 0, std::numeric_limits<std::int32_t>::max());
}

double RealOf(const std::string& name, const std::string& word, double least, double most) {
  const auto number = WholeReal(word);
  if (!number) throw WrongUsage{name, "expected a number, found " + Quoted(word)};
  if (*number >= least && *number <= most) return *number;
  throw WrongUsage{name, "expected a number from " + NumberText(least) + " to " + NumberText(most) +
                             ", found " + Quoted(word)};
}

std::string FileOf(const std::string& name, const std::string& word) {
  if (word.empty()) throw WrongUsage{name, "expected a file name, found ''"};
  return word;
}

TakeWord StoreText(std::string& text) {
  return [&text](const std::string&, const std::string& word) { text = word; };
}

TakeWord StoreFile(std::string& file) {
  return [&file](const std::string& name, const std::string& word) { file = FileOf(name, word); };
}

SplitWords SplitOperands(const std::vector<std::string>& words, std::size_t count) {
  SplitWords operands{".", words};
  if (words.size() != count + 1) return operands;
  const bool isFirst = IsProject(words.front()) || (IsFolder(words.front()) && !IsProject(words.back()));
  const auto project = isFirst ? operands.words.begin() : operands.words.end() - 1;
  operands.project = *project;
  operands.words.erase(project);
  return operands;
}

SplitWords SplitProject(const std::vector<std::string>& words) {
  if (words.empty() || !IsFolder(words.front())) return {".", words};
  return {words.front(), {words.begin() + 1, words.end()}};
}

void AddProject(Command& command, std::string& project) {
  command.AddOperand("PROJECT", "the project's folder", StoreText(project));
}

Parameter& AddKeepTmp(Command& command, Context& context) {
  return command.AddFlag("--keep-tmp", "keep the files of this run in the project's tmp folder",
                         context.keepsTmp);
}

Parameter& AddWait(Command& command, Context& context) {
  constexpr double kLongestWait = 86400;  // a day
  return command
      .AddOption("--wait", "SECONDS", "how long to wait for another process that is changing the project",
                 [&context](const std::string& name, const std::string& word) {
                   const double seconds = RealOf(name, word, 0, kLongestWait);
                   context.wait = std::chrono::milliseconds(std::llround(seconds * 1000));
                 })
      .Default("10");
}

Parameter& AddTrace(Command& command, std::string& file) {
  return command.AddOption("--trace", "FILE",
                           "write each call of the module to this file, one JSON line per call",
                           StoreFile(file));
}

}  // namespace vanzet::cli

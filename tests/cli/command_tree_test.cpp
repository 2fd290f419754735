#include <gmock/gmock.h>

#include <set>

#include "cli/arguments.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "support/catalogues.h"

namespace vanzet::cli {
namespace {

class NoPanel final : public project::MessagePanel {
 private:
  void Show(const Fault& /*fault*/) override {}
};

/// Reads the words as a command line of the program.
Request Read(const Command& program, std::vector<const char*> words) {
  words.insert(words.begin(), "program");
  testing::internal::CaptureStderr();
  Request request = ReadCommandLine(program, "program 1.0", {}, static_cast<int>(words.size()), words.data());
  request.status += testing::internal::GetCapturedStderr().empty() ? 0 : 100;
  return request;
}
constexpr int kReportedWrongUsage = kWrongUsageStatus + 100;

/// A program with one command, which stores what it is given.
struct Cutter {
  Cutter() {
    program.name = "program";
    Command& cut = program.AddCommand("cut", "Cuts.");
    cut.AddOperands("[FILE] LENGTH", "", words).Required().Count(1, 2);
    cut.AddOption("--depth", "MM", "depth", StoreReal(depth, 0, 10));
    cut.AddOption("--tool", "TOOL", "tool", StoreText(tool)).OneOf({"saw", "mill"});
    const auto append = [this](const std::string& name, const std::string& word) { steps += name + word; };
    cut.AddOption("--move", "X", "move", append).Repeatable();
    cut.AddOption("--turn", "A", "turn", append).Repeatable();
    cut.AddFlag("--left", "left", isLeft);
    cut.AddFlag("--right", "right").Excludes({"--left"});
    cut.AddOption("--speed", "N", "speed", StoreReal(speed)).Default("1").Needs("--tool", {"mill"});
    cut.AddOption("--chips", "FILE", "chips", chips).SeparatedBy(',').Needs("--speed");
    cut.AddOption("-o,--out", "FILE", "out", StoreText(out));
    cut.work = [] { return Result<void>(); };
  }

  Command program;
  std::vector<std::string> words;
  std::vector<std::string> chips;
  double depth = 1, speed = 1;
  std::string tool, steps, out;
  bool isLeft = false;
};

TEST(CommandTree, FillsTheVariablesAndReturnsTheWork) {
  Cutter cutter;
  EXPECT_TRUE(Read(cutter.program, {"cut", "a.txt", "5", "--depth", "2.5", "--tool", "saw", "--left"}).work);
  EXPECT_THAT(cutter.words, testing::ElementsAre("a.txt", "5"));
  EXPECT_EQ(cutter.depth, 2.5);
  EXPECT_EQ(cutter.tool, "saw");
  EXPECT_TRUE(cutter.isLeft);
}

TEST(CommandTree, TakesRepeatableOptionsInTheOrderOfTheCommandLine) {
  Cutter cutter;
  EXPECT_TRUE(Read(cutter.program, {"cut", "5", "--move", "1", "--turn", "2", "--move", "3"}).work);
  EXPECT_EQ(cutter.steps, "--move1--turn2--move3");
}

TEST(CommandTree, ReadsOptionsInAllTheirForms) {
  for (const auto& words : std::vector<std::vector<const char*>>{{"cut", "5", "-o", "x"},
                                                                 {"cut", "-ox", "5"},
                                                                 {"cut", "5", "--out", "x"},
                                                                 {"cut", "--out=x", "5"}}) {
    Cutter cutter;
    EXPECT_TRUE(Read(cutter.program, words).work) << testing::PrintToString(words);
    EXPECT_EQ(cutter.out, "x");
    EXPECT_THAT(cutter.words, testing::ElementsAre("5"));
  }
}

TEST(CommandTree, TakesNegativeNumbersADashAndWhatFollowsTwoDashesAsOperands) {
  Cutter numbers, dashes;
  EXPECT_TRUE(Read(numbers.program, {"cut", "-5", "-.5"}).work);
  EXPECT_THAT(numbers.words, testing::ElementsAre("-5", "-.5"));
  EXPECT_TRUE(Read(dashes.program, {"cut", "-", "--", "--left"}).work);
  EXPECT_THAT(dashes.words, testing::ElementsAre("-", "--left"));
  EXPECT_FALSE(dashes.isLeft);
}

TEST(CommandTree, SplitsLists) {
  Cutter cutter;
  EXPECT_TRUE(Read(cutter.program, {"cut", "5", "--chips", "a,b", "--chips", "c"}).work);
  EXPECT_THAT(cutter.chips, testing::ElementsAre("a", "b", "c"));
}

TEST(CommandTree, TakesAnOptionThatNeedsAnotherOnlyWithIt) {
  Cutter milled;
  EXPECT_TRUE(Read(milled.program, {"cut", "5", "--speed", "2", "--tool", "mill"}).work);
  EXPECT_EQ(milled.speed, 2);
  Cutter byDefault;
  EXPECT_TRUE(Read(byDefault.program, {"cut", "5", "--chips", "a"}).work) << "--speed has a default";
}

TEST(CommandTree, AsksForHelpWithoutWords) {
  Cutter cutter;
  const Request request = Read(cutter.program, {});
  ASSERT_TRUE(request.work);
  testing::internal::CaptureStdout();
  EXPECT_TRUE(request.work());
  EXPECT_THAT(testing::internal::GetCapturedStdout(),
              testing::HasSubstr("  cut                       Cuts.\n"));
}

TEST(CommandTree, ReportsWrongUsage) {
  const std::vector<std::vector<const char*>> lines = {
      {"saw"},
      {"--depth", "1"},
      {"cut"},
      {"cut", "a", "b", "c"},
      {"cut", "5", "--depth", "11"},
      {"cut", "5", "--depth", "deep"},
      {"cut", "5", "--tool", "axe"},
      {"cut", "5", "--left", "--right"},
      {"cut", "5", "--depth"},
      {"cut", "5", "--depth", "--left"},
      {"cut", "5", "--depth", "1", "--depth", "2"},
      {"cut", "5", "--left=1"},
      {"cut", "5", "--lef"},
      {"cut", "5", "-x"},
      {"cut", "5", "--speed", "2"},
      {"cut", "5", "--speed", "2", "--tool", "saw"},
  };
  for (const auto& words : lines) {
    Cutter cutter;
    const Request request = Read(cutter.program, words);
    EXPECT_FALSE(request.work);
    EXPECT_EQ(request.status, kReportedWrongUsage) << testing::PrintToString(words);
  }
}

TEST(CommandTree, ChecksAllWordsTogether) {
  Cutter cutter;
  cutter.program.commands.front().check = [&] {
    if (cutter.words.size() == 1) throw WrongUsage{"FILE", "is missing"};
  };
  EXPECT_EQ(Read(cutter.program, {"cut", "5"}).status, kReportedWrongUsage);
  EXPECT_TRUE(Read(cutter.program, {"cut", "a", "5"}).work);
}

void Collect(const Command& command, std::set<std::string>& texts) {
  texts.insert({command.help, command.notes});
  for (const Parameter& parameter : command.parameters) texts.insert(parameter.help);
  for (const Command& each : command.commands) Collect(each, texts);
}

TEST(CommandTree, IsTranslatedIntoEveryLanguage) {
  NoPanel panel;
  Context context{{}, panel};
  Command program;
  DescribeProgram(program, context);
  std::set<std::string> texts = test::MarkedTexts("bench/cli");
  texts.merge(test::MarkedTexts("bench/catalogue"));
  Collect(program, texts);
  texts.erase("");
  test::ExpectTranslated(kTextSection, texts);
}

TEST(Columns, AreAsWideAsTheirWidestCell) {
  EXPECT_EQ(Columns({{"n", "name", "of"}, {"10", "ü", "x y"}}, "rll", " "),
            "  n  name  of\n 10  ü     x y\n");
}

}  // namespace
}  // namespace vanzet::cli

#include "language/command_line.h"

#include <gtest/gtest.h>

namespace vanzet::language {
namespace {

using project::Variables;

TEST(CommandLine, SkipsWholeWordsOnly) {
  CommandLine line("  vdm\tload x");
  EXPECT_FALSE(line.SkipWord("vd"));
  EXPECT_TRUE(line.SkipWord("vdm"));
  EXPECT_FALSE(line.SkipWord("save"));
  EXPECT_TRUE(line.SkipWord("load"));
  EXPECT_EQ(*line.ReadWord("a word"), "x");
  EXPECT_TRUE(line.ExpectEnd());
}

TEST(CommandLine, ReadsTextInQuotesUpToTheQuoteBeforeABlank) {
  CommandLine line("'D:\\a b\\x.vdm' 'o'brien' ''");
  EXPECT_EQ(*line.ReadQuotedText("a file"), "D:\\a b\\x.vdm");
  EXPECT_EQ(*line.ReadQuotedText("a file"), "o'brien");
  EXPECT_EQ(*line.ReadQuotedText("a file"), "");
}

TEST(CommandLine, ReadsIntegersAndIntegerVariables) {
  Variables variables;
  ASSERT_TRUE(variables.Set("i_n", 42));
  CommandLine line("-7 i_n i_billet_vdm");
  EXPECT_EQ(*line.ReadInteger("a number", variables), -7);
  EXPECT_EQ(*line.ReadInteger("a number", variables), 42);
  EXPECT_EQ(*line.ReadInteger("a number", variables), 1000);
}

TEST(CommandLine, ReportsTheColumnAndWhatWasExpected) {
  CommandLine missing("win ");
  ASSERT_TRUE(missing.SkipWord("win"));
  EXPECT_EQ(missing.ReadWord("the number of a window").fault().Message(),
            "5: expected the number of a window");

  CommandLine unquoted("file a");
  ASSERT_TRUE(unquoted.SkipWord("file"));
  EXPECT_EQ(unquoted.ReadQuotedText("the file").fault().Message(), "6: expected the file in single quotes");

  EXPECT_EQ(CommandLine("'open").ReadQuotedText("the file").fault().Message(),
            "1: the closing quote is missing");
  EXPECT_EQ(CommandLine("x").ReadInteger("a VDM", Variables()).fault().Message(),
            "1: expected a VDM or an integer variable that has a value, found 'x'");
  EXPECT_EQ(CommandLine("  more").ExpectEnd().fault().Message(),
            "3: expected the end of the line, found 'more'");
}

}  // namespace
}  // namespace vanzet::language

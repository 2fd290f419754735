#include "view/script/script.h"

#include <gmock/gmock.h>

#include <sstream>

namespace vanzet::view {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Texts(const ScriptLine& line) {
  std::vector<std::string> texts;
  for (const ScriptWord& word : line) texts.push_back(word.text);
  return texts;
}

std::vector<std::string> Words(std::string_view line) {
  const auto words = ScriptWords(line);
  EXPECT_TRUE(words) << line;
  return words ? Texts(*words) : std::vector<std::string>{};
}

void ExpectFault(std::string_view line, int column) {
  const auto words = ScriptWords(line);
  ASSERT_FALSE(words) << line;
  EXPECT_EQ(words.fault().column, column) << line;
  EXPECT_FALSE(words.fault().text.empty());
}

TEST(ScriptWords, AreSeparatedByBlanks) {
  EXPECT_THAT(Words("  set 2022\t80 \r"), ElementsAre("set", "2022", "80"));
  EXPECT_THAT(Words(""), IsEmpty());
}

TEST(ScriptWords, EndAtAComment) {
  EXPECT_THAT(Words("# all of it"), IsEmpty());
  EXPECT_THAT(Words("close # the rest"), ElementsAre("close"));
  EXPECT_THAT(Words("file \"a\"# the rest"), ElementsAre("file", "a"));
  EXPECT_THAT(Words("press 2016# the rest"), ElementsAre("press", "2016"));
}

TEST(ScriptWords, InQuotesMayHoldBlanksHashesAndEscapes) {
  EXPECT_THAT(Words(R"(choose 2124 "Chuck #1")"), ElementsAre("choose", "2124", "Chuck #1"));
  EXPECT_THAT(Words(R"(set 1 "a\"b\\c\nd")"), ElementsAre("set", "1", "a\"b\\c\nd"));
  EXPECT_THAT(Words(R"(set 1 "")"), ElementsAre("set", "1", ""));
}

TEST(ScriptWords, KeepABackslashBeforeOtherLettersInQuotes) {
  EXPECT_THAT(Words(R"(file "C:\shop\x.vdm")"), ElementsAre("file", R"(C:\shop\x.vdm)"));
  EXPECT_THAT(Words(R"(file "\\\\server\share\\" # the rest)"), ElementsAre("file", R"(\\server\share\)"));
  EXPECT_THAT(Words(R"(file "C:\\new.vdm")"), ElementsAre("file", R"(C:\new.vdm)"));
}

TEST(ScriptWords, SayWhetherTheyStoodInQuotes) {
  const auto words = ScriptWords(R"(choose 2124 "1" 1)");
  EXPECT_TRUE((*words)[2].isQuoted);
  EXPECT_FALSE((*words)[3].isQuoted);
}

TEST(ScriptWords, TellWhereAQuoteIsWrong) {
  ExpectFault(R"(file "abc)", 6);
  ExpectFault(R"(file "a"b)", 9);
  ExpectFault(R"(file "a\)", 6);
  ExpectFault(R"(file "a\")", 6);
}

TEST(ScriptReader, NumbersItsLinesFromOneAndLeavesOutEmptyOnes) {
  std::istringstream text("# a set-up\n\nanswer yes\r\nclose");
  ScriptReader script(text);
  EXPECT_THAT(Texts(*script.Next()), ElementsAre("answer", "yes"));
  EXPECT_EQ(script.LineNumber(), 3);
  EXPECT_THAT(Texts(*script.Next()), ElementsAre("close"));
  EXPECT_EQ(script.LineNumber(), 4);
  EXPECT_THAT(Texts(*script.Next()), IsEmpty());
}

TEST(ScriptReader, TellsTheLineOfAFaultAndGoesOnBehindIt) {
  std::istringstream text("close\nfile \"\nclose");
  ScriptReader script(text);
  EXPECT_TRUE(script.Next());
  const auto broken = script.Next();
  ASSERT_FALSE(broken);
  EXPECT_EQ(broken.fault().line, 2);
  EXPECT_EQ(broken.fault().column, 6);
  EXPECT_THAT(Texts(*script.Next()), ElementsAre("close"));
}

}  // namespace
}  // namespace vanzet::view

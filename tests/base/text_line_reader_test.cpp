#include "base/text_line_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace vanzet {
namespace {

using testing::ElementsAre;

std::vector<std::string> LinesOf(const std::string& text) {
  std::istringstream stream(text);
  TextLineReader reader(stream, "a.txt");
  std::vector<std::string> lines;
  for (std::string line;;) {
    const Result<bool> more = reader.Next(line);
    if (!more) lines.push_back(more.fault().Message());
    if (!more || !*more) return lines;
    lines.push_back(line);
  }
}

TEST(TextLineReader, ReadsLinesWithEitherEnd) {
  EXPECT_THAT(LinesOf("a\r\n\tb\nc"), ElementsAre("a", "\tb", "c"));
  EXPECT_THAT(LinesOf("a\r"), ElementsAre("a"));
}

TEST(TextLineReader, SkipsAByteOrderMark) {
  EXPECT_THAT(LinesOf("\xef\xbb\xbf"
                      "a\n"),
              ElementsAre("a"));
}

TEST(TextLineReader, RefusesWhatIsNotAText) {
  const std::string fault = "a.txt:2: not a text file: the line has a control character";
  EXPECT_THAT(LinesOf(std::string("a\nb\0", 4)), ElementsAre("a", fault));
}

TEST(TextLineReader, RefusesALineThatIsTooLong) {
  const std::string longest(TextLineReader::kLongestLine, 'x');
  EXPECT_THAT(LinesOf(longest), ElementsAre(longest));
  EXPECT_THAT(LinesOf(longest + "x"), ElementsAre("a.txt:1: the line is longer than 4096 bytes"));
}

TEST(TextLineReader, QuotesTheLineOfAFault) {
  std::istringstream stream("first\nsecond\nthird\n");
  TextLineReader reader(stream, "a.txt");
  for (std::string line; *reader.Next(line);) continue;
  EXPECT_EQ(reader.At("wrong", 2).Message(), "a.txt:3:2: wrong");
  EXPECT_EQ(reader.At("wrong").source, "third");
  EXPECT_EQ(reader.AtLine(2, "wrong").source, "second");
  EXPECT_EQ(reader.AtLine(1, "wrong").source, "") << "only two lines are kept";
}

TEST(TextLineReader, AddsThePlaceToTheFaultOfAPart) {
  std::istringstream stream("first\n");
  TextLineReader reader(stream, "a.txt");
  std::string line;
  ASSERT_TRUE(*reader.Next(line));
  const Fault fault = reader.At(Fault{.text = "wrong", .column = 4, .kind = FaultKind::kMissing});
  EXPECT_EQ(fault.Message(), "a.txt:1:4: wrong");
  EXPECT_EQ(fault.kind, FaultKind::kMissing);
}

}  // namespace
}  // namespace vanzet

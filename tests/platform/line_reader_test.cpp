#include "platform/line_reader.h"

#include <gmock/gmock.h>

#include "support/temporary_folder.h"

namespace vanzet::platform {
namespace {

using test::TemporaryFolder;
using test::WriteBytes;
using testing::ElementsAre;
using testing::IsEmpty;

class LineReaderTest : public testing::Test {
 protected:
  std::vector<std::string> LinesOf(const std::string& text) {
    WriteBytes(folder / "text", text);
    LineReader reader((folder / "text").string());
    EXPECT_TRUE(reader.IsOpen());
    std::vector<std::string> lines;
    for (std::string_view line; reader.Next(line);) lines.emplace_back(line);
    return lines;
  }

  TemporaryFolder folder;
};

TEST_F(LineReaderTest, ReadsLinesWithEitherEnd) {
  EXPECT_THAT(LinesOf("a\nb\r\n\nc"), ElementsAre("a", "b", "", "c"));
  EXPECT_THAT(LinesOf("a\n"), ElementsAre("a"));
  EXPECT_THAT(LinesOf("\r\n\r"), ElementsAre("", ""));
}

TEST_F(LineReaderTest, HasNoLineInAnEmptyFile) {
  EXPECT_THAT(LinesOf(""), IsEmpty());
}

TEST_F(LineReaderTest, PutsLinesTogetherThatLieAcrossItsBuffer) {
  for (const std::size_t length : {65534U, 65535U, 65536U, 65537U, 200000U}) {
    const std::string longLine(length, 'x');
    EXPECT_THAT(LinesOf("a\n" + longLine + "\nb\n"), ElementsAre("a", longLine, "b"));
    EXPECT_THAT(LinesOf("a\n" + longLine + "\r\nb"), ElementsAre("a", longLine, "b"));
    EXPECT_THAT(LinesOf(longLine), ElementsAre(longLine));
  }
}

TEST_F(LineReaderTest, GivesTheBeginningOfALineThatIsTooLong) {
  const std::string longLine(LineReader::kLongestLine + 70000, 'x');
  EXPECT_THAT(LinesOf(longLine + "\nb"), ElementsAre(longLine.substr(0, LineReader::kLongestLine), "b"));
}

TEST_F(LineReaderTest, DoesNotOpenWhatIsNoFile) {
  EXPECT_FALSE(LineReader(folder.path().string()).IsOpen());
  EXPECT_FALSE(LineReader((folder / "missing").string()).IsOpen());
  std::string_view line;
  EXPECT_FALSE(LineReader((folder / "missing").string()).Next(line));
}

}  // namespace
}  // namespace vanzet::platform

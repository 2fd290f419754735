#include "project/text_file.h"

#include <gtest/gtest.h>

#include <fstream>

#include "base/files/regular_file.h"
#include "support/temporary_folder.h"

namespace vanzet::project {
namespace {

class TextFile : public testing::Test {
 protected:
  Result<std::string> Read() const { return ReadTextFile(folder / "a.ini", "a.ini"); }
  const test::TemporaryFolder folder;
};

TEST_F(TextFile, IsReadWhole) {
  test::WriteBytes(folder / "a.ini", "one\r\n\ttwo W\xC3\xA4hlen\n");
  ASSERT_TRUE(Read());
  EXPECT_EQ(*Read(), "one\r\n\ttwo W\xC3\xA4hlen\n");
}

TEST_F(TextFile, ThatIsNotThereIsToldByName) {
  ASSERT_FALSE(Read());
  EXPECT_TRUE(Read().fault().Message().starts_with("a.ini: cannot be read")) << Read().fault().Message();
}

TEST_F(TextFile, ThatIsAFolderIsRefused) {
  EXPECT_FALSE(ReadTextFile(folder.path(), "x"));
}

TEST_F(TextFile, WithAControlCharacterIsRefusedWithItsLine) {
  for (const char control : {'\0', '\x1B', '\x7F'}) {
    test::WriteBytes(folder / "a.ini", std::string("one\ntwo") + control + "\n");
    ASSERT_FALSE(Read());
    EXPECT_EQ(Read().fault().line, 2);
  }
}

TEST_F(TextFile, LargerThanItsLimitIsNotReadIntoMemory) {
  std::ofstream(folder / "a.ini") << "x";
  std::filesystem::resize_file(folder / "a.ini", files::kLargestTextFile + 1);
  ASSERT_FALSE(Read());
  EXPECT_EQ(Read().fault().Message(), "a.ini: is larger than 16 MiB");
}

}  // namespace
}  // namespace vanzet::project

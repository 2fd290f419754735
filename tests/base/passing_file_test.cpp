#include "base/files/passing_file.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace vanzet::files {
namespace {

TEST(PassingFiles, HaveTheNewContentAlone) {
  const test::TemporaryFolder folder;
  ASSERT_TRUE(WritePassingFile(folder / "a", "first content"));
  ASSERT_TRUE(WritePassingFile(folder / "a", "next"));
  EXPECT_EQ(test::ReadBytes(folder / "a"), "next");
}

TEST(PassingFiles, AreNotWrittenThroughLinks) {
  const test::TemporaryFolder folder;
  test::WriteBytes(folder / "precious", "text");
  std::filesystem::create_symlink("precious", folder / "a");
  EXPECT_FALSE(WritePassingFile(folder / "a", "next"));
  EXPECT_EQ(test::ReadBytes(folder / "precious"), "text");
}

TEST(PassingFiles, SayWhyTheyCannotBeWritten) {
  const test::TemporaryFolder folder;
  const auto written = WritePassingFile(folder / "none/a", "text");
  ASSERT_FALSE(written);
  EXPECT_EQ(written.fault().Message(),
            (folder / "none/a").string() + ": cannot be written: No such file or directory");
}

}  // namespace
}  // namespace vanzet::files

#include "platform/files.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

namespace vanzet::platform {
namespace {

TEST(IsReadableFile, IsTrueForARegularFileOnly) {
  const test::TemporaryFolder folder;
  test::WriteBytes(folder / "a.ini", "");
  EXPECT_TRUE(IsReadableFile((folder / "a.ini").string()));
  EXPECT_FALSE(IsReadableFile((folder / "b.ini").string()));
  EXPECT_FALSE(IsReadableFile(folder.path().string()));
  EXPECT_FALSE(IsReadableFile(""));
}

TEST(CopyWholeFile, LeavesTheOldFileWhenTheDiskIsFull) {
  const test::TemporaryFolder folder;
  test::WriteBytes(folder / "template.vdm", std::string(5000, 'x'));
  test::WriteBytes(folder / "saved.vdm", "old");
  const auto copy = [&] {
    return CopyWholeFile((folder / "template.vdm").string(), (folder / "saved.vdm").string());
  };
  {
    const test::FileSizeLimit limit(1000);
    EXPECT_FALSE(copy());
  }
  EXPECT_EQ(test::ReadBytes(folder / "saved.vdm"), "old");
  EXPECT_TRUE(copy());
  EXPECT_EQ(test::ReadBytes(folder / "saved.vdm"), std::string(5000, 'x'));
}

TEST(FileOf, FollowsTheDrivesThatTheEnvironmentTells) {
  ASSERT_EQ(setenv("VANZET_DRIVES", "D:=/data/shop", 1), 0);
  EXPECT_EQ(FileOf("D:\\own\\x.vdm"), "/data/shop/own/x.vdm");
  ASSERT_EQ(unsetenv("VANZET_DRIVES"), 0);
  EXPECT_EQ(FileOf("D:\\own\\x.vdm"), "/dev/null/D:/own/x.vdm") << "no drives, no place";
}

}  // namespace
}  // namespace vanzet::platform

#include "platform/files.h"

#include <gtest/gtest.h>

#include <cstdlib>

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

TEST(FileOf, FollowsTheDrivesThatTheEnvironmentTells) {
  ASSERT_EQ(setenv("VANZET_DRIVES", "D:=/data/shop", 1), 0);
  EXPECT_EQ(FileOf("D:\\own\\x.vdm"), "/data/shop/own/x.vdm");
  ASSERT_EQ(unsetenv("VANZET_DRIVES"), 0);
  EXPECT_EQ(FileOf("D:\\own\\x.vdm"), "D:/own/x.vdm");
}

}  // namespace
}  // namespace vanzet::platform

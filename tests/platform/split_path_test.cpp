#include "platform/split_path.h"

#include <gtest/gtest.h>

namespace vanzet::platform {
namespace {

void ExpectParts(std::string_view path, const PathParts& expected) {
  const PathParts parts = SplitPath(path);
  EXPECT_EQ(parts.drive, expected.drive) << path;
  EXPECT_EQ(parts.directory, expected.directory) << path;
  EXPECT_EQ(parts.name, expected.name) << path;
  EXPECT_EQ(parts.extension, expected.extension) << path;
}

TEST(SplitPath, TakesThePartsOfAPathWithADriveLetter) {
  ExpectParts("D:\\own\\dev.ices\\chuck.12.vdm", {"D:", "\\own\\dev.ices\\", "chuck.12", ".vdm"});
  ExpectParts("D:x", {"D:", "", "x", ""});
}

TEST(SplitPath, TakesTheLeadingSlashForTheDrive) {
  ExpectParts("/home/shop/machine.ini", {"/", "home/shop/", "machine", ".ini"});
  ExpectParts("/home/shop\\", {"/", "home/shop\\", "", ""});
}

TEST(SplitPath, KnowsPathsWithoutDriveDirectoryOrExtension) {
  ExpectParts("machine.ini", {"", "", "machine", ".ini"});
  ExpectParts("sub/machine", {"", "sub/", "machine", ""});
  ExpectParts(".ini", {"", "", "", ".ini"});
  ExpectParts("", {"", "", "", ""});
}

TEST(SplitPath, CutsWhatDoesNotFitTheBuffersOfAHost) {
  std::string path(902, 'd');
  path[300] = '/';
  path[601] = '.';
  const PathParts parts = SplitPath(path);
  EXPECT_EQ(parts.directory.size(), 255U);
  EXPECT_EQ(parts.name.size(), 255U);
  EXPECT_EQ(parts.extension.size(), 255U);
}

TEST(JoinPath, GivesThePathAgain) {
  for (const char* path : {"D:\\own\\chuck.vdm", "/home/shop/machine.ini", "machine.ini", "a/b\\c.d", ""}) {
    EXPECT_EQ(JoinPath(SplitPath(path)), path);
  }
}

TEST(JoinPath, PutsASeparatorBehindADirectoryThatHasNone) {
  EXPECT_EQ(JoinPath({"D:", "\\own", "chuck", ".vdm"}), "D:\\own\\chuck.vdm");
}

}  // namespace
}  // namespace vanzet::platform

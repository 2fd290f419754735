#include "base/path_map.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace vanzet {
namespace {

using test::TemporaryFolder;
using test::WriteBytes;

TEST(PathMap, TakesABackslashForASeparator) {
  const TemporaryFolder folder;
  WriteBytes(folder / "sub/file.txt", "");
  EXPECT_EQ(PathMap().Resolve(folder.path().string() + "\\sub\\file.txt"), folder / "sub/file.txt");
}

TEST(PathMap, PutsTheRootOfADriveBeforeItsPaths) {
  const PathMap map({{'D', "/data/shop"}});
  EXPECT_EQ(map.Resolve("D:\\own\\x.vdm"), "/data/shop/own/x.vdm");
  EXPECT_EQ(map.Resolve("d:x.vdm"), "/data/shop/x.vdm");
}

TEST(PathMap, LeavesAnUnlistedDriveLeadingNowhere) {
  const TemporaryFolder folder;
  WriteBytes(folder / "Q:/x.vdm", "");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  std::error_code error;
  EXPECT_FALSE(std::filesystem::exists(PathMap().Resolve("Q:\\x.vdm"), error));
  EXPECT_FALSE(std::ofstream(PathMap().Resolve("q:new.vdm")).is_open());
  std::filesystem::current_path(before);
}

TEST(PathMap, MatchesPartsWithoutCaseWhereNoneIsExact) {
  const TemporaryFolder folder;
  WriteBytes(folder / "Machines/Lathe.INI", "");
  EXPECT_EQ(PathMap().Resolve(folder.path().string() + "/MACHINES/lathe.ini"), folder / "Machines/Lathe.INI");
}

TEST(PathMap, PrefersTheExactNameAndThenTheFirstInTheOrderOfBytes) {
  const TemporaryFolder folder;
  for (const char* name : {"ab", "AB", "aB"}) WriteBytes(folder / name, "");
  EXPECT_EQ(PathMap().Resolve(folder.path().string() + "/aB"), folder / "aB");
  EXPECT_EQ(PathMap().Resolve(folder.path().string() + "/Ab"), folder / "AB");
}

TEST(PathMap, KeepsTheNameOfAFileThatIsNotThere) {
  const TemporaryFolder folder;
  EXPECT_EQ(PathMap().Resolve(folder.path().string() + "/New.vdm"), folder / "New.vdm");
}

TEST(PathMap, KeepsRelativePathsRelative) {
  EXPECT_EQ(PathMap().Resolve("no-such-folder\\x"), "no-such-folder/x");
  EXPECT_EQ(PathMap().Resolve(""), "");
}

TEST(DriveOf, IsALetterOrTheRootOrNothing) {
  EXPECT_EQ(DriveOf("D:\\x"), "D:");
  EXPECT_EQ(DriveOf("d:"), "d:");
  EXPECT_EQ(DriveOf("/home"), "/");
  EXPECT_EQ(DriveOf("home/x"), "");
  EXPECT_EQ(DriveOf("1:x"), "");
  EXPECT_EQ(DriveOf(""), "");
}

TEST(Drives, TravelAsOneText) {
  const PathMap::Drives drives{{'D', "/data"}, {'E', "/mnt/e"}};
  EXPECT_EQ(DrivesText(drives), "D:=/data;E:=/mnt/e");
  EXPECT_EQ(DrivesFromText("D:=/data;E:=/mnt/e"), drives);
  EXPECT_EQ(DrivesFromText("nonsense;D:=/data;;E:=/mnt/e;F:="), drives);
  EXPECT_TRUE(DrivesFromText("").empty());
}

}  // namespace
}  // namespace vanzet

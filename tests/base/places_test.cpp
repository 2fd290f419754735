#include "base/places.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace vanzet {
namespace {

TEST(PlacesTest, ShareIsBesideTheProgramsUnlessItIsNamed) {
  EXPECT_EQ(ShareFolder("/usr/bin"), "/usr/share/vanzet");
  setenv("VANZET_SHARE", "/srv/vanzet", 1);
  EXPECT_EQ(ShareFolder("/usr/bin"), "/srv/vanzet");
  unsetenv("VANZET_SHARE");
}

TEST(PlacesTest, ShareOfAnInstalledLibraryIsThatOfThePrograms) {
  EXPECT_EQ(ShareFolder("/usr/lib/vanzet"), "/usr/share/vanzet");
  EXPECT_EQ(ShareFolder("/work/build/lib"), "/work/build/share/vanzet");
  EXPECT_EQ(ShareFolder("/opt/vanzet"), "/opt/share/vanzet");
}

TEST(PlacesTest, AreThoseOfTheRunningProgram) {
  EXPECT_EQ(ProgramFile().filename(), "base_test");
  const Places places = Places::OfProcess();
  EXPECT_EQ(places.program, ProgramFile());
  EXPECT_EQ(places.share, ShareFolder(places.program.parent_path()));
  EXPECT_EQ(places.Sibling("vanzet-window"), places.program.parent_path() / "vanzet-window");
}

}  // namespace
}  // namespace vanzet

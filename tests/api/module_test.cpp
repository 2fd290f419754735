#include "api/module.h"

#include <cstdlib>

#include "api/host_fixture.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(FindModule, LooksBesideTheProgramThenWhereItIsInstalledThenWhereItIsBuilt) {
  const TemporaryFolder folder;
  WriteBytes(folder / "lib/libvanzet.so", "");
  EXPECT_EQ(*api::FindModule(folder / "bin/vanzet"), folder / "lib/libvanzet.so");
  WriteBytes(folder / "lib/vanzet/libvanzet.so", "");
  EXPECT_EQ(*api::FindModule(folder / "bin/vanzet"), folder / "lib/vanzet/libvanzet.so");
  WriteBytes(folder / "bin/libvanzet.so", "");
  EXPECT_EQ(*api::FindModule(folder / "bin/vanzet"), folder / "bin/libvanzet.so");
}

TEST(FindModule, GoesWhereTheEnvironmentSays) {
  setenv("VANZET_MODULE", "/somewhere/else.so", 1);
  EXPECT_EQ(*api::FindModule("/bin/vanzet"), "/somewhere/else.so");
  unsetenv("VANZET_MODULE");
}

TEST(FindModule, NamesThePlacesWhereItIsNot) {
  const TemporaryFolder folder;
  const auto module = api::FindModule(folder / "bin/vanzet");
  ASSERT_FALSE(module);
  EXPECT_THAT(module.fault().text, HasSubstr((folder / "bin/libvanzet.so").string()));
  EXPECT_THAT(module.fault().text, HasSubstr((folder / "lib/vanzet/libvanzet.so").string()));
  EXPECT_THAT(module.fault().text, HasSubstr((folder / "lib/libvanzet.so").string()));
}

using CallModule = HostTest;

TEST_F(CallModule, RunsAnExportOnTheHost) {
  WriteBytes(folder / "machine.ini", "[COMMON]\nNR_SPINDEL_SPUR=2\n");
  ASSERT_TRUE(api::CallModule(VANZET_MODULE_FILE, "ReOrgVdm", *host));
  EXPECT_EQ(OrvoMacroVdmExists(1000), 1);
  EXPECT_EQ(OrvoMacroVdmExists(1001), 1);
  EXPECT_EQ(OrvoMacroVdmExists(1002), 0);
  EXPECT_THAT(panel.lines, testing::IsEmpty());
}

TEST_F(CallModule, LeadsTheModuleThroughTheProjectsDrives) {
  WriteBytes(folder / "shop/machine.ini", "[COMMON]\nNR_SPINDEL_SPUR=2\n");
  WriteBytes(folder / "bench.ini",
             "[drives]\nD=" + folder.path().string() + "\n[environment]\nppdefini=D:\\SHOP\\Machine.ini\n");
  project = std::make_unique<project::Project>(*project::Project::Open(folder.path(), kShare));
  Restart();
  ASSERT_TRUE(api::CallModule(VANZET_MODULE_FILE, "ReOrgVdm", *host));
  EXPECT_EQ(OrvoMacroVdmExists(1001), 1);
}

TEST_F(CallModule, GivesTheViewTheProjectsLanguage) {
  ASSERT_TRUE(api::CallModule(VANZET_MODULE_FILE, "ReOrgVdm", *host));
  EXPECT_STREQ(std::getenv("VANZET_LANGUAGE"), "en");
  WriteBytes(folder / "bench.ini", "[language]\nmessages = de\n");
  project = std::make_unique<project::Project>(*project::Project::Open(folder.path(), kShare));
  Restart();
  ASSERT_TRUE(api::CallModule(VANZET_MODULE_FILE, "ReOrgVdm", *host));
  EXPECT_STREQ(std::getenv("VANZET_LANGUAGE"), "de");
}

TEST_F(CallModule, ReportsAModuleThatCannotBeLoaded) {
  WriteBytes(folder / "no.so", "no module");
  const auto called = api::CallModule(folder / "no.so", "ReOrgVdm", *host);
  ASSERT_FALSE(called);
  EXPECT_EQ(called.fault().file, (folder / "no.so").string());
}

TEST_F(CallModule, ReportsAMissingExport) {
  const auto called = api::CallModule(VANZET_MODULE_FILE, "NoSuchExport", *host);
  ASSERT_FALSE(called);
  EXPECT_THAT(called.fault().text, HasSubstr("NoSuchExport"));
}

TEST_F(CallModule, ReportsAVdmThatIsLeftOpen) {
  OrvoMacroVdmCreate(7, 0);
  ASSERT_TRUE(api::CallModule(VANZET_MODULE_FILE, "ReOrgVdm", *host));
  EXPECT_THAT(panel.lines, testing::Contains(HasSubstr("VDM 7 was left open")));
}

}  // namespace
}  // namespace vanzet::test

#include "api/host_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DryRuns : public HostTest {
 protected:
  DryRuns() : HostTest("[project]\nSHOP = old\n") {
    WriteBytes(folder / "clampdevice.cld", "Chuck\n1 2\n");
    const auto begun = host->BeginDryRun();
    EXPECT_TRUE(begun) << begun.fault().Message();
  }

  std::vector<std::string> LeftOut() const {
    std::vector<std::string> names;
    for (const auto& file : host->dryRun->LeftOut()) names.push_back(file.filename().string());
    return names;
  }
};

TEST_F(DryRuns, ReadTheirSettingsBackAndLeaveTheFileAsItWas) {
  EXPECT_EQ(*host->Setting("SHOP"), "old");
  ASSERT_TRUE(host->SetSetting("SHOP", "new"));
  EXPECT_EQ(*host->Setting("shop"), "new");
  EXPECT_EQ(ReadBytes(folder / "bench.ini"), "[project]\nSHOP = old\n");
  EXPECT_THAT(LeftOut(), ElementsAre("bench.ini"));
}

TEST_F(DryRuns, WorkOnACopyOfTheCatalogue) {
  const std::filesystem::path copy = *host->Setting("CLAMP_DB_PATH");
  EXPECT_EQ(ReadBytes(copy), "Chuck\n1 2\n");
  EXPECT_THAT(LeftOut(), IsEmpty());
  WriteBytes(copy, "Chuck\n1 3\n");
  EXPECT_EQ(ReadBytes(folder / "clampdevice.cld"), "Chuck\n1 2\n");
  EXPECT_THAT(LeftOut(), ElementsAre("clampdevice.cld"));
}

TEST_F(DryRuns, WorkOnACopyOfTheCatalogueThatIsChosen) {
  WriteBytes(folder / "other.cld", "Jaw\n9 1\n");
  ASSERT_TRUE(host->SetSetting("CLAMP_DB_PATH", (folder / "other.cld").string()));
  EXPECT_EQ(ReadBytes(*host->Setting("CLAMP_DB_PATH")), "Jaw\n9 1\n");
}

TEST_F(DryRuns, LeaveOutFilesOutsideTheFolderOfTheRun) {
  OrvoMacroVdmClose(OrvoMacroVdmCreate(7, 0));
  ASSERT_TRUE(host->Command("vdm save '" + (folder / "job.vdm").string() + "' i_ret 7"));
  EXPECT_EQ(host->variables.Integer("i_ret"), 0);
  EXPECT_FALSE(std::filesystem::exists(folder / "job.vdm"));
  EXPECT_THAT(LeftOut(), ElementsAre("job.vdm"));
  const std::string inside = (host->dryRun->folder() / "job.vdm").string();
  ASSERT_TRUE(host->Command("vdm save '" + inside + "' i_ret 7"));
  EXPECT_TRUE(std::filesystem::exists(inside));
}

TEST_F(DryRuns, HaveTheirTemporaryFilesInTheFolderOfTheRun) {
  EXPECT_EQ(host->Environment("TMP"), host->dryRun->folder());
}

}  // namespace
}  // namespace vanzet::test

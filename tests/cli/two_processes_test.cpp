#include "run_vanzet.h"
#include "vdm/store.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

class TwoProcesses : public CommandLineTest {};

TEST_F(TwoProcesses, TheSecondIsRefusedAndNothingIsLost) {
  MakeUpgradedProject();
  vdm::VdmStore store(folder / "lathe");
  const auto handle = store.Open(1000);
  ASSERT_TRUE(handle);
  vdm::OpenVdm& open = *store.Find(*handle);
  open.Seek(3);
  ASSERT_TRUE(open.SingleSeek(2));
  ASSERT_TRUE(open.SingleReplace("12.5 0 0 0"));
  ASSERT_TRUE(store.Commit("test")) << "as a window does that keeps a VDM open between two events";

  const Outcome upgraded = Vanzet("upgrade lathe");
  EXPECT_EQ(upgraded.status, 1);
  EXPECT_THAT(upgraded.err, HasSubstr("OrvoApi::MacroVdm: 1000: Open: already open by another process\n"));
  EXPECT_THAT(upgraded.err, HasSubstr("vanzet: spur 0: VDM 1000 is open in another process"));

  store.Close(*handle);
  ASSERT_TRUE(store.Commit("test"));
  EXPECT_THAT(Vanzet("items lathe").out, HasSubstr("3.2\t12.5 0 0 0\n"));
  EXPECT_EQ(Vanzet("upgrade lathe").status, 0);
  EXPECT_THAT(Vanzet("items lathe").out, HasSubstr("3.2\t12.5 0 0 0\n"));
}

TEST_F(TwoProcesses, ShowWhatWasClosedLastWhileAnotherWorks) {
  MakeUpgradedProject();
  const std::string before = Vanzet("show lathe").out;
  vdm::VdmStore store(folder / "lathe");
  const auto handle = store.Open(1000);
  ASSERT_TRUE(handle);
  store.Find(*handle)->Remove(5);
  EXPECT_EQ(Vanzet("show lathe").out, before);
}

TEST_F(TwoProcesses, DefineNothingWhileOneOfTheDefinitionsIsOpenElsewhere) {
  MakeUpgradedProject();
  vdm::VdmStore store(folder / "lathe");
  const auto handle = store.Open(1001);
  ASSERT_TRUE(handle);
  ASSERT_TRUE(store.Commit("test"));
  const std::string before = Vanzet("items lathe").out;
  const Outcome refused =
      Vanzet("define - lathe", "",
             R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuck 160"}}}, {"spur": 1}]})");
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("1001"));
  EXPECT_EQ(Vanzet("items lathe").out, before);
}

TEST_F(TwoProcesses, LeaveDefinitionsWholeWhenTheUpgradeIsKilled) {
  MakeProject();
  for (int milliseconds = 0; milliseconds < 40; ++milliseconds) {
    std::filesystem::remove(folder / "lathe/store.db");
    char limit[32];
    std::snprintf(limit, sizeof limit, "timeout -s KILL 0.%03d", 1 + milliseconds);
    Vanzet("upgrade lathe", limit);
    for (const char* vdm : {"1000", "1001"}) {
      const Outcome items = Vanzet(std::string("items lathe --vdm ") + vdm);
      if (items.status == 0) {
        EXPECT_THAT(items.out, HasSubstr("17.1\tFinishpart from Sub\n")) << milliseconds;
      }
    }
    EXPECT_EQ(Vanzet("upgrade lathe").status, 0) << "no lock is left behind";
  }
}

}  // namespace
}  // namespace vanzet::test

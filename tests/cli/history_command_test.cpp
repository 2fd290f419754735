#include "define_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

/// The traces of runs of the program in the history of a project, and how they are taken back.
class HistoryCommand : public DefineCommand {
 protected:
  /// A chuck and a billet on the main spindle of spur 0.
  static Json Form(const std::string& chuck, double diameter) {
    return {{"spurs",
             {{{"spur", 0},
               {"main",
                {{"chuck", {{"name", chuck}}},
                 {"billet", {{"kind", "cylinder"}, {"outer_diameter", diameter}, {"part_length", 60}}}}}}}}};
  }

  /// Defines two forms, one after the other.
  void DefineTwice() {
    MakeProject();
    ASSERT_EQ(Define(Form("Chuck 160", 40), "lathe").err, "");
    former = Items("lathe");
    ASSERT_EQ(Define(Form("Chuck 210", 42), "lathe").err, "");
    present = Items("lathe");
    ASSERT_NE(former, present);
  }

  Json Generations(const std::string& options = "") {
    return Json::parse(Vanzet("history lathe --json" + options).out)["generations"];
  }

  std::int64_t Last() { return Generations()[0]["generation"].get<std::int64_t>(); }

  /// Takes the last run back, and expects the content that was before it.
  void ExpectTakenBack(const std::string& before) {
    ASSERT_NE(Items("lathe"), before) << "nothing was changed";
    const std::string number = std::to_string(Last() - 1);
    const Outcome restored = Vanzet("restore lathe " + number);
    EXPECT_EQ(restored.status, 0) << restored.err;
    EXPECT_THAT(restored.out, HasSubstr("restored generation " + number + "\n"));
    EXPECT_TRUE(Items("lathe") == before) << "item for item";
    EXPECT_EQ(Generations()[0]["occasion"], "restore");
    EXPECT_EQ(Vanzet("store check lathe").status, 0);
  }

  std::string former, present;
};

TEST_F(HistoryCommand, ListsTheGenerationsTheNewestFirst) {
  DefineTwice();
  const Json newest = Generations()[0];
  std::vector<std::string> keys;
  for (const auto& [key, value] : newest.items()) keys.push_back(key);
  EXPECT_THAT(keys, ElementsAre("generation", "vdm", "time", "user", "host", "occasion", "changes"));
  EXPECT_EQ(newest["generation"], 3);
  EXPECT_EQ(newest["vdm"], 1000);
  EXPECT_EQ(newest["occasion"], "define");
  EXPECT_THAT(newest["time"].get<std::string>(), MatchesRegex("20..-..-..T..:..:..Z"));
  EXPECT_EQ(newest["changes"],
            (Json{"main.chuck: Chuck 160 -> Chuck 210", "main.billet: outer diameter 40 -> 42"}));
  EXPECT_EQ(Generations()[1]["changes"], (Json{"main.chuck: new: Chuck 160", "main.billet: new: cylinder"}));
  EXPECT_EQ(Generations(" --vdm 1001").size(), 1u);
  EXPECT_THAT(Vanzet("history lathe").out,
              HasSubstr("  define\n  VDM 1000, main.chuck: Chuck 160 -> Chuck 210\n"));
}

TEST_F(HistoryCommand, HasNothingToListBeforeTheFirstCommit) {
  MakeProjectWithoutDefinitions();
  EXPECT_EQ(Vanzet("history lathe").out, "no generation was stored yet\n");
  EXPECT_EQ(Vanzet("history lathe --json").out, "{\n  \"generations\": []\n}\n");
  EXPECT_EQ(Vanzet("diff lathe").err,
            "vanzet: fewer than two generations are kept; there is nothing to compare\n");
  EXPECT_EQ(Vanzet("restore lathe 1").status, 1);
}

TEST_F(HistoryCommand, ComparesTheLastTwoGenerationsOrThoseThatAreNamed) {
  DefineTwice();
  const Outcome last = Vanzet("diff lathe");
  EXPECT_EQ(last.status, 3);
  EXPECT_THAT(last.out, HasSubstr("VDM 1000, main.chuck: Chuck 160 -> Chuck 210; "));
  EXPECT_THAT(last.out, HasSubstr("VDM 1000, main.billet: outer diameter 40 -> 42\n"));
  EXPECT_EQ(Vanzet("diff 2 3 lathe").out, last.out);
  EXPECT_EQ(Vanzet("diff 2", "cd lathe &&").out, last.out);
  const Outcome same = Vanzet("diff lathe 3 3");
  EXPECT_EQ(same.status, 0);
  EXPECT_EQ(same.out, "generations 3 and 3 are the same\n");
  EXPECT_EQ(Vanzet("diff lathe --vdm 1001 2").status, 0);
  const Json json = Json::parse(Vanzet("diff lathe 2 3 --json --raw").out);
  EXPECT_EQ(json["from"], 2);
  EXPECT_EQ(json["to"], 3);
  EXPECT_EQ(json["vdms"][0]["vdm"], 1000);
  EXPECT_THAT(json["vdms"][0]["items"].dump(), HasSubstr(R"("before":"Chuck 160","now":"Chuck 210"})"));
  EXPECT_THAT(Vanzet("diff lathe --raw").out,
              testing::ContainsRegex("\n-[0-9.]+\tChuck 160\n\\+[0-9.]+\tChuck 210\n"));
}

TEST_F(HistoryCommand, RefusesGenerationsThatNeverWereAndWordsThatAreNone) {
  DefineTwice();
  EXPECT_THAT(Vanzet("diff lathe 1 9").err, HasSubstr("generation 9 does not exist; the last one is 3\n"));
  EXPECT_THAT(Vanzet("restore lathe 9").err, HasSubstr("generation 9 does not exist; the last one is 3\n"));
  EXPECT_EQ(Vanzet("restore lathe").status, 2);
  EXPECT_EQ(Vanzet("restore lathe 1 2").status, 2);
  EXPECT_EQ(Vanzet("restore lathe one").status, 2);
  EXPECT_EQ(Vanzet("diff 1 2 3").status, 2);
  EXPECT_EQ(Vanzet("restore lathe 0").status, 2);
  EXPECT_EQ(Vanzet("restore lathe 1 --dry-run --wait 1").status, 2);
}

TEST_F(HistoryCommand, ShowsWhatARestoreWouldChange) {
  DefineTwice();
  const Outcome dry = Vanzet("restore lathe 2 --dry-run");
  EXPECT_EQ(dry.status, 0);
  EXPECT_THAT(dry.out, HasSubstr("VDM 1000, main.chuck: Chuck 210 -> Chuck 160; "));
  EXPECT_THAT(dry.out, HasSubstr("this is what restoring generation 2 would change\n"));
  EXPECT_EQ(Items("lathe"), present);
  EXPECT_EQ(Last(), 3);
  EXPECT_EQ(Vanzet("restore lathe 3").out, "the state is that of generation 3; nothing was changed\n");
  EXPECT_EQ(Last(), 3);
}

TEST_F(HistoryCommand, RestoresOneVdmAlone) {
  DefineTwice();
  EXPECT_EQ(Vanzet("vdm save lathe 1000 job.vdm && '" VANZET_PROGRAM "' vdm load lathe job.vdm 1001").status,
            0);
  EXPECT_EQ(Vanzet("restore lathe 2 --vdm 1000").status, 0);
  EXPECT_THAT(Vanzet("items lathe --vdm 1000").out, HasSubstr("Chuck 160"));
  EXPECT_THAT(Vanzet("items lathe --vdm 1001").out, HasSubstr("Chuck 210"));
}

TEST_F(HistoryCommand, ADefineIsTakenBackAndComesAgain) {
  DefineTwice();
  ExpectTakenBack(former);
  ExpectTakenBack(present);
}

TEST_F(HistoryCommand, ALoadIsTakenBack) {
  DefineTwice();
  WriteBytes(folder / "s.vdm", "vdm 1\nend 0\n");
  EXPECT_EQ(Vanzet("vdm load lathe s.vdm 1000").status, 0);
  ExpectTakenBack(present);
}

TEST_F(HistoryCommand, AnUpgradeIsTakenBack) {
  DefineTwice();
  ASSERT_EQ(Vanzet("vdm save lathe 1000 old.vdm").status, 0);
  std::string old = ReadBytes(folder / "old.vdm");
  old = old.substr(0, old.find("record\n", old.find("record\n") + 1)) + "end 1\n";
  WriteBytes(folder / "old.vdm", old);
  ASSERT_EQ(Vanzet("vdm load lathe old.vdm 1000").status, 0);
  const std::string before = Items("lathe");
  EXPECT_EQ(Vanzet("upgrade lathe").status, 0);
  ExpectTakenBack(before);
}

TEST_F(HistoryCommand, OkInTheDialogIsTakenBack) {
  DefineTwice();
  WriteBytes(folder / "s.txt",
             "select main/billet/cylinder\nset outer_diameter 55\npress Select\npress OK\n");
  const Outcome played = Vanzet("script lathe s.txt");
  EXPECT_EQ(played.status, 0) << played.out << played.err;
  ExpectTakenBack(present);
}

TEST_F(HistoryCommand, ADeviceDeletedInTheTreeIsTakenBack) {
  DefineTwice();
  WriteBytes(folder / "s.txt", "answer yes\ncontext main 51000\npress OK\n");
  const Outcome played = Vanzet("script lathe s.txt");
  EXPECT_EQ(played.status, 0) << played.out << played.err;
  ExpectTakenBack(present);
}

TEST_F(HistoryCommand, ALoadedConfigurationIsTakenBack) {
  DefineTwice();
  MakeLathe("other");
  ASSERT_EQ(Define(Form("Chuck 160", 77), "other").err, "");
  ASSERT_EQ(Vanzet("vdm save other 1000 other.vdm").status, 0);
  WriteBytes(folder / "s.txt",
             "answer yes\nfile \"" + (folder / "other.vdm").string() + "\"\npress load\npress OK\n");
  const Outcome played = Vanzet("script lathe s.txt");
  EXPECT_EQ(played.status, 0) << played.out << played.err;
  EXPECT_THAT(Items("lathe"), HasSubstr("77"));
  ExpectTakenBack(present);
}

TEST_F(HistoryCommand, ARunThatFailsMakesNoGeneration) {
  DefineTwice();
  WriteBytes(folder / "s.txt",
             "select main/billet/cylinder\nset outer_diameter 55\npress Select\npress 9999\n");
  EXPECT_EQ(Vanzet("script lathe s.txt").status, 1);
  EXPECT_EQ(Vanzet("restore lathe 2 > /dev/full").status, 1);
  EXPECT_EQ(Last(), 3);
  EXPECT_EQ(Items("lathe"), present);
}

TEST_F(HistoryCommand, KeepsAsManyGenerationsAsTheSettingsSay) {
  MakeProject();
  WriteBytes(folder / "lathe/bench.ini", ReadBytes(folder / "lathe/bench.ini") + "\n[store]\nkeep = 3\n");
  WriteBytes(folder / "s.vdm", "vdm 1\nend 0\n");
  for (int i = 0; i < 5; ++i) ASSERT_EQ(Vanzet("vdm load lathe s.vdm 1000").status, 0);
  EXPECT_EQ(Generations(" --vdm 1000").size(), 3u);
  EXPECT_EQ(Generations(" --vdm 1001").size(), 1u);
  EXPECT_THAT(Vanzet("restore lathe 1").err,
              HasSubstr("generation 1 of VDM 1000 is not kept any more; the oldest one is 4\n"));
  EXPECT_EQ(Vanzet("restore lathe 1 --vdm 1001").status, 0);
}

TEST_F(HistoryCommand, AStoreIsCopiedWithItsGenerations) {
  DefineTwice();
  std::filesystem::create_directory(folder / "other");
  const Outcome copied = Vanzet("store copy lathe other");
  EXPECT_EQ(copied.out, "copied 2 VDMs with 3 generations to other\n") << copied.err;
  EXPECT_EQ(Vanzet("history other --json").out, Vanzet("history lathe --json").out);
  EXPECT_EQ(Vanzet("items other").out, Vanzet("items lathe").out);
  for (const char* file : {"drawing.txt", "clampdevice.cld"})
    EXPECT_EQ(ReadBytes(folder / "other" / file), ReadBytes(folder / "lathe" / file));
  EXPECT_THAT(Vanzet("store copy lathe other").err, HasSubstr("has generations already"));
  EXPECT_THAT(Vanzet("store copy lathe lathe").err, HasSubstr("is the project to copy from"));
  EXPECT_EQ(Vanzet("store copy lathe other --project job").err,
            "vanzet: --project has no effect: neither FROM nor TO is a connection text\n");
  EXPECT_EQ(Vanzet("store check other").status, 0);
}

TEST_F(HistoryCommand, ACopyThatFailsLeavesAnEmptyFolderEmpty) {
  DefineTwice();
  std::filesystem::create_directory(folder / "other");
  EXPECT_EQ(Vanzet("store copy lathe other > /dev/full").status, 1);
  EXPECT_TRUE(std::filesystem::is_empty(folder / "other"));
  EXPECT_EQ(Vanzet("store copy lathe other", "ulimit -f 4; trap '' XFSZ;").status, 1);
  EXPECT_TRUE(std::filesystem::is_empty(folder / "other"));
  EXPECT_EQ(Vanzet("store copy lathe other").status, 0);
  EXPECT_EQ(Vanzet("store copy lathe other").status, 1);
  EXPECT_EQ(Vanzet("history other --json").out, Vanzet("history lathe --json").out);
}

TEST_F(HistoryCommand, ARunThatFailsInAnEmptyFolderDoesNotStandInTheWayOfTheNext) {
  std::filesystem::create_directory(folder / "other");
  EXPECT_EQ(Vanzet("restore other 1").status, 1);
  EXPECT_EQ(Vanzet("history other").out, "no generation was stored yet\n");
}

TEST_F(HistoryCommand, ABackupIsTheStoreWithItsGenerations) {
  DefineTwice();
  ASSERT_EQ(Vanzet("store backup lathe monday.db").status, 0);
  const std::string history = Vanzet("history lathe").out;
  ASSERT_EQ(Define(Form("Chuck 160", 33), "lathe").status, 0);
  std::filesystem::copy_file(folder / "monday.db", folder / "lathe/store.db",
                             std::filesystem::copy_options::overwrite_existing);
  EXPECT_EQ(Vanzet("history lathe").out, history);
  EXPECT_EQ(Items("lathe"), present);
}

}  // namespace
}  // namespace vanzet::test

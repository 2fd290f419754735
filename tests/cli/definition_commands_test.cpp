#include <nlohmann/json.hpp>
#include <sstream>

#include "run_vanzet.h"
#include "support/golden.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using Json = nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

class DefinitionCommands : public CommandLineTest {};

TEST_F(DefinitionCommands, NewMakesTheDefinitionsAtOnce) {
  const Outcome made = Vanzet("new lathe");
  EXPECT_EQ(made.status, 0);
  EXPECT_EQ(made.out,
            "created project lathe from sample mill-turn\n"
            "spur 0: VDM 1000, version 100, 18 operations\nspur 1: VDM 1001, version 100, 18 operations\n");
  EXPECT_EQ(made.err, "");
  EXPECT_EQ(Vanzet("show lathe --json").status, 0);
}

TEST_F(DefinitionCommands, NewChangesSettingsOfTheSample) {
  const Outcome made = Vanzet("new shop --sample lathe --set NR_SPINDEL_SPUR=3 --set lunavailable=1");
  EXPECT_EQ(made.status, 0) << made.err;
  EXPECT_THAT(made.out, HasSubstr("spur 2: VDM 1002, version 100, 18 operations\n"));
  EXPECT_THAT(ReadBytes(folder / "shop/bench.ini"), HasSubstr("LunAvailable        = 1\n"));
}

TEST_F(DefinitionCommands, NewRefusesASettingThatIsNotKnownBeforeItBegins) {
  const Outcome made = Vanzet("new shop --set TailStock=1");
  EXPECT_EQ(made.status, 2);
  EXPECT_THAT(made.err, HasSubstr("unknown setting 'TailStock'; did you mean: TailStockAvailable"));
  EXPECT_EQ(Vanzet("new shop --set chord=0").status, 1) << "the values of bench.ini have ranges";
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(DefinitionCommands, NewNamesEverySampleInItsHelp) {
  const std::string help = Vanzet("new --help").out;
  for (const auto& sample : std::filesystem::directory_iterator(VANZET_SOURCE_DIR "/share/samples"))
    EXPECT_THAT(help, HasSubstr("'" + sample.path().filename().string() + "' has "));
}

TEST_F(DefinitionCommands, NewLeavesNothingWhereItsReportCannotBeWritten) {
  EXPECT_EQ(Vanzet("new lathe >/dev/full").status, 1);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(DefinitionCommands, AScriptUpgradesFirstWhereADefinitionIsMissing) {
  MakeProjectWithoutDefinitions();
  WriteBytes(folder / "script.txt", "press 1\n");
  const Outcome dry = Vanzet("script lathe script.txt --dry-run");
  EXPECT_EQ(dry.status, 0);
  EXPECT_EQ(dry.err,
            "vanzet: 2 definitions are missing and are created first\nscript.txt: changed no spur\n");
  EXPECT_EQ(Vanzet("show lathe").status, 1) << "a dry run keeps nothing";
  const Outcome played = Vanzet("script lathe script.txt");
  EXPECT_EQ(played.status, 0);
  EXPECT_EQ(played.err,
            "vanzet: 2 definitions are missing and are created first\nscript.txt: changed no spur\n");
  EXPECT_EQ(Vanzet("show lathe").status, 0);
  EXPECT_EQ(Vanzet("script lathe script.txt").err, "script.txt: changed no spur\n");
}

TEST_F(DefinitionCommands, DefineUpgradesFirstWhereADefinitionIsMissing) {
  MakeProjectWithoutDefinitions();
  const Outcome defined = Vanzet("define '" VANZET_SOURCE_DIR "/examples/definitions/bar-job.json' lathe");
  EXPECT_EQ(defined.status, 0);
  EXPECT_EQ(defined.err, "vanzet: 2 definitions are missing and are created first\n");
  EXPECT_EQ(defined.out, "spur 0: VDM 1000, defined\n");
  EXPECT_THAT(Vanzet("items lathe --vdm 1001").out, HasSubstr("SubBillet"));
}

TEST_F(DefinitionCommands, AScriptUpgradesAnOlderDefinitionFirst) {
  MakeProject();
  WriteBytes(folder / "old.vdm", "vdm 1\nrecord\n.1 1 1 2\n.Billet definition\n.99\nend 1\n");
  ASSERT_EQ(Vanzet("vdm load lathe old.vdm 1001").status, 0);
  WriteBytes(folder / "script.txt", "press 1\n");
  EXPECT_EQ(
      Vanzet("script lathe script.txt").err,
      "vanzet: 1 definition is of an older version and is upgraded first\nscript.txt: changed no spur\n");
  EXPECT_EQ(Vanzet("items lathe --vdm 1001").out, Vanzet("items lathe --vdm 1000").out);
}

TEST_F(DefinitionCommands, MakeUpgradeAndShowBothSpursOfTheSample) {
  MakeProject();
  const Outcome upgraded = Vanzet("upgrade lathe");
  EXPECT_EQ(upgraded.status, 0);
  EXPECT_EQ(upgraded.out,
            "spur 0: VDM 1000, version 100, 18 operations\nspur 1: VDM 1001, version 100, 18 operations\n");
  EXPECT_EQ(upgraded.err, "");

  EXPECT_EQ(Vanzet("show lathe").out,
            "Spur 0: VDM 1000, version 100\n  Nothing is defined yet.\n"
            "\nSpur 1: VDM 1001, version 100\n  Nothing is defined yet.\n");
}

TEST_F(DefinitionCommands, ShowAJobOnAPageInTheLanguageOfTheHelp) {
  MakeProject();
  for (const std::string job : {"bar-job", "chuck-transfer"}) {
    const Outcome defined =
        Vanzet("define '" VANZET_SOURCE_DIR "/examples/definitions/" + job + ".json' lathe");
    ASSERT_EQ(defined.status, 0) << defined.err;
    EXPECT_GOLDEN(Vanzet("show lathe --spur 0").out, "cli/show_" + job + ".txt");
    EXPECT_GOLDEN(Vanzet("show lathe --spur 0", "VANZET_LANGUAGE=de").out, "cli/show_" + job + ".de.txt");
  }
}

TEST_F(DefinitionCommands, ShowAJobInInchesForPeople) {
  MakeProject();
  const std::string job = VANZET_SOURCE_DIR "/examples/definitions/bar-job.json";
  ASSERT_EQ(Vanzet("define '" + job + "' lathe").status, 0);
  const std::string page = Vanzet("show lathe --unit inch").out;
  EXPECT_THAT(page, testing::ContainsRegex(" Outer diameter +1\\.6535 inch\n"));
  EXPECT_THAT(page, testing::ContainsRegex(" No effect on the shape \\(C\\) +0\\.4724 inch\n"));
  EXPECT_THAT(page, testing::ContainsRegex(" Clamping out +main 2\\.3622 inch, sub 1\\.5748 inch\n"));
  EXPECT_THAT(page, testing::Not(testing::ContainsRegex("\\.[0-9][0-9][0-9][0-9][0-9]")));
  EXPECT_THAT(page, testing::Not(HasSubstr(" mm")));
  EXPECT_THAT(Vanzet("show lathe --json --unit inch").out, HasSubstr("\"outer_diameter\": 1.65354331"));
  const std::string settings = ReadBytes(folder / "lathe/bench.ini");
  WriteBytes(folder / "lathe/bench.ini", settings + "\n[project]\nunit = inch\n");
  EXPECT_EQ(Vanzet("show lathe").out, page);
  EXPECT_THAT(Vanzet("show lathe --unit mm").out, testing::ContainsRegex(" Outer diameter +42 mm\n"));
}

TEST_F(DefinitionCommands, ShowSimulationDataOfOtherValues) {
  MakeProject();
  ASSERT_EQ(Vanzet("define '" VANZET_SOURCE_DIR "/examples/definitions/bar-job.json' lathe").status, 0);
  EXPECT_THAT(Vanzet("show lathe --spur 0").out,
              testing::ContainsRegex("Simulation data +of these values\n"));
  ASSERT_EQ(Vanzet("vdm save lathe 1000 job.vdm").status, 0);
  std::string job = ReadBytes(folder / "job.vdm");
  const std::string length = ".1 80.000000 90.000000 ";
  ASSERT_NE(job.find(length), std::string::npos);
  job.replace(job.find(length), length.size(), ".1 80.000000 91.000000 ");
  WriteBytes(folder / "job.vdm", job);
  ASSERT_EQ(Vanzet("vdm load lathe job.vdm 1000").status, 0);
  const std::string page = Vanzet("show lathe --spur 0").out;
  EXPECT_THAT(page,
              testing::ContainsRegex("Simulation data +not of these values; OK in the dialog makes them\n"
                                     "    Device of the main spindle +of other values\n"));
}

TEST_F(DefinitionCommands, SummariseTheItemsOfADefinition) {
  MakeProject();
  EXPECT_GOLDEN(Vanzet("items lathe --summary").out + "\n" + Vanzet("items lathe --vdm 1001 --summary").out,
                "cli/items_summary.txt");
  EXPECT_EQ(Vanzet("items lathe --vdm 7 --summary").err, "vanzet: VDM 7 does not exist\n");
  EXPECT_EQ(Vanzet("items lathe --summary --json").status, 2);
}

TEST_F(DefinitionCommands, WorkInTheCurrentFolder) {
  MakeUpgradedProject();
  EXPECT_EQ(Vanzet("show", "cd lathe &&").out, Vanzet("show lathe").out);
}

TEST_F(DefinitionCommands, ShowForPrograms) {
  MakeUpgradedProject();
  EXPECT_EQ(Json::parse(Vanzet("show lathe --json").out),
            Json::parse(R"({"version": 1, "spurs": [{"spur": 0}, {"spur": 1}]})"));
}

TEST_F(DefinitionCommands, KeepTheSectionsOfOperations) {
  MakeUpgradedProject();
  EXPECT_THAT(SectionsOf(1001, 6), testing::ElementsAre(testing::ElementsAre("VRML Main Jaw", "D2T Main Jaw"),
                                                        testing::IsEmpty(), testing::IsEmpty()));
}

TEST_F(DefinitionCommands, ShowOneSpur) {
  MakeUpgradedProject();
  const Json json = Json::parse(Vanzet("show lathe --spur 1 --json").out);
  ASSERT_EQ(json["spurs"].size(), 1U);
  EXPECT_EQ(json["spurs"][0]["spur"], 1);
  const Outcome none = Vanzet("show lathe --spur 2");
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.err, "vanzet: spur 2 does not exist; the machine has 2 spurs, counted from 0\n");
}

TEST_F(DefinitionCommands, SayWhatToDoWhereThereIsNoDefinition) {
  MakeProjectWithoutDefinitions();
  const Outcome shown = Vanzet("show lathe");
  EXPECT_EQ(shown.status, 1);
  EXPECT_EQ(shown.out,
            "Spur 0: VDM 1000, no definition ('vanzet upgrade' creates it)\n"
            "\nSpur 1: VDM 1001, no definition ('vanzet upgrade' creates it)\n");
  EXPECT_EQ(shown.err, "vanzet: the project has no definition yet; 'vanzet upgrade' creates it\n");
}

TEST_F(DefinitionCommands, ShowADamagedDefinitionAsFarAsItGoes) {
  MakeUpgradedProject();
  WriteBytes(folder / "bad.vdm",
             "vdm 1\nrecord\n.1 1 1 2\n.Billet definition\n.100\nrecord\n.rubbish\nend 2\n");
  ASSERT_EQ(Vanzet("vdm load lathe bad.vdm 1000").status, 0);
  const Outcome shown = Vanzet("show lathe --spur 0");
  EXPECT_EQ(shown.status, 1);
  EXPECT_THAT(shown.out,
              testing::ContainsRegex("\n  Operation 1 +damaged: no header: 'rubbish'\n  Nothing is defined"));
  EXPECT_THAT(Vanzet("items lathe --summary").out, HasSubstr("damaged: no header: 'rubbish'"));
  EXPECT_EQ(shown.err, "vanzet: the definition of spur 0 is damaged\n");
}

TEST_F(DefinitionCommands, PrintItemsALineEach) {
  MakeUpgradedProject();
  const Outcome items = Vanzet("items lathe");
  EXPECT_EQ(items.status, 0);
  EXPECT_THAT(items.out, StartsWith("0.0\t1 1 1 2\n0.1\tBillet definition\n0.2\t100\n1.0\t2 1 4 1 3 2 4\n"));
  EXPECT_THAT(Vanzet("items lathe --vdm 1001").out, HasSubstr("\n2.7\tSubBillet\n"));
}

TEST_F(DefinitionCommands, EscapeItemsThatWouldBreakALine) {
  MakeProject();
  WriteBytes(folder / "odd.vdm", "vdm 1\nrecord\n.a\\nb\\r\\\\c\td\nend 1\n");
  ASSERT_EQ(Vanzet("vdm load lathe odd.vdm 5").status, 0);
  EXPECT_EQ(Vanzet("items lathe --vdm 5").out, "0.0\ta\\nb\\r\\\\c\\td\n");
  EXPECT_EQ(Json::parse(Vanzet("items lathe --vdm 5 --json").out),
            Json::parse(R"({"vdm":5,"records":[["a\nb\r\\c\td"]]})"));
}

TEST_F(DefinitionCommands, GiveATerminalNothingToActOn) {
  MakeProject();
  WriteBytes(folder / "odd.vdm", "vdm 1\nrecord\n.\x1b[2J\x7F\xC2\x9B[2J\x9B[2J\nend 1\n");
  ASSERT_EQ(Vanzet("vdm load lathe odd.vdm 5").status, 0);
  EXPECT_EQ(Vanzet("items lathe --vdm 5").out, "0.0\t\\x1b[2J\\x7f\\xc2\\x9b[2J\\x9b[2J\n");
  EXPECT_THAT(Vanzet("items lathe --vdm 5 --json").out,
              HasSubstr("\"\\u001b[2J\\u007f\\u009b[2J\xEF\xBF\xBD[2J\""));
  const Outcome saved = Vanzet("vdm save lathe 5 $'a\\eb.vdm'");
  EXPECT_THAT(saved.out, HasSubstr("a\\x1bb.vdm"));
}

TEST_F(DefinitionCommands, UpgradeAnOlderDefinition) {
  MakeUpgradedProject();
  WriteBytes(folder / "old.vdm",
             "vdm 1\nrecord\n.1 1 1 1\n.Billet definition\nrecord\n.2 1 3 1 2 2\n.Main Spindle\n.chuck\n.1 "
             "80\n.0\n.0\n"
             "end 2\n");
  ASSERT_EQ(Vanzet("vdm load lathe old.vdm 1000").status, 0);
  EXPECT_EQ(Vanzet("upgrade lathe").status, 0);
  EXPECT_THAT(SectionsOf(1000, 1), testing::ElementsAre(testing::ElementsAre("Main Spindle"),
                                                        testing::ElementsAre("chuck", "1 80", "0"),
                                                        testing::ElementsAre("0", "0")));
  EXPECT_THAT(Vanzet("show lathe --spur 0").out, StartsWith("Spur 0: VDM 1000, version 100\n"));
}

TEST_F(DefinitionCommands, GiveUpANewerDefinitionAndSaySo) {
  MakeUpgradedProject();
  WriteBytes(folder / "new.vdm", "vdm 1\nrecord\n.1 1 1 2\n.Billet definition\n.101\nend 1\n");
  ASSERT_EQ(Vanzet("vdm load lathe new.vdm 1001").status, 0);
  const Outcome upgraded = Vanzet("upgrade lathe");
  EXPECT_EQ(upgraded.status, 1);
  EXPECT_THAT(upgraded.err, StartsWith("Clamp definition: Newer version can not read\n"));
  EXPECT_THAT(upgraded.err, HasSubstr("vanzet: spur 1: VDM 1001 is not a definition of version 100"));
}

TEST_F(DefinitionCommands, UpgradeFiftySpurs) {
  MakeProject();
  WriteBytes(folder / "lathe/machine.ini", "[COMMON]\nNR_SPINDEL_SPUR=50\n");
  EXPECT_EQ(Vanzet("upgrade lathe").status, 0);
  EXPECT_EQ(Json::parse(Vanzet("show lathe --json").out)["spurs"][49]["spur"], 49);
  EXPECT_THAT(Vanzet("show lathe --spur 49").out, StartsWith("Spur 49: VDM 1049, version 100"));
}

TEST_F(DefinitionCommands, UpgradeAnEmptyFolderAfterABoxAboutItsMachine) {
  std::filesystem::create_directories(folder / "empty");
  const Outcome upgraded = Vanzet("upgrade empty");
  EXPECT_EQ(upgraded.status, 0);
  EXPECT_EQ(upgraded.out, "spur 0: VDM 1000, version 100, 18 operations\n");
  EXPECT_THAT(upgraded.err, StartsWith("File can not open for read: "));
}

TEST_F(DefinitionCommands, TraceEachCallOfTheModule) {
  MakeProjectWithoutDefinitions();
  ASSERT_EQ(Vanzet("upgrade lathe --trace calls.jsonl").status, 0);
  std::istringstream lines(ReadBytes(folder / "calls.jsonl"));
  std::vector<std::string> calls;
  for (std::string line; std::getline(lines, line);) calls.push_back(Json::parse(line)["call"]);
  ASSERT_GT(calls.size(), 100U);
  EXPECT_EQ(calls[0], "OrvoEnvironment");
  EXPECT_EQ(calls[1], "OrvoReadGlobalI");
  EXPECT_EQ(calls.back(), "OrvoMacroVdmClose");
  EXPECT_EQ(std::ranges::count(calls, "OrvoMacroVdmCreate"), 2);
  EXPECT_EQ(std::ranges::count(calls, "OrvoMacroVdmClose"), 2);
}

TEST_F(DefinitionCommands, ServeTheModulesBoxesFromAScript) {
  std::filesystem::create_directories(folder / "empty");
  WriteBytes(folder / "script.txt", "# nothing to answer\n");
  const Outcome upgraded = Vanzet("upgrade empty", "VANZET_SCRIPT=script.txt VANZET_TRANSCRIPT=run.jsonl");
  EXPECT_EQ(upgraded.status, 0);
  EXPECT_EQ(upgraded.err, "");
  const Json box = Json::parse(ReadBytes(folder / "run.jsonl"));
  EXPECT_EQ(box["event"], "box");
  EXPECT_EQ(box["caption"], "File can not open for read");
  EXPECT_EQ(box["type"], 48);
  EXPECT_EQ(box["answer"], 1);
}

}  // namespace
}  // namespace vanzet::test

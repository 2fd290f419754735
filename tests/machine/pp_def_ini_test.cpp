#include "machine/pp_def_ini.h"

#include <gmock/gmock.h>

#include "support/fake_host.h"
#include "support/reported_faults.h"
#include "support/temporary_folder.h"

namespace vanzet {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class PpDefIniTest : public testing::Test {
 protected:
  /// The machine of an ini with this section COMMON and whatever follows it.
  PpDefIni& Of(const std::string& common) {
    const std::string file = (folder / "machine.ini").string();
    test::WriteBytes(file, "[COMMON]\n" + common);
    host.environment["ppdefini"] = file;
    return machine;
  }

  test::FakeHost host;
  const test::TemporaryFolder folder;
  PpDefIni machine;
};

using LocateIni = PpDefIniTest;

TEST_F(LocateIni, TakesAPathWithADriveAsItIs) {
  Of("");
  EXPECT_EQ(machine.LocateIni(), 0);
  EXPECT_EQ(machine.iniPath(), host.environment["ppdefini"]);
  EXPECT_THAT(host.calls, ElementsAre("OrvoEnvironment('ppdefini')"));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(LocateIni, BuildsARelativePathUnderTheHostsFolder) {
  test::WriteBytes(folder / "machine.ini", "");
  host.environment = {{"ppdefini", "machine.ini"}, {"-d", folder.path().string()}};
  EXPECT_EQ(machine.LocateIni(), 0);
  EXPECT_EQ(machine.iniPath(), folder.path().string() + "\\machine.ini");
}

TEST_F(LocateIni, AppendsARelativeDirectory) {
  test::WriteBytes(folder / "pp/lathe/machine.ini", "");
  host.environment = {{"ppdefini", "pp\\lathe\\machine.ini"}, {"-d", folder.path().string()}};
  EXPECT_EQ(machine.LocateIni(), 0);
  EXPECT_EQ(machine.iniPath(), folder.path().string() + "\\pp\\lathe\\machine.ini");
}

TEST_F(LocateIni, ShowsAPathThatCannotBeReadInABoxWithoutOwnerAndKeepsIt) {
  host.environment["ppdefini"] = "D:\\none.ini";
  EXPECT_EQ(machine.LocateIni(), -1);
  EXPECT_EQ(machine.iniPath(), "D:\\none.ini");
  ASSERT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].owner, nullptr);
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("File can not open for read|D:\\none.ini|48"));
  machine.ReadAll();
  EXPECT_THAT(host.boxes, IsEmpty()) << "no second box follows";
}

TEST_F(LocateIni, ReportsAFileThatIsThereAndCannotBeRead) {
  const test::ReportedFaults reported;
  host.environment["ppdefini"] = "/dev/zero";
  EXPECT_EQ(machine.LocateIni(), -1);
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("File can not open for read|/dev/zero|48"));
  EXPECT_THAT(reported.Messages(), ElementsAre("/dev/zero: is not a regular file"));
  host.environment["ppdefini"] = "/none.ini";
  EXPECT_EQ(machine.LocateIni(), -1);
  EXPECT_EQ(reported.faults().size(), 1U) << "a machine may have no file";
}

TEST_F(LocateIni, ShowsAnEmptySettingWhichLeadsToAFolder) {
  host.environment["-d"] = folder.path().string();
  EXPECT_EQ(machine.LocateIni(), -1);
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre("File can not open for read|" + folder.path().string() + "\\|48"));
}

TEST_F(LocateIni, CutsWhatDoesNotFitTheScratchText) {
  host.environment["ppdefini"] = "D:" + std::string(3000, 'x');
  machine.LocateIni();
  EXPECT_EQ(machine.iniPath().size(), 1023U);
}

TEST_F(PpDefIniTest, HasItsDefaultsBeforeAnythingIsRead) {
  EXPECT_EQ(machine.iniPath(), "");
  EXPECT_EQ(machine.generationVersion(), -1);
  EXPECT_EQ(machine.machineName(), "");
  EXPECT_FALSE(machine.isLoaded());
  EXPECT_FALSE(machine.isSwissTypeLathe());
  EXPECT_EQ(machine.channelCount(), 1);
  EXPECT_FALSE(machine.isMainSpindleMoveable());
  EXPECT_FALSE(machine.isRapidAxisAvailable());
  EXPECT_FALSE(machine.isTrailOnAvailable());
  EXPECT_FALSE(machine.isMillingAvailable());
  EXPECT_FALSE(machine.isSubSpindleOnTurret());
  EXPECT_THAT(machine.steadyRests(), IsEmpty());
  EXPECT_FALSE(machine.isQuickLathe());
}

TEST_F(PpDefIniTest, HasItsDefaultsWithoutAnIni) {
  host.environment["ppdefini"] = "D:\\none.ini";
  machine.ReadAll();
  EXPECT_EQ(machine.generationVersion(), -1);
  EXPECT_EQ(machine.machineName(), "-1");
  EXPECT_TRUE(machine.isLoaded());
  EXPECT_EQ(machine.channelCount(), 1);
  EXPECT_EQ(machine.GetSpindleSpurCount(), 1);
  EXPECT_FALSE(machine.isRapidAxisAvailable());
  EXPECT_THAT(machine.steadyRests(), IsEmpty());
}

TEST_F(PpDefIniTest, ReadsEveryFact) {
  Of("PP_GEN_Version=7\nMACHINE_NAME=\"CTX 500\"\nSWISS_TYPE_LATHE=1\nNR_OF_CHANNEL=3\nNR_SPINDEL_SPUR=2\n"
     "SUBSPINDLE_ON_TURRET=1\nQuickLathe=1\n[B3]\nRapid=2\n");
  for (const char* key : {"mainSpindleMoveable", "SubSpindleAvailable", "TailStockAvailable", "LunAvailable",
                          "TrailOnAvailable", "MillingAvailable"}) {
    host.environment[key] = "1";
  }
  EXPECT_EQ(machine.ReadAll(), 0);
  EXPECT_EQ(machine.generationVersion(), 7);
  EXPECT_EQ(machine.machineName(), "CTX 500");
  EXPECT_TRUE(machine.isSwissTypeLathe());
  EXPECT_EQ(machine.channelCount(), 3);
  EXPECT_EQ(machine.GetSpindleSpurCount(), 2);
  EXPECT_TRUE(machine.isMainSpindleMoveable());
  EXPECT_TRUE(machine.IsSubSpindleAvailable());
  EXPECT_TRUE(machine.isRapidAxisAvailable());
  EXPECT_TRUE(machine.IsTailStockAvailable());
  EXPECT_TRUE(machine.IsLunAvailable());
  EXPECT_TRUE(machine.isTrailOnAvailable());
  EXPECT_TRUE(machine.isMillingAvailable());
  EXPECT_TRUE(machine.isSubSpindleOnTurret());
  EXPECT_TRUE(machine.isQuickLathe());
}

TEST_F(PpDefIniTest, ReadsTheCommonFactsInTheirOrder) {
  Of("");
  machine.ReadMachineFacts();
  EXPECT_THAT(host.calls,
              ElementsAre("OrvoEnvironment('ppdefini')", "OrvoEnvironment('NrOfChannels')",
                          "OrvoEnvironment('mainSpindleMoveable')", "OrvoEnvironment('SubSpindleAvailable')",
                          "OrvoEnvironment('TailStockAvailable')", "OrvoEnvironment('LunAvailable')",
                          "OrvoEnvironment('TrailOnAvailable')", "OrvoEnvironment('MillingAvailable')"));
}

TEST_F(PpDefIniTest, TakesOnlyOneForTrue) {
  Of("SWISS_TYPE_LATHE=2\n");
  host.environment["SubSpindleAvailable"] = "2";
  machine.ReadAll();
  EXPECT_FALSE(machine.isSwissTypeLathe());
  EXPECT_FALSE(machine.IsSubSpindleAvailable());
}

TEST_F(PpDefIniTest, TakesOnlyOneForTrueInEveryFlag) {
  Of("SUBSPINDLE_ON_TURRET=2\nQuickLathe=-1\n");
  for (const char* key : {"mainSpindleMoveable", "TailStockAvailable", "LunAvailable", "TrailOnAvailable",
                          "MillingAvailable"}) {
    host.environment[key] = "2";
  }
  machine.ReadAll();
  EXPECT_FALSE(machine.isSubSpindleOnTurret());
  EXPECT_FALSE(machine.isQuickLathe());
  EXPECT_FALSE(machine.isMainSpindleMoveable());
  EXPECT_FALSE(machine.IsTailStockAvailable());
  EXPECT_FALSE(machine.IsLunAvailable());
  EXPECT_FALSE(machine.isTrailOnAvailable());
  EXPECT_FALSE(machine.isMillingAvailable());
}

TEST_F(PpDefIniTest, AsksAnewWhenTheFactsAreReadAgain) {
  Of("NR_SPINDEL_SPUR=2\n[B2]\nRapid=1\n");
  host.environment["SubSpindleAvailable"] = "1";
  machine.ReadMachineFacts();
  Of("NR_SPINDEL_SPUR=3\n");
  host.environment["SubSpindleAvailable"] = "0";
  machine.ReadMachineFacts();
  EXPECT_EQ(machine.GetSpindleSpurCount(), 3);
  EXPECT_FALSE(machine.IsSubSpindleAvailable());
  EXPECT_FALSE(machine.isRapidAxisAvailable());
}

TEST_F(PpDefIniTest, TakesTextThatIsNoNumberForZero) {
  Of("PP_GEN_Version=seven\nNR_SPINDEL_SPUR=two\n");
  machine.ReadAll();
  EXPECT_EQ(machine.generationVersion(), 0);
  EXPECT_EQ(machine.GetSpindleSpurCount(), 1);
}

TEST_F(PpDefIniTest, KeepsAMainSpindleThatWasMoveableOnce) {
  Of("");
  host.environment["mainSpindleMoveable"] = "1";
  machine.ReadMachineFacts();
  host.environment["mainSpindleMoveable"] = "0";
  machine.ReadMachineFacts();
  EXPECT_TRUE(machine.isMainSpindleMoveable());
}

using Channels = PpDefIniTest;

TEST_F(Channels, AreAskedOfTheHostWhenTheIniSaysNothing) {
  Of("");
  host.environment["NrOfChannels"] = "4";
  machine.ReadMachineFacts();
  EXPECT_EQ(machine.channelCount(), 4);
}

TEST_F(Channels, AreAskedOfTheHostOnlyForMinusOne) {
  Of("NR_OF_CHANNEL=0\n");
  host.environment["NrOfChannels"] = "4";
  machine.ReadMachineFacts();
  EXPECT_EQ(machine.channelCount(), 1);
  EXPECT_THAT(host.calls, Not(Contains("OrvoEnvironment('NrOfChannels')")));
}

TEST_F(Channels, StayWithinOneAndTen) {
  Of("NR_OF_CHANNEL=11\n").ReadMachineFacts();
  EXPECT_EQ(machine.channelCount(), 10);
  Of("").ReadMachineFacts();
  EXPECT_EQ(machine.channelCount(), 1) << "the host gives 0";
  host.environment["NrOfChannels"] = "11";
  Of("").ReadMachineFacts();
  EXPECT_EQ(machine.channelCount(), 10) << "the host gives 11";
  Of("NR_OF_CHANNEL=-5\n").ReadMachineFacts();
  EXPECT_EQ(machine.channelCount(), 1);
}

TEST_F(Channels, HaveARapidAxisByTheSectionOfTheNextNumber) {
  Of("[B2]\nRapid=0\n[B3]\nRapid=1\n[B5]\nRapid=-1\n");
  EXPECT_FALSE(machine.HasRapidAxis(4)) << "1 or more";
  EXPECT_FALSE(machine.HasRapidAxis(1));
  EXPECT_TRUE(machine.HasRapidAxis(2));
  EXPECT_FALSE(machine.HasRapidAxis(3));
}

TEST_F(Channels, BeyondTheCountDoNotMakeARapidAxis) {
  Of("NR_OF_CHANNEL=1\n[B3]\nRapid=1\n").ReadMachineFacts();
  EXPECT_FALSE(machine.isRapidAxisAvailable());
}

using Spurs = PpDefIniTest;

TEST_F(Spurs, OutsideOneToFiftyAreOne) {
  for (const auto& [text, count] :
       {std::pair{"0", 1}, {"1", 1}, {"50", 50}, {"51", 1}, {"-3", 1}, {"99999999999", 1}}) {
    Of(std::string("NR_SPINDEL_SPUR=") + text + "\n");
    EXPECT_EQ(machine.GetSpindleSpurCount(), count) << text;
  }
}

using Accessors = PpDefIniTest;

TEST_F(Accessors, AskAtEachCallUntilTheFactsAreRead) {
  Of("NR_SPINDEL_SPUR=2\n");
  host.environment["LunAvailable"] = "1";
  EXPECT_TRUE(machine.IsLunAvailable());
  host.environment["LunAvailable"] = "0";
  EXPECT_FALSE(machine.IsLunAvailable());
  EXPECT_EQ(machine.GetSpindleSpurCount(), 2);
  Of("NR_SPINDEL_SPUR=3\n");
  EXPECT_EQ(machine.GetSpindleSpurCount(), 3);
}

TEST_F(Accessors, AnswerFromWhatWasReadAfterwards) {
  Of("NR_SPINDEL_SPUR=2\n");
  host.environment["TailStockAvailable"] = "1";
  machine.ReadMachineFacts();
  host.environment["TailStockAvailable"] = "0";
  Of("NR_SPINDEL_SPUR=3\n");
  host.TakeCalls();
  EXPECT_TRUE(machine.IsTailStockAvailable());
  EXPECT_EQ(machine.GetSpindleSpurCount(), 2);
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(Accessors, OfHostKeysSeeToTheIniFirst) {
  host.environment = {{"ppdefini", "D:\\none.ini"}, {"SubSpindleAvailable", "1"}};
  EXPECT_TRUE(machine.IsSubSpindleAvailable());
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("File can not open for read|D:\\none.ini|48"));
}

using SteadyRests = PpDefIniTest;

TEST_F(SteadyRests, AreReadWithDecimalCommasAndShareTheirNumbers) {
  Of("NR_OF_LUN=2\nLUN1_ROTAXIS_NAME_1=C3\nLUN1_ROTAXIS_NAME_2=C4\nLUN2_ROTAXIS_NAME_1=C5\n"
     "LUN2_ROTAXIS_NAME_2=C6\nLUN_MAX_DIAM=12,5\nLUN_ROLL_DIAM=3.5\nLUN_ROLL_DIST=1\nLUN_X0_DIST=-2,25\n");
  machine.ReadAll();
  ASSERT_EQ(machine.steadyRests().size(), 2U);
  for (const LunRecord& rest : machine.steadyRests()) {
    EXPECT_EQ(rest.maximumDiameter, 12.5);
    EXPECT_EQ(rest.rollDiameter, 3.5);
    EXPECT_EQ(rest.rollDistance, 1.0);
    EXPECT_EQ(rest.x0Distance, -2.25);
  }
  EXPECT_EQ(machine.steadyRests()[0].firstRotaryAxis, "C3");
  EXPECT_EQ(machine.steadyRests()[1].secondRotaryAxis, "C6");
}

TEST_F(SteadyRests, EndAtTheFirstWithoutBothNames) {
  Of("NR_OF_LUN=3\nLUN1_ROTAXIS_NAME_1=C3\nLUN1_ROTAXIS_NAME_2=C4\nLUN2_ROTAXIS_NAME_1=C5\n"
     "LUN3_ROTAXIS_NAME_1=C7\nLUN3_ROTAXIS_NAME_2=C8\n");
  machine.ReadAll();
  EXPECT_EQ(machine.steadyRests().size(), 1U);
  machine.ReadAll();
  EXPECT_EQ(machine.steadyRests().size(), 1U) << "the list is emptied before it is read again";
}

TEST_F(SteadyRests, AreNoneWithoutACount) {
  Of("LUN1_ROTAXIS_NAME_1=C3\nLUN1_ROTAXIS_NAME_2=C4\n");
  machine.ReadAll();
  EXPECT_THAT(machine.steadyRests(), IsEmpty());
}

TEST_F(SteadyRests, OfAnAbsurdCountEndWhereTheNamesEnd) {
  Of("NR_OF_LUN=2147483647\nLUN1_ROTAXIS_NAME_1=C3\nLUN1_ROTAXIS_NAME_2=C4\n");
  machine.ReadAll();
  EXPECT_EQ(machine.steadyRests().size(), 1U);
}

}  // namespace
}  // namespace vanzet

#include "store/macro_vdm.h"

#include "store/store_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MacroVdmTest : public StoreTest {
 protected:
  std::vector<std::string> MacroVdmCalls() { return host.TakeCalls("OrvoMacroVdm"); }
  OrvoApi::MacroVdm store{kVdm};
};

TEST_F(MacroVdmTest, CreateMakesTheVdmAndOpensIt) {
  EXPECT_TRUE(store.Create());
  EXPECT_TRUE(store.IsOpen());
  EXPECT_THAT(MacroVdmCalls(), ElementsAre("OrvoMacroVdmExists(1000)", "OrvoMacroVdmCreate(1000, 0)"));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(MacroVdmTest, CreateOnAnOpenObjectReportsAndAsksNothing) {
  store.Create();
  host.TakeCalls();
  EXPECT_FALSE(store.Create());
  EXPECT_TRUE(store.IsOpen());
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(BaseBox("Create: class already open")));
  EXPECT_THAT(MacroVdmCalls(), IsEmpty());
}

TEST_F(MacroVdmTest, CreateOfATakenNumberIsRefused) {
  host.vdms[kVdm] = {};
  EXPECT_FALSE(store.Create());
  EXPECT_FALSE(store.IsOpen());
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(BaseBox("Create: vdm exist")));
}

TEST_F(MacroVdmTest, CreateThatTheHostRefusesLeavesTheObjectClosed) {
  host.refusesCreate = true;
  EXPECT_FALSE(store.Create());
  EXPECT_FALSE(store.IsOpen());
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(BaseBox("Create: ORVO can not create")));
}

TEST_F(MacroVdmTest, OpenAsksWhetherItExistsAndIsOpenAndThenOpens) {
  host.vdms[kVdm] = {};
  EXPECT_TRUE(store.Open());
  EXPECT_THAT(MacroVdmCalls(), ElementsAre("OrvoMacroVdmExists(1000)", "OrvoMacroVdmCheckOpen(1000)",
                                           "OrvoMacroVdmOpen(1000, 1)"));
}

TEST_F(MacroVdmTest, OpenOnAnOpenObjectChangesNothingAndReports) {
  store.Create();
  host.TakeCalls();
  EXPECT_FALSE(store.Open());
  EXPECT_TRUE(store.IsOpen());
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(BaseBox("Open: class already open")));
  EXPECT_THAT(MacroVdmCalls(), IsEmpty());
}

TEST_F(MacroVdmTest, OpenOfAMissingVdmIsRefused) {
  EXPECT_FALSE(store.Open());
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(BaseBox("Open: vdm doesn't exist")));
}

TEST_F(MacroVdmTest, OpenOfAVdmThatIsOpenElsewhereIsRefused) {
  host.vdms[kVdm].openElsewhere = true;
  EXPECT_FALSE(store.Open());
  EXPECT_FALSE(store.IsOpen());
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(BaseBox("Open: already open by another process")));
}

TEST_F(MacroVdmTest, OpenThatTheHostRefusesLeavesTheObjectClosed) {
  host.vdms[kVdm] = {};
  host.refusesOpen = true;
  EXPECT_FALSE(store.Open());
  EXPECT_FALSE(store.IsOpen());
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(BaseBox("Open: ORVO can not open")));
}

TEST_F(MacroVdmTest, CloseAsksWhetherItIsStillOpenAndThenCloses) {
  store.Create();
  host.TakeCalls();
  EXPECT_TRUE(store.Close());
  EXPECT_FALSE(store.IsOpen());
  EXPECT_THAT(MacroVdmCalls(), ElementsAre("OrvoMacroVdmCheckOpen(1000)", "OrvoMacroVdmClose(41)"));
}

TEST_F(MacroVdmTest, CloseTwiceReportsTheSecondTime) {
  store.Create();
  EXPECT_TRUE(store.Close());
  EXPECT_FALSE(store.Close());
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(BaseBox("Close: Vdm not open")));
}

TEST_F(MacroVdmTest, CloseOfWhatSomebodyElseHasClosedForgetsTheHandle) {
  store.Create();
  host.vdms[kVdm].handle = 0;
  host.TakeCalls();
  EXPECT_FALSE(store.Close());
  EXPECT_FALSE(store.IsOpen());
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(BaseBox("Close: already closed by another process")));
  EXPECT_THAT(MacroVdmCalls(), ElementsAre("OrvoMacroVdmCheckOpen(1000)"))
      << "the host's close is not called";
}

TEST_F(MacroVdmTest, DestructionClosesWhatIsOpen) {
  { OrvoApi::MacroVdm(kVdm).Create(); }
  EXPECT_EQ(host.vdms[kVdm].handle, 0U);
  EXPECT_THAT(MacroVdmCalls(), testing::Contains("OrvoMacroVdmClose(41)"));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(MacroVdmTest, DestructionOfAClosedObjectAsksNothing) {
  { const OrvoApi::MacroVdm closed(kVdm); }
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(MacroVdmTest, DestructionReportsAsCloseDoes) {
  {
    OrvoApi::MacroVdm open(kVdm);
    open.Create();
    host.vdms[kVdm].handle = 0;
  }
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(BaseBox("Close: already closed by another process")));
}

TEST_F(MacroVdmTest, ItemsAreReadAddedAndReplacedAtThePosition) {
  host.vdms[kVdm].records = {{"a", "b"}, {"c"}};
  store.Open();
  std::string text;
  EXPECT_TRUE(store.SingleGet(text));
  EXPECT_EQ(text, "a");
  EXPECT_TRUE(store.SingleAdd("x"));
  EXPECT_TRUE(store.SingleGet(text));
  EXPECT_EQ(text, "b");
  store.SeekFromStart(1);
  EXPECT_TRUE(store.SingleReplace("y"));
  store.SeekFromStart(0);
  store.SingleSeek(1);
  EXPECT_TRUE(store.SingleGet(text));
  EXPECT_EQ(text, "x");
  EXPECT_EQ(store.Size(), 2);
  EXPECT_THAT(host.ItemsOf(kVdm, 0), ElementsAre("a", "x", "b"));
  EXPECT_THAT(host.ItemsOf(kVdm, 1), ElementsAre("y"));
}

TEST_F(MacroVdmTest, WhatIsDoneToAClosedVdmIsReportedAndHasNoEffect) {
  std::string text = "before";
  EXPECT_FALSE(store.SingleGet(text));
  EXPECT_EQ(text, "before");
  EXPECT_FALSE(store.SingleAdd("x"));
  EXPECT_FALSE(store.SingleReplace("x"));
  store.SeekFromStart(0);
  store.SingleSeek(1);
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(BaseBox("SingleGet::str: Vdm not open"), BaseBox("SingleAdd::str: Vdm not open"),
                          BaseBox("SingleReplace::str: Vdm not open"), BaseBox("SeekFromStart: Vdm not open"),
                          BaseBox("SingleSeek: Vdm not open")));
  EXPECT_THAT(MacroVdmCalls(), IsEmpty());
}

TEST_F(MacroVdmTest, TheSizeOfAClosedVdmIsZeroWithoutAReport) {
  EXPECT_EQ(store.Size(), 0);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(MacroVdmTest, AnItemOf4999BytesFits) {
  const std::string longest(4999, 'x');
  host.vdms[kVdm].records = {{longest}};
  store.Open();
  std::string text;
  EXPECT_TRUE(store.SingleGet(text));
  EXPECT_EQ(text, longest);
}

TEST_F(MacroVdmTest, ReportsStandInFrontOfTheHostsWindowBehindTheNumber) {
  store.ReportError("something");
  ASSERT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].owner, FakeHost::WindowOf(2));
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("OrvoApi::MacroVdm|1000: something|0"));
}

class LoadFromFile : public MacroVdmTest {
 protected:
  LoadFromFile() {
    host.integers["i_ret"] = 0;
    host.onCommand = [this](const std::string& line) { sent = line; };
  }
  std::string sent;
};

TEST_F(LoadFromFile, SendsTheCommandAndLeavesTheObjectClosed) {
  EXPECT_TRUE(store.LoadFromFile("D:\\own\\x.vdm"));
  EXPECT_EQ(sent, "vdm load 'D:\\own\\x.vdm' i_ret 1000");
  EXPECT_FALSE(store.IsOpen());
}

TEST_F(LoadFromFile, TakesTheExtensionInAnyCase) {
  EXPECT_TRUE(store.LoadFromFile("/own/x.Vdm"));
  EXPECT_EQ(sent, "vdm load '/own/x.Vdm' i_ret 1000");
}

TEST_F(LoadFromFile, ClosesAndDeletesTheOldContentFirst) {
  store.Create();
  host.TakeCalls();
  EXPECT_TRUE(store.LoadFromFile("x.vdm"));
  EXPECT_THAT(MacroVdmCalls(), ElementsAre("OrvoMacroVdmExists(1000)", "OrvoMacroVdmCheckOpen(1000)",
                                           "OrvoMacroVdmClose(41)", "OrvoMacroVdmDelete(1000)"));
  EXPECT_FALSE(host.vdms.contains(kVdm));
}

TEST_F(LoadFromFile, OfAnotherExtensionLosesTheOldContentAllTheSame) {
  for (const char* path : {"x.txt", "x", "x.vdmx", "vdm"}) {
    host.vdms[kVdm] = {};
    EXPECT_FALSE(store.LoadFromFile(path)) << path;
    EXPECT_FALSE(host.vdms.contains(kVdm)) << path;
    EXPECT_THAT(host.TakeBoxes(), ElementsAre("|Invalid VDM-Name!|0"));
    EXPECT_EQ(sent, "") << path;
  }
}

TEST_F(LoadFromFile, RefusesInTheUsersLanguage) {
  host.translations[746] = "Kein VDM-Name!";
  EXPECT_FALSE(store.LoadFromFile("x.txt"));
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("|Kein VDM-Name!|0"));
}

TEST_F(LoadFromFile, FailsOnlyWhenTheHostSaysMinusOne) {
  for (const std::int32_t told : {0, 1, -2}) {
    host.integers["i_ret"] = told;
    EXPECT_TRUE(store.LoadFromFile("x.vdm")) << told;
  }
  host.integers["i_ret"] = -1;
  EXPECT_FALSE(store.LoadFromFile("x.vdm"));
}

TEST_F(LoadFromFile, GoesOnWhenTheStatusCannotBeRead) {
  host.integers.clear();
  EXPECT_TRUE(store.LoadFromFile("x.vdm"));
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("OrvoApi::MacroExport::GetGlobalIntVar Failed|i_ret|0"));
}

}  // namespace
}  // namespace vanzet::test

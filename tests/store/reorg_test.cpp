#include "store/clamp_schema.h"
#include "store/store_fixture.h"
#include "support/golden.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ReOrg : public StoreTest {
 protected:
  /// Runs it on a fresh object, counting the rebuilds of simulation data.
  void Run() {
    BilletVdm definition(kVdm);
    EXPECT_TRUE(definition.ReOrg(Rebuild()));
    EXPECT_FALSE(definition.IsOpen());
  }

  SimulationRebuild Rebuild() {
    return [this](BilletVdm& definition, bool isSub) {
      EXPECT_TRUE(definition.IsOpen());
      rebuilds.push_back(isSub ? "sub" : "main");
    };
  }

  /// The definition that is made where none is.
  std::vector<Record> Fresh() {
    std::vector<Record> records;
    const FakeHost other;
    BilletVdm(kVdm).ReOrg([](BilletVdm&, bool) {});
    return FakeHost::Current().vdms[kVdm].records;
  }

  void ExpectFreshDefinition() { EXPECT_EQ(host.vdms[kVdm].records, Fresh()); }

  std::vector<std::string> rebuilds;
};

TEST_F(ReOrg, MakesADefinitionOf18OperationsWhereNoneIs) {
  Run();
  const char* const headers[] = {
      "1 1 1 2",     "2 1 4 1 3 2 4", "2 1 4 1 3 2 4", "2 1 4 1 1 0 0", "2 1 4 1 1 0 0", "2 1 2 1 0",
      "2 1 3 2 0 0", "2 1 2 1 0",     "2 1 3 2 0 0",   "2 1 2 1 0",     "2 1 2 1 3",     "2 1 2 1 0",
      "2 1 2 1 0",   "2 1 2 1 0",     "2 1 2 1 0",     "2 1 2 1 0",     "2 1 2 1 1",     "2 1 2 1 1"};
  ASSERT_EQ(Records(), 18U);
  for (std::size_t i = 0; i < 18; ++i) EXPECT_EQ(Items(i).at(0), headers[i]) << i;
  EXPECT_THAT(Items(0), ElementsAre("1 1 1 2", "Billet definition", "100"));
  EXPECT_THAT(Items(2), ElementsAre("2 1 4 1 3 2 4", "Sub Spindle", "0", "0", "0", "0", "0", "SubBillet", "0",
                                    "0", "0"));
  EXPECT_THAT(Items(3), ElementsAre("2 1 4 1 1 0 0", "Datum NPV", "0"));
  EXPECT_THAT(Items(4), ElementsAre("2 1 4 1 1 0 0", "Luenette", "0"));
  EXPECT_THAT(Items(5), ElementsAre("2 1 2 1 0", "VRML Main Clampdevice"));
  EXPECT_THAT(Items(6), ElementsAre("2 1 3 2 0 0", "VRML Main Jaw", "D2T Main Jaw"));
  EXPECT_THAT(Items(8), ElementsAre("2 1 3 2 0 0", "VRML Sub Jaw", "D2T Sub Jaw"));
  EXPECT_THAT(Items(10), ElementsAre("2 1 2 1 3", "Center", "0", "0", "0"));
  EXPECT_THAT(Items(15), ElementsAre("2 1 2 1 0", "2D Geometry for center"));
  EXPECT_THAT(Items(17), ElementsAre("2 1 2 1 1", "Finishpart from Sub", "0"));
  EXPECT_THAT(host.boxes, IsEmpty());
  EXPECT_THAT(rebuilds, IsEmpty()) << "a new definition is current";
}

TEST_F(ReOrg, MakesADefinitionByTheseCalls) {
  Run();
  EXPECT_GOLDEN(Lines(host.calls), "store/reorg_new.trace");
}

TEST_F(ReOrg, BringsAVersionZeroUpToDateByTheseCalls) {
  host.vdms[kVdm].records = {
      {"1 1 1 1", "Billet definition"},
      {"2 1 4 1 2 2 4", "Main Spindle", "chuck", "1 5.0", "0", "0", "MainBillet", "0", "0", "0"}};
  Run();
  EXPECT_GOLDEN(Lines(host.calls), "store/reorg_version_0.trace");
}

TEST_F(ReOrg, LeavesACurrentDefinitionAsItIs) {
  Run();
  const auto before = host.vdms[kVdm].records;
  host.TakeCalls();
  Run();
  EXPECT_EQ(host.vdms[kVdm].records, before);
  EXPECT_THAT(rebuilds, IsEmpty());
  EXPECT_THAT(host.boxes, IsEmpty());
  const std::vector<std::string> calls = host.TakeCalls("OrvoMacroVdm");
  EXPECT_EQ(calls.front(), "OrvoMacroVdmExists(1000)");
  EXPECT_THAT(calls, testing::Contains("OrvoMacroVdmSingleReplace$(42, '100', 1)"))
      << "the version is rewritten with the same text";
  EXPECT_THAT(calls, testing::Not(testing::Contains(testing::HasSubstr("Insert"))));
}

TEST_F(ReOrg, MakesAnEmptyVdmAnewAndRebuildsTheSimulation) {
  host.vdms[kVdm] = {};
  Run();
  ExpectFreshDefinition();
  EXPECT_THAT(rebuilds, ElementsAre("main", "sub"));
  EXPECT_THAT(host.TakeBoxes(), ElementsAre(MillTurnBox("Operation 0 (0 based) out of range (0 oprations)")));
}

TEST_F(ReOrg, BringsAnOlderLayoutUpToDate) {
  Run();
  auto& records = host.vdms[kVdm].records;
  records.resize(12);
  records[0] = {"1 1 1 1", "Billet definition"};
  records[1] = {"2 1 4 1 2 2 4", "Main Spindle", "chuck", "1 5.0", "0", "0", "MainBillet", "0", "0", "0"};
  Run();
  EXPECT_EQ(Records(), 18U);
  EXPECT_THAT(Items(0), ElementsAre("1 1 1 2", "Billet definition", "100"));
  EXPECT_THAT(Items(1), ElementsAre("2 1 4 1 3 2 4", "Main Spindle", "chuck", "1 5.0", "0", "0", "0",
                                    "MainBillet", "0", "0", "0"));
  EXPECT_THAT(Items(12), ElementsAre("2 1 2 1 0", "2D Geometry for main jaw"));
  EXPECT_THAT(rebuilds, ElementsAre("main", "sub"));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(ReOrg, MakesTheSectionOfTheClampDeviceWhereItIsMissing) {
  Run();
  host.vdms[kVdm].records[0][2] = "0";
  host.vdms[kVdm].records[1] = {"2 1 1 1", "Main Spindle"};
  host.vdms[kVdm].records[2] = {"2 1 0"};
  Run();
  EXPECT_THAT(Items(1), ElementsAre("2 1 2 1 3", "Main Spindle", "0", "0", "0"));
  EXPECT_THAT(Items(2), ElementsAre("2 1 2 0 3", "0", "0", "0"));
}

TEST_F(ReOrg, LeavesASectionOfThreeItemsOrMoreAlone) {
  Run();
  host.vdms[kVdm].records[0][2] = "99";
  const Record four = {"2 1 2 1 4", "Main Spindle", "a", "b", "c", "d"};
  host.vdms[kVdm].records[1] = four;
  Run();
  EXPECT_EQ(Items(1), four);
}

TEST_F(ReOrg, KeepsWhatStandsBehindTheVersion) {
  Run();
  host.vdms[kVdm].records[0][2] = "99 x";
  Run();
  EXPECT_EQ(Items(0).at(2), "100 x");
  EXPECT_THAT(rebuilds, ElementsAre("main", "sub"));
}

TEST_F(ReOrg, LeavesOperationsAboveTheSchemaAlone) {
  Run();
  host.vdms[kVdm].records.push_back({"7 1 1 1", "of the shop's own"});
  Run();
  EXPECT_EQ(Records(), 19U);
  EXPECT_THAT(Items(18), ElementsAre("7 1 1 1", "of the shop's own"));
}

TEST_F(ReOrg, GivesUpANewerDefinitionAndLeavesAnEmptyVdm) {
  Run();
  host.vdms[kVdm].records[0][2] = "101";
  host.TakeCalls();
  Run();
  EXPECT_EQ(Records(), 0U);
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("Clamp definition|Newer version can not read|48",
                                            MillTurnBox("Operation 0 (0 based) out of range (0 oprations)")));
  EXPECT_THAT(rebuilds, IsEmpty());
}

TEST_F(ReOrg, GivesUpANewerDefinitionInThisOrder) {
  Run();
  host.vdms[kVdm].records[0][2] = "101";
  host.TakeCalls();
  Run();
  const std::vector<std::string> calls = host.TakeCalls();
  const auto at = [&](const std::string& call) { return std::ranges::find(calls, call) - calls.begin(); };
  EXPECT_LT(at("OrvoMacroVdmClose(42)"), at("OrvoGetWnd(2)"));
  EXPECT_LT(at("OrvoGetWnd(2)"), at("OrvoMacroVdmDelete(1000)"));
  EXPECT_LT(at("OrvoMacroVdmDelete(1000)"), at("OrvoMacroVdmCreate(1000, 0)"));
  EXPECT_LT(at("OrvoMacroVdmCreate(1000, 0)"), static_cast<std::ptrdiff_t>(calls.size()));
}

TEST_F(ReOrg, OfANewerDefinitionWithFewerOperationsMakesTheRest) {
  host.vdms[kVdm].records = {{"1 1 1 2", "Billet definition", "101"}, {"2 1 0"}};
  Run();
  // The first two are not made again, so the others begin at record 2, where the new VDM has no place.
  EXPECT_EQ(host.TakeBoxes().front(), "Clamp definition|Newer version can not read|48");
  EXPECT_EQ(Records(), 16U);
}

TEST_F(ReOrg, OfADefinitionOpenElsewhereReportsAndChangesNothing) {
  Run();
  host.vdms[kVdm].records[0][2] = "99";
  host.vdms[kVdm].openElsewhere = true;
  const auto before = host.vdms[kVdm].records;
  host.TakeCalls();
  Run();
  EXPECT_EQ(host.vdms[kVdm].records, before);
  EXPECT_THAT(host.calls, testing::Contains("OrvoMacroVdmInsert$(0, '1 1 0', 1)"));
  const std::vector<std::string> boxes = host.TakeBoxes();
  EXPECT_EQ(boxes[0], BaseBox("Open: already open by another process"));
  EXPECT_EQ(boxes[1], BaseBox("Create: vdm exist"));
  EXPECT_EQ(boxes[2], BaseBox("SeekFromStart: Vdm not open"));
  EXPECT_EQ(boxes.back(), BaseBox("Close: Vdm not open"));
}

TEST_F(ReOrg, OnAnOpenObjectReportsTwiceAndMakesEverythingAnew) {
  OpenOver({{"1 1 1 2", "label", "50"}});
  EXPECT_TRUE(vdm.ReOrg(Rebuild()));
  EXPECT_THAT(host.TakeBoxes(),
              ElementsAre(MillTurnBox("Create: class already open"), BaseBox("Create: class already open")));
  ExpectFreshDefinition();
  EXPECT_FALSE(vdm.IsOpen());
  EXPECT_THAT(rebuilds, IsEmpty());
}

TEST_F(ReOrg, EndsWhenTheHostRefusesEverything) {
  host.refusesCreate = true;
  Run();
  EXPECT_EQ(host.TakeBoxes().front(), BaseBox("Create: ORVO can not create"));
}

TEST_F(ReOrg, PadsBeforeItRebuildsAndWritesTheVersionLast) {
  Run();
  host.vdms[kVdm].records[0][2] = "0";
  host.vdms[kVdm].records[1][0] = "2 1 2 1 0";
  host.vdms[kVdm].records[1].resize(2);
  BilletVdm definition(kVdm);
  definition.ReOrg([this](BilletVdm&, bool) {
    EXPECT_EQ(Items(1).at(0), "2 1 2 1 3");
    EXPECT_EQ(Items(0).at(2), "0");
  });
  EXPECT_EQ(Items(0).at(2), "100");
}

}  // namespace
}  // namespace vanzet::test

#include "simulation/rebuild.h"

#include "simulation/simulation_fixture.h"
#include "support/failing_call.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr DeviceParams kChuck = {.type = 1, .A = 100, .B = 50, .C = 20};
constexpr DeviceParams kCollet = {.type = 2, .A = 40, .B = 60, .C = 10, .D = 15, .E = 30, .F = 2};
constexpr DeviceParams kCenter = {
    .type = 13, .A = 120, .B = 80, .C = 100, .D = 10, .E = 60, .F = 20, .G = 60};
constexpr DeviceParams kJaw = {.type = 9, .A = 30, .B = 20, .D = 12.5};

class Rebuild : public SimulationTest {
 protected:
  Rebuild() {
    host.kurves[30001] = {{0, 0}, {0, 30}, {20, 30}, {20, 0}, {0, 0}};
    host.kurves[30000] = {{0, 20}, {-50, 20}, {-50, 100}, {0, 100}, {0, 20}};
  }

  bool JawOf(bool isSub = false) {
    BilletVdm definition(kVdm);
    EXPECT_TRUE(definition.Open());
    host.TakeCalls();
    const bool isDone = RebuildJawSimulation(definition, isSub);
    EXPECT_TRUE(definition.IsOpen());
    definition.Close();
    return isDone;
  }

  void ExpectNothingSent() {
    for (const std::string& call : host.TakeCalls()) {
      EXPECT_TRUE(call.starts_with("OrvoMacroVdm")) << call;
    }
  }

  /// The line that extrudes the jaw.
  std::string Extrusion() {
    for (const std::string& call : host.TakeCalls("OrvoCommand('sld ext")) return call;
    return "";
  }
};

TEST_F(Rebuild, OfAJawIsThisConversation) {
  Define(1, kChuck, kJaw);
  EXPECT_TRUE(JawOf());
  EXPECT_GOLDEN(Conversation(), "simulation/rebuild_jaw.trace");
}

TEST_F(Rebuild, OfAJawFillsVrmlTextAndOutline) {
  Define(2, kChuck, kJaw);
  EXPECT_TRUE(JawOf(true));
  EXPECT_GOLDEN(Text(Section(8, 1)), "simulation/jaw.wrl");
  EXPECT_GOLDEN(Text(Section(8, 2)), "simulation/jaw.d2t");
  EXPECT_THAT(Section(8, 3), ElementsAre(" 0 0 0.000000\n"));
  EXPECT_GOLDEN(Lines(Section(14, 1)), "simulation/jaw.spans");
}

TEST_F(Rebuild, OfAChuckWithoutJawTakesTheStandIn) {
  Define(1, kChuck);
  EXPECT_TRUE(JawOf());
  EXPECT_GOLDEN(Conversation(), "simulation/rebuild_stand_in.trace");
}

TEST_F(Rebuild, TakesTheStandInWhenTheJawCannotBeRead) {
  Define(1, kChuck, kJaw);
  host.vdms[kVdm].records[1][0] = "2 1 2 1 3";  // the header no longer tells of a jaw
  EXPECT_TRUE(JawOf());
  EXPECT_THAT(host.calls, Contains("OrvoCommand('s102=h4.100000')"));
}

TEST_F(Rebuild, TakesTheStandInUnderOtherDevicesWhateverTheJaw) {
  for (const std::int32_t type : {2, 3, 4}) {
    Define(1, {.type = type, .C = 10, .D = 11}, kJaw);
    EXPECT_TRUE(JawOf());
    EXPECT_THAT(host.calls, Contains("OrvoCommand('s102=h4.100000')")) << type;
    EXPECT_EQ(Extrusion(), "OrvoCommand('sld ext kur k30001 2.050000 i_return')");
  }
}

TEST_F(Rebuild, MakesAJawAsThickAsItTells) {
  const DeviceParams values = {.A = 50, .B = 40, .C = 30, .D = 20, .E = 15, .F = 10, .G = 9, .H = 8};
  for (const auto& [type, thickness] : std::map<std::int32_t, const char*>{
           {5, "8"}, {6, "8"}, {7, "10"}, {8, "10"}, {9, "20"}, {10, "15"}, {11, "8"}, {12, "8"}}) {
    DeviceParams jaw = values;
    jaw.type = type;
    Define(1, kChuck, jaw);
    EXPECT_TRUE(JawOf());
    EXPECT_EQ(Extrusion(),
              std::string("OrvoCommand('sld ext kur k30001 ") + thickness + ".000000 i_return')");
  }
}

TEST_F(Rebuild, MakesAnythingElseInThePlaceOfAJawAsThickAsAStandIn) {
  Define(1, kChuck, kCenter);
  EXPECT_TRUE(JawOf());
  EXPECT_EQ(Extrusion(), "OrvoCommand('sld ext kur k30001 2.050000 i_return')");
}

TEST_F(Rebuild, LeavesTheOldDataWhenTheJawIsOfATypeThatNobodyKnows) {
  Define(1, kChuck, {.type = 114});
  EXPECT_TRUE(JawOf());
  EXPECT_THAT(host.TakeCalls("OrvoCommand"),
              ElementsAre("OrvoCommand('win 0')", "OrvoCommand('s100=h 0')", "OrvoCommand('s101=v 0')",
                          "OrvoCommand('del s100>101')", "OrvoCommand('win 1')"));
  EXPECT_THAT(Section(6, 1), IsEmpty());
}

TEST_F(Rebuild, RefusesAJawKeptInAVdm) {
  Define(1, kChuck, {.type = 104, .B = 3});
  EXPECT_FALSE(JawOf());
  ExpectNothingSent();
}

TEST_F(Rebuild, RefusesDevicesThatHaveNoJawMadeHere) {
  for (const std::int32_t type : {0, 5, 13, 14, 105, 106, 107, 115}) {
    Define(1, {.type = type}, kJaw);
    EXPECT_FALSE(JawOf()) << type;
    ExpectNothingSent();
  }
}

TEST_F(Rebuild, TakesTheJawOfAChuckKeptInAVdm) {
  Define(1, {.type = 103, .B = 5}, kJaw);
  EXPECT_TRUE(JawOf());
  EXPECT_EQ(Extrusion(), "OrvoCommand('sld ext kur k30001 12.500000 i_return')");
}

TEST_F(Rebuild, OfAChuckKeptInAVdmWithoutJawLeavesAllAsItIs) {
  Define(1, {.type = 103, .B = 5});
  EXPECT_TRUE(JawOf());
  ExpectNothingSent();
}

TEST_F(Rebuild, FailsWhenTheDeviceCannotBeRead) {
  host.vdms[kVdm].records[1][0] = "2 1 1 1";
  EXPECT_FALSE(JawOf());
  host.vdms[kVdm].records.resize(1);
  EXPECT_FALSE(JawOf());
}

TEST_F(Rebuild, DeletesNoBodyThatWasNotMade) {
  for (const std::int32_t body : {0, -1}) {
    host.integers["i_return"] = body;
    Define(1, kChuck, kJaw);
    EXPECT_TRUE(JawOf());
    EXPECT_THAT(host.TakeCalls("OrvoPsDeleteBody"), IsEmpty());
  }
}

TEST_F(Rebuild, UsesTheBodyNumberThatItReadsAlsoWhenTheReadFails) {
  host.integers.erase("i_return");
  Define(1, kChuck, kJaw);
  EXPECT_TRUE(JawOf());
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("OrvoApi::MacroExport::GetGlobalIntVar Failed|i_return|0"));
  EXPECT_THAT(host.calls, Contains("OrvoCommand('sld tra 1 0 0 0 0 0 0 -6.250000')"));
}

TEST_F(Rebuild, CutsALineThatDoesNotFitItsPlace) {
  host.environment["TMP"] = std::string(2000, 'x');
  Define(1, kChuck, kJaw);
  EXPECT_TRUE(JawOf());
  for (const std::string& call : host.TakeCalls("OrvoCommand('dll")) {
    EXPECT_EQ(call.size(), std::string("OrvoCommand('')").size() + 1023);
  }
}

TEST_F(Rebuild, OfASpunDeviceIsThisConversation) {
  BuildSpunDevice(0, 0, true, kChuck);
  EXPECT_GOLDEN(Conversation(), "simulation/spin_chuck.trace");
  EXPECT_GOLDEN(Lines(Section(11, 1)), "simulation/chuck.spans");
  EXPECT_THAT(Section(5, 2), ElementsAre(" 0 0 50.000000\n"));
}

TEST_F(Rebuild, OfASpunDeviceOfTheSubSpindle) {
  BuildSpunDevice(0, 1, true, kCollet);
  EXPECT_THAT(Section(7, 1), SizeIs(kVrmlLines));
  EXPECT_THAT(Section(7, 2), ElementsAre(" 0 0 60.000000\n"));
  EXPECT_THAT(Section(13, 1), SizeIs(5));
}

TEST_F(Rebuild, PlacesACenterByItsLength) {
  BuildSpunDevice(0, 1, true, kCenter);
  EXPECT_THAT(Section(9, 2), ElementsAre(" 0 0 120.000000\n"));
  EXPECT_THAT(Section(15, 1), SizeIs(5));
}

TEST_F(Rebuild, PutsACenterInTheSubSpindlesPlaceWhereThereIsNone) {
  BuildSpunDevice(0, 1, false, kCenter);
  EXPECT_THAT(Section(7, 2), ElementsAre(" 0 0 120.000000\n"));
  EXPECT_THAT(Section(9, 1), IsEmpty());
}

TEST_F(Rebuild, GoesOnWhenTheHostHasExportedNothing) {
  exports = false;
  BuildSpunDevice(0, 0, true, kChuck);
  EXPECT_THAT(Section(5, 1), IsEmpty());
  EXPECT_THAT(Section(5, 2), SizeIs(1));
}

TEST_F(Rebuild, WrappersTellWhetherTheGeneratorDidIt) {
  Define(1, kChuck, kJaw);
  EXPECT_EQ(RebuildSimulation(0, 0), 0);
  EXPECT_EQ(RebuildSimulation(0, 1), -1) << "no device";
  EXPECT_EQ(StoreDeviceVrmlFor(0, 0, true, 1, File().string(), 1), 0);
  EXPECT_EQ(StoreDeviceVrmlFor(0, 0, true, 103, File().string(), 1), -1);
  EXPECT_EQ(StoreGeometryFor(0, 0, 1), 0);
  EXPECT_EQ(StoreGeometryFor(0, 0, 0), -1);
  EXPECT_EQ(host.vdms[kVdm].handle, 0U) << "closed after each";
}

TEST_F(Rebuild, WrappersAreSilentAboutADefinitionThatIsNotThere) {
  host.vdms.clear();
  EXPECT_EQ(RebuildSimulation(0, 0), -1);
  EXPECT_EQ(StoreDeviceVrmlFor(0, 0, true, 1, "a", 1), -1);
  EXPECT_EQ(StoreGeometryFor(0, 0, 1), -1);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(Rebuild, WrappersFailOnADefinitionThatIsOpenElsewhere) {
  host.vdms[kVdm].openElsewhere = true;
  EXPECT_EQ(RebuildSimulation(0, 0), -1);
  EXPECT_THAT(host.TakeBoxes(), SizeIs(1));
}

TEST_F(Rebuild, WrappersTakeTheVdmOfTheSpur) {
  host.integers["i_billet_vdm_spispur"] = 1500;
  host.vdms[1501] = host.vdms[kVdm];
  EXPECT_EQ(StoreGeometryFor(2, 1, 3), 0);
  EXPECT_NE(host.vdms[1501].records[13], host.vdms[kVdm].records[13]);
}

TEST_F(Rebuild, OfOldDefinitionsComesWithTheirUpgrade) {
  Define(1, kChuck, kJaw);
  Define(2, kCollet);
  host.vdms[kVdm].records[0] = {"1 1 1 1", "Billet definition"};
  BilletVdm(kVdm).ReOrg(RebuildJawSimulation);
  EXPECT_THAT(Section(6, 1), SizeIs(kVrmlLines));
  EXPECT_THAT(Section(8, 1), SizeIs(kVrmlLines));
  EXPECT_THAT(Section(12, 1), SizeIs(5));
  EXPECT_THAT(Section(14, 1), SizeIs(5));
  EXPECT_THAT(host.boxes, IsEmpty());
}

/// A spindle with chuck and jaw, and a host to spin and extrude them.
struct World : SimulationTest {
  World() {
    Define(1, kChuck, kJaw);
    host.kurves[30001] = host.kurves[30000] = {{0, 0}, {1, 0}};
  }
  void TestBody() override {}

  using SimulationTest::host;
  using SimulationTest::kVdm;
};

TEST_F(Rebuild, ClosesAllThatItOpenedWhicheverCallGoesWrong) {
  for (const Failure failure : {Failure::kRefused, Failure::kMissing}) {
    WithEveryCallFailing(
        failure, [] { return std::make_unique<World>(); },
        [](World&) {
          RebuildSimulation(0, 0);
          BuildSpunDevice(0, 0, true, kChuck);
        },
        [](World& world, const std::string& name) {
          // A store that is told that its VDM is not open has nothing to close.
          static const std::set<std::string> kClosing = {"OrvoMacroVdmClose", "OrvoMacroVdmCheckOpen",
                                                         "OrvoVdmClose"};
          if (kClosing.contains(name)) return;
          EXPECT_EQ(world.host.vdms[World::kVdm].handle, 0U) << name;
          EXPECT_THAT(world.host.kurveReadings, IsEmpty()) << name;
        });
  }
}

TEST_F(Rebuild, LeavesEverythingClosedWhicheverCallThrows) {
  Define(1, kChuck, kJaw);
  for (int nth = 1;; ++nth) {
    int calls = 0;
    bool isClosingThrown = false;
    host.onCall = [&](const std::string& name) {
      if (++calls != nth) return;
      isClosingThrown = name == "OrvoVdmClose";
      throw std::runtime_error("the host gives up");
    };
    bool isThrown = false;
    try {
      RebuildSimulation(0, 0);
    } catch (const std::runtime_error&) {
      isThrown = true;
    }
    if (!isThrown) break;
    // When it was the closing call itself that failed, nobody can close any more.
    if (host.calls.back().starts_with("OrvoMacroVdmClose")) host.vdms[kVdm].handle = 0;
    if (isClosingThrown) host.kurveReadings.clear();
    EXPECT_THAT(host.kurveReadings, IsEmpty()) << "call " << nth;
    EXPECT_EQ(host.vdms[kVdm].handle, 0U) << "call " << nth << ": " << host.calls.back();
  }
}

}  // namespace
}  // namespace vanzet::test

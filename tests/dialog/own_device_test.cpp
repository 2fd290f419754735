#include "dialog/clamp_elem_fixture.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class OwnDevice : public ClampElem {
 protected:
  /// A prepared device's file with these facts.
  void OwnFile(const std::string& path, const std::string& facts) {
    world.files[path] = {{"2 1 0"}, {"2 1 4 1 2 1 0", "Label", "#VRML V2.0 utf8\n", "}\n", facts}};
  }

  static constexpr const char* kInvalid =
      "box 0 Invalid 3D-Geometry for clampdevice!Clampdevice can't be used.";
  static constexpr const char* kNoChuck = "box 0 Wrong chuck device! Only type Chuck is allowed.";
};

TEST_F(OwnDevice, IsShownByItsPath) {
  Item(1, 2) = "C:\\shop\\chuck.vdm";
  Item(1, 3) = "103 0 12";
  const Ran ran = Run("select 3\nstate\n");
  EXPECT_EQ(ran.TextOf(control::kPath), "C:\\shop\\chuck.vdm");
  EXPECT_EQ(ran.Control(control::kDeviceList)["selected"], -1);
  EXPECT_EQ(ran.TextOf(control::kEditB), "12");
  EXPECT_EQ(ran.Control(control::kEditB)["enabled"], false);
  EXPECT_EQ(ran.Control(control::kDevicePicture)["bitmap"], 2055);
}

TEST_F(OwnDevice, BrowsingStoresNothing) {
  HoldsAChuckWithAJaw();
  Item(1, 2) = "Chuck 1";
  const Ran ran = Run("select 3\nfile \"C:\\\\own.vdm\"\npress 2000\nstate\n");
  EXPECT_EQ(ran.TextOf(control::kPath), "C:\\own.vdm");
  EXPECT_EQ(ran.Control(control::kDeviceList)["selected"], -1);
  EXPECT_EQ(ran.Control(control::kDevicePicture)["bitmap"], 2055);
  EXPECT_EQ(ran.TextOf(control::kEditA), "0");
  EXPECT_EQ(ran.Control(control::kEditA)["enabled"], false);
  EXPECT_EQ(Item(1, 3), "1 80 90 20");
  EXPECT_THAT(ran.transcript,
              Contains(R"({"event":"file-dialog","kind":"open","filter":"","default_extension":"vdm",)"
                       R"("start_folder":"","suggested":"*.vdm","result":"C:\\own.vdm"})"));
}

TEST_F(OwnDevice, ACancelledBrowseChangesNothing) {
  HoldsAChuckWithAJaw();
  const Ran ran = Run("select 3\nset 2021 typed\npress 2000\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "open -", "closed end-of-script"));
  EXPECT_EQ(ran.TextOf(control::kPath), "typed");
  EXPECT_EQ(ran.Control(control::kDeviceList)["selected"], 0);
}

TEST_F(OwnDevice, IsStoredWithItsSimulationData) {
  OwnFile("/own.vdm", "3 0 -12.5 7");
  const Ran ran = Run("select 3\nset 2021 /own.vdm\npress 2155\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "closed end-of-script"));
  EXPECT_EQ(Item(1, 2), "/own.vdm");
  EXPECT_EQ(Item(1, 3), "103 0.000000 12.500000");
  EXPECT_EQ(host.ItemsOf(1000, 5)[2], "#VRML V2.0 utf8\n");
  EXPECT_THAT(ran.Bold(), ElementsAre(3));
  EXPECT_EQ(ran.TextOf(control::kEditB), "12.5");
  EXPECT_EQ(host.vdms[1900].handle, 0U) << "the collector is closed";
}

TEST_F(OwnDevice, OfEachKindIsStoredByItsType) {
  world.SetMachine({.sub = true, .tail = true});
  OwnFile("/clamp.vdm", "3 0 5");
  OwnFile("/jaw.vdm", "3 1 -6 7");
  OwnFile("/center.vdm", "3 3 -8 9");
  const auto stored = [&](int node, const char* path) {
    Run("select " + std::to_string(node) + "\nset 2021 " + path + "\npress 2155\n");
  };
  stored(11, "/clamp.vdm");
  EXPECT_EQ(Item(2, 3), "105 0.000000 5.000000");
  EXPECT_EQ(Item(2, 4), "0 3");
  stored(12, "/clamp.vdm");
  EXPECT_EQ(Item(2, 3), "106 0.000000 5.000000");
  EXPECT_EQ(Item(2, 4), "1 3");
  stored(13, "/clamp.vdm");
  EXPECT_EQ(Item(2, 3), "107 0.000000 5.000000");
  stored(10, "/jaw.vdm");
  EXPECT_EQ(Item(2, 6), "104 0.000000 6.000000");
  stored(15, "/center.vdm");
  EXPECT_EQ(Item(10, 3), "115 9.000000 8.000000");
  EXPECT_EQ(host.ItemsOf(1000, 9)[2], "#VRML V2.0 utf8\n");
}

TEST_F(OwnDevice, OfAnotherClassIsRefused) {
  world.SetMachine({.tail = true});
  const auto boxFor = [&](int node, const char* facts) {
    OwnFile("/own.vdm", facts);
    return Run("select " + std::to_string(node) + "\nset 2021 /own.vdm\npress 2155\n").events.at(1);
  };
  for (const int node : {3, 5, 6, 7}) {
    for (const char* facts : {"3 1 5", "3 3 5", "2 0 5", "3 2", ""}) {
      EXPECT_EQ(boxFor(node, facts), "box 0 Wrong chuck device! Only type Chuck is allowed.")
          << node << facts;
    }
  }
  for (const char* facts : {"3 0 5", "3 3 5", "1 1 5"}) {
    EXPECT_EQ(boxFor(4, facts), "box 0 Wrong jaw device! Only type Jaw is allowed.");
  }
  for (const char* facts : {"3 0 5", "3 1 5", "1 3 5"}) {
    EXPECT_EQ(boxFor(15, facts), "box 0 Wrong clamp device! Only type Center is allowed.");
  }
  EXPECT_THAT(world.Stored(), IsEmpty());
  EXPECT_EQ(host.vdms[1900].handle, 0U);
}

TEST_F(OwnDevice, RefusesAPathThatIsNoVdmAndLosesTheCollector) {
  world.NewDefinition(1900);
  EXPECT_THAT(Run("select 3\nset 2021 /own.txt\npress 2155\n").events,
              ElementsAre("focus 2158", "box 0 Invalid VDM-Name!",
                          "box 0 Invalid 3D-Geometry for clampdevice!Clampdevice can't be used.",
                          "closed end-of-script"));
  EXPECT_FALSE(host.vdms.contains(1900));
  EXPECT_THAT(world.Stored(), IsEmpty());
}

TEST_F(OwnDevice, RefusesAFileThatDoesNotLoadAndACollectorThatDoesNotOpen) {
  EXPECT_THAT(Run("select 3\nset 2021 /none.vdm\npress 2155\n").events,
              ElementsAre("focus 2158", kInvalid, "closed end-of-script"));
  OwnFile("/own.vdm", "3 0 5");
  const auto onCommand = host.onCommand;
  host.onCommand = [&](const std::string& line) {
    onCommand(line);
    if (line.starts_with("vdm load")) host.vdms[1900].openElsewhere = true;
  };
  EXPECT_THAT(Run("select 3\nset 2021 /own.vdm\npress 2155\n").events, Contains(kInvalid));
  EXPECT_THAT(world.Stored(), IsEmpty());
}

TEST_F(OwnDevice, GoesOnWithTheCollectorsNumberThatCannotBeRead) {
  host.integers.erase("i_tool_collect_vdm");
  OwnFile("/own.vdm", "3 0 5");
  const Ran ran = Run("select 3\nset 2021 /own.vdm\npress 2155\n");
  EXPECT_THAT(ran.events,
              Contains("box 0 [OrvoApi::MacroExport::GetGlobalIntVar Failed] i_tool_collect_vdm"));
  EXPECT_EQ(Item(1, 3), "103 0.000000 5.000000");
}

TEST_F(OwnDevice, ACentreFromAVdmCanBeStoredAgainWithOtherValues) {
  world.SetMachine({.sub = true, .tail = true});
  Item(10, 2) = "/center.vdm";
  Item(10, 3) = "115 9 8";
  Run("select 15\nset 2031 10\npress 2154\n");
  EXPECT_EQ(Item(10, 2), "/center.vdm");
  EXPECT_EQ(Item(10, 3), "115 10.000000 8.000000");
}

TEST_F(OwnDevice, IsNotEnteredInTheCatalogue) {
  Item(1, 2) = "/own.vdm";
  Item(1, 3) = "103 7 8";
  EXPECT_EQ(Run("select 3\nstate\n").Control(control::kDeviceList)["items"], json({"Chuck 1", "Chuck 2"}));
}

TEST_F(OwnDevice, BrowsingShowsTheKindThatThePageIsOn) {
  world.SetMachine({.tail = true});
  const std::map<int, int> pictures = {{3, 2055}, {4, 2061}, {5, 2057}, {6, 2070}, {7, 2059}, {15, 2052}};
  for (const auto& [node, picture] : pictures) {
    const Ran ran = Run("select " + std::to_string(node) + "\nfile /own.vdm\npress 2000\nstate\n");
    EXPECT_EQ(ran.Control(control::kDevicePicture)["bitmap"], picture) << node;
    EXPECT_EQ(ran.Control(control::kEditA)["enabled"], node == 15) << node;
  }
}

TEST_F(OwnDevice, ThatWasOnlyBrowsedForIsNoChoiceFromTheList) {
  EXPECT_THAT(
      Run("select 3\nchoose 2124 0\nfile /own.vdm\npress 2000\npress 2154\n").events,
      ElementsAre("focus 2158", "open /own.vdm", "box 0 Select clampdevice!", "closed end-of-script"));
  EXPECT_THAT(world.Stored(), IsEmpty());
}

TEST_F(OwnDevice, IsShownInPlaceOfTheChoiceFromTheList) {
  OwnFile("/own.vdm", "3 0 5");
  const Ran ran = Run("select 3\nchoose 2124 0\nset 2021 /own.vdm\npress 2155\nstate\n");
  EXPECT_EQ(ran.Control(control::kDeviceList)["selected"], -1);
  EXPECT_EQ(ran.TextOf(control::kPath), "/own.vdm");
  EXPECT_EQ(ran.Control(control::kDevicePicture)["bitmap"], 2055);
  EXPECT_EQ(ran.TextOf(control::kEditA), "0");
  EXPECT_EQ(ran.Control(control::kEditA)["enabled"], false);
}

TEST_F(OwnDevice, AChuckLeavesJawAndOptionsAlone) {
  HoldsAChuckWithAJaw();
  OwnFile("/own.vdm", "3 0 5");
  Run("select 3\nset 2021 /own.vdm\npress 2155\n");
  EXPECT_EQ(Item(1, 3), "103 0.000000 5.000000");
  EXPECT_EQ(Item(1, 4), "1 4");
  EXPECT_EQ(Item(1, 6), "5 1 2 3");
}

TEST_F(OwnDevice, AFaceDriverRemovesTheJawAndSetsTheOptions) {
  HoldsAChuckWithAJaw();
  OwnFile("/own.vdm", "3 0 5");
  Run("select 7\nset 2021 /own.vdm\npress 2155\n");
  EXPECT_EQ(Item(1, 3), "107 0.000000 5.000000");
  EXPECT_EQ(Item(1, 4), "0 3");
  EXPECT_EQ(Item(1, 5), "");
  EXPECT_EQ(Item(1, 6), empty);
}

TEST_F(OwnDevice, AJawIsStoredWithItsOptions) {
  OwnFile("/jaw.vdm", "3 1 -6 7");
  const Ran ran = Run("select 4\nset 2141 1\nset 2181 6\nset 2021 /jaw.vdm\npress 2155\nstate\n");
  EXPECT_EQ(Item(1, 5), "/jaw.vdm");
  EXPECT_EQ(Item(1, 6), "104 0.000000 6.000000");
  EXPECT_EQ(Item(1, 4), "1 6");
  EXPECT_EQ(host.ItemsOf(1000, 6)[2], "#VRML V2.0 utf8\n");
  EXPECT_THAT(ran.Bold(), ElementsAre(4));
}

TEST_F(OwnDevice, OfAFileWithoutFactsIsRefusedAfterTheStoresBoxes) {
  world.files["/no_section.vdm"] = {{"2 1 0"}, {"2 1 1 1", "Label"}};
  EXPECT_THAT(Run("select 3\nset 2021 /no_section.vdm\npress 2155\n").events,
              ElementsAre("focus 2158",
                          "box 0 [OrvoApi::MillTurnVdm] 1900: Operation 1 section 2 (0 based) out of range "
                          "(1 sections)",
                          kNoChuck, "closed end-of-script"));
  world.files["/no_operation.vdm"] = {{"2 1 0"}};
  EXPECT_THAT(
      Run("select 3\nset 2021 /no_operation.vdm\npress 2155\n").events,
      ElementsAre("focus 2158",
                  "box 0 [OrvoApi::MillTurnVdm] 1900: Operation 1 (0 based) out of range (1 oprations)",
                  kNoChuck, "closed end-of-script"));
  EXPECT_THAT(world.Stored(), IsEmpty());
  EXPECT_EQ(host.vdms[1900].handle, 0U);
}

TEST_F(OwnDevice, FactsThatAreMissingAreZero) {
  world.SetMachine({.sub = true, .tail = true});
  OwnFile("/chuck.vdm", "3");
  Run("select 3\nset 2021 /chuck.vdm\npress 2155\n");
  EXPECT_EQ(Item(1, 3), "103 0.000000 0.000000");
  OwnFile("/center.vdm", "3 3 8");
  Run("select 15\nset 2021 /center.vdm\npress 2155\n");
  EXPECT_EQ(Item(10, 3), "115 0.000000 8.000000");
}

TEST_F(OwnDevice, IsReadBeforeAnythingIsWritten) {
  OwnFile("/own.vdm", "3 0 5");
  std::vector<std::string> calls = CallsOf("select 3\nset 2021 /own.vdm\npress 2155\n");
  std::erase(calls, "OrvoReadGlobalI('i_billet_vdm')");
  EXPECT_THAT(calls,
              ElementsAre("OrvoReadGlobalI('i_tool_collect_vdm')",
                          "OrvoCommand('vdm load '/own.vdm' i_ret 1900')", "OrvoReadGlobalI('i_ret')"));
}

}  // namespace
}  // namespace vanzet::test

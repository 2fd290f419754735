#include "dialog/clamp_elem_fixture.h"
#include "support/golden.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

TEST_F(ClampElem, ShowsTheChuckOfTheDefinition) {
  Item(1, 2) = "Chuck 2";
  Item(1, 3) = "1 10.5 20 30";
  EXPECT_GOLDEN(Readable(Run("select 3\nstate\n")), "dialog/clamp_elem_chuck.transcript");
}

TEST_F(ClampElem, ShowsTheJawWithItsOptions) {
  HoldsAChuckWithAJaw();
  EXPECT_GOLDEN(Readable(Run("select 4\nstate\n")), "dialog/clamp_elem_jaw.transcript");
}

TEST_F(ClampElem, ListsTheDevicesOfItsKind) {
  world.SetMachine({.sub = true, .tail = true});
  const auto listed = [&](int node) {
    return Run("select " + std::to_string(node) + "\nstate\n").Control(control::kDeviceList)["items"];
  };
  EXPECT_EQ(listed(3), json({"Chuck 1", "Chuck 2"}));
  EXPECT_EQ(listed(9), json({"Chuck 1", "Chuck 2"}));
  EXPECT_EQ(listed(4), json({"Jaw A", "Jaw B", "Jaw C"})) << "type by type";
  EXPECT_EQ(listed(5), json({"Collet 1"}));
  EXPECT_EQ(listed(6), json({"Mandrel 1"}));
  EXPECT_EQ(listed(7), json({"Driver 1"}));
  EXPECT_EQ(listed(15), json({"Center 1", "Center 2"}));
}

TEST_F(ClampElem, ShowsTheJawsControlsForJawsOnly) {
  const auto isShown = [&](const char* script) {
    const Ran ran = Run(std::string(script) + "state\n");
    for (const int control : {control::kJawsEdit, control::kJawSpin, control::kInnerChucking}) {
      EXPECT_EQ(ran.Control(control)["visible"], ran.Control(control::kJawsLabel)["visible"]);
    }
    return ran.Control(control::kJawsLabel)["visible"] == true;
  };
  EXPECT_TRUE(isShown("select 4\n"));
  EXPECT_FALSE(isShown("select 3\n"));
  EXPECT_FALSE(isShown("select 4\nselect 5\n"));
  EXPECT_TRUE(isShown("select 4\nselect 5\nselect 4\n"));
}

TEST_F(ClampElem, ComesUpEmptyForADeviceOfAnotherKind) {
  HoldsAChuckWithAJaw();
  const Ran ran = Run("select 5\nstate\n");
  EXPECT_EQ(ran.Control(control::kDeviceList)["selected"], -1);
  EXPECT_EQ(ran.TextOf(control::kEditA), "0");
  EXPECT_EQ(ran.TextOf(control::kPath), "");
  EXPECT_EQ(ran.Control(control::kDevicePicture)["bitmap"], 0);
}

TEST_F(ClampElem, EachTypeSuitsOneKind) {
  world.SetMachine({.sub = true, .tail = true});
  const std::map<int, std::vector<int>> suiting = {
      {3, {1, 103, 109}}, {5, {2, 105, 111}}, {6, {3, 106, 112}}, {7, {4, 107, 113}}};
  for (int type = 1; type <= 116; ++type) {
    Item(1, 3) = std::to_string(type) + " 1 7";
    for (const auto& [node, types] : suiting) {
      const Ran ran = Run("select " + std::to_string(node) + "\nstate\n");
      EXPECT_EQ(ran.TextOf(control::kEditB), testing::Value(types, Contains(type)) ? "7" : "0")
          << node << " " << type;
    }
    if (type == 16) type = 100;
  }
}

TEST_F(ClampElem, JawsAndCentresSuitTheirsAlone) {
  world.SetMachine({.sub = true, .tail = true});
  const std::vector<int> jaws = {5, 6, 7, 8, 9, 10, 11, 12, 104, 110};
  const std::vector<int> centres = {13, 14, 115};
  for (int type = 1; type <= 116; ++type) {
    Item(1, 6) = Item(10, 3) = std::to_string(type) + " 1 7";
    const Ran ran = Run("select 4\nstate\nselect 15\nstate\n");
    EXPECT_EQ(ran.states[0]["controls"]["2033"]["text"], testing::Value(jaws, Contains(type)) ? "7" : "0")
        << type;
    EXPECT_EQ(ran.states[1]["controls"]["2033"]["text"], testing::Value(centres, Contains(type)) ? "7" : "0")
        << type;
    if (type == 16) type = 100;
  }
}

TEST_F(ClampElem, SelectsTheFirstEntryThatBeginsWithTheNameInAnyCase) {
  const auto selected = [&](const char* name) {
    Item(1, 2) = name;
    Item(1, 3) = "1 1 2 3";
    return Run("select 3\nstate\n").TextOf(control::kDeviceList);
  };
  EXPECT_EQ(selected("Chuck 2"), "Chuck 2");
  EXPECT_EQ(selected("chuck 2"), "Chuck 2") << "though the definition's own stands behind it";
  EXPECT_EQ(selected("Ch"), "Chuck 1");
  EXPECT_EQ(selected(""), "Chuck 1") << "every text begins with the empty text";
}

TEST_F(ClampElem, ADeviceThatTheShopDoesNotKnowCanBeChosen) {
  Item(1, 2) = "From afar";
  Item(1, 3) = "1 7 8 9";
  const Ran ran = Run("select 3\nchoose 2124 0\nchoose 2124 \"From afar\"\nstate\n");
  EXPECT_EQ(ran.Control(control::kDeviceList)["items"], json({"Chuck 1", "Chuck 2", "From afar"}));
  EXPECT_EQ(ran.TextOf(control::kEditA), "7");
  EXPECT_EQ(ReadBytes(world.catalogue), kCatalogue);
}

TEST_F(ClampElem, ADeviceOfTheCatalogueCarriesTheDefinitionsValuesUntilTheDialogIsClosed) {
  Item(1, 2) = "Chuck 2";
  Item(1, 3) = "1 7 8 9";
  const Ran ran =
      Run("select 3\nchoose 2124 0\nchoose 2124 1\nstate\nselect 36\nchoose 2123 \"Chuck 2\"\nstate\n");
  EXPECT_EQ(ran.states[0]["controls"]["2031"]["text"], "7");
  EXPECT_EQ(ran.TextOf(control::kEditA), "7");
  EXPECT_EQ(ReadBytes(world.catalogue), kCatalogue);
  Item(1, 3) = "0";
  EXPECT_EQ(Run("select 3\nchoose 2124 1\nstate\n").TextOf(control::kEditA), "10");
}

TEST_F(ClampElem, AChoiceTakesTheValuesOfTheCatalogue) {
  const Ran ran = Run("select 5\nchoose 2124 0\nstate\nchoose 2124 -1\nstate\n");
  EXPECT_EQ(ran.states[0]["controls"]["2038"]["text"], "6");
  EXPECT_EQ(ran.states[0]["controls"]["2038"]["enabled"], true);
  EXPECT_EQ(ran.states[0]["controls"]["2146"]["bitmap"], 2058);
  EXPECT_EQ(ran.TextOf(control::kEditF), "0");
  EXPECT_EQ(ran.Control(control::kEditF)["enabled"], false);
  EXPECT_EQ(ran.Control(control::kDevicePicture)["bitmap"], 0);
  EXPECT_THAT(world.Stored(), IsEmpty());
}

TEST_F(ClampElem, ShowsAndStoresEachValueAtItsLetter) {
  const Ran ran =
      Run("select 7\nchoose 2124 0\nstate\nset 2031 11\nset 2033 12\nset 2034 13\nset 2036 14\nset 2037 15\n"
          "set 2038 16\nset 2041 17\nset 2042 18\nset 2043 19\npress 2154\n");
  int value = 0;
  for (const int edit : {control::kEditA, control::kEditB, control::kEditC, control::kEditD, control::kEditE,
                         control::kEditF, control::kEditG, control::kEditH, control::kEditI}) {
    EXPECT_EQ(ran.TextOf(edit), std::to_string(++value));
  }
  EXPECT_EQ(ran.TextOf(control::kEditJ), "0") << "no device has a J";
  EXPECT_EQ(Item(1, 3),
            "4 11.000000 12.000000 13.000000 14.000000 15.000000 16.000000 17.000000 18.000000 19.000000 "
            "0.000000");
}

TEST_F(ClampElem, EnablesTheValuesOfEachType) {
  const std::map<char, int> edits = {{'A', control::kEditA}, {'B', control::kEditB}, {'C', control::kEditC},
                                     {'D', control::kEditD}, {'E', control::kEditE}, {'F', control::kEditF},
                                     {'G', control::kEditG}, {'H', control::kEditH}, {'I', control::kEditI},
                                     {'J', control::kEditJ}};
  const std::map<char, int> labels = {
      {'A', control::kLabelA}, {'B', control::kLabelB}, {'C', control::kLabelC}, {'D', control::kLabelD},
      {'E', control::kLabelE}, {'F', control::kLabelF}, {'G', control::kLabelG}, {'H', control::kLabelH},
      {'I', control::kLabelI}, {'J', control::kLabelJ}};
  const std::map<int, std::string> open = {
      {1, "ABC"},       {2, "ABCDEF"},    {3, "ABCDEFGH"}, {4, "ABCDEFGHI"}, {5, "ABCDEFGH"},
      {6, "ABCDEFGH"},  {7, "ABCDEF"},    {8, "ABCDEF"},   {9, "ABCD"},      {10, "ABCDE"},
      {11, "ABCDEFGH"}, {12, "ABCDEFGH"}, {13, "ABCDEFG"}, {14, "ABCDEFGHI"}};
  world.SetMachine({.tail = true});
  for (const auto& [type, letters] : open) {
    WriteBytes(world.catalogue, "Device\n" + std::to_string(type) + " 1 1 1 1 1 1 1 1 1\n");
    const int node = type >= 13 ? 15 : type >= 5 ? 4 : type == 1 ? 3 : type + 3;
    const Ran ran = Run("select " + std::to_string(node) + "\nchoose 2124 0\nstate\n");
    for (const auto& [letter, edit] : edits) {
      const bool isOpen = letters.find(letter) != std::string::npos;
      EXPECT_EQ(ran.Control(edit)["enabled"], isOpen) << type << letter;
      EXPECT_EQ(ran.Control(labels.at(letter))["enabled"], isOpen) << type << letter;
      EXPECT_EQ(ran.TextOf(labels.at(letter)), std::string(1, letter));
    }
  }
}

TEST_F(ClampElem, StoresAChuckAndLeavesJawAndOptionsAlone) {
  HoldsAChuckWithAJaw();
  const Ran ran = Run("select 3\nchoose 2124 1\nset 2031 11,5\npress 2154\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "closed end-of-script"));
  EXPECT_EQ(Item(1, 2), "Chuck 2");
  EXPECT_EQ(Item(1, 3),
            "1 11.500000 20.000000 30.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000");
  EXPECT_EQ(Item(1, 4), "1 4");
  EXPECT_EQ(Item(1, 6), "5 1 2 3");
  EXPECT_THAT(ran.Bold(), ElementsAre(3, 4));
}

TEST_F(ClampElem, AColletRemovesTheJawAndSetsTheOptions) {
  HoldsAChuckWithAJaw();
  const Ran ran = Run("select 5\nchoose 2124 0\npress 2154\nstate\n");
  EXPECT_EQ(Item(1, 2), "Collet 1");
  EXPECT_EQ(Item(1, 4), "0 3");
  EXPECT_EQ(Item(1, 5), "");
  EXPECT_EQ(Item(1, 6), empty);
  EXPECT_THAT(ran.Bold(), ElementsAre(5));
}

TEST_F(ClampElem, AMandrelClampsFromInsideAFaceDriverFromOutside) {
  HoldsAChuckWithAJaw();
  Run("select 6\nchoose 2124 0\npress 2154\n");
  EXPECT_EQ(Item(1, 4), "1 3");
  Run("select 7\nchoose 2124 0\npress 2154\n");
  EXPECT_EQ(Item(1, 4), "0 3");
}

TEST_F(ClampElem, StoresAJawWithItsOptions) {
  Item(1, 3) = "1 80 90 20";
  Run("select 4\nchoose 2124 2\nset 2181 16\npress 2154\n");
  EXPECT_EQ(Item(1, 5), "Jaw C");
  EXPECT_EQ(Item(1, 4), "0 16");
  Run("select 4\nset 2141 1\nset 2180 5\npress 2154\n");
  EXPECT_EQ(Item(1, 4), "1 5") << "typed into the spin's edit";
  EXPECT_EQ(Item(1, 3), "1 80 90 20");
}

TEST_F(ClampElem, TheSpinFollowsItsEditAsLongAsItHoldsACountOfJaws) {
  Item(1, 4) = "1 7";
  const Ran ran =
      Run("select 4\nset 2180 2\nstate\nset 2180 x\nstate\nset 2180 16\nstate\nset 2181 4\nstate\n");
  EXPECT_EQ(ran.states[0]["controls"]["2181"]["value"], 7);
  EXPECT_EQ(ran.states[1]["controls"]["2181"]["value"], 7);
  EXPECT_EQ(ran.states[2]["controls"]["2181"]["value"], 16);
  EXPECT_EQ(ran.TextOf(control::kJawsEdit), "4");
  Item(1, 4) = "1 99";
  EXPECT_EQ(Run("select 4\nstate\n").Control(control::kJawSpin)["value"], 16);
  Item(1, 4) = "1 -5";
  EXPECT_EQ(Run("select 4\nstate\n").Control(control::kJawSpin)["value"], 3);
}

TEST_F(ClampElem, StoresWhatTheTypeKeepsOnly) {
  // The second field of the file's line is beyond what a jaw of this type has.
  WriteBytes(world.catalogue, "Jaw 5\n9 1 2 3 4 5 6 7 8 9\n");
  Run("select 4\nchoose 2124 0\npress 2154\n");
  EXPECT_EQ(Item(1, 6),
            "9 1.000000 2.000000 3.000000 4.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000");
}

TEST_F(ClampElem, NeedsASelection) {
  EXPECT_THAT(Run("select 3\npress 2154\n").events,
              ElementsAre("focus 2158", "box 0 Select clampdevice!", "closed end-of-script"));
  EXPECT_THAT(Run("select 3\nchoose 2124 0\nset 2124 typed\npress 2154\n").events,
              Contains("box 0 Select clampdevice!"));
  EXPECT_THAT(world.Stored(), IsEmpty());
}

TEST_F(ClampElem, StopsAtWhatIsNoNumberForBothButtons) {
  for (const char* button : {"2154", "2155"}) {
    EXPECT_THAT(Run(std::string("select 3\nchoose 2124 0\nset 2033 x\npress ") + button + "\n").events,
                ElementsAre("focus 2158", "box 0 [Equipment Definition] Please enter a number.", "focus 2033",
                            "closed end-of-script"));
  }
  EXPECT_THAT(world.Stored(), IsEmpty());
}

TEST_F(ClampElem, ACentreBesideASubSpindleLeavesTheSubSpindlesJawAlone) {
  world.SetMachine({.sub = true, .tail = true});
  Item(2, 6) = "5 1 2 3";
  Run("select 15\nchoose 2124 0\npress 2154\n");
  EXPECT_EQ(Item(10, 2), "Center 1");
  EXPECT_EQ(Item(2, 6), "5 1 2 3");
}

TEST_F(ClampElem, WithoutASubSpindleTheCentreTakesItsPlace) {
  world.SetMachine({.tail = true});
  Item(2, 4) = "1 5";
  Item(2, 6) = "5 1 2 3";
  const Ran ran = Run("select 15\nchoose 2124 1\npress 2154\nstate\n");
  EXPECT_EQ(Item(2, 2), "Center 2");
  EXPECT_EQ(Item(2, 4), "1 5") << "a centre has no options";
  EXPECT_EQ(Item(2, 6), "5 1 2 3") << "nor does it take the jaw away";
  EXPECT_THAT(ran.Bold(), ElementsAre(15));
}

TEST_F(ClampElem, LosesEditsThatWereNotSelected) {
  HoldsAChuckWithAJaw();
  EXPECT_EQ(Run("select 3\nset 2031 5\nselect 3\nstate\n").TextOf(control::kEditA), "80");
}

TEST_F(ClampElem, WritesToTheSpurThatIsShown) {
  world.SetMachine({.spurs = 2});
  Run("choose 2020 1\nselect 3\nchoose 2124 0\npress 2154\n");
  EXPECT_THAT(world.Stored(1000), IsEmpty());
  EXPECT_EQ(host.ItemsOf(2000, 1)[2], "Chuck 1");
}

TEST_F(ClampElem, WithoutADefinitionTheWritesSaySo) {
  host.vdms.clear();
  const Ran ran = Run("select 5\nchoose 2124 0\npress 2154\n");
  EXPECT_THAT(ran.events,
              ElementsAre("focus 2158", "box 0 [OrvoApi::MacroVdm] 1000: Open: vdm doesn't exist",
                          "box 0 [OrvoApi::MacroVdm] 1000: Open: vdm doesn't exist",
                          "box 0 [OrvoApi::MacroVdm] 1000: Open: vdm doesn't exist", "closed end-of-script"))
      << "device, jaw, options";
}

TEST_F(ClampElem, AnOddCatalogueFillsTheListAsFarAsItGoes) {
  WriteBytes(world.catalogue, "Chuck 1\n1 80 90 20\nJaw A\n5 1 2\nJaw B\n6 1 2\nLeft over\n");
  const Ran ran = Run("select 3\nstate\nselect 4\nstate\n");
  EXPECT_EQ(ran.states[0]["controls"]["2124"]["items"], json({"Chuck 1"}));
  EXPECT_EQ(ran.states[1]["controls"]["2124"]["items"], json({"Jaw A"}));
  EXPECT_EQ(ran.State()["page"], "CPageClampElem");
  EXPECT_THAT(ran.events, ElementsAre("closed end-of-script")) << "the handler ended there";
}

}  // namespace
}  // namespace vanzet::test

#include "dialog/dialog_fixture.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SpurTest : public DialogTest {};

TEST_F(SpurTest, AChangeRefreshesMarksAndPageAndKeepsTheSelection) {
  world.SetMachine({.sub = true, .spurs = 2});
  host.vdms[2000].records[2][8] = "1 55 100 0 0 0 0";
  const Ran ran =
      Run("select 23\nset 2022 7\nstate\nchoose 2020 1\nstate\nchoose 2020 \"Spindle 1\"\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "closed end-of-script"));
  EXPECT_EQ(ran.states[0]["controls"]["2022"]["text"], "7");
  EXPECT_EQ(ran.states[1]["controls"]["2022"]["text"], "55");
  EXPECT_EQ(ran.states[1]["spur"], 1);
  EXPECT_EQ(ran.states[1]["selected"], 23);
  EXPECT_EQ(ran.states[1]["spindle"], 1);
  EXPECT_EQ(ran.states[2]["controls"]["2022"]["text"], "0");
  EXPECT_THAT(ran.Bold(), IsEmpty());
}

TEST_F(SpurTest, WithoutASelectionItStandsForTheFirst) {
  world.SetMachine({.spurs = 2});
  host.vdms[1000].records[4][2] = "1";
  host.vdms[1000].records[1][8] = "1 80 100";
  const Ran ran = Run("choose 2020 1\nchoose 2020 -1\nstate\n");
  EXPECT_EQ(ran.State()["spur"], -1);
  EXPECT_THAT(ran.Bold(), ElementsAre(19));
}

TEST_F(SpurTest, AChangeMarksWhatTheOtherSpurHolds) {
  world.SetMachine({.spurs = 2});
  host.vdms[1000].records[1][8] = "1 80 100";
  host.vdms[2000].records[1][3] = "2 80 90";
  EXPECT_THAT(Run("state\n").Bold(), ElementsAre(19));
  EXPECT_THAT(Run("choose 2020 1\nstate\n").Bold(), ElementsAre(5));
}

TEST_F(SpurTest, AChangeKeepsThePagesKindOfDevice) {
  world.SetMachine({.spurs = 2});
  host.vdms[2000].records[1][5] = "/jaw.vdm";
  host.vdms[2000].records[1][6] = "104 0 7";
  const Ran ran = Run("select 4\nchoose 2020 1\nstate\n");
  EXPECT_EQ(ran.State()["device_type"], 5);
  EXPECT_EQ(ran.TextOf(control::kPath), "/jaw.vdm");
}

/// What a page stores, and where it shows it again.
struct Stored {
  const char* script;
  std::size_t operation, item;
  const char* text;
  int node;
  int control;
  const char* shown;
};

TEST_F(SpurTest, EachPageWritesAndReadsTheSpurThatIsShown) {
  const Stored kStored[] = {
      {"select 19\nset 2022 80\nset 2023 9\npress 2016\n", 1, 8,
       "1 80.000000 9.000000 0.000000 0.000000 0.000000 0 0.000000", 19, control::kOuterDiameter, "80"},
      {"select 20\nset 2039 F1\npress 2015\n", 1, 9, "F1", 20, control::kFigureOutside, "F1"},
      {"select 21\nset 2046 Part\npress 2015\n", 1, 7, "Part", 21, control::kSolid, "Part"},
      {"select 29\nset 2046 Part\npress 2015\n", 16, 3, "Part", 29, control::kSolid, "Part"},
      {"select 34\nset 2214 4\npress 2015\n", 3, 2, "1 0.000000 0.000000 0.000000 0.000000 4.000000", 34,
       control::kOriginSub, "4"},
      {"select 3\nchoose 2124 0\npress 2154\n", 1, 2, "Chuck 1", 3, control::kDeviceList, "Chuck 1"},
  };
  WriteBytes(world.catalogue, "Chuck 1\n1 80 90 20\n");
  host.bodies.byNumber = {{7, {"Part"}}};
  for (const Stored& stored : kStored) {
    world.SetMachine({.spurs = 2});
    Run(std::string("choose 2020 1\n") + stored.script);
    EXPECT_THAT(world.Stored(1000), IsEmpty()) << stored.script;
    ASSERT_GT(host.ItemsOf(2000, stored.operation).size(), stored.item) << stored.script;
    EXPECT_EQ(host.ItemsOf(2000, stored.operation)[stored.item], stored.text);
    const Ran ran = Run("choose 2020 1\nselect " + std::to_string(stored.node) + "\nstate\n");
    EXPECT_EQ(ran.TextOf(stored.control), stored.shown) << stored.script;
  }
}

TEST_F(SpurTest, TheSteadyRestIsThatOfTheSpurThatIsShown) {
  world.SetMachine({.lun = true, .spurs = 2});
  const Ran ran = Run("choose 2020 1\nselect 16\nset 2019 1\npress 2015\nstate\nchoose 2020 0\nstate\n");
  EXPECT_THAT(world.Stored(1000), IsEmpty());
  EXPECT_EQ(host.ItemsOf(2000, 4)[2], "1");
  EXPECT_EQ(ran.Control(control::kUseBezel)["checked"], false);
}

}  // namespace
}  // namespace vanzet::test

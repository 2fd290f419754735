#include "dialog/dialog_fixture.h"
#include "support/golden.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class BilletFromSolid : public DialogTest {
 protected:
  BilletFromSolid() {
    world.SetMachine({.sub = true});
    host.bodies.byNumber = {{7, {"Part", false, {-0.1, -0.04, 0, 0.0234567, 0.06, 1}}},
                            {8, {"Mesh", true, {}}}};
  }
  const std::string& Stored(std::size_t item) { return host.vdms[1000].records[1][item]; }
};

TEST_F(BilletFromSolid, ShowsTheRecordOfItsSpindle) {
  host.vdms[1000].records[1][7] = "Part";
  host.vdms[1000].records[1][8] = "3 0 120 60 12.5";
  EXPECT_GOLDEN(Readable(Run("select 21\nstate\nselect 25\nstate\n")), "dialog/billet_from_solid.transcript");
}

TEST_F(BilletFromSolid, StoresMarksAndTakesThePictureOfABarAway) {
  const auto calls =
      CallsOf("select 21\nset 2046 Part\nset 2045 120\nset 2035 60\nset 2032 15\npress 2015\n");
  EXPECT_THAT(calls, Contains("OrvoPsGetBodyNumberFromName('Part')"));
  EXPECT_THAT(calls, Contains("OrvoCommand('fig del BilletM yes')"));
  EXPECT_EQ(Stored(7), "Part");
  EXPECT_EQ(Stored(8), "3 0 120.000000 60.000000 15.000000");
  EXPECT_THAT(Run("state\n").Bold(), ElementsAre(21));
}

TEST_F(BilletFromSolid, RefusesABodyThatIsNotThere) {
  EXPECT_THAT(Run("select 21\nset 2046 Gone\npress 2015\n").events,
              ElementsAre("focus 2158", "box 0 Gone: Invalid Solid!", "focus 2046", "closed end-of-script"));
  EXPECT_THAT(Run("select 21\npress 2015\n").events, Contains("box 0 : Invalid Solid!"));
  EXPECT_THAT(world.Stored(), IsEmpty());
}

TEST_F(BilletFromSolid, TakesNameAndExtentsOfThePickedSolid) {
  host.bodies.picks = {7};
  const Ran ran = Run("select 21\nset 2032 5\npress 2018\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "hide", "show", "closed end-of-script"));
  EXPECT_EQ(ran.TextOf(control::kSolid), "Part");
  EXPECT_EQ(ran.TextOf(control::kPartLength), "123.4567") << "not rounded";
  EXPECT_EQ(ran.TextOf(control::kClampDiameter), "100");
  EXPECT_EQ(ran.TextOf(control::kAngle), "5") << "the angle stays";
}

TEST_F(BilletFromSolid, ABodyOfNumberOneIsOne) {
  host.bodies.byNumber = {{1, {"First", false, {0, 0, 0, 0.1, 0.05, 1}}}};
  host.bodies.picks = {1};
  Run("select 21\npress 2018\npress 2015\n");
  EXPECT_EQ(Stored(7), "First");
  EXPECT_EQ(Stored(8), "3 0 100.000000 50.000000 0.000000");
}

TEST_F(BilletFromSolid, AMeshHasNoExtents) {
  host.bodies.picks = {8};
  const Ran ran = Run("select 21\nset 2045 5\nset 2035 5\npress 2018\nstate\n");
  EXPECT_EQ(ran.TextOf(control::kSolid), "Mesh");
  EXPECT_EQ(ran.TextOf(control::kPartLength), "0");
  EXPECT_EQ(ran.TextOf(control::kClampDiameter), "0");
  EXPECT_THAT(host.TakeCalls("OrvoPsGetExtents"), IsEmpty());
}

TEST_F(BilletFromSolid, APickAsksTheHostInThisOrder) {
  host.bodies.picks = {7};
  EXPECT_THAT(CallsOf("select 21\npress 2018\n"),
              ElementsAre("OrvoReadGlobalI('i_billet_vdm')", "OrvoClearSelection()",
                          "OrvoSelectOneObject(0, 18432, 'Select Solid!')", "OrvoClearSelection()",
                          "OrvoGetObjectParasolidEntityNumber(101)", "OrvoPsGetBodyNameFromNumber(7)",
                          "OrvoIsBodyAnSTLObject(7)", "OrvoPsGetExtents(7)"));
}

TEST_F(BilletFromSolid, ABrokenOffPickBlanksThePage) {
  host.vdms[1000].records[1][7] = "Part";
  host.vdms[1000].records[1][8] = "3 0 120 60 12.5";
  const Ran ran = Run("select 21\npress 2018\nstate\n");
  for (const int edit : {control::kPartLength, control::kClampDiameter, control::kAngle})
    EXPECT_EQ(ran.TextOf(edit), "0");
  EXPECT_EQ(ran.TextOf(control::kSolid), "");
  EXPECT_EQ(Stored(8), "3 0 120 60 12.5");
}

TEST_F(BilletFromSolid, PicksLengthAndDiameter) {
  world.positions = {{0, -12, 3}, {0, 1, 4.5}};
  const Ran ran = Run("select 21\npress 2014\npress 2008\nstate\n");
  EXPECT_EQ(ran.TextOf(control::kPartLength), "12");
  EXPECT_EQ(ran.TextOf(control::kClampDiameter), "9");
}

}  // namespace
}  // namespace vanzet::test

#include "dialog/dialog_fixture.h"
#include "host/message_ids.h"
#include "support/golden.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class Datum : public DialogTest {
 protected:
  const std::string& Stored() { return host.vdms[1000].records[3][2]; }
};

TEST_F(Datum, ShowsBothSpindlesOnEveryMachine) {
  host.vdms[1000].records[3][2] = "1 0 1.5 2 3 -4";
  EXPECT_GOLDEN(Readable(Run("select 34\nstate\n")), "dialog/datum.transcript");
}

TEST_F(Datum, ShowsTheStarsThatTheHostHasNoWordsFor) {
  host.translations = {{message::kClampingOutMain, "Ausspannl\xC3\xA4nge"}};
  const Ran ran = Run("select 34\nstate\n");
  EXPECT_EQ(ran.TextOf(control::kClampingOutMainLabel), "Ausspannl\xC3\xA4nge");
  EXPECT_EQ(ran.TextOf(control::kClampingOutSubLabel), "*(B) Clamping out");
}

TEST_F(Datum, IsStoredMarkedAndDrawnForBothSpindles) {
  host.environment["HideBilletOut"] = "1";
  host.vdms[1000].records[1][8] = "1 80 100 0 0 0 0 0";
  host.vdms[1000].records[2][8] = "1 60 50 0 0 0 0";
  EXPECT_GOLDEN(Lines(CallsOf("select 34\nset 2203 10\nset 2211 20\nset 2207 30\nset 2214 40\npress 2015\n")),
                "dialog/datum_select.trace");
  EXPECT_EQ(Stored(), "1 0.000000 10.000000 20.000000 30.000000 40.000000");
  EXPECT_THAT(Run("state\n").Bold(), ElementsAre(19, 34));
}

TEST_F(Datum, OfFourZerosIsPlain) {
  host.vdms[1000].records[3][2] = "1 0 1 2 3 4";
  const Ran ran =
      Run("select 34\nset 2203 0\nset 2211 \"\"\nset 2207 0\nset 2214 \"-0\"\npress 2015\nstate\n");
  EXPECT_THAT(ran.Bold(), IsEmpty());
  EXPECT_TRUE(Stored().starts_with("0 ")) << Stored();
}

TEST_F(Datum, StopsAtWhatIsNoNumber) {
  EXPECT_THAT(Run("select 34\nset 2214 a\npress 2015\n").events,
              ElementsAre("focus 2158", "box 0 [Equipment Definition] Please enter a number.", "focus 2214",
                          "closed end-of-script"));
  EXPECT_EQ(Stored(), "0");
}

TEST_F(Datum, ClampingOutIsTheDistanceFromTheOrigin) {
  const auto picked = [&](const char* origin, double position) {
    world.positions = {{0, position, 1}, {0, position, 1}};
    const Ran ran = Run(std::string("select 34\nset 2207 ") + origin + "\nset 2214 " + origin +
                        "\npress 2201\npress 2209\nstate\n");
    EXPECT_EQ(ran.TextOf(control::kClampingOutMain), ran.TextOf(control::kClampingOutSub));
    return ran.TextOf(control::kClampingOutMain);
  };
  EXPECT_EQ(picked("0", 10), "10");
  EXPECT_EQ(picked("0", -10), "10");
  EXPECT_EQ(picked("25", 10), "15");
  EXPECT_EQ(picked("-25", 10), "35");
  EXPECT_EQ(picked("25", 25), "0");
}

TEST_F(Datum, AnOriginIsThePickedPosition) {
  world.positions = {{0, -10.5, 1}, {0, 7, 1}};
  const Ran ran = Run("select 34\nset 2203 5\npress 2206\npress 2213\nstate\n");
  EXPECT_EQ(ran.TextOf(control::kOriginMain), "-10.5");
  EXPECT_EQ(ran.TextOf(control::kOriginSub), "7");
  EXPECT_EQ(ran.TextOf(control::kClampingOutMain), "5");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "hide", "show", "hide", "show", "closed end-of-script"));
}

TEST_F(Datum, EachPickAsksForAPositionAndReadsItsAxialValue) {
  for (const char* button : {"2201", "2209", "2206", "2213"}) {
    world.positions = {{0, 1, 2}};
    EXPECT_THAT(CallsOf(std::string("select 34\npress ") + button + "\n"),
                ElementsAre("OrvoReadGlobalI('i_billet_vdm')", "OrvoMacroExec('vbpickel', 'POS')",
                            "OrvoReadGlobalI('i_return')", "OrvoReadGlobalW('w_return')"))
        << button;
  }
}

TEST_F(Datum, ABrokenOffPickKeepsAllValues) {
  for (const char* button : {"2201", "2209", "2206", "2213"}) {
    const Ran ran = Run(std::string("select 34\nset 2203 -1\nset 2211 2\nset 2207 3\nset 2214 4\npress ") +
                        button + "\nstate\n");
    EXPECT_EQ(ran.TextOf(control::kClampingOutMain), "-1");
    EXPECT_EQ(ran.TextOf(control::kClampingOutSub), "2");
    EXPECT_EQ(ran.TextOf(control::kOriginMain), "3");
    EXPECT_EQ(ran.TextOf(control::kOriginSub), "4");
  }
  EXPECT_EQ(Stored(), "0");
}

class Bezel : public DialogTest {
 protected:
  Bezel() { world.SetMachine({.lun = true}); }
};

TEST_F(Bezel, ShowsWhetherItIsUsed) {
  host.vdms[1000].records[4][2] = "2";
  EXPECT_GOLDEN(Readable(Run("select 16\nstate\n")), "dialog/bezel.transcript");
}

TEST_F(Bezel, IsTickedForAllButZero) {
  for (const auto& [stored, isTicked] :
       std::map<std::string, bool>{{"0", false}, {"1", true}, {"2", true}, {"-1", true}}) {
    host.vdms[1000].records[4][2] = stored;
    EXPECT_EQ(Run("select 16\nstate\n").Control(control::kUseBezel)["checked"], isTicked) << stored;
  }
}

TEST_F(Bezel, IsStoredAsOneOrZeroAndMarked) {
  host.vdms[1000].records[4][2] = "7";
  EXPECT_THAT(Run("select 16\npress 2015\nstate\n").Bold(), ElementsAre(16));
  EXPECT_EQ(host.vdms[1000].records[4][2], "1");
  EXPECT_THAT(Run("select 16\nset 2019 0\npress 2015\nstate\n").Bold(), IsEmpty());
  EXPECT_EQ(host.vdms[1000].records[4][2], "0");
}

TEST_F(Bezel, IsNotStoredWithoutTheButton) {
  Run("select 16\nset 2019 1\nselect 1\npress 1\n");
  EXPECT_EQ(host.vdms[1000].records[4][2], "0");
}

}  // namespace
}  // namespace vanzet::test

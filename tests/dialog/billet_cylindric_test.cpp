#include "dialog/dialog_fixture.h"
#include "host/message_ids.h"
#include "support/golden.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class BilletCylindric : public DialogTest {
 protected:
  BilletCylindric() {
    world.SetMachine({.sub = true});
    host.vdms[1000].records[1][8] = "1 80 100.5 2 5 30 0 300";
    host.vdms[1000].records[2][8] = "1 60 50 1 2 0 1";
    host.vdms[1000].records[3][2] = "1 0 0 0 12 34";
  }
  const std::string& Stored(std::size_t operation) { return host.vdms[1000].records[operation][8]; }
};

TEST_F(BilletCylindric, ShowsTheRecordOfItsSpindle) {
  EXPECT_GOLDEN(Readable(Run("select 19\nstate\nselect 23\nstate\n")), "dialog/billet_cylindric.transcript");
}

TEST_F(BilletCylindric, StoresMarksAndDraws) {
  host.vdms[1000].records[1][8] = "0";
  const Ran ran = Run(
      "select 19\nset 2022 80\nset 2023 100\nset 2024 2\nset 2025 5\nset 2026 30\nset 2027 300\nset 2138 0\n"
      "press 2016\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "closed end-of-script"));
  EXPECT_EQ(Stored(1), "1 80.000000 100.000000 2.000000 5.000000 30.000000 1 300.000000");
  EXPECT_THAT(ran.Bold(), ElementsAre(19, 23, 34));
}

TEST_F(BilletCylindric, IsDrawnAtTheOriginOfItsSpindle) {
  EXPECT_GOLDEN(Lines(CallsOf("select 19\npress 2016\n")), "dialog/billet_cylindric_main.trace");
  host.vdms[1000].records[2][8] = "1 60 50 1 2 0 0";
  EXPECT_THAT(CallsOf("select 23\npress 2016\n"), Contains("OrvoCommand('s111=v 34.000000')"));
}

TEST_F(BilletCylindric, ATickHidesNothingWhateverItsTextSays) {
  EXPECT_EQ(Run("select 19\nstate\n").Control(control::kHideBillet)["checked"], true) << "drawn";
  EXPECT_EQ(Run("select 23\nstate\n").Control(control::kHideBillet)["checked"], false) << "stored as hidden";
  EXPECT_THAT(CallsOf("select 19\nset 2138 0\npress 2016\n"),
              Not(Contains("OrvoCommand('fig cre BilletM z0x0y0')")));
  EXPECT_EQ(Stored(1), "1 80.000000 100.500000 2.000000 5.000000 30.000000 1 300.000000");
}

TEST_F(BilletCylindric, OfANewDefinitionIsDrawn) {
  host.vdms[1000].records[1][8] = "0";
  EXPECT_EQ(Run("select 19\nstate\n").Control(control::kHideBillet)["checked"], true);
}

TEST_F(BilletCylindric, HasABarOnTheMainSpindleOnly) {
  EXPECT_EQ(Run("select 23\nstate\n").Control(control::kBarLength)["enabled"], false);
  EXPECT_EQ(Run("select 23\nselect 19\nstate\n").Control(control::kBarLength)["enabled"], true);
  EXPECT_THAT(Run("select 23\nset 2027 5\n").events, Contains("error 2 control 2027 is disabled"));
  Run("select 23\npress 2016\n");
  EXPECT_EQ(Stored(2), "1 60.000000 50.000000 1.000000 2.000000 0.000000 1");
}

TEST_F(BilletCylindric, WithoutLengthOrDiameterIsRemoved) {
  for (const char* edits : {"set 2022 0\nset 2023 0\n", "set 2022 \"\"\n", "set 2023 0\n"}) {
    host.vdms[1000].records[1][8] = "1 80 100 2 5 200 0 1";
    const Ran ran = Run(std::string("select 19\n") + edits + "press 2016\nstate\n");
    EXPECT_THAT(ran.events, ElementsAre("focus 2158", "box 0 Remove Billet!", "closed end-of-script"))
        << edits;
    EXPECT_EQ(Stored(1), "0");
    EXPECT_THAT(ran.Bold(), ElementsAre(23, 34)) << edits;
  }
}

TEST_F(BilletCylindric, ARemovedOneTakesItsPictureAlong) {
  EXPECT_THAT(CallsOf("select 19\nset 2022 0\npress 2016\n"), Contains("OrvoCommand('fig del BilletM yes')"));
}

TEST_F(BilletCylindric, ABarShorterThanThePartIsTakenBackAndStoredSo) {
  const Ran ran = Run("select 19\nset 2027 107.4\npress 2016\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "box 0 *Barlength to short, min. 107.5 or 0 for none bar",
                                      "focus 2027 all", "closed end-of-script"));
  EXPECT_EQ(ran.TextOf(control::kBarLength), "0");
  EXPECT_EQ(Stored(1), "1 80.000000 100.500000 2.000000 5.000000 30.000000 0 0.000000");
}

TEST_F(BilletCylindric, ABarAsLongAsThePartIsAccepted) {
  for (const char* length : {"107.5", "0", "-1"}) {
    EXPECT_THAT(Run(std::string("select 19\nset 2027 ") + length + "\npress 2016\n").events,
                ElementsAre("focus 2158", "closed end-of-script"))
        << length;
  }
}

TEST_F(BilletCylindric, ABoreWiderThanTheBarIsTakenBack) {
  const Ran ran = Run("select 19\nset 2026 80.1\npress 2016\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "box 0 *outside diameter is short then inside diameter",
                                      "focus 2026 all", "closed end-of-script"));
  EXPECT_EQ(ran.TextOf(control::kInnerDiameter), "0");
  EXPECT_EQ(Stored(1), "1 80.000000 100.500000 2.000000 5.000000 0.000000 0 300.000000");
  EXPECT_THAT(Run("select 19\nset 2026 80\npress 2016\n").events,
              ElementsAre("focus 2158", "closed end-of-script"))
      << "as wide as the bar";
}

TEST_F(BilletCylindric, BothCorrectionsCanComeAtOnce) {
  EXPECT_THAT(Run("select 19\nset 2026 90\nset 2027 1\npress 2016\n").events,
              ElementsAre("focus 2158", "box 0 *Barlength to short, min. 107.5 or 0 for none bar",
                          "focus 2027 all", "box 0 *outside diameter is short then inside diameter",
                          "focus 2026 all", "closed end-of-script"));
  EXPECT_EQ(Stored(1), "1 80.000000 100.500000 2.000000 5.000000 0.000000 0 0.000000");
}

TEST_F(BilletCylindric, TellsTheLeastBarInTheWordsOfTheHost) {
  host.translations = {{message::kBarTooShort, "mindestens %g, wirklich %g (%s%n)"}};
  EXPECT_THAT(Run("select 19\nset 2027 1\npress 2016\n").events,
              Contains("box 0 mindestens 107.5, wirklich 107.5 (%s%n)"));
}

TEST_F(BilletCylindric, TakesNumbersWithAPointOrAComma) {
  Run("select 19\nset 2022 \" 81,25 \"\nset 2024 \"\"\nset 2025 1e1\npress 2016\n");
  EXPECT_EQ(Stored(1), "1 81.250000 100.500000 0.000000 10.000000 30.000000 0 300.000000");
}

TEST_F(BilletCylindric, StopsAtWhatIsNoNumberAndChangesNothing) {
  for (const char* text : {"x", "1 2", "1,2,3", "80mm", "inf", "nan", "1e999"}) {
    const Ran ran =
        Run(std::string("select 19\nset 2022 44\nset 2025 \"") + text + "\"\npress 2016\nstate\n");
    EXPECT_THAT(ran.events, ElementsAre("focus 2158", "box 0 [Equipment Definition] Please enter a number.",
                                        "focus 2025", "closed end-of-script"))
        << text;
    EXPECT_EQ(ran.TextOf(control::kRearAllowance), text);
    EXPECT_EQ(Stored(1), "1 80 100.5 2 5 30 0 300") << text;
  }
}

TEST_F(BilletCylindric, AsksForTheFirstOfSeveralNumbersUnderTheDialogsCaption) {
  host.translations = {{message::kEquipmentDefinition, "Spannmittel"}};
  EXPECT_THAT(Run("select 19\nset 2024 x\nset 2026 y\npress 2016\n").events,
              ElementsAre("focus 2158", "box 0 [Spannmittel] Please enter a number.", "focus 2024",
                          "closed end-of-script"));
}

TEST_F(BilletCylindric, APickStopsAtWhatIsNoNumberBeforeTheDialogHides) {
  world.positions = {{0, 1, 2}};
  EXPECT_THAT(Run("select 19\nset 2025 x\npress 2005\n").events, Not(Contains("hide")));
  EXPECT_EQ(world.positions.size(), 1U);
}

TEST_F(BilletCylindric, PicksDiametersFromRadii) {
  world.positions = {{0, 7, 12.5}, {1, 7, -3}};
  const Ran ran = Run("select 19\npress 2005\nstate\npress 2009\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "hide", "show", "hide", "show", "closed end-of-script"));
  EXPECT_EQ(ran.TextOf(control::kOuterDiameter), "25");
  EXPECT_EQ(ran.TextOf(control::kInnerDiameter), "-6") << "the sign stays";
}

TEST_F(BilletCylindric, PicksItsLengthWithoutASign) {
  world.positions = {{0, -33.25, 5}};
  EXPECT_EQ(Run("select 19\npress 2006\nstate\n").TextOf(control::kCylinderLength), "33.25");
  world.positions = {{0, 12, 5}};
  EXPECT_EQ(Run("select 19\npress 2006\nstate\n").TextOf(control::kCylinderLength), "12");
}

TEST_F(BilletCylindric, APickAsksTheHostsMacro) {
  world.positions = {{0, 1, 2}};
  EXPECT_THAT(CallsOf("select 19\npress 2006\n"),
              ElementsAre("OrvoReadGlobalI('i_billet_vdm')", "OrvoMacroExec('vbpickel', 'POS')",
                          "OrvoReadGlobalI('i_return')", "OrvoReadGlobalW('w_return')"));
  world.positions = {{0, 1, 2}};
  EXPECT_THAT(CallsOf("select 19\npress 2005\n"), Contains("OrvoReadGlobalW('w_return2')"));
}

TEST_F(BilletCylindric, ABrokenOffPickKeepsWhatWasTyped) {
  for (const char* button : {"2005", "2006", "2009", "2018"}) {
    const Ran ran = Run(std::string("select 19\nset 2022 \"7,5\"\npress ") + button + "\nstate\n");
    EXPECT_THAT(ran.events, ElementsAre("focus 2158", "hide", "show", "closed end-of-script")) << button;
    EXPECT_EQ(ran.TextOf(control::kOuterDiameter), "7.5") << button << ": taken and shown again";
    EXPECT_EQ(ran.TextOf(control::kCylinderLength), "100.5");
    EXPECT_EQ(ran.TextOf(control::kInnerDiameter), "30");
  }
}

TEST_F(BilletCylindric, APickStoresNothing) {
  world.positions = {{0, 1, 2}, {0, 1, 2}, {0, 1, 2}};
  Run("select 19\npress 2005\npress 2006\npress 2009\n");
  EXPECT_EQ(Stored(1), "1 80 100.5 2 5 30 0 300");
}

TEST_F(BilletCylindric, AVariableThatCannotBeReadIsToldAndTheWorkGoesOn) {
  world.positions = {{0, 1, 2}};
  host.reals.clear();
  host.onMacro = nullptr;
  host.integers["i_return"] = 0;
  const Ran ran = Run("select 19\npress 2006\nstate\n");
  EXPECT_THAT(ran.events, Contains("box 0 [OrvoApi::MacroExport::GetGlobalIntVar Failed] w_return"));
  EXPECT_EQ(ran.TextOf(control::kCylinderLength), "0") << "what the host returned";
}

class ValuesFromSolid : public BilletCylindric {
 protected:
  ValuesFromSolid() {
    // 123.4567 by 98.7654 mm.
    host.bodies.byNumber[7] = {"Part", false, {-0.1, -0.04, 0, 0.0234567, 0.0587654, 1}};
  }
  Ran Pick(const std::string& decimals) {
    host.environment["BilletDecimalPlaces"] = decimals;
    host.bodies.picks = {7};
    return Run("select 19\npress 2018\nstate\n");
  }
};

TEST_F(ValuesFromSolid, AreItsExtentsRoundedToTheDecimalsOfTheHost) {
  EXPECT_EQ(Pick("2").TextOf(control::kOuterDiameter), "98.77");
  EXPECT_EQ(Pick("2").TextOf(control::kCylinderLength), "123.46");
  EXPECT_EQ(Pick("").TextOf(control::kOuterDiameter), "99");
  EXPECT_EQ(Pick("0").TextOf(control::kCylinderLength), "123");
  EXPECT_EQ(Pick("-1").TextOf(control::kCylinderLength), "120");
  EXPECT_EQ(Pick("many").TextOf(control::kCylinderLength), "123");
}

TEST_F(ValuesFromSolid, AskTheHostInThisOrder) {
  host.bodies.picks = {7};
  EXPECT_THAT(CallsOf("select 19\npress 2018\n"),
              ElementsAre("OrvoReadGlobalI('i_billet_vdm')", "OrvoClearSelection()",
                          "OrvoSelectOneObject(0, 2048, 'W\xC3\xA4hlen Sie einen Body')",
                          "OrvoGetObjectParasolidEntityNumber(101)", "OrvoClearSelection()",
                          "OrvoCommand('env 'BilletDecimalPlaces' $_return')", "OrvoReadGlobal$('$_return')",
                          "OrvoPsGetExtents(7)"));
}

TEST_F(ValuesFromSolid, AreThoseOfABodyOfNumberOneToo) {
  host.bodies.byNumber = {{1, {"First", false, {0, 0, 0, 0.2, 0.05, 1}}}};
  host.bodies.picks = {1};
  EXPECT_EQ(Run("select 19\npress 2018\nstate\n").TextOf(control::kCylinderLength), "200");
}

TEST_F(ValuesFromSolid, StayWhenNoBodyWasPicked) {
  host.bodies.picks = {0};
  const Ran ran = Run("select 19\npress 2018\nstate\n");
  EXPECT_EQ(ran.TextOf(control::kOuterDiameter), "80");
  EXPECT_THAT(host.TakeCalls("OrvoPsGetExtents"), IsEmpty());
}

TEST_F(ValuesFromSolid, SurviveDecimalsThatNoNumberHas) {
  EXPECT_THAT(Pick("400").TextOf(control::kOuterDiameter), testing::AnyOf("nan", "-nan"));
}

}  // namespace
}  // namespace vanzet::test

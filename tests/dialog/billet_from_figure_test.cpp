#include "dialog/dialog_fixture.h"
#include "support/fake_host_functions.h"
#include "support/golden.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class BilletFromFigure : public DialogTest {
 protected:
  BilletFromFigure() {
    world.SetMachine({.sub = true});
    world.figureNames = {{3, "shaft"}, {4, "bore"}, {0, "first"}};
  }
  FakeHost::Record BilletItems(std::size_t operation) {
    const auto record = host.ItemsOf(1000, operation);
    return {record.begin() + 7, record.end()};
  }
};

TEST_F(BilletFromFigure, ShowsTheRecordOfItsSpindle) {
  host.vdms[1000].records[1] = {"2 1 4 1 3 2 4", "Main Spindle", "0",  "0", "0", "0", "0",
                                "MainBillet",    "2 0 120",      "F1", "F2"};
  EXPECT_GOLDEN(Readable(Run("select 20\nstate\nselect 24\nstate\n")),
                "dialog/billet_from_figure.transcript");
}

TEST_F(BilletFromFigure, StoresMarksAndHasTheHostBuildIt) {
  const Ran ran = Run("select 20\nset 2039 shaft\nset 2045 120\npress 2015\nstate\n");
  EXPECT_THAT(BilletItems(1), ElementsAre("MainBillet", "2 0 120.000000", "shaft", ""));
  EXPECT_THAT(ran.Bold(), ElementsAre(20));
  EXPECT_THAT(host.TakeCalls("OrvoMacroExec"), ElementsAre("OrvoMacroExec('crebilfromfig', '1')"));
}

TEST_F(BilletFromFigure, LosesThePictureOfABarAndGetsNone) {
  EXPECT_THAT(
      CallsOf("select 24\nset 2039 shaft\npress 2015\n"),
      ElementsAre("OrvoReadGlobalI('i_billet_vdm')", "OrvoReadGlobalI('i_billet_vdm')",
                  "OrvoMacroExec('crebilfromfig', '2')", "OrvoReadGlobalI('i_billet_vdm')",
                  "OrvoCommand('win 1')", "OrvoCommand('fig del BilletS yes')", "OrvoCommand('red -1')"));
}

TEST_F(BilletFromFigure, NeedsItsFirstFigureAndNothingElse) {
  const Ran ran = Run("select 20\nset 2040 bore\nset 2045 12\npress 2015\nstate\n");
  EXPECT_THAT(ran.events,
              ElementsAre("focus 2158", "box 0 Figure F1 is missing!", "focus 2039", "closed end-of-script"));
  EXPECT_THAT(world.Stored(), testing::IsEmpty());
}

TEST_F(BilletFromFigure, PicksFiguresByName) {
  world.figures = {{151, 3}, {151, 4}};
  const Ran ran = Run("select 20\npress 2010\npress 2011\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "hide", "show", "hide", "show", "closed end-of-script"));
  EXPECT_EQ(ran.TextOf(control::kFigureOutside), "shaft");
  EXPECT_EQ(ran.TextOf(control::kFigureInside), "bore");
  EXPECT_THAT(world.Stored(), testing::IsEmpty()) << "a pick stores nothing";
}

TEST_F(BilletFromFigure, APickAsksTheHostInThisOrder) {
  host.translations = {{26, "Figur"}};
  world.figures = {{151, 0}};
  EXPECT_THAT(
      CallsOf("select 20\npress 2010\n"),
      ElementsAre("OrvoReadGlobalI('i_billet_vdm')", "OrvoCommand('dfm pick i_return i_return2 'Figur' 20')",
                  "OrvoReadGlobalI('i_return')", "OrvoReadGlobalI('i_return2')", "OrvoCommand('i1215=0')",
                  "OrvoCommand('dfm inf i1215')", "OrvoCommand('$_return=$_misc')",
                  "OrvoReadGlobal$('$_return')"));
}

TEST_F(BilletFromFigure, ABrokenOffPickIsUnmarkedAndKeepsTheName) {
  for (const int status : {27, 101, 13}) {
    world.figures = {{status, 3}};
    const auto calls = CallsOf("select 20\nset 2039 old\npress 2010\n");
    EXPECT_EQ(calls.back(), "OrvoCommand('dfm umark -1')") << status;
    EXPECT_EQ(
        std::ranges::count_if(calls, [](const auto& call) { return call.find("dfm pick") != call.npos; }), 1)
        << status;
    world.figures = {{status, 3}};
    EXPECT_EQ(Run("select 20\nset 2039 old\npress 2010\nstate\n").TextOf(control::kFigureOutside), "old");
  }
}

TEST_F(BilletFromFigure, APickOfSomethingElseBeginsAnew) {
  world.figures = {{151, -1}, {0, 3}, {150, 3}, {151, 4}};
  EXPECT_EQ(Run("select 20\npress 2010\nstate\n").TextOf(control::kFigureOutside), "bore");
  EXPECT_TRUE(world.figures.empty());
}

TEST_F(BilletFromFigure, ANameThatCannotBeReadIsToldAndTheOldOneStays) {
  world.figures = {{151, 3}};
  host.texts.erase("$_return");
  const auto onCommand = host.onCommand;
  host.onCommand = [&](const std::string& line) {
    if (line != "$_return=$_misc") onCommand(line);
  };
  const Ran ran = Run("select 20\nset 2039 old\npress 2010\nstate\n");
  EXPECT_THAT(ran.events, Contains("box 0 [OrvoApi::MacroExport::GetGlobalStrVar Failed] $_return"));
  EXPECT_EQ(ran.TextOf(control::kFigureOutside), "old");
}

TEST_F(BilletFromFigure, APickWhoseStatusCannotBeReadIsOver) {
  host.onCommand = nullptr;
  host.integers.erase("i_return");
  const Ran ran = Run("select 20\nset 2039 old\npress 2010\nstate\n");
  EXPECT_EQ(ran.TextOf(control::kFigureOutside), "old");
  EXPECT_THAT(ran.events, Contains("box 0 [OrvoApi::MacroExport::GetGlobalIntVar Failed] i_return"));
}

/// A read of an integer that gives its value and says that it failed.
std::int32_t ReadAndRefuse(const char* name, std::int32_t* ok) {
  *ok = 0;
  return FakeHost::Current().integers[name];
}

void* FindRefusingReads(void* /*module*/, const char* name) {
  return std::string(name) == "OrvoReadGlobalI" ? reinterpret_cast<void*>(ReadAndRefuse) : FakeFunction(name);
}

TEST_F(BilletFromFigure, AStatusThatComesInSpiteOfARefusalCounts) {
  host::symbolFinder = FindRefusingReads;
  host::hostFunctions = {};
  world.figures = {{151, 3}};
  const Ran ran = Run("select 20\npress 2010\nstate\n");
  EXPECT_THAT(ran.events, Contains("box 0 [OrvoApi::MacroExport::GetGlobalIntVar Failed] i_return"));
  EXPECT_EQ(ran.TextOf(control::kFigureOutside), "shaft");
}

TEST_F(BilletFromFigure, PicksItsLength) {
  world.positions = {{0, -12, 3}};
  EXPECT_EQ(Run("select 20\npress 2013\nstate\n").TextOf(control::kPartLength), "12");
}

TEST_F(BilletFromFigure, ComesUpBlankForARecordOfAnotherPage) {
  host.vdms[1000].records[1][8] = "1 80 100 0 0 0 0 0";
  const Ran ran = Run("select 20\nstate\n");
  EXPECT_EQ(ran.TextOf(control::kPartLength), "0");
  EXPECT_EQ(ran.TextOf(control::kFigureOutside), "");
}

TEST_F(BilletFromFigure, KeepsAnEarlierFirstFigureThatTheReadDoesNotReplace) {
  Run("select 20\nset 2039 shaft\nset 2040 bore\npress 2015\n");
  // Nothing is defined on the sub spindle, and the page still has the name; so in another session it has not.
  const Ran ran = Run("select 20\nselect 24\nstate\nselect 20\nstate\n");
  EXPECT_EQ(ran.states[0]["controls"]["2039"]["text"], "shaft");
  EXPECT_EQ(ran.states[0]["controls"]["2040"]["text"], "");
  EXPECT_EQ(ran.states[1]["controls"]["2040"]["text"], "bore");
  EXPECT_EQ(Run("select 24\nstate\n").TextOf(control::kFigureOutside), "");
}

TEST_F(BilletFromFigure, KeepsItAcrossSpursToo) {
  world.SetMachine({.spurs = 2});
  Run("select 20\nset 2039 shaft\npress 2015\n");
  EXPECT_EQ(Run("select 20\nchoose 2020 1\nstate\n").TextOf(control::kFigureOutside), "shaft");
}

TEST_F(BilletFromFigure, LosesWhatWasNotSelectedWithTheNextNode) {
  const Ran ran = Run("select 20\nset 2040 typed\nselect 19\nselect 20\nstate\n");
  EXPECT_EQ(ran.TextOf(control::kFigureInside), "");
  EXPECT_THAT(ran.events, Not(Contains(testing::HasSubstr("box"))));
}

}  // namespace
}  // namespace vanzet::test

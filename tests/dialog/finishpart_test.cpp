#include "dialog/dialog_fixture.h"
#include "support/golden.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class Finishpart : public DialogTest {
 protected:
  Finishpart() {
    world.SetMachine({.sub = true});
    world.figureNames = {{3, "shaft"}, {4, "bore"}};
    host.bodies.byNumber = {{7, {"Part"}}};
  }
  void StoredIs(std::size_t operation, FakeHost::Record items) {
    auto& record = host.vdms[1000].records[operation];
    items.insert(items.begin(), {"2 1 2 1 " + std::to_string(items.size()), record[1]});
    record = items;
  }
  FakeHost::Record Items(std::size_t operation) {
    const auto record = host.ItemsOf(1000, operation);
    return {record.begin() + 2, record.end()};
  }
};

TEST_F(Finishpart, ShowsTheRecordsOfItsSpindles) {
  StoredIs(16, {"1", "F1", "0"});
  StoredIs(17, {"2", "Part"});
  EXPECT_GOLDEN(Readable(Run("select 28\nstate\nselect 31\nstate\nselect 29\nstate\nselect 32\nstate\n")),
                "dialog/finishpart.transcript");
}

TEST_F(Finishpart, FiguresCanBePickedButTheirButtonDoesNothing) {
  world.figures = {{151, 3}, {151, 4}};
  const Ran ran = Run("select 28\npress 2010\npress 2011\npress 2015\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "hide", "show", "hide", "show", "closed end-of-script"));
  EXPECT_EQ(ran.TextOf(control::kFigureOutside), "shaft");
  EXPECT_EQ(ran.TextOf(control::kFigureInside), "bore");
  EXPECT_EQ(ran.TextOf(control::kSelect), "Select");
  EXPECT_THAT(world.Stored(), IsEmpty());
  EXPECT_THAT(ran.Bold(), IsEmpty());
}

TEST_F(Finishpart, KeepsAnEarlierFirstFigure) {
  StoredIs(16, {"1", "F1", "F2"});
  const Ran ran = Run("select 28\nselect 31\nstate\n");
  EXPECT_EQ(ran.TextOf(control::kFigureOutside), "F1");
  EXPECT_EQ(ran.TextOf(control::kFigureInside), "");
}

TEST_F(Finishpart, StoresASolidAndDrawsNothing) {
  EXPECT_THAT(CallsOf("select 32\nset 2046 Part\npress 2015\n"),
              ElementsAre("OrvoReadGlobalI('i_billet_vdm')", "OrvoPsGetBodyNumberFromName('Part')",
                          "OrvoReadGlobalI('i_billet_vdm')"));
  EXPECT_THAT(Items(17), ElementsAre("2", "Part"));
  EXPECT_THAT(Run("state\n").Bold(), ElementsAre(32));
  EXPECT_THAT(Run("select 29\nset 2046 Part\npress 2015\nstate\n").Bold(), ElementsAre(29, 32));
}

TEST_F(Finishpart, RefusesABodyThatIsGoneWithoutItsName) {
  StoredIs(16, {"2", "Gone"});
  EXPECT_THAT(Run("select 29\npress 2015\n").events,
              ElementsAre("focus 2158", "box 0 Invalid Solid!", "focus 2046", "closed end-of-script"));
  EXPECT_THAT(Items(16), ElementsAre("2", "Gone"));
}

TEST_F(Finishpart, TakesTheNameOfThePickedSolid) {
  host.bodies.picks = {7};
  EXPECT_THAT(CallsOf("select 29\npress 2018\n"),
              ElementsAre("OrvoReadGlobalI('i_billet_vdm')", "OrvoClearSelection()",
                          "OrvoSelectOneObject(0, 18432, 'Select Solid!')", "OrvoClearSelection()",
                          "OrvoGetObjectParasolidEntityNumber(101)", "OrvoPsGetBodyNameFromNumber(7)"));
  host.bodies.picks = {7};
  EXPECT_EQ(Run("select 29\npress 2018\nstate\n").TextOf(control::kSolid), "Part");
}

TEST_F(Finishpart, ABodyOfNumberOneIsOne) {
  host.bodies.byNumber = {{1, {"First"}}};
  host.bodies.picks = {1};
  Run("select 29\npress 2018\npress 2015\n");
  EXPECT_THAT(Items(16), ElementsAre("2", "First"));
}

TEST_F(Finishpart, ABrokenOffPickOfASolidBlanksThePage) {
  StoredIs(16, {"2", "Part"});
  const Ran ran = Run("select 29\npress 2018\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "hide", "show", "closed end-of-script"));
  EXPECT_EQ(ran.TextOf(control::kSolid), "");
  EXPECT_THAT(Items(16), ElementsAre("2", "Part"));
}

}  // namespace
}  // namespace vanzet::test

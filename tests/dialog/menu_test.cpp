#include "dialog/dialog_fixture.h"
#include "host/message_ids.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class MenuTest : public DialogTest {
 protected:
  MenuTest() { world.SetMachine({.sub = true, .tail = true, .lun = true}); }

  std::string& Item(std::size_t operation, std::size_t item) {
    return host.vdms[1000].records[operation][item];
  }
};

TEST_F(MenuTest, IsOfferedAtTheNodesThatHoldARecordOfASpindle) {
  for (const int node : {2, 8, 18, 22, 27, 30, 33}) {
    const std::string id = std::to_string(node);
    EXPECT_THAT(Run("context " + id + "\n").events,
                ElementsAre("popup " + id + " 51000 Delete -> null", "focus 2158", "closed end-of-script"));
  }
}

TEST_F(MenuTest, IsNotOfferedElsewhereAndTheSelectionStays) {
  std::string script = "select 19\n";
  for (int node = 1; node <= 51; ++node) {
    const bool isOffered =
        node == 2 || node == 8 || node == 18 || node == 22 || node == 27 || node == 30 || node == 33;
    if (!isOffered) script += "context " + std::to_string(node) + "\n";
  }
  const Ran ran = Run(script + "state\n");
  EXPECT_THAT(ran.events, ElementsAre("focus 2158", "closed end-of-script"));
  EXPECT_EQ(ran.State()["selected"], 19);
}

TEST_F(MenuTest, ADismissedOneStillSelectsTheNode) {
  const Ran ran = Run("context 22\nstate\n");
  EXPECT_EQ(ran.State()["selected"], 22);
  EXPECT_EQ(ran.State()["spindle"], 1);
  EXPECT_EQ(ran.State()["page"], "CPageEmpty");
  EXPECT_THAT(world.Stored(), IsEmpty());
}

TEST_F(MenuTest, ItsCommandRunsWhenTheNodeIsSelected) {
  Item(2, 8) = "1 80 100 0 0 0 0";
  // The drawing is that of the sub spindle, which the selection means.
  const auto calls = CallsOf("select 18\ncontext 22 51000\n");
  EXPECT_THAT(calls, Contains("OrvoCommand('fig del BilletS yes')"));
  EXPECT_THAT(calls, testing::Not(Contains("OrvoCommand('fig del BilletM yes')")));
}

TEST_F(MenuTest, SpeaksTheLanguageOfTheHost) {
  host.translations = {{message::kDeleteRecord, "L\xC3\xB6schen"}};
  EXPECT_THAT(Run("context 2\n").events, Contains("popup 2 51000 L\xC3\xB6schen -> null"));
}

TEST_F(MenuTest, DeletesADeviceWithItsJawAndKeepsTheOptions) {
  Item(1, 2) = "Chuck 1";
  Item(1, 3) = "1 10 20 30";
  Item(1, 4) = "1 4";
  Item(1, 5) = "Jaw 1";
  Item(1, 6) = "5 1 2 3";
  const Ran ran = Run("state\ncontext 2 51000\nstate\n");
  EXPECT_THAT(ran.events, ElementsAre("popup 2 51000 Delete -> 51000", "focus 2158", "closed end-of-script"))
      << "no question is asked";
  EXPECT_THAT(world.Stored(), ElementsAre("1.2 ",
                                          "1.3 0 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 "
                                          "0.000000 0.000000 0.000000 0.000000",
                                          "1.4 1 4", "1.5 ",
                                          "1.6 0 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 "
                                          "0.000000 0.000000 0.000000 0.000000"));
  EXPECT_THAT(ran.Bold(), IsEmpty());
}

TEST_F(MenuTest, DeletesTheSubSpindlesDevice) {
  Item(2, 3) = "2 10 20 30";
  Item(1, 3) = "2 10 20 30";
  EXPECT_THAT(Run("context 8 51000\nstate\n").Bold(), ElementsAre(5));
}

TEST_F(MenuTest, DeletesABilletAndItsPicture) {
  Item(1, 8) = "1 80 100 0 0 0 0 0";
  Item(2, 8) = "3 0 100 0 0";
  EXPECT_THAT(CallsOf("context 18 51000\n"),
              ElementsAre("OrvoReadGlobalI('i_billet_vdm')", "OrvoCommand('win 1')",
                          "OrvoCommand('fig del BilletM yes')", "OrvoCommand('red -1')"));
  EXPECT_THAT(Run("state\n").Bold(), ElementsAre(25));
  EXPECT_THAT(Run("context 22 51000\nstate\n").Bold(), IsEmpty());
  EXPECT_EQ(host.ItemsOf(1000, 2)[8], "0");
}

TEST_F(MenuTest, DeletesAFinishPart) {
  host.vdms[1000].records[16] = {"2 1 2 1 2", "Finishpart from Main", "2", "Part"};
  Item(17, 2) = "1";
  EXPECT_THAT(Run("context 27 51000\nstate\n").Bold(), ElementsAre(31));
  EXPECT_EQ(host.ItemsOf(1000, 16), (FakeHost::Record{"2 1 2 1 1", "Finishpart from Main", "0"}));
  EXPECT_THAT(Run("context 30 51000\nstate\n").Bold(), IsEmpty());
}

TEST_F(MenuTest, DeletesTheDatumAndTheMarksOfBothSpindles) {
  Item(3, 2) = "1 0 1 2 3 4";
  EXPECT_THAT(Run("state\n").Bold(), ElementsAre(34));
  const auto before = host.vdms;
  EXPECT_THAT(Run("context 33 51000\nstate\n").Bold(), IsEmpty());
  host.vdms = before;
  const auto calls = CallsOf("context 33 51000\n");
  const auto main = std::ranges::find(calls, "OrvoCommand('fig del ZOffsetMain yes')");
  const auto sub = std::ranges::find(calls, "OrvoCommand('fig del ZOffsetSub yes')");
  EXPECT_LT(main, sub);
  EXPECT_NE(sub, calls.end());
  EXPECT_THAT(world.Stored(), ElementsAre("3.2 0 0.000000 0.000000 0.000000 0.000000 0.000000"));
}

TEST_F(MenuTest, DeletesInTheSpurThatIsShown) {
  world.SetMachine({.spurs = 2});
  host.vdms[1000].records[1][8] = "1 80 100";
  host.vdms[2000].records[1][8] = "1 80 100";
  Run("choose 2020 1\ncontext 18 51000\n");
  EXPECT_THAT(world.Stored(1000), ElementsAre("1.8 1 80 100"));
  EXPECT_EQ(host.ItemsOf(2000, 1)[8], "0");
}

TEST_F(MenuTest, ADeleteWithoutADefinitionSaysSoAndChangesNothing) {
  host.vdms.clear();
  EXPECT_THAT(Run("context 33 51000\n").events,
              Contains("box 0 [OrvoApi::MacroVdm] 1000: Open: vdm doesn't exist"));
  EXPECT_TRUE(host.vdms.empty());
}

}  // namespace
}  // namespace vanzet::test

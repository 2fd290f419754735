#include "define/events.h"
#include "define/form_fixture.h"
#include "support/golden.h"

namespace vanzet::test {
namespace {

using define::Json;
using define::Step;
using testing::ElementsAre;

constexpr const char* kWhole = R"({"spurs": [
  {"spur": 1,
   "main": {"chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160", "count": 4, "inside": true},
            "billet": {"kind": "cylinder", "outer_diameter": 80, "part_length": 120.5, "bar_length": 1000},
            "finished_part": {"kind": "solid", "solid": "ok part"}},
   "sub": {"mandrel": {"file": "chuck.vdm", "letters": {"B": 60}}, "billet": {"kind": "solid", "solid": "ok \"2\\"}},
   "center": {"file": "center.vdm", "letters": {"A": 41.25, "B": 3}},
   "datum": {"main": {"clamping_out": 60}, "sub": {"origin": -15}},
   "steady_rest": true},
  {"spur": 0, "main": {"billet": {"kind": "figures", "outside": "ok", "part_length": 5}}}]})";

class Steps : public FormTest {
 protected:
  static std::vector<std::string> PathsOf(const std::vector<Step>& steps) {
    std::vector<std::string> paths;
    for (const Step& step : steps) paths.push_back(step.path);
    return paths;
  }

  const Json former = Json::parse(R"({"spurs": [{"spur": 1}, {"spur": 0}]})");
};

TEST_F(Steps, OfAWholeFormAreTheClicksOfAPerson) {
  const auto steps = define::StepsOf(Completed(kWhole), former, true, true);
  EXPECT_GOLDEN(define::ScriptOf(steps).text, "define/whole.script");
  EXPECT_EQ(define::ScriptOf(steps).picks, "object ok \"2\\\n") << "lengths that are left out are picked";
}

TEST_F(Steps, BeginWithTheLastSpurSoThatTheFirstIsDrawnAtTheEnd) {
  EXPECT_THAT(
      PathsOf(define::StepsOf(Completed(R"({"spurs": [{"spur": 0}, {"spur": 1}]})"), former, true, true)),
      ElementsAre("$.spurs[1]", "$.spurs[0]"));
}

TEST_F(Steps, DeleteWhatWasDrawnOfASpurAndIsNoMore) {
  const Json drawn = Json::parse(R"({"spurs": [{"spur": 0, "datum": {},
      "main": {"billet": {}, "chuck": {}}, "sub": {"billet": {}, "finished_part": {}}}]})");
  const auto steps = define::StepsOf(Completed(R"({"spurs": [{"spur": 0}]})"), drawn, true, false);
  EXPECT_THAT(PathsOf(steps), ElementsAre("$.spurs[0]", "$.spurs[0].main.billet", "$.spurs[0].sub.billet",
                                          "$.spurs[0].datum"));
  EXPECT_EQ(define::ScriptOf(steps).text,
            "# $.spurs[0]\nselect 1\n# $.spurs[0].main.billet\ncontext 18 51000\n"
            "# $.spurs[0].sub.billet\ncontext 22 51000\n# $.spurs[0].datum\ncontext 33 51000\n");
}

TEST_F(Steps, LeaveTheSubSpindleAloneWhereTheMachineHasNone) {
  const Json drawn = Json::parse(R"({"spurs": [{"spur": 0, "sub": {"billet": {}}}]})");
  EXPECT_THAT(PathsOf(define::StepsOf(Completed(R"({"spurs": [{"spur": 0}]})"), drawn, false, false)),
              ElementsAre("$.spurs[0]"));
}

TEST_F(Steps, KnowWhoseEachLineOfTheScriptIs) {
  const auto script = define::ScriptOf({{"$.a", {"select 1", "press 2"}}, {"$.b", {"select 3"}}});
  EXPECT_EQ(script.text, "# $.a\nselect 1\npress 2\n# $.b\nselect 3\n");
  EXPECT_THAT(script.stepOfLine, ElementsAre(0, 0, 0, 0, 1, 1));
}

TEST_F(Steps, ArePlayedWithTheFormsOwnDevicesAlone) {
  EXPECT_EQ(define::CatalogueText(define::StepsOf(Completed(kWhole), former, true, true)),
            "Chuck 160\n1 80 90 22.5\nSoft jaw 160\n9 38 62 12 24\n");
}

TEST_F(Steps, ArePlayedInOneDialogUnlessTwoTypesOfDeviceHaveOneName) {
  EXPECT_EQ(define::PlaysOf(define::StepsOf(Completed(kWhole), former, true, true)).size(), 1U);
  const auto plays = define::PlaysOf(
      define::StepsOf(Completed(R"({"spurs": [{"spur": 1, "main": {"chuck": {"name": "Chuck 160"},
        "jaw": {"name": "Chuck 160", "shape": 5, "letters": {"A": 10, "B": 20, "C": 3, "D": 4}},
        "billet": {"kind": "solid", "solid": "ok"}}, "sub": {"chuck": {"name": "Chuck 160"}}}]})"),
                      Json::parse(R"({"spurs": [{"spur": 1}]})"), true, true));
  ASSERT_EQ(plays.size(), 3U);
  EXPECT_THAT(PathsOf(plays[0]), ElementsAre("$.spurs[0]", "$.spurs[0].main.chuck"));
  EXPECT_THAT(PathsOf(plays[1]), ElementsAre("$.spurs[0]", "$.spurs[0].main.jaw", "$.spurs[0].main.billet"));
  EXPECT_THAT(PathsOf(plays[2]), ElementsAre("$.spurs[0]", "$.spurs[0].sub.chuck"));
  EXPECT_EQ(define::CatalogueText(plays[1]), "Chuck 160\n9 10 20 3 4\n");
}

}  // namespace
}  // namespace vanzet::test

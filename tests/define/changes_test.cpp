#include "define/changes.h"

#include "define/form_fixture.h"

namespace vanzet::test {
namespace {

using define::Json;
using testing::ElementsAre;

class Changes : public FormTest {
 protected:
  std::vector<std::string> Between(const std::string& former, const std::string& form) {
    const auto whole = [](const std::string& keys) {
      return R"({"spurs": [{"spur": 1)" + (keys.empty() ? "" : ", " + keys) + "}]}";
    };
    return define::ChangesOf(Completed(whole(form)), Json::parse(whole(former)));
  }
};

constexpr const char* kChuck =
    R"("main": {"chuck": {"name": "Chuck 160", "letters": {"A": 80, "B": 90, "C": 22.5}}})";

TEST_F(Changes, AreNoneOfWhatIsDefinedAlready) {
  EXPECT_THAT(Between("", ""), ElementsAre("spur 1: nothing changes"));
  EXPECT_THAT(Between(kChuck, R"("main": {"chuck": {"name": "Chuck 160"}})"),
              ElementsAre("spur 1: nothing changes"));
  EXPECT_THAT(
      Between(R"("main": {"billet": {"kind": "cylinder", "outer_diameter": 40, "part_length": 33.333333,
                         "front_allowance": 0, "shown": true}})",
              R"("main": {"billet": {"kind": "cylinder", "outer_diameter": 40,
                         "part_length": 33.33333333}}, "steady_rest": false)"),
      ElementsAre("spur 1: nothing changes"));
}

TEST_F(Changes, NameEachValueThatDiffers) {
  EXPECT_THAT(Between(kChuck, R"("main": {"chuck": {"name": "Chuck 160", "letters": {"B": 95}}})"),
              ElementsAre("spur 1, main chuck: B 90 -> 95"));
  EXPECT_THAT(
      Between(R"("sub": {"billet": {"kind": "cylinder", "outer_diameter": 40, "part_length": 50,
                         "front_allowance": 2, "shown": true}}, "datum": {"sub": {"clamping_out": 4, "origin": 1}})",
              R"("sub": {"billet": {"kind": "cylinder", "outer_diameter": 42, "part_length": 50,
                         "shown": false}}, "datum": {"sub": {"clamping_out": 4, "origin": -1}})"),
      ElementsAre(
          "spur 1, sub billet: outer diameter 40 -> 42; shown yes -> no; front allowance 2 -> nothing",
          "spur 1, datum sub: origin 1 -> -1"));
}

TEST_F(Changes, AreWhatIsNewAndWhatIsRemoved) {
  EXPECT_THAT(
      Between(kChuck, R"("main": {"collet": {"name": "Collet D42"},
                                 "finished_part": {"kind": "solid", "solid": "ok"}}, "steady_rest": true)"),
      ElementsAre("spur 1, main collet: new: name \"Collet D42\"; A 33; B 94; C 12; D 21; E 38; F 2.5",
                  "spur 1, main finished part: new: kind \"solid\"; solid \"ok\"",
                  "spur 1, main chuck: removed", "spur 1, steady rest: new: used yes"));
}

TEST_F(Changes, PassOverLengthsThatTheSolidHas) {
  EXPECT_THAT(
      Between(R"("main": {"billet": {"kind": "solid", "solid": "ok a", "part_length": 50, "angle": 0}})",
              R"("main": {"billet": {"kind": "solid", "solid": "ok b"}})"),
      ElementsAre("spur 1, main billet: solid \"ok a\" -> \"ok b\""));
}

}  // namespace
}  // namespace vanzet::test

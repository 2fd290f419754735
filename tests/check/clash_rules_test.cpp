#include <numbers>

#include "setup_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Clashes : public SetupTest {};
INSTANTIATE_TEST_SUITE_P(Spindles, Clashes, testing::Bool(), SpindleName);

TEST_P(Clashes, AreNotFoundInASetUpThatIsPossible) {
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(Clashes, OfAJawThatCutsIntoTheBillet) {
  AddSolid("thick", Rectangle(-100, 0, 2, 22.25));
  UseSolid("thick", 100, 42);
  ASSERT_THAT(Rules(), ElementsAre("EQ-201 " + Place()));
  const check::Finding finding = Found().front();
  EXPECT_NEAR(ValueOf(finding, "overlap"), 1.25, 0.01);
  ASSERT_TRUE(finding.change);
  EXPECT_NEAR(finding.change->from, 42, 1e-9);
  EXPECT_NEAR(finding.change->to, 44.5, 0.02);
  UseSolid("thick", 100, finding.change->to);
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(Clashes, OfAJawThatDoesNotTouchTheBillet) {
  AddSolid("thin", Rectangle(-100, 0, 2, 20));
  UseSolid("thin", 100, 42);
  ASSERT_THAT(Rules(), ElementsAre("EQ-202 " + Place()));
  EXPECT_NEAR(ValueOf(Found().front(), "gap"), 1, 0.01);
  UseSolid("thin", 100, 40.1);
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(Clashes, OfJawsThatClampInside) {
  Spoilt().clampsInside = true;
  AddSolid("narrow", Rectangle(-100, 30, 2, 45));
  // Inside, the jaws are at the clamp diameter as well.
  UseSolid("narrow", 100, 62);
  ASSERT_THAT(Rules(), ElementsAre("EQ-201 " + Place()));
  EXPECT_NEAR(ValueOf(Found().front(), "overlap"), 1, 0.05);
  UseSolid("narrow", 100, 60);
  EXPECT_THAT(Rules(), IsEmpty());
  UseSolid("narrow", 100, 57);
  ASSERT_THAT(Rules(), ElementsAre("EQ-202 " + Place()));
  EXPECT_NEAR(ValueOf(Found().front(), "gap"), 1.5, 0.05);
}

TEST_P(Clashes, OfAJawThatMeetsAShoulderAlongTheAxis) {
  geometry::Kurve stepped;
  stepped.Start(geometry::Point(-100, 0));
  for (const auto& [x, y] : {std::pair(2.0, 0.0), std::pair(2.0, 40.0), std::pair(-43.0, 40.0),
                             std::pair(-43.0, 21.0), std::pair(-100.0, 21.0), std::pair(-100.0, 0.0)})
    stepped.Add(geometry::Point(x, y));
  AddSolid("stepped", stepped);
  UseSolid("stepped", 100, 42);
  ASSERT_THAT(Rules(), ElementsAre("EQ-201 " + Place()));
  EXPECT_NEAR(ValueOf(Found().front(), "overlap"), 3, 0.03);
  EXPECT_FALSE(Found().front().change);
  Spoilt().clampingOut = 43;
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(Clashes, OfABarThatIsLargerThanTheBore) {
  Spoilt().clamp = {"Collet D42", kCollet};
  Spoilt().jaw = {};
  EXPECT_THAT(Rules(), IsEmpty());
  Spoilt().billet.outerDiameter = Spoilt().billet.clampDiameter = 42.5;
  ASSERT_THAT(Rules(), ElementsAre("EQ-203 " + Place()));
  EXPECT_NEAR(ValueOf(Found().front(), "overlap"), 0.25, 0.01);
}

TEST_P(Clashes, OfABilletThatIsDeeperThanTheStop) {
  // The bore of the chuck ends the clamped billet of 60 mm; its jaws are 62 mm long.
  Spoilt().billet.outerDiameter = Spoilt().billet.clampDiameter = 60;
  EXPECT_THAT(Rules(), IsEmpty());
  Spoilt().billet.rearAllowance = 5;
  ASSERT_THAT(Rules(), ElementsAre("EQ-203 " + Place()));
  EXPECT_NEAR(ValueOf(Found().front(), "overlap"), 3, 0.03);
}

TEST_P(Clashes, OfAJawInTheFinishedPart) {
  figures.emplace("part", Rectangle(-100, 0, 0, 21));
  UsePart("part");
  EXPECT_THAT(Rules(), IsEmpty());
  figures.at("part") = Rectangle(-100, 0, 0, 21.5);
  EXPECT_THAT(Rules(), ElementsAre("EQ-204 " + Place(), "EQ-301 " + Place()));
  figures.at("part") = Rectangle(-39, 0, 0, 21.5);
  EXPECT_THAT(Rules(), ElementsAre("EQ-301 " + Place()));
}

TEST_P(Clashes, OfAFinishedPartThatReachesOutOfTheBillet) {
  figures.emplace("part", Rectangle(-30, 0, 0, 22));
  UsePart("part");
  ASSERT_THAT(Rules(), ElementsAre("EQ-301 " + Place()));
  const double ring = std::numbers::pi * (22 * 22 - 21 * 21) * 30;
  EXPECT_NEAR(ValueOf(Found().front(), "volume"), ring, 1e-3);
  EXPECT_NEAR(ValueOf(Found().front(), "overlap"), 1, 0.01);
  figures.at("part") = Rectangle(-30, 0, 0, 21.04);
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(Clashes, OfAFinishedPartInABilletThatIsASolid) {
  AddSolid("casting", Rectangle(-100, 0, 2, 21));
  UseSolid("casting", 100, 42);
  figures.emplace("part", Rectangle(-30, 0, 0, 22));
  UsePart("part");
  ASSERT_THAT(Rules(), ElementsAre("EQ-301 " + Place()));
  const double ring = std::numbers::pi * (22 * 22 - 21 * 21) * 30;
  EXPECT_NEAR(ValueOf(Found().front(), "volume"), ring, ring * 0.05);
}

using BothSides = SetupTest;

TEST_F(BothSides, CutIntoEachOther) {
  // The jaws of an empty sub spindle reach 62 mm over its origin, the main jaws to 2 mm behind theirs.
  equipment.spindles[0].clampingOut = 2;
  equipment.spindles[1].billet = {};
  equipment.spindles[1].clampingOut = 0;
  equipment.spindles[1].origin = 160.1;
  EXPECT_THAT(Rules(), IsEmpty());
  equipment.spindles[1].origin = 159;
  ASSERT_THAT(Rules(), ElementsAre("EQ-205 sub"));
  EXPECT_NEAR(ValueOf(Found().front(), "overlap"), 1, 0.01);
  EXPECT_THAT(Found().front().bodies, ElementsAre("main jaw 1", "sub jaw 1"));
}

class CenterRules : public SetupTest {
 protected:
  CenterRules() {
    equipment.spindles[1] = {};
    equipment.center = {"Center 60 deg MT3", kCenter};
  }
  void Bore(double radius, double depth, double outside = 21) {
    geometry::Kurve bored;
    bored.Start(geometry::Point(-100, 0));
    for (const auto& [x, y] :
         {std::pair(2 - depth, 0.0), std::pair(2 - depth, radius), std::pair(2.0, radius),
          std::pair(2.0, outside), std::pair(-100.0, outside), std::pair(-100.0, 0.0)})
      bored.Add(geometry::Point(x, y));
    figures["bored"] = bored;
    equipment.spindles[0].billet = {.type = scene::billet_type::kFigures,
                                    .partLength = 100,
                                    .clampDiameter = 2 * outside,
                                    .outside = "bored"};
  }
};

TEST_F(CenterRules, FindNothingWhereItTouches) {
  EXPECT_THAT(Rules(), IsEmpty());
  Bore(5, 30);
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_F(CenterRules, FindAHoleThatIsTooShallow) {
  Bore(5, 4);
  ASSERT_THAT(Rules(), ElementsAre("EQ-206 center"));
  EXPECT_GT(ValueOf(Found().front(), "overlap"), 1);
}

TEST_F(CenterRules, FindABoreThatIsWiderThanTheCenter) {
  Bore(25, 30, 30);
  ASSERT_THAT(Rules(), ElementsAre("EQ-206 center"));
  EXPECT_GT(ValueOf(Found().front(), "gap"), 1);
}

TEST_F(CenterRules, FindACenterInTheFinishedPart) {
  Bore(5, 30);
  figures.emplace("part", Rectangle(-30, 0, 0, 20));
  equipment.spindles[0].finishPart = {.type = scene::finish_part_type::kFigures, .outside = "part"};
  EXPECT_THAT(Rules(), ElementsAre("EQ-204 center", "EQ-301 main"));
}

}  // namespace
}  // namespace vanzet::test

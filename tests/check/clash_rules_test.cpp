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
  ASSERT_TRUE(Found().front().change);
  UseSolid("thin", 100, Found().front().change->to);
  EXPECT_THAT(Rules(), IsEmpty());
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
  ASSERT_TRUE(Found().front().change);
  EXPECT_NEAR(Found().front().change->to, 43, 1e-6);
  Spoilt().clampingOut = Found().front().change->to;
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
  ASSERT_TRUE(Found().front().change);
  Spoilt().clampingOut = Found().front().change->to;
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(Clashes, OfTheDeviceInTheFinishedPart) {
  // The part is longer than the room that the jaws leave before the chuck, and wider than its bore.
  figures.emplace("part", Rectangle(-103, 0, 0, 30));
  UsePart("part");
  ASSERT_THAT(Rules(), testing::Contains("EQ-204 " + Place()));
  const auto found = Found();
  const auto clamp = std::ranges::find_if(found, [](const check::Finding& finding) {
    return finding.rule->id == "EQ-204" &&
           std::string_view(finding.sentence.english).starts_with("The clamp");
  });
  ASSERT_NE(clamp, found.end());
  EXPECT_NEAR(ValueOf(*clamp, "overlap"), 1, 0.01);
  ASSERT_TRUE(clamp->change);
  Spoilt().clampingOut = clamp->change->to;
  for (const check::Finding& finding : Found())
    EXPECT_FALSE(std::string_view(finding.sentence.english).starts_with("The clamp"))
        << finding.sentence.english;
}

TEST_P(Clashes, OfAFinishedPartSayTheValueOfTheBilletThatMendsThem) {
  UsePart("part");
  const auto change = [&](const geometry::Kurve& part) {
    figures["part"] = part;
    const auto found = Found();
    EXPECT_EQ(found.size(), 1U);
    return found.empty() || !found.front().change ? check::Change{"", 0, 0} : *found.front().change;
  };
  EXPECT_EQ(change(Rectangle(-30, 0, 0, 22)).value, std::string("the outer diameter"));
  const check::Change outer = change(Rectangle(-30, 0, 0, 22));
  EXPECT_NEAR(outer.to, 44, 1e-9);
  Spoilt().billet.outerDiameter = outer.to;
  EXPECT_THAT(Rules(), testing::Not(testing::Contains("EQ-301 " + Place())));
  Spoilt().billet.outerDiameter = 42;
  const check::Change front = change(Rectangle(-30, 0, 3, 20));
  EXPECT_EQ(front.value, std::string("the front allowance"));
  Spoilt().billet.frontAllowance = front.to;
  EXPECT_THAT(Rules(), IsEmpty());
  Spoilt().billet.innerDiameter = 20;
  const check::Change inner = change(Rectangle(-30, 8, 0, 20));
  EXPECT_EQ(inner.value, std::string("the inner diameter"));
  Spoilt().billet.innerDiameter = inner.to;
  EXPECT_THAT(Rules(), IsEmpty());
  const check::Change rear = change(Rectangle(-101, 8, 0, 20));
  EXPECT_EQ(rear.value, std::string("the rear allowance"));
  Spoilt().billet.rearAllowance = rear.to;
  EXPECT_THAT(Rules(), IsEmpty());
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

// Half sections at even angles would pass by a rib of a degree.
TEST_P(Clashes, OfARibOfTheBilletWithTheDeviceThatHoldsIt) {
  Spoilt().clamp = {"Collet D42", kCollet};
  Spoilt().jaw = {};
  AddRibbed("ribbed", Rectangle(-100, 0, 2, 20.9), Rectangle(-70, 10, -60, 21.5), 33.1, 1);
  UseSolid("ribbed", 100, 42);
  ASSERT_THAT(Rules(), ElementsAre("EQ-203 " + Place()));
  EXPECT_NEAR(ValueOf(Found().front(), "overlap"), 0.5, 0.1);
  AddRibbed("ribbed", Rectangle(-100, 0, 2, 20.9), Rectangle(-70, 10, -60, 21.04), 33.1, 1);
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(Clashes, OfARibOfTheFinishedPartThatReachesOutOfTheBillet) {
  AddRibbed("part", Rectangle(-30, 0, 0, 20.9), Rectangle(-20, 10, -10, 22), 33.1, 1);
  Spoilt().finishPart = {
      .type = scene::finish_part_type::kSolid, .outside = {}, .inside = {}, .solid = "part"};
  ASSERT_THAT(Rules(), ElementsAre("EQ-301 " + Place()));
  EXPECT_NEAR(ValueOf(Found().front(), "overlap"), 1, 0.1);
  EXPECT_GT(ValueOf(Found().front(), "volume"), 1);
  AddRibbed("part", Rectangle(-30, 0, 0, 20.9), Rectangle(-20, 10, -10, 21), 33.1, 1);
  EXPECT_THAT(Rules(), IsEmpty());
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
  ASSERT_TRUE(Found().front().change);
  EXPECT_NEAR(Found().front().change->to, 160, 1e-6);
  equipment.spindles[1].origin = Found().front().change->to;
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_F(BothSides, CutIntoTheSteadyRest) {
  // The steady rest is 40 mm wide; the jaws of the sub spindle reach 62 mm over its origin.
  equipment.spindles[0].clampingOut = 2;
  equipment.spindles[0].jaw = {};
  equipment.spindles[0].clamp = {};
  equipment.spindles[1].billet = {};
  equipment.spindles[1].clampingOut = 0;
  equipment.usesSteadyRest = true;
  const auto sides = [&](double gap) {
    equipment.spindles[1].origin = 100 + gap;
    std::vector<std::string> bodies;
    for (const check::Finding& finding : Found()) {
      if (finding.rule->id == "EQ-205") bodies = finding.bodies;
    }
    return bodies;
  };
  double beyond = 0;
  const scene::Scene scene = Scene();
  for (const scene::SceneBody& body : scene.bodies) {
    if (body.name != "steady rest") continue;
    beyond = body.placement.Transform(geometry::Point3d(20, 0, 0)).x - 100;
  }
  ASSERT_GT(beyond, 0);
  EXPECT_THAT(sides(62 + beyond + 0.1), IsEmpty());
  EXPECT_THAT(sides(62 + beyond - 1), ElementsAre("steady rest", "sub jaw 1"));
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

TEST_F(CenterRules, AreTheSameForABilletThatIsASolid) {
  const auto use = [&](double radius, double depth, double outside) {
    Bore(radius, depth, outside);
    solids.clear();
    AddSolid("bored", figures.at("bored"));
    equipment.spindles[0].billet = {.type = scene::billet_type::kSolid,
                                    .partLength = 100,
                                    .clampDiameter = 2 * outside,
                                    .solid = "bored"};
  };
  use(5, 30, 21);
  EXPECT_THAT(Rules(), IsEmpty());
  use(5, 4, 21);
  ASSERT_THAT(Rules(), ElementsAre("EQ-206 center"));
  EXPECT_GT(ValueOf(Found().front(), "overlap"), 1);
  use(25, 30, 30);
  ASSERT_THAT(Rules(), ElementsAre("EQ-206 center"));
  EXPECT_GT(ValueOf(Found().front(), "gap"), 1);
}

// The part has no corner that is nearer to the axis than the center's outside.
TEST_F(CenterRules, FindACenterInTheMiddleOfAPartThatIsASolid) {
  AddSolid("part", Rectangle(-100, 0, 20, 70));
  equipment.spindles[0].finishPart = {
      .type = scene::finish_part_type::kSolid, .outside = {}, .inside = {}, .solid = "part"};
  EXPECT_THAT(Rules(), testing::Contains("EQ-204 center"));
}

TEST_F(CenterRules, FindACenterThatMeetsTheJaws) {
  // Without a clamping out the rear end is on the face, and the jaws are 62 mm long.
  equipment.spindles[0].clampingOut = 0;
  equipment.spindles[0].billet.outerDiameter = equipment.spindles[0].billet.clampDiameter = 20;
  equipment.spindles[0].billet.partLength = 60;
  EXPECT_THAT(Rules(), testing::Not(testing::Contains("EQ-205 center")));
  equipment.spindles[0].billet.partLength = 20;
  EXPECT_THAT(Rules(), testing::Contains("EQ-205 center"));
}

TEST_F(CenterRules, FindACenterInTheFinishedPart) {
  Bore(5, 30);
  figures.emplace("part", Rectangle(-30, 0, 0, 20));
  equipment.spindles[0].finishPart = {.type = scene::finish_part_type::kFigures, .outside = "part"};
  EXPECT_THAT(Rules(), ElementsAre("EQ-204 center", "EQ-301 main"));
}

}  // namespace
}  // namespace vanzet::test

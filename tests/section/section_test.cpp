#include "section/section.h"

#include "section_fixture.h"
#include "store/billet_records.h"
#include "store/datum_records.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kExact = 1e-9;

geometry::Kurve Through(const std::vector<geometry::Point>& points) {
  geometry::Kurve curve;
  curve.Start(points.front());
  for (std::size_t i = 1; i < points.size(); ++i) curve.Add(points[i]);
  return curve;
}

TEST_F(SectionTest, OfAnEmptyDefinitionIsEmpty) {
  const section::Section cut = Cut();
  EXPECT_THAT(NamesOf(cut), IsEmpty());
  EXPECT_THAT(cut.dimensions, IsEmpty());
  EXPECT_THAT(cut.datums, IsEmpty());
}

TEST_F(SectionTest, HasTheTrueOutlinesOfDevicesAndTheUprightJaw) {
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 60, 120);
  PutDatum({.outMain = 90, .originMain = 10});
  const section::Section cut = Cut();
  EXPECT_THAT(NamesOf(cut), ElementsAre("main chuck", "main jaw 1", "main billet"));
  // The jaws' fronts are 90 behind the origin, the jaw is 50 long, and so the face of the chuck is at -130.
  const auto chuck = BoxOf(cut, "main chuck"), jaw = BoxOf(cut, "main jaw 1");
  EXPECT_NEAR(chuck.min.x, -220, kExact);
  EXPECT_NEAR(chuck.max.x, -130, kExact);
  EXPECT_NEAR(chuck.min.y, 22.5, kExact);
  EXPECT_NEAR(chuck.max.y, 80, kExact);
  EXPECT_NEAR(Find(cut, "main chuck").region.Area(), 90 * 57.5, 1e-6);
  EXPECT_NEAR(jaw.min.x, -130, 1e-3);
  EXPECT_NEAR(jaw.max.x, -80, 1e-3);
  EXPECT_NEAR(jaw.min.y, 30, 1e-3);
  EXPECT_NEAR(jaw.max.y, 72, 1e-3);
  EXPECT_NEAR(Find(cut, "main billet").region.Area(), 120 * 30, 1e-6);
}

TEST_F(SectionTest, MeasuresWhatASetUpNeeds) {
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 60, 140, 20);
  PutDatum({.outMain = 90, .originMain = 10});
  const section::Section cut = Cut();
  EXPECT_NEAR(ValueOf(cut, "Clamp diameter"), 60, kExact);
  EXPECT_NEAR(ValueOf(cut, "Billet diameter"), 60, kExact);
  EXPECT_NEAR(ValueOf(cut, "Bore"), 20, kExact);
  EXPECT_NEAR(ValueOf(cut, "Billet length"), 140, kExact);
  EXPECT_NEAR(ValueOf(cut, "Clamping out"), 90, kExact);
  EXPECT_NEAR(ValueOf(cut, "Stick-out"), 90, 1e-3);
  EXPECT_NEAR(ValueOf(cut, "Datum"), 10, kExact);
  EXPECT_EQ(Measure(cut, "Part length"), nullptr) << "it is the length of the billet";
  // The low step of the jaw, from -130 to -112, holds the billet.
  EXPECT_NEAR(ValueOf(cut, "Clamped length"), 18, 1e-3);
  ASSERT_EQ(cut.datums.size(), 1U);
  EXPECT_NEAR(cut.datums[0].place.x, 10, kExact);
}

TEST_F(SectionTest, TellsThePartFromABarWithAllowances) {
  BilletRecord billet;
  billet.type = billet_type::kCylindric;
  billet.outerDiameter = 40;
  billet.partLength = 50;
  billet.frontAllowance = 2;
  billet.barLength = 300;
  billet.drawOnScreen = true;
  WriteBillet(0, 0, billet);
  const section::Section cut = Cut();
  EXPECT_NEAR(ValueOf(cut, "Billet length"), 300, kExact);
  EXPECT_NEAR(ValueOf(cut, "Part length"), 50, kExact);
  EXPECT_NEAR(BoxOf(cut, "main billet").max.x, 2, kExact);
}

TEST_F(SectionTest, MirrorsTheSubSpindle) {
  DefineTwoSpindles();
  const section::Section cut = Cut();
  const scene::Scene shown = Shown();
  const geometry::Box main = BoxOf(cut, "main billet"), sub = BoxOf(cut, "sub billet");
  const geometry::Box collet = BoxOf(cut, "sub collet");
  EXPECT_LT(main.max.x, sub.max.x);
  EXPECT_GT(collet.max.x, sub.max.x) << "the sub spindle is on the right";
  for (const section::SectionBody& body : cut.bodies) {
    const auto space = SceneTest::BoxOf(shown, body.name);
    const geometry::Box box = section::BoxOf(body.region);
    EXPECT_NEAR(box.min.x, space.min.x, 0.01) << body.name;
    EXPECT_NEAR(box.max.x, space.max.x, 0.01) << body.name;
    EXPECT_NEAR(box.max.y, space.max.y, 0.06) << body.name;
    EXPECT_GT(body.region.Area(), 0) << body.name;
    EXPECT_GE(box.min.y, -kExact) << body.name;
  }
  const section::Dimension* const out = Measure(cut, "Clamping out", true);
  ASSERT_NE(out, nullptr);
  EXPECT_NEAR(std::max(out->from.x, out->to.x), section::BoxOf(Find(cut, "sub collet").region).min.x, 0.3);
}

TEST_F(SectionTest, ShowsTheCenterInItsHole) {
  DefineWithCenter();
  const section::Section cut = Cut();
  const geometry::Box center = BoxOf(cut, "center"), billet = BoxOf(cut, "main billet");
  EXPECT_NEAR(center.min.x, billet.max.x, 1e-3);
  EXPECT_NEAR(center.min.y, 0, kExact);
}

TEST_F(SectionTest, KeepsArcsOfFiguresAndTakesTheBoreAway) {
  geometry::Kurve profile;
  profile.Start({-40, 0});
  profile.Add({-40, 20});
  profile.Add({-20, 20});
  profile.Add(geometry::CW, {0, 0}, {-20, 0});
  profile.Add({-40, 0});
  figures["profile"] = {profile};
  figures["bore"] = {Through({{-40, 5}, {-10, 5}, {-10, 0}})};
  BilletRecord billet;
  billet.type = billet_type::kFromFigures;
  billet.partLength = 40;
  billet.figureOutside = "profile";
  billet.figureInside = "bore";
  WriteBillet(0, 0, billet);
  const section::Section cut = Cut();
  const geometry::Region& region = Find(cut, "main billet").region;
  EXPECT_NEAR(region.Area(), 20 * 20 + std::numbers::pi * 100 - 30 * 5, 1e-6);
  int arcs = 0;
  for (const auto& loop : region.loops) {
    for (const auto& span : loop.spans) arcs += span.dir == geometry::LINEAR ? 0 : 1;
  }
  EXPECT_EQ(arcs, 1);
  EXPECT_NEAR(BoxOf(cut, "main billet").max.x, 0, kExact);
}

TEST_F(SectionTest, CutsTheSteadyRestThroughItsUprightArm) {
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 60, 400);
  PutDatum({.outMain = 300});
  WriteBezel(0, {1});
  const geometry::Box rest = BoxOf(Cut(), "steady rest");
  EXPECT_NEAR(rest.Mid().x, -100, 1e-3);
  EXPECT_NEAR(rest.min.y, 30, 0.06) << "the end of its arm is on the billet";
}

TEST_F(SectionTest, LeavesOutABilletThatIsNotToBeDrawn) {
  BilletRecord billet;
  billet.type = billet_type::kCylindric;
  billet.outerDiameter = billet.partLength = 50;
  billet.drawOnScreen = false;
  WriteBillet(0, 0, billet);
  EXPECT_THAT(NamesOf(Cut()), IsEmpty());
}

}  // namespace
}  // namespace vanzet::test

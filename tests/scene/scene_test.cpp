#include "scene/scene.h"

#include "devices/kinds.h"
#include "modeller/mesh.h"
#include "scene/scene_fixture.h"
#include "scene/steady_rest.h"
#include "store/billet_records.h"
#include "store/clamp_records.h"
#include "store/datum_records.h"
#include "store/finish_part_records.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr double kNear = 0.06;  // millimetres: the facets of round things

class Scenes : public SceneTest {
 protected:
  static const scene::SceneBody& Find(const scene::Scene& shown, const std::string& name) {
    return *std::ranges::find(shown.bodies, name, &scene::SceneBody::name);
  }

  static geometry::Kurve Through(const std::vector<geometry::Point>& points) {
    geometry::Kurve curve;
    curve.Start(points.front());
    for (std::size_t i = 1; i < points.size(); ++i) curve.Add(points[i]);
    return curve;
  }
};

TEST_F(Scenes, OfAnEmptyDefinitionAreEmpty) {
  EXPECT_THAT(NamesOf(Shown()), IsEmpty());
}

TEST_F(Scenes, StandTheJawsOnTheFaceAroundTheBillet) {
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 60, 120);
  PutDatum({.outMain = 90, .originMain = 10});
  const scene::Scene shown = Shown();
  EXPECT_THAT(NamesOf(shown),
              ElementsAre("main chuck", "main jaw 1", "main jaw 2", "main jaw 3", "main billet"));
  // The billet's front is at the origin translation; it leaves the jaws, which are 50 long, 90 behind that.
  const auto billet = BoxOf(shown, "main billet");
  EXPECT_NEAR(billet.max.x, 10, 1e-3);
  EXPECT_NEAR(billet.min.x, -110, 1e-3);
  const auto jaw = BoxOf(shown, "main jaw 1");
  EXPECT_NEAR(jaw.max.x, -80, 1e-3);
  EXPECT_NEAR(jaw.min.x, -130, 1e-3);
  EXPECT_NEAR(jaw.min.y, 30, 1e-3) << "the first jaw stands upright on the billet";
  EXPECT_NEAR(jaw.max.y, 72, 1e-3);
  EXPECT_NEAR(BoxOf(shown, "main chuck").max.x, -130, 1e-3);
  EXPECT_NEAR(BoxOf(shown, "main chuck").min.x, -220, 1e-3);
  // A third of a turn further on the next one: y is the cosine of that.
  EXPECT_NEAR(BoxOf(shown, "main jaw 2").max.y, -15 + 12 * std::sqrt(0.75), 1e-3);
}

TEST_F(Scenes, HaveAsManyJawsAsTheOptionsSay) {
  Clamp(0, kChuck, kHardJaw, 6);
  EXPECT_EQ(Shown().bodies.size(), 7U);
}

TEST_F(Scenes, HoldABoreFromInside) {
  Clamp(0, kChuck, kHardJaw);
  WriteClampOptions(0, 0, true, 3);
  PutBillet(0, 200, 100, 160);
  EXPECT_NEAR(BoxOf(Shown(), "main jaw 1").max.y, 80, 1e-3);
}

TEST_F(Scenes, StandABilletWithoutClampingOutOnTheFace) {
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 60, 120);
  EXPECT_NEAR(BoxOf(Shown(), "main chuck").max.x, -120, 1e-3);
}

TEST_F(Scenes, HideABilletThatIsNotToBeDrawn) {
  PutBillet(0, 60, 120);
  EXPECT_TRUE(Shown().bodies.at(0).isShown);
  BilletRecord billet;
  billet.type = billet_type::kCylindric;
  billet.outerDiameter = billet.partLength = 50;
  billet.drawOnScreen = false;
  WriteBillet(0, 0, billet);
  EXPECT_FALSE(Shown().bodies.at(0).isShown);
}

TEST_F(Scenes, HaveABarWithItsBore) {
  BilletRecord billet;
  billet.type = billet_type::kCylindric;
  billet.outerDiameter = 40;
  billet.innerDiameter = 20;
  billet.partLength = 50;
  billet.frontAllowance = 2;
  billet.barLength = 300;
  billet.drawOnScreen = true;
  WriteBillet(0, 0, billet);
  const scene::Scene shown = Shown();
  EXPECT_NEAR(BoxOf(shown, "main billet").max.x, 2, 1e-3);
  EXPECT_NEAR(BoxOf(shown, "main billet").min.x, -298, 1e-3);
  const double volume = std::numbers::pi * (400 - 100) * 300;
  EXPECT_NEAR(modeller::MeasuresOf(shown.bodies[0].body)->volume, volume, volume * 1e-6);
}

TEST_F(Scenes, SpinFiguresAndShowTheFinishPartThroughTheBillet) {
  figures["profile"] = {Through({{-100, 0}, {-100, 20}, {0, 20}, {0, 0}, {-100, 0}})};
  figures["outside"] = {Through({{0, 18}, {-80, 18}})};
  figures["bore"] = {Through({{-80, 5}, {0, 5}})};
  BilletRecord billet;
  billet.type = billet_type::kFromFigures;
  billet.partLength = 100;
  billet.figureOutside = "profile";
  WriteBillet(0, 0, billet);
  WriteFinishPart(0, 0, {finish_part_type::kFromFigures, "outside", "bore", ""});
  panel.lines.clear();  // the drawing has no such figure
  const scene::Scene shown = Shown();
  ASSERT_THAT(NamesOf(shown), ElementsAre("main billet", "main finish part"));
  EXPECT_TRUE(shown.bodies[0].isSeenThrough);
  EXPECT_FALSE(shown.bodies[1].isSeenThrough);
  EXPECT_NEAR(modeller::MeasuresOf(shown.bodies[0].body)->volume, std::numbers::pi * 400 * 100, 1);
  EXPECT_NEAR(modeller::MeasuresOf(shown.bodies[1].body)->volume, std::numbers::pi * (324 - 25) * 80, 1);
}

TEST_F(Scenes, KeepTheOthersWhenABilletCannotBeMade) {
  Clamp(0, kChuck, kHardJaw);
  BilletRecord billet;
  billet.type = billet_type::kFromSolid;
  billet.solidName = "casting";
  WriteBillet(0, 1, billet);
  const scene::Scene shown = Shown();
  EXPECT_THAT(NamesOf(shown), ElementsAre("main chuck", "main jaw 1", "main jaw 2", "main jaw 3"));
  ASSERT_EQ(shown.missing.size(), 1U);
  EXPECT_EQ(shown.missing[0].fault.text, "the billet of the sub spindle: casting does not exist");
}

TEST_F(Scenes, LeaveACenterAtItsPlaceWhenTheBilletIsMissing) {
  BilletRecord billet;
  billet.type = billet_type::kFromSolid;
  billet.solidName = "casting";
  WriteBillet(0, 0, billet);
  Clamp(0, kChuck, kHardJaw);
  PutCenter(kCenter, true);
  PutDatum({.outMain = 90, .originMain = 10});
  EXPECT_NEAR(BoxOf(Shown(), "center").min.x, 10, 1e-3);
}

TEST_F(Scenes, EndWithWhatTheSystemRefuses) {
  BilletRecord billet;
  billet.type = billet_type::kFromSolid;
  billet.solidName = "casting";
  WriteBillet(0, 0, billet);
  bodyFault = FaultKind::kSystem;
  const auto made = Try();
  ASSERT_FALSE(made);
  EXPECT_EQ(made.fault().text, "the billet of the main spindle: casting does not exist");
}

TEST_F(Scenes, HaveTheSteadyRestThatIsUsed) {
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 60, 400);
  PutDatum({.outMain = 300});
  EXPECT_THAT(NamesOf(Shown()), Not(Contains("steady rest")));
  WriteBezel(0, {1});
  const auto box = BoxOf(Shown(), "steady rest");
  // Two thirds of the free 300 mm away from the jaws, whose fronts are at -300.
  EXPECT_NEAR(box.Mid().x, -100, 1e-3);
  EXPECT_GT(box.max.y, 60);
  EXPECT_NEAR(box.max.y, -box.min.y, 1e-3) << "a ring about the axis";
}

TEST_F(Scenes, HaveTheSteadyRestWhereTheMachineHasItIfTheBilletIsFreeThere) {
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 60, 400);
  PutDatum({.outMain = 300, .originMain = 350});
  WriteBezel(0, {1});
  steadyRest = {.largestDiameter = 165, .rollDiameter = 40, .position = 310};
  EXPECT_NEAR(BoxOf(Shown(), "steady rest").Mid().x, 310, 1e-3);
  steadyRest.position = 20;  // in the chuck
  EXPECT_NEAR(BoxOf(Shown(), "steady rest").Mid().x, 250, 1e-3);
}

TEST_F(Scenes, HaveTheSteadyRestOutsideOfABilletThatIsHeldInItsBore) {
  Clamp(0, kChuck, kHardJaw);
  WriteClampOptions(0, 0, true, 3);
  PutBillet(0, 200, 400, 160);
  PutDatum({.outMain = 300});
  WriteBezel(0, {1});
  const scene::Scene shown = Shown();
  const auto mesh = modeller::MeshOf(Find(shown, "steady rest").body, {});
  ASSERT_TRUE(mesh);
  double least = 1e9;
  for (const auto& point : mesh->points) least = std::min(least, std::hypot(point.y, point.z));
  EXPECT_NEAR(least, 100, 0.05);
}

TEST_F(Scenes, HaveThreeArmsFromTheSteadyRestToTheBillet) {
  const auto body = scene::SteadyRestBody({.largestDiameter = 100, .rollDiameter = 20}, 30);
  ASSERT_TRUE(body);
  const auto mesh = modeller::MeshOf(*body, {});
  ASSERT_TRUE(mesh);
  EXPECT_TRUE(modeller::IsClosed(*mesh));
  double least = 1e9;
  for (const auto& point : mesh->points) least = std::min(least, std::hypot(point.y, point.z));
  EXPECT_NEAR(least, 30, 0.05);
  for (const double degrees : {0.0, 120.0, 240.0}) {
    const double angle = degrees * std::numbers::pi / 180;
    const bool touches = std::ranges::any_of(mesh->points, [&](const geometry::Point3d& point) {
      return std::hypot(point.y - 30 * std::cos(angle), point.z - 30 * std::sin(angle)) < 1.5;
    });
    EXPECT_TRUE(touches) << degrees;
  }
}

TEST_F(Scenes, FaceTheSpindlesAtTheDistanceOfTheirOrigins) {
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 60, 120);
  Clamp(1, kCollet, {});
  PutBillet(1, 30, 60);
  PutDatum({.outMain = 90, .outSub = 30, .originMain = 10, .originSub = 180});
  const scene::Scene shown = Shown();
  EXPECT_NEAR(BoxOf(shown, "main billet").max.x, 10, 1e-3);
  EXPECT_NEAR(BoxOf(shown, "sub billet").min.x, 180, 1e-3);
  EXPECT_NEAR(BoxOf(shown, "sub billet").max.x, 240, 1e-3);
  EXPECT_GT(BoxOf(shown, "sub collet").max.x, 240);
  EXPECT_NEAR(BoxOf(shown, "sub collet").min.x, 210, 1e-3) << "30 of the billet stand out of the collet";
}

TEST_F(Scenes, KeepSpindlesWithoutADistanceApart) {
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 60, 120);
  Clamp(1, kCollet, {});
  PutBillet(1, 30, 60);
  const scene::Scene shown = Shown();
  EXPECT_NEAR(BoxOf(shown, "sub billet").min.x - BoxOf(shown, "main billet").max.x, 50, 1e-3);
}

TEST_F(Scenes, PutACenterAgainstTheBilletWithAndWithoutASubSpindle) {
  for (const bool hasSubSpindle : {true, false}) {
    MakeDefinition();
    Clamp(0, kChuck, kHardJaw);
    PutBillet(0, 50, 200);
    PutCenter(kCenter, hasSubSpindle);
    const auto box = BoxOf(Shown(), "center");
    EXPECT_NEAR(box.min.x, 0, 1e-3);
    EXPECT_NEAR(box.max.x, kCenter.A, 1e-3);
  }
}

TEST_F(Scenes, SeatACenterInTheBoreOfItsBillet) {
  // The point's cone of 60 degrees has the radius 10 at the depth 10 / tan(30 degrees).
  for (const auto& [bore, depth] : {std::pair{0.0, 0.0}, {20.0, 10 / std::tan(std::numbers::pi / 6)}}) {
    MakeDefinition();
    Clamp(0, kChuck, kHardJaw);
    PutBillet(0, 50, 200, bore);
    PutCenter(kCenter, true);
    EXPECT_NEAR(BoxOf(Shown(), "center").min.x, -depth, 0.02) << bore;
  }
}

TEST_F(Scenes, KeepACenterInFrontOfABoreThatIsWiderThanIt) {
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 150, 200, 100);
  PutCenter(kCenter, true);
  EXPECT_NEAR(BoxOf(Shown(), "center").min.x, 0, 1e-3);
}

TEST_F(Scenes, LeaveOutTheJawThatStandsByWhereNoneIsDefined) {
  Clamp(0, kChuck, {});
  EXPECT_FALSE(Stored().Items(6, 1).empty()) << "the definition has it for the simulation";
  EXPECT_THAT(NamesOf(Shown()), ElementsAre("main chuck"));
}

TEST_F(Scenes, NameADeviceByItsKind) {
  const std::pair<const devices::Kind&, const char*> names[] = {{devices::kChuck, "chuck"},
                                                                {devices::kCollet, "collet"},
                                                                {devices::kMandrel, "mandrel"},
                                                                {devices::kFaceDriver, "face driver"}};
  for (const auto& [kind, name] : names) {
    MakeDefinition();
    Clamp(0, kind.devices.front().example, {});
    Clamp(1, kind.devices.front().example, {});
    EXPECT_THAT(NamesOf(Shown()), ElementsAre(std::string("main ") + name, std::string("sub ") + name));
  }
}

TEST_F(Scenes, NameADeviceWithoutValuesAClampDevice) {
  Clamp(0, kChuck, {});
  WriteClampDevice(0, 0, "", {});
  EXPECT_THAT(NamesOf(Shown()), ElementsAre("main clamp device"));
}

TEST_F(Scenes, MarkTheDatum) {
  Clamp(0, kChuck, kHardJaw);
  PutBillet(0, 60, 120);
  EXPECT_THAT(Shown().marks, IsEmpty());
  PutDatum({.outMain = 90, .originMain = 10});
  const auto marks = Shown().marks;
  ASSERT_EQ(marks.size(), 5U);
  EXPECT_EQ(marks.front().points.front().x, -5) << "a cross at the origin translation";
  EXPECT_EQ(marks.back().points.front().x, -80) << "a circle where the billet sticks out";
}

TEST_F(Scenes, MakeDevicesOfValuesAnewWithTheirTrueSurfaces) {
  Clamp(0, kChuck, kHardJaw);
  const scene::Scene shown = Shown();
  for (const char* name : {"main chuck", "main jaw 3"}) {
    const scene::SceneBody& body = Find(shown, name);
    ASSERT_TRUE(body.exact) << name;
    EXPECT_FALSE(body.exact->IsStl());
    const double facets = modeller::MeasuresOf(body.body)->volume;
    EXPECT_NEAR(modeller::MeasuresOf(*body.exact)->volume, facets, facets * 0.01) << name;
  }
}

TEST_F(Scenes, TrustTheTextWhereTheValuesDoNotAgreeWithIt) {
  Clamp(0, kChuck, kHardJaw);
  DeviceParams other = kChuck;
  other.B = 70;
  WriteClampDevice(0, 0, "another", other);
  EXPECT_FALSE(Find(Shown(), "main chuck").exact);
}

}  // namespace
}  // namespace vanzet::test

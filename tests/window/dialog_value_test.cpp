#include "window/checks/dialog_value.h"

#include <gmock/gmock.h>

#include "devices/kinds.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using enum show::Part;
using scene::Equipment;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using window::ReportedFinding;

/// A bar in a chuck with jaws on both spindles, before a center.
Equipment Bars() {
  Equipment equipment;
  for (scene::Spindle& spindle : equipment.spindles) {
    spindle.clamp.params.type = 1;
    spindle.jaw.params.type = 9;
    spindle.billet.type = scene::billet_type::kCylinder;
    spindle.finishPart.type = scene::finish_part_type::kFigures;
  }
  equipment.center.params.type = 13;
  return equipment;
}

Equipment With(void (*change)(scene::Spindle& spindle)) {
  Equipment equipment = Bars();
  for (scene::Spindle& spindle : equipment.spindles) change(spindle);
  return equipment;
}

ReportedFinding Finding(const char* rule, bool isSub, show::Part part = kNone, const char* mendedBy = "") {
  ReportedFinding finding = {.rule = rule, .where = isSub ? check::Where::kSub : check::Where::kMain};
  finding.part = part;
  finding.mendedBy = mendedBy;
  return finding;
}

class DialogValues : public testing::TestWithParam<bool> {
 protected:
  static window::DialogValue Of(const Equipment& equipment, const char* rule, show::Part part = kNone,
                                const char* mendedBy = "") {
    return DialogValueOf(Finding(rule, GetParam(), part, mendedBy), equipment);
  }
  static std::int32_t Main(std::int32_t main, std::int32_t sub) { return GetParam() ? sub : main; }
};
INSTANTIATE_TEST_SUITE_P(Spindles, DialogValues, testing::Bool(),
                         [](const auto& each) { return each.param ? "Sub" : "Main"; });

TEST_P(DialogValues, AreOfTheDeviceThatIsMeant) {
  EXPECT_EQ(Of(Bars(), "EQ-102", kClamp).node, Main(node::kChuckMain, node::kChuckSub));
  EXPECT_EQ(Of(Bars(), "EQ-102", kJaw).node, Main(node::kJawMain, node::kJawSub));
  EXPECT_EQ(Of(Bars(), "EQ-102", kCenter).node, node::kCenter);
  EXPECT_THAT(Of(Bars(), "EQ-103", kJaw).fields, ElementsAre(control::kDeviceList));
  const Equipment collets = With([](scene::Spindle& spindle) { spindle.clamp.params.type = 2; });
  EXPECT_EQ(Of(collets, "EQ-401", kClamp).node, Main(node::kColletMain, node::kColletSub));
}

TEST_P(DialogValues, AreTheFileOfAnOwnDevice) {
  const Equipment own =
      With([](scene::Spindle& spindle) { spindle.jaw.params.type = devices::OwnCodeOf(9); });
  EXPECT_THAT(Of(own, "EQ-104", kJaw).fields, ElementsAre(control::kPath));
  EXPECT_THAT(Of(own, "EQ-104", kClamp).fields, ElementsAre(control::kDeviceList));
}

TEST_P(DialogValues, AreOfAChuckWhereNothingHoldsTheBillet) {
  const Equipment bare = With([](scene::Spindle& spindle) { spindle.clamp = {}; });
  EXPECT_EQ(Of(bare, "EQ-101", kClamp).node, Main(node::kChuckMain, node::kChuckSub));
}

TEST_P(DialogValues, AreTheDiameterThatTheJawsHold) {
  const Equipment inside = With([](scene::Spindle& spindle) { spindle.clampsInside = true; });
  EXPECT_THAT(Of(Bars(), "EQ-201").fields, Contains(control::kOuterDiameter));
  EXPECT_THAT(Of(inside, "EQ-202").fields, Contains(control::kInnerDiameter));
  for (const char* const rule : {"EQ-201", "EQ-202"})
    EXPECT_EQ(Of(inside, rule, kNone, "clamp_diameter").fields.front(), control::kClampDiameter);
}

TEST_P(DialogValues, AreTheShapeOfTheWork) {
  const Equipment solids =
      With([](scene::Spindle& spindle) { spindle.finishPart.type = scene::finish_part_type::kSolid; });
  for (const char* const rule : {"EQ-204", "EQ-301"}) {
    const auto figure = Of(Bars(), rule), solid = Of(solids, rule);
    EXPECT_EQ(figure.node, Main(node::kFinishPartFromFigureMain, node::kFinishPartFromFigureSub));
    EXPECT_EQ(solid.node, Main(node::kFinishPartFromSolidMain, node::kFinishPartFromSolidSub));
    EXPECT_THAT(solid.fields, IsSupersetOf({control::kFigureOutside, control::kSolid}));
  }
}

TEST_P(DialogValues, AreTheOneByWhichTheFindingVanishes) {
  const std::int32_t bar = Main(node::kBilletCylindricMain, node::kBilletCylindricSub);
  const auto outer = Of(Bars(), "EQ-301", kNone, "outer_diameter");
  EXPECT_EQ(outer.node, bar);
  EXPECT_EQ(outer.fields.front(), control::kOuterDiameter);
  EXPECT_EQ(Of(Bars(), "EQ-402", kClamp, "bar_length").node, bar);
  const auto out = Of(Bars(), "EQ-203", kNone, "clamping_out");
  EXPECT_EQ(out.node, node::kDatum);
  EXPECT_THAT(out.fields, ElementsAre(Main(control::kClampingOutMain, control::kClampingOutSub)));
}

TEST(DialogValue, IsOfTheSideOfTheBodiesWhereTheDatumIsMeant) {
  for (const char* const body : {"main billet", "sub billet"}) {
    ReportedFinding finding = {.rule = "EQ-304", .where = check::Where::kDatum};
    finding.bodies << body;
    const auto value = DialogValueOf(finding, Bars());
    EXPECT_EQ(value.node, node::kDatum);
    EXPECT_THAT(value.fields, ElementsAre(*body == 's' ? control::kOriginSub : control::kOriginMain));
  }
}

TEST(DialogValue, IsTheDeviceWhereACenterOrTheBoxWhereASteadyRestIsMeant) {
  ReportedFinding finding = {.rule = "EQ-204", .where = check::Where::kCenter};
  EXPECT_EQ(DialogValueOf(finding, Bars()).node, node::kCenter);
  EXPECT_THAT(DialogValueOf(finding, Bars()).fields, ElementsAre(control::kDeviceList));
  finding.where = check::Where::kSteadyRest;
  EXPECT_EQ(DialogValueOf(finding, Bars()).node, node::kBezel);
  EXPECT_THAT(DialogValueOf(finding, Bars()).fields, ElementsAre(control::kUseBezel));
}

TEST(DialogValue, IsNoneOfARuleThatIsNotKnown) {
  const auto value = DialogValueOf(Finding("EQ-999", false), Bars());
  EXPECT_EQ(value.node, 0);
  EXPECT_THAT(value.fields, IsEmpty());
}

}  // namespace
}  // namespace vanzet::test

#include "modeller/spun_part.h"

#include <gmock/gmock.h>

#include "modeller/booleans.h"
#include "modeller/contours.h"
#include "modeller/solids.h"
#include "modeller/sweep.h"

namespace vanzet::modeller {
namespace {

using namespace test;

class SpunParts : public testing::Test {
 protected:
  /// The volume of the part in units of pi.
  static double Volume(const std::vector<geometry::Kurve>& outside,
                       const std::vector<geometry::Kurve>& inside) {
    const auto part = SpinPart(outside, inside);
    if (!part || !*part) {
      ADD_FAILURE() << (part ? "there is none" : part.fault().text);
      return 0;
    }
    EXPECT_TRUE(IsSound(**part));
    return Measured(**part).volume / std::numbers::pi;
  }

  static geometry::Kurve Block(double from, double to, double radius) {
    return Through({{from, 0}, {from, radius}, {to, radius}, {to, 0}, {from, 0}});
  }

  const Millimetres millimetres_;
};

TEST_F(SpunParts, OfAClosedOutsideAreItsSolid) {
  EXPECT_NEAR(Volume({Block(-50, 0, 20)}, {}), 50 * 400, 1e-6);
}

TEST_F(SpunParts, OfAnOpenProfileReachDownToTheAxisWhicheverWayItRuns) {
  const geometry::Kurve profile = Through({{-50, 20}, {-10, 20}, {0, 10}});
  const double volume = 40 * 400 + 10 * (400 + 200 + 100) / 3.0;
  EXPECT_NEAR(Volume({profile}, {}), volume, 1e-6);
  EXPECT_NEAR(Volume({Backwards(profile)}, {}), volume, 1e-6);
}

TEST_F(SpunParts, LackTheInside) {
  EXPECT_NEAR(Volume({Block(-50, 0, 20)}, {Through({{-50, 5}, {0, 5}})}), 50 * (400 - 25), 1e-6)
      << "a through bore";
  EXPECT_NEAR(Volume({Block(-50, 0, 20)}, {Through({{-30, 5}, {0, 5}})}), 50 * 400 - 30 * 25, 1e-6)
      << "a blind one";
  EXPECT_NEAR(Volume({Block(-50, 0, 20)}, {Block(-40, -10, 5), Block(-5, 5, 8)}), 50 * 400 - 30 * 25 - 5 * 64,
              1e-6)
      << "a cavity, and a recess that reaches out of the part";
}

TEST_F(SpunParts, OfSeveralHalfSectionsAreTogether) {
  EXPECT_NEAR(Volume({Block(-50, -30, 20), Block(-20, 0, 10)}, {}), 20 * 400 + 20 * 100, 1e-6);
}

TEST_F(SpunParts, OfNothingAreNothing) {
  const auto part = SpinPart({}, {Block(-50, 0, 20)});
  ASSERT_TRUE(part);
  EXPECT_FALSE(*part);
}

TEST_F(SpunParts, AreRefusedWhenNothingIsLeft) {
  const auto part = SpinPart({Block(-50, 0, 20)}, {Block(-60, 10, 30)});
  ASSERT_FALSE(part);
  EXPECT_EQ(part.fault().text, "the cut leaves nothing");
}

TEST_F(SpunParts, AreRefusedAcrossTheAxis) {
  const auto part = SpinPart({Through({{-50, -20}, {-50, 20}, {0, 20}, {0, -20}, {-50, -20}})}, {});
  ASSERT_FALSE(part);
  EXPECT_THAT(part.fault().text, testing::StartsWith("the contour crosses the axis"));
}

TEST_F(SpunParts, AreNotCutOfFacets) {
  const auto solid = Spin(Block(-50, 0, 20), {{0, 0, 0}, {1, 0, 0}}, 360);
  ASSERT_TRUE(solid);
  const auto cut = CutBodies({BodyOf(solid->shape().shape, true)}, {*solid});
  ASSERT_FALSE(cut);
  EXPECT_EQ(cut.fault().text, "a body of facets cannot be cut");
}

}  // namespace
}  // namespace vanzet::modeller

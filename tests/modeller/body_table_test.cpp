#include "modeller/body_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "modeller/solids.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

class BodyTables : public testing::Test {
 protected:
  /// A brick with a corner at the origin.
  std::int32_t Add(const std::string& name = "") { return Get(table_.Add(BodyOf(Brick(10, 20, 30)), name)); }

  void ExpectBox(std::int32_t number, const std::array<double, 6>& box) {
    EXPECT_THAT(Box(Get(table_.Get(number))), Pointwise(DoubleNear(1e-6), box));
  }

  BodyTable table_;
};

TEST_F(BodyTables, HaveABodyMadeOnceForARecipe) {
  int times = 0;
  const auto brick = [&]() -> Result<Body> { return ++times, BodyOf(Brick(1, 2, 3)); };
  const auto recipe = [](char kind, double number) {
    Recipe made(kind);
    made.Add({number, 2});
    return made;
  };
  const Body first = Get(table_.MakeOnce(recipe('e', 1), brick));
  EXPECT_EQ(&Get(table_.MakeOnce(recipe('e', 1), brick)).shape(), &first.shape());
  EXPECT_EQ(times, 1);
  for (const Recipe& other : {recipe('s', 1), recipe('e', 1 + 1e-15), recipe('e', std::nan(""))}) {
    EXPECT_NE(&Get(table_.MakeOnce(other, brick)).shape(), &first.shape());
  }
}

TEST_F(BodyTables, TryAgainAfterARecipeThatFailed) {
  int times = 0;
  const auto fail = [&]() -> Result<Body> { return ++times, Fault{"out of memory"}; };
  EXPECT_FALSE(table_.MakeOnce(Recipe('s'), fail));
  EXPECT_FALSE(table_.MakeOnce(Recipe('s'), fail));
  EXPECT_EQ(times, 2);
}

TEST_F(BodyTables, NumberFromOneAndNeverTwice) {
  EXPECT_EQ(Add(), 1);
  EXPECT_EQ(Add(), 2);
  EXPECT_TRUE(table_.Delete(2));
  EXPECT_EQ(Add(), 3);
  EXPECT_THAT(table_.Numbers(), ElementsAre(1, 3));
}

TEST_F(BodyTables, KnowNamesWhateverTheirCase) {
  Add();
  const std::int32_t casting = Add("Casting");
  EXPECT_EQ(table_.NumberOf("casting"), casting);
  EXPECT_EQ(table_.NameOf(casting), "Casting");
  EXPECT_EQ(table_.NumberOf("other"), 0);
  EXPECT_EQ(table_.NumberOf(""), 0);
  EXPECT_EQ(table_.NameOf(1), "");
  EXPECT_EQ(table_.NameOf(77), "");
  EXPECT_EQ(Told(table_.Add(BodyOf(Brick(1, 1, 1)), "CASTING")), "body 2 already has the name 'CASTING'");
  EXPECT_EQ(Add(), 3) << "a refused body takes no number";
}

TEST_F(BodyTables, ForgetTheNameOfADeletedBody) {
  EXPECT_TRUE(table_.Delete(Add("casting")));
  EXPECT_EQ(table_.NumberOf("casting"), 0);
  EXPECT_EQ(Add("casting"), 2);
}

TEST_F(BodyTables, MoveABody) {
  EXPECT_TRUE(table_.Move(Add(), {1, 2, -3}));
  ExpectBox(1, {1, 2, -3, 11, 22, 27});
  EXPECT_TRUE(table_.Move(1, {-1, 0, 0}));
  ExpectBox(1, {0, 2, -3, 10, 22, 27});
}

TEST_F(BodyTables, TurnABodyByTheRightHandsRule) {
  EXPECT_TRUE(table_.Turn(Add(), {{0, 0, 0}, {1, 0, 0}}, 90));
  ExpectBox(1, {0, -30, 0, 10, 0, 20});
  EXPECT_TRUE(table_.Turn(1, {{0, 0, 0}, {5, 0, 0}}, -450));
  ExpectBox(1, {0, 0, 0, 10, 20, 30});
  EXPECT_TRUE(table_.Turn(1, {{10, 0, 0}, {0, 0, 1}}, 180));
  ExpectBox(1, {10, -20, 0, 20, 0, 30});
}

TEST_F(BodyTables, TurnAboutAnObliqueAxis) {
  // A third of a turn about the diagonal takes x to y, y to z, z to x.
  EXPECT_TRUE(table_.Turn(Add(), {{0, 0, 0}, {1, 1, 1}}, 120));
  ExpectBox(1, {0, 0, 0, 30, 10, 20});
}

TEST_F(BodyTables, KeepVolumeAndSoundnessWhenMoved) {
  EXPECT_TRUE(table_.Turn(Add(), {{3, 4, 5}, {1, 2, 3}}, 33));
  EXPECT_TRUE(table_.Move(1, {100, 0, 0}));
  EXPECT_NEAR(Measured(Get(table_.Get(1))).volume, 6000, 1e-6);
  EXPECT_TRUE(IsSound(Get(table_.Get(1))));
}

TEST_F(BodyTables, ReportAMissingBody) {
  const std::string missing = "body 7 does not exist";
  EXPECT_EQ(Told(table_.Get(7)), missing);
  EXPECT_EQ(Told(table_.Move(7, {1, 0, 0})), missing);
  EXPECT_EQ(Told(table_.Turn(7, {{0, 0, 0}, {1, 0, 0}}, 90)), missing);
  EXPECT_EQ(Told(table_.Delete(7)), missing);
  EXPECT_EQ(table_.Delete(7).fault().kind, FaultKind::kMissing);
  EXPECT_EQ(Told(table_.Delete(0)), "body 0 does not exist");
  EXPECT_EQ(Told(table_.Delete(-1)), "body -1 does not exist");
}

TEST_F(BodyTables, LeaveABodyWhereItIsWhenNumbersAreNone) {
  Add();
  EXPECT_EQ(Told(table_.Move(1, {std::nan(""), 0, 0})), "the displacement is not a finite number");
  EXPECT_EQ(Told(table_.Turn(1, {{0, 0, 0}, {1, 0, 0}}, std::nan(""))),
            "the axis or the angle is not a finite number");
  EXPECT_EQ(Told(table_.Turn(1, {{0, 0, 0}, {0, 0, 0}}, 90)), "the axis has no direction");
  ExpectBox(1, {0, 0, 0, 10, 20, 30});
}

}  // namespace
}  // namespace vanzet::modeller

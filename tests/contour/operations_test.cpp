#include "contour_fixture.h"

namespace vanzet::contour {
namespace {

class OperationsTest : public ContourTest {};

constexpr const char* kQuarter = "k1 e x10 y0\nax0 y10 x0 y0\nek\n";
constexpr const char* kSlot = "k1 e x-20 y10\nx20 y10\ntx20 y-10 x20 y0\nx-20 y-10\ntx-20 y10 x-20 y0\nek\n";

TEST_F(OperationsTest, FactsOfARoundedSquare) {
  const Facts facts = FactsOf(ReadOne(kRoundedSquare));
  EXPECT_EQ(facts.number, 7);
  EXPECT_EQ(facts.spans, 8);
  EXPECT_EQ(facts.arcs, 4);
  EXPECT_TRUE(facts.closed);
  EXPECT_NEAR(facts.perimeter, 4 * 24 + 2 * kPi * 8, 1e-9);
  EXPECT_NEAR(facts.area, 40 * 40 - (4 - kPi) * 64, 1e-9);
  EXPECT_EQ(facts.direction, 1);
  EXPECT_THAT(facts.low, IsAt(-20, -20, 1e-9));
  EXPECT_THAT(facts.high, IsAt(20, 20, 1e-9));
}

TEST_F(OperationsTest, AnOpenContourHasNoAreaAndNoDirection) {
  const Facts facts = FactsOf(ReadOne(kQuarter));
  EXPECT_FALSE(facts.closed);
  EXPECT_EQ(facts.area, 0);
  EXPECT_EQ(facts.direction, 0);
  EXPECT_NEAR(facts.perimeter, 5 * kPi, 1e-9);
}

TEST_F(OperationsTest, TheNearestPointOfAnArcIsOnItsSpokeOrAnEnd) {
  const Contour quarter = ReadOne(kQuarter);
  const Nearest onSpoke = NearestOn(quarter, {3, 4});
  EXPECT_THAT(onSpoke.point, IsAt(6, 8, 1e-9));
  EXPECT_NEAR(onSpoke.distance, 5, 1e-9);
  // Beyond the arc both ends are candidates; the nearer one wins on either side of the symmetry.
  EXPECT_THAT(NearestOn(quarter, {-6, -5}).point, IsAt(0, 10, 1e-9));
  EXPECT_THAT(NearestOn(quarter, {-5, -6}).point, IsAt(10, 0, 1e-9));
}

TEST_F(OperationsTest, TheNearestPointTakesTheFirstOfEqualSpans) {
  const Nearest nearest = NearestOn(ReadOne(kRoundedSquare), {0, 0});
  EXPECT_EQ(nearest.span, 1);
  EXPECT_NEAR(nearest.distance, 20, 1e-9);
}

TEST_F(OperationsTest, InsideIsDecidedByTheTrueArcsHoweverNear) {
  const Contour slot = ReadOne(kSlot);
  for (const double angle : {-80.0, -33.3, 0.0, 45.0, 89.0}) {
    const double x = std::cos(angle * kPi / 180), y = std::sin(angle * kPi / 180);
    EXPECT_EQ(*SideOf(slot, {20 + 9.99 * x, 9.99 * y}), Side::kInside) << angle;
    EXPECT_EQ(*SideOf(slot, {20 + 10.003 * x, 10.003 * y}), Side::kOn) << angle;
    EXPECT_EQ(*SideOf(slot, {20 + 10.01 * x, 10.01 * y}), Side::kOutside) << angle;
  }
  EXPECT_EQ(*SideOf(ReadOne(kQuarter), {1, 1}), Side::kOpen);
}

TEST_F(OperationsTest, CrossingsAreListedOnceAlsoAtVertices) {
  const Contour square = ReadOne("k1 e x0 y0\nx10 y0\nx10 y10\nx0 y10\nx0 y0\nek\n");
  const Contour diagonal = ReadOne("k1 e x-5 y-5\nx10 y10\nx15 y15\nek\n");
  const std::vector<Crossing> crossings = *Crossings(square, diagonal);
  ASSERT_EQ(crossings.size(), 2U);
  EXPECT_THAT(crossings[0].point, IsAt(0, 0, 1e-9));
  EXPECT_EQ(crossings[0].spanA, 1);
  EXPECT_EQ(crossings[0].spanB, 1);
  EXPECT_THAT(crossings[1].point, IsAt(10, 10, 1e-9));
  EXPECT_EQ(crossings[1].spanA, 2);
}

TEST_F(OperationsTest, ALineCrossesASlotWhereArithmeticSays) {
  const Contour line = ReadOne("k1 e x-40 y6\nx40 y6\nek\n");
  const std::vector<Crossing> crossings = *Crossings(line, ReadOne(kSlot));
  ASSERT_EQ(crossings.size(), 2U);
  // 6, 8, 10 is a right triangle.
  EXPECT_THAT(crossings[0].point, IsAt(28, 6, 1e-9));
  EXPECT_EQ(crossings[0].spanB, 2);
  EXPECT_THAT(crossings[1].point, IsAt(-28, 6, 1e-9));
  EXPECT_EQ(crossings[1].spanB, 4);
}

TEST_F(OperationsTest, SortingTheSpansLosesNoCrossing) {
  std::string comb = "k1 e x0 y-1\n", wave = "k1 e x-0.5 y0\n";
  for (int i = 0; i < 200; ++i) {
    comb += "x" + std::to_string(i) + (i % 2 == 0 ? " y1\n" : " y-1\n");
    comb += "x" + std::to_string(i + 1) + (i % 2 == 0 ? " y1\n" : " y-1\n");
  }
  wave += "x1000 y0\n";
  EXPECT_EQ(Crossings(ReadOne(comb + "ek\n"), ReadOne(wave + "ek\n"))->size(), 200U);
  EXPECT_EQ(Crossings(ReadOne(wave + "ek\n"), ReadOne(comb + "ek\n"))->size(), 200U);
}

TEST_F(OperationsTest, TooManyCrossingsAreRefused) {
  std::string across = "k1 e x0 y0\n", up = "k1 e x0 y0\n";
  for (int i = 0; i < 1100; ++i) {
    const std::string line = std::to_string(i), end = i % 2 == 0 ? "2000" : "-1";
    across += "x" + end + " y" + line + "\nx" + end + " y" + std::to_string(i + 1) + "\n";
    up += "x" + line + " y" + end + "\nx" + std::to_string(i + 1) + " y" + end + "\n";
  }
  const auto crossings = Crossings(ReadOne(across + "ek\n"), ReadOne(up + "ek\n"));
  ASSERT_FALSE(crossings);
  EXPECT_EQ(crossings.fault().Message(), "the contours meet in more than 1000000 points");
}

TEST_F(OperationsTest, ContoursApartDoNotMeet) {
  EXPECT_TRUE(Crossings(ReadOne(kQuarter), ReadOne("k1 e x0 y0\nx1 y1\nek\n"))->empty());
}

}  // namespace
}  // namespace vanzet::contour

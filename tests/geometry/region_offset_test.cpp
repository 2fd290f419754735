#include <gtest/gtest.h>

#include "geometry/region_shapes.h"

/// Offsets of difficult regions, with the right answer from first principles beside each.
namespace geometry::testing {
namespace {

class RegionOffsetTest : public ::testing::Test {
 protected:
  void Expect(const Region& made, std::size_t loops, double area, double perimeter, double tolerance = 1e-9) {
    ASSERT_TRUE(made.ok);
    EXPECT_EQ(made.loops.size(), loops);
    EXPECT_NEAR(made.Area(), area, tolerance);
    EXPECT_NEAR(made.Perimeter(), perimeter, tolerance);
  }
  void ExpectEmpty(const Region& made) {
    EXPECT_TRUE(made.ok);
    EXPECT_TRUE(made.loops.empty()) << made.Area();
  }

 private:
  UnitsGuard millimetres_{0};
};

using RegionOffsetCorners = RegionOffsetTest;
using RegionOffsetParts = RegionOffsetTest;
using RegionOffsetHard = RegionOffsetTest;

/// Two squares of 10, joined by a neck of 10 by 2.
Region DumbBell() {
  return Polygon({{0, 0},
                  {10, 0},
                  {10, 4},
                  {20, 4},
                  {20, 0},
                  {30, 0},
                  {30, 10},
                  {20, 10},
                  {20, 6},
                  {10, 6},
                  {10, 10},
                  {0, 10}});
}

TEST_F(RegionOffsetCorners, ASquareShrinksWithSharpCorners) {
  const Region made = OffsetRegion(Rectangle(0, 0, 10, 10), 1);
  Expect(made, 1, 64, 32);
  EXPECT_EQ(made.loops[0].spans.size(), 4u);
}

TEST_F(RegionOffsetCorners, ASquareGrowsWithRoundCorners) {
  const Region made = OffsetRegion(Rectangle(0, 0, 10, 10), -2);
  Expect(made, 1, 100 + 4 * 10 * 2 + 4 * kPi, 40 + 4 * kPi);
  EXPECT_EQ(made.loops[0].spans.size(), 8u);
}

TEST_F(RegionOffsetCorners, SharpCornersUpToTheLimit) {
  Expect(OffsetRegion(Rectangle(0, 0, 10, 10), -2, {Corner::Miter, 4}), 1, 196, 56);
  // A square's corner is at 1.41 times the distance: beyond a limit of 1.2 it is cut off.
  const double leg = 2 * std::tan(kPi / 8);
  Expect(OffsetRegion(Rectangle(0, 0, 10, 10), -2, {Corner::Miter, 1.2}), 1, 180 + 4 * 2 * 2 * leg,
         40 + 4 * 4 * leg);
}

TEST_F(RegionOffsetCorners, ALimitThatNoCornerReachesCostsNoDetails) {
  const Region cut = Polygon({{0, 0}, {1, 0}, {1, 0.999}, {0.999, 1}, {0, 1}});
  const Region made = OffsetRegion(cut, -0.01, {Corner::Miter, 1e14});
  // The cut is at a distance of 1.02 sqrt(2) from the far corner, less what was cut off.
  const double side = 1.02, leg = 0.001 + 0.02 - 0.01 * std::sqrt(2.0);
  Expect(made, 1, side * side - leg * leg / 2, 4 * side - (2 - std::sqrt(2.0)) * leg);
  EXPECT_EQ(made.loops[0].spans.size(), 5u);
}

TEST_F(RegionOffsetCorners, AChamferTouchesTheRoundCornerInItsMiddle) {
  const double leg = 2 * std::tan(kPi / 8);
  Expect(OffsetRegion(Rectangle(0, 0, 10, 10), -2, {Corner::Chamfer}), 1, 180 + 4 * 2 * 2 * leg,
         40 + 4 * 4 * leg);
}

TEST_F(RegionOffsetCorners, AnInwardCornerOpensWhenTheRegionShrinks) {
  const Region angle = Polygon({{0, 0}, {10, 0}, {10, 5}, {5, 5}, {5, 10}, {0, 10}});
  // The arms are 3 wide then, joined by a quarter of a ring about (5, 5).
  Expect(OffsetRegion(angle, 1), 1, 8 * 8 - 5 * 5 + (1 - kPi / 4), 32 - 2 + kPi / 2);
}

TEST_F(RegionOffsetCorners, SpansKeepTheirIdsAndCornersAreMarked) {
  KurveEx k = PolygonContour({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  for (std::size_t i = 0; i < k.spans.size(); ++i) {
    k.spans[i].ID = static_cast<std::uint32_t>(i + 1);
    k.spans[i].index1 = 7 * (i + 1);
  }
  const Region made = OffsetRegion(Clean(k), -1);
  ASSERT_EQ(made.loops.size(), 1u);
  for (const RegionSpan& s : made.loops[0].spans) {
    EXPECT_EQ((s.ID & ROLL_AROUND) != 0, s.dir == ACW);
    EXPECT_EQ(s.index1, 7u * static_cast<std::uint32_t>(IdNumber(s.ID)));
    EXPECT_EQ(s.dir == LINEAR && s.p0.y < -0.5, s.ID == 1u);
  }
}

TEST_F(RegionOffsetParts, ADumbBellFallsInTwo) {
  // Each half is a square of 7 with a bay of the neck, between two arcs about the neck's corners that meet.
  const double angle = std::asin(1 / 1.5), foot = std::sqrt(1.5 * 1.5 - 1);
  const double bay = 3 - foot - 1.5 * 1.5 * angle;
  Expect(OffsetRegion(DumbBell(), 1.5), 2, 2 * (49 + bay), 2 * (28 - 2 + 2 * 1.5 * angle));
}

TEST_F(RegionOffsetParts, ANeckOfExactlyTwiceTheDistanceIsGone) {
  // Two quarter discs of radius 1 about the neck's corners bound each bay of 1 by 2.
  Expect(OffsetRegion(DumbBell(), 1), 2, 2 * (64 + 2 - kPi / 2), 2 * (32 - 2 + kPi));
}

TEST_F(RegionOffsetParts, TheRingOfASquareAndADiscFallsInFour) {
  const Region plate = Subtract(Rectangle(0, 0, 10, 10), Disc(5, 5, 3));
  // Inside a square of half side 5 - d, outside of a disc of 3 + d.
  const auto corners = [](double d) {
    const double a = 5 - d, r = 3 + d, x = std::sqrt(r * r - a * a);
    const double angle = std::acos(a / r), wedge = kPi / 2 - 2 * angle;
    return 4 * (a * a - a * x - r * r * wedge / 2);
  };
  const Region made = OffsetRegion(plate, 1.2);
  EXPECT_EQ(made.loops.size(), 4u);
  EXPECT_NEAR(made.Area(), corners(1.2), 1e-9);
  // They touch at exactly 1, and are gone where the disc reaches the corners.
  EXPECT_EQ(OffsetRegion(plate, 1).loops.size(), 4u);
  EXPECT_NEAR(OffsetRegion(plate, 1).Area(), corners(1), 1e-9);
  const double last = (5 * std::sqrt(2.0) - 3) / (1 + std::sqrt(2.0));
  EXPECT_EQ(OffsetRegion(plate, last - 1e-6).loops.size(), 4u);
  ExpectEmpty(OffsetRegion(plate, last + 1e-6));
}

TEST_F(RegionOffsetParts, HolesGrowTogetherAndLeaveAnIsland) {
  // Four holes around the middle of a plate: between them a piece with four concave sides stays.
  Region plate = Rectangle(-20, -20, 20, 20);
  for (const Point& c : {Point(-6, 0), Point(6, 0), Point(0, 6), Point(0, -6)}) {
    plate = Subtract(plate, Disc(c.x, c.y, 3));
  }
  const double r = 4.5, apart = 6 * std::sqrt(2.0);
  const double lens =
      2 * (r * r * std::acos(apart / 2 / r) - apart / 2 * std::sqrt(r * r - apart * apart / 4));
  const double island = apart * apart - kPi * r * r + 2 * lens;
  const Region made = OffsetRegion(plate, 1.5);
  ASSERT_EQ(made.loops.size(), 3u);
  EXPECT_EQ(HoleCount(made), 1);
  EXPECT_NEAR(made.loops[2].Area(), island, 1e-9);
  EXPECT_NEAR(made.Area(), 37 * 37 - 4 * kPi * r * r + 4 * lens, 1e-9);
}

TEST_F(RegionOffsetParts, AHoleClosesWhenTheRegionGrows) {
  const Region ring = Subtract(Disc(0, 0, 10), Disc(0, 0, 2));
  Expect(OffsetRegion(ring, -1), 2, (121 - 1) * kPi, 24 * kPi);
  Expect(OffsetRegion(ring, -2), 1, 144 * kPi, 24 * kPi);
  Expect(OffsetRegion(ring, -3), 1, 169 * kPi, 26 * kPi);
}

TEST_F(RegionOffsetParts, RegionsGrowTogether) {
  const Region pair = Unite(Disc(0, 0, 2), Disc(6, 0, 2));
  EXPECT_EQ(OffsetRegion(pair, -0.9).loops.size(), 2u);
  const double segment = SegmentOf(4, 2 * std::sqrt(7.0));
  Expect(OffsetRegion(pair, -2), 1, 2 * (16 * kPi - segment), 2 * 8 * (kPi - std::acos(3.0 / 4)));
}

TEST_F(RegionOffsetHard, SlotsCollapseAtHalfTheirWidth) {
  for (const double width : {0.3, 0.7, 1.0, 2.0 / 3, 10.0}) {
    const Region slot = Rectangle(0.1, 0.7, 40, 0.7 + width);
    ExpectEmpty(OffsetRegion(slot, width / 2));
    ExpectEmpty(OffsetRegion(slot, width));
    const Region last = OffsetRegion(slot, width / 2 - 1e-6);
    EXPECT_EQ(last.loops.size(), 1u);
    EXPECT_NEAR(last.Area(), (39.9 - width + 2e-6) * 2e-6, 1e-9);
  }
}

TEST_F(RegionOffsetHard, ARoundSlotCollapsesToo) {
  const Region slot =
      Drawn({0, -2},
            {{LINEAR, {20, -2}, {}}, {ACW, {20, 2}, {20, 0}}, {LINEAR, {0, 2}, {}}, {ACW, {0, -2}, {0, 0}}});
  ExpectEmpty(OffsetRegion(slot, 2));
  Expect(OffsetRegion(slot, 1.75), 1, 20 * 0.5 + kPi / 16, 40 + kPi / 2);
  Expect(OffsetRegion(slot, -3), 1, 20 * 10 + 25 * kPi, 40 + 10 * kPi);
}

TEST_F(RegionOffsetHard, FilletsOfExactlyTheDistanceBecomeCorners) {
  const Region plate = Drawn({2, 0}, {{LINEAR, {18, 0}, {}},
                                      {ACW, {20, 2}, {18, 2}},
                                      {LINEAR, {20, 8}, {}},
                                      {ACW, {18, 10}, {18, 8}},
                                      {LINEAR, {2, 10}, {}},
                                      {ACW, {0, 8}, {2, 8}},
                                      {LINEAR, {0, 2}, {}},
                                      {ACW, {2, 0}, {2, 2}}});
  const Region made = OffsetRegion(plate, 2);
  Expect(made, 1, 16 * 6, 44);
  EXPECT_EQ(made.loops[0].spans.size(), 4u);
  Expect(OffsetRegion(plate, 3), 1, 14 * 4, 36);
}

TEST_F(RegionOffsetHard, ACutOf340Degrees) {
  // A disc with a wedge of 20 degrees cut out, and the wedge itself.
  const double half = kPi / 18;
  const Point above(10 * std::cos(half), 10 * std::sin(half)), below(above.x, -above.y);
  const Region pie = Drawn({0, 0}, {{LINEAR, above, {}}, {ACW, below, {0, 0}}, {LINEAR, {0, 0}, {}}});
  EXPECT_NEAR(pie.Area(), 100 * (kPi - half), 1e-9);
  const Region wedge = Drawn({0, 0}, {{LINEAR, below, {}}, {ACW, above, {0, 0}}, {LINEAR, {0, 0}, {}}});
  // Grown: strips along both sides, a ring sector outside, sectors about the three corners.
  const double d = 0.5, corners = 2 * (kPi / 2) + (kPi - 2 * half);
  Expect(OffsetRegion(wedge, -d), 1,
         100 * half + 2 * 10 * d + half * ((10 + d) * (10 + d) - 100) + corners * d * d / 2,
         20 + 2 * half * (10 + d) + corners * d);
  // Shrunk: a disc of 10 - d, less the wedge whose sides are moved out, with a round tip about the origin.
  const double r = 10 - d, reach = std::sqrt(r * r - d * d), angle = half + std::asin(d / r);
  const double tip = (kPi - 2 * half) * d * d / 2;
  Expect(OffsetRegion(pie, d), 1, r * r * (kPi - angle) - reach * d - tip,
         2 * r * (kPi - angle) + 2 * reach + (kPi - 2 * half) * d);
}

TEST_F(RegionOffsetHard, WhiskersCountWhenTheRegionGrows) {
  const Region plate = Polygon({{0, 0}, {10, 0}, {10, 5}, {15, 5}, {10, 5}, {10, 10}, {0, 10}});
  // From the grown square's side at 11 the whisker's strip of 2 by 4 and half a disc stand out.
  Expect(OffsetRegion(plate, -1), 1, 100 + 40 + kPi + 8 + kPi / 2, 40 + 2 * kPi + 8 - 2 + kPi);
  Expect(OffsetRegion(plate, 1), 1, 64, 32);
}

/// A back of 200 by 5 with 100 teeth of 1 by 20 and gaps of 1.
Region Comb() {
  std::vector<Point> corners = {{0, 0}, {200, 0}, {200, 5}};
  for (int i = 99; i >= 0; --i) {
    const double x = 2 * i;
    for (const Point& p : {Point(x + 1, 5), Point(x + 1, 25), Point(x, 25), Point(x, 5)})
      corners.push_back(p);
  }
  return Polygon(corners);
}

TEST_F(RegionOffsetHard, ACombKeepsThinTeeth) {
  // The back, the teeth above their feet, and the feet with fillets about all corners but the leftmost.
  const double d = 0.4, fillet = (1 - kPi / 4) * d * d;
  const Region made = OffsetRegion(Comb(), d);
  EXPECT_EQ(made.loops.size(), 1u);
  EXPECT_NEAR(made.Area(), 199.2 * 4.2 + 100 * 0.2 * 19.6 + 100 * 0.2 * d + 199 * fillet, 1e-8);
}

TEST_F(RegionOffsetHard, ACombLosesItsTeeth) {
  // The back, and in each tooth's place what two arcs about the feet leave: above the back to the middle of
  // the tooth, in the first one to its wall.
  const double d = 0.6;
  const auto under = [d](double x) {
    return d * x - (x * std::sqrt(d * d - x * x) + d * d * std::asin(x / d)) / 2;
  };
  const Region made = OffsetRegion(Comb(), d);
  EXPECT_EQ(made.loops.size(), 1u);
  EXPECT_NEAR(made.Area(), 198.8 * 3.8 + 99 * 2 * under(0.5) + under(0.4), 1e-8);
}

TEST_F(RegionOffsetHard, RubbishVerticesAndMicroStepsDoNoHarm) {
  std::vector<Point> corners;
  const Point square[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  for (int side = 0; side < 4; ++side) {
    const Vector2d along(square[side], square[(side + 1) % 4]);
    for (int i = 0; i < 500; ++i) {
      const double step = i % 2 == 0 ? 0 : 1e-7;
      corners.push_back(square[side] + along * (i / 500.0) + along.LeftNormal() * (step / 10));
      if (i % 50 == 7) corners.push_back(corners.back());
    }
  }
  Region dirty;
  dirty.loops.emplace_back();
  for (std::size_t i = 0; i < corners.size(); ++i) {
    dirty.loops[0].spans.push_back({LINEAR, corners[i], corners[(i + 1) % corners.size()], {}});
  }
  dirty = Clean(dirty, FillRule::EvenOdd);
  EXPECT_NEAR(OffsetRegion(dirty, 1).Area(), 64, 1e-5);
  EXPECT_NEAR(OffsetRegion(dirty, -1).Area(), 140 + kPi, 1e-5);
  EXPECT_EQ(OffsetRegion(dirty, 1).loops.size(), 1u);
  EXPECT_EQ(OffsetRegion(dirty, -1).loops.size(), 1u);
}

TEST_F(RegionOffsetHard, CrescentsThinnerThanTheTolerance) {
  // Two discs of radius 10 whose centres are 1e-4 apart.
  const Region crescent = Subtract(Disc(0, 0, 10), Disc(1e-4, 0, 10));
  ASSERT_EQ(crescent.loops.size(), 1u);
  EXPECT_NEAR(crescent.Area() / (2 * 10 * 1e-4), 1, 1e-6);
  ExpectEmpty(OffsetRegion(crescent, 1e-4));
  // Grown by 1 it is half of the ring between 9 and 11, and half discs about its tips.
  EXPECT_NEAR(OffsetRegion(crescent, -1).Area(), 20 * kPi + kPi, 5e-3);
}

TEST_F(RegionOffsetHard, PlacesAndScalesChangeNothing) {
  const double exact = 64 - (4 + 8 + kPi);
  for (const double size : {1e-3, 1.0, 1e3, 1e6}) {
    for (const double away : {0.0, 1e6}) {
      const auto square = [&](double low, double high) {
        return Rectangle(away + low * size, away + low * size, away + high * size, away + high * size);
      };
      const Region made = OffsetRegion(Subtract(square(0, 10), square(4, 6)), size);
      EXPECT_EQ(made.loops.size(), 2u) << size << " " << away;
      EXPECT_NEAR(made.Area() / size / size, exact, 1e-9 + away * 1e-13 / size) << size << " " << away;
    }
  }
}

TEST_F(RegionOffsetHard, ArcsOfARadiusOfAMillion) {
  const double r = 1e6, sagitta = 2500 / (r + std::sqrt(r * r - 2500));
  const Region plate = Drawn({50, 0}, {{ACW, {-50, 0}, {0, sagitta - r}},
                                       {LINEAR, {-50, -20}, {}},
                                       {LINEAR, {50, -20}, {}},
                                       {LINEAR, {50, 0}, {}}});
  EXPECT_NEAR(plate.Area(), 2000 + 100 * 100 * 100 / 12.0 / r, 1e-7);
  // Up to the parabola that touches the moved arc, which is exact to 1e-11.
  EXPECT_NEAR(OffsetRegion(plate, 1).Area(), 98 * (18 + sagitta) - 49 * 49 * 49 / 3.0 / (r - 1), 1e-7);
}

}  // namespace
}  // namespace geometry::testing

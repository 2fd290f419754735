#include "geometry/region.h"

#include <gtest/gtest.h>

#include "geometry/region_shapes.h"

namespace geometry::testing {
namespace {

class RegionTest : public ::testing::Test {
  UnitsGuard millimetres_{0};
};

using RegionClean = RegionTest;
using RegionSets = RegionTest;
using RegionMeasure = RegionTest;

TEST_F(RegionClean, ASimpleContourKeepsItsCorners) {
  const Region square = Polygon({{0.1, 0.2}, {10, 0.2}, {10, 7.3}, {0.1, 7.3}});
  ASSERT_TRUE(square.ok);
  ASSERT_EQ(square.loops.size(), 1u);
  ASSERT_EQ(square.loops[0].spans.size(), 4u);
  double sumX = 0, sumY = 0;
  for (const RegionSpan& s : square.loops[0].spans) {
    sumX += s.p0.x;
    sumY += s.p0.y;
  }
  EXPECT_EQ(sumX, 0.1 + 10 + 10 + 0.1);
  EXPECT_EQ(sumY, 0.2 + 0.2 + 7.3 + 7.3);
  EXPECT_NEAR(square.Area(), 9.9 * 7.1, 1e-12);
}

TEST_F(RegionClean, AClockwiseContourIsTurned) {
  const Region square = Polygon({{0, 0}, {0, 10}, {10, 10}, {10, 0}});
  EXPECT_NEAR(square.Area(), 100, 1e-12);
  EXPECT_FALSE(square.loops.at(0).IsHole());
}

TEST_F(RegionClean, AFigureOfEightHasTwoLoops) {
  const Region bow = Polygon({{0, 0}, {10, 10}, {10, 0}, {0, 10}});
  ASSERT_EQ(bow.loops.size(), 2u);
  for (const RegionLoop& loop : bow.loops) EXPECT_NEAR(loop.Area(), 25, 1e-12);
}

TEST_F(RegionClean, TheRuleDecidesWhatADoubledContourIs) {
  const std::vector<Point> once = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
  std::vector<Point> twice = once;
  twice.insert(twice.end(), once.begin(), once.end());
  EXPECT_TRUE(Clean(PolygonContour(twice), FillRule::EvenOdd).loops.empty());
  EXPECT_NEAR(Clean(PolygonContour(twice), FillRule::NonZero).Area(), 16, 1e-12);
  const std::vector<Point> backwards(once.rbegin(), once.rend());
  EXPECT_TRUE(Clean(PolygonContour(backwards), FillRule::Positive).loops.empty());
  EXPECT_NEAR(Clean(PolygonContour(backwards), FillRule::NonZero).Area(), 16, 1e-12);
}

TEST_F(RegionClean, SquaresThatShareAVertexAreTwoLoops) {
  const Region pair = Polygon({{0, 0}, {5, 0}, {5, 5}, {10, 5}, {10, 10}, {5, 10}, {5, 5}, {0, 5}});
  ASSERT_EQ(pair.loops.size(), 2u);
  for (const RegionLoop& loop : pair.loops) {
    EXPECT_EQ(loop.spans.size(), 4u);
    EXPECT_NEAR(loop.Area(), 25, 1e-12);
  }
}

TEST_F(RegionClean, AHoleThatTouchesTheOutsideIsALoopOfItsOwn) {
  const Region square = Rectangle(0, 0, 10, 10);
  const Region diamond = Polygon({{0, 5}, {2, 3}, {4, 5}, {2, 7}});
  const Region rest = Subtract(square, diamond);
  ASSERT_EQ(rest.loops.size(), 2u);
  EXPECT_NEAR(rest.loops[0].Area(), 100, 1e-12);
  EXPECT_NEAR(rest.loops[1].Area(), -8, 1e-12);
}

TEST_F(RegionClean, AWhiskerIsLooseAndNoPartOfALoop) {
  const Region plate = Polygon({{0, 0}, {10, 0}, {10, 5}, {15, 5}, {10, 5}, {10, 10}, {0, 10}});
  EXPECT_EQ(plate.loops.size(), 1u);
  EXPECT_NEAR(plate.Area(), 100, 1e-12);
  EXPECT_NEAR(plate.Perimeter(), 40, 1e-12);
  ASSERT_EQ(plate.loose.size(), 1u);
  EXPECT_NEAR(plate.loose[0].Length(), 5, 1e-12);
}

TEST_F(RegionClean, NothingIsLeftOfAContourWithoutArea) {
  const Region line = Polygon({{0, 0}, {10, 0}});
  EXPECT_TRUE(line.ok);
  EXPECT_TRUE(line.loops.empty());
  EXPECT_EQ(line.loose.size(), 1u);
  EXPECT_TRUE(Clean(KurveEx()).ok);
}

TEST_F(RegionClean, SeveralPassesOfALineThatAnArcTouchesTakeSeveralRounds) {
  KurveEx k = PathThrough({{1, 0}, {3, 3}, {3, 0}, {0, 0}, {1, 2}, {0, 2}, {1, 2}, {1, 0}, {0, 0}, {1, 0}});
  k.Add(spVertex(ACW, Point(2, 2), Point(1.5, 1)));
  k.Add(2, 3);
  k.Add(spVertex(ACW, Point(1, 2), Point(1.5, 2.5)));
  k.Add(spVertex(ACW, Point(1, 0), Point(1, 1)));
  const Region forwards = Clean(k);
  ASSERT_TRUE(forwards.ok);
  std::vector<RegionSpan> back;
  for (std::size_t i = k.spans.size(); i-- > 0;) {
    const Span& s = k.spans[i];
    back.push_back({-s.dir, s.p1, s.p0, s.pc});
  }
  Region drawn;
  drawn.loops.push_back({back});
  const Region backwards = Clean(drawn, FillRule::EvenOdd);
  ASSERT_TRUE(backwards.ok);
  EXPECT_NEAR(forwards.Area(), backwards.Area(), 1e-9);
}

TEST_F(RegionClean, CoordinatesThatAreNotFiniteAreRefused) {
  const Region broken = Clean(PolygonContour({{0, 0}, {kNaN, 0}, {1, 1}}));
  EXPECT_FALSE(broken.ok);
  EXPECT_FALSE(Clean(PolygonContour({{0, 0}, {kInfinity, 0}, {1, 1}})).ok);
  EXPECT_FALSE(Unite(broken, Rectangle(0, 0, 1, 1)).ok);
  EXPECT_FALSE(OffsetRegion(Rectangle(0, 0, 1, 1), kNaN).ok);
}

TEST_F(RegionClean, AnArcWhoseEndsDisagreeIsRefused) {
  Region region;
  region.loops.push_back({{{ACW, {0, 0}, {2, 0}, {5, 0}}, {LINEAR, {2, 0}, {0, 0}, {}}}});
  EXPECT_FALSE(Clean(region, FillRule::EvenOdd).ok);
}

TEST_F(RegionClean, SpansKeepTheirIdsAndWords) {
  KurveEx k = PolygonContour({{0, 0}, {10, 10}, {10, 0}, {0, 10}});
  for (std::size_t i = 0; i < k.spans.size(); ++i) {
    k.spans[i].ID = static_cast<std::uint32_t>(i + 1);
    k.spans[i].index0 = 100 + i;
  }
  int found = 0;
  for (const RegionLoop& loop : Clean(k).loops) {
    for (const RegionSpan& s : loop.spans) {
      const bool isUpright = s.p0.x == s.p1.x;
      EXPECT_EQ(isUpright, s.ID % 2 == 0);
      EXPECT_EQ(s.index0, 99 + s.ID);
      ++found;
    }
  }
  EXPECT_EQ(found, 6);
}

TEST_F(RegionSets, OverlappingSquares) {
  const Region a = Rectangle(0, 0, 10, 10), b = Rectangle(5, 5, 15, 15);
  EXPECT_NEAR(Unite(a, b).Area(), 175, 1e-12);
  EXPECT_NEAR(Intersect(a, b).Area(), 25, 1e-12);
  EXPECT_NEAR(Subtract(a, b).Area(), 75, 1e-12);
  EXPECT_EQ(Unite(a, b).loops.at(0).spans.size(), 8u);
}

TEST_F(RegionSets, ADiscInASquareIsAHole) {
  const Region rest = Subtract(Rectangle(0, 0, 10, 10), Disc(5, 5, 3));
  ASSERT_EQ(rest.loops.size(), 2u);
  EXPECT_EQ(HoleCount(rest), 1);
  EXPECT_NEAR(rest.Area(), 100 - 9 * kPi, 1e-12);
  EXPECT_NEAR(rest.Perimeter(), 40 + 6 * kPi, 1e-12);
  for (const RegionSpan& s : rest.loops[1].spans) EXPECT_EQ(s.dir, CW);
}

TEST_F(RegionSets, TwoDiscsMeetInALens) {
  const Region lens = Intersect(Disc(0, 0, 5), Disc(6, 0, 5));
  ASSERT_EQ(lens.loops.size(), 1u);
  // The joints of the discs' half circles, at (5, 0) and (1, 0), stay.
  EXPECT_EQ(lens.loops[0].spans.size(), 4u);
  EXPECT_NEAR(lens.Area(), 2 * SegmentOf(5, 8), 1e-11);
}

TEST_F(RegionSets, SquaresSideBySideBecomeOne) {
  const Region both = Unite(Rectangle(0, 0, 5, 10), Rectangle(5, 0, 10, 10));
  ASSERT_EQ(both.loops.size(), 1u);
  EXPECT_NEAR(both.Area(), 100, 1e-12);
  EXPECT_NEAR(both.Perimeter(), 40, 1e-12);
  EXPECT_TRUE(Intersect(Rectangle(0, 0, 5, 10), Rectangle(5, 0, 10, 10)).loops.empty());
}

TEST_F(RegionSets, ARegionLessItselfIsEmpty) {
  const Region ring = Subtract(Disc(1, 2, 7), Disc(1, 2, 3));
  const Region nothing = Subtract(ring, ring);
  EXPECT_TRUE(nothing.ok);
  EXPECT_TRUE(nothing.loops.empty());
  EXPECT_NEAR(Unite(ring, ring).Area(), 40 * kPi, 1e-11);
  EXPECT_NEAR(Intersect(ring, ring).Area(), 40 * kPi, 1e-11);
}

TEST_F(RegionSets, IslandsInHolesStay) {
  const Region target = Unite(Subtract(Disc(0, 0, 9), Disc(0, 0, 6)), Disc(0, 0, 3));
  ASSERT_EQ(target.loops.size(), 3u);
  EXPECT_EQ(HoleCount(target), 1);
  EXPECT_NEAR(target.Area(), (81 - 36 + 9) * kPi, 1e-11);
}

TEST_F(RegionSets, DiscsThatTouchStayTwo) {
  const Region pair = Unite(Disc(0, 0, 2), Disc(5, 0, 3));
  EXPECT_EQ(pair.loops.size(), 2u);
  EXPECT_NEAR(pair.Area(), 13 * kPi, 1e-6);
}

TEST_F(RegionSets, RingsSlitDownToANanometreAndLess) {
  for (const double slit : {1.0, 1e-3, 1e-6, 1e-9}) {
    const Region ring = Subtract(Disc(0, 0, 50), Disc(0, 0, 40));
    const Region open = Subtract(ring, Rectangle(0, -slit / 2, 60, slit / 2));
    ASSERT_TRUE(open.ok) << slit;
    ASSERT_EQ(open.loops.size(), 1u) << slit;
    // The strip of half width h between the y axis and a circle.
    const double h = slit / 2;
    const auto strip = [&](double r) { return h * std::sqrt(r * r - h * h) + r * r * std::asin(h / r); };
    EXPECT_NEAR(open.Area(), 900 * kPi - (strip(50) - strip(40)), 1e-8) << slit;
    EXPECT_NEAR(open.Perimeter(), 180 * kPi + 20 - 2 * slit, slit * slit + 1e-8) << slit;
  }
}

TEST_F(RegionMeasure, AHugeRadiusIsExactToOnePartInABillion) {
  const double r = 1e6, half = 50;
  const double centre = -std::sqrt(r * r - half * half);
  const Region cap = Drawn({half, 0}, {{ACW, {-half, 0}, {0, centre}}, {LINEAR, {half, 0}, {}}});
  ASSERT_EQ(cap.loops.size(), 1u);
  // The segment's series: c^3 / 12 r (1 + 3 c^2 / 40 r^2).
  const double c = 2 * half;
  const double area = c * c * c / 12 / r * (1 + 3 * c * c / 40 / r / r);
  EXPECT_NEAR(cap.Area() / area, 1, 1e-9);
  EXPECT_NEAR(cap.Perimeter(), 200 + c * c * c / 24 / r / r, 1e-9);
}

TEST_F(RegionMeasure, APlaceFarAwayChangesNothing) {
  const Region near = Subtract(Rectangle(0, 0, 16, 16), Disc(8, 8, 4));
  const Region far = Subtract(Rectangle(1048576, 1048576, 1048592, 1048592), Disc(1048584, 1048584, 4));
  EXPECT_NEAR(near.Area(), far.Area(), 1e-11);
  EXPECT_NEAR(near.Perimeter(), far.Perimeter(), 1e-11);
}

TEST_F(RegionMeasure, TinyArcsStayArcs) {
  const Region pin = Disc(0, 0, 1e-6);
  ASSERT_EQ(pin.loops.size(), 0u) << "a contour of the library drops it";
  Region drawn;
  drawn.loops.push_back({{{ACW, {1e-6, 0}, {-1e-6, 0}, {0, 0}}, {ACW, {-1e-6, 0}, {1e-6, 0}, {0, 0}}}});
  const Region kept = Subtract(Rectangle(-50, -50, 50, 50), Clean(drawn, FillRule::EvenOdd));
  ASSERT_EQ(kept.loops.size(), 2u);
  EXPECT_NEAR(kept.loops[1].Area() / (-kPi * 1e-12), 1, 1e-4);
  for (const RegionSpan& s : kept.loops[1].spans) EXPECT_EQ(s.dir, CW);
}

}  // namespace
}  // namespace geometry::testing

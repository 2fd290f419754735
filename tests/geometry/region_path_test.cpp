#include <gtest/gtest.h>

#include "geometry/region_probe.h"
#include "geometry/region_shapes.h"

/// Thick paths, offsets of paths, distances between contours, and the check of offsets.
namespace geometry::testing {
namespace {

class RegionPathTest : public ::testing::Test {
  UnitsGuard millimetres_{0};
};

using RegionThicken = RegionPathTest;
using RegionOffsetPath = RegionPathTest;
using RegionDistance = RegionPathTest;
using RegionCheck = RegionPathTest;

double LengthOf(const RegionPath& path) {
  double length = 0;
  for (const RegionSpan& s : path.spans) length += s.Length();
  return length;
}

TEST_F(RegionThicken, EndsAreRoundSquareOrButt) {
  const KurveEx line = PathThrough({{0, 0}, {10, 0}});
  EXPECT_NEAR(Thicken(line, 2).Area(), 40 + 4 * kPi, 1e-9);
  EXPECT_NEAR(Thicken(line, 2, PathEnd::Square).Area(), 56, 1e-9);
  EXPECT_NEAR(Thicken(line, 2, PathEnd::Butt).Area(), 40, 1e-9);
  EXPECT_EQ(Thicken(line, 2, PathEnd::Butt).loops.at(0).spans.size(), 4u);
}

TEST_F(RegionThicken, ACornerIsRoundOutsideAndSharpInside) {
  const KurveEx angle = PathThrough({{0, 0}, {10, 0}, {10, 10}});
  EXPECT_NEAR(Thicken(angle, 1, PathEnd::Butt).Area(), 2 * 20 - 1 + kPi / 4, 1e-9);
  EXPECT_NEAR(Thicken(angle, 1, PathEnd::Butt, {Corner::Miter}).Area(), 40, 1e-9);
}

TEST_F(RegionThicken, AClosedPathBecomesARing) {
  const Region ring = Thicken(KurveEx(Point(3, 4), 10, CW), 2);
  ASSERT_EQ(ring.loops.size(), 2u);
  EXPECT_NEAR(ring.Area(), (144 - 64) * kPi, 1e-9);
  EXPECT_EQ(Thicken(KurveEx(Point(3, 4), 10, CW), 11).loops.size(), 1u);
}

TEST_F(RegionThicken, APathThatCrossesItselfIsOneRegion) {
  const Region cross = Thicken(PathThrough({{0, 0}, {10, 0}, {10, 5}, {5, 5}, {5, -5}}), 0.5, PathEnd::Butt);
  ASSERT_TRUE(cross.ok);
  EXPECT_EQ(cross.loops.size(), 2u);
  EXPECT_EQ(HoleCount(cross), 1);
  // Strips, less the squares that two share, and what is between the square and the arc at three corners.
  EXPECT_NEAR(cross.Area(), 30 - 1 - 3 * 0.25 + 3 * kPi / 16, 1e-9);
}

TEST_F(RegionThicken, SeveralPathsAreOneRegion) {
  const std::vector<KurveEx> cross = {PathThrough({{0, 0}, {10, 0}}), PathThrough({{5, -5}, {5, 5}})};
  const Region made = Thicken(cross, 1, PathEnd::Butt);
  EXPECT_EQ(made.loops.size(), 1u);
  EXPECT_NEAR(made.Area(), 2 * 20 - 4, 1e-9);
}

TEST_F(RegionThicken, APathThatIsNotSoundIsRefused) {
  EXPECT_FALSE(Thicken(PathThrough({{0, 0}, {kInfinity, 0}}), 1).ok);
  EXPECT_FALSE(Thicken(PathThrough({{0, 0}, {1, 0}}), -1).ok);
  EXPECT_TRUE(Thicken(KurveEx(), 1).loops.empty());
}

TEST_F(RegionOffsetPath, EachSideHasItsOwn) {
  KurveEx angle = PathThrough({{0, 0}, {10, 0}, {10, 10}});
  angle.spans[0].ID = 5;
  angle.spans[0].index0 = 50;
  angle.spans[1].ID = 6;
  angle.spans[1].index0 = 60;
  const auto left = OffsetPath(angle, 1), right = OffsetPath(angle, -1);
  ASSERT_EQ(left.size(), 1u);
  ASSERT_EQ(left[0].spans.size(), 2u);
  EXPECT_NEAR(LengthOf(left[0]), 18, 1e-9);
  EXPECT_NEAR(left[0].spans[0].p0.y, 1, 1e-9);
  EXPECT_NEAR(left[0].spans[1].p1.x, 9, 1e-9);
  ASSERT_EQ(right.size(), 1u);
  ASSERT_EQ(right[0].spans.size(), 3u);
  EXPECT_NEAR(LengthOf(right[0]), 20 + kPi / 2, 1e-9);
  EXPECT_EQ(right[0].spans[0].ID, 5u);
  EXPECT_EQ(right[0].spans[1].ID, 6u | ROLL_AROUND);
  EXPECT_EQ(right[0].spans[1].dir, ACW);
  EXPECT_EQ(right[0].spans[2].index0, 60u);
  EXPECT_NEAR(right[0].spans[2].p1.y, 10, 1e-9);
}

TEST_F(RegionOffsetPath, APathThatComesTooNearIsInterrupted) {
  // A slot of 3 that is open at the top: at 1.6 both of its walls and its floor are too near.
  const KurveEx slot = PathThrough({{-10, 0}, {0, 0}, {0, -20}, {3, -20}, {3, 0}, {13, 0}});
  const auto above = OffsetPath(slot, 1.6);
  ASSERT_EQ(above.size(), 1u);
  const double reach = std::sqrt(1.6 * 1.6 - 1.5 * 1.5), angle = std::asin(1.5 / 1.6);
  EXPECT_NEAR(LengthOf(above[0]), 20 + 2 * 1.6 * angle, 1e-9);
  EXPECT_NEAR(NearestDistance(slot, PathThrough({{1.5, reach}, {1.5, 9}})), 1.6, 1e-9);
}

TEST_F(RegionOffsetPath, APartOfItMayBeMissing) {
  // A hook whose end comes back over the start.
  const KurveEx hook = PathThrough({{0, 0}, {20, 0}, {20, 5}, {10, 5}, {10, 1}});
  const auto left = OffsetPath(hook, 2);
  ASSERT_EQ(left.size(), 2u);
  EXPECT_LT(left[0].spans.front().p0.x, 1);
  EXPECT_NEAR(left[0].spans.back().p1.y, 2, 1e-9);
  EXPECT_TRUE(left[0].spans.back().p1.x < 10 && left[1].spans.front().p0.x > 10);
}

TEST_F(RegionDistance, BetweenLinesAndArcs) {
  const KurveEx square = PolygonContour({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  EXPECT_NEAR(NearestDistance(square, KurveEx(Point(20, 5), 4, ACW)), 6, 1e-12);
  EXPECT_NEAR(NearestDistance(square, KurveEx(Point(5, 5), 2, ACW)), 3, 1e-12);
  EXPECT_NEAR(NearestDistance(square, KurveEx(Point(13, 14), 1, CW)), 4, 1e-12);
  EXPECT_NEAR(NearestDistance(KurveEx(Point(0, 0), 9, ACW), KurveEx(Point(1, 0), 2, ACW)), 6, 1e-12);
  EXPECT_EQ(NearestDistance(square, KurveEx(Point(0, 0), 3, ACW)), 0);
}

TEST_F(RegionDistance, IsThatOfTheNearestSamples) {
  for (std::uint32_t seed = 0; seed < 200; ++seed) {
    Random random(seed);
    const KurveEx a = Scribble(3 + random.Below(5), random);
    KurveEx b = Scribble(3 + random.Below(5), random);
    Matrix m;
    m.Translate(45, 10);
    b.Transform(m);
    Region ofB;
    ofB.loops.emplace_back();
    for (const Span& s : b.spans) ofB.loops[0].spans.push_back({s.dir, s.p0, s.p1, s.pc});
    double least = kInfinity, longest = 0;
    for (const Span& s : a.spans) {
      const RegionSpan span{s.dir, s.p0, s.p1, s.pc};
      longest = std::max(longest, span.Length());
      for (int i = 0; i <= 200; ++i) {
        const Point p = span.Length() > 0 ? PointOn(span, i / 200.0) : s.p0;
        least = std::min(least, DistanceTo(ofB, p));
      }
    }
    const double exact = NearestDistance(a, b);
    EXPECT_LE(exact, least + 1e-9) << seed;
    EXPECT_GE(exact, least - longest / 400 - 1e-9) << seed;
  }
}

TEST_F(RegionCheck, AGoodOffsetIsClean) {
  const KurveEx square = PolygonContour({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  const auto offset = square.Offset(2, 1);
  ASSERT_TRUE(offset);
  EXPECT_TRUE(OffsetIsClean(square, *offset, 2));
  EXPECT_NEAR(CheckOffset(square, *offset, 2).nearest, 2, 1e-9);
}

TEST_F(RegionCheck, ACornerIsAsFarFromTheArcAboutItAsItsRadius) {
  const KurveEx corner = PathThrough({{-7, 1.7}, {0.3, 1.7}});
  KurveEx round;
  round.Start(Point(0.3, -1.4));
  round.Add(spVertex(ACW, Point(0.3, 4.8), Point(0.3, 1.7)));
  const OffsetCheck check = CheckOffset(corner, round, 3.1);
  EXPECT_NEAR(check.nearest, 3.1, 1e-14);
  EXPECT_NEAR(Dist(check.place, Point(0.3, 1.7)), 3.1, 1e-14) << "on the offset";
  EXPECT_NEAR(NearestDistance(corner, round), 3.1, 1e-14);
}

TEST_F(RegionCheck, AnOffsetThatCrossesItselfOrIsTooNearIsNot) {
  const KurveEx square = PolygonContour({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  const OffsetCheck crossed = CheckOffset(square, PolygonContour({{2, 2}, {8, 8}, {8, 2}, {2, 8}}), 2);
  EXPECT_EQ(crossed.finding, OffsetCheck::Finding::Crosses);
  EXPECT_NEAR(crossed.place.x, 5, 1e-9);
  const OffsetCheck near = CheckOffset(square, PolygonContour({{2, 2}, {9, 2}, {8, 8}, {2, 8}}), 2);
  EXPECT_EQ(near.finding, OffsetCheck::Finding::TooNear);
  EXPECT_NEAR(near.nearest, 1, 1e-9);
  EXPECT_NEAR(near.place.x, 9, 1e-9);
}

}  // namespace
}  // namespace geometry::testing

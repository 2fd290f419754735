#include <gtest/gtest.h>

#include <cstdlib>

#include "geometry/region/pieces.h"
#include "geometry/region_shapes.h"

/// Offsets of large and odd regions, with the right answer from first principles beside each.
namespace geometry::testing {
namespace {

class RegionCorpus : public ::testing::Test {
  UnitsGuard millimetres_{0};
};

/// The area of a polygon moved inwards, as long as no side vanishes: its area less the strips along its
/// sides. Two strips share a kite at an outward corner, and leave a sector at an inward one; with a distance
/// below 0, which moves outwards, it is the other way round. Anticlockwise.
double InsetArea(const std::vector<Point>& corners, double distance) {
  double area = 0;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Point &a = corners[i], &b = corners[(i + 1) % corners.size()],
                &c = corners[(i + 2) % corners.size()];
    const Vector2d in(a, b), out(b, c), from(corners[0], a);
    const double turn = std::atan2(Cross(in, out), Dot(in, out));
    area += Cross(from, Vector2d(corners[0], b)) / 2 - distance * in.Magnitude();
    area += distance * distance * (turn * distance > 0 ? std::tan(turn / 2) : turn / 2);
  }
  return area;
}

/// Points on circles of these radii in turn, at equal angles.
std::vector<Point> Star(int count, const std::vector<double>& radii) {
  std::vector<Point> corners;
  for (int i = 0; i < count; ++i) {
    const double angle = 2 * kPi * i / count, r = radii[static_cast<std::size_t>(i) % radii.size()];
    corners.emplace_back(r * std::cos(angle), r * std::sin(angle));
  }
  return corners;
}

// A tenth of them without VANZET_REGION_LAWS.
TEST_F(RegionCorpus, TenThousandNeedlesOfTenMetres) {
  const int count = std::getenv("VANZET_REGION_LAWS") ? 10000 : 1000;
  const double foot = count / 10.0;
  const std::vector<Point> needles = Star(2 * count, {foot, foot + 10000});
  const Region region = Polygon(needles), made = OffsetRegion(region, 0.1);
  ASSERT_EQ(made.loops.size(), 1u);
  EXPECT_NEAR(made.Area() / InsetArea(needles, 0.1), 1, 1e-9);
  // At 0.35 nothing is left of the needles but the feet, which are 0.628 wide.
  const Region disc = OffsetRegion(region, 0.35);
  ASSERT_EQ(disc.loops.size(), 1u);
  EXPECT_NEAR(disc.Area() / (kPi * foot * foot), 1, 0.02);
}

// The needles have feet of 0.001 mm, and are apart by more than twice the distance only far from them.
// Inwards, each of the curves crosses some hundred others. A fifth of the needles without VANZET_REGION_LAWS.
TEST_F(RegionCorpus, NeedlesOnFeetOfAMicrometreGrowTogetherAtTheirFeet) {
  const bool isWhole = std::getenv("VANZET_REGION_LAWS") != nullptr;
  const int count = isWhole ? 10000 : 2000;
  const double foot = count * 1e-3 / (2 * kPi);
  const std::vector<Point> needles = Star(2 * count, {foot, foot + 10000});
  const Region region = Polygon(needles);
  for (const double distance : {0.01, 0.1, 1.0}) {
    const Region grown = OffsetRegion(region, -distance);
    ASSERT_EQ(grown.loops.size(), 1u) << distance;
    EXPECT_NEAR(grown.Area() / InsetArea(needles, -distance), 1, 1e-11) << distance;
    if (isWhole && distance > 0.05) {
      EXPECT_FALSE(OffsetRegion(region, distance).ok) << distance;
    }
  }
}

TEST_F(RegionCorpus, GearsInMetresAndMicrometres) {
  for (const double unit : {1.0, 1e-3, 1e-6}) {
    // 40 teeth of trapezoid form, at a radius of 50 in the unit.
    const std::vector<Point> teeth = Star(160, {48 * unit, 48 * unit, 52 * unit, 52 * unit});
    const Region gear = Polygon(teeth);
    for (const double share : {0.1, 0.5}) {
      const double exact = InsetArea(teeth, share * unit);
      const Region made = OffsetRegion(gear, share * unit);
      EXPECT_EQ(made.loops.size(), 1u);
      EXPECT_NEAR(made.Area() / exact, 1, 1e-9) << unit;
    }
  }
}

TEST_F(RegionCorpus, SquaresThatShareAVertexStayTwoOrBecomeOne) {
  const Region pair = Polygon({{0, 0}, {5, 0}, {5, 5}, {10, 5}, {10, 10}, {5, 10}, {5, 5}, {0, 5}});
  const Region shrunk = OffsetRegion(pair, 1), grown = OffsetRegion(pair, -1);
  EXPECT_EQ(shrunk.loops.size(), 2u);
  EXPECT_NEAR(shrunk.Area(), 2 * 3 * 3, 1e-9);
  // The grown squares have two unit squares and two quarter discs in common.
  EXPECT_EQ(grown.loops.size(), 1u);
  EXPECT_NEAR(grown.Area(), 2 * (45 + kPi) - (2 + kPi / 2), 1e-9);
}

TEST_F(RegionCorpus, AnIslandUnderACeilingGrowsInto) {
  // A room of 30 with a disc of 3 that is 2 below its ceiling.
  const Region frame = Subtract(Rectangle(0, 0, 40, 40), Rectangle(5, 5, 35, 35));
  const Region plan = Unite(frame, Disc(20, 30, 3));
  EXPECT_EQ(OffsetRegion(plan, -0.9).loops.size(), 3u);
  // At 1.5 the ceiling is at 33.5, 3.5 above the middle of a disc of 4.5.
  const double r = 4.5, h = 3.5;
  const double outer = 1600 + 4 * 40 * 1.5 + kPi * 1.5 * 1.5;
  const double disc = kPi * r * r - SegmentOf(r, 2 * std::sqrt(r * r - h * h));
  const Region grown = OffsetRegion(plan, -1.5);
  EXPECT_EQ(grown.loops.size(), 2u);
  EXPECT_EQ(HoleCount(grown), 1);
  EXPECT_NEAR(grown.Area(), outer - (27 * 27 - disc), 1e-9);
}

TEST_F(RegionCorpus, RingsSlitDownToANanometreGrowTogether) {
  const double d = 0.5;
  for (const double slit : {0.1, 1e-3, 1e-6, 1e-9}) {
    const Region ring = Subtract(Disc(0, 0, 50), Disc(0, 0, 40));
    const Region open = Subtract(ring, Rectangle(0, -slit / 2, 60, slit / 2));
    // Grown, a slit thinner than twice the distance is closed, but for a notch of less than its square.
    const Region grown = OffsetRegion(open, -d);
    ASSERT_EQ(grown.loops.size(), 2u) << slit;
    const double whole = kPi * (50.5 * 50.5 - 39.5 * 39.5);
    EXPECT_NEAR(grown.Area(), whole, slit * slit + 1e-8) << slit;
    // Shrunk, the slit is wider by twice the distance.
    const double h = slit / 2 + d;
    const auto strip = [&](double r) { return h * std::sqrt(r * r - h * h) + r * r * std::asin(h / r); };
    const Region shrunk = OffsetRegion(open, d);
    ASSERT_EQ(shrunk.loops.size(), 1u) << slit;
    EXPECT_NEAR(shrunk.Area(), kPi * (49.5 * 49.5 - 40.5 * 40.5) - (strip(49.5) - strip(40.5)), 1e-7) << slit;
  }
}

TEST_F(RegionCorpus, AWhiskerInTheInsideIsNoBoundary) {
  // Into the square and back: it bounds nothing, and nothing outside begins there.
  const Region plate = Polygon({{0, 0}, {10, 0}, {10, 5}, {6, 5}, {10, 5}, {10, 10}, {0, 10}});
  EXPECT_TRUE(plate.loose.empty());
  EXPECT_NEAR(OffsetRegion(plate, 1).Area(), 64, 1e-9);
  EXPECT_NEAR(OffsetRegion(plate, -1).Area(), 140 + kPi, 1e-9);
}

/// 2101 lines, each of which crosses nearly all others: 2.2 million crossings.
std::vector<Point> CornersOfAStarPolygon() {
  std::vector<Point> corners;
  for (int i = 0; i < 2101; ++i) {
    const double angle = 2 * kPi * 1050 / 2101 * i;
    corners.emplace_back(std::cos(angle), std::sin(angle));
  }
  return corners;
}

TEST_F(RegionCorpus, WhatIsTooMuchIsRefusedInsteadOfTakingAllMemory) {
  std::vector<Point> corners = CornersOfAStarPolygon();
  EXPECT_FALSE(Polygon(corners).ok);
  corners.resize(200);
  EXPECT_TRUE(Polygon(corners).ok);
}

// A larger distance between points would make fewer of them, but not fewer crossings of long lines.
TEST_F(RegionCorpus, TooManyCrossingsAreNotTriedWithALargerDistance) {
  const std::vector<Point> corners = CornersOfAStarPolygon();
  region::Pieces all(1e-12), some(1e-12);
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Point &from = corners[i], &to = corners[(i + 1) % corners.size()];
    const region::Stroke line{{from.x, from.y}, {to.x, to.y}, Vector2d(from, to)};
    all.Add(line);
    if (i < 200) some.Add(line);
  }
  EXPECT_EQ(all.Normalise(), region::Normalised::kTooMany);
  EXPECT_EQ(some.Normalise(), region::Normalised::kDone);
}

}  // namespace
}  // namespace geometry::testing

#include <gtest/gtest.h>

#include "geometry/region/offset_chain.h"
#include "geometry/region/separate_loops.h"
#include "geometry/region_laws.h"
#include "geometry/region_shapes.h"

/// Laws of offsets of waves, whose bends are tighter than the distance, so that runs of spans have no part of
/// the offset and their loops are cut off.
namespace geometry::testing {
namespace {

using region::EndForm;
using region::Sketch;

class RegionWaveLaws : public RegionLaws {
 protected:
  /// A ring with waves: of short lines and arcs, or of lines with fillets between them.
  Region DrawWave(Random& random) const {
    return Drawn(random.Below(2) == 0 ? Tessellated(random) : Filleted(random));
  }
  /// Half of the distances are the radius of all fillets.
  double DrawReach(Random& random) const {
    return (IsLattice() ? kFillet : random.Between(0.2, 2.5)) * (random.Below(2) == 0 ? -1 : 1);
  }

 private:
  static constexpr double kFillet = 0.5;

  static Region Drawn(const std::vector<RegionSpan>& spans) {
    Region drawn;
    drawn.loops.push_back({spans});
    return Clean(drawn, FillRule::EvenOdd);
  }
  static Point Polar(double radius, double angle) {
    return {radius * std::cos(angle), radius * std::sin(angle)};
  }
  /// Some spans are arcs, which bulge to either side.
  static std::vector<RegionSpan> Tessellated(Random& random) {
    const int count = 30 + random.Below(90), waves = 2 + random.Below(6);
    const double height = random.Between(0.5, 3), rough = random.Below(2) == 0 ? 0 : 0.05;
    const auto at = [&](int i) {
      const double angle = 2 * kPi * (i % count) / count;
      return Polar(8 + height * std::sin(waves * angle) + rough * std::sin(i % count * 7.7), angle);
    };
    std::vector<RegionSpan> spans;
    for (int i = 0; i < count; ++i) {
      RegionSpan span{LINEAR, at(i), at(i + 1), {}};
      if (random.Below(4) == 0) {
        const Vector2d half = Vector2d(span.p0, span.p1) * 0.5;
        span.dir = random.Below(2) == 0 ? ACW : CW;
        span.pc = span.p0 + half + half.LeftNormal() * (span.dir * random.Between(0.7, 6));
      }
      spans.push_back(span);
    }
    return spans;
  }
  /// Sides of a star with tangent arcs at its corners, where they fit.
  std::vector<RegionSpan> Filleted(Random& random) const {
    const int count = 2 * (4 + random.Below(10));
    std::vector<Point> corners;
    for (int i = 0; i < count; ++i) {
      corners.push_back(Polar(i % 2 == 0 ? 9 : 9 - random.Between(0.5, 4), 2 * kPi * i / count));
    }
    std::vector<RegionSpan> spans;
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const Point &before = corners[(i + corners.size() - 1) % corners.size()], &corner = corners[i],
                  &after = corners[(i + 1) % corners.size()];
      AddFillet(before, corner, after, IsLattice() ? kFillet : random.Between(0.1, 1), spans);
    }
    for (std::size_t i = 0; i < spans.size(); ++i) {
      if (spans[i].dir == LINEAR) spans[i].p1 = spans[(i + 1) % spans.size()].p0;
    }
    return spans;
  }
  /// The fillet and the start of the line after it.
  static void AddFillet(const Point& before, const Point& corner, const Point& after, double radius,
                        std::vector<RegionSpan>& spans) {
    const Vector2d in = Unit(Vector2d(before, corner)), out = Unit(Vector2d(corner, after));
    const double turn = std::atan2(Cross(in, out), Dot(in, out)), side = turn > 0 ? 1 : -1;
    const double leg = radius * std::tan(std::abs(turn) / 2);
    if (leg > 0.4 * std::min(Dist(before, corner), Dist(corner, after))) {
      spans.push_back({LINEAR, corner, corner, {}});
      return;
    }
    const Point begin = corner + in * -leg, end = corner + out * leg;
    spans.push_back({turn > 0 ? ACW : CW, begin, end, begin + in.LeftNormal() * (radius * side)});
    spans.push_back({LINEAR, end, end, {}});
  }
  static Vector2d Unit(const Vector2d& v) { return v * (1 / v.Magnitude()); }
};

TEST_F(RegionWaveLaws, OffsetsHoldThePointsAtTheDistance) {
  ForEach(
      [&](Random& random) {
        const Region region = DrawWave(random);
        const double distance = DrawReach(random);
        const Region made = OffsetRegion(region, distance);
        ASSERT_TRUE(made.ok);
        for (int i = 0; i < 60; ++i) {
          const Point p = DrawPoint(region, 3, random);
          const double depth = Depth(region, p);
          if (std::abs(depth - distance) < kClose) continue;
          ASSERT_EQ(TurnsAround(made, p), depth > distance ? 1 : 0)
              << p.x << " " << p.y << " by " << distance;
        }
        for (const RegionLoop& loop : made.loops) {
          for (const RegionSpan& s : loop.spans) {
            for (const double t : {0.0, 0.5}) {
              ASSERT_NEAR(DistanceTo(region, PointOn(s, t)), std::abs(distance), 1e-7) << "by " << distance;
            }
          }
        }
      },
      2);
}

/// The positive points of the curves, all of which are arranged. A chain with butt ends keeps its loops.
Region Arranged(const Region& region, double distance, EndForm end, const RegionOffset& options,
                std::size_t& spans) {
  Sketch sketch({&region});
  region::OffsetChain chain(sketch, distance, options);
  std::vector<RegionLoop> loops;
  for (const RegionLoop& loop : region.loops)
    loops.push_back(chain.Around(loop.spans, loop.spans.size(), end));
  for (const RegionLoop& loop : loops) spans += loop.spans.size();
  sketch.AddLoops(loops, {1, 0});
  return FacesOf(sketch, [](const region::Turns& turns) { return turns[0] > 0; });
}

TEST_F(RegionWaveLaws, NothingDependsOnTheLoopsThatAreCutOff) {
  std::size_t left = 0, all = 0;
  ForEach(
      [&](Random& random) {
        const Region region = DrawWave(random);
        const double distance = DrawReach(random);
        const RegionOffset options{random.Below(3) == 0 ? Corner::Miter : Corner::Round};
        const Region cut = Arranged(region, distance, EndForm::kCorner, options, left);
        const Region uncut = Arranged(region, distance, EndForm::kButt, options, all);
        ASSERT_TRUE(cut.ok && uncut.ok);
        ASSERT_NEAR(cut.Area(), uncut.Area(), 1e-8 * (1 + region.Area())) << "by " << distance;
        ASSERT_NEAR(cut.Perimeter(), uncut.Perimeter(), 1e-6 * (1 + region.Perimeter())) << "by " << distance;
      },
      2);
  EXPECT_LT(left, 0.9 * static_cast<double>(all));
}

// Both sides of a path are one chain.
TEST_F(RegionWaveLaws, AThickWaveHoldsThePointsWithinTheDistance) {
  ForEach(
      [&](Random& random) {
        Region path = DrawWave(random);
        if (path.loops.empty()) return;
        path.loops.resize(1);
        path.loops[0].spans.resize(path.loops[0].spans.size() * 2 / 3);
        const double distance = std::abs(DrawReach(random));
        const PathEnd end = random.Below(2) == 0 ? PathEnd::Round : PathEnd::Square;
        const Region thick = Thicken(path, distance, end, {});
        ASSERT_TRUE(thick.ok);
        for (int i = 0; i < 60; ++i) {
          const Point p = DrawPoint(path, 3, random);
          const double away = DistanceTo(path, p);
          // A square end holds more than what is within the distance.
          if (std::abs(away - distance) < kClose || (away > distance && end == PathEnd::Square)) continue;
          ASSERT_EQ(TurnsAround(thick, p), away < distance ? 1 : 0)
              << p.x << " " << p.y << " by " << distance;
        }
      },
      2);
}

class LoopCutTest : public ::testing::Test {
 protected:
  /// Whether no span of the offset's curves meets another one, so that nothing is arranged.
  static bool IsProved(const Region& region, double distance) {
    const Sketch sketch({&region});
    region::OffsetChain chain(sketch, distance, {});
    std::vector<RegionLoop> loops;
    for (const RegionLoop& loop : region.loops) loops.push_back(chain.Around(loop.spans));
    const region::SeparateLoops separate(sketch, loops, chain.Resolution());
    return separate.IsSound() && separate.MeetingCount() == 0;
  }

 private:
  UnitsGuard millimetres_{0};
};

/// A bar with a fillet of radius 1 in each of its corners.
Region RoundedBar() {
  return Drawn({1, 0}, {{LINEAR, {19, 0}, {}},
                        {ACW, {20, 1}, {19, 1}},
                        {LINEAR, {20, 9}, {}},
                        {ACW, {19, 10}, {19, 9}},
                        {LINEAR, {1, 10}, {}},
                        {ACW, {0, 9}, {1, 9}},
                        {LINEAR, {0, 1}, {}},
                        {ACW, {1, 0}, {1, 1}}});
}

TEST_F(LoopCutTest, FilletsSmallerThanTheDistanceBecomeSharpCorners) {
  for (const double distance : {1.0, 1.5, 3.0, 4.9}) {
    const Region made = OffsetRegion(RoundedBar(), distance);
    ASSERT_EQ(made.loops.size(), 1u);
    EXPECT_EQ(made.loops[0].spans.size(), 4u) << distance;
    EXPECT_NEAR(made.Area(), (20 - 2 * distance) * (10 - 2 * distance), 1e-9);
    EXPECT_TRUE(IsProved(RoundedBar(), distance)) << distance;
  }
  EXPECT_TRUE(OffsetRegion(RoundedBar(), 5.1).loops.empty());
}

// The bottom of a V is cut by a line: the loop is cut off when the line is farther away than the legs.
TEST_F(LoopCutTest, ASpanThatIsNearerKeepsItsPart) {
  for (const double bottom : {0.5, 2.0}) {
    const Region v = Polygon({{-bottom, 0}, {bottom, 0}, {bottom + 9, 12}, {-bottom - 9, 12}});
    // The legs are 0.8 and 0.6: at the height h the width is 2 (bottom + 0.75 h), and 1.25 times the distance
    // is lost on each side.
    const double low = 2 * (bottom + 0.75 - 1.25), high = 2 * (bottom + 0.75 * 11 - 1.25);
    const Region made = OffsetRegion(v, 1);
    const double whole = low > 0 ? (low + high) / 2 * 10 : high * high / 3;
    EXPECT_NEAR(made.Area(), whole, 1e-9);
    EXPECT_EQ(made.loops[0].spans.size(), low > 0 ? 4u : 3u);
  }
}

// The sides of a notch are nearly opposite to each other. Grown, they meet where the notch is twice as wide.
TEST_F(LoopCutTest, NotchesOfAnyAngleAreFilledUpToTwiceTheDistance) {
  for (const double angle : {1e-1, 1e-3, 1e-4}) {
    const double half = 1000 * std::tan(angle / 2), distance = 100 * std::sin(angle / 2);
    const Region block =
        Polygon({{-200, -10}, {200, -10}, {200, 1000}, {half, 1000}, {0, 0}, {-half, 1000}, {-200, 1000}});
    const Sketch sketch({&block});
    region::OffsetChain chain(sketch, -distance, {});
    EXPECT_EQ(chain.Around(block.loops[0].spans).spans.size(), 7u + 6u)
        << "an arc at each other corner, no spur";
    const Region grown = OffsetRegion(block, -distance);
    ASSERT_EQ(grown.loops.size(), 1u) << angle;
    // The sides are 1000 / cos long; 100 cot of each and a kite at the bottom are counted twice.
    const double side = 1000 / std::cos(angle / 2), around = 2 * (400 + 1010) - 2 * half + 2 * side;
    const double twice = distance * 100 * std::cos(angle / 2);
    const double turns = 2 * kPi + (kPi - angle);
    const double whole =
        400 * 1010 - 1000 * half + distance * around + distance * distance * turns / 2 - twice;
    EXPECT_NEAR(grown.Area(), whole, 1e-7) << angle;
  }
}

// A bulb behind a neck that is narrower than the tool: the neck's corners are the nearest ones.
TEST_F(LoopCutTest, ABulbBehindANeckIsNoLoopOfTheNeck) {
  const Region bulb = Drawn({-10, 0}, {{LINEAR, {-0.6, 0}, {}},
                                       {LINEAR, {-0.6, -1}, {}},
                                       {LINEAR, {-5, -1}, {}},
                                       {LINEAR, {-5, -9}, {}},
                                       {LINEAR, {5, -9}, {}},
                                       {LINEAR, {5, -1}, {}},
                                       {LINEAR, {0.6, -1}, {}},
                                       {LINEAR, {0.6, 0}, {}},
                                       {LINEAR, {10, 0}, {}},
                                       {LINEAR, {10, 9}, {}},
                                       {LINEAR, {-10, 9}, {}},
                                       {LINEAR, {-10, 0}, {}}});
  const Region made = OffsetRegion(bulb, 1);
  ASSERT_EQ(made.loops.size(), 2u);
  EXPECT_EQ(made.loops[1].spans.size(), 7u);  // the room below, and two arcs at the neck's corners
}

TEST_F(LoopCutTest, ALoopOverTheStartOfTheContourIsCutOffToo) {
  Region bar = RoundedBar();
  const std::size_t count = bar.loops[0].spans.size();
  for (std::size_t start = 0; start < count; ++start) {
    std::rotate(bar.loops[0].spans.begin(), bar.loops[0].spans.begin() + 1, bar.loops[0].spans.end());
    EXPECT_TRUE(IsProved(bar, 2)) << start;
    EXPECT_NEAR(OffsetRegion(bar, 2).Area(), 96, 1e-9) << start;
  }
}

}  // namespace
}  // namespace geometry::testing

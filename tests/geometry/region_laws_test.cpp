#include <gtest/gtest.h>

#include <algorithm>

#include "geometry/region_laws.h"

/// Laws of regions drawn by lot: sets, offsets and what must not matter to them.
namespace geometry::testing {
namespace {

TEST_F(RegionLaws, SetsHoldThePointsThatTheyShould) {
  ForEach([&](Random& random) {
    const Region a = Clean(DrawContour(random)), b = Clean(DrawContour(random));
    const Region both = Unite(a, b), common = Intersect(a, b), rest = Subtract(a, b);
    ASSERT_TRUE(a.ok && b.ok && both.ok && common.ok && rest.ok);
    ASSERT_NEAR(both.Area() + common.Area(), a.Area() + b.Area(), 1e-7 * (1 + both.Area()));
    ASSERT_NEAR(rest.Area() + common.Area(), a.Area(), 1e-7 * (1 + both.Area()));
    for (int i = 0; i < 50; ++i) {
      const Point p = DrawPoint(both, 1, random);
      if (std::min(DistanceTo(a, p), DistanceTo(b, p)) < kClose) continue;
      const bool inA = TurnsAround(a, p) > 0, inB = TurnsAround(b, p) > 0;
      ASSERT_EQ(TurnsAround(both, p), inA || inB ? 1 : 0);
      ASSERT_EQ(TurnsAround(common, p), inA && inB ? 1 : 0);
      ASSERT_EQ(TurnsAround(rest, p), inA && !inB ? 1 : 0);
    }
  });
}

TEST_F(RegionLaws, CleaningFollowsTheRule) {
  ForEach([&](Random& random) {
    const KurveEx contour = DrawContour(random);
    const Region odd = Clean(contour), any = Clean(contour, FillRule::NonZero);
    Region drawn;
    drawn.loops.emplace_back();
    for (const Span& s : contour.spans) drawn.loops[0].spans.push_back({s.dir, s.p0, s.p1, s.pc});
    drawn.loops[0].spans.push_back({LINEAR, contour.End(), contour.Start(), {}});
    for (int i = 0; i < 50; ++i) {
      const Point p = DrawPoint(any, 1, random);
      if (DistanceTo(drawn, p) < kClose) continue;
      const int turns = TurnsAround(drawn, p);
      ASSERT_EQ(TurnsAround(odd, p), turns % 2 == 0 ? 0 : 1);
      ASSERT_EQ(TurnsAround(any, p), turns == 0 ? 0 : 1);
    }
  });
}

TEST_F(RegionLaws, OffsetsHoldThePointsAtTheDistance) {
  ForEach([&](Random& random) {
    const Region region = Clean(DrawContour(random));
    const double distance = DrawDistance(random);
    const Region made = OffsetRegion(region, distance);
    ASSERT_TRUE(made.ok);
    for (int i = 0; i < 100; ++i) {
      const Point p = DrawPoint(region, 7, random);
      const double depth = Depth(region, p);
      if (std::abs(depth - distance) < kClose) continue;
      ASSERT_EQ(TurnsAround(made, p), depth > distance ? 1 : 0) << p.x << " " << p.y << " by " << distance;
    }
    for (const RegionLoop& loop : made.loops) {
      for (const RegionSpan& s : loop.spans) {
        for (const double t : {0.0, 0.25, 0.5, 0.75}) {
          ASSERT_NEAR(DistanceTo(region, PointOn(s, t)), std::abs(distance), 1e-7) << "by " << distance;
        }
      }
    }
  });
}

TEST_F(RegionLaws, GrowingTwiceIsGrowingByTheSum) {
  ForEach([&](Random& random) {
    Region region = Clean(DrawContour(random));
    region.loose.clear();
    const double first = std::abs(DrawDistance(random)), second = std::abs(DrawDistance(random));
    const Region once = OffsetRegion(region, -first - second);
    const Region twice = OffsetRegion(OffsetRegion(region, -first), -second);
    ASSERT_TRUE(once.ok && twice.ok);
    ASSERT_NEAR(once.Area(), twice.Area(), 1e-6 * (1 + once.Area()));
    ASSERT_NEAR(once.Perimeter(), twice.Perimeter(), 1e-4 * (1 + once.Perimeter()));
  });
}

TEST_F(RegionLaws, ShrinkingTwiceIsShrinkingByTheSum) {
  ForEach([&](Random& random) {
    const Region region = Clean(DrawContour(random));
    const double first = std::abs(DrawDistance(random)) / 4, second = std::abs(DrawDistance(random)) / 4;
    const Region once = OffsetRegion(region, first + second);
    const Region twice = OffsetRegion(OffsetRegion(region, first), second);
    ASSERT_TRUE(once.ok && twice.ok);
    ASSERT_NEAR(once.Area(), twice.Area(), 1e-6 * (1 + region.Area()));
  });
}

/// The contour drawn from another start, backwards, mirrored, turned, moved and scaled.
std::vector<Region> Variants(const KurveEx& contour, Matrix motion, int start) {
  std::vector<RegionSpan> spans;
  for (const Span& s : contour.spans) spans.push_back({s.dir, s.p0, s.p1, s.pc});
  if (Dist(contour.End(), contour.Start()) > 0) spans.push_back({LINEAR, contour.End(), contour.Start(), {}});
  std::vector<Region> variants(3);
  std::vector<RegionSpan> turned = spans, back(spans.rbegin(), spans.rend());
  std::rotate(turned.begin(), turned.begin() + start % static_cast<int>(spans.size()), turned.end());
  for (RegionSpan& s : back) s = {-s.dir, s.p1, s.p0, s.pc};
  for (RegionSpan& s : spans) {
    s = {motion.IsMirrored() ? -s.dir : s.dir, s.p0.Transform(motion), s.p1.Transform(motion),
         s.pc.Transform(motion)};
  }
  variants[0].loops.push_back({turned});
  variants[1].loops.push_back({back});
  variants[2].loops.push_back({spans});
  return variants;
}

TEST_F(RegionLaws, NeitherStartNorDirectionNorPlaceNorScaleMatters) {
  ForEach([&](Random& random) {
    const KurveEx contour = DrawContour(random);
    if (contour.spans.empty()) return;
    const double distance = DrawDistance(random), scale = random.Below(2) == 0 ? 0.5 : 1024;
    Matrix motion;
    motion.Rotate(random.Between(0, 6), 3);
    motion.Scale(scale, random.Below(2) == 0 ? scale : -scale, scale);
    motion.Translate(random.Between(-1000, 1000), 3);
    const Region plain = OffsetRegion(Clean(contour), distance);
    const std::vector<Region> variants = Variants(contour, motion, random.Below(20));
    for (std::size_t i = 0; i < variants.size(); ++i) {
      const double factor = i == 2 ? scale : 1;
      const Region made = OffsetRegion(Clean(variants[i], FillRule::EvenOdd), distance * factor);
      ASSERT_TRUE(made.ok) << i;
      const double tolerance = 1e-8 * (1 + plain.Area());
      ASSERT_NEAR(made.Area() / factor / factor, plain.Area(), tolerance) << i << " by " << distance;
      ASSERT_NEAR(made.Perimeter() / factor, plain.Perimeter(), 1e-4 * (1 + plain.Perimeter())) << i;
    }
  });
}

}  // namespace
}  // namespace geometry::testing

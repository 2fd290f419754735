#include <gtest/gtest.h>

#include "geometry/region_laws.h"

/// Laws of the loops of regions drawn by lot: where the inside is, what contains what, and that no part of an
/// offset is missing.
namespace geometry::testing {
namespace {

using RegionLoopLaws = RegionLaws;
using RegionCornerLaws = RegionLaws;

/// The fraction of a span at which no other one is likely to touch it.
constexpr double kNoVertex = 0.4321;
constexpr double kAside = 1e-4;
constexpr double kOnBoundary = 1e-7;

/// The point beside a span, at a fraction of it, to the left.
Point LeftOf(const RegionSpan& s, double t, double distance) {
  const Point p = PointOn(s, t);
  const Vector2d along = s.dir == LINEAR ? Vector2d(s.p0, s.p1) : Vector2d(s.pc, p).LeftNormal() * s.dir;
  return p + along.LeftNormal() * (distance / along.Magnitude());
}

double AreaOutside(const Region& inner, const Region& outer) {
  return Subtract(inner, outer).Area();
}

/// Each span has the set on its left alone, so that outsides are anticlockwise, holes clockwise, and each
/// loop is at its level. Points beside which there is another span are not asked for.
void ExpectInsideOnTheLeft(const Region& region) {
  for (const RegionLoop& loop : region.loops) {
    EXPECT_EQ(loop.IsHole(), loop.Area() < 0);
    for (const RegionSpan& s : loop.spans) {
      for (const double side : {kAside, -kAside}) {
        const Point p = LeftOf(s, kNoVertex, side);
        if (DistanceTo(region, p) < kAside * (1 - 1e-6) || s.Length() < 10 * kAside) continue;
        ASSERT_EQ(TurnsAround(region, p), side > 0 ? 1 : 0) << p.x << " " << p.y;
      }
    }
  }
}

TEST_F(RegionLoopLaws, TheInsideIsOnTheLeft) {
  ForEach(
      [&](Random& random) {
        const Region a = Clean(DrawContour(random)), b = Clean(DrawContour(random));
        const double distance = DrawDistance(random);
        for (const Region& region :
             {a, Unite(a, b), Intersect(a, b), Subtract(a, b), OffsetRegion(a, distance)})
          ExpectInsideOnTheLeft(region);
      },
      4);
}

TEST_F(RegionLoopLaws, ALargerDistanceGivesLess) {
  ForEach(
      [&](Random& random) {
        const Region region = Clean(DrawContour(random));
        const double a = DrawDistance(random), b = DrawDistance(random);
        const Region more = OffsetRegion(region, std::min(a, b)), less = OffsetRegion(region, std::max(a, b));
        ASSERT_NEAR(AreaOutside(less, more), 0, 1e-6 * (1 + more.Area())) << a << " " << b;
      },
      4);
}

// A point that was moved from a span by the distance, and beyond which nothing is nearer, is on the result.
TEST_F(RegionLoopLaws, NoPartOfAnOffsetIsMissing) {
  ForEach(
      [&](Random& random) {
        const Region region = Clean(DrawContour(random));
        const double distance = DrawDistance(random);
        const Region made = OffsetRegion(region, distance);
        for (const RegionLoop& loop : region.loops) {
          for (const RegionSpan& s : loop.spans) {
            for (int i = 1; i < 20; ++i) {
              const double farther = distance + std::copysign(kAside, distance);
              const Point beyond = LeftOf(s, i / 20.0, farther);
              if (std::abs(Depth(region, beyond) - farther) > kClose / 10) continue;
              ASSERT_NEAR(DistanceTo(made, LeftOf(s, i / 20.0, distance)), 0, kOnBoundary)
                  << "by " << distance;
            }
          }
        }
      },
      4);
}

TEST_F(RegionCornerLaws, CornersOfAnyFormKeepTheDistance) {
  ForEach(
      [&](Random& random) {
        const Region region = Clean(DrawContour(random));
        const double distance = DrawDistance(random);
        for (const Corner corner : {Corner::Miter, Corner::Chamfer}) {
          const Region made = OffsetRegion(region, distance, {corner});
          ASSERT_TRUE(made.ok);
          ExpectInsideOnTheLeft(made);
          for (const RegionLoop& loop : made.loops) {
            for (const RegionSpan& s : loop.spans) {
              for (const double t : {0.0, 0.3, 0.6, 0.9})
                ASSERT_GE(DistanceTo(region, PointOn(s, t)), std::abs(distance) - kOnBoundary);
            }
          }
        }
      },
      4);
}

// A sharp corner keeps more away from the contour than a cut one does, and that one more than a round one.
TEST_F(RegionCornerLaws, FormsContainEachOther) {
  ForEach(
      [&](Random& random) {
        const Region region = Clean(DrawContour(random));
        const double distance = DrawDistance(random);
        const Region round = OffsetRegion(region, distance);
        const Region cut = OffsetRegion(region, distance, {Corner::Chamfer});
        const Region sharp = OffsetRegion(region, distance, {Corner::Miter, 10});
        const double tolerance = 1e-6 * (1 + region.Area() + sharp.Area());
        const bool grows = distance < 0;
        ASSERT_NEAR(AreaOutside(grows ? round : cut, grows ? cut : round), 0, tolerance) << distance;
        ASSERT_NEAR(AreaOutside(grows ? cut : sharp, grows ? sharp : cut), 0, tolerance) << distance;
      },
      4);
}

}  // namespace
}  // namespace geometry::testing

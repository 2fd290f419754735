#include <gtest/gtest.h>

#include <algorithm>

#include "geometry/region_laws.h"

/// Laws of thick paths, offsets of paths, distances and checks, for paths drawn by lot.
namespace geometry::testing {
namespace {

using RegionPathLaws = RegionLaws;

/// The path's spans that have a length, as loose curves.
Region Drawn(const KurveEx& path) {
  Region drawn;
  for (const Span& s : path.spans) {
    if (Dist(s.p0, s.p1) > 0) drawn.loose.push_back({s.dir, s.p0, s.p1, s.pc});
  }
  return drawn;
}

KurveEx Reversed(const KurveEx& path) {
  KurveEx back;
  back.Start(path.End());
  for (std::size_t i = path.spans.size(); i-- > 0;) {
    const Span& s = path.spans[i];
    back.Add(spVertex(-s.dir, s.p0, s.pc));
  }
  return back;
}

KurveEx MovedBy(const KurveEx& path, Matrix& motion) {
  KurveEx moved = path;
  moved.Transform(motion);
  return moved;
}

double LengthOf(const std::vector<RegionPath>& parts) {
  double length = 0;
  for (const RegionPath& part : parts) {
    for (const RegionSpan& s : part.spans) length += s.Length();
  }
  return length;
}

double AreaOutside(const Region& inner, const Region& outer) {
  return Subtract(inner, outer).Area();
}

TEST_F(RegionPathLaws, AThickPathHoldsThePointsWithinTheDistance) {
  ForEach(
      [&](Random& random) {
        const KurveEx path = DrawContour(random);
        const double distance = std::abs(DrawDistance(random));
        const Region drawn = Drawn(path), thick = Thicken(path, distance);
        ASSERT_TRUE(thick.ok);
        if (drawn.loose.empty()) return;
        for (int i = 0; i < 60; ++i) {
          const Point p = DrawPoint(thick, 1, random);
          const double away = DistanceTo(drawn, p);
          if (std::abs(away - distance) < kClose) continue;
          ASSERT_EQ(TurnsAround(thick, p), away < distance ? 1 : 0) << p.x << " " << p.y << " " << distance;
        }
      },
      4);
}

TEST_F(RegionPathLaws, EndsContainEachOther) {
  ForEach(
      [&](Random& random) {
        const KurveEx path = DrawContour(random);
        const double distance = std::abs(DrawDistance(random));
        const Region butt = Thicken(path, distance, PathEnd::Butt), round = Thicken(path, distance),
                     square = Thicken(path, distance, PathEnd::Square);
        ASSERT_TRUE(butt.ok && round.ok && square.ok);
        ASSERT_NEAR(AreaOutside(butt, round), 0, 1e-6 * (1 + round.Area())) << distance;
        ASSERT_NEAR(AreaOutside(round, square), 0, 1e-6 * (1 + round.Area())) << distance;
      },
      4);
}

TEST_F(RegionPathLaws, NeitherDirectionNorPlaceMattersToAThickPath) {
  ForEach(
      [&](Random& random) {
        const KurveEx path = DrawContour(random);
        const double distance = std::abs(DrawDistance(random));
        Matrix motion;
        motion.Rotate(random.Between(0, 6), 3);
        motion.Scale(1, random.Below(2) == 0 ? 1 : -1, 1);
        motion.Translate(random.Between(-1000, 1000), 3);
        const Region plain = Thicken(path, distance);
        for (const Region& other :
             {Thicken(Reversed(path), distance), Thicken(MovedBy(path, motion), distance)}) {
          ASSERT_NEAR(other.Area(), plain.Area(), 1e-8 * (1 + plain.Area())) << distance;
          ASSERT_NEAR(other.Perimeter(), plain.Perimeter(), 1e-4 * (1 + plain.Perimeter())) << distance;
        }
      },
      4);
}

/// The offset's parts are at the distance; both sides and what the ends' discs can have make the whole
/// boundary.
TEST_F(RegionPathLaws, BothOffsetsMakeTheBoundaryOfTheThickPath) {
  ForEach(
      [&](Random& random) {
        const KurveEx path = DrawContour(random);
        const double distance = std::abs(DrawDistance(random));
        const Region drawn = Drawn(path);
        const auto left = OffsetPath(path, distance), right = OffsetPath(path, -distance);
        for (const auto* side : {&left, &right}) {
          for (const RegionPath& part : *side) {
            for (const RegionSpan& s : part.spans) {
              for (const double t : {0.0, 0.3, 0.6, 0.9})
                ASSERT_NEAR(DistanceTo(drawn, PointOn(s, t)), distance, 1e-7);
            }
          }
        }
        const double rest = Thicken(path, distance).Perimeter() - LengthOf(left) - LengthOf(right);
        const bool isClosed = Dist(path.Start(), path.End()) == 0;
        ASSERT_GE(rest, -1e-6);
        ASSERT_LE(rest, (isClosed ? 0 : 2 * kPi * distance) + 1e-6) << distance;
        // Where a path runs over itself, the boundary belongs to any of its passes.
        const double back = LengthOf(OffsetPath(Reversed(path), -distance));
        if (IsLattice() || !Clean(path).loose.empty()) return;
        ASSERT_NEAR(back, LengthOf(left), 1e-5 * (1 + back));
      },
      4);
}

TEST_F(RegionPathLaws, OffsetsAreAsFarAwayAsTheyAreMadeAndClean) {
  ForEach(
      [&](Random& random) {
        const KurveEx path = DrawContour(random);
        const double distance = DrawDistance(random);
        for (const RegionPath& part : OffsetPath(path, distance)) {
          const KurveEx made = ContourOf(RegionLoop{part.spans});
          const OffsetCheck check = CheckOffset(path, made, distance);
          ASSERT_EQ(check.finding, OffsetCheck::Finding::Clean) << check.place.x << " " << check.place.y;
          ASSERT_NEAR(check.nearest, std::abs(distance), 0.02);
          ASSERT_NEAR(NearestDistance(path, made), check.nearest, 1e-9);
          ASSERT_NEAR(NearestDistance(made, path), check.nearest, 1e-9);
          ASSERT_FALSE(OffsetIsClean(path, made, std::abs(distance) + 0.1));
        }
      },
      4);
}

TEST_F(RegionPathLaws, DistancesDoNotDependOnThePlace) {
  ForEach(
      [&](Random& random) {
        const KurveEx a = DrawContour(random);
        Matrix aside, motion;
        aside.Translate(random.Between(0, 60), random.Between(0, 60));
        const KurveEx b = MovedBy(DrawContour(random), aside);
        motion.Rotate(random.Between(0, 6), 3);
        motion.Translate(random.Between(-1000, 1000), 3);
        if (Drawn(a).loose.empty() || Drawn(b).loose.empty()) return;
        const double plain = NearestDistance(a, b);
        ASSERT_NEAR(NearestDistance(b, a), plain, 1e-9);
        ASSERT_NEAR(NearestDistance(MovedBy(a, motion), MovedBy(b, motion)), plain, 1e-7);
      },
      4);
}

}  // namespace
}  // namespace geometry::testing

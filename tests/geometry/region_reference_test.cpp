#include <gtest/gtest.h>

#include "geometry/chorded.h"
#include "geometry/region_laws.h"
#include "geometry/region_shapes.h"

/// Areas beside those of chorded polygons, which another library has united, intersected and subtracted.
namespace geometry::testing {
namespace {

/// The reference is slow: it sees one region out of so many.
constexpr int kEvery = 20;

class RegionReference : public RegionLaws {
 protected:
  /// The largest error of an area that is due to the chords of a boundary.
  static double ErrorOf(double perimeter) { return 4 * Chorded::kChord * (1 + perimeter); }

  Chorded chorded;
};

TEST_F(RegionReference, KnowsADiscAndARing) {
  const Region disc = Disc(3, 4, 5), hole = Disc(3, 4, 2);
  EXPECT_NEAR(chorded.Area(chorded.Of(disc)), 25 * kPi, ErrorOf(10 * kPi));
  EXPECT_NEAR(chorded.Area(chorded.Of(Subtract(disc, hole))), 21 * kPi, ErrorOf(14 * kPi));
  EXPECT_NEAR(chorded.Area(chorded.Within(disc, 1)), 20 * kPi, ErrorOf(20 * kPi));
}

TEST_F(RegionReference, SetsHaveTheSameArea) {
  ForEach(
      [&](Random& random) {
        const Region a = Clean(DrawContour(random)), b = Clean(DrawContour(random));
        const Chorded::Shape shapeA = chorded.Of(a), shapeB = chorded.Of(b);
        const double error = ErrorOf(a.Perimeter() + b.Perimeter());
        EXPECT_NEAR(Unite(a, b).Area(), chorded.Area(chorded.Union(shapeA, shapeB)), error);
        EXPECT_NEAR(Intersect(a, b).Area(), chorded.Area(chorded.Common(shapeA, shapeB)), error);
        EXPECT_NEAR(Subtract(a, b).Area(), chorded.Area(chorded.Rest(shapeA, shapeB)), error);
      },
      kEvery);
}

TEST_F(RegionReference, OffsetsHaveTheSameArea) {
  ForEach(
      [&](Random& random) {
        const Region region = Clean(DrawContour(random));
        const double distance = std::abs(DrawDistance(random));
        const Region grown = OffsetRegion(region, -distance), shrunk = OffsetRegion(region, distance);
        const Chorded::Shape whole = chorded.Of(region), near = chorded.Within(region, distance);
        const double error = ErrorOf(2 * region.Perimeter() + grown.Perimeter() + shrunk.Perimeter());
        EXPECT_NEAR(grown.Area(), chorded.Area(chorded.Union(whole, near)), error) << "by " << distance;
        Region bounds = region;
        bounds.loose.clear();
        EXPECT_NEAR(shrunk.Area(), chorded.Area(chorded.Rest(whole, chorded.Within(bounds, distance))), error)
            << "by " << distance;
      },
      kEvery);
}

TEST_F(RegionReference, ThickPathsHaveTheSameArea) {
  ForEach(
      [&](Random& random) {
        const KurveEx path = DrawContour(random);
        const double distance = std::abs(DrawDistance(random));
        const Region thick = Thicken(path, distance);
        Region drawn;
        for (const Span& s : path.spans) {
          if (Dist(s.p0, s.p1) > 0) drawn.loose.push_back({s.dir, s.p0, s.p1, s.pc});
        }
        EXPECT_NEAR(thick.Area(), chorded.Area(chorded.Within(drawn, distance)),
                    ErrorOf(path.perim + thick.Perimeter()))
            << "by " << distance;
      },
      kEvery);
}

}  // namespace
}  // namespace geometry::testing

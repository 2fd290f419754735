#include "check/region_measures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace vanzet::test {
namespace {

using geometry::KurveEx;
using geometry::Point;
using geometry::Region;
using std::numbers::pi;

Region Rectangle(double fromX, double fromY, double toX, double toY) {
  KurveEx curve;
  curve.Start(Point(fromX, fromY));
  curve.Add(toX, fromY);
  curve.Add(toX, toY);
  curve.Add(fromX, toY);
  curve.Add(fromX, fromY);
  return geometry::Clean(curve);
}

Region Disc(double x, double y, double radius) {
  KurveEx curve;
  curve.Start(Point(x - radius, y));
  curve.Add(geometry::ACW, Point(x + radius, y), Point(x, y), false);
  curve.Add(geometry::ACW, Point(x - radius, y), Point(x, y), false);
  return geometry::Clean(curve);
}

TEST(Thickness, IsTheLargestCircleInside) {
  const auto flat = check::ThickestOf(Rectangle(0, 5, 40, 6.25), 0.05);
  ASSERT_TRUE(flat);
  EXPECT_NEAR(flat->width, 1.25, 0.0125);
  EXPECT_NEAR(flat->place.y, 5.625, 0.01);
  EXPECT_FALSE(check::ThickestOf(Rectangle(0, 5, 40, 5.04), 0.05));
  EXPECT_FALSE(check::ThickestOf(Region(), 0.05));
}

TEST(Thickness, AtTheAxisGoesOnBeyondIt) {
  const auto whole = check::ThickestOf(Rectangle(0, 0, 40, 3), 0.05);
  ASSERT_TRUE(whole);
  EXPECT_NEAR(whole->width, 6, 0.06);
}

TEST(SpunVolume, IsThatOfCylindersSpheresAndRings) {
  EXPECT_NEAR(check::SpunVolume(Rectangle(-10, 0, 20, 7)), pi * 49 * 30, 1e-9);
  EXPECT_NEAR(check::SpunVolume(Rectangle(-10, 3, 20, 7)), pi * 40 * 30, 1e-9);
  EXPECT_NEAR(check::SpunVolume(Disc(4, 9, 2)), 2 * pi * 9 * pi * 4, 1e-6);
  const Region half = geometry::Intersect(Disc(0, 0, 5), Rectangle(-6, 0, 6, 6));
  EXPECT_NEAR(check::SpunVolume(half), 4 * pi * 125 / 3, 1e-6);
}

TEST(PartBetween, IsBoundedByThePlaces) {
  EXPECT_NEAR(check::Between(Rectangle(0, 1, 10, 3), 4, 7).Area(), 6, 1e-9);
  EXPECT_TRUE(check::Between(Rectangle(0, 1, 10, 3), 10, 12).loops.empty());
  EXPECT_TRUE(check::Between(Rectangle(0, 1, 10, 3), 7, 4).loops.empty());
}

TEST(DistanceBetweenRegions, IsTheLeastOfAllLoops) {
  EXPECT_NEAR(check::DistanceBetween(Rectangle(0, 0, 1, 1), Rectangle(4, 0, 6, 1)), 3, 1e-9);
}

}  // namespace
}  // namespace vanzet::test

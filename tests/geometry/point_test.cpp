#include "geometry/point.h"

#include <gtest/gtest.h>

#include "geometry/box.h"
#include "geometry/matrix.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kNaN;
using testing::UnitsGuard;

TEST(Point, IsValidOnceConstructed) {
  EXPECT_FALSE(Point().ok);
  EXPECT_EQ(Point().x, 0);
  EXPECT_TRUE(Point(1, 2).ok);
  EXPECT_TRUE(Point(Point3d(1, 2, 3)).ok);
  EXPECT_EQ(Point(Point3d(1, 2, 3)).y, 2);
}

const Point invalidAtStart = INVALID_POINT;

TEST(Point, TheInvalidOneIsThereBeforeAnyCodeRuns) {
  EXPECT_FALSE(invalidAtStart.ok);
  EXPECT_EQ(invalidAtStart.x, 9.9999999e50);
  EXPECT_EQ(invalidAtStart.y, 0);
}

TEST(Point, PolarCountsInDegrees) {
  const Point p(Point(1, 1), 2, 30);
  EXPECT_TRUE(p.ok);
  EXPECT_DOUBLE_EQ(p.x, 1 + std::sqrt(3));
  EXPECT_DOUBLE_EQ(p.y, 2);
}

TEST(Point, SumsAreValidAndScalingKeepsValidity) {
  Point invalid = INVALID_POINT;
  EXPECT_TRUE((invalid + Vector2d(1, 0)).ok);
  EXPECT_TRUE((invalid - Vector2d(1, 0)).ok);
  EXPECT_TRUE(Point(1, 2) + Vector2d(3, 4) == Point(4, 6));
  EXPECT_TRUE(Point(1, 2) - Vector2d(3, 4) == Point(-2, -2));
  EXPECT_TRUE(Point(1, 2) + Point(3, 4) == Point(4, 6));
  EXPECT_TRUE(Point(1, 2) - Point(3, 5) == Point(-2, -3));
  EXPECT_FALSE((invalid * 2).ok);
  EXPECT_FALSE((invalid *= 2).ok);
  EXPECT_TRUE(Point(1, 2) * 3 == Point(3, 6));
}

TEST(Point, TransformsWithoutZ) {
  Matrix m;
  m.Rotate(1, 0, 3);
  m.Translate(10, 0, 5);
  const Point p = Point(1, 2).Transform(m);
  EXPECT_TRUE(p.ok);
  EXPECT_TRUE(p == Point(8, 1));
  EXPECT_FALSE(INVALID_POINT.Transform(m).ok);
  EXPECT_TRUE(Point3d(1, 2, 3).Transform(m) == Point3d(8, 1, 8));
}

TEST(Point, EqualityIncludesTheToleranceAndLooksAtNoFlag) {
  const UnitsGuard guard(0);
  EXPECT_TRUE(Point(0, 0) == Point(0.005, -0.005));
  EXPECT_FALSE(Point(0, 0) == Point(0.00501, 0));
  EXPECT_FALSE(Point(0, 0) == Point(0, 0.00501));
  EXPECT_TRUE(Point() == Point(0, 0));
  EXPECT_TRUE(Point(0, 0).Equal(Point(0.5, 0.5), 0.5));
  EXPECT_FALSE(Point(0, 0).Equal(Point(0.5, 0.5), 0.49));
  EXPECT_TRUE(Point3d(0, 0, 0) == Point3d(0, 0, 0.005));
  EXPECT_FALSE(Point3d(0, 0, 0) == Point3d(0, 0, 0.00501));
}

TEST(Point, WhatIsNotANumberIsNotDifferent) {
  EXPECT_TRUE(Point(kNaN, 0) == Point(1, 0)) << "the comparison asks for a difference";
  EXPECT_FALSE(Point(kNaN, 0).Equal(Point(1, 0), 1)) << "this one for nearness";
}

TEST(Point, DistanceIsTheLengthBetween) {
  EXPECT_EQ(Dist(Point(1, 1), Point(4, 5)), 5);
  EXPECT_EQ(Dist(Point3d(1, 1, 1), Point3d(3, 4, 7)), 7);
  EXPECT_TRUE(Point3d(1, 2, 3) + Vector3d(1, 1, 1) == Point3d(2, 3, 4));
  EXPECT_TRUE(Point3d(1, 2, 3) - Vector3d(1, 1, 1) == Point3d(0, 1, 2));
  EXPECT_EQ(Point3d(Point(1, 2), 7).z, 7);
}

TEST(Box, IsInsideOutUntilTheFirstInsertion) {
  Box box;
  EXPECT_EQ(box.min.x, 1e61);
  EXPECT_EQ(box.max.y, -1e61);
  box.Insert(Point(3, 4));
  EXPECT_EQ(box.min.x, 3);
  EXPECT_EQ(box.max.y, 4);
  box.Insert(Point(1, 9));
  EXPECT_EQ(box.min.x, 1);
  EXPECT_EQ(box.max.x, 3);
  EXPECT_EQ(box.min.y, 4);
  EXPECT_EQ(box.max.y, 9);
  EXPECT_EQ(box.Width(), 2);
  EXPECT_EQ(box.Height(), 5);
  EXPECT_TRUE(box.Mid() == Point(2, 6.5));
  box.Clear();
  EXPECT_EQ(box.min.y, 1e61);
}

TEST(Box, GrowsByBoxesAndMargins) {
  Box box(Point(0, 0), Point(1, 1));
  box.Insert(Box(Point(-1, 0.5), Point(0.5, 3)));
  EXPECT_EQ(box.min.x, -1);
  EXPECT_EQ(box.min.y, 0);
  EXPECT_EQ(box.max.x, 1);
  EXPECT_EQ(box.max.y, 3);
  box.Insert(Box(Point(-2, -2), Point(5, 5)));
  EXPECT_EQ(box.min.y, -2);
  EXPECT_EQ(box.max.x, 5);
  box.Grow(0.5);
  EXPECT_EQ(box.min.x, -2.5);
  EXPECT_EQ(box.max.y, 5.5);
}

TEST(Box, BordersAreInsideAndTouchingBoxesMeet) {
  const Box box(Point(0, 0), Point(2, 1));
  EXPECT_FALSE(box.Outside(Point(0, 0)));
  EXPECT_FALSE(box.Outside(Point(2, 1)));
  for (const Point& p : {Point(-1e-9, 0), Point(0, -1e-9), Point(2.000001, 0), Point(0, 1.000001)}) {
    EXPECT_TRUE(box.Outside(p));
  }
  EXPECT_FALSE(box.Outside(Box(Point(2, 1), Point(3, 3))));
  EXPECT_TRUE(box.Outside(Box(Point(2.1, 0), Point(3, 1))));
  EXPECT_TRUE(box.Outside(Box(Point(0, 1.1), Point(3, 2))));
  EXPECT_TRUE(box.Outside(Box(Point(-3, 0), Point(-0.1, 1))));
  EXPECT_TRUE(box.Outside(Box(Point(0, -3), Point(1, -0.1))));
}

TEST(Box, OfSpaceFollowsTheSameRules) {
  Box3d box;
  EXPECT_EQ(box.min.z, 1e61);
  box.Insert(Point3d(1, 2, 3));
  box.Insert(Box3d(Point3d(0, 0, 0), Point3d(2, 2, 2)));
  EXPECT_TRUE(box.min == Point3d(0, 0, 0));
  EXPECT_TRUE(box.max == Point3d(2, 2, 3));
  EXPECT_TRUE(box.Mid() == Point3d(1, 1, 1.5));
  EXPECT_FALSE(box.Outside(Point3d(2, 2, 3)));
  EXPECT_TRUE(box.Outside(Point3d(2, 2, 3.1)));
  EXPECT_TRUE(box.Outside(Box3d(Point3d(0, 0, -2), Point3d(2, 2, -1))));
  EXPECT_FALSE(box.Outside(Box3d(Point3d(2, 2, 3), Point3d(4, 4, 4))));
  box.Grow(1);
  EXPECT_TRUE(box.max == Point3d(3, 3, 4));
  box.Clear();
  EXPECT_EQ(box.max.z, -1e61);
}

TEST(Box, TakesNoHarmFromWhatIsNotANumber) {
  Box box(Point(0, 0), Point(1, 1));
  box.Insert(Point(kNaN, 3));
  EXPECT_EQ(box.min.x, 0);
  EXPECT_EQ(box.max.x, 1);
  EXPECT_EQ(box.max.y, 3);
}

}  // namespace
}  // namespace geometry

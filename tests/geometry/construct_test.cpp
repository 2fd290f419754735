#include "geometry/construct.h"

#include <gtest/gtest.h>

#include <cmath>

#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kInfinity;
using testing::kNaN;
using testing::kPi;
using testing::Random;
using testing::UnitsGuard;

/// The wanted circle touches a line on its side.
void ExpectTouches(const Circle& wanted, int side, const CLine& s) {
  EXPECT_NEAR(s.Dist(wanted.pc), side * wanted.radius, 1e-6);
}

/// The wanted circle touches a given one: from outside on side 1.
void ExpectTouches(const Circle& wanted, int side, const Circle& c) {
  EXPECT_NEAR(Dist(wanted.pc, c.pc), std::fabs(c.radius + side * wanted.radius), 1e-6);
}

void ExpectNoCircle(const Circle& c) {
  EXPECT_FALSE(c.ok);
  EXPECT_FALSE(c.pc.ok);
  EXPECT_EQ(c.radius, 0);
}

TEST(ConstructLine, AtAnAngleFromAnother) {
  const CLine s = AtAngle(kPi / 2, Point(3, 3), CLine(Point(0, 0), Point(1, 0)));
  EXPECT_TRUE(s.ok);
  EXPECT_TRUE(s.p == Point(3, 3));
  EXPECT_TRUE(s.v == Vector2d(0, 1));
}

TEST(ConstructLine, ParallelPerpendicularAndThrough) {
  const CLine s(Point(0, 0), Point(1, 0));
  EXPECT_TRUE(Parallel(s, 2).p == Point(0, 2));
  EXPECT_TRUE(Parallel(-1, s, 2).p == Point(0, -2));
  EXPECT_TRUE(Perpendicular(Point(5, 6), s).p == Point(5, 6));
  EXPECT_TRUE(Perpendicular(Point(5, 6), s).v == Vector2d(0, 1));
  EXPECT_TRUE(Thru(Point(1, 1), Point(1, 9)).v == Vector2d(0, 1));
  EXPECT_FALSE(Thru(Point(1, 1), Point(1, 1)).ok);
}

TEST(ConstructLine, FromAPointTouchesTheCircleOnItsSide) {
  Random random(858);
  for (int i = 0; i < 1000; ++i) {
    const Circle c(Point(random.Between(-5, 5), random.Between(-5, 5)), random.Between(0.5, 4));
    const Point p(c.pc, c.radius * random.Between(1.01, 5), random.Between(0, 360));
    for (const int side : {1, -1}) {
      const CLine s = Tanto(side, c, p);
      ASSERT_TRUE(s.ok);
      EXPECT_TRUE(s.p == p);
      EXPECT_NEAR(s.Dist(c.pc), side * c.radius, 1e-9);
      EXPECT_GT(Dot(s.v, Vector2d(p, c.pc)), 0) << "towards the circle";
    }
  }
}

TEST(ConstructLine, FromAPointOnTheCircleIsAcrossTheRadius) {
  const UnitsGuard guard(0);
  for (const double x : {3.0, 2.996, 3.004}) {
    const CLine left = Tanto(1, Circle(Point(0, 0), 3), Point(x, 0));
    EXPECT_TRUE(left.ok);
    EXPECT_TRUE(left.v == Vector2d(0, 1));
    EXPECT_TRUE(Tanto(-1, Circle(Point(0, 0), 3), Point(x, 0)).v == Vector2d(0, -1));
  }
  EXPECT_TRUE(Tanto(1, Circle(Point(0, 0), -3), Point(3, 0)).v == Vector2d(0, -1));
}

TEST(ConstructLine, FromWithinOrTheCentreThereIsNone) {
  const UnitsGuard guard(0);
  EXPECT_FALSE(Tanto(1, Circle(Point(0, 0), 3), Point(2.99, 0)).ok);
  EXPECT_FALSE(Tanto(1, Circle(Point(0, 0), 3), Point(0, 0)).ok);
  EXPECT_FALSE(Tanto(1, Circle(Point(0, 0), 0), Point(0.004, 0)).ok);
}

TEST(ConstructLine, TouchesTwoCirclesEachOnItsSide) {
  Random random(859);
  for (int i = 0; i < 1000; ++i) {
    const Circle a(Point(random.Between(-9, -4), random.Between(-5, 5)), random.Between(0.5, 2));
    const Circle b(Point(random.Between(4, 9), random.Between(-5, 5)), random.Between(0.5, 2));
    for (const int side1 : {1, -1}) {
      for (const int side2 : {1, -1}) {
        const CLine s = Tanto(side1, a, side2, b);
        ASSERT_TRUE(s.ok);
        EXPECT_NEAR(s.Dist(a.pc), side1 * a.radius, 1e-9);
        EXPECT_NEAR(s.Dist(b.pc), side2 * b.radius, 1e-9);
        EXPECT_GT(Dot(s.v, Vector2d(a.pc, b.pc)), 0);
        EXPECT_NEAR(Dist(s.p, a.pc), a.radius, 1e-9) << "it begins where it touches the first";
      }
    }
  }
  EXPECT_FALSE(Tanto(1, Circle(Point(0, 0), 5), 1, Circle(Point(1, 0), 1)).ok) << "one within the other";
}

TEST(ConstructCircle, ThroughTwoPointsOnTheSideOfTheChord) {
  const Circle left = Thru(1, Point(-3, 0), Point(3, 0), 5);
  const Circle right = Thru(-1, Point(-3, 0), Point(3, 0), 5);
  EXPECT_TRUE(left.pc == Point(0, 4));
  EXPECT_EQ(left.radius, 5);
  EXPECT_TRUE(right.pc == Point(0, -4));
}

TEST(ConstructCircle, ThroughTwoPointsAsFarApartAsItsDiameter) {
  const UnitsGuard guard(0);
  const Circle c = Thru(1, Point(-3, 0), Point(3, 0), 2.996);
  EXPECT_TRUE(c.pc == Point(0, 0));
  EXPECT_EQ(c.radius, 3) << "half of the chord";
  EXPECT_EQ(Thru(1, Point(-3, 0), Point(3, 0), 3.004).radius, 3);
  ExpectNoCircle(Thru(1, Point(-3, 0), Point(3, 0), 2.99));
  ExpectNoCircle(Thru(1, Point(3, 0), Point(3, 0), 2.99));
}

TEST(ConstructCircle, ThroughThreePoints) {
  const Circle c = Thru(Point(5, 0), Point(0, 5), Point(-3, 4));
  EXPECT_NEAR(Dist(c.pc, Point(0, 0)), 0, 1e-9);
  EXPECT_NEAR(c.radius, 5, 1e-9);
  ExpectNoCircle(Thru(Point(0, 0), Point(1, 1), Point(2, 2)));
}

TEST(ConstructCircle, ThroughCoincidingPointsIsThatOverTheOthers) {
  const Point a(0, 0);
  const Point b(6, 8);
  for (const Circle& c : {Thru(a, a, b), Thru(a, b, b), Thru(a, b, a)}) {
    EXPECT_TRUE(c.pc == Point(3, 4));
    EXPECT_EQ(c.radius, 5);
  }
  ExpectNoCircle(Thru(a, a, a));
}

TEST(ConstructCircle, OfARadiusTouchesTwoLines) {
  const CLine x(Point(0, 0), Point(1, 0));
  const CLine y(Point(0, 0), Point(0, 1));
  for (const int side1 : {1, -1}) {
    for (const int side2 : {1, -1}) {
      const Circle c = Tanto(side1, x, side2, y, 2);
      ASSERT_TRUE(c.ok);
      EXPECT_EQ(c.radius, 2);
      ExpectTouches(c, side1, x);
      ExpectTouches(c, side2, y);
    }
  }
  ExpectNoCircle(Tanto(1, x, 1, x.Parallel(3), 2));
}

TEST(ConstructCircle, TouchesThreeLines) {
  // The triangle of 3, 4 and 5 has an inscribed circle of radius 1, and others outside.
  const CLine a(Point(0, 0), Point(3, 0));
  const CLine b(Point(3, 0), Point(0, 4));
  const CLine c(Point(0, 4), Point(0, 0));
  const Circle inner = Tanto(1, a, 1, b, 1, c);
  EXPECT_TRUE(inner.pc == Point(1, 1));
  EXPECT_NEAR(inner.radius, 1, 1e-12);
  const Circle outer = Tanto(1, a, -1, b, 1, c);
  EXPECT_NEAR(outer.radius, 6, 1e-12);
  ExpectTouches(outer, -1, b);
  EXPECT_TRUE(outer.pc == Point(6, 6));
  ExpectNoCircle(Tanto(-1, a, -1, b, -1, c));
}

TEST(ConstructCircle, TouchingThreeLinesIsNoSmallerThanTheTolerance) {
  const UnitsGuard guard(0);
  const auto inscribed = [](double r) {
    const Point a(0, 0);
    const Point b(3 * r, 0);
    const Point c(0, 4 * r);
    return Tanto(1, CLine(a, b), 1, CLine(b, c), 1, CLine(c, a));
  };
  ExpectNoCircle(inscribed(0.0049));
  EXPECT_NEAR(inscribed(0.0051).radius, 0.0051, 1e-12);
}

TEST(ConstructCircle, TouchesThreeLinesOfWhichTwoAreParallel) {
  const CLine low(Point(0, 0), Point(1, 0));
  const CLine high(Point(9, 4), Point(0, 4));
  const CLine side(Point(0, 9), Point(0, 0));
  for (const Circle& c : {Tanto(1, low, 1, high, 1, side), Tanto(1, side, 1, low, 1, high)}) {
    EXPECT_TRUE(c.pc == Point(2, 2));
    EXPECT_NEAR(c.radius, 2, 1e-12);
  }
  ExpectNoCircle(Tanto(1, low, 1, low.Parallel(1), 1, low.Parallel(2)));
}

TEST(ConstructCircle, OfARadiusTouchesALineAndACircle) {
  const CLine x(Point(0, 0), Point(1, 0));
  const Circle given(Point(0, 5), 3);
  for (const int order : {1, -1}) {
    const Circle c = Tanto(order, 1, x, 1, given, 2);
    ASSERT_TRUE(c.ok);
    EXPECT_EQ(c.pc.x < 0, order == 1);
    ExpectTouches(c, 1, x);
    ExpectTouches(c, 1, given);
  }
  const Circle within = Tanto(1, 1, x, -1, Circle(Point(0, 5), 8), 2);
  ASSERT_TRUE(within.ok);
  ExpectTouches(within, -1, Circle(Point(0, 5), 8));
  ExpectNoCircle(Tanto(1, -1, x, 1, given, 2));
}

TEST(ConstructCircle, OfARadiusTouchesTwoCircles) {
  const Circle a(Point(0, 0), 3);
  const Circle b(Point(10, 0), 4);
  for (const int order : {1, -1}) {
    const Circle c = Tanto(order, 1, a, 1, b, 5);
    ASSERT_TRUE(c.ok);
    EXPECT_EQ(c.pc.y > 0, order == 1);
    ExpectTouches(c, 1, a);
    ExpectTouches(c, 1, b);
    const Circle around = Tanto(order, -1, a, -1, b, 20);
    ASSERT_TRUE(around.ok);
    ExpectTouches(around, -1, a);
    ExpectTouches(around, -1, b);
  }
  ExpectNoCircle(Tanto(1, 1, a, 1, b, 1));
}

TEST(ConstructCircle, OfARadiusTouchesALineThroughAPoint) {
  const CLine x(Point(0, 0), Point(1, 0));
  for (const int order : {1, -1}) {
    const Circle c = Tanto(order, 1, x, Point(7, 1), 5);
    ASSERT_TRUE(c.ok);
    ExpectTouches(c, 1, x);
    EXPECT_NEAR(Dist(c.pc, Point(7, 1)), 5, 1e-9);
    EXPECT_EQ(c.pc.x < 7, order == 1);
  }
  ExpectNoCircle(Tanto(1, 1, x, Point(7, 11), 5));
}

TEST(ThreeTangents, TouchTwoLinesAndACircle) {
  const CLine x(Point(0, 0), Point(1, 0));
  const CLine y(Point(0, 5), Point(0, 0));
  const Circle given(Point(6, 7), 2);
  for (const int side : {1, -1}) {
    Circle out[2];
    const int count = Tanto(1, x, 1, y, side, given, out);
    EXPECT_EQ(count, 2);
    for (int i = 0; i < count; ++i) {
      ExpectTouches(out[i], 1, x);
      ExpectTouches(out[i], 1, y);
      ExpectTouches(out[i], side, given);
    }
  }
}

TEST(ThreeTangents, TouchTwoLinesThroughAPoint) {
  Circle out[2];
  const int count = Tanto(1, CLine(Point(0, 0), Point(1, 0)), 1, CLine(Point(0, 5), Point(0, 0)), -1,
                          Circle(Point(2, 1), 0), out);
  ASSERT_EQ(count, 2);
  EXPECT_NEAR(out[0].radius, 5, 1e-9) << "the larger root first";
  EXPECT_NEAR(out[1].radius, 1, 1e-9);
  for (const Circle& c : out) EXPECT_NEAR(Dist(c.pc, Point(2, 1)), c.radius, 1e-9);
}

TEST(ThreeTangents, BetweenParallelLinesTheRadiusIsHalfTheirDistance) {
  const CLine low(Point(0, 0), Point(1, 0));
  const CLine high(Point(0, 4), Point(1, 4));
  const Circle given(Point(0, 2), 3);
  Circle out[2];
  EXPECT_EQ(Tanto(1, low, -1, high, 1, given, out), 2);
  for (const Circle& c : out) {
    EXPECT_EQ(c.radius, 2);
    ExpectTouches(c, 1, low);
    ExpectTouches(c, -1, high);
    ExpectTouches(c, 1, given);
  }
  EXPECT_TRUE(out[0].pc == Point(-5, 2));
  EXPECT_EQ(Tanto(1, low, 1, -high, 1, given, out), 2) << "opposed lines, equal sides";
  EXPECT_EQ(Tanto(1, low, 1, high, 1, given, out), 0);
  EXPECT_EQ(Tanto(1, low, -1, -high, 1, given, out), 0);
  EXPECT_EQ(Tanto(1, low, -1, high, 1, Circle(Point(0, 7), 3), out), 1) << "touching the one above";
  EXPECT_EQ(Tanto(1, low, -1, high, 1, Circle(Point(0, 20), 3), out), 0);
}

TEST(ThreeTangents, TouchALineAndTwoCircles) {
  const CLine x(Point(0, 0), Point(1, 0));
  const Circle a(Point(-5, 6), 2);
  const Circle b(Point(4, 5), 1);
  for (const int sideA : {1, -1}) {
    for (const int sideB : {1, -1}) {
      Circle out[2];
      const int count = Tanto(1, x, sideA, a, sideB, b, out);
      EXPECT_GT(count, 0);
      for (int i = 0; i < count; ++i) {
        ExpectTouches(out[i], 1, x);
        ExpectTouches(out[i], sideA, a);
        ExpectTouches(out[i], sideB, b);
      }
    }
  }
}

TEST(ThreeTangents, TouchThreeCircles) {
  const Circle a(Point(0, 0), 2);
  const Circle b(Point(10, 1), 3);
  const Circle c(Point(4, 9), 1);
  int found = 0;
  for (int sides = 0; sides < 8; ++sides) {
    const int s1 = sides & 1 ? 1 : -1;
    const int s2 = sides & 2 ? 1 : -1;
    const int s3 = sides & 4 ? 1 : -1;
    Circle out[2];
    const int count = Tanto(s1, a, s2, b, s3, c, out);
    found += count;
    for (int i = 0; i < count; ++i) {
      EXPECT_GT(out[i].radius, 0);
      ExpectTouches(out[i], s1, a);
      ExpectTouches(out[i], s2, b);
      ExpectTouches(out[i], s3, c);
    }
  }
  EXPECT_EQ(found, 8) << "Apollonius counted eight";
}

TEST(ThreeTangents, ThreePointsAreCirclesOfRadiusZero) {
  Circle out[2];
  ASSERT_EQ(Tanto(-1, Circle(Point(5, 0), 0), -1, Circle(Point(0, 5), 0), -1, Circle(Point(-3, 4), 0), out),
            1);
  EXPECT_NEAR(Dist(out[0].pc, Point(0, 0)), 0, 1e-9);
  EXPECT_NEAR(out[0].radius, 5, 1e-9);
}

TEST(ThreeTangents, CentresInARowHaveNoSolution) {
  Circle out[2];
  EXPECT_EQ(Tanto(1, Circle(Point(0, 0), 1), 1, Circle(Point(4, 0), 1), 1, Circle(Point(9, 0), 1), out), 0);
}

TEST(Touching, AtAPointOfALineOnEitherSide) {
  const CLine x(Point(-9, 0), Point(0, 0));
  const Circle across(Point(5, 1), 2);
  Circle out[2];
  ASSERT_EQ(Touching(Point(1, 0), x, 1, across, out), 2);
  ExpectTouches(out[0], 1, x);
  ExpectTouches(out[1], -1, x);
  for (const Circle& c : out) {
    EXPECT_NEAR(c.pc.x, 1, 1e-9);
    ExpectTouches(c, 1, across);
  }
}

TEST(Touching, OnlyFromTheSideOfTheLineWhereTheCircleLies) {
  const CLine x(Point(-9, 0), Point(0, 0));
  const Circle above(Point(5, 4), 2);
  Circle out[2];
  for (const auto& [side, radius] : {std::pair{1, 7.0 / 3}, std::pair{-1, 7.0}}) {
    ASSERT_EQ(Touching(Point(1, 0), x, side, above, out), 1);
    EXPECT_NEAR(out[0].radius, radius, 1e-9);
    ExpectTouches(out[0], 1, x);
    ExpectTouches(out[0], side, above);
  }
}

TEST(Apollonius, OnlyPositiveRadiiCount) {
  const Circle given(Point(0, 0), 1);
  Circle out[2];
  ASSERT_EQ(Apollonius(1, 0, 0, 3, 0, 1, 0, 0, given, 1, out), 1) << "of 2 and -4";
  EXPECT_DOUBLE_EQ(out[0].radius, 2);
  EXPECT_TRUE(out[0].pc == Point(3, 0));
  EXPECT_EQ(Apollonius(1, 0, 0, 1, 0, 1, 0, 0, given, 1, out), 0) << "of 0 and -2";
}

TEST(Apollonius, ASingularPairHasNoSolution) {
  Circle out[2];
  EXPECT_EQ(Apollonius(1, 2, 0, 1, 2, 4, 0, 5, Circle(Point(0, 0), 1), 1, out), 0);
  EXPECT_EQ(Apollonius(1, 0, 0, 0, 0, 0.9e-8, 0, 0, Circle(Point(0, 0), 1), 1, out), 0);
}

TEST(Construct, AcceptsNumbersThatAreNotFinite) {
  for (const double bad : {kNaN, kInfinity, -kInfinity, 1e300, 1e-320}) {
    const CLine line(Point(bad, 0), 1, bad, true);
    const CLine x(Point(0, 0), Point(1, 0));
    const Circle circle(Point(bad, 1), bad);
    const Circle unit(Point(0, 0), 1);
    Circle out[2];
    Tanto(1, circle, Point(0, 0));
    Tanto(1, circle, -1, unit);
    Thru(1, Point(bad, 0), Point(0, 0), 1);
    Thru(Point(bad, 0), Point(0, 0), Point(1, bad));
    Tanto(1, line, 1, x, bad);
    Tanto(1, line, 1, x, 1, line);
    EXPECT_LE(Tanto(1, line, 1, x, 1, circle, out), 2);
    EXPECT_LE(Tanto(1, line, 1, circle, 1, unit, out), 2);
    EXPECT_LE(Tanto(1, circle, 1, circle, 1, unit, out), 2);
    EXPECT_LE(Touching(Point(bad, 0), x, 1, circle, out), 2);
  }
}

}  // namespace
}  // namespace geometry

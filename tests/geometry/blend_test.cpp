#include <gtest/gtest.h>

#include <cmath>

#include "geometry/biarc.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kExactTolerance;
using testing::kNaN;
using testing::kPi;
using testing::Random;
using testing::ThrownText;
using testing::UnitsGuard;

class BlendTest : public ::testing::Test {
 protected:
  const UnitsGuard units{0};

  /// A right angle at (20, 0) turning left, rounded with radius 5.
  Span previous{Point(0, 0), Point(15, 0)};
  Span blend{ACW, Point(15, 0), Point(20, 5), Point(15, 5)};
  Span next{Point(20, 5), Point(20, 30)};

  void ExpectTangent(double radius) const {
    EXPECT_NEAR(blend.radius, radius, 1e-9);
    EXPECT_LT(Dist(previous.p1, blend.p0), 1e-9);
    EXPECT_LT(Dist(blend.p1, next.p0), 1e-9);
    EXPECT_LT((previous.ve - blend.vs).Magnitude(), 1e-6);
    EXPECT_LT((blend.ve - next.vs).Magnitude(), 1e-6);
  }
};

TEST_F(BlendTest, ALargerOrSmallerRadiusMovesTheEnds) {
  for (const double radius : {8.0, 2.0, 5.0, 19.0}) {
    EXPECT_EQ(ChangeRadius(&previous, &blend, &next, radius), BLEND_DONE) << radius;
    ExpectTangent(radius);
    EXPECT_EQ(blend.dir, ACW);
    EXPECT_NEAR(previous.length, 20 - radius, 1e-9);
    EXPECT_NEAR(next.length, 30 - radius, 1e-9);
    EXPECT_TRUE(previous.p0 == Point(0, 0));
    EXPECT_TRUE(next.p1 == Point(20, 30));
  }
}

TEST_F(BlendTest, IdsAndWordsStay) {
  previous.ID = 5;
  blend.ID = 6;
  blend.index0 = 60;
  next.index1 = 70;
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 7), BLEND_DONE);
  EXPECT_EQ(previous.ID, 5U);
  EXPECT_EQ(blend.ID, 6U);
  EXPECT_EQ(blend.index0, 60U);
  EXPECT_EQ(next.index1, 70U);
}

TEST_F(BlendTest, ACornerToTheRightIsClockwise) {
  previous = Span(Point(0, 0), Point(15, 0));
  blend = Span(CW, Point(15, 0), Point(20, -5), Point(15, -5));
  next = Span(Point(20, -5), Point(20, -30));
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 12), BLEND_DONE);
  ExpectTangent(12);
  EXPECT_EQ(blend.dir, CW);
}

TEST_F(BlendTest, AnObliqueCorner) {
  // Turning left by 60 degrees at the origin: the tangent length is r tan 30.
  const Vector2d out(0.5, std::sqrt(0.75));
  previous = Span(Point(-50, 0), Point(-1, 0));
  next = Span(Point(0, 0) + out, Point(0, 0) + out * 50);
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 9), BLEND_DONE);
  ExpectTangent(9);
  EXPECT_NEAR(previous.p1.x, -9 * std::tan(kPi / 6), 1e-9);
}

TEST_F(BlendTest, ATooLargeRadiusFitsNowhere) {
  for (const double radius : {21.0, 1000.0, 1e30, kNaN, -1.0}) {
    EXPECT_EQ(ChangeRadius(&previous, &blend, &next, radius), BLEND_IMPOSSIBLE) << radius;
    EXPECT_TRUE(previous == Span(Point(0, 0), Point(15, 0))) << "nothing changes";
    EXPECT_EQ(blend.radius, 5);
  }
}

TEST_F(BlendTest, NeighboursMayVanish) {
  Span p = previous;
  Span b = blend;
  Span n = next;
  EXPECT_EQ(ChangeRadius(&p, &b, &n, 20), BLEND_PREVIOUS_GONE);
  EXPECT_TRUE(p.NullSpan);
  EXPECT_NEAR(b.radius, 20, 1e-9);
  n = Span(Point(20, 5), Point(20, 18));
  p = previous;
  b = blend;
  EXPECT_EQ(ChangeRadius(&p, &b, &n, 18), BLEND_NEXT_GONE);
  EXPECT_TRUE(n.NullSpan);
  n = Span(Point(20, 5), Point(20, 20));
  p = previous;
  b = blend;
  EXPECT_EQ(ChangeRadius(&p, &b, &n, 20), BLEND_BOTH_GONE);
}

TEST_F(BlendTest, TheFarEndMayBePassedByTheToleranceOnly) {
  TOLERANCE = kExactTolerance;
  Span p = previous;
  Span b = blend;
  Span n = next;
  EXPECT_EQ(ChangeRadius(&p, &b, &n, 20 + kExactTolerance / 2), BLEND_PREVIOUS_GONE);
  p = previous;
  b = blend;
  n = next;
  EXPECT_EQ(ChangeRadius(&p, &b, &n, 20 + kExactTolerance * 1.5), BLEND_IMPOSSIBLE);
}

/// The spans turned about the origin.
void Turn(std::initializer_list<Span*> spans, double angle) {
  Matrix m;
  m.Rotate(angle, 3);
  for (Span* span : spans) span->Transform(m);
}

TEST_F(BlendTest, WhatIsLeftHasToBeTangent) {
  // Far from the origin the ends of a short rest are rounded so much that it has another direction.
  Matrix away;
  away.Translate(2e11, 3e11);
  int first = 0;
  int last = 0;
  for (int i = 0; i < 200; ++i) {
    for (const bool shortFirst : {true, false}) {
      Span p(Point(shortFirst ? 0 : -10, 0), Point(15, 0));
      Span b = blend;
      Span n(Point(20, 5), Point(20, shortFirst ? 30 : 20));
      Turn({&p, &b, &n}, i * 0.01);
      for (Span* span : {&p, &b, &n}) span->Transform(away);
      if (ChangeRadius(&p, &b, &n, 19.98) != BLEND_NOT_TANGENT) continue;
      ++(shortFirst ? first : last);
      EXPECT_NEAR(b.radius, 19.98, 1e-3) << "the new values are given nevertheless";
    }
  }
  EXPECT_GT(first, 0);
  EXPECT_GT(last, 0);
}

TEST_F(BlendTest, NumbersOutOfProportionEndInACode) {
  Random random(5);
  for (const double far : {1e13, 1e14, 1e15, 1e18}) {
    for (int i = 0; i < 200; ++i) {
      const Point corner(far * random.Between(0.5, 1), far * random.Between(0.5, 1));
      const double turn = random.Between(0.3, 2.8);
      previous = Span(corner + Vector2d(-300, 0), corner);
      next = Span(corner, corner + Vector2d(std::cos(turn), std::sin(turn)) * 300);
      blend = Span(corner, corner);
      const int code = ChangeRadius(&previous, &blend, &next, random.Between(0.1, 40));
      EXPECT_TRUE(code == 1 || (code >= 100 && code <= 107)) << code;
    }
  }
}

TEST_F(BlendTest, ARestThatRunsBackIsTakenForTangent) {
  // Passed by the tolerance itself a neighbour is just long enough to count. It is exactly opposed then, and
  // the angle of that is 0.
  TOLERANCE = kExactTolerance;
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 20 + kExactTolerance), BLEND_DONE);
  EXPECT_NEAR(previous.ve.dx, -1, 1e-12);
}

TEST_F(BlendTest, ATinyRadiusLeavesTheCorner) {
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 0.001), BLEND_TOO_SHORT);
  EXPECT_NEAR(previous.length, 20, 0.01);
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 0), BLEND_TOO_SHORT);
  EXPECT_TRUE(previous.p1 == Point(20, 0));
  EXPECT_TRUE(blend.NullSpan);
}

TEST_F(BlendTest, WithoutABlendNothingCanBeDone) {
  EXPECT_EQ(ChangeRadius(&previous, nullptr, &next, 3), BLEND_UNPREPARED);
}

TEST_F(BlendTest, ParallelLinesMakeNoCorner) {
  blend = Span(ACW, Point(15, 0), Point(15, 10), Point(15, 5));
  next = Span(Point(15, 10), Point(0, 10));
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 3), BLEND_UNPREPARED);
  next = Span(Point(20, 5), Point(40, 5.001));
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 3), BLEND_UNPREPARED);
}

TEST_F(BlendTest, AMissingNeighbourIsMadeUpToTheSharpCorner) {
  EXPECT_EQ(ChangeRadius(nullptr, &blend, &next, 3), BLEND_DONE);
  EXPECT_LT(Dist(blend.p0, Point(17, 0)), 1e-9);
  EXPECT_LT(Dist(next.p0, Point(20, 3)), 1e-9);
  EXPECT_EQ(ChangeRadius(nullptr, &blend, &next, 3), BLEND_PREVIOUS_GONE) << "the same radius again";
  EXPECT_EQ(ChangeRadius(nullptr, &blend, &next, 4), BLEND_IMPOSSIBLE)
      << "the made-up line is as long as the old one";
  EXPECT_EQ(ChangeRadius(&previous, &blend, nullptr, 1), BLEND_DONE);
  EXPECT_LT(Dist(blend.p1, Point(20, 1)), 1e-9);
}

TEST_F(BlendTest, BothNeighboursMayBeMissing) {
  EXPECT_EQ(ChangeRadius(nullptr, &blend, nullptr, 2), BLEND_DONE);
  EXPECT_LT(Dist(blend.pc, Point(18, 2)), 1e-9);
  EXPECT_EQ(ChangeRadius(nullptr, &blend, nullptr, 2), BLEND_BOTH_GONE);
}

TEST_F(BlendTest, ANeighbourWithoutLengthBecomesTheMadeUpOne) {
  previous = Span(Point(15, 0), Point(15.004, 0), 8);
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 3), BLEND_DONE);
  EXPECT_TRUE(previous.p0 == Point(15, 0));
  EXPECT_LT(Dist(previous.p1, Point(17, 0)), 1e-9);
  EXPECT_EQ(previous.ID, 8U);
}

TEST_F(BlendTest, WithoutTangencyNoNeighbourIsMadeUp) {
  next = Span(Point(20, 5), Point(25, 30));
  EXPECT_EQ(ChangeRadius(nullptr, &blend, &next, 3), BLEND_UNPREPARED);
  previous = Span(Point(0, 1), Point(15, 0));
  EXPECT_EQ(ChangeRadius(&previous, &blend, nullptr, 3), BLEND_UNPREPARED);
  Span line(Point(15, 0), Point(20, 5));
  EXPECT_EQ(ChangeRadius(nullptr, &line, nullptr, 3), BLEND_UNPREPARED) << "a line has no radius";
  Span half(ACW, Point(15, 0), Point(15, 10), Point(15, 5));
  EXPECT_EQ(ChangeRadius(nullptr, &half, nullptr, 3), BLEND_UNPREPARED) << "no corner ahead";
}

TEST_F(BlendTest, NeighboursNeedNotBeTangentBefore) {
  blend = Span(Point(14, 0), Point(20, 5));
  previous = Span(Point(0, 0), Point(14, 1));
  next = Span(Point(19, 5), Point(20, 30));
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 4), BLEND_DONE);
  ExpectTangent(4);
}

TEST_F(BlendTest, StaleSpansAreRefused) {
  next.propertiesSet = false;
  EXPECT_EQ(ThrownText([&] { ChangeRadius(&previous, &blend, &next, 3); }), L"SetProperties missing");
}

/// Between a line along the x axis and an arc about (20, 10) of radius 20 that comes after it.
TEST_F(BlendTest, BetweenALineAndAnArc) {
  const double meets = 20 + std::sqrt(300.0);  // where the circle crosses the axis, on the right
  for (const double radius : {2.0, 5.0, 7.0}) {
    previous = Span(Point(20, 0), Point(meets - 1, 0));
    next = Span(ACW, Point(20 + std::sqrt(384.0), 6), Point(20, 30), Point(20, 10));
    blend = Span(previous.p1, next.p0);
    EXPECT_EQ(ChangeRadius(&previous, &blend, &next, radius), BLEND_DONE) << radius;
    ExpectTangent(radius);
    EXPECT_EQ(blend.dir, ACW);
    EXPECT_NEAR(Dist(blend.pc, next.pc), 20 - radius, 1e-9) << "inside";
    EXPECT_NEAR(next.radius, 20, 1e-9);
    EXPECT_GT(blend.pc.x, 20) << "at the corner, not at the other crossing";
  }
}

TEST_F(BlendTest, BetweenAnArcAndALineThatTurnAway) {
  // Down a clockwise arc about the origin, then to the left along y = 0 outwards: the blend lies outside.
  previous = Span(CW, Point(0, 20), Point(std::sqrt(384.0), 4), Point(0, 0));
  next = Span(Point(22, 0), Point(60, 0));
  blend = Span(previous.p1, next.p0);
  for (const double radius : {1.0, 6.0, 15.0}) {
    Span p = previous;
    Span b = blend;
    Span n = next;
    EXPECT_EQ(ChangeRadius(&p, &b, &n, radius), BLEND_DONE) << radius;
    EXPECT_EQ(b.dir, ACW);
    EXPECT_NEAR(Dist(b.pc, Point(0, 0)), 20 + radius, 1e-9) << "outside";
    EXPECT_LT((p.ve - b.vs).Magnitude(), 1e-6);
    EXPECT_LT((b.ve - n.vs).Magnitude(), 1e-6);
  }
}

TEST_F(BlendTest, BetweenTwoArcs) {
  // Two clockwise arcs that meet in a dent at (0, 15): their circles have radius 25 about (-20, 0), (20, 0).
  const Span left(CW, Point(-20, 25), Point(-1, std::sqrt(625 - 361.0)), Point(-20, 0));
  const Span right(CW, Point(1, std::sqrt(625 - 361.0)), Point(20, 25), Point(20, 0));
  for (const double radius : {1.0, 5.0, 20.0}) {
    previous = left;
    next = right;
    blend = Span(left.p1, right.p0);
    EXPECT_EQ(ChangeRadius(&previous, &blend, &next, radius), BLEND_DONE) << radius;
    ExpectTangent(radius);
    EXPECT_EQ(blend.dir, ACW);
    EXPECT_NEAR(blend.pc.x, 0, 1e-9);
    EXPECT_GT(blend.pc.y, 15) << "above the upper crossing, which is the nearer one";
  }
}

TEST_F(BlendTest, CarriersThatDoNotMeetMakeNoCorner) {
  next = Span(ACW, Point(40, 40), Point(30, 50), Point(30, 40));
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 3), BLEND_UNPREPARED);
  previous = Span(ACW, Point(5, 0), Point(0, 5), Point(0, 0));
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 3), BLEND_UNPREPARED);
}

TEST_F(BlendTest, CarriersThatTouchInOneDirectionMakeNoCorner) {
  previous = Span(Point(-20, 0), Point(0, 0));
  next = Span(ACW, Point(0, 0), Point(10, 10), Point(0, 10));
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 3), BLEND_UNPREPARED);
}

TEST_F(BlendTest, CarriersThatTouchInOpposedDirectionsHaveNoSide) {
  int impossible = 0;
  for (int i = 0; i < 200; ++i) {
    previous = Span(Point(-20, 0), Point(0, 0));
    next = Span(CW, Point(0, 0), Point(-10, 10), Point(0, 10));
    Turn({&previous, &next}, i * 0.01);
    const int code = ChangeRadius(&previous, &blend, &next, 3);
    EXPECT_TRUE(code == BLEND_UNPREPARED || code == BLEND_IMPOSSIBLE) << code;
    if (code == BLEND_IMPOSSIBLE) ++impossible;
  }
  EXPECT_GT(impossible, 0);
}

TEST_F(BlendTest, ABlendOfTheArcsOwnRadiusInsideItTouchesEverywhere) {
  previous = Span(Point(20, 0), Point(36, 0));
  next = Span(ACW, Point(20 + std::sqrt(384.0), 6), Point(20, 30), Point(20, 10));
  blend = Span(previous.p1, next.p0);
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 20), BLEND_IMPOSSIBLE);
}

TEST_F(BlendTest, ArcsOfMoreThanHalfATurnAreTrimmedAtTheRightEnd) {
  // Three quarters of a turn from the right, anticlockwise, to the bottom; then off to the left.
  previous = Span(ACW, Point(10, 0), Point(0, -10), Point(0, 0));
  next = Span(Point(-6, -12), Point(-6, -40));
  blend = Span(previous.p1, next.p0);
  EXPECT_EQ(ChangeRadius(&previous, &blend, &next, 1), BLEND_DONE);
  ExpectTangent(1);
  EXPECT_EQ(blend.dir, CW);
  EXPECT_GT(previous.angle, kPi);
  EXPECT_TRUE(previous.p0 == Point(10, 0));
}

TEST_F(BlendTest, AnyCornerOfLinesIsRoundedToItsFormula) {
  Random random(107);
  for (int i = 0; i < 2000; ++i) {
    const double turn = random.Between(0.05, 3.0) * (random.Below(2) == 0 ? 1 : -1);
    const Vector2d out(std::cos(turn), std::sin(turn));
    previous = Span(Point(-100, 0), Point(-1, 0));
    next = Span(Point(0, 0) + out, Point(0, 0) + out * 100);
    blend = Span(previous.p1, next.p0);
    const double radius = random.Between(0.5, 50);
    const double leg = radius * std::tan(std::fabs(turn) / 2);
    const int code = ChangeRadius(&previous, &blend, &next, radius);
    EXPECT_EQ(code, leg < 100 ? BLEND_DONE : BLEND_IMPOSSIBLE) << i;
    if (code != BLEND_DONE) continue;
    EXPECT_NEAR(previous.p1.x, -leg, 1e-6);
    EXPECT_EQ(blend.dir, turn > 0 ? ACW : CW);
    ExpectTangent(radius);
  }
}

}  // namespace
}  // namespace geometry

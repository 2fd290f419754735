#include "geometry/biarc.h"

#include <gtest/gtest.h>

#include <cmath>

#include "geometry/kurveex.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kPi;
using testing::Random;

CLine At(double x, double y, double angle) {
  return {Point(x, y), std::cos(angle), std::sin(angle), true};
}

TEST(Biarc, LeavesAndArrivesAlongItsLinesWithoutACorner) {
  Random random(891);
  int found = 0;
  for (int i = 0; i < 5000; ++i) {
    const CLine a = At(random.Between(-5, 5), random.Between(-5, 5), random.Between(-3, 3));
    const CLine b = At(random.Between(-5, 5), random.Between(-5, 5), random.Between(-3, 3));
    Span first;
    Span second;
    if (Biarc(a, b, first, second) != 2 || first.dir == LINEAR || second.dir == LINEAR) continue;
    ++found;
    EXPECT_LT(Dist(first.p0, a.p), 1e-9);
    EXPECT_LT(Dist(second.p1, b.p), 1e-9);
    EXPECT_LT((first.vs - a.v).Magnitude(), 1e-6);
    EXPECT_LT((second.ve - b.v).Magnitude(), 1e-6);
    EXPECT_EQ(Dist(first.p1, second.p0), 0);
    EXPECT_LT((first.ve - second.vs).Magnitude(), 1e-5);
  }
  EXPECT_GT(found, 4500);
}

TEST(Biarc, BetweenEqualDirectionsAcrossIsTwoHalfTurnsOfOppositeSense) {
  Span first;
  Span second;
  EXPECT_EQ(Biarc(At(0, 0, 0), At(0, 2, 0), first, second), 2);
  EXPECT_EQ(first.dir, ACW);
  EXPECT_EQ(second.dir, CW);
  EXPECT_EQ(std::fabs(first.angle), kPi);
  EXPECT_TRUE(first.p1 == Point(0, 1));
  EXPECT_TRUE(second.pc == Point(0, 1.5));
}

TEST(Biarc, BetweenOpposedDirectionsIsOneHalfTurn) {
  Span first;
  Span second;
  EXPECT_EQ(Biarc(At(0, 0, 0), {Point(0, 2), -1, 0, true}, first, second), 1);
  EXPECT_EQ(first.dir, ACW);
  EXPECT_TRUE(first.p1 == Point(0, 2));
  EXPECT_TRUE(first.pc == Point(0, 1));
  EXPECT_FALSE(second.propertiesSet) << "left alone";
  EXPECT_EQ(Biarc(At(1, 1, 0), {Point(1, 1), -1, 0, true}, first, second), 0);
}

TEST(Biarc, OnOneCircleIsOneArc) {
  Span first;
  Span second;
  const CLine a = At(5, 0, kPi / 2);
  const CLine b = At(0, 5, kPi);
  EXPECT_EQ(Biarc(a, b, first, second), 1);
  EXPECT_EQ(first.dir, ACW);
  EXPECT_NEAR(first.angle, kPi / 2, 1e-9);
  EXPECT_TRUE(first.pc == Point(0, 0));
  EXPECT_TRUE(second.NullSpan);
  EXPECT_TRUE(second.p0 == Point(0, 5));
}

TEST(Biarc, StraightAheadIsOneLine) {
  Span first;
  Span second;
  EXPECT_EQ(Biarc(At(0, 0, 0), At(6, 0, 0), first, second), 1);
  EXPECT_EQ(first.dir, LINEAR);
  EXPECT_TRUE(first.p1 == Point(6, 0));
  EXPECT_TRUE(second.NullSpan);
  EXPECT_TRUE(second.p0 == Point(6, 0));
}

TEST(Biarc, WithoutAWayThereIsNone) {
  Span first;
  Span second;
  EXPECT_EQ(Biarc(At(6, 0, 0), At(0, 0, 0), first, second), 0) << "straight back";
  EXPECT_EQ(Biarc(At(0, 0, testing::kNaN), At(1, 1, 0), first, second), 0);
  EXPECT_FALSE(first.propertiesSet);
}

TEST(EllipseToSpans, FollowsTheEllipse) {
  Matrix m;
  m.Rotate(0.5, 3);
  m.Translate(7, 8);
  const KurveEx k = EllipseToSpans(Point(1, 2), 5, 3, m);
  EXPECT_EQ(k.SpanCount(), 72);
  EXPECT_TRUE(k.Closed());
  EXPECT_EQ(k.Direction(), 1);
  EXPECT_NEAR(k.area, -kPi * 15, 0.01);
  const Matrix back = m.Inverse();
  for (const Span& span : k.spans) {
    for (const double f : {0.0, 0.3, 0.7}) {
      const Point p = span.AlongFraction(f).Transform(back);
      EXPECT_NEAR(std::hypot((p.x - 1) / 5, (p.y - 2) / 3), 1, 2e-4);
    }
  }
  for (std::size_t i = 1; i < k.spans.size(); ++i) {
    EXPECT_LT((k.spans[i].vs - k.spans[i - 1].ve).Magnitude(), 1e-5) << i;
  }
}

TEST(EllipseToSpans, OfEqualRadiiIsACircle) {
  const KurveEx k = EllipseToSpans(Point(0, 0), 4, 4, Matrix());
  EXPECT_EQ(k.SpanCount(), 72) << "each second span is null";
  EXPECT_NEAR(k.area, -16 * kPi, 1e-9);
  EXPECT_TRUE(k.IsFullCircle());
  EXPECT_TRUE(EllipseToSpans(Point(0, 0), 4, 0, Matrix()).Closed()) << "flat, but there";
}

}  // namespace
}  // namespace geometry

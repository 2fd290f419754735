#include "geometry/contour_index.h"

#include <gtest/gtest.h>

#include <cmath>

#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kInfinity;
using testing::kNaN;
using testing::kPi;
using testing::Random;
using testing::ThrownText;

/// A ragged ring that crosses itself now and then; coordinates on a grid make level and equal cases frequent.
KurveEx RaggedRing(int count, Random& random) {
  KurveEx k;
  for (int i = 0; i < count; ++i) {
    const double angle = 4 * kPi * i / count;
    const double r = random.Between(4, 10);
    k.Add(std::round(8 * r * std::cos(angle)) / 8, std::round(8 * r * std::sin(angle)) / 8);
  }
  k.Add(k.start.x, k.start.y);
  return k;
}

/// Lines and arcs in turn, of any length.
KurveEx Garland(int count, Random& random) {
  KurveEx k;
  k.Start(Point(0, 0));
  for (int i = 0; i < count; ++i) {
    const Point from = k.End();
    const Point to(from.x + random.Between(-2, 2), from.y + random.Between(-2, 2));
    const CLine chord(from, to);
    const Point middle((from.x + to.x) / 2, (from.y + to.y) / 2);
    const Point centre = middle + chord.v.LeftNormal() * random.Between(-1, 1);
    k.Add(random.Below(3) - 1, to, centre);
  }
  return k;
}

void ExpectSameNear(const KurveEx& k, const ContourIndex& index, const Point& p) {
  int plainSpan = -1;
  int span = -1;
  double plainT = -1;
  double t = -1;
  const Point plain = k.Near(p, plainSpan, plainT);
  const Point nearest = index.Near(p, span, t);
  ASSERT_EQ(span, plainSpan);
  ASSERT_EQ(nearest.ok, plain.ok);
  ASSERT_EQ(nearest.x, plain.x);
  ASSERT_EQ(nearest.y, plain.y);
  ASSERT_EQ(t, plainT);
}

TEST(ContourIndex, WindsAsThePlainFormAtAMillionPoints) {
  Random random(861);
  for (int round = 0; round < 10; ++round) {
    KurveEx k = RaggedRing(20 + 15 * round, random);
    k.Reverse(round % 2 == 1);
    const ContourIndex index(k);
    int seen[7] = {};
    for (int i = 0; i < 100000; ++i) {
      Point p(random.Between(-11, 11), random.Between(-11, 11));
      if (i % 2 == 0) p = Point(std::round(8 * p.x) / 8, std::round(8 * p.y) / 8);
      const int winding = k.windingNumber(p);
      ASSERT_EQ(index.windingNumber(p), winding) << p.x << ", " << p.y;
      ++seen[std::clamp(winding + 3, 0, 6)];
    }
    EXPECT_GT(seen[3 + (round % 2 == 1 ? -2 : 2)], 1000) << "the ring goes round twice";
  }
}

TEST(ContourIndex, IsNearAsThePlainFormAtAMillionPoints) {
  Random random(862);
  for (int round = 0; round < 20; ++round) {
    KurveEx k = round % 2 == 0 ? Garland(10 + 4 * round, random) : RaggedRing(10 + 4 * round, random);
    k.Reverse(round % 4 >= 2);
    const ContourIndex index(k);
    const Box box = k.Box();
    for (int i = 0; i < 50000; ++i) {
      const double x = random.Between(box.min.x - 3, box.max.x + 3);
      const double y = random.Between(box.min.y - 3, box.max.y + 3);
      ExpectSameNear(k, index,
                     i % 2 == 0 ? Point(x, y) : Point(std::round(8 * x) / 8, std::round(8 * y) / 8));
      if (::testing::Test::HasFatalFailure()) return;
    }
  }
}

TEST(ContourIndex, TakesTheFirstSpanWithinTheTolerance) {
  Random random(863);
  const testing::UnitsGuard guard(0);
  // Many spans within reach of each point: the plain form stops at the first, not at the nearest.
  KurveEx k;
  for (int i = 0; i < 100; ++i) k.Add(random.Between(0, 10), i % 2 == 0 ? random.Between(0, 0.01) : 0.0);
  const ContourIndex index(k);
  for (int i = 0; i < 20000; ++i) {
    ExpectSameNear(k, index, Point(random.Between(-1, 11), random.Between(-0.02, 0.02)));
    if (::testing::Test::HasFatalFailure()) return;
  }
}

TEST(ContourIndex, ThrowsAsThePlainForm) {
  const ContourIndex empty{KurveEx()};
  const ContourIndex circle(KurveEx(Point(0, 0), 5, ACW));
  EXPECT_EQ(ThrownText([&] { empty.windingNumber(Point(0, 0)); }), L"No Spans inside!");
  EXPECT_EQ(ThrownText([&] { circle.Inside(Point(0, 0)); }), L"Arc span not allowed in windingNumber");
  int span = 7;
  double t = 7;
  EXPECT_FALSE(empty.Near(Point(0, 0), span, t).ok);
  EXPECT_EQ(span, 0);
  EXPECT_EQ(t, 0);
}

TEST(ContourIndex, KnowsInsideFromOutside) {
  KurveEx k;
  for (const Point& p : {Point(0, 0), Point(4, 0), Point(4, 4), Point(0, 4), Point(0, 0)}) k.Add(p.x, p.y);
  const ContourIndex index(k);
  EXPECT_EQ(index.Inside(Point(1, 1)), 0);
  EXPECT_EQ(index.Inside(Point(5, 1)), 1);
}

TEST(ContourIndex, TakesExtremePointsAsThePlainForm) {
  Random random(864);
  KurveEx ring = RaggedRing(50, random);
  KurveEx wild = ring;
  wild.Add(1e200, 3);
  wild.Add(kInfinity, -3);
  wild.Add(kNaN, 2);
  wild.Add(-5, kNaN);
  wild.Add(0, 0);
  const double values[] = {0, 1, -3, 1e60, -1e60, 1e149, 1e160, -1e300, kInfinity, -kInfinity, kNaN, 1e-310};
  for (const KurveEx& k : {ring, wild}) {
    const ContourIndex index(k);
    for (const double x : values) {
      for (const double y : values) {
        EXPECT_EQ(index.windingNumber(Point(x, y)), k.windingNumber(Point(x, y))) << x << ", " << y;
      }
    }
  }
  const ContourIndex index(ring);
  for (const double x : values) {
    for (const double y : values) ExpectSameNear(ring, index, Point(x, y));
  }
}

TEST(ContourIndex, SurvivesItsContour) {
  auto k = std::make_unique<KurveEx>(Point(0, 0), 5, ACW);
  const ContourIndex index(*k);
  k.reset();
  int span = 0;
  double t = 0;
  EXPECT_TRUE(index.Near(Point(0, 9), span, t) == Point(0, 5));
  EXPECT_EQ(span, 1);
}

}  // namespace
}  // namespace geometry

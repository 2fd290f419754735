#include "geometry/intersect.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kExactTolerance;
using testing::kInfinity;
using testing::kNaN;
using testing::kPi;
using testing::Random;
using testing::ThrownText;
using testing::UnitsGuard;

Span Arc(int dir, const Point& c, double r, double fromDegrees, double toDegrees) {
  return {dir, Point(c, r, fromDegrees), Point(c, r, toDegrees), c};
}

/// The span before its measures are made.
Span WithTangents(const Span& span) {
  Span bare = span;
  bare.propertiesSet = false;
  bare.angle = kNaN;
  bare.box = Box(Point(kNaN, kNaN), Point(kNaN, kNaN));
  return bare;
}

TEST(IntofLines, MeetAtAPointWithItsParameter) {
  const CLine a(Point(1, 1), Point(4, 1));
  const CLine b(Point(3, -5), Point(3, 9));
  double t = 0;
  EXPECT_TRUE(Intof(a, b, t) == Point(3, 1));
  EXPECT_EQ(t, 2);
  EXPECT_TRUE(Intof(b, a).ok);
}

TEST(IntofLines, ParallelOnesDoNotMeet) {
  const CLine a(Point(0, 0), 1, 0, true);
  EXPECT_FALSE(Intof(a, CLine(Point(0, 1), 1, 0, true)).ok);
  EXPECT_EQ(Intof(a, CLine(Point(0, 1), -1, 0, true)).x, INVALID_POINT.x);
  EXPECT_FALSE(Intof(a, CLine(Point(0, 1), 1, 0.9e-6, true)).ok);
  EXPECT_TRUE(Intof(a, CLine(Point(0, 1), 1, 1.1e-6, true)).ok);
  EXPECT_FALSE(Intof(a, CLine(Point(0, 1), kNaN, 1, false)).ok);
}

TEST(IntofLines, OnesAsParallelAsTheLimitDoNotMeet) {
  const CLine a(Point(0, 0), 1, 0, false);
  EXPECT_FALSE(Intof(a, CLine(Point(0, 1), 1, 1e-6, false)).ok);
  EXPECT_TRUE(Intof(a, CLine(Point(0, 1), 1, 1.0001e-6, false)).ok);
}

TEST(IntofLineAndCircle, OrderChoosesAlongTheLine) {
  const CLine s(Point(-10, 3), Point(0, 3));
  const Circle c(Point(0, 0), 5);
  Point other;
  EXPECT_TRUE(Intof(1, s, c, other) == Point(-4, 3));
  EXPECT_TRUE(other == Point(4, 3));
  EXPECT_TRUE(Intof(-1, s, c, other) == Point(4, 3));
  EXPECT_TRUE(other == Point(-4, 3));
  EXPECT_TRUE(Intof(1, -s, c) == Point(4, 3));
  EXPECT_TRUE(Intof(1, CLine(Point(20, 3), Point(30, 3)), c) == Point(-4, 3))
      << "also behind the point of the line";
}

TEST(IntofLineAndCircle, ATangentTouchesOnce) {
  Point other;
  const Point p = Intof(1, CLine(Point(-10, 5), Point(0, 5)), Circle(Point(0, 0), 5), other);
  EXPECT_TRUE(p == Point(0, 5));
  EXPECT_TRUE(other == p);
  EXPECT_FALSE(Intof(1, CLine(Point(-10, 5.1), Point(0, 5.1)), Circle(Point(0, 0), 5), other).ok);
  EXPECT_FALSE(other.ok);
}

TEST(IntofCircles, FirstIsLeftOfTheWay) {
  Point p1;
  Point p2;
  EXPECT_EQ(Intof(Circle(Point(0, 0), 5), Circle(Point(8, 0), 5), p1, p2), 2);
  EXPECT_TRUE(p1 == Point(4, 3));
  EXPECT_TRUE(p2 == Point(4, -3));
  EXPECT_EQ(Intof(Circle(Point(0, 0), -5), Circle(Point(8, 0), -5), p1, p2), 2) << "radii count by size";
  EXPECT_TRUE(Intof(1, Circle(Point(0, 0), 5), Circle(Point(8, 0), 5)) == Point(4, 3));
  Point other;
  EXPECT_TRUE(Intof(-1, Circle(Point(0, 0), 5), Circle(Point(8, 0), 5), other) == Point(4, -3));
  EXPECT_TRUE(other == Point(4, 3));
}

TEST(IntofCircles, TouchingOnesMeetOnce) {
  const UnitsGuard guard(0);
  Point p1;
  Point p2;
  EXPECT_EQ(Intof(Circle(Point(0, 0), 5), Circle(Point(8, 0), 3), p1, p2), 1);
  EXPECT_TRUE(p1 == Point(5, 0));
  EXPECT_TRUE(p2 == p1);
  EXPECT_EQ(Intof(Circle(Point(0, 0), 5), Circle(Point(2, 0), 3), p1, p2), 1) << "from within";
  EXPECT_TRUE(p1 == Point(5, 0));
  EXPECT_EQ(Intof(Circle(Point(2, 0), 3), Circle(Point(0, 0), 5), p1, p2), 1) << "the smaller one first";
  EXPECT_TRUE(p1 == Point(5, 0));
  EXPECT_EQ(Intof(Circle(Point(0, 0), 5), Circle(Point(8.004, 0), 3), p1, p2), 1);
  EXPECT_NEAR(Dist(p1, Point(0, 0)), 5, TOLERANCE);
  EXPECT_NEAR(Dist(p1, Point(8.004, 0)), 3, TOLERANCE);
  EXPECT_TRUE(Intof(-1, Circle(Point(0, 0), 5), Circle(Point(8, 0), 3)) == Point(5, 0))
      << "whatever the order";
}

TEST(IntofCircles, ASmallOneTouchesFromWithinOnItsFarSide) {
  const UnitsGuard guard(0);
  // A little off, the radical line is just outside of the small circle, whose far side is then tried.
  Point p1;
  Point p2;
  const Circle small(Point(1.998, 0), 3);
  const Circle large(Point(0, 0), 5);
  EXPECT_EQ(Intof(small, large, p1, p2), 1);
  EXPECT_TRUE(p1 == Point(4.998, 0));
  EXPECT_TRUE(p2 == p1);
  EXPECT_EQ(Intof(large, small, p1, p2), 1);
  EXPECT_TRUE(p1 == Point(5, 0));
}

TEST(IntofCircles, ApartWithinOrConcentricDoNotMeet) {
  const UnitsGuard guard(0);
  Point p1;
  Point p2;
  EXPECT_EQ(Intof(Circle(Point(0, 0), 5), Circle(Point(8.006, 0), 3), p1, p2), 0);
  EXPECT_FALSE(p1.ok);
  EXPECT_EQ(Intof(Circle(Point(0, 0), 5), Circle(Point(1.99, 0), 3), p1, p2), 0);
  EXPECT_EQ(Intof(Circle(Point(0, 0), 5), Circle(Point(0.004, 0), 5), p1, p2), 0);
  EXPECT_FALSE(Intof(1, Circle(Point(0, 0), 5), Circle(Point(20, 0), 5)).ok);
}

TEST(IntofCircles, AtTheLimitsTheyMeet) {
  const UnitsGuard guard(0);
  TOLERANCE = kExactTolerance;
  Point p1;
  Point p2;
  EXPECT_EQ(Intof(Circle(Point(0, 0), 5), Circle(Point(TOLERANCE, 0), 5), p1, p2), 2) << "of centres";
  EXPECT_EQ(Intof(Circle(Point(0, 0), 5), Circle(Point(8 + TOLERANCE, 0), 3), p1, p2), 1) << "of radii";
  EXPECT_TRUE(p1 == Point(5, 0));
}

TEST(IntofCircles, NearlyAlikeOnesMustNotHaveTheirRadicalLineOutside) {
  const UnitsGuard guard(0);
  Point p1;
  Point p2;
  EXPECT_EQ(Intof(Circle(Point(0, 0), 5), Circle(Point(0.096, 0), 4.9), p1, p2), 0);
  EXPECT_EQ(Intof(Circle(Point(0, 0), 5), Circle(Point(0.1, 0), 4.9), p1, p2), 1);
}

TEST(IntofCircles, ThatJustMissLeaveNoPoint) {
  const double ra = 0.54120857409224921;
  const double rb = 0.59705836939806223;
  Point p1;
  Point p2;
  EXPECT_EQ(Intof(Circle(Point(0, 0), ra), Circle(Point(ra + rb + TOLERANCE, 0), rb), p1, p2), 0);
  EXPECT_FALSE(p1.ok);
  EXPECT_FALSE(p2.ok);
}

TEST(IntofCircles, CrossingsLieOnBoth) {
  Random random(851);
  for (int i = 0; i < 5000; ++i) {
    const Circle a(Point(random.Between(-9, 9), random.Between(-9, 9)), random.Between(1, 9));
    const Circle b(Point(random.Between(-9, 9), random.Between(-9, 9)), random.Between(1, 9));
    Point p[2];
    const int count = Intof(a, b, p[0], p[1]);
    const double d = Dist(a.pc, b.pc);
    EXPECT_EQ(count == 2, d < a.radius + b.radius - 1e-4 && d > std::fabs(a.radius - b.radius) + 1e-4);
    for (int k = 0; k < count; ++k) {
      EXPECT_NEAR(Dist(p[k], a.pc), a.radius, 1e-9);
      EXPECT_NEAR(Dist(p[k], b.pc), b.radius, 1e-9);
    }
  }
}

TEST(IntofSpans, LinesCrossBetweenTheirEnds) {
  Point p1;
  Point p2;
  double t[4] = {};
  EXPECT_EQ(Intof(Span(Point(0, 0), Point(10, 0)), Span(Point(4, -1), Point(4, 3)), p1, p2, t), 1);
  EXPECT_TRUE(p1 == Point(4, 0));
  EXPECT_TRUE(p1.ok);
  EXPECT_FALSE(p2.ok);
  EXPECT_DOUBLE_EQ(t[0], 0.4);
  EXPECT_DOUBLE_EQ(t[1], 0.25);
}

TEST(IntofSpans, LinesThatMissHaveACarrierPointButNoCount) {
  Point p1;
  Point p2;
  double t[4] = {};
  // The boxes overlap, the lines end before they meet.
  EXPECT_EQ(Intof(Span(Point(0, 0), Point(10, 10)), Span(Point(6, 4), Point(10, 0)), p1, p2, t), 0);
  EXPECT_TRUE(p1.ok);
  EXPECT_TRUE(p1 == Point(5, 5));
  EXPECT_LT(t[1], 0);
}

TEST(IntofSpans, ParallelLinesDoNotMeet) {
  Point p1(1, 1);
  Point p2(1, 1);
  EXPECT_EQ(Intof(Span(Point(0, 0), Point(10, 0)), Span(Point(2, 0), Point(5, 0)), p1, p2), 0);
  EXPECT_FALSE(p1.ok);
  EXPECT_EQ(p1.x, INVALID_POINT.x);
}

TEST(IntofSpans, DisjointBoxesEndTheSearch) {
  Point p1;
  Point p2;
  EXPECT_EQ(Intof(Span(Point(0, 0), Point(1, 1)), Span(Point(5, 0), Point(4, 1)), p1, p2), 0);
  EXPECT_FALSE(p1.ok);
}

TEST(IntofSpans, EndsReachOutByTheToleranceWhereBoxesMeet) {
  const UnitsGuard guard(0);
  Point p1;
  Point p2;
  const Span a(Point(0, 0), Point(10, 10));
  EXPECT_EQ(Intof(a, Span(Point(5.003, 4.997), Point(9, 1)), p1, p2), 1);
  EXPECT_EQ(Intof(a, Span(Point(5.004, 4.996), Point(9, 1)), p1, p2), 0);
  EXPECT_EQ(Intof(Span(Point(0, 0), Point(10, 0)), Span(Point(3, 0), Point(3, 5)), p1, p2), 1) << "at an end";
  EXPECT_EQ(Intof(Span(Point(0, 0), Point(10, 0)), Span(Point(3, 0.003), Point(3, 5)), p1, p2), 0)
      << "along the axes the boxes end before the tolerance does";
}

TEST(IntofSpans, ALineCrossesAnArc) {
  const Span arc = Arc(ACW, Point(0, 0), 5, 0, 180);
  Point p1;
  Point p2;
  double t[4] = {};
  EXPECT_EQ(Intof(Span(Point(-10, 3), Point(10, 3)), arc, p1, p2, t), 2);
  for (int i = 0; i < 2; ++i) {
    const Point& p = i == 0 ? p1 : p2;
    EXPECT_NEAR(t[i], (p.x + 10) / 20, 1e-12);
    EXPECT_NEAR(t[2 + i], std::atan2(p.y, p.x) / kPi, 1e-12);
  }
  EXPECT_NEAR(p1.x * p2.x, -16, 1e-9);
  EXPECT_EQ(Intof(Span(Point(0, 1), Point(0, 10)), arc, p1, p2), 1);
  EXPECT_TRUE(p1 == Point(0, 5));
  EXPECT_EQ(Intof(Span(Point(0, -10), Point(0, -1)), arc, p1, p2), 0);
}

TEST(IntofSpans, TheOnlyValidCrossingComesFirst) {
  const Span upper = Arc(ACW, Point(0, 0), 5, 0, 180);
  const Span lower = Arc(CW, Point(0, 0), 5, 0, 180);
  const Span line(Point(1, -10), Point(1, 9));
  const double root = std::sqrt(24.0);
  for (const auto& [arc, y] : {std::pair{upper, root}, std::pair{lower, -root}}) {
    Point p1;
    Point p2;
    double t[4] = {-9, -9, -9, -9};
    EXPECT_EQ(Intof(line, arc, p1, p2, t), 1);
    EXPECT_TRUE(p1 == Point(1, y));
    EXPECT_FALSE(p2.ok);
    EXPECT_NEAR(t[0], (y + 10) / 19, 1e-12);
    // The roots come larger size first; only the line's parameter moves with the second.
    const bool moved = y < 0;
    EXPECT_NEAR(t[moved ? 3 : 2], std::atan2(root, 1) / kPi, 1e-9);
    EXPECT_FALSE(0 <= t[moved ? 2 : 3] && t[moved ? 2 : 3] <= 1);
  }
}

TEST(IntofSpans, ArcWithLineKeepsTheLinesParameter) {
  const Span arc = Arc(ACW, Point(0, 0), 5, 0, 180);
  const Span line(Point(0, 0), Point(0, 10));
  Point p1;
  Point p2;
  double t[4] = {};
  EXPECT_EQ(Intof(arc, line, p1, p2, t), 1);
  EXPECT_DOUBLE_EQ(t[0], 0.5);
  EXPECT_DOUBLE_EQ(t[2], 0.5);
}

TEST(IntofSpans, ALineTouchesAnArcOnce) {
  Point p1;
  Point p2;
  EXPECT_EQ(Intof(Span(Point(-9, 5), Point(9, 5)), Arc(ACW, Point(0, 0), 5, 0, 180), p1, p2), 1);
  EXPECT_TRUE(p1 == Point(0, 5));
}

TEST(IntofSpans, ALineReachesOutToAnArcByLessThanTheTolerance) {
  const UnitsGuard guard(0);
  Point p1;
  Point p2;
  const Span arc = Arc(ACW, Point(0, 0), 5, 0, 180);
  EXPECT_EQ(Intof(Span(Point(0, 0), Point(0, 4.996)), arc, p1, p2), 1);
  EXPECT_TRUE(p1 == Point(0, 5));
  EXPECT_EQ(Intof(Span(Point(0, 0), Point(0, 4.994)), arc, p1, p2), 0);
  EXPECT_EQ(Intof(Span(Point(0, 4.994), Point(0, 0)), arc, p1, p2), 0);
  TOLERANCE = kExactTolerance;
  EXPECT_EQ(Intof(Span(Point(0, 0), Point(0, 4)), Arc(ACW, Point(0, 0), 4 + TOLERANCE, 0, 180), p1, p2), 0);
}

TEST(IntofSpans, ArcsMeetWhereBothRun) {
  const Span left = Arc(ACW, Point(0, 0), 5, -90, 90);
  const Span right = Arc(CW, Point(8, 0), 5, -90, 90);
  Point p1;
  Point p2;
  EXPECT_EQ(Intof(left, right, p1, p2), 2);
  EXPECT_TRUE(p1 == Point(4, 3));
  EXPECT_TRUE(p2 == Point(4, -3));
  EXPECT_EQ(Intof(Arc(ACW, Point(0, 0), 5, 0, 90), right, p1, p2), 1);
  EXPECT_TRUE(p1 == Point(4, 3));
  EXPECT_EQ(Intof(Arc(ACW, Point(0, 0), 5, -90, 0), right, p1, p2), 1);
  EXPECT_TRUE(p1 == Point(4, -3)) << "the second moved to the first place";
  EXPECT_FALSE(p2.ok);
  const Span touching = Arc(ACW, Point(10, 0), 5, 90, 270);
  EXPECT_EQ(Intof(left, touching, p1, p2), 1);
  EXPECT_TRUE(p1 == Point(5, 0));
  EXPECT_FALSE(p2.ok);
}

TEST(IntofSpans, ArcsOnCirclesThatMissGiveTheEndOfTheFirst) {
  const Span outer = Arc(ACW, Point(0, 0), 5, 0, 180);
  const Span inner = Arc(ACW, Point(0, 1), 1, 0, 180);
  Point p1;
  Point p2;
  EXPECT_EQ(Intof(outer, inner, p1, p2), 0);
  EXPECT_FALSE(p1.ok);
  EXPECT_TRUE(p1 == Point(-5, 0));
}

TEST(IntofSpans, CrossingsLieOnBothSpans) {
  Random random(852);
  int found = 0;
  for (int i = 0; i < 20000; ++i) {
    const auto any = [&] {
      const Point p(random.Between(-9, 9), random.Between(-9, 9));
      const int dir = random.Below(3) - 1;
      if (dir == LINEAR) return Span(p, Point(random.Between(-9, 9), random.Between(-9, 9)));
      const double from = random.Between(-180, 180);
      return Arc(dir, p, random.Between(1, 9), from, from + random.Between(5, 355));
    };
    const Span a = any();
    const Span b = any();
    Point p[2];
    const int count = Intof(a, b, p[0], p[1]);
    for (int k = 0; k < count; ++k) {
      ASSERT_TRUE(p[k].ok);
      ASSERT_TRUE(a.On(p[k])) << i;
      ASSERT_TRUE(b.On(p[k])) << i;
      ++found;
    }
    Point q[2];
    ASSERT_EQ(Intof(b, a, q[0], q[1]), count);
  }
  EXPECT_GT(found, 3000);
}

TEST(IntofSpans, AgreeWithFineChords) {
  // Signs of distance along the sampled arc count its crossings of a line independently.
  Random random(853);
  for (int i = 0; i < 500; ++i) {
    const double from = random.Between(-180, 180);
    const Span arc =
        Arc(random.Below(2) == 0 ? ACW : CW, Point(0, 0), 5, from, from + random.Between(20, 340));
    const Span line(Point(random.Between(-20, -10), random.Between(-6, 6)),
                    Point(random.Between(10, 20), random.Between(-6, 6)));
    const CLine carrier(line);
    int crossings = 0;
    for (int k = 0; k < 2000; ++k) {
      const double d0 = carrier.Dist(arc.AlongFraction(k / 2000.0));
      const double d1 = carrier.Dist(arc.AlongFraction((k + 1) / 2000.0));
      crossings += (d0 < 0) != (d1 < 0) ? 1 : 0;
    }
    Point p1;
    Point p2;
    EXPECT_EQ(Intof(line, arc, p1, p2), crossings);
  }
}

TEST(IntofSpans, StaleOnesAreRefused) {
  const Span line(Point(0, 0), Point(2, 2));
  Span stale(Point(0, 2), Point(2, 0));
  stale.SetProperties(false);
  Point p1;
  Point p2;
  EXPECT_EQ(ThrownText([&] { Intof(line, stale, p1, p2); }), L"SetProperties missing");
  EXPECT_EQ(ThrownText([&] { Intof(stale, line, p1, p2); }), L"SetProperties missing");
}

TEST(OnlyCrossing, NeedsTangentsAloneAndAgreesWithIntofToTheLastBit) {
  const UnitsGuard millimetres(0);
  Random random(854);
  int found = 0;
  for (int i = 0; i < 40000; ++i) {
    const Point centre(random.Between(-9, 9), random.Between(-9, 9));
    const double from = random.Between(-180, 180);
    // Every third sweep is near half a turn or near a whole one, where angles are rounded.
    const double sweep =
        i % 3 == 0 ? 180 * (1 + random.Below(2)) - random.Between(0, 0.5) : random.Between(1, 359);
    const Span arc = Arc(random.Below(2) == 0 ? ACW : CW, centre, random.Between(1, 9), from, from + sweep);
    const Point nearEnd(random.Below(2) == 0 ? arc.p0.x : arc.p1.x, arc.p0.y + random.Between(-0.01, 0.01));
    const Span line(Point(random.Between(-9, 9), random.Between(-9, 9)),
                    i % 2 == 0 ? nearEnd : Point(random.Between(-9, 9), random.Between(-9, 9)));
    const Span third = i % 5 == 0 ? Arc(ACW, nearEnd, 3, 0, random.Between(10, 350)) : Span(nearEnd, centre);
    const Span& first = i % 7 == 0 ? third : line;
    const Span& second = i % 11 == 0 ? third : arc;
    Point p;
    Point q;
    const bool once = Intof(first, second, p, q) == 1;
    Point crossing;
    ASSERT_EQ(OnlyCrossing(WithTangents(first), WithTangents(second), crossing), once) << i;
    if (!once) continue;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(crossing.x), std::bit_cast<std::uint64_t>(p.x));
    ASSERT_EQ(std::bit_cast<std::uint64_t>(crossing.y), std::bit_cast<std::uint64_t>(p.y));
    ++found;
  }
  EXPECT_GT(found, 5000);
}

TEST(On, ACircleIsTheProjection) {
  const UnitsGuard guard(0);
  EXPECT_TRUE(On(Circle(Point(1, 1), 5), Point(4, 5)) == Point(4, 5));
  EXPECT_TRUE(On(Circle(Point(1, 1), 10), Point(4, 5)) == Point(7, 9));
  EXPECT_EQ(ThrownText([] { On(Circle(Point(1, 1), 5), Point(1.004, 1)); }),
            L",Point on Circle centre - On(Circle& c, Point& p)");
}

TEST(On, ALineIsTheFoot) {
  EXPECT_TRUE(On(CLine(Point(0, 1), Point(5, 1)), Point(-3, 9)) == Point(-3, 1));
}

TEST(Dist, OfCirclesIsTheGap) {
  EXPECT_EQ(Dist(Circle(Point(0, 0), 2), Circle(Point(10, 0), 3)), 5);
  EXPECT_EQ(Dist(Circle(Point(0, 0), 2), Circle(Point(4, 0), 3)), -1);
}

TEST(IntofInSpace, LinesMeetBetweenTheirEnds) {
  Point3d p;
  const Line a(Point3d(0, 0, 0), Point3d(10, 10, 10));
  const Line b(Point3d(0, 10, 5), Point3d(10, 0, 5));
  EXPECT_TRUE(Intof(a, b, p));
  EXPECT_TRUE(p == Point3d(5, 5, 5));
  EXPECT_TRUE(Intof(b, a, p));
  for (const auto& [from, to] :
       {std::pair{Point3d(2, -4, 1), Point3d(2, 9, 1)}, std::pair{Point3d(2, 1, -4), Point3d(2, 1, 9)},
        std::pair{Point3d(-4, 1, 1), Point3d(9, 1, 1)}}) {
    const Line axis(from, to);
    EXPECT_TRUE(Intof(Line(Point3d(1, 0, 0), Point3d(3, 2, 2)), axis, p));
    EXPECT_TRUE(p == Point3d(2, 1, 1));
  }
}

TEST(IntofInSpace, SkewParallelShortAndDistantLinesDoNotMeet) {
  Point3d p;
  const Line a(Point3d(0, 0, 0), Point3d(10, 10, 0));
  EXPECT_FALSE(Intof(a, Line(Point3d(0, 10, -1), Point3d(10, 0, 2)), p)) << "they pass at different heights";
  EXPECT_FALSE(Intof(a, Line(Point3d(1, 0, 0), Point3d(11, 10, 0)), p));
  EXPECT_FALSE(Intof(a, Line(Point3d(6, 4, 0), Point3d(10, 0, 0)), p));
  EXPECT_FALSE(Intof(Line(Point3d(6, 4, 0), Point3d(10, 0, 0)), a, p));
  EXPECT_FALSE(Intof(a, Line(Point3d(0, 10, 3), Point3d(10, 0, 3)), p)) << "disjoint boxes";
  EXPECT_FALSE(Intof(a, Line(Point3d(5, 5, 0), Vector3d()), p)) << "no direction";
}

TEST(IntofInSpace, DirectionsCountWithTheirLengths) {
  Point3d p;
  const auto cross = [&](double half) {
    return Intof(Line(Point3d(-half, 0, 0), Point3d(half, 0, 0)),
                 Line(Point3d(0, -half, 0), Point3d(0, half, 0)), p);
  };
  EXPECT_TRUE(cross(0.00051));
  EXPECT_FALSE(cross(0.00049)) << "the product of their lengths is below a millionth";
  const Line nearlyParallel(Point3d(0, -0.0001, 0), Point3d(1000, 0.0001, 0));
  EXPECT_TRUE(Intof(Line(Point3d(0, 0, 0), Point3d(1000, 0, 0)), nearlyParallel, p));
  EXPECT_TRUE(p == Point3d(500, 0, 0));
}

TEST(IntofInSpace, EndsReachOutByTheTolerance) {
  const UnitsGuard guard(0);
  Point3d p;
  const Line a(Point3d(0, 0, 0), Point3d(10, 10, 0));
  EXPECT_TRUE(Intof(a, Line(Point3d(5.003, 4.997, 0), Point3d(9, 1, 0)), p));
  EXPECT_FALSE(Intof(a, Line(Point3d(5.004, 4.996, 0), Point3d(9, 1, 0)), p));
}

TEST(BoxRay, HitsWhereItsLinePasses) {
  const Box3d box(Point3d(1, 1, 1), Point3d(3, 2, 2));
  EXPECT_TRUE(Hits(BoxRay(Line(Point3d(0, 0, 0), Vector3d(1, 0.75, 0.75))), box));
  EXPECT_TRUE(Hits(BoxRay(Line(Point3d(9, 6.75, 6.75), Vector3d(-1, -0.75, -0.75))), box));
  EXPECT_FALSE(Hits(BoxRay(Line(Point3d(0, 0, 0), Vector3d(1, 3, 1))), box)) << "past it in x and y";
  EXPECT_FALSE(Hits(BoxRay(Line(Point3d(0, 0, 0), Vector3d(1, 0.75, 3))), box)) << "past it in z";
  EXPECT_TRUE(Hits(BoxRay(Line(Point3d(2, 1.5, -9), Vector3d(0, 0, 1))), box)) << "along an axis";
  EXPECT_FALSE(Hits(BoxRay(Line(Point3d(4, 1.5, -9), Vector3d(0, 0, 1))), box));
  EXPECT_FALSE(Hits(BoxRay(Line(Point3d(2, 2.5, -9), Vector3d(0, 0, 1))), box));
  EXPECT_TRUE(Hits(BoxRay(Line(Point3d(5, 3, 3), Vector3d(1, 0.75, 0.75))), box)) << "the line has no ends";
}

TEST(BoxRay, AlongAFaceTheOtherAxesDecide) {
  const Box3d box(Point3d(1, 1, 1), Point3d(3, 2, 2));
  for (const double x : {1.0, 3.0}) {
    EXPECT_TRUE(Hits(BoxRay(Line(Point3d(x, 0, 0), Vector3d(0, 1, 1))), box));
    EXPECT_TRUE(Hits(BoxRay(Line(Point3d(x, 0, 0), Vector3d(-0.0, 1, 1))), box));
    EXPECT_FALSE(Hits(BoxRay(Line(Point3d(x, 0, 0), Vector3d(0, 1, 4))), box)) << "past it in y and z";
    EXPECT_FALSE(Hits(BoxRay(Line(Point3d(x, 5, 0), Vector3d(0, 0, 1))), box)) << "past it in y";
  }
  EXPECT_FALSE(Hits(BoxRay(Line(Point3d(0, 1, 0), Vector3d(1, 0, 4))), box)) << "past it in x and z";
  EXPECT_FALSE(Hits(BoxRay(Line(Point3d(0, 0, 2), Vector3d(1, 3, 0))), box)) << "past it in x and y";
}

TEST(BoxRay, AgreesWithWalkingAlongTheLine) {
  Random random(854);
  const Box3d box(Point3d(-1, -2, -1), Point3d(1, 1, 2));
  for (int i = 0; i < 2000; ++i) {
    const auto any = [&] {
      return Point3d(random.Between(-4, 4), random.Between(-4, 4), random.Between(-4, 4));
    };
    const Line line(any(), any());
    bool inside = false;
    bool near = false;
    for (int k = -4000; k <= 4000; ++k) {
      const Point3d p = line.p0 + line.v * (k / 200.0);
      inside = inside || !box.Outside(p);
      Box3d grown = box;
      grown.Grow(0.1);
      near = near || !grown.Outside(p);
    }
    if (inside) {
      EXPECT_TRUE(Hits(BoxRay(line), box));
    }
    if (!near && line.length > 1) {
      EXPECT_FALSE(Hits(BoxRay(line), box));
    }
  }
}

TEST(Intof, AcceptsNumbersThatAreNotFinite) {
  for (const double bad : {kNaN, kInfinity, -kInfinity, 1e300, 1e-320}) {
    const CLine line(Point(bad, 0), bad, 1, true);
    const CLine good(Point(0, 0), 1, 1, true);
    const Circle circle(Point(bad, bad), bad);
    Point p1;
    Point p2;
    Intof(line, good);
    Intof(1, line, Circle(Point(0, 0), 1), p1);
    Intof(-1, good, circle, p1);
    EXPECT_LE(Intof(circle, Circle(Point(0, 0), 1), p1, p2), 2);
    Span span(Point(bad, 0), Point(1, bad));
    Span arc(ACW, Point(1, 0), Point(0, 1), Point(0, 0));
    EXPECT_LE(Intof(span, arc, p1, p2), 2);
    EXPECT_LE(Intof(arc, span, p1, p2), 2);
    EXPECT_LE(Intof(span, span, p1, p2), 1);
    Point3d p;
    Intof(Line(Point3d(bad, 0, 0), Point3d(1, 1, bad)), Line(Point3d(0, 0, 0), Point3d(1, 1, 1)), p);
    Hits(BoxRay(Line(Point3d(bad, 0, 0), Point3d(1, 1, bad))), Box3d(Point3d(0, 0, 0), Point3d(1, 1, 1)));
  }
}

}  // namespace
}  // namespace geometry

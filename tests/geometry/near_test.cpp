#include <gtest/gtest.h>

#include <cmath>

#include "geometry/intersect.h"
#include "geometry/kurveex.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kPi;
using testing::Random;
using testing::ThrownText;
using testing::UnitsGuard;

Span Arc(int dir, const Point& c, double r, double fromDegrees, double toDegrees) {
  return {dir, Point(c, r, fromDegrees), Point(c, r, toDegrees), c};
}

KurveEx Polyline(std::initializer_list<Point> points) {
  KurveEx k;
  for (const Point& p : points) k.Add(p.x, p.y);
  return k;
}

TEST(OnSpan, CountsAlongALineByFraction) {
  const Span line(Point(0, 0), Point(10, 0));
  double t = 0;
  EXPECT_TRUE(line.OnSpan(Point(2.5, 7), t)) << "the distance does not matter";
  EXPECT_DOUBLE_EQ(t, 0.25);
  EXPECT_TRUE(line.OnSpan(Point(0, 0), t));
  EXPECT_TRUE(line.OnSpan(Point(10, 0), t));
  EXPECT_FALSE(line.OnSpan(Point(-0.001, 0), t));
  EXPECT_FALSE(line.OnSpan(Point(10.001, 0)));
}

TEST(OnSpan, OfAnArcIsTheSideOfTheChord) {
  for (const int dir : {ACW, CW}) {
    const Span arc = Arc(dir, Point(0, 0), 5, dir * 10, dir * 100);
    EXPECT_TRUE(arc.OnSpan(arc.Along(2)));
    EXPECT_TRUE(arc.OnSpan(arc.p0));
    EXPECT_TRUE(arc.OnSpan(arc.p1));
    EXPECT_FALSE(arc.OnSpan(Point(Point(0, 0), 5, dir * 110)));
    EXPECT_FALSE(arc.OnSpan(Point(Point(0, 0), 5, dir * -5)));
  }
}

TEST(OnSpan, CountsAlongAnArcByAngle) {
  for (const int dir : {ACW, CW}) {
    const Span arc = Arc(dir, Point(0, 0), 5, dir * 10, dir * 110);
    double t = -1;
    EXPECT_TRUE(arc.OnSpan(Point(Point(0, 0), 5, dir * 35), t));
    EXPECT_NEAR(t, 0.25, 1e-12);
    EXPECT_TRUE(arc.OnSpan(arc.p0, t));
    EXPECT_EQ(t, 0);
    EXPECT_TRUE(arc.OnSpan(arc.p1, t));
    EXPECT_EQ(t, 1);
    EXPECT_FALSE(arc.OnSpan(Point(Point(0, 0), 5, dir * 160), t));
    EXPECT_NEAR(t, 1.5, 1e-12);
    EXPECT_FALSE(arc.OnSpan(Point(Point(0, 0), 5, dir * -30), t)) << "320 degrees further on";
    EXPECT_NEAR(t, 3.2, 1e-12);
  }
}

TEST(OnSpan, OfAnArcIsExactAtItsEndsWithinTheTolerance) {
  const UnitsGuard guard(0);
  const Span arc = Arc(ACW, Point(0, 0), 1, 0, 90);
  double t = -7;
  EXPECT_TRUE(arc.OnSpan(Point(1, -0.004), t));
  EXPECT_EQ(t, 0);
  EXPECT_TRUE(arc.OnSpan(Point(-0.004, 1), t));
  EXPECT_EQ(t, 1);
  EXPECT_FALSE(arc.OnSpan(Point(1, -0.006), t));
  EXPECT_FALSE(arc.OnSpan(Point(-0.006, 1), t));
}

TEST(On, NeedsTheDistanceToo) {
  const UnitsGuard guard(0);
  const Span line(Point(0, 0), Point(10, 0));
  const Span arc = Arc(ACW, Point(0, 0), 5, 0, 90);
  double t = -7;
  EXPECT_TRUE(line.On(Point(4, 0.005), t));
  EXPECT_DOUBLE_EQ(t, 0.4);
  t = -7;
  EXPECT_FALSE(line.On(Point(4, -0.0051), t));
  EXPECT_EQ(t, -7) << "untouched by the early rejection";
  EXPECT_FALSE(line.On(Point(4, -0.0051)));
  EXPECT_TRUE(arc.On(Point(Point(0, 0), 5.0049, 45), t));
  EXPECT_NEAR(t, 0.5, 1e-12);
  EXPECT_FALSE(arc.On(Point(Point(0, 0), 5.0051, 45)));
  EXPECT_FALSE(arc.On(Point(Point(0, 0), 5, 135)));
}

TEST(On, EndsCountWithinTheTolerance) {
  const UnitsGuard guard(0);
  for (const Span& span : {Span(Point(0, 0), Point(10, 0)), Arc(CW, Point(5, 0), 5, 180, 0)}) {
    double t = -7;
    EXPECT_TRUE(span.On(Point(-0.004, 0.004), t));
    EXPECT_EQ(t, 0);
    EXPECT_TRUE(span.On(Point(10.004, 0.004), t));
    EXPECT_EQ(t, 1);
    EXPECT_TRUE(span.On(Point(10.004, 0.004)));
    EXPECT_FALSE(span.On(Point(10.006, 0)));
  }
}

TEST(Near, OfTheCarrierReachesBeyondTheEnds) {
  const Span line(Point(1, 0), Point(5, 0));
  const Span arc = Arc(ACW, Point(0, 0), 5, 0, 90);
  double t = 0;
  EXPECT_TRUE(line.Near(Point(9, 3), t) == Point(9, 0));
  EXPECT_EQ(t, 8);
  EXPECT_TRUE(arc.Near(Point(0, -2), t) == Point(0, -5));
  EXPECT_NEAR(t, 1.5 * kPi * 5, 1e-9);
  EXPECT_TRUE(arc.Near(Point(20, 20), t) == Point(Point(0, 0), 5, 45));
  EXPECT_NEAR(t, kPi / 4 * 5, 1e-9);
}

TEST(Near, OfTheCentreIsTheStart) {
  const UnitsGuard guard(0);
  const Span arc = Arc(ACW, Point(0, 0), 5, 30, 90);
  double t = 7;
  EXPECT_TRUE(arc.Near(Point(0.004, 0), t) == arc.p0);
  EXPECT_EQ(t, 0);
}

TEST(NearClamped, EndsAtTheEnds) {
  const UnitsGuard guard(0);
  const Span line(Point(0, 0), Point(10, 0));
  double t = 0;
  EXPECT_TRUE(line.NearClamped(Point(4, 3), t) == Point(4, 0));
  EXPECT_EQ(t, 4);
  EXPECT_EQ(Dist(line.NearClamped(Point(-3, 4), t), Point(0, 0)), 0);
  EXPECT_EQ(t, 0);
  EXPECT_EQ(Dist(line.NearClamped(Point(13, 4), t), Point(10, 0)), 0);
  EXPECT_EQ(t, 10);
  EXPECT_EQ(line.NearClamped(Point(0.0049, 1), t).x, 0) << "the tolerance belongs to the ends";
  EXPECT_EQ(line.NearClamped(Point(9.9951, 1), t).x, 10);
  EXPECT_EQ(line.NearClamped(Point(9.994, 1), t).x, 9.994);
}

TEST(NearClamped, OfAQuarterJustBeyondItsEndIsTheEnd) {
  for (const int dir : {ACW, CW}) {
    const Span arc = Arc(dir, Point(0, 0), 5, 0, dir * 90);
    double t = 0;
    EXPECT_TRUE(arc.NearClamped(Point(Point(0, 0), 6, dir * 100), t) == arc.p1);
    EXPECT_DOUBLE_EQ(t, arc.length);
    EXPECT_TRUE(arc.NearClamped(Point(Point(0, 0), 6, dir * -10), t) == arc.p0);
    EXPECT_EQ(t, 0);
  }
}

TEST(NearClamped, OfAQuarterWrapsHalfATurnFromItsStart) {
  const Span arc = Arc(ACW, Point(0, 0), 5, 0, 90);
  double t = 0;
  EXPECT_TRUE(arc.NearClamped(Point(Point(0, 0), 5, 179.9), t) == arc.p1);
  EXPECT_TRUE(arc.NearClamped(Point(Point(0, 0), 5, 180.1), t) == arc.p0);
  EXPECT_TRUE(arc.NearClamped(Point(Point(0, 0), 5, 224), t) == arc.p0) << "although the end is nearer";
  EXPECT_TRUE(arc.NearClamped(Point(Point(0, 0), 5, 269), t) == arc.p0);
  EXPECT_EQ(t, 0);
}

TEST(NearClamped, OfMoreThanHalfATurnDoesNotWrap) {
  const Span arc = Arc(ACW, Point(0, 0), 5, 0, 270);
  double t = 0;
  EXPECT_TRUE(arc.NearClamped(Point(Point(0, 0), 5, 350), t) == arc.p1);
  EXPECT_DOUBLE_EQ(t, arc.length);
  EXPECT_TRUE(arc.NearClamped(Point(Point(0, 0), 1, 260), t) == Point(Point(0, 0), 5, 260));
}

TEST(NearClamped, OfHalfATurnIsExactOnItsSideAndTheStartElsewhere) {
  Random random(855);
  for (int i = 0; i < 2000; ++i) {
    const double from = random.Between(-180, 180);
    const Span arc = Arc(random.Below(2) == 0 ? ACW : CW, Point(0, 0), 5, from, from + 180);
    const Point p(random.Between(-9, 9), random.Between(-9, 9));
    double t = 0;
    const Point nearest = arc.NearClamped(p, t);
    EXPECT_TRUE(arc.Along(t) == nearest);
    if (arc.OnSpan(On(Circle(arc), p))) {
      EXPECT_NEAR(Dist(p, nearest), std::fabs(Dist(p, arc.pc) - 5), 1e-5);
    } else {
      EXPECT_TRUE(nearest == arc.p0);
    }
  }
}

TEST(SpanDist, ReachesTheNearerEnd) {
  const Span line(Point(0, 0), Point(10, 0));
  const Span arc = Arc(ACW, Point(0, 0), 5, 0, 90);
  Point nearest;
  EXPECT_EQ(line.Dist(Point(4, 3), nearest), 3);
  EXPECT_TRUE(nearest == Point(4, 0));
  EXPECT_EQ(line.Dist(Point(-3, 4), nearest), 5);
  EXPECT_TRUE(nearest == Point(0, 0));
  EXPECT_EQ(line.Dist(Point(13, 4), nearest), 5);
  EXPECT_TRUE(nearest == Point(10, 0));
  EXPECT_DOUBLE_EQ(arc.Dist(Point(Point(0, 0), 7, 45), nearest), 2);
  EXPECT_DOUBLE_EQ(arc.Dist(Point(Point(0, 0), 4, 45), nearest), 1);
  EXPECT_DOUBLE_EQ(arc.Dist(Point(Point(0, 0), 5, 200), nearest), Dist(arc.p1, Point(Point(0, 0), 5, 200)));
  EXPECT_TRUE(nearest == arc.p1) << "the nearer one here, where the clamped form wraps";
  EXPECT_EQ(arc.Dist(Point(0, 0), nearest), 5);
  EXPECT_TRUE(nearest == arc.p0);
}

TEST(SpanDist, BeyondTheEndsByTheToleranceTheFootCounts) {
  const UnitsGuard guard(0);
  const Span line(Point(0, 0), Point(10, 0));
  Point nearest;
  EXPECT_EQ(line.Dist(Point(10.004, 3), nearest), 3);
  EXPECT_GT(nearest.x, 10);
  EXPECT_GT(line.Dist(Point(10.006, 3), nearest), 3);
  EXPECT_EQ(nearest.x, 10);
  EXPECT_EQ(line.Dist(Point(-0.004, 3), nearest), 3);
  EXPECT_LT(nearest.x, 0);
  EXPECT_GT(line.Dist(Point(-0.006, 3), nearest), 3);
  EXPECT_EQ(nearest.x, 0);
}

TEST(SpanDist, TheEndWinsATie) {
  const Span arc(ACW, Point(0, -5), Point(0, 5), Point(0, 0));
  Point nearest;
  EXPECT_DOUBLE_EQ(arc.Dist(Point(-5, 0), nearest), std::sqrt(50.0));
  EXPECT_TRUE(nearest == Point(0, 5));
}

TEST(SpanDist, IsThatOfDenseSampling) {
  Random random(856);
  for (int i = 0; i < 1000; ++i) {
    const double from = random.Between(-180, 180);
    const int dir = random.Below(3) - 1;
    const Span span = dir == LINEAR ? Span(Point(-3, random.Between(-3, 3)), Point(4, random.Between(-3, 3)))
                                    : Arc(dir, Point(0, 0), 5, from, from + random.Between(10, 350));
    const Point p(random.Between(-9, 9), random.Between(-9, 9));
    double least = 1e100;
    for (int k = 0; k <= 4000; ++k) least = std::min(least, Dist(p, span.AlongFraction(k / 4000.0)));
    Point nearest;
    EXPECT_NEAR(span.Dist(p, nearest), least, 1e-3);
    EXPECT_NEAR(Dist(p, nearest), least, 1e-3);
  }
}

TEST(KurveExNear, IsTheFirstSpanOfTheLeastDistance) {
  KurveEx k = Polyline({Point(0, 0), Point(4, 0), Point(4, 4), Point(0, 4), Point(0, 0)});
  int span = 0;
  double t = 0;
  EXPECT_TRUE(k.Near(Point(2, 2), span, t) == Point(2, 0));
  EXPECT_EQ(span, 1);
  EXPECT_EQ(t, 2);
  EXPECT_TRUE(k.Near(Point(9, 9), span, t) == Point(4, 4));
  EXPECT_EQ(span, 2);
  k.Reverse(true);
  EXPECT_TRUE(k.Near(Point(2, 2), span, t) == Point(0, 2)) << "in reading order";
  EXPECT_EQ(span, 1);
  EXPECT_TRUE(k.Near(Point(3, 1), span, t) == Point(4, 1));
  EXPECT_EQ(span, 3);
  EXPECT_EQ(t, 3);
  EXPECT_FALSE(KurveEx().Near(Point(1, 1), span, t).ok);
  EXPECT_EQ(span, 0);
}

TEST(WindingNumber, CountsTurnsAnticlockwise) {
  KurveEx k = Polyline({Point(0, 0), Point(4, 0), Point(4, 4), Point(0, 4), Point(0, 0)});
  EXPECT_EQ(k.windingNumber(Point(1, 1)), 1);
  EXPECT_EQ(k.windingNumber(Point(5, 1)), 0);
  k.Add(k);
  EXPECT_EQ(k.windingNumber(Point(1, 1)), 2);
  EXPECT_EQ(k.Inside(Point(1, 1)), 1) << "twice round is outside";
  k.Reverse(true);
  EXPECT_EQ(k.windingNumber(Point(1, 1)), -2);
}

TEST(WindingNumber, LowerEdgesAreInAndUpperOnesOut) {
  const KurveEx k = Polyline({Point(0, 0), Point(4, 0), Point(4, 4), Point(0, 4), Point(0, 0)});
  EXPECT_EQ(k.windingNumber(Point(2, 0)), 1);
  EXPECT_EQ(k.windingNumber(Point(2, 4)), 0);
  EXPECT_EQ(k.windingNumber(Point(0, 2)), 1) << "on the left edge, which runs down: not strictly right of it";
  EXPECT_EQ(k.windingNumber(Point(4, 2)), 0);
}

TEST(WindingNumber, RefusesEmptyContoursAndArcs) {
  EXPECT_EQ(ThrownText([] { KurveEx().windingNumber(Point(0, 0)); }), L"No Spans inside!");
  EXPECT_EQ(ThrownText([] { KurveEx(Point(0, 0), 5, ACW).windingNumber(Point(0, 0)); }),
            L"Arc span not allowed in windingNumber");
  KurveEx late = Polyline({Point(0, 0), Point(4, 0), Point(4, 4)});
  late.Add(ACW, Point(0, 4), Point(2, 4));
  EXPECT_EQ(ThrownText([&] { late.Inside(Point(0, 0)); }), L"Arc span not allowed in windingNumber");
}

TEST(Inside, IsZeroInsideAndOneOutside) {
  KurveEx k = Polyline({Point(0, 0), Point(4, 0), Point(4, 4), Point(0, 4), Point(0, 0)});
  EXPECT_EQ(k.Inside(Point(1, 1)), 0);
  EXPECT_EQ(k.Inside(Point(-1, 1)), 1);
  k.Reverse(true);
  EXPECT_EQ(k.Inside(Point(1, 1)), 0);
}

TEST(Inside, AgreesWithTheAngleSummedAround) {
  Random random(857);
  KurveEx star;
  for (int i = 0; i <= 14; ++i) {
    const double angle = i % 14 * kPi / 7;
    const double r = i % 2 == 0 ? 9 : 3;
    star.Add(r * std::cos(angle), r * std::sin(angle));
  }
  for (int i = 0; i < 3000; ++i) {
    const Point p(random.Between(-10, 10), random.Between(-10, 10));
    double sum = 0;
    for (const Span& span : star.spans) {
      const Vector2d a(p, span.p0);
      const Vector2d b(p, span.p1);
      sum += std::atan2(Cross(a, b), Dot(a, b));
    }
    EXPECT_EQ(star.windingNumber(p), std::lround(sum / (2 * kPi)));
    EXPECT_EQ(star.Inside(p), std::fabs(sum) > 1 ? 0 : 1);
  }
}

Kurve Compact(std::initializer_list<Point> points) {
  Kurve k;
  for (const Point& p : points) k.Add(p);
  return k;
}

TEST(Part, OfOneSpanIsOneSpan) {
  const Kurve square = Compact({Point(0, 0), Point(4, 0), Point(4, 4), Point(0, 4), Point(0, 0)});
  EXPECT_TRUE(Part(square, 1, Point(1, 0), 1, Point(3, 0)) == Compact({Point(1, 0), Point(3, 0)}));
  EXPECT_TRUE(Part(square, 1, Point(3, 0), 1, Point(1, 0)) == Compact({Point(3, 0), Point(1, 0)}));
}

TEST(Part, RunsOverTheSpansBetween) {
  const Kurve square = Compact({Point(0, 0), Point(4, 0), Point(4, 4), Point(0, 4), Point(0, 0)});
  EXPECT_TRUE(Part(square, 1, Point(1, 0), 3, Point(3, 4)) ==
              Compact({Point(1, 0), Point(4, 0), Point(4, 4), Point(3, 4)}));
}

TEST(Part, RunsOverTheEndOfAClosedContour) {
  const Kurve square = Compact({Point(0, 0), Point(4, 0), Point(4, 4), Point(0, 4), Point(0, 0)});
  EXPECT_TRUE(Part(square, 3, Point(1, 4), 2, Point(4, 1)) ==
              Compact({Point(1, 4), Point(0, 4), Point(0, 0), Point(4, 0), Point(4, 1)}));
}

TEST(Part, BridgesTheGapOfAnOpenContour) {
  const Kurve open = Compact({Point(0, 0), Point(4, 0), Point(4, 4), Point(0, 4)});
  EXPECT_TRUE(Part(open, 3, Point(1, 4), 1, Point(2, 0)) ==
              Compact({Point(1, 4), Point(0, 4), Point(0, 0), Point(2, 0)}));
}

TEST(Part, BridgesNoGapThatIsClosedWithinTheTolerance) {
  const UnitsGuard guard(0);
  const Kurve closed = Compact({Point(0, 0), Point(4, 0), Point(4, 4), Point(0.004, 0.004)});
  EXPECT_EQ(Part(closed, 3, Point(2, 2), 1, Point(2, 0)).nVertices, 3);
  const Kurve open = Compact({Point(0, 0), Point(4, 0), Point(4, 4), Point(0.006, 0.004)});
  EXPECT_EQ(Part(open, 3, Point(2, 2), 1, Point(2, 0)).nVertices, 4);
}

TEST(Part, FindsItsSpansByTheNearestPoint) {
  const Kurve square = Compact({Point(0, 0), Point(4, 0), Point(4, 4), Point(0, 4), Point(0, 0)});
  EXPECT_TRUE(Part(square, 0, Point(1, -1), 0, Point(5, 3)) ==
              Compact({Point(1, 0), Point(4, 0), Point(4, 3)}));
  EXPECT_EQ(Part(Kurve(), 0, Point(0, 0), 0, Point(1, 1)).nVertices, 0);
}

TEST(Part, KeepsArcsIDsAndTheMatrixApplied) {
  Kurve k;
  k.Start(Point(0, 0));
  k.Add(spVertex(ACW, Point(2, 0), Point(1, 0), 31));
  k.Add(spVertex(LINEAR, Point(5, 0), Point(0, 0), 32));
  k.Translate(10, 0);
  const Kurve part = Part(k, 1, Point(11, -1), 2, Point(13, 0));
  Span span;
  EXPECT_EQ(part.Get(1, span, true), ACW);
  EXPECT_DOUBLE_EQ(span.angle, kPi / 2);
  EXPECT_TRUE(span.pc == Point(11, 0));
  EXPECT_EQ(span.ID, 31u);
  part.Get(2, span, true);
  EXPECT_EQ(span.length, 1);
  EXPECT_TRUE(part.unit);
}

}  // namespace
}  // namespace geometry

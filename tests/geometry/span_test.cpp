#include "geometry/span.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "geometry/state.h"
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

const std::wstring kMismatch = L"Invalid Geometry - Radii mismatch - SetProperties";
const std::wstring kMissing = L"SetProperties missing";

Point OnCircle(const Point& c, double r, double angle) {
  return {c.x + r * std::cos(angle), c.y + r * std::sin(angle)};
}

Span Arc(int dir, const Point& c, double r, double from, double sweep) {
  return {dir, OnCircle(c, r, from), OnCircle(c, r, from + dir * sweep), c};
}

/// Arcs and lines of all sizes and directions, from a fixed seed.
Span AnySpan(Random& random) {
  const Point p(random.Between(-50, 50), random.Between(-50, 50));
  const int dir = random.Below(3) - 1;
  if (dir == LINEAR) return {p, Point(random.Between(-50, 50), random.Between(-50, 50))};
  return Arc(dir, p, random.Between(0.5, 40), random.Between(-3, 3), random.Between(0.05, 6.2));
}

TEST(IdNumber, IsTheSignedLowTwentyFourBits) {
  EXPECT_EQ(IdNumber(0x10000005u), 5);
  EXPECT_EQ(IdNumber(0xf07fffffu), 0x7fffff);
  EXPECT_EQ(IdNumber(0x20ffffffu), -1);
  EXPECT_EQ(IdNumber(0x00800000u), -0x800000);
}

TEST(Vertex, EqualityLooksAtCentresOfArcsOnly) {
  const spVertex line(LINEAR, Point(1, 2), Point(3, 4));
  const spVertex arc(ACW, Point(1, 2), Point(3, 4));
  EXPECT_TRUE(line == spVertex(LINEAR, Point(1, 2), Point(9, 9), 7));
  EXPECT_FALSE(arc == spVertex(ACW, Point(1, 2), Point(9, 9)));
  EXPECT_TRUE(arc == spVertex(ACW, Point(1, 2), Point(3, 4)));
  EXPECT_FALSE(arc == spVertex(CW, Point(1, 2), Point(3, 4)));
  EXPECT_FALSE(line == spVertex(LINEAR, Point(1, 3), Point(3, 4)));
  EXPECT_EQ(line.ID, UNMARKED);
  EXPECT_EQ(spVertex().type, LINEAR);
  EXPECT_EQ(spVertex().ID, 0x10000000u);
}

TEST(Span, BeginsNullAndWithoutProperties) {
  const Span span;
  EXPECT_EQ(span.dir, 0);
  EXPECT_EQ(span.ID, 0x10000000u);
  EXPECT_TRUE(span.NullSpan);
  EXPECT_FALSE(span.propertiesSet);
  EXPECT_EQ(span.index0, 0u);
  EXPECT_TRUE(scratchSpanPair.source.NullSpan);
  EXPECT_FALSE(scratchSpanPair.offset.propertiesSet);
}

TEST(Span, OfALineHasItsDirectionAtBothEnds) {
  const Span span(Point(1, 1), Point(4, 5), 17, 3, 4);
  EXPECT_TRUE(span.propertiesSet);
  EXPECT_FALSE(span.NullSpan);
  EXPECT_EQ(span.length, 5);
  EXPECT_EQ(span.radius, 0);
  EXPECT_EQ(span.angle, 0);
  EXPECT_TRUE(span.vs == Vector2d(0.6, 0.8));
  EXPECT_TRUE(span.ve == span.vs);
  EXPECT_EQ(span.ID, 17u);
  EXPECT_EQ(span.index0, 3u);
  EXPECT_EQ(span.index1, 4u);
}

TEST(Span, OfAnArcHasTangentsRadiusAngleAndLength) {
  const Span acw(ACW, Point(2, 0), Point(0, 2), Point(0, 0), 9, 1, 2);
  EXPECT_EQ(acw.radius, 2);
  EXPECT_DOUBLE_EQ(acw.angle, kPi / 2);
  EXPECT_DOUBLE_EQ(acw.length, kPi);
  EXPECT_TRUE(acw.vs == Vector2d(0, 1));
  EXPECT_TRUE(acw.ve == Vector2d(-1, 0));
  EXPECT_EQ(acw.ID, 9u);
  EXPECT_EQ(acw.index1, 2u);
  const Span cw(CW, Point(2, 0), Point(0, 2), Point(0, 0));
  EXPECT_DOUBLE_EQ(cw.angle, -1.5 * kPi);
  EXPECT_DOUBLE_EQ(cw.length, 3 * kPi);
  EXPECT_TRUE(cw.vs == Vector2d(0, -1));
  EXPECT_TRUE(cw.ve == Vector2d(1, 0));
}

TEST(Span, OfHalfATurnHasPiBySense) {
  EXPECT_EQ(Span(ACW, Point(2, 0), Point(-2, 0), Point(0, 0)).angle, kPi);
  EXPECT_EQ(Span(CW, Point(2, 0), Point(-2, 0), Point(0, 0)).angle, -kPi);
}

TEST(Span, UpToTheToleranceIsNullWithItsStartAsCentre) {
  const UnitsGuard guard(0);
  const Span shortLine(Point(1, 1), Point(1.005, 1));
  const Span line(Point(1, 1), Point(1.0051, 1));
  EXPECT_TRUE(shortLine.NullSpan);
  EXPECT_EQ(shortLine.pc.x, 1);
  EXPECT_NEAR(shortLine.length, 0.005, 1e-12) << "a null line keeps its length";
  EXPECT_FALSE(line.NullSpan);
}

TEST(Span, OfAnArcToItsOwnStartIsNull) {
  const Span span(ACW, Point(2, 0), Point(2, 0), Point(0, 0));
  EXPECT_TRUE(span.NullSpan);
  EXPECT_EQ(span.dir, 0);
  EXPECT_TRUE(span.pc == Point(2, 0));
  EXPECT_EQ(span.radius, 0);
  EXPECT_EQ(span.angle, 0);
  EXPECT_EQ(span.length, 0);
  EXPECT_TRUE(span.propertiesSet);
}

TEST(Span, WithoutRadiusIsNull) {
  const UnitsGuard guard(0);
  const Span span(CW, Point(0.004, 0), Point(-0.004, 0), Point(0, 0));
  EXPECT_TRUE(span.NullSpan) << "although its chord is longer than the tolerance";
  EXPECT_EQ(span.dir, 0);
}

TEST(Span, TooFlatForAnAngleBecomesItsChord) {
  const UnitsGuard guard(0);
  // 1 mm on a radius of 1 km: the cosine differs from 1 by 5e-13.
  const Span span = Arc(ACW, Point(0, 0), 1e6, 0.3, 1e-6);
  EXPECT_EQ(span.dir, 0);
  EXPECT_FALSE(span.NullSpan);
  EXPECT_EQ(span.angle, 0);
  EXPECT_NEAR(span.length, 1.0, 1e-8);
  EXPECT_NEAR(Dot(span.vs, Vector2d(span.p0, span.p1)), span.length, 1e-8);
  EXPECT_TRUE(span.ve == span.vs);
  EXPECT_NEAR(span.radius, 1e6, 1) << "what is left of the arc";
}

TEST(Span, RadiiOfSmallArcsMayDifferByOneAndAHalfTolerances) {
  const UnitsGuard guard(0);
  EXPECT_NO_THROW(Span(ACW, Point(10, 0), Point(0, 10.0074), Point(0, 0)));
  EXPECT_EQ(ThrownText([] { Span(ACW, Point(10, 0), Point(0, 10.0076), Point(0, 0)); }), kMismatch);
  EXPECT_EQ(ThrownText([] { Span(ACW, Point(10, 0), Point(0, 10.015), Point(0, 0)); }), kMismatch);
  EXPECT_EQ(ThrownText([] { Span(CW, Point(50, 0), Point(0, 50.0076), Point(0, 0)); }), kMismatch);
}

TEST(Span, RadiiOfLargeArcsMayDifferByFourAndAHalf) {
  const UnitsGuard guard(0);
  EXPECT_NO_THROW(Span(ACW, Point(100, 0), Point(0, 100.015), Point(0, 0)));
  EXPECT_NO_THROW(Span(ACW, Point(50.0001, 0), Point(0, 50.0221), Point(0, 0)));
  EXPECT_EQ(ThrownText([] { Span(ACW, Point(100, 0), Point(0, 100.0226), Point(0, 0)); }), kMismatch);
}

TEST(Span, TheSizeOfASmallArcIsFiftyMillimetresInAnyUnit) {
  {
    const UnitsGuard guard(2);
    EXPECT_NO_THROW(Span(ACW, Point(0.1, 0), Point(0, 0.100015), Point(0, 0)));
    EXPECT_EQ(ThrownText([] { Span(ACW, Point(0.01, 0), Point(0, 0.010015), Point(0, 0)); }), kMismatch);
  }
  const UnitsGuard guard(1);
  EXPECT_NO_THROW(Span(ACW, Point(3, 0), Point(0, 3.0015), Point(0, 0)));
  EXPECT_EQ(ThrownText([] { Span(ACW, Point(1.9, 0), Point(0, 1.9015), Point(0, 0)); }), kMismatch);
}

TEST(Span, LimitsOfRadiiAreIncluded) {
  const UnitsGuard guard(0);
  TOLERANCE = kExactTolerance;
  const auto arc = [](double r, double tolerances) {
    return Span(ACW, Point(r, 0), Point(0, r + tolerances * TOLERANCE), Point(0, 0));
  };
  EXPECT_NO_THROW(arc(8, 1.5));
  EXPECT_NO_THROW(arc(64, 4.5));
  EXPECT_NO_THROW(arc(50.0 + TIGHT_TOLERANCE, 3)) << "large enough for a second chance";
  EXPECT_EQ(ThrownText([&] { arc(50.0, 3); }), kMismatch);
}

TEST(Span, LimitsOfLengthsAreNull) {
  const UnitsGuard guard(0);
  TOLERANCE = kExactTolerance;
  const double t = TOLERANCE;
  EXPECT_TRUE(Span(Point(0, 0), Point(t, 0)).NullSpan);
  EXPECT_TRUE(Span(ACW, Point(t, 0), Point(0, t), Point(0, 0)).NullSpan) << "by its radius";
  EXPECT_TRUE(Span(ACW, Point(t / 2, 1), Point(-t / 2, 1), Point(0, 0)).NullSpan) << "by its chord";
}

TEST(Span, StaysWithoutPropertiesWhenTheyCannotBeSet) {
  Span span(ACW, Point(1, 0), Point(0, 1), Point(0, 0));
  span.p1 = Point(0, 2);
  EXPECT_EQ(ThrownText([&] { span.SetProperties(); }), kMismatch);
  EXPECT_FALSE(span.propertiesSet);
  EXPECT_EQ(ThrownText([&] { span.Along(1); }), kMissing);
}

TEST(Span, QueriesOfStaleCachesAreRefused) {
  Span stale(ACW, Point(1, 0), Point(0, 1), Point(0, 0));
  stale.SetProperties(false);
  EXPECT_FALSE(stale.propertiesSet);
  EXPECT_EQ(stale.length, 0);
  double t = 0;
  Point p;
  Matrix m;
  EXPECT_EQ(ThrownText([&] { stale.ChordCount(0.1); }), kMissing);
  EXPECT_EQ(ThrownText([] { Span().ChordCount(0.1); }), kMissing);
  EXPECT_EQ(ThrownText([&] { stale.Mid(); }), kMissing);
  EXPECT_EQ(ThrownText([&] { stale.Tangent(0.5); }), kMissing);
  EXPECT_EQ(ThrownText([&] { stale.Area(); }), kMissing);
  EXPECT_EQ(ThrownText([&] { stale.StepMatrix(3, m); }), kMissing);
  EXPECT_EQ(ThrownText([&] { stale.Near(Point(1, 1), t); }), kMissing);
  EXPECT_EQ(ThrownText([&] { stale.Dist(Point(1, 1), p); }), kMissing);
  EXPECT_EQ(ThrownText([&] { stale.Offset(1); }), kMissing);
  geometry::Box box;
  EXPECT_EQ(ThrownText([&] { stale.Box(box, true); }), kMissing);
  EXPECT_EQ(ThrownText([] { Span().Along(1); }), kMissing) << "whether it is null is not known either";
  EXPECT_EQ(ThrownText([] { Span().AlongFraction(0.5); }), kMissing);
  EXPECT_EQ(ThrownText([] { Line{Span()}; }), kMissing);
}

TEST(Span, ComparisonsOfStaleLinesAreRefused) {
  const Span before(Point(0, 0), Point(1, 0));
  Span stale(Point(1, 0), Point(2, 0));
  stale.SetProperties(false);
  EXPECT_EQ(ThrownText([&] { stale.SameGeometry(before); }), kMissing);
  Span staleBefore = before;
  staleBefore.SetProperties(false);
  EXPECT_EQ(ThrownText([&] { Span(Point(1, 0), Point(2, 0)).SameGeometry(staleBefore); }), kMissing);
}

TEST(Span, BoxOfALineNeedsNoProperties) {
  Span line(Point(1, 0), Point(2, 3));
  line.SetProperties(false);
  geometry::Box box;
  line.Box(box, true);
  EXPECT_TRUE(box.max == Point(2, 3));
}

TEST(Span, FromTwoVerticesBeginsAtTheFirst) {
  const Span span(spVertex(CW, Point(2, 0), Point(9, 9), 4), spVertex(ACW, Point(0, 2), Point(0, 0), 5));
  EXPECT_TRUE(span.p0 == Point(2, 0));
  EXPECT_EQ(span.dir, ACW);
  EXPECT_EQ(span.ID, 5u);
  EXPECT_DOUBLE_EQ(span.angle, kPi / 2);
}

TEST(Span, BoxIsWidenedByTheTightTolerance) {
  const UnitsGuard guard(0);
  const Span line(Point(1, 5), Point(4, 2));
  EXPECT_EQ(line.box.min.x, 1 - 1e-6);
  EXPECT_EQ(line.box.max.y, 5 + 1e-6);
  Box box;
  line.Box(box, false);
  EXPECT_EQ(box.max.y, 2 + 1e-6) << "without the start";
  line.Box(box, true);
  EXPECT_NEAR(box.max.x, 4 + 2e-6, 1e-12) << "at each call";
}

TEST(Span, BoxOfAnArcHoldsTheQuadrantsItPasses) {
  const Span right = Arc(ACW, Point(0, 0), 10, -kPi / 4, kPi / 2);
  const Span rest = Arc(CW, Point(0, 0), 10, -kPi / 4, 1.5 * kPi);
  const double side = 10 / std::sqrt(2.0);
  EXPECT_NEAR(right.box.min.x, side, 1e-8);
  EXPECT_NEAR(right.box.max.x, 10, 1e-8);
  EXPECT_NEAR(right.box.max.y, side, 1e-8);
  EXPECT_NEAR(rest.box.min.x, -10, 1e-8);
  EXPECT_NEAR(rest.box.max.x, side, 1e-8);
  EXPECT_NEAR(rest.box.min.y, -10, 1e-8);
}

TEST(Span, BoxHoldsEveryPointAndIsTight) {
  Random random(821);
  for (int i = 0; i < 2000; ++i) {
    const Span span = AnySpan(random);
    Box sampled;
    for (int k = 0; k <= 500; ++k) sampled.Insert(span.AlongFraction(k / 500.0));
    ASSERT_FALSE(span.box.Outside(sampled.min));
    ASSERT_FALSE(span.box.Outside(sampled.max));
    ASSERT_NEAR(span.box.min.x, sampled.min.x, 0.01);
    ASSERT_NEAR(span.box.max.x, sampled.max.x, 0.01);
    ASSERT_NEAR(span.box.min.y, sampled.min.y, 0.01);
    ASSERT_NEAR(span.box.max.y, sampled.max.y, 0.01);
  }
}

TEST(Span, MirrorsTurnArcsTheOtherWay) {
  Matrix mirror;
  mirror.Scale(-2, 2, 2);
  Span arc(ACW, Point(2, 0), Point(0, 2), Point(0, 0));
  arc.Transform(mirror);
  EXPECT_EQ(arc.dir, CW);
  EXPECT_TRUE(arc.p0 == Point(-4, 0));
  EXPECT_DOUBLE_EQ(arc.angle, -kPi / 2);
  EXPECT_EQ(arc.radius, 4);
}

TEST(Span, TransformMovesTheCentreOfArcsOnly) {
  Matrix move;
  move.Translate(5, 0);
  Span line(LINEAR, Point(1, 0), Point(2, 0), Point(7, 7));
  line.Transform(move);
  EXPECT_EQ(line.pc.x, 7);
  Span arc(ACW, Point(1, 0), Point(0, 1), Point(0, 0));
  arc.Transform(move);
  EXPECT_EQ(arc.pc.x, 5);
}

TEST(Span, TransformThenInverseIsTheSpanAgain) {
  Random random(822);
  for (int i = 0; i < 2000; ++i) {
    const Span span = AnySpan(random);
    Matrix m;
    m.Rotate(random.Between(-3, 3), 3);
    m.Scale(random.Below(2) == 0 ? 1.5 : -1.5, 1.5, 1);
    m.Translate(random.Between(-9, 9), random.Between(-9, 9));
    Span moved = span;
    moved.Transform(m);
    ASSERT_NEAR(moved.length, 1.5 * span.length, 1e-7);
    moved.Transform(m.Inverse());
    ASSERT_TRUE(moved == span);
    ASSERT_NEAR(moved.angle, span.angle, 1e-9);
  }
}

TEST(Span, ScalesItsPointsAndCaches) {
  Span arc(ACW, Point(3, 0), Point(1, 2), Point(1, 0));
  arc.Scale(3);
  EXPECT_TRUE(arc.p0 == Point(9, 0));
  EXPECT_TRUE(arc.pc == Point(3, 0));
  EXPECT_EQ(arc.radius, 6);
  EXPECT_NEAR(arc.box.max.y, 6, 1e-8);
}

TEST(Span, ReversedTwiceIsTheSpanAgain) {
  Random random(823);
  for (int i = 0; i < 1000; ++i) {
    const Span span = AnySpan(random);
    const Span back = span.Reversed();
    const Span again = back.Reversed();
    ASSERT_TRUE(again == span);
    ASSERT_EQ(again.angle, span.angle);
    ASSERT_EQ(back.length, span.length);
    ASSERT_EQ(back.dir, -span.dir);
    ASSERT_EQ(Dist(back.p0, span.p1), 0);
    ASSERT_EQ(back.vs.dx, -span.ve.dx);
    Span fresh = back;
    fresh.SetProperties();
    ASSERT_NEAR(fresh.angle, back.angle, 1e-7);
    ASSERT_TRUE(fresh.vs == back.vs);
    ASSERT_TRUE(fresh.ve == back.ve);
  }
}

TEST(Span, MidIsHalfWay) {
  EXPECT_TRUE(Span(Point(1, 1), Point(3, 5)).Mid() == Point(2, 3));
  Random random(824);
  for (int i = 0; i < 2000; ++i) {
    const Span span = AnySpan(random);
    ASSERT_NEAR(Dist(span.Mid(), span.AlongFraction(0.5)), 0, 1e-6) << span.angle;
  }
  EXPECT_TRUE(Span(Point(1, 1), Point(1, 1)).Mid() == Point(1, 1));
}

TEST(Span, MidOfAnArcWithoutChordIsItsStart) {
  Span arc(ACW, Point(1, 0), Point(0, 1), Point(0, 0));
  arc.p1 = arc.p0;
  EXPECT_TRUE(arc.Mid() == Point(1, 0));
}

TEST(Span, PointsAlongByDistanceAndFraction) {
  const Span line(Point(1, 1), Point(4, 5));
  const Span arc(CW, Point(2, 0), Point(-2, 0), Point(0, 0));
  EXPECT_TRUE(line.Along(10) == Point(7, 9)) << "beyond the end too";
  EXPECT_TRUE(arc.Along(kPi) == Point(0, -2));
  EXPECT_TRUE(arc.AlongFraction(0.75) == OnCircle(Point(0, 0), 2, -0.75 * kPi));
  const Span null(Point(3, 3), Point(3, 3));
  EXPECT_TRUE(null.Along(5) == Point(3, 3));
  EXPECT_TRUE(null.AlongFraction(0.5) == Point(3, 3));
}

TEST(Span, FractionsNextToTheEndsAreTheEnds) {
  const Span arc(CW, Point(2, 0), Point(-2, 1e-7), Point(0, 0));
  EXPECT_EQ(arc.AlongFraction(1e-14).y, 0);
  EXPECT_EQ(arc.AlongFraction(1 - 1e-14).y, 1e-7);
  EXPECT_NE(arc.AlongFraction(1 - 1e-12).y, 1e-7);
}

TEST(Span, TangentsFollowTheWay) {
  const Span line(Point(1, 1), Point(4, 5));
  const Span acw = Arc(ACW, Point(5, 5), 3, 0.4, 2);
  const Span cw = Arc(CW, Point(5, 5), 3, 0.4, 2);
  EXPECT_TRUE(line.Tangent(0.3) == Vector2d(0.6, 0.8));
  for (const Span& arc : {acw, cw}) {
    EXPECT_TRUE(arc.Tangent(0) == arc.vs);
    EXPECT_TRUE(arc.Tangent(1) == arc.ve);
    const Vector2d step(arc.AlongFraction(0.3), arc.AlongFraction(0.3001));
    EXPECT_NEAR(Cross(arc.Tangent(0.3), step) / step.Magnitude(), 0, 1e-3);
    EXPECT_GT(Dot(arc.Tangent(0.3), step), 0);
  }
}

TEST(Span, StepsLeadFromStartToEnd) {
  Random random(825);
  for (int i = 0; i < 500; ++i) {
    const Span span = AnySpan(random);
    const int steps = 1 + random.Below(20);
    Matrix m;
    m.Scale(77);
    span.StepMatrix(steps, m);
    Point p = span.p0;
    for (int k = 1; k <= steps; ++k) {
      p = p.Transform(m);
      ASSERT_NEAR(Dist(p, span.AlongFraction(static_cast<double>(k) / steps)), 0, 1e-9);
    }
  }
}

/// The area under the span, clockwise positive, by many narrow trapezoids.
double SampledArea(const Span& span) {
  double sum = 0;
  Point from = span.p0;
  for (int k = 1; k <= 4000; ++k) {
    const Point to = span.AlongFraction(k / 4000.0);
    sum += 0.5 * (to.x - from.x) * (from.y + to.y);
    from = to;
  }
  return sum;
}

TEST(Span, AreaIsThatUnderTheCurve) {
  EXPECT_EQ(Span(Point(0, 2), Point(3, 4)).Area(), 9);
  EXPECT_EQ(Span(Point(3, 4), Point(0, 2)).Area(), -9);
  Random random(826);
  for (int i = 0; i < 300; ++i) {
    const Span span = AnySpan(random);
    ASSERT_NEAR(span.Area(), SampledArea(span), 0.01);
  }
}

TEST(Span, EqualityIsOfKindEndsAndCentres) {
  const Span arc(ACW, Point(2, 0), Point(0, 2), Point(0, 0));
  const Span line(Point(0, 0), Point(1, 0));
  EXPECT_TRUE(arc == Span(ACW, Point(2, 0), Point(0, 2), Point(0, 0), 99));
  EXPECT_FALSE(arc == Span(CW, Point(2, 0), Point(0, 2), Point(0, 0)));
  EXPECT_FALSE(arc == Span(ACW, Point(2, 0), Point(0, 2), Point(2, 2)));
  EXPECT_FALSE(line == Span(Point(0, 0), Point(1, 1)));
  EXPECT_FALSE(line == Span(Point(0, 1), Point(1, 0)));
  Span other = line;
  other.pc = Point(7, 7);
  EXPECT_TRUE(line == other);
}

TEST(Span, ContinuesTheSameGeometry) {
  const Span before(Point(0, 0), Point(1, 0));
  const Span after(Point(1, 0), Point(3, 0));
  EXPECT_TRUE(after.SameGeometry(before));
  EXPECT_FALSE(before.SameGeometry(after)) << "in the order of the contour only";
  EXPECT_FALSE(Span(Point(1, 0), Point(3, 1)).SameGeometry(before));
  const Span first = Arc(ACW, Point(0, 0), 2, 0, 1);
  const Span second = Arc(ACW, Point(0, 0), 2, 1, 1);
  EXPECT_TRUE(second.SameGeometry(first));
  EXPECT_FALSE(second.SameGeometry(before));
  const Span upper(ACW, Point(2, 0), Point(-2, 0), Point(0, 0));
  const Span lower(ACW, Point(-2, 0), Point(2, 0), Point(0, 0));
  EXPECT_FALSE(lower.SameGeometry(upper)) << "together they would close";
  const Span elsewhere(ACW, Point(-2, 0), Point(-4, 2), Point(-4, 0));
  EXPECT_FALSE(elsewhere.SameGeometry(upper));
}

TEST(Span, SearchesByTenThousandSteps) {
  const UnitsGuard guard(0);
  const Span arc = Arc(ACW, Point(0, 0), 10, 0, 1);
  EXPECT_DOUBLE_EQ(arc.FindPoint(arc.AlongFraction(0.25)), 0.25);
  EXPECT_DOUBLE_EQ(arc.FindPoint(arc.AlongFraction(0.25003)), 0.25);
  EXPECT_EQ(arc.FindPoint(Point(0, 0)), -1.0);
  EXPECT_EQ(arc.FindPoint(Point(10.0049, 0)), 0.0);
  EXPECT_EQ(arc.FindPoint(Point(10.0051, 0)), -1.0);
  EXPECT_DOUBLE_EQ(arc.FindTangent(arc.Tangent(0.7)), 0.7);
  EXPECT_EQ(arc.FindTangent(Vector2d(1, 0)), -1.0);
  EXPECT_EQ(Span(Point(0, 0), Point(9, 0)).FindTangent(Vector2d(1, 0)), 0.0) << "the first of equals";
  EXPECT_EQ(arc.FindPoint(Point(kNaN, 0)), -1.0);
}

TEST(Span, FitsALineThroughSamplesOnIt) {
  const UnitsGuard guard(0);
  std::vector<Point> p;
  for (int i = 0; i <= 10; ++i) p.emplace_back(i, 2.0 * i);
  p[3].y += 0.04;
  Span span;
  EXPECT_TRUE(span.Fit(p.data(), 10, 0.05));
  EXPECT_EQ(span.dir, LINEAR);
  EXPECT_TRUE(span.p0 == Point(0, 0));
  EXPECT_TRUE(span.p1 == Point(10, 20));
  EXPECT_FALSE(span.NullSpan);
  EXPECT_FALSE(span.propertiesSet);
  p[3].y += 0.2;
  EXPECT_FALSE(Span().Fit(p.data(), 10, 0.05));
}

TEST(Span, FitsArcsEitherWayHoweverLong) {
  const UnitsGuard guard(0);
  Random random(827);
  for (int i = 0; i < 500; ++i) {
    const Span arc = Arc(random.Below(2) == 0 ? ACW : CW, Point(3, 4), random.Between(5, 50),
                         random.Between(-3, 3), random.Between(0.3, 6.0));
    std::vector<Point> p;
    for (int k = 0; k <= 12; ++k) p.push_back(arc.AlongFraction(k / 12.0));
    Span fitted;
    ASSERT_TRUE(fitted.Fit(p.data(), 12, 0.01));
    EXPECT_EQ(fitted.dir, arc.dir);
    EXPECT_NEAR(Dist(fitted.pc, arc.pc), 0, 1e-6);
    EXPECT_NEAR(fitted.radius, arc.radius, 1e-6);
    EXPECT_FALSE(fitted.NullSpan);
    fitted.SetProperties();
    EXPECT_NEAR(fitted.angle, arc.angle, 1e-6);
    p[4] = p[4] + Vector2d(fitted.pc, p[4]) * 0.1;
    Span unchanged(Point(1, 1), Point(2, 2));
    EXPECT_FALSE(unchanged.Fit(p.data(), 12, 0.01));
    EXPECT_TRUE(unchanged == Span(Point(1, 1), Point(2, 2)));
  }
}

TEST(Span, TheMiddleSampleDecidesBetweenLineAndArc) {
  const UnitsGuard guard(0);
  const Point nearLine[] = {Point(0, 0), Point(5, 0.00009), Point(10, 0)};
  const Point nearArc[] = {Point(0, 0), Point(5, 0.0011), Point(10, 0)};
  Span span;
  EXPECT_TRUE(span.Fit(nearLine, 2, 0.01));
  EXPECT_EQ(span.dir, LINEAR);
  EXPECT_TRUE(span.Fit(nearArc, 2, 0.01));
  EXPECT_EQ(span.dir, CW);
  const Point same[] = {Point(1, 1), Point(1, 1), Point(1, 1)};
  EXPECT_FALSE(span.Fit(same, 2, 0.01));
  EXPECT_FALSE(span.Fit(same, 0, 0.01));
}

TEST(Span, ChordCountIsThatOfItsArc) {
  const Span arc = Arc(ACW, Point(0, 0), 10, 0, 1);
  EXPECT_EQ(arc.ChordCount(0.01), SegmentCount(0.01, 1, 10, 1));
  EXPECT_EQ(Span(Point(0, 0), Point(9, 0)).ChordCount(0.01), 0);
}

TEST(Span, OffsetMovesToTheLeft) {
  const Span line = Span(Point(0, 0), Point(10, 0)).Offset(2);
  EXPECT_TRUE(line.p0 == Point(0, 2));
  EXPECT_TRUE(line.p1 == Point(10, 2));
  EXPECT_EQ(Arc(ACW, Point(1, 1), 10, 0, 1).Offset(2).radius, 8);
  EXPECT_EQ(Arc(CW, Point(1, 1), 10, 0, 1).Offset(2).radius, 12);
  EXPECT_TRUE(Arc(ACW, Point(1, 1), 10, 0, 1).Offset(2).pc == Point(1, 1));
  EXPECT_TRUE(line.Offset(1e-10) == line);
  const Span null(Point(3, 3), Point(3, 3));
  EXPECT_TRUE(null.Offset(5) == null);
}

TEST(Span, OffsetBeyondTheCentreIsNullBetweenTheMovedEnds) {
  const Span arc = Arc(ACW, Point(0, 0), 10, 0, 2);
  for (const double off : {10.0, 12.0}) {
    const Span gone = arc.Offset(off);
    EXPECT_TRUE(gone.NullSpan);
    EXPECT_TRUE(gone.propertiesSet);
    EXPECT_EQ(gone.dir, 0);
    EXPECT_TRUE(gone.p0 == Point(10 - off, 0));
    EXPECT_TRUE(gone.p1 == OnCircle(Point(0, 0), 10 - off, 2));
    EXPECT_TRUE(gone.pc == gone.p0);
    EXPECT_EQ(gone.length, 0);
    EXPECT_FALSE(gone.box.Outside(gone.p1));
  }
  EXPECT_FALSE(arc.Offset(9.9).NullSpan);
}

TEST(Span, AcceptsNumbersThatAreNotFinite) {
  for (const double bad : {kNaN, kInfinity, -kInfinity, 1e300, 1e-320}) {
    for (const int dir : {LINEAR, ACW, CW}) {
      for (int place = 0; place < 6; ++place) {
        double v[] = {1, 0, 0, 1, 0, 0};
        v[place] = bad;
        double t = 0;
        Point nearest;
        try {
          Span span(dir, Point(v[0], v[1]), Point(v[2], v[3]), Point(v[4], v[5]));
          span.Mid();
          span.AlongFraction(0.5);
          span.Area();
          span.NearClamped(Point(0.3, bad), t);
          span.On(Point(0.3, 0.3), t);
          span.Dist(Point(bad, 2), nearest);
          span.FindPoint(Point(bad, 1));
          EXPECT_GE(span.ChordCount(0.01), 0);
        } catch (const wchar_t* text) {
          EXPECT_EQ(std::wstring(text), kMismatch);
        }
      }
    }
  }
}

}  // namespace
}  // namespace geometry

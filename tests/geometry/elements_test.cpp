#include "geometry/elements.h"

#include <gtest/gtest.h>

#include <cmath>

#include "geometry/box.h"
#include "geometry/span.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::ThrownText;
using testing::UnitsGuard;

Matrix QuarterTurnTwiceAsLarge() {
  Matrix m;
  m.Rotate(1, 0, 3);
  m.Scale(2);
  m.Translate(10, 0, 0);
  return m;
}

TEST(CLine, ThroughTwoPointsIsValidFromTheToleranceUp) {
  const UnitsGuard guard(0);
  const CLine s(Point(1, 1), Point(4, 5));
  EXPECT_TRUE(s.ok);
  EXPECT_TRUE(s.v == Vector2d(0.6, 0.8));
  EXPECT_TRUE(s.p == Point(1, 1));
  EXPECT_TRUE(CLine(Point(0, 0), Point(0.005, 0)).ok);
  EXPECT_FALSE(CLine(Point(0, 0), Point(0.0049, 0)).ok);
  EXPECT_EQ(CLine(Point(0, 0), Point(0.0049, 0)).v.dx, 1) << "the direction is there nevertheless";
}

TEST(CLine, AtAnAngleInDegreesIsNotFlaggedValid) {
  const CLine s(Point(1, 2), 30);
  EXPECT_FALSE(s.ok);
  EXPECT_DOUBLE_EQ(s.v.dx, std::sqrt(3) / 2);
  EXPECT_DOUBLE_EQ(s.v.dy, 0.5);
}

TEST(CLine, FromADirectionIsValidOnlyWhenNormalised) {
  const CLine raw(Point(0, 0), 3, 4, false);
  const CLine made(Point(0, 0), 3, 4, true);
  const CLine null(Point(0, 0), 0, 0, true);
  EXPECT_FALSE(raw.ok);
  EXPECT_EQ(raw.v.dx, 3);
  EXPECT_TRUE(made.ok);
  EXPECT_EQ(made.v.dx, 0.6);
  EXPECT_FALSE(null.ok);
  EXPECT_TRUE(CLine(Point(0, 0), Vector2d(0, 2), true).ok);
  EXPECT_FALSE(CLine().ok);
}

TEST(CLine, DistanceIsPositiveOnTheLeft) {
  const CLine s(Point(1, 1), Point(5, 1));
  EXPECT_EQ(s.Dist(Point(3, 4)), 3);
  EXPECT_EQ(s.Dist(Point(-9, -1)), -2);
}

TEST(CLine, PointsAlongIt) {
  const CLine s(Point(1, 1), Point(4, 5));
  EXPECT_TRUE(s.At(10) == Point(7, 9));
  EXPECT_TRUE(s.At(10).ok);
  EXPECT_TRUE(s.At(5, Point(0, 0)) == Point(3, 4));
  CLine broken = s;
  broken.p.ok = false;
  EXPECT_FALSE(broken.At(10).ok);
}

TEST(CLine, ParallelsAndPerpendiculars) {
  const CLine s(Point(1, 1), Point(5, 1));
  EXPECT_TRUE(s.Parallel(2).p == Point(1, 3));
  EXPECT_TRUE(s.Parallel(-2).p == Point(1, -1));
  EXPECT_TRUE(s.Parallel(2).v == s.v);
  const CLine across = s.Perpendicular(Point(7, 7));
  EXPECT_TRUE(across.ok);
  EXPECT_TRUE(across.p == Point(7, 7));
  EXPECT_TRUE(across.v == Vector2d(0, 1));
  EXPECT_TRUE(s.Normal().p == s.p);
  EXPECT_TRUE(s.Normal().v == Vector2d(0, 1));
  EXPECT_TRUE((-s).v == Vector2d(-1, 0));
  EXPECT_TRUE((-s).ok);
}

TEST(CLine, TransformKeepsTheDirectionNormal) {
  const CLine s = CLine(Point(1, 0), Point(2, 0)).Transform(QuarterTurnTwiceAsLarge());
  EXPECT_TRUE(s.ok);
  EXPECT_TRUE(s.p == Point(10, 2));
  EXPECT_TRUE(s.v == Vector2d(0, 1));
}

TEST(Circle, IsAsValidAsItsPoints) {
  EXPECT_FALSE(Circle().ok);
  EXPECT_TRUE(Circle(Point(1, 2), 3).ok);
  EXPECT_FALSE(Circle(INVALID_POINT, 3).ok);
  const Circle c(Point(1, 1), Point(4, 5));
  EXPECT_TRUE(c.ok);
  EXPECT_EQ(c.radius, 5);
  EXPECT_FALSE(Circle(Point(1, 1), INVALID_POINT).ok);
  EXPECT_FALSE(Circle(INVALID_POINT, Point(1, 1)).ok);
}

TEST(Circle, ARadiusIsValidFromTheToleranceUp) {
  const UnitsGuard guard(0);
  EXPECT_TRUE(Circle(Point(0, 0), 0.005).ValidRadius());
  EXPECT_FALSE(Circle(Point(0, 0), 0.00499).ValidRadius());
}

TEST(Circle, TransformsUnderUniformScalesOnly) {
  const Circle c = Circle(Point(1, 0), 3).Transform(QuarterTurnTwiceAsLarge());
  EXPECT_TRUE(c.pc == Point(10, 2));
  EXPECT_DOUBLE_EQ(c.radius, 6);
  Matrix squeeze;
  squeeze.Scale(1, 2, 1);
  EXPECT_EQ(ThrownText([&] { Circle(Point(1, 0), 3).Transform(squeeze); }),
            L"Differential Scale not allowed for this method");
}

TEST(Circle, EqualityNeedsBothValid) {
  const UnitsGuard guard(0);
  const Circle c(Point(1, 2), 3);
  EXPECT_TRUE(c == Circle(Point(1.004, 2), 3.004));
  EXPECT_FALSE(c == Circle(Point(1, 2), 3.006));
  EXPECT_FALSE(c == Circle(Point(1.006, 2), 3));
  EXPECT_FALSE(Circle() == Circle());
}

TEST(CLine, OfASpanIsValidWhenItsPropertiesAreSetAndItHasALength) {
  Span span(ACW, Point(2, 0), Point(0, 2), Point(0, 0));
  const CLine tangent(span);
  EXPECT_TRUE(tangent.ok);
  EXPECT_TRUE(tangent.p == Point(2, 0));
  EXPECT_TRUE(tangent.v == Vector2d(0, 1));
  span.SetProperties(false);
  EXPECT_FALSE(CLine(span).ok);
  EXPECT_FALSE(CLine(Span(Point(1, 1), Point(1, 1))).ok);
  EXPECT_FALSE(CLine(Span()).ok);
}

TEST(Circle, OfASpanIsValidForArcsWhosePropertiesAreSet) {
  Span arc(CW, Point(2, 1), Point(0, -1), Point(0, 1));
  EXPECT_TRUE(Circle(arc).ok);
  EXPECT_TRUE(Circle(arc).pc == Point(0, 1));
  EXPECT_EQ(Circle(arc).radius, 2);
  arc.SetProperties(false);
  EXPECT_FALSE(Circle(arc).ok);
  EXPECT_FALSE(Circle(Span(Point(1, 1), Point(5, 1))).ok);
  EXPECT_FALSE(Circle(Span(ACW, Point(1, 1), Point(1, 1), Point(0, 1))).ok) << "a null span is a line";
}

TEST(Line, OfASpanHasItsLengthAndBox) {
  const Line l(Span(ACW, Point(2, 0), Point(-2, 0), Point(0, 0)));
  EXPECT_TRUE(l.ok);
  EXPECT_TRUE(l.p0 == Point3d(2, 0, 0));
  EXPECT_NEAR(l.length, 6.283185307179586, 1e-12);
  EXPECT_NEAR(l.v.dy, l.length, 1e-12) << "the start tangent times the length";
  EXPECT_TRUE(l.max == Point3d(2, 2, 0));
  EXPECT_FALSE(Line(Span(Point(1, 1), Point(1, 1))).ok);
}

TEST(Plane, ThroughThreePoints) {
  const Plane plane(Point3d(0, 0, 5), Point3d(2, 0, 5), Point3d(0, 3, 5));
  EXPECT_TRUE(plane.ok);
  EXPECT_TRUE(plane.normal == Vector3d(0, 0, 1));
  EXPECT_EQ(plane.d, -5);
  EXPECT_EQ(plane.Dist(Point3d(9, 9, 7)), 2);
  EXPECT_FALSE(Plane(Point3d(0, 0, 0), Point3d(1, 1, 1), Point3d(2, 2, 2)).ok);
  EXPECT_FALSE(Plane().ok);
  EXPECT_EQ(Plane().normal.dz, 1);
}

TEST(Plane, ThroughAPointAcrossANormal) {
  const Plane plane(Point3d(1, 2, 3), Vector3d(0, 4, 0));
  EXPECT_TRUE(plane.ok);
  EXPECT_TRUE(plane.normal == Vector3d(0, 1, 0));
  EXPECT_EQ(plane.d, -2);
  const Plane raw(Point3d(1, 2, 3), Vector3d(0, 4, 0), false);
  EXPECT_EQ(raw.normal.dy, 4);
  EXPECT_EQ(raw.d, -8);
}

TEST(Plane, ThroughALineKeepsTheDistanceOfItsPoint) {
  const Line x(Point3d(5, 0, 0), Vector3d(2, 0, 0));
  const Plane plane(x, Point3d(1, 3, 0));
  EXPECT_TRUE(plane.ok);
  EXPECT_EQ(plane.d, 3) << "not the term of the plane, which is 0";
  EXPECT_TRUE(plane.normal == Vector3d(0, 0, 1));
  EXPECT_FALSE(Plane(x, Point3d(7, 0, 0)).ok);
}

TEST(Plane, NamedOnesPassThroughTheOrigin) {
  EXPECT_TRUE(PLANE_XY.ok && PLANE_XZ.ok && PLANE_YZ.ok);
  EXPECT_EQ(PLANE_XY.Dist(Point3d(1, 2, 3)), 3);
  EXPECT_EQ(PLANE_XZ.Dist(Point3d(1, 2, 3)), 2);
  EXPECT_EQ(PLANE_YZ.Dist(Point3d(1, 2, 3)), 1);
  EXPECT_EQ(PLANE_YZ.d, 0);
}

TEST(Plane, MeetsALine) {
  const Plane plane(Point3d(0, 0, 5), Vector3d(0, 0, 1));
  Point3d p;
  double t = 0;
  EXPECT_TRUE(plane.Intof(Line(Point3d(1, 1, 1), Vector3d(1, 0, 2)), p, t));
  EXPECT_EQ(t, 2);
  EXPECT_TRUE(p == Point3d(3, 1, 5));
  EXPECT_FALSE(plane.Intof(Line(Point3d(1, 1, 1), Vector3d(1, 0, 0)), p, t));
}

TEST(Plane, TwoMeetInALineAndThreeInAPoint) {
  const Plane a(Point3d(1, 0, 0), Vector3d(1, 0, 0));
  const Plane b(Point3d(0, 2, 0), Vector3d(1, 1, 0));
  const Plane c(Point3d(0, 0, 3), Vector3d(0, 1, 4));
  Line edge;
  EXPECT_TRUE(a.Intof(b, edge));
  EXPECT_TRUE(edge.ok);
  EXPECT_EQ(edge.length, 1);
  for (const double t : {-3.0, 0.0, 8.0}) {
    EXPECT_NEAR(a.Dist(edge.p0 + edge.v * t), 0, 1e-12);
    EXPECT_NEAR(b.Dist(edge.p0 + edge.v * t), 0, 1e-12);
  }
  Point3d corner;
  EXPECT_TRUE(a.Intof(b, c, corner));
  EXPECT_NEAR(a.Dist(corner), 0, 1e-12);
  EXPECT_NEAR(b.Dist(corner), 0, 1e-12);
  EXPECT_NEAR(c.Dist(corner), 0, 1e-12);
}

TEST(Plane, ParallelOnesDoNotMeet) {
  const Plane a(Point3d(0, 0, 1), Vector3d(0, 0, 1));
  const Plane b(Point3d(0, 0, 2), Vector3d(0, 0, -1));
  Line edge;
  Point3d corner;
  EXPECT_FALSE(a.Intof(b, edge));
  EXPECT_FALSE(a.Intof(b, PLANE_YZ, corner));
  EXPECT_FALSE(a.Intof(PLANE_YZ, a, corner)) << "the edge lies in the third plane";
}

TEST(Plane, EqualityComparesValidityDistanceAndNormal) {
  const UnitsGuard guard(0);
  const Plane a(Point3d(0, 0, 1), Vector3d(0, 0, 1));
  EXPECT_TRUE(a == Plane(Point3d(0, 0, 1.004), Vector3d(0, 0, 1)));
  EXPECT_FALSE(a == Plane(Point3d(0, 0, 1.006), Vector3d(0, 0, 1)));
  EXPECT_FALSE(a == Plane(Point3d(0, 0, 1), Vector3d(0, 1e-5, 1)));
  Plane invalid = a;
  invalid.ok = false;
  EXPECT_FALSE(a == invalid);
}

TEST(Line, CarriesItsLengthAndBox) {
  const Line l(Point3d(1, 2, 3), Vector3d(2, -3, 6));
  EXPECT_TRUE(l.ok);
  EXPECT_EQ(l.length, 7);
  EXPECT_TRUE(l.min == Point3d(1, -1, 3));
  EXPECT_TRUE(l.max == Point3d(3, 2, 9));
  EXPECT_TRUE(Line(Point3d(1, 2, 3), Vector3d(2, -3, 6), false).max == Point3d());
  const Line between(Point3d(1, 2, 3), Point3d(3, -1, 9));
  EXPECT_TRUE(between.v == l.v);
}

TEST(Line, IsValidAboveTheTolerance) {
  const UnitsGuard guard(0);
  EXPECT_FALSE(Line(Point3d(), Vector3d(0.005, 0, 0)).ok);
  EXPECT_TRUE(Line(Point3d(), Vector3d(0.00501, 0, 0)).ok);
  EXPECT_FALSE(Line().ok);
}

TEST(Line, NearestPointByItsDistanceFromTheOrigin) {
  const Line l(Point3d(1, 0, 0), Vector3d(4, 0, 0));
  double t = 0;
  EXPECT_TRUE(l.Near(Point3d(3, 5, 5), t) == Point3d(3, 0, 0));
  EXPECT_EQ(t, 2);
  EXPECT_TRUE(l.Near(Point3d(-9, 1, 0), t) == Point3d(-9, 0, 0)) << "beyond the ends too";
  EXPECT_EQ(t, -10);
  EXPECT_TRUE(Line().Near(Point3d(3, 5, 5), t) == Point3d());
  EXPECT_EQ(t, 0);
}

TEST(Line, DistanceOfTwoIsAlongTheirCommonNormal) {
  const Line x(Point3d(0, 0, 0), Vector3d(5, 0, 0));
  const Line y(Point3d(7, 7, -3), Vector3d(0, 2, 0));
  EXPECT_DOUBLE_EQ(Dist(x, y), 3);
  EXPECT_TRUE(std::isnan(Dist(x, x)));
}

}  // namespace
}  // namespace geometry

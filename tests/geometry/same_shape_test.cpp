#include <gtest/gtest.h>

#include "geometry/equalise.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kPi;
using testing::Random;
using testing::UnitsGuard;

KurveEx Polyline(std::initializer_list<Point> points) {
  KurveEx k;
  for (const Point& p : points) k.Add(LINEAR, p, Point(0, 0), true);
  return k;
}

Matrix Motion(double angle, double dx, double dy) {
  Matrix m;
  m.Rotate(angle, 3);
  m.Translate(dx, dy);
  return m;
}

KurveEx Moved(const KurveEx& k, const Matrix& m) {
  KurveEx moved;
  moved.Start(k.Start().Transform(m));
  Span span;
  for (int i = 1; k.Get(i, span); ++i) {
    span.Transform(m);
    moved.Add(span, true);
  }
  return moved;
}

/// A closed contour, the same one from a later vertex.
KurveEx From(const KurveEx& k, int vertex) {
  KurveEx moved;
  spVertex v;
  k.Get(vertex, v);
  EXPECT_TRUE(k.ReplaceStart(vertex + 1, v.p, moved));
  return moved;
}

class SameShapeTest : public ::testing::Test {
 protected:
  ~SameShapeTest() override { delete matrix; }

  bool Same(const KurveEx& a, const KurveEx& b, bool allowMirror = false) {
    return SameShape(a, b, matrix, false, 0, false, 0, allowMirror);
  }
  /// Every vertex of `a` under the matrix is on `b`.
  void ExpectOnto(const KurveEx& a, const KurveEx& b) const {
    spVertex v;
    for (int i = 0; a.Get(i, v); ++i) {
      int span = 0;
      double t = 0;
      const Point moved = v.p.Transform(*matrix);
      EXPECT_LT(Dist(b.Near(moved, span, t), moved), 1e-3) << i;
    }
  }

  const UnitsGuard units{0};
  Matrix* matrix = nullptr;
  /// Closed, clockwise, with no symmetry and an arc.
  const KurveEx flag = [] {
    KurveEx k = Polyline({{0, 0}, {0, 30}, {20, 30}});
    k.Add(CW, Point(20, 10), Point(20, 20));
    k.Add(5, 10);
    k.Add(5, 0);
    k.Add(0, 0);
    return k;
  }();
  const KurveEx square = Polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
  const KurveEx hook = Polyline({{0, 0}, {10, 0}, {10, 5}, {7, 9}});
};

TEST_F(SameShapeTest, AMovedCopyIsFoundWithItsMotion) {
  for (const KurveEx& shape : {flag, hook}) {
    const Matrix motion = Motion(0.7, 40, -3);
    KurveEx moved = Moved(shape, motion);
    moved.area = shape.area;  // of the open one it depends on the place
    ASSERT_TRUE(Same(shape, moved));
    EXPECT_TRUE(shape.SameUnderTransforms(motion, *matrix));
  }
}

TEST_F(SameShapeTest, TheRunningAreaOfAnOpenContourDependsOnItsPlace) {
  EXPECT_FALSE(Same(hook, Moved(hook, Motion(0, 0, 50))));
  ASSERT_TRUE(Same(hook, Moved(hook, Motion(0, 50, 0))));
}

TEST_F(SameShapeTest, FlagsOfTheCallersHaveToAgree) {
  EXPECT_FALSE(SameShape(flag, flag, matrix, true, 0, false, 0, false));
  EXPECT_FALSE(SameShape(flag, flag, matrix, false, 1, false, -1, false));
  EXPECT_EQ(matrix, nullptr);
  EXPECT_TRUE(SameShape(flag, flag, matrix, true, 1, true, 1, false));
}

TEST_F(SameShapeTest, TotalsHaveToAgree) {
  EXPECT_FALSE(Same(KurveEx(), KurveEx())) << "empty";
  EXPECT_FALSE(Same(square, Polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}))) << "one is open";
  EXPECT_FALSE(Same(square, Polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 5}, {0, 0}}))) << "counts";
  EXPECT_FALSE(Same(hook, Polyline({{0, 0}, {10, 0}, {10, 5}, {7, 9.1}}))) << "lengths";
  EXPECT_FALSE(Same(square, Polyline({{0, 0}, {10, 0}, {11, 9.949874}, {1, 9.949874}, {0, 0}}))) << "areas";
  EXPECT_FALSE(Same(square, square.ReversedCopy())) << "signs of areas";
  EXPECT_EQ(matrix, nullptr);
}

TEST_F(SameShapeTest, ANewMatrixIsTheCallersAlsoWhenShapesDiffer) {
  // Equal totals, other order of spans.
  const KurveEx a = Polyline({{0, 0}, {3, 0}, {3, 1}, {9, 1}});
  const KurveEx b = Polyline({{0, 0}, {6, 0}, {6, 1}, {9, 1}});
  EXPECT_FALSE(Same(a, Moved(b, Motion(0, 0, (a.area - b.area) / 9))));
  ASSERT_NE(matrix, nullptr);
  EXPECT_TRUE(matrix->unit);
}

TEST_F(SameShapeTest, AFailedComparisonLeavesTheMatrix) {
  Matrix mine = Motion(1, 2, 3);
  const Matrix before = mine;
  Matrix* pointer = &mine;
  EXPECT_FALSE(SameShape(hook, square, pointer, false, 0, false, 0, true));
  EXPECT_TRUE(mine == before);
  EXPECT_EQ(pointer, &mine);
}

TEST_F(SameShapeTest, AClosedContourMayStartElsewhere) {
  for (int vertex = 0; vertex < flag.SpanCount(); ++vertex) {
    const KurveEx moved = From(Moved(flag, Motion(-1.3, 5, 8)), vertex);
    ASSERT_TRUE(Same(flag, moved)) << vertex;
    EXPECT_TRUE(flag.SameUnderTransforms(Motion(-1.3, 5, 8), *matrix)) << vertex;
  }
}

TEST_F(SameShapeTest, SquaresFromAnotherCornerMatchByATurn) {
  const KurveEx other = From(Moved(square, Motion(0, 20, 0)), 1);
  ASSERT_TRUE(Same(square, other));
  ExpectOnto(square, other);
  double scale = 0;
  EXPECT_TRUE(matrix->GetUniformScale(scale));
  EXPECT_NEAR(scale, 1, 1e-9);
  EXPECT_FALSE(matrix->mirrored);
}

TEST_F(SameShapeTest, WithoutATurnTheTranslationIsPure) {
  const KurveEx moved = Moved(flag, Motion(0, 7, -2));
  ASSERT_TRUE(Same(flag, moved));
  EXPECT_EQ(matrix->e[0], 1);
  EXPECT_EQ(matrix->e[1], 0);
  EXPECT_NEAR(matrix->e[3], 7, 1e-9);
  EXPECT_NEAR(matrix->e[7], -2, 1e-9);
}

TEST_F(SameShapeTest, ATranslationThatDoesNotFitLeavesTheMatrix) {
  // Lengths and joints of a polygon do not tell its mirror image when it runs in the order of its vertices:
  // the boxes are equal, the spans are not.
  const KurveEx zigzag = Polyline({{0, 0}, {10, 0}, {10, 5}, {0, 5}, {0, 10}, {10, 10}});
  KurveEx mirrored = Polyline({{0, 10}, {10, 10}, {10, 5}, {0, 5}, {0, 0}, {10, 0}});
  mirrored.area = zigzag.area;  // whose sign would tell them apart
  ASSERT_TRUE(Same(zigzag, mirrored));
  EXPECT_NEAR(matrix->e[7], 10, 1e-9) << "the first span on the first";
  EXPECT_FALSE(matrix->mirrored);
}

TEST_F(SameShapeTest, BoxesOfOtherSizesLeaveTheMatrix) {
  // The same lengths and joints, but the last corner turns the other way.
  const KurveEx s = Polyline({{0, 0}, {10, 0}, {10, 5}, {15, 5}});
  KurveEx u = Polyline({{0, 0}, {10, 0}, {10, 5}, {5, 5}});
  u.area = s.area;
  ASSERT_TRUE(Same(s, u)) << "the sense of corners is not looked at";
  EXPECT_TRUE(s.Start().Transform(*matrix) == u.Start());
}

TEST_F(SameShapeTest, AMirrorImageNeedsLeave) {
  Matrix mirror;
  mirror.Scale(-1, 1, 1);
  mirror.Multiply(Motion(0.4, 60, 5));
  // A mirrored contour that runs round in the same sense has its vertices in the other order.
  const KurveEx image = Moved(flag, mirror).ReversedCopy();
  EXPECT_FALSE(Same(flag, image));
  ASSERT_TRUE(Same(flag, image, true));
  EXPECT_TRUE(matrix->mirrored || Matrix(*matrix).IsMirrored());
  EXPECT_TRUE(flag.SameUnderTransforms(mirror, *matrix));
}

TEST_F(SameShapeTest, AMirrorImageMayStartElsewhere) {
  Matrix mirror;
  mirror.Scale(1, -1, 1);
  const KurveEx image = Moved(flag, mirror).ReversedCopy();
  for (int vertex = 0; vertex < flag.SpanCount(); ++vertex) {
    ASSERT_TRUE(Same(flag, From(image, vertex), true)) << vertex;
    EXPECT_TRUE(flag.SameUnderTransforms(mirror, *matrix)) << vertex;
  }
}

TEST_F(SameShapeTest, WithLeaveAMovedCopyIsNotMirrored) {
  ASSERT_TRUE(Same(flag, From(Moved(flag, Motion(2, 1, 1)), 3), true));
  EXPECT_FALSE(Matrix(*matrix).IsMirrored());
  EXPECT_TRUE(flag.SameUnderTransforms(Motion(2, 1, 1), *matrix));
}

/// An open chain of lines of one length whose joints have these cosines.
KurveEx Chain(std::initializer_list<double> cosines) {
  KurveEx k;
  k.Start(Point(0, 0));
  double angle = 0;
  double sign = 1;
  const auto add = [&] { k.Add(k.End().x + 10 * std::cos(angle), k.End().y + 10 * std::sin(angle)); };
  add();
  for (const double cosine : cosines) {
    angle += sign * std::acos(cosine);
    sign = -sign;
    add();
  }
  return k;
}

TEST_F(SameShapeTest, OpenContoursWithOpposedStepsAreMirrored) {
  const KurveEx a = Chain({0.5, 0.4, 0.5});
  KurveEx b = Chain({0.5, 0.6, 0.5});
  b.area = a.area;
  EXPECT_FALSE(Same(a, b));
  ASSERT_TRUE(Same(a, b, true));
  EXPECT_TRUE(Matrix(*matrix).IsMirrored());
  // The first span lies on the other's first one, from its end to its start.
  EXPECT_TRUE(a.spans[0].p0.Transform(*matrix) == b.spans[0].p1);
  EXPECT_TRUE(a.spans[0].p1.Transform(*matrix) == b.spans[0].p0);
}

TEST_F(SameShapeTest, JointsAtTheEndsHaveToBeEqual) {
  const KurveEx a = Chain({0.5, 0.4});
  for (KurveEx b : {Chain({0.6, 0.4}), Chain({0.5, 0.3}), Chain({0.4, 0.5})}) {
    b.area = a.area;
    EXPECT_FALSE(Same(a, b, true));
  }
}

TEST_F(SameShapeTest, ALoneSpanHasNoJoints) {
  const KurveEx a = Polyline({{0, 0}, {3, 4}});
  const KurveEx b = Polyline({{1, -1.5}, {1, 3.5}});
  KurveEx c = b;
  c.area = a.area;
  ASSERT_TRUE(Same(a, c));
  EXPECT_TRUE(a.End().Transform(*matrix) == b.End());
}

TEST_F(SameShapeTest, ArcsNeedTheirSenseAndRadius) {
  KurveEx a;
  a.Start(Point(10, 0));
  a.Add(ACW, Point(0, 10), Point(0, 0));
  KurveEx b = a.ReversedCopy();
  b.area = a.area;
  EXPECT_FALSE(Same(a, b)) << "sense";
  // As long, but flatter.
  const double angle = kPi / 4;
  KurveEx c;
  c.Start(Point(20, 0));
  c.Add(ACW, Point(20 * std::cos(angle), 20 * std::sin(angle)), Point(0, 0));
  c.area = a.area;
  ASSERT_NEAR(c.perim, a.perim, 1e-9);
  EXPECT_FALSE(Same(a, c)) << "radius";
}

TEST_F(SameShapeTest, ANullSpanInFrontGivesNoDirection) {
  KurveEx a;
  a.Start(Point(0, 0));
  a.AddNullSpan();
  for (const Point& p : {Point(10, 0), Point(10, 5), Point(7, 9)}) a.Add(p.x, p.y);
  const Matrix motion = Motion(0.3, 1, 2);
  KurveEx moved = Moved(a, motion);
  moved.area = a.area;
  ASSERT_TRUE(Same(a, moved));
  EXPECT_TRUE(a.SameUnderTransforms(motion, *matrix));
  KurveEx nulls;
  nulls.Start(Point(4, 4));
  nulls.AddNullSpan();
  ASSERT_TRUE(Same(nulls, nulls)) << "whatever that means";
}

TEST_F(SameShapeTest, ReversedContoursAreComparedAsTheyRead) {
  KurveEx a = flag.ReversedCopy();
  a.Reverse(true);
  ASSERT_TRUE(Same(a, Moved(flag, Motion(1, 0, 0))));
  EXPECT_TRUE(flag.SameUnderTransforms(Motion(1, 0, 0), *matrix));
}

TEST_F(SameShapeTest, AnyPolygonIsFoundAgain) {
  Random random(77);
  for (int round = 0; round < 200; ++round) {
    KurveEx k;
    k.Start(Point(random.Between(-9, 9), random.Between(-9, 9)));
    for (int n = 3 + random.Below(6); n > 0; --n) k.Add(random.Between(-9, 9), random.Between(-9, 9));
    k.Add(k.Start().x, k.Start().y);
    const Matrix motion = Motion(random.Between(-3, 3), random.Between(-9, 9), random.Between(-9, 9));
    ASSERT_TRUE(Same(k, From(Moved(k, motion), random.Below(k.SpanCount())))) << round;
    EXPECT_TRUE(k.SameUnderTransforms(motion, *matrix)) << round;
  }
}

}  // namespace
}  // namespace geometry

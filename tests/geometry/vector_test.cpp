#include <gtest/gtest.h>

#include <cmath>

#include "geometry/matrix.h"
#include "geometry/point.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kNaN;
using testing::kPi;
using testing::ThrownError;
using testing::ThrownText;
using testing::UnitsGuard;

const char* const kNoAngle = "Not possible to compute a finite angle value.";

TEST(Vector, RunsFromTheFirstPointToTheSecond) {
  const Vector2d v(Point(1, 2), Point(4, 6));
  EXPECT_EQ(v.dx, 3);
  EXPECT_EQ(v.dy, 4);
  EXPECT_EQ(v.Magnitude(), 5);
  const Vector3d w(Point3d(1, 2, 3), Point3d(3, 5, 9));
  EXPECT_EQ(w.dx, 2);
  EXPECT_EQ(w.dy, 3);
  EXPECT_EQ(w.dz, 6);
  EXPECT_EQ(w.Magnitude(), 7);
}

TEST(Vector, NormaliseReturnsTheFormerLength) {
  Vector2d v(3, -4);
  EXPECT_EQ(v.Normalise(), 5);
  EXPECT_EQ(v.dx, 0.6);
  EXPECT_EQ(v.dy, -0.8);
  Vector3d w(2, 3, -6);
  EXPECT_EQ(w.Normalise(), 7);
  EXPECT_DOUBLE_EQ(w.Magnitude(), 1);
}

TEST(Vector, BelowTheTightToleranceIsNull) {
  const UnitsGuard guard(0);
  Vector2d shortOne(9e-7, 0);
  Vector2d longer(1.1e-6, 0);
  EXPECT_EQ(shortOne.Normalise(), 0);
  EXPECT_EQ(shortOne.dx, 0);
  EXPECT_EQ(longer.Normalise(), 1.1e-6);
  EXPECT_EQ(longer.dx, 1);
  Vector2d null;
  EXPECT_EQ(null.Normalise(), 0);
  EXPECT_EQ(null.dx, 0);
  EXPECT_EQ(null.dy, 0);
  Vector3d nullOfSpace(0, 9e-7, 0);
  EXPECT_EQ(nullOfSpace.Normalise(), 0);
  EXPECT_EQ(nullOfSpace.dy, 0);
}

TEST(Vector, CleaningSnapsTightlyToZeroAndCoarselyToOne) {
  const UnitsGuard guard(0);
  Vector2d v(1.0, 5e-7);
  Vector2d w(-1.0, 0.05);
  Vector2d x(1.0, 0.2);
  v.NormaliseClean();
  EXPECT_EQ(v.dx, 1.0);
  EXPECT_EQ(v.dy, 0.0);
  w.NormaliseClean();
  EXPECT_EQ(w.dx, -1.0) << "0.9988 is within 0.005 of 1";
  EXPECT_NEAR(w.dy, 0.05, 1e-3);
  x.NormaliseClean();
  EXPECT_NEAR(x.dx, 0.98058, 1e-5);
  Vector3d s(1e-8, -0.01, 3);
  EXPECT_NEAR(s.NormaliseClean(), 3, 1e-4);
  EXPECT_EQ(s.dx, 0.0);
  EXPECT_EQ(s.dz, 1.0);
}

TEST(Vector, LeftNormalAndReversal) {
  const Vector2d v(3, 4);
  EXPECT_EQ(v.LeftNormal().dx, -4);
  EXPECT_EQ(v.LeftNormal().dy, 3);
  EXPECT_EQ((-v).dx, -3);
  EXPECT_EQ((-v).dy, -4);
  EXPECT_EQ((-Vector3d(1, 2, 3)).dz, -3);
}

TEST(Vector, RotatesAnticlockwise) {
  Vector2d v(1, 0);
  v.Rotate(0.6, 0.8);
  EXPECT_EQ(v.dx, 0.6);
  EXPECT_EQ(v.dy, 0.8);
  v = Vector2d(2, 0);
  v.Rotate(kPi / 6);
  EXPECT_DOUBLE_EQ(v.dx, std::sqrt(3));
  EXPECT_DOUBLE_EQ(v.dy, 1);
}

TEST(Vector, DoesNotRotateByTightAngles) {
  Vector2d v(1, 0);
  v.Rotate(1e-9);
  EXPECT_EQ(v.dy, 0);
  v.Rotate(2e-9);
  EXPECT_NE(v.dy, 0);
}

TEST(Vector, TransformNormalisesAndIgnoresTranslation) {
  Matrix m;
  m.Scale(3);
  m.Translate(10, 20, 30);
  Vector2d v(0, 2);
  EXPECT_DOUBLE_EQ(v.Transform(m), 6);
  EXPECT_EQ(v.dx, 0);
  EXPECT_EQ(v.dy, 1);
  Vector3d w(0, 0, 2);
  EXPECT_DOUBLE_EQ(w.Transform(m), 6);
  EXPECT_EQ(w.dz, 1);
  Vector2d still(0, 2);
  EXPECT_EQ(still.Transform(Matrix()), 2);
  Vector3d stillOfSpace(0, 2, 0);
  EXPECT_EQ(stillOfSpace.Transform(Matrix()), 2);
}

TEST(Vector, EqualityIncludesTheVectorTolerance) {
  const UnitsGuard guard(0);
  EXPECT_TRUE(Vector2d(0, 0) == Vector2d(5e-6, -5e-6));
  EXPECT_FALSE(Vector2d(0, 0) == Vector2d(5.1e-6, 0));
  EXPECT_TRUE(Vector3d(0, 0, 0) == Vector3d(0, 0, 5e-6));
  EXPECT_FALSE(Vector3d(0, 0, 0) == Vector3d(0, 0, 5.1e-6));
}

TEST(Vector, Arithmetic) {
  const Vector2d a(1, 2);
  const Vector2d b(3, 5);
  EXPECT_TRUE(a + b == Vector2d(4, 7));
  EXPECT_TRUE(b - a == Vector2d(2, 3));
  EXPECT_TRUE(a * 2 == Vector2d(2, 4));
  EXPECT_EQ(Cross(a, b), -1);
  EXPECT_EQ(Dot(a, b), 13);
  const Vector3d c(1, 2, 3);
  const Vector3d d(4, 5, 7);
  EXPECT_TRUE(c + d == Vector3d(5, 7, 10));
  EXPECT_TRUE(d - c == Vector3d(3, 3, 4));
  EXPECT_TRUE(c * -1 == Vector3d(-1, -2, -3));
  EXPECT_TRUE(Cross(c, d) == Vector3d(2 * 7 - 3 * 5, 3 * 4 - 1 * 7, 1 * 5 - 2 * 4));
  EXPECT_EQ(Dot(c, d), 35);
}

TEST(Angle, IsThatBetweenTheDirections) {
  EXPECT_DOUBLE_EQ(Angle(Vector2d(2, 0), Vector2d(0, 7)), kPi / 2);
  EXPECT_DOUBLE_EQ(Angle(Vector2d(1, 0), Vector2d(3, 3)), kPi / 4);
  EXPECT_EQ(Angle(Vector2d(1, 0), Vector2d(5, 0)), 0);
  EXPECT_DOUBLE_EQ(Angle(Vector3d(0, 0, 1), Vector3d(1, 0, -1)), 3 * kPi / 4);
}

TEST(Angle, OfExactOppositionIsZero) {
  EXPECT_EQ(Angle(Vector2d(1, 0), Vector2d(-1, 0)), 0);
  EXPECT_EQ(Angle(Vector2d(0, 2), Vector2d(0, -5)), 0);
  EXPECT_EQ(Angle(Vector3d(0, 0, 1), Vector3d(0, 0, -1)), 0);
}

TEST(Angle, OfNullVectorsIsRefused) {
  EXPECT_EQ(ThrownError([] { Angle(Vector2d(), Vector2d(1, 0)); }), kNoAngle);
  EXPECT_EQ(ThrownError([] { Angle(Vector2d(kNaN, 0), Vector2d(1, 0)); }), kNoAngle);
  EXPECT_EQ(ThrownError([] { Angle(Vector3d(), Vector3d(1, 0, 0)); }), kNoAngle);
}

TEST(SignedAngle, CountsAnticlockwise) {
  EXPECT_DOUBLE_EQ(SignedAngle(Vector2d(1, 0), Vector2d(0, 1)), kPi / 2);
  EXPECT_DOUBLE_EQ(SignedAngle(Vector2d(0, 1), Vector2d(1, 0)), 3 * kPi / 2);
  EXPECT_DOUBLE_EQ(SignedAngle(Vector2d(1, 0), Vector2d(2, 0)), 2 * kPi) << "parallel is a full turn";
  EXPECT_DOUBLE_EQ(SignedAngle(Vector2d(1, 0), Vector2d(-1, 0)), 2 * kPi) << "and so is opposition";
}

Vector2d At(double angle) {
  return {std::cos(angle), std::sin(angle)};
}

TEST(IncludedAngle, SweepsInItsDirection) {
  EXPECT_DOUBLE_EQ(IncludedAngle(At(0.2), At(1.2), 1), 1.0);
  EXPECT_DOUBLE_EQ(IncludedAngle(At(0.2), At(1.2), -1), 1.0 - 2 * kPi);
  EXPECT_DOUBLE_EQ(IncludedAngle(At(1.2), At(0.2), 1), 2 * kPi - 1.0);
  EXPECT_DOUBLE_EQ(IncludedAngle(At(1.2), At(0.2), -1), -1.0);
}

TEST(IncludedAngle, SnapsToNothingAndToHalfATurn) {
  EXPECT_EQ(IncludedAngle(At(0), At(4e-5), 1), 0.0) << "cosine within 1e-9 of 1";
  EXPECT_NE(IncludedAngle(At(0), At(5e-5), 1), 0.0);
  EXPECT_EQ(IncludedAngle(At(0), At(kPi + 4e-5), 1), kPi);
  EXPECT_EQ(IncludedAngle(At(0), At(kPi - 4e-5), -1), -kPi);
  EXPECT_NE(IncludedAngle(At(0), At(kPi - 5e-5), 1), kPi);
  EXPECT_EQ(IncludedAngle(Vector2d(2, 0), Vector2d(3, 0), 1), 0.0);
}

TEST(AngularTests, HoldWithinTheirTolerance) {
  const Vector2d x(1, 0);
  EXPECT_TRUE(IsPerpendicular(x, At(kPi / 2 + 0.01), 0.011));
  EXPECT_FALSE(IsPerpendicular(x, At(kPi / 2 + 0.01), 0.009));
  EXPECT_TRUE(IsSameDirection(x, At(-0.01), 0.011));
  EXPECT_FALSE(IsSameDirection(x, At(-0.01), 0.009));
  EXPECT_TRUE(IsParallel(x, At(0.01), 0.011));
  EXPECT_TRUE(IsParallel(x, At(kPi - 0.01), 0.011));
  EXPECT_FALSE(IsParallel(x, At(kPi - 0.01), 0.009));
}

TEST(AngularTests, OppositeHoldsOnlyJustBelowHalfATurn) {
  const Vector2d x(1, 0);
  EXPECT_TRUE(IsOpposite(x, At(kPi - 0.01), 0.011));
  EXPECT_FALSE(IsOpposite(x, At(kPi - 0.01), 0.009));
  EXPECT_FALSE(IsOpposite(x, Vector2d(-1, 0), 0.011)) << "exact opposition has the angle 0";
  EXPECT_TRUE(IsSameDirection(x, Vector2d(-1, 0), 0.011));
  EXPECT_TRUE(IsOpposite(x, At(kPi - 0.01) * 1.25, 0.011, 0.25));
  EXPECT_FALSE(IsOpposite(x, At(kPi - 0.01) * 1.26, 0.011, 0.25));
}

TEST(Vector, OfSpaceConvertsToThePlaneOnlyWhenItLiesThere) {
  const Vector2d v(Vector3d(1, 2, 1e-9));
  EXPECT_EQ(v.dx, 1);
  EXPECT_EQ(v.dy, 2);
  EXPECT_EQ(ThrownText([] { Vector2d lost(Vector3d(1, 2, -2e-9)); }),
            L"Converting Vector3d to Vector2d illegal");
  EXPECT_EQ(Vector3d(Vector2d(1, 2)).dz, 0);
}

TEST(SetAxes, CompletesTheAxisThatFits) {
  Vector3d x(2, 0, 0);
  Vector3d y;
  EXPECT_EQ(SetAxes(Vector3d(0, 0, 3), x, y), 1);
  EXPECT_TRUE(y == Vector3d(0, 6, 0)) << "not normalised";
  x = Vector3d(0, 0, 1);
  y = Vector3d(0, 2, 0);
  EXPECT_EQ(SetAxes(Vector3d(0, 0, 3), x, y), 1);
  EXPECT_TRUE(x == Vector3d(6, 0, 0));
}

TEST(SetAxes, OtherwiseChoosesARightHandedPair) {
  for (const Vector3d& normal : {Vector3d(0, 0, 2), Vector3d(0, 3, 0), Vector3d(-1, 0, 0), Vector3d(1, 2, 3),
                                 Vector3d(3, -1, 2), Vector3d(2, 3, -1)}) {
    Vector3d x;
    Vector3d y = normal;
    EXPECT_EQ(SetAxes(normal, x, y), 2);
    EXPECT_NEAR(x.Magnitude(), 1, 1e-12);
    EXPECT_NEAR(y.Magnitude(), 1, 1e-12);
    EXPECT_NEAR(Dot(x, normal), 0, 1e-12);
    EXPECT_TRUE(Cross(x, y) * normal.Magnitude() == normal);
  }
}

TEST(SetAxes, TheNormalMayBeAnAxisToo) {
  Vector3d n(1, 2, 3);
  Vector3d y;
  EXPECT_EQ(SetAxes(n, n, y), 2);
  const Vector3d normal(1, 2, 3);
  EXPECT_NEAR(Dot(n, normal), 0, 1e-12);
  EXPECT_NEAR(Dot(y, normal), 0, 1e-12);
  EXPECT_TRUE(Cross(n, y) * normal.Magnitude() == normal);
}

TEST(SetAxes, RefusesANullNormal) {
  Vector3d x(1, 0, 0);
  Vector3d y(0, 1, 0);
  EXPECT_EQ(ThrownText([&] { SetAxes(Vector3d(0, 1e-9, 0), x, y); }), L"SetAxes given a NULL Vector");
}

}  // namespace
}  // namespace geometry

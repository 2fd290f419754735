#include "geometry/numerics.h"

#include <gtest/gtest.h>

#include <cmath>

#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kInfinity;
using testing::kNaN;
using testing::kPi;
using testing::UnitsGuard;

TEST(Comparisons, NearIncludesItsLimitAndDifferentDoesNot) {
  EXPECT_TRUE(NearEqual(1.0, 1.5, 0.5));
  EXPECT_FALSE(NearEqual(1.0, 1.5, 0.499));
  EXPECT_TRUE(NearZero(-0.5, 0.5));
  EXPECT_FALSE(NearZero(-0.501, 0.5));
  EXPECT_FALSE(Different(1.0, 1.5, 0.5));
  EXPECT_TRUE(Different(1.0, 1.5, 0.499));
  EXPECT_FALSE(NonZero(-0.5, 0.5));
  EXPECT_TRUE(NonZero(-0.501, 0.5));
}

TEST(Comparisons, LessOrNearReachesToTheToleranceAndIncludesIt) {
  EXPECT_TRUE(LessOrNear(1.0, 2.0, 0.5));
  EXPECT_TRUE(LessOrNear(2.25, 2.0, 0.5));
  EXPECT_TRUE(LessOrNear(2.5, 2.0, 0.5));
  EXPECT_FALSE(LessOrNear(2.625, 2.0, 0.5));
}

TEST(Comparisons, WhatIsNotANumberIsNeitherNearNorDifferent) {
  EXPECT_FALSE(NearEqual(kNaN, 0, 1));
  EXPECT_FALSE(Different(kNaN, 0, 1));
  EXPECT_FALSE(NearZero(kNaN, 1));
  EXPECT_FALSE(NonZero(kNaN, 1));
  EXPECT_FALSE(LessOrNear(kNaN, 0, 1));
}

TEST(SafeSqrt, IsZeroForSquaresBelowTheTolerance) {
  const UnitsGuard guard(0);
  EXPECT_EQ(SafeSqrt(0.00499), 0.0);
  EXPECT_EQ(SafeSqrt(-4.0), 0.0);
  EXPECT_EQ(SafeSqrt(0.005), std::sqrt(0.005));
  EXPECT_EQ(SafeSqrt(9.0), 3.0);
}

TEST(SafeArcs, SnapNextToOne) {
  const UnitsGuard guard(0);
  EXPECT_EQ(SafeAsin(1.004), kPi / 2);
  EXPECT_EQ(SafeAsin(-1.004), -kPi / 2);
  EXPECT_EQ(SafeAsin(0.996), kPi / 2);
  EXPECT_DOUBLE_EQ(SafeAsin(0.5), kPi / 6);
  EXPECT_EQ(SafeAcos(1.004), 0.0);
  EXPECT_EQ(SafeAcos(-1.004), kPi);
  EXPECT_DOUBLE_EQ(SafeAcos(0.5), kPi / 3);
  EXPECT_TRUE(std::isnan(SafeAcos(1.1)));
}

TEST(Atan2Positive, RunsFromZeroToAFullTurn) {
  EXPECT_EQ(Atan2Positive(0, 1), 0.0);
  EXPECT_DOUBLE_EQ(Atan2Positive(1, 0), kPi / 2);
  EXPECT_DOUBLE_EQ(Atan2Positive(-1, 0), 1.5 * kPi);
  EXPECT_DOUBLE_EQ(Atan2Positive(0, -1), kPi);
}

TEST(TightRelative, DividesByTheSizeOrTheFallback) {
  const UnitsGuard guard(0);
  EXPECT_DOUBLE_EQ(TightRelative(-2.0, 10.0), 0.0005);
  EXPECT_DOUBLE_EQ(TightRelative(0.001, 10.0), 0.0001);
  EXPECT_DOUBLE_EQ(TightRelative(0.002, 10.0), 0.5);
  EXPECT_EQ(TightRelative(0.0, 0.0), kInfinity);
}

TEST(SegmentCount, KeepsTheChordsWithinTheTolerance) {
  for (const double radius : {0.1, 1.0, 10.0, 250.0}) {
    for (const double tolerance : {0.001, 0.01, 0.05}) {
      const double angle = 1.3;
      const int count = SegmentCount(tolerance, angle, radius, 1);
      const auto sagitta = [&](int n) { return radius * (1 - std::cos(angle / n / 2)); };
      EXPECT_LE(sagitta(count), tolerance * (1 + 1e-9));
      if (count > 1) {
        EXPECT_GT(sagitta(count - 1), tolerance * (1 - 1e-9));
      }
    }
  }
}

TEST(SegmentCount, OfAQuarterIsTheTruncatedQuotientPlusOne) {
  // One chord spans 2 acos(1 - 0.001) = 0.0894502...; a quarter turn holds 17.56 of them.
  EXPECT_EQ(SegmentCount(0.01, kPi / 2, 10, 1), 18);
  EXPECT_EQ(SegmentCount(0.01, -kPi / 2, 10, -1), 18);
}

TEST(SegmentCount, IsZeroForLinesAndForTolerancesFromTheRadiusUp) {
  EXPECT_EQ(SegmentCount(0.01, 1, 10, 0), 0);
  EXPECT_EQ(SegmentCount(10, 1, 10, 1), 0);
  EXPECT_EQ(SegmentCount(11, 1, 10, 1), 0);
  EXPECT_EQ(SegmentCount(9.99, 1, 10, 1), 1);
}

TEST(SegmentCount, IsBoundedForAnyTolerance) {
  // The cosine of half a step is capped, so a step is never below 2 sqrt(2e-11).
  EXPECT_NEAR(SegmentCount(0, 1, 10, 1), 1 / (2 * std::sqrt(2e-11)), 5);
  EXPECT_EQ(SegmentCount(-5, 1, 10, 1), SegmentCount(0, 1, 10, 1));
  EXPECT_EQ(SegmentCount(kNaN, 1, 10, 1), 0);
  EXPECT_EQ(SegmentCount(0.1, kNaN, 10, 1), 0);
  EXPECT_EQ(SegmentCount(0.1, 1e300, 10, 1), std::numeric_limits<int>::max());
  EXPECT_EQ(SegmentCount(0.1, kInfinity, 10, 1), std::numeric_limits<int>::max());
}

struct Roots {
  int count;
  double x1 = -77, x2 = -77;
};

Roots Solve(double a, double b, double c) {
  Roots roots = {};
  roots.count = SolveQuadratic(a, b, c, roots.x1, roots.x2);
  return roots;
}

TEST(SolveQuadratic, HasNoRootWithoutAnUnknown) {
  EXPECT_EQ(Solve(0, 0, 1).count, 0);
  EXPECT_EQ(Solve(9e-10, -9e-10, 1).count, 0);
}

TEST(SolveQuadratic, IsLinearBelowItsEpsilon) {
  const Roots roots = Solve(9e-10, 2, -6);
  EXPECT_EQ(roots.count, 1);
  EXPECT_EQ(roots.x1, 3);
  EXPECT_EQ(roots.x2, -77);
}

TEST(SolveQuadratic, EpsilonIsCoarserOutsideMetres) {
  EXPECT_EQ(Solve(5e-7, 0, -5e-7).count, 2);
  for (const std::int32_t units : {0, 1}) {
    const UnitsGuard guard(units);
    EXPECT_EQ(Solve(5e-7, 0, -5e-7).count, 0);
  }
}

TEST(SolveQuadratic, PureSquaresGivePlusThenMinus) {
  EXPECT_EQ(Solve(1, 0, 4).count, 0);
  EXPECT_EQ(Solve(1, 0, 0).count, 1);
  EXPECT_EQ(Solve(1, 0, 0).x1, 0);
  EXPECT_EQ(Solve(1, 0, -5e-10).count, 1) << "within the epsilon of 0";
  EXPECT_EQ(Solve(1, 0, 5e-10).count, 1);
  const Roots roots = Solve(2, 0, -18);
  EXPECT_EQ(roots.count, 2);
  EXPECT_EQ(roots.x1, 3);
  EXPECT_EQ(roots.x2, -3);
}

TEST(SolveQuadratic, TheRootOfLargerSizeComesFirst) {
  Roots roots = Solve(1, -5, 6);
  EXPECT_EQ(roots.count, 2);
  EXPECT_DOUBLE_EQ(roots.x1, 3);
  EXPECT_DOUBLE_EQ(roots.x2, 2);
  roots = Solve(-2, -10, -12);
  EXPECT_EQ(roots.count, 2);
  EXPECT_DOUBLE_EQ(roots.x1, -3);
  EXPECT_DOUBLE_EQ(roots.x2, -2);
}

TEST(SolveQuadratic, NothingCancelsInTheSmallRoot) {
  const Roots roots = Solve(1, -1e8, 1);
  EXPECT_DOUBLE_EQ(roots.x1, 1e8);
  EXPECT_DOUBLE_EQ(roots.x2, 1e-8);
}

TEST(SolveQuadratic, ADoubleRootCountsOnce) {
  const Roots roots = Solve(1, -6, 9);
  EXPECT_EQ(roots.count, 1);
  EXPECT_EQ(roots.x1, 3);
  EXPECT_EQ(Solve(1, -6, 9 + 1e-10).count, 1) << "a discriminant just below 0 still touches";
  EXPECT_EQ(Solve(1, -6, 9.1).count, 0);
}

TEST(SolveQuadratic, AtTheEpsilonItselfNumbersCount) {
  constexpr double e = 1e-9;
  EXPECT_EQ(Solve(e, 0, -e).count, 2) << "quadratic";
  EXPECT_EQ(Solve(0, e, -e).count, 1) << "linear";
  EXPECT_LT(Solve(1, e, 0).x1, 0) << "not a pure square";
  EXPECT_EQ(Solve(1, 0, e).count, 1) << "still touches";
  EXPECT_EQ(Solve(1, 0, -e).count, 2) << "no longer touches";
  const double b = std::ldexp(1.0, -29);
  const double c = (e + b * b) / 4;
  ASSERT_EQ(b * b - 4 * c, -e);
  EXPECT_EQ(Solve(1, b, c).count, 2) << "a discriminant of minus the epsilon has roots";
  EXPECT_EQ(Solve(1, -e, 0).count, 1) << "roots as far apart as the epsilon are one";
}

TEST(SolveQuadratic, HasNoRootForWhatIsNotFinite) {
  for (const double bad : {kNaN, kInfinity, -kInfinity}) {
    EXPECT_EQ(Solve(bad, 1, 1).count, 0);
    EXPECT_EQ(Solve(1, bad, 1).count, 0);
    EXPECT_EQ(Solve(1, 1, bad).count, 0);
  }
}

TEST(SolveQuadratic, RootsSatisfyTheEquation) {
  testing::Random random(811);
  for (int i = 0; i < 10000; ++i) {
    const double r1 = random.Between(-10, 10);
    const double r2 = random.Between(-10, 10);
    const double a = random.Between(0.5, 3);
    const Roots roots = Solve(a, -a * (r1 + r2), a * r1 * r2);
    ASSERT_GE(roots.count, 1);
    const double larger = std::fabs(r1) > std::fabs(r2) ? r1 : r2;
    EXPECT_NEAR(roots.x1, larger, 1e-4);
    if (roots.count == 2) {
      EXPECT_NEAR(roots.x2, r1 + r2 - larger, 1e-4);
    }
  }
}

}  // namespace
}  // namespace geometry

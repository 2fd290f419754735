#include "devices/formula.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vanzet {
namespace {

constexpr DeviceParams kValues = {.A = 10, .B = 4, .C = 3, .D = 2, .E = 60, .F = 0.5, .I = 45};

double Of(const char* formula) {
  return Evaluate(formula, kValues);
}

TEST(Formula, ReadsLettersAndNumbers) {
  EXPECT_EQ(Of("A"), 10);
  EXPECT_EQ(Of("J"), 0);
  EXPECT_EQ(Of("0"), 0);
  EXPECT_EQ(Of("2.05"), 2.05);
}

TEST(Formula, ComputesFromLeftToRightWithProductsFirst) {
  EXPECT_EQ(Of("A-B-C"), 3);
  EXPECT_EQ(Of("A-D+F"), 8.5);
  EXPECT_EQ(Of("A-D*B"), 2);
  EXPECT_EQ(Of("A/B*D"), 5);
  EXPECT_EQ(Of("(A-D)*B"), 32);
}

TEST(Formula, RoundsInTheOrderWritten) {
  const DeviceParams params = {.A = 1e16, .D = 1e16, .F = 0.3};
  EXPECT_EQ(Evaluate("A-D+F", params), 0.3);
}

TEST(Formula, KnowsMagnitudesAndTangents) {
  EXPECT_DOUBLE_EQ(Of("tan I"), 1);
  EXPECT_DOUBLE_EQ(Of("F-D*tan I"), -1.5);
  EXPECT_DOUBLE_EQ(Of("tan(-E*0.5)"), -std::tan(30 * std::acos(-1.0) / 180));
  EXPECT_EQ(Evaluate("abs B", {.B = -7}), 7);
}

TEST(Formula, TurnsTheSignOfAZeroBehindAMinus) {
  EXPECT_TRUE(std::signbit(Evaluate("-B", {.B = 0})));
  EXPECT_TRUE(std::signbit(Evaluate("-abs B", {.B = 0})));
  EXPECT_TRUE(std::signbit(Evaluate("-E*0.5", {.E = 0})));
  EXPECT_FALSE(std::signbit(Evaluate("-abs B", {.B = -0.0})));
  EXPECT_EQ(Evaluate("-abs B", {.B = -30}), -30);
  EXPECT_EQ(Evaluate("-abs B", {.B = 30}), -30);
}

}  // namespace
}  // namespace vanzet

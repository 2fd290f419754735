#include "base/numbers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vanzet {
namespace {

TEST(IntegerPrefix, ReadsBehindWhiteSpaceAndSign) {
  const auto number = IntegerPrefix(" \t\n-42x");
  ASSERT_TRUE(number);
  EXPECT_EQ(number->value, -42);
  EXPECT_EQ(number->used, 6U);
  EXPECT_EQ(IntegerPrefix("+7")->value, 7);
}

TEST(IntegerPrefix, IsDecimalOnly) {
  EXPECT_EQ(IntegerPrefix("0x1F")->value, 0);
  EXPECT_EQ(IntegerPrefix("0x1F")->used, 1U);
  EXPECT_EQ(IntegerPrefix("010")->value, 10);
}

TEST(IntegerPrefix, IsNothingWithoutANumber) {
  for (const char* text : {"", " ", "x", "-", "+", "+-5", "--5", "- 5", ".5"}) {
    EXPECT_FALSE(IntegerPrefix(text)) << text;
  }
}

TEST(IntegerPrefix, IsNothingBeyondThirtyTwoBits) {
  EXPECT_EQ(IntegerPrefix("2147483647")->value, 2147483647);
  EXPECT_EQ(IntegerPrefix("-2147483648")->value, -2147483647 - 1);
  EXPECT_FALSE(IntegerPrefix("2147483648"));
  EXPECT_FALSE(IntegerPrefix("-2147483649"));
  EXPECT_FALSE(IntegerPrefix("99999999999999999999999"));
}

TEST(RealPrefix, ReadsWhatTheCLibraryReads) {
  struct Case {
    const char* text;
    double value;
    std::size_t used;
  };
  for (const Case& c :
       {Case{"12.5 abc", 12.5, 4}, Case{" -.5", -0.5, 4}, Case{"+3.", 3.0, 3}, Case{"1e3", 1000.0, 3},
        Case{"1e", 1.0, 1}, Case{"0x1.8p1", 3.0, 7}, Case{"0x", 0.0, 1}, Case{"2,5", 2.0, 1}}) {
    const auto number = RealPrefix(c.text);
    ASSERT_TRUE(number) << c.text;
    EXPECT_EQ(number->value, c.value) << c.text;
    EXPECT_EQ(number->used, c.used) << c.text;
  }
  EXPECT_TRUE(std::isinf(RealPrefix("-inf")->value));
  EXPECT_TRUE(std::isnan(RealPrefix("nan")->value));
}

TEST(RealPrefix, IsNothingWithoutANumber) {
  for (const char* text : {"", " ", "x", "-", ".", "+-5", "--5", "e5"}) {
    EXPECT_FALSE(RealPrefix(text)) << text;
  }
}

TEST(RealPrefix, IsNothingBeyondADouble) {
  EXPECT_FALSE(RealPrefix("1e400"));
  EXPECT_FALSE(RealPrefix("-1e400"));
}

TEST(WholeInteger, TakesTheWholeTextOrNothing) {
  EXPECT_EQ(WholeInteger(" 12 "), 12);
  EXPECT_EQ(WholeInteger("12 a"), std::nullopt);
  EXPECT_EQ(WholeInteger("1.5"), std::nullopt);
  EXPECT_EQ(WholeInteger(""), std::nullopt);
}

TEST(WholeReal, TakesTheWholeTextAndFiniteNumbersOnly) {
  EXPECT_EQ(WholeReal(" 1.25 "), 1.25);
  EXPECT_EQ(WholeReal("1.25mm"), std::nullopt);
  EXPECT_EQ(WholeReal("nan"), std::nullopt);
  EXPECT_EQ(WholeReal("inf"), std::nullopt);
}

TEST(IntegerOrZero, IsZeroWithoutANumberAndTheNearestWhenTooLarge) {
  EXPECT_EQ(IntegerOrZero("51 spurs"), 51);
  EXPECT_EQ(IntegerOrZero("spurs"), 0);
  EXPECT_EQ(IntegerOrZero(""), 0);
  EXPECT_EQ(IntegerOrZero("4294967297"), 2147483647);
  EXPECT_EQ(IntegerOrZero("-99999999999999999999"), -2147483647 - 1);
}

TEST(RealOrZero, IsZeroWithoutANumber) {
  EXPECT_EQ(RealOrZero("12.5mm"), 12.5);
  EXPECT_EQ(RealOrZero("mm"), 0.0);
}

}  // namespace
}  // namespace vanzet

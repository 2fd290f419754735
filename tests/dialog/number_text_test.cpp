#include "dialog/number_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace vanzet::dialog {
namespace {

TEST(RealText, HasFifteenDigitsAndAPoint) {
  EXPECT_EQ(RealText(0), "0");
  EXPECT_EQ(RealText(80), "80");
  EXPECT_EQ(RealText(-12.5), "-12.5");
  EXPECT_EQ(RealText(0.1 + 0.2), "0.3");
  EXPECT_EQ(RealText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(RealText(1e15), "1e+15");
  EXPECT_EQ(RealText(0.00001), "1e-05");
  EXPECT_EQ(RealText(-0.0), "-0");
  EXPECT_EQ(RealText(-std::numeric_limits<double>::denorm_min()), "-4.94065645841247e-324");
}

TEST(ShortRealText, HasSixDigits) {
  EXPECT_EQ(ShortRealText(107.5), "107.5");
  EXPECT_EQ(ShortRealText(1234567), "1.23457e+06");
}

TEST(RealOf, TakesPointCommaAndBlanks) {
  EXPECT_EQ(RealOf("12.5"), 12.5);
  EXPECT_EQ(RealOf(" 12,5 "), 12.5);
  EXPECT_EQ(RealOf("-3e2"), -300);
  EXPECT_EQ(RealOf(""), 0);
  EXPECT_EQ(RealOf("  "), 0);
}

TEST(RealOf, TakesNothingElse) {
  for (const char* text : {"x", "1 2", "1.2.3", "1,2.3", "1e", "inf", "nan", "1e999", "-"}) {
    EXPECT_EQ(RealOf(text), std::nullopt) << text;
  }
}

TEST(RealOf, GivesBackWhatWasShown) {
  for (const double value : {0.1, 1e-300, 123456.789, -7e22}) EXPECT_EQ(RealOf(RealText(value)), value);
}

}  // namespace
}  // namespace vanzet::dialog

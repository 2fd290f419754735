#include "base/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/numbers.h"

namespace vanzet {
namespace {

TEST(NumberText, HasAsManyDecimalsAsAskedFor) {
  EXPECT_EQ(FixedText(5, 6), "5.000000");
  EXPECT_EQ(FixedText(-0.0, 6), "-0.000000");
  EXPECT_EQ(FixedText(2.5, 0), "2");
  EXPECT_EQ(FixedText(1.0 / 3, 3), "0.333");
}

TEST(NumberText, HasRoomForTheLargestNumber) {
  const std::string largest = FixedText(-std::numeric_limits<double>::max(), 6);
  EXPECT_EQ(largest.size(), 1 + 309 + 1 + 6U);
  EXPECT_EQ(WholeReal(largest), -std::numeric_limits<double>::max());
}

TEST(NumberText, LeavesOutZerosAtTheEnd) {
  EXPECT_EQ(GeneralText(12.5, 6), "12.5");
  EXPECT_EQ(GeneralText(1e7, 6), "1e+07");
  EXPECT_EQ(GeneralText(0.1, 15), "0.1");
  EXPECT_EQ(GeneralText(0.1, 17), "0.10000000000000001");
}

TEST(NumberText, HasNoSignBeforeAZeroForPeople) {
  EXPECT_EQ(NumberText(-0.0), "0");
  EXPECT_EQ(NumberText(-1e-9), "-1e-09");
  EXPECT_EQ(DecimalText(-0.0004, 3), "0.000");
  EXPECT_EQ(DecimalText(-0.0006, 3), "-0.001");
}

TEST(NumberText, LeavesOutZerosAfterThePointWhereItIsShort) {
  EXPECT_EQ(ShortDecimalText(12.5, 6), "12.5");
  EXPECT_EQ(ShortDecimalText(100, 6), "100");
  EXPECT_EQ(ShortDecimalText(-0.0000001, 6), "0");
  EXPECT_EQ(ShortDecimalText(-0.000001, 6), "-0.000001");
}

TEST(NumberText, ReadsBackAsTheSameNumber) {
  for (const double value : {0.1, 1.0 / 3, -std::nextafter(1.0, 2.0), 5e-324, 1.7976931348623157e308}) {
    EXPECT_EQ(WholeReal(ExactText(value)), value) << value;
  }
}

}  // namespace
}  // namespace vanzet

#include "base/length_unit.h"

#include <gtest/gtest.h>

#include "base/number_text.h"

namespace vanzet {
namespace {

TEST(LengthUnit, HasAWord) {
  EXPECT_EQ(LengthUnitNamed("mm"), LengthUnit::kMillimetre);
  EXPECT_EQ(LengthUnitNamed("inch"), LengthUnit::kInch);
  for (const char* const other : {"", "in", "MM", "m"})
    EXPECT_EQ(LengthUnitNamed(other), std::nullopt) << other;
}

TEST(Lengths, OfMillimetresStayAsTheyAre) {
  for (const double length : {0.0, -1.5, 1.0 / 3, 1e300}) {
    EXPECT_EQ(InUnit(length, LengthUnit::kMillimetre), length);
    EXPECT_EQ(InMillimetres(length, LengthUnit::kMillimetre), length);
    EXPECT_EQ(RoundedInUnit(length, LengthUnit::kMillimetre), length);
  }
}

TEST(Lengths, OfInchesAreWholeMillionthsOfAMillimetre) {
  EXPECT_EQ(InMillimetres(3, LengthUnit::kInch), 76.2);
  EXPECT_EQ(InMillimetres(-0.125, LengthUnit::kInch), -3.175);
  EXPECT_EQ(InMillimetres(1.65354331, LengthUnit::kInch), 42);
  EXPECT_EQ(InUnit(50.8, LengthUnit::kInch), 2);
}

TEST(Lengths, ComeBackFromInchesWithTheSameSixDecimals) {
  for (int i = -2000; i < 2000; ++i) {
    const double length = i * 0.012347 + i * i * 1e-6;
    const double inches = RoundedInUnit(length, LengthUnit::kInch);
    EXPECT_EQ(FixedText(InMillimetres(inches, LengthUnit::kInch), 6), FixedText(length + 0.0, 6)) << length;
  }
}

TEST(Volumes, AreThoseOfCubes) {
  EXPECT_NEAR(VolumeInUnit(50.8 * 50.8 * 50.8, LengthUnit::kInch), 8, 1e-12);
  EXPECT_EQ(VolumeInUnit(5, LengthUnit::kMillimetre), 5);
}

TEST(LengthText, HasThePointsThatItNeeds) {
  EXPECT_EQ(LengthText(42, LengthUnit::kMillimetre), "42");
  EXPECT_EQ(LengthText(50.8, LengthUnit::kInch), "2");
  EXPECT_EQ(LengthText(42, LengthUnit::kInch), "1.65354331");
  EXPECT_EQ(LengthText(-22.5, LengthUnit::kMillimetre), "-22.5");
}

}  // namespace
}  // namespace vanzet

#include "dialog/controls.h"

#include <gtest/gtest.h>

#include <limits>

namespace vanzet::dialog {
namespace {

constexpr ControlTemplate kRows[] = {
    {.id = 1, .kind = ControlKind::kEdit, .caption = "A"},
    {.id = 2, .kind = ControlKind::kCombo},
    {.id = 3, .kind = ControlKind::kSpin, .least = 3, .most = 16, .buddy = 4},
    {.id = 4, .kind = ControlKind::kEdit, .text = "3"},
    {.id = 5, .kind = ControlKind::kButton, .text = "*Select", .isVisible = false},
};

class ControlsTest : public testing::Test {
 protected:
  Controls controls{kRows};
};

TEST_F(ControlsTest, BeginAsInTheirTemplate) {
  EXPECT_EQ(controls.Of(1).caption, "A");
  EXPECT_EQ(controls.Of(2).selected, -1);
  EXPECT_EQ(controls.Of(3).value, 3);
  EXPECT_EQ(controls.Of(5).text, "*Select");
  EXPECT_FALSE(controls.Of(5).isVisible);
  EXPECT_TRUE(controls.Of(5).isEnabled);
  EXPECT_TRUE(controls.Has(5));
  EXPECT_FALSE(controls.Has(6));
}

TEST_F(ControlsTest, AComboShowsTheEntryThatIsSelected) {
  controls.AddEntries(2, {"a", "b"});
  controls.Select(2, 1);
  EXPECT_EQ(controls.Of(2).text, "b");
  controls.Select(2, 2);
  EXPECT_EQ(controls.Of(2).selected, -1);
  EXPECT_EQ(controls.Of(2).text, "");
  controls.Select(2, 0);
  controls.Select(2, -7);
  EXPECT_EQ(controls.Of(2).selected, -1);
}

TEST_F(ControlsTest, TypingIntoAComboLeavesNothingSelected) {
  controls.AddEntries(2, {"a", "b"});
  controls.Select(2, 1);
  controls.Type(2, "a");
  EXPECT_EQ(controls.Of(2).selected, -1);
  EXPECT_EQ(controls.Of(2).text, "a");
}

TEST_F(ControlsTest, AnEmptiedComboHasNoText) {
  controls.AddEntries(2, {"a"});
  controls.Type(2, "typed");
  controls.Empty(2);
  EXPECT_TRUE(controls.Of(2).items.empty());
  EXPECT_EQ(controls.Of(2).text, "");
}

TEST_F(ControlsTest, ASpinStaysInItsRangeAndIsShownByItsEdit) {
  controls.SetSpin(3, 7);
  EXPECT_EQ(controls.Of(4).text, "7");
  controls.SetSpin(3, 17);
  EXPECT_EQ(controls.Of(3).value, 16);
  EXPECT_EQ(controls.Of(4).text, "16");
  controls.SetSpin(3, 2);
  EXPECT_EQ(controls.Of(3).value, 3);
  controls.Type(4, "5");
  EXPECT_EQ(controls.Of(3).value, 5);
  controls.Type(4, "50");
  EXPECT_EQ(controls.Of(3).value, 5);
}

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

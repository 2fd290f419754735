#include "dialog/controls.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace vanzet::dialog

#include "view/shared/page_model.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

#include "view/ids.h"

namespace vanzet::view {
namespace {

class PageModelTest : public testing::Test {
 protected:
  ~PageModelTest() override { unsetenv("VANZET_UNIT"); }
};

/// The row of a control on a page with these controls.
RowModel RowOf(const char* page, std::int32_t control, const std::vector<Control>& controls) {
  for (const RowModel& row : RowsOf(*FindPageLayout(page), controls)) {
    if (row.field->control == control) return row;
  }
  return {};
}

const std::vector<Control> kBillet = {
    {.id = control::kOuterDiameter, .kind = ControlKind::kEdit, .caption = "A", .isReal = true},
    {.id = control::kPickOuterDiameter, .kind = ControlKind::kButton, .text = ">>"},
    {.id = control::kHideBillet, .kind = ControlKind::kCheck, .text = "Hide"},
};

TEST_F(PageModelTest, NamesAValueByItsLetterItsNameAndItsUnit) {
  const RowModel row = RowOf("CPageBilletCylindric", control::kOuterDiameter, kBillet);
  EXPECT_EQ(row.letter, "A");
  EXPECT_EQ(row.name, "Outer diameter");
  EXPECT_EQ(row.unit, "mm");
  EXPECT_TRUE(row.isNeeded);
  EXPECT_EQ(row.spoken, "A: Outer diameter (mm), needed");
  EXPECT_EQ(row.spokenButton, "Pick in the drawing: A: Outer diameter");
  EXPECT_EQ(RowOf("CPageBilletCylindric", control::kHideBillet, kBillet).spoken, "") << "it has its own text";
}

TEST_F(PageModelTest, ShowsLengthsInTheUnitOfTheMoment) {
  setenv("VANZET_UNIT", "inch", 1);
  const RowModel row = RowOf("CPageBilletCylindric", control::kOuterDiameter, kBillet);
  EXPECT_EQ(row.unit, "in");
  EXPECT_EQ(row.lengthUnit, LengthUnit::kInch);
  EXPECT_EQ(RowOf("CPageBilletFromSolid", control::kAngle, {}).lengthUnit, LengthUnit::kMillimetre);
}

/// The page of clamp elements with a picture, D and E; no letter can be given.
std::vector<Control> ClampElement(std::int32_t picture) {
  return {{.id = control::kDevicePicture, .kind = ControlKind::kPicture, .bitmap = picture},
          {.id = control::kEditD, .kind = ControlKind::kEdit, .isEnabled = false},
          {.id = control::kEditE, .kind = ControlKind::kEdit, .isEnabled = false}};
}

TEST_F(PageModelTest, HidesLettersThatTheTypeDoesNotHave) {
  const std::int32_t softJaw = devices::PictureOf(9);
  ASSERT_EQ(TypeOfPicture(softJaw), 9);
  EXPECT_EQ(RowOf("CPageClampElem", control::kEditD, ClampElement(softJaw)).name, "Thickness");
  EXPECT_FALSE(RowOf("CPageClampElem", control::kEditD, ClampElement(softJaw)).isHidden);
  EXPECT_TRUE(RowOf("CPageClampElem", control::kEditE, ClampElement(softJaw)).isHidden);
  EXPECT_TRUE(RowOf("CPageClampElem", control::kEditD, ClampElement(0)).isHidden) << "no device";
}

TEST_F(PageModelTest, NamesControlsAsThePageDoes) {
  const PageLayout& layout = *FindPageLayout("CPageBilletCylindric");
  EXPECT_EQ(NamesOf(layout, {control::kHideBillet, control::kOuterDiameter}, kBillet), "A, Hide");
  EXPECT_EQ(NamesOf(layout, {}, kBillet), "");
}

TEST_F(PageModelTest, KeepsControlsThatTheTableDoesNotPlace) {
  std::vector<Control> controls = kBillet;
  controls.push_back({.id = 77, .kind = ControlKind::kEdit});
  controls.push_back({.id = 78, .kind = ControlKind::kPicture});
  EXPECT_THAT(LeftOversOf(*FindPageLayout("CPageBilletCylindric"), controls), testing::ElementsAre(77));
}

}  // namespace
}  // namespace vanzet::view

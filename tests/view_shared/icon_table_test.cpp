#include "view/shared/icon_table.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "support/places.h"
#include "view/ids.h"

namespace vanzet::view {
namespace {

bool IsThere(const char* file) {
  return std::filesystem::exists(std::string(VANZET_SOURCE_DIR "/share/icons/") + file + ".svg");
}

TEST(IconTable, HasEveryIdFrom2072To2113) {
  std::set<std::int32_t> ids;
  for (const NodeIcon& row : NodeIcons()) {
    EXPECT_TRUE(ids.insert(row.bitmap).second) << row.bitmap;
    EXPECT_TRUE(ids.insert(icon::Selected(row.bitmap)).second) << row.bitmap;
    EXPECT_EQ(FindNodeIcon(row.bitmap), &row);
    EXPECT_EQ(FindNodeIcon(icon::Selected(row.bitmap)), &row);
    EXPECT_TRUE(IsThere(row.file)) << row.file;
  }
  EXPECT_EQ(ids.size(), 42U);
  EXPECT_EQ(*ids.begin(), icon::kBezel);
  EXPECT_EQ(*ids.rbegin(), icon::Selected(icon::kDatum));
  EXPECT_EQ(FindNodeIcon(2071), nullptr);
}

TEST(IconTable, HasTheIconsOfButtons) {
  for (const std::int32_t id :
       {control::kOk, control::kHelp, control::kLoad, control::kSave, control::kSelect,
        control::kSelectCylinder, control::kPickSolid, control::kDeleteDevice, control::kSaveDevice,
        control::kSelectParametric, control::kSelectOwn}) {
    EXPECT_TRUE(IsThere(IconOfButton(id, "Text").file)) << id;
  }
  EXPECT_TRUE(IconOfButton(control::kPickOuterDiameter, ">>").replacesText);
  EXPECT_TRUE(IconOfButton(control::kBrowse, "...").replacesText);
  EXPECT_EQ(IconOfButton(77, "Text").file, nullptr);
}

}  // namespace
}  // namespace vanzet::view

#include "catalogue/device_rows.h"

#include "shop_catalogue/shop_fixture.h"

namespace vanzet::test {
namespace {

using namespace catalogue;
using testing::ElementsAre;
using testing::IsEmpty;

/// A row of a chuck with this B; a name may be followed by figures.
DeviceRow Row(std::int64_t position, const std::string& name, int b, const std::string& figures = "") {
  return {position, name, name + "\n1 80 " + std::to_string(b) + " 20\n", figures};
}

TEST(DeviceRows, AreThoseOfTheFileAndBack) {
  const std::string text = kChuck + kOwn + "Odd\r\nno device\r\n" + kJaw + kChuck;
  const DeviceRows rows = RowsOf(ShopOf(text), {});
  ASSERT_EQ(rows.size(), 5U);
  const auto shop = ShopOfRows(rows, "shop.cld");
  ASSERT_TRUE(shop);
  EXPECT_EQ(shop->catalogue.Text(), text);
  EXPECT_EQ(RowsOf(*shop, rows), rows);
}

TEST(DeviceRows, EndTheLinesOfTheLastDevice) {
  EXPECT_EQ(LinesOf(RowsOf(ShopOf("A\n1 2"), {})), "A\n1 2\n");
  EXPECT_EQ(LinesOf(RowsOf(ShopOf("A"), {})), "A\n\n");
}

TEST(DeviceRows, HaveFiguresWithAndWithoutADevice) {
  Shop shop = ShopOf(kChuck);
  ASSERT_TRUE(shop.maker.Set("Chuck 160", "max_speed", "4000"));
  ASSERT_TRUE(shop.maker.Set("Gone", "note", "sold"));
  const DeviceRows rows = RowsOf(shop, {});
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].figures, R"({"max_speed":4000})");
  EXPECT_EQ(rows[1], (DeviceRow{2, "Gone", "", R"({"note":"sold"})"}));
  const auto back = ShopOfRows(rows, "shop.cld");
  ASSERT_TRUE(back);
  EXPECT_EQ(back->maker.Text(), shop.maker.Text());
}

TEST(DeviceRows, RefuseFiguresThatAreNotMakerData) {
  for (const char* const figures : {"{", "7", R"({"colour":"red"})"}) {
    const auto shop = ShopOfRows({Row(1, "A", 90, figures)}, "shop.cld");
    ASSERT_FALSE(shop) << figures;
    EXPECT_EQ(shop.fault().kind, FaultKind::kDamaged);
  }
}

TEST(DeviceRows, KeepTheirPositionsAndPutNewDevicesLast) {
  const DeviceRows before = {Row(2, "A", 90), Row(5, "B", 90), Row(7, "C", 90)};
  auto shop = ShopOfRows(before, "shop.cld");
  ASSERT_TRUE(shop);
  shop->catalogue.Remove("B");
  ASSERT_TRUE(shop->catalogue.Put("New", ChuckOf(80, 90, 20)));
  ASSERT_TRUE(shop->catalogue.Put("A", ChuckOf(80, 91, 20)));
  const RowChanges changes = ChangesBetween(before, RowsOf(*shop, before));
  EXPECT_THAT(changes.ended, ElementsAre(before[0], before[1]));
  ASSERT_EQ(changes.added.size(), 2U);
  EXPECT_EQ(changes.added[0].position, 2);
  EXPECT_EQ(changes.added[1].position, 8);
  EXPECT_TRUE(ChangesBetween(before, before).AreEmpty());
}

TEST(DeviceRows, TakeTheChangesOfTheOtherSide) {
  const DeviceRows base = {Row(1, "Same", 90), Row(2, "There", 90), Row(3, "Here", 90), Row(4, "Gone", 90)};
  DeviceRows rows = {Row(1, "Same", 90), Row(2, "There", 90), Row(3, "Here", 95), Row(4, "Gone", 90),
                     Row(5, "Mine", 90)};
  const DeviceRows other = {Row(1, "Same", 90), Row(2, "There", 92), Row(3, "Here", 90),
                            Row(5, "Theirs", 90)};
  EXPECT_THAT(TakeChanges(rows, base, other), IsEmpty());
  EXPECT_THAT(rows, ElementsAre(Row(1, "Same", 90), Row(2, "There", 92), Row(3, "Here", 95),
                                Row(5, "Mine", 90), Row(6, "Theirs", 90)));
}

TEST(DeviceRows, MergeLinesAndFiguresApart) {
  const DeviceRows base = {Row(1, "A", 90)};
  DeviceRows rows = {Row(1, "A", 90, R"({"max_speed":4000})")};
  EXPECT_THAT(TakeChanges(rows, base, {Row(1, "A", 91)}), IsEmpty());
  EXPECT_THAT(rows, ElementsAre(Row(1, "A", 91, R"({"max_speed":4000})")));
}

TEST(DeviceRows, NameDevicesThatBothSidesChanged) {
  const DeviceRows base = {Row(1, "A", 90), Row(2, "B", 90), Row(3, "C", 90), Row(4, "D", 90)};
  DeviceRows rows = {Row(1, "A", 91), Row(2, "B", 91), Row(4, "D", 92)};
  const DeviceRows other = {Row(1, "A", 92), Row(3, "C", 92), Row(4, "D", 92)};
  EXPECT_THAT(TakeChanges(rows, base, other), ElementsAre("A", "C", "B"));
  EXPECT_THAT(rows, ElementsAre(Row(1, "A", 92), Row(2, "B", 91), Row(4, "D", 92), Row(5, "C", 92)));
}

}  // namespace
}  // namespace vanzet::test

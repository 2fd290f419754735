#include "catalogue/check.h"

#include "shop_catalogue/shop_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> MessagesOf(const catalogue::Shop& shop) {
  std::vector<std::string> messages;
  for (const catalogue::Finding& finding : FindingsOf(shop)) messages.push_back(finding.Message());
  return messages;
}

std::vector<std::string> MessagesOf(const std::string& text) {
  return MessagesOf(ShopOf(text));
}

TEST(CatalogueCheck, OfASoundCatalogueFindsNothing) {
  EXPECT_THAT(MessagesOf(kChuck + kJaw + kOwn), IsEmpty());
  EXPECT_THAT(MessagesOf(""), IsEmpty());
}

TEST(CatalogueCheck, FindsANameThatOccursTwice) {
  EXPECT_THAT(
      MessagesOf(kChuck + kJaw + kChuck),
      ElementsAre(
          "shop.cld:5: the name 'Chuck 160' is also in line 1; only the first device of a name is used"));
}

TEST(CatalogueCheck, FindsALastNameWithoutValues) {
  EXPECT_THAT(MessagesOf(kChuck + "Jaw\n"), ElementsAre("shop.cld:3: the device 'Jaw' has no value line"));
}

TEST(CatalogueCheck, FindsAnUnknownType) {
  EXPECT_THAT(MessagesOf("A\n77 1 2\nB\njaw\n"),
              ElementsAre("shop.cld:2: the value line does not begin with the type of a device: '77 1 2'",
                          "shop.cld:4: the value line does not begin with the type of a device: 'jaw'"));
}

TEST(CatalogueCheck, FindsFieldsThatAreNotThoseOfTheKind) {
  EXPECT_THAT(MessagesOf("A\n1 80 90 x\nB\n1 80 90 20 5\nC\n1 80 90 20 0 0 0 0 0 0 0 0\n"),
              ElementsAre("shop.cld:2: field 4 is not a number: 'x'",
                          "shop.cld:4: a chuck does not have the letter D (5)",
                          "shop.cld:6: field 12 is one too many"));
}

TEST(CatalogueCheck, FindsValuesThatMakeNoSolid) {
  EXPECT_THAT(MessagesOf("A\n1 80 90 100\n"), ElementsAre("shop.cld:2: C (100) must be less than A (80)"));
}

TEST(CatalogueCheck, FindsAnEmptyName) {
  EXPECT_THAT(MessagesOf("\n1 80 90 20\n"), ElementsAre("shop.cld:1: the name of a device is empty"));
}

TEST(CatalogueCheck, FindsMakerDataWithoutADevice) {
  catalogue::Shop shop = ShopOf(kChuck);
  shop.file = "/no/such/shop.cld";
  ASSERT_TRUE(shop.maker.Set("Chuck 160", "stroke", "6"));
  ASSERT_TRUE(shop.maker.Set("Chuck 161", "stroke", "6"));
  EXPECT_THAT(MessagesOf(shop),
              ElementsAre("/no/such/clampdevice.json: the catalogue does not have the device 'Chuck 161'"));
}

}  // namespace
}  // namespace vanzet::test

#include "catalogue/rules.h"

#include "catalogue/kinds.h"
#include "devices/kinds.h"
#include "shop_catalogue/shop_fixture.h"

namespace vanzet::test {
namespace {

using namespace catalogue;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(CatalogueKinds, HaveAWordForEachTypeOfTheTables) {
  for (const devices::Device* const device : devices::Devices()) {
    const std::string word(KindWord(device->code));
    EXPECT_NE(word, "") << device->code;
    EXPECT_THAT(TypesOfWord(word), ElementsAre(device->code));
  }
  EXPECT_EQ(KindWord(109), "own_chuck");
  EXPECT_EQ(KindWord(77), "");
  EXPECT_THAT(TypesOfWord("centre"), ElementsAre(13, 14));
}

TEST(CatalogueRules, TakeTheExamplesOfAllKinds) {
  for (const std::string& word : ParametricWords()) {
    const devices::Device& device = *devices::Find(TypesOfWord(word).front());
    EXPECT_EQ(ValuesRefusal(device.example), "") << word;
  }
}

TEST(CatalogueRules, RefuseWithNumbers) {
  EXPECT_EQ(ValuesRefusal({.type = 1, .A = 80, .B = 90}), "a chuck needs a value of C (Radius of the bore)");
  EXPECT_EQ(ValuesRefusal(ChuckOf(80, 90, 100)), "C (100) must be less than A (80)");
  EXPECT_EQ(ValuesRefusal(ChuckOf(0, 90, 20)), "A (0) must be above 0");
  EXPECT_EQ(ValuesRefusal(ChuckOf(2e7, 90, 20)), "A (20000000) must be from 0 to 10000000");
}

TEST(CatalogueRules, KeepSixDecimals) {
  EXPECT_EQ(Rounded(ChuckOf(80.00000049, 90, 1e-9)), ChuckOf(80, 90, 0));
}

TEST(CatalogueRules, RefuseNamesThatALineCannotHold) {
  EXPECT_EQ(NameRefusal("Chuck 160"), "");
  EXPECT_THAT(NameRefusal(" "), HasSubstr("empty"));
  EXPECT_THAT(NameRefusal("a\nb"), HasSubstr("control character"));
  EXPECT_THAT(NameRefusal(std::string(1001, 'a')), HasSubstr("1000 bytes"));
}

}  // namespace
}  // namespace vanzet::test

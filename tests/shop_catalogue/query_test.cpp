#include "catalogue/query.h"

#include "catalogue/kinds.h"
#include "shop_catalogue/shop_fixture.h"

namespace vanzet::test {
namespace {

using namespace catalogue;
using testing::ElementsAre;
using testing::IsEmpty;

/// Devices to be searched.
class CatalogueQuery : public testing::Test {
 protected:
  CatalogueQuery() {
    EXPECT_TRUE(shop.maker.Set("Soft jaw", "order", "KF-9"));
    EXPECT_TRUE(shop.maker.Set("Chuck 160", "max_speed", "4500"));
    EXPECT_TRUE(shop.maker.Set("Chuck 160", "clamp_outside", "20..160"));
  }

  std::vector<std::string> Found(const std::string& text, const std::string& kind = "") const {
    Query query = QueryOf(text);
    query.types = TypesOfWord(kind);
    std::vector<std::string> names;
    for (const Entry* const entry : Search(shop, query)) names.push_back(entry->name);
    return names;
  }

  Shop shop = ShopOf(kChuck + kJaw + kOwn);
};

TEST_F(CatalogueQuery, FindsAllWordsInAnyCase) {
  EXPECT_THAT(Found("CHUCK"), ElementsAre("Chuck 160", "Own chuck"));
  EXPECT_THAT(Found("chuck 160"), ElementsAre("Chuck 160"));
  EXPECT_THAT(Found("jaw5"), ElementsAre("Soft jaw")) << "the kind";
  EXPECT_THAT(Found("kf-9"), ElementsAre("Soft jaw")) << "the maker data";
  EXPECT_THAT(Found("chuck jaw"), IsEmpty());
}

TEST_F(CatalogueQuery, FindsRangesWithTheirEnds) {
  EXPECT_THAT(Found("A=70..80"), ElementsAre("Chuck 160"));
  EXPECT_THAT(Found("A=..38"), ElementsAre("Soft jaw")) << "an own chuck does not have the letter";
  EXPECT_THAT(Found("B=55"), ElementsAre("Own chuck"));
  EXPECT_THAT(Found("D=24"), ElementsAre("Soft jaw"));
  EXPECT_THAT(Found("A=80.1.."), IsEmpty());
}

TEST_F(CatalogueQuery, FindsFiguresOfTheMaker) {
  EXPECT_THAT(Found("max_speed=4000.."), ElementsAre("Chuck 160"));
  EXPECT_THAT(Found("max_speed=5000.."), IsEmpty());
  EXPECT_THAT(Found("clamp_outside=42"), ElementsAre("Chuck 160"));
  EXPECT_THAT(Found("clamp_outside=170"), IsEmpty());
}

TEST_F(CatalogueQuery, FiltersByKind) {
  EXPECT_THAT(Found("", "jaw"), ElementsAre("Soft jaw"));
  EXPECT_THAT(Found("", "own_chuck"), ElementsAre("Own chuck"));
  EXPECT_THAT(Found("", "jaw1"), IsEmpty());
}

TEST(CatalogueCondition, IsAKeyWithANumberOrARange) {
  for (const char* const text : {"A", "A=", "A=x", "A=9..8", "K=1", "order=5", "A=1..2..3", "=5"})
    EXPECT_FALSE(ConditionOf(text)) << text;
  const auto open = ConditionOf("A=..");
  ASSERT_TRUE(open);
  EXPECT_LT(open->least, -1e300);
}

}  // namespace
}  // namespace vanzet::test

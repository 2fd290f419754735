#include "history/item_changes.h"

#include <gmock/gmock.h>

#include "support/vdm_values.h"

namespace vanzet::history {
namespace {

using test::Get;
using test::Records;
using test::VdmOf;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<ItemChange> Changes(const Records& before, const Records& now) {
  return Get(ItemChanges(VdmOf(before), VdmOf(now)));
}

TEST(ItemChanges, AreNoneBetweenEqualContents) {
  EXPECT_THAT(Changes({}, {}), IsEmpty());
  EXPECT_THAT(Changes({{"a", "b"}, {}}, {{"a", "b"}, {}}), IsEmpty());
}

TEST(ItemChanges, NameTheItemThatDiffers) {
  EXPECT_THAT(Changes({{"a"}, {"b", "c"}}, {{"a"}, {"b", "C"}}), ElementsAre(ItemChange{1, 1, "c", "C"}));
}

TEST(ItemChanges, FindItemsThatCameAndWentAmongOthers) {
  EXPECT_THAT(Changes({{"a", "b", "c"}}, {{"a", "new", "b", "c"}}), ElementsAre(ItemChange{0, 1, {}, "new"}));
  EXPECT_THAT(Changes({{"a", "b", "c"}}, {{"a", "c"}}), ElementsAre(ItemChange{0, 1, "b", {}}));
}

TEST(ItemChanges, PassOverRecordsThatMoved) {
  EXPECT_THAT(Changes({{"a"}, {"b"}, {"c"}}, {{"new"}, {"a"}, {"b"}, {"C"}}),
              ElementsAre(ItemChange{0, 0, {}, "new"}, ItemChange{3, 0, "c", "C"}));
  EXPECT_THAT(Changes({{"gone"}, {"a"}}, {{"a"}}), ElementsAre(ItemChange{0, 0, "gone", {}}));
}

TEST(ItemChanges, TurnTheFormerContentIntoTheNewOne) {
  test::Dice dice(7);
  for (int round = 0; round < 200; ++round) {
    std::vector<std::string> before(dice.UpTo(8)), now(dice.UpTo(8));
    for (auto* const items : {&before, &now}) {
      for (std::string& item : *items) item = std::string(1, static_cast<char>('a' + dice.UpTo(2)));
    }
    std::size_t removed = 0, added = 0;
    for (const ItemChange& change : Changes({before}, {now})) {
      EXPECT_NE(change.before, change.now);
      if (change.now) {
        EXPECT_EQ(now[change.item], *change.now);
      }
      removed += change.before ? 1u : 0u;
      added += change.now ? 1u : 0u;
    }
    EXPECT_EQ(before.size() - removed, now.size() - added) << "the rest is the same";
  }
}

TEST(ItemChanges, ComeToAnEndForLongRecordsWithNothingInCommon) {
  std::vector<std::string> before, now;
  for (int i = 0; i < 20000; ++i) {
    before.push_back("a" + std::to_string(i));
    now.push_back("b" + std::to_string(i));
  }
  EXPECT_EQ(Changes({before}, {now}).size(), 20000u);
}

TEST(ItemChanges, CountRecords) {
  const auto count = [](const Records& before, const Records& now) {
    return Get(CountChangedRecords(VdmOf(before), VdmOf(now)));
  };
  EXPECT_EQ(count({{"a"}}, {{"a"}}), 0u);
  EXPECT_EQ(count({{"a"}, {"b"}}, {{"a"}, {"B"}}), 1u);
  EXPECT_EQ(count({{"a"}, {"b"}}, {{"b"}}), 1u);
  EXPECT_EQ(count({}, {{"a"}, {"b"}}), 2u);
}

}  // namespace
}  // namespace vanzet::history

#include "vdm/record.h"

#include <gtest/gtest.h>

#include "support/vdm_values.h"

namespace vanzet::vdm {
namespace {

using test::Told;
using namespace std::string_literals;

TEST(Item, HasAtMost4999BytesAndNoNul) {
  EXPECT_EQ(Told(CheckItem("")), "");
  EXPECT_EQ(Told(CheckItem(std::string(4999, 'x'))), "");
  EXPECT_EQ(Told(CheckItem(std::string(5000, 'x'))), "an item has 5000 bytes, more than 4999");
  EXPECT_EQ(Told(CheckItem("a\0b"s)), "an item holds a NUL");
}

TEST(RecordBytes, CloseEachItemWithANul) {
  EXPECT_EQ(BytesOf(Record({"100", "", "a b"})), "100\0\0a b\0"s);
  EXPECT_EQ(BytesOf(Record()), "");
}

TEST(RecordBytes, GiveTheRecordBack) {
  test::Dice dice(7);
  for (int round = 0; round < 200; ++round) {
    std::vector<std::string> items(dice.UpTo(20));
    for (std::string& item : items) item = dice.Text(kLongestItem);
    const auto read = RecordFrom(BytesOf(Record(items)), static_cast<std::int64_t>(items.size()));
    ASSERT_EQ(Told(read), "");
    ASSERT_EQ(test::ItemsOf(*read), items);
  }
}

TEST(RecordBytes, AreRefusedWhenTheyHoldNoSuchRecord) {
  EXPECT_EQ(Told(RecordFrom("a\0b\0"s, 1)), "it holds 2 items and not 1");
  EXPECT_EQ(Told(RecordFrom("a\0b\0"s, -1)), "it holds 2 items and not -1");
  EXPECT_EQ(Told(RecordFrom("a\0b"s, 1)), "its last item has no end");
  EXPECT_EQ(Told(RecordFrom("a"s, 0)), "its last item has no end");
  EXPECT_EQ(Told(RecordFrom(std::string(5000, 'x') + '\0', 1)), "an item has 5000 bytes, more than 4999");
}

}  // namespace
}  // namespace vanzet::vdm

#include "vdm/vdm.h"

#include <gtest/gtest.h>

#include "support/vdm_values.h"

namespace vanzet::vdm {
namespace {

using test::Records;
using test::RecordsOf;
using test::Told;
using test::VdmOf;

/// Gives record k the one item "k" and notes which ones were asked for; record 13 cannot be fetched.
struct Source {
  std::vector<std::int64_t> fetched;

  RecordLoader Loader() {
    return [this](RecordKey key) -> Result<Record> {
      const auto number = static_cast<std::int64_t>(key);
      fetched.push_back(number);
      if (number == 13) return Fault{"record 13 is damaged"};
      return Record({std::to_string(number)});
    };
  }
};

TEST(Vdm, FetchesARecordWhenItIsFirstTouchedAndOnlyThen) {
  Source source;
  const Vdm opened({RecordKey{5}, RecordKey{6}, RecordKey{7}}, source.Loader());
  EXPECT_EQ(opened.Size(), 3u);
  EXPECT_TRUE(source.fetched.empty());
  EXPECT_EQ((*test::Get(opened.Read(1)))[0], "6");
  EXPECT_EQ((*test::Get(opened.Read(1)))[0], "6");
  EXPECT_EQ(source.fetched, std::vector<std::int64_t>{6});
}

TEST(Vdm, TellsAFaultEachTimeARecordCannotBeFetched) {
  Source source;
  Vdm opened({RecordKey{13}}, source.Loader());
  EXPECT_EQ(Told(opened.Read(0)), "record 13 is damaged");
  EXPECT_EQ(Told(opened.Edit(0)), "record 13 is damaged");
  EXPECT_EQ(Told(opened.Copy()), "record 13 is damaged");
  EXPECT_FALSE(opened.IsChanged());
}

TEST(Vdm, IsChangedOnlyByEditingInsertingAndRemoving) {
  Source source;
  const std::vector<RecordKey> keys = {RecordKey{5}, RecordKey{6}};
  Vdm read(keys, source.Loader()), edited(keys, source.Loader()), inserted(keys, source.Loader()),
      removed(keys, source.Loader());
  test::Get(read.Read(0));
  test::Get(edited.Edit(0));
  inserted.Insert(0, Record());
  removed.Remove(0, 1);
  EXPECT_FALSE(read.IsChanged());
  EXPECT_TRUE(edited.IsChanged());
  EXPECT_TRUE(inserted.IsChanged());
  EXPECT_TRUE(removed.IsChanged());
}

TEST(Vdm, ThatNoStoreKeepsCountsAsChanged) {
  EXPECT_TRUE(Vdm().IsChanged());
}

TEST(Vdm, KnowsWhichRecordsAStoreMustWrite) {
  Source source;
  Vdm opened({RecordKey{5}, RecordKey{6}, RecordKey{7}}, source.Loader());
  test::Get(opened.Read(0));
  test::Get(opened.Edit(1));
  opened.Insert(3, Record({"new"}));
  EXPECT_FALSE(opened.EntryOf(0).MustBeWritten());
  EXPECT_TRUE(opened.EntryOf(1).MustBeWritten());
  EXPECT_FALSE(opened.EntryOf(2).MustBeWritten());
  EXPECT_TRUE(opened.EntryOf(3).MustBeWritten());
}

TEST(Vdm, CopiesItsContentApartFromTheStore) {
  Source source;
  Vdm opened({RecordKey{5}, RecordKey{6}}, source.Loader());
  Vdm copy = test::Get(opened.Copy());
  (*test::Get(copy.Edit(0)))[0] = "other";
  EXPECT_EQ(RecordsOf(opened), (Records{{"5"}, {"6"}}));
  EXPECT_EQ(RecordsOf(copy), (Records{{"other"}, {"6"}}));
  EXPECT_FALSE(copy.EntryOf(1).key);
}

}  // namespace
}  // namespace vanzet::vdm

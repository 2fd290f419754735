#include "vdm/open_vdm.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <limits>
#include <new>

#include "support/vdm_values.h"

namespace vanzet::vdm {
namespace {

using test::Get;
using test::Records;
using test::RecordsOf;
using test::Told;
using namespace std::string_literals;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

/// An open VDM of two records, with operations that must succeed.
class OpenVdmRules : public testing::Test {
 protected:
  void Stand(std::int64_t record, std::int64_t item) {
    vdm.Seek(record);
    Step(item);
  }
  void Step(std::int64_t count) { EXPECT_EQ(Told(vdm.SingleSeek(count)), ""); }
  std::string Read() { return std::string(Get(vdm.SingleGet())); }
  void Add(std::string_view text) { EXPECT_EQ(Told(vdm.SingleAdd(text)), ""); }
  void Replace(std::string_view text) { EXPECT_EQ(Told(vdm.SingleReplace(text)), ""); }
  void Delete(std::int64_t count) { EXPECT_EQ(Told(vdm.SingleDelete(count)), ""); }
  void Insert(std::string_view text) { EXPECT_EQ(Told(vdm.Insert(text)), ""); }
  Records Content() const { return RecordsOf(vdm.content()); }

  const Records before = {{"a0", "a1", "a2"}, {"b0", "b1"}};
  OpenVdm vdm{test::VdmOf(before)};
};

TEST_F(OpenVdmRules, StandsAtRecord0Item0AtFirst) {
  EXPECT_EQ(vdm.Size(), 2u);
  EXPECT_EQ(Read(), "a0");
}

TEST_F(OpenVdmRules, SeekMakesTheRecordCurrentWithItem0) {
  Stand(1, 1);
  vdm.Seek(1);
  EXPECT_EQ(Read(), "b0");
}

TEST_F(OpenVdmRules, WithoutACurrentRecordReadsAreEmptyAndChangesDoNothing) {
  for (const std::int64_t record : {kLeast, std::int64_t{-1}, std::int64_t{2}, std::int64_t{3}, kMost}) {
    Stand(record, 1);
    EXPECT_EQ(Read(), "");
    Add("x");
    Replace("x");
    Delete(1);
    vdm.Remove(1);
    EXPECT_EQ(Content(), before) << record;
  }
}

TEST_F(OpenVdmRules, InsertPutsARecordOfOneItemBeforeTheCurrentOne) {
  Stand(1, 1);
  Insert("new");
  EXPECT_EQ(Content(), (Records{{"a0", "a1", "a2"}, {"new"}, {"b0", "b1"}}));
  EXPECT_EQ(Read(), "new");
}

TEST_F(OpenVdmRules, InsertAtOnePastTheLastRecordOrBeyondAppends) {
  vdm.Seek(2);
  Insert("last");
  EXPECT_EQ(Read(), "last");
  vdm.Seek(kMost);
  Insert("very last");
  EXPECT_EQ(Read(), "very last");
  EXPECT_EQ(Content(), (Records{{"a0", "a1", "a2"}, {"b0", "b1"}, {"last"}, {"very last"}}));
}

TEST_F(OpenVdmRules, InsertBelowRecord0DoesNothing) {
  vdm.Seek(-1);
  Insert("x");
  EXPECT_EQ(Content(), before);
}

TEST_F(OpenVdmRules, RemoveTakesRecordsAwayAndLaterOnesMoveDown) {
  vdm.Seek(0);
  Step(2);
  vdm.Remove(1);
  EXPECT_EQ(Content(), (Records{{"b0", "b1"}}));
  EXPECT_EQ(Read(), "b0");
}

TEST_F(OpenVdmRules, RemoveTakesAsManyRecordsAsThereAre) {
  vdm.Seek(1);
  vdm.Remove(kMost);
  EXPECT_EQ(Content(), (Records{{"a0", "a1", "a2"}}));
}

TEST_F(OpenVdmRules, RemoveOfNoneOrFewerDoesNothing) {
  vdm.Remove(0);
  vdm.Remove(-1);
  EXPECT_EQ(Content(), before);
}

TEST_F(OpenVdmRules, SingleSeekCountsFromWhereThePositionStands) {
  Step(1);
  EXPECT_EQ(Read(), "a1");
  vdm.Seek(0);
  Step(1);
  Step(1);
  EXPECT_EQ(Read(), "a2");
}

TEST_F(OpenVdmRules, SingleSeekNeverMovesBack) {
  Stand(0, 1);
  Step(-1);
  Step(kLeast);
  Step(0);
  EXPECT_EQ(Read(), "a1");
}

TEST_F(OpenVdmRules, SingleSeekGoesOnePastTheLastItemAtMost) {
  Stand(0, kMost);
  Step(kMost);
  EXPECT_EQ(Read(), "");
  Add("a3");
  EXPECT_EQ(Content()[0], (std::vector<std::string>{"a0", "a1", "a2", "a3"}));
}

TEST_F(OpenVdmRules, SingleGetStepsBehindTheItem) {
  vdm.Seek(1);
  EXPECT_EQ(Read(), "b0");
  EXPECT_EQ(Read(), "b1");
  EXPECT_EQ(Read(), "");
  EXPECT_EQ(Read(), "");
}

TEST_F(OpenVdmRules, SingleAddPutsItemsBeforeThePositionInOrder) {
  Stand(0, 1);
  Add("x");
  Add("y");
  EXPECT_EQ(Content()[0], (std::vector<std::string>{"a0", "x", "y", "a1", "a2"}));
  EXPECT_EQ(Read(), "a1");
}

TEST_F(OpenVdmRules, SingleReplaceLeavesThePosition) {
  Stand(0, 1);
  Replace("x");
  Replace("y");
  EXPECT_EQ(Content()[0], (std::vector<std::string>{"a0", "y", "a2"}));
  EXPECT_EQ(Read(), "y");
}

TEST_F(OpenVdmRules, SingleReplacePastTheLastItemDoesNothing) {
  Stand(0, 3);
  Replace("x");
  EXPECT_EQ(Content(), before);
}

TEST_F(OpenVdmRules, SingleDeleteTakesItemsFromThePositionOn) {
  Stand(0, 1);
  Delete(1);
  EXPECT_EQ(Content()[0], (std::vector<std::string>{"a0", "a2"}));
  EXPECT_EQ(Read(), "a2");
}

TEST_F(OpenVdmRules, SingleDeleteOfNoneOrFewerDoesNothing) {
  Delete(0);
  Delete(-1);
  Delete(kLeast);
  EXPECT_EQ(Content(), before);
}

TEST_F(OpenVdmRules, SingleDeleteTakesAsManyItemsAsThereAre) {
  Stand(0, 1);
  Delete(kMost);
  EXPECT_EQ(Content()[0], std::vector<std::string>{"a0"});
  EXPECT_EQ(Read(), "");
}

TEST_F(OpenVdmRules, ATextThatIsNoItemIsRefusedAndChangesNothing) {
  for (const std::string& text : {std::string(5000, 'x'), "a\0b"s}) {
    Stand(0, 1);
    EXPECT_FALSE(vdm.SingleAdd(text));
    EXPECT_FALSE(vdm.SingleReplace(text));
    EXPECT_EQ(Read(), "a1");
    EXPECT_FALSE(vdm.Insert(text));
    EXPECT_EQ(Content(), before);
  }
}

TEST_F(OpenVdmRules, TheLongestItemFits) {
  const std::string longest(kLongestItem, 'x');
  Add(longest);
  vdm.Seek(0);
  EXPECT_EQ(Read(), longest);
}

TEST_F(OpenVdmRules, AnEmptyVdmTakesItsFirstRecordAtOnce) {
  vdm = OpenVdm(Vdm());
  Add("no record yet");
  Insert("first");
  Add("before it");
  EXPECT_EQ(Content(), (Records{{"before it", "first"}}));
}

TEST(OpenVdm, WritingWhatStandsThereAlreadyChangesNothing) {
  OpenVdm vdm(Vdm({RecordKey{1}}, [](RecordKey) -> Result<Record> { return Record({"same"}); }));
  EXPECT_TRUE(vdm.SingleReplace("same"));
  EXPECT_TRUE(vdm.SingleDelete(0));
  EXPECT_FALSE(vdm.content().IsChanged());
  EXPECT_TRUE(vdm.SingleReplace("other"));
  EXPECT_TRUE(vdm.content().IsChanged());
}

TEST(OpenVdm, TellsWhenTheCurrentRecordCannotBeFetched) {
  OpenVdm vdm(Vdm({RecordKey{1}}, [](RecordKey) -> Result<Record> { return Fault{"damaged"}; }));
  EXPECT_EQ(Told(vdm.SingleSeek(1)), "damaged");
  EXPECT_EQ(Told(vdm.SingleGet()), "damaged");
  EXPECT_EQ(Told(vdm.SingleAdd("x")), "damaged");
  EXPECT_EQ(Told(vdm.SingleReplace("x")), "damaged");
  EXPECT_EQ(Told(vdm.SingleDelete(1)), "damaged");
  EXPECT_FALSE(vdm.content().IsChanged());
}

#ifndef __SANITIZE_ADDRESS__  // whose own memory is beyond any limit
void LimitMemory(rlim_t bytes) {
  rlimit limit;
  getrlimit(RLIMIT_AS, &limit);
  limit.rlim_cur = bytes;
  setrlimit(RLIMIT_AS, &limit);
}

rlim_t MemoryInUse() {
  rlim_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

/// Adds items until memory runs out for the list of them, and one when there is some again.
void AddBeyondTheMemory(OpenVdm& vdm) {
  constexpr rlim_t kRoom = 16U << 20U;
  LimitMemory(MemoryInUse() + kRoom);
  try {
    while (vdm.SingleAdd("x")) continue;
  } catch (const std::bad_alloc&) {
  }
  LimitMemory(RLIM_INFINITY);
  std::_Exit(vdm.SingleAdd("x") ? 0 : 1);
}

TEST_F(OpenVdmRules, WhatThereWasNoMemoryForLeavesNoHole) {
  Stand(0, 3);
  EXPECT_EXIT(AddBeyondTheMemory(vdm), testing::ExitedWithCode(0), "");
}
#endif

}  // namespace
}  // namespace vanzet::vdm

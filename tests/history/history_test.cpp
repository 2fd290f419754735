#include "history/history.h"

#include <gmock/gmock.h>

#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::history {
namespace {

using test::Get;
using test::Records;
using test::RecordsOf;
using test::Told;
using test::VdmOf;
using testing::ElementsAre;
using testing::IsEmpty;
using vdm::Number;

class HistoryOfAProject : public testing::Test {
 protected:
  void Write(std::int64_t number, const Records& records) {
    ASSERT_EQ(Told(store.Replace(number, VdmOf(records))), "");
    ASSERT_EQ(Told(store.Commit("test")), "");
  }
  Records Read(std::int64_t number) { return RecordsOf(Get(store.Snapshot(number))); }

  /// "3 VDM 1: created".
  std::vector<std::string> Listed(std::optional<Number> only = {}) {
    std::vector<std::string> lines;
    for (const Entry& entry : Get(history.List(only))) {
      std::string line = std::to_string(entry.change.generation.number) + " " + NameOf(entry.change.vdm);
      for (const std::string& words : entry.words) line += ": " + words;
      lines.push_back(line);
    }
    return lines;
  }

  const test::TemporaryFolder folder;
  vdm::VdmStore store{folder.path()};
  History history{store};
};

TEST_F(HistoryOfAProject, ListsWhatEachGenerationChangedTheNewestFirst) {
  EXPECT_THAT(Listed(), IsEmpty());
  EXPECT_EQ(Get(history.Last()), 0);
  Write(1, {{"a"}, {"b"}});
  Write(2, {{"c"}});
  Write(1, {{"a"}, {"B"}});
  Write(1, {{"a"}, {"B"}});
  ASSERT_EQ(Told(store.Delete(2)), "");
  ASSERT_EQ(Told(store.Commit("test")), "");
  EXPECT_THAT(Listed(), ElementsAre("5 VDM 2: removed", "4 VDM 1", "3 VDM 1: 1 record of other data",
                                    "2 VDM 2: created", "1 VDM 1: created"));
  EXPECT_THAT(Listed(Number{2}), ElementsAre("5 VDM 2: removed", "2 VDM 2: created"));
  EXPECT_EQ(Get(history.Last()), 5);
  EXPECT_EQ(Get(history.Last(Number{1})), 4);
}

TEST_F(HistoryOfAProject, SaysWhereOlderStatesAreNoLongerKept) {
  store.KeepGenerations(2);
  for (const char* const text : {"a", "b", "c"}) Write(1, {{text}});
  EXPECT_THAT(Listed(),
              ElementsAre("3 VDM 1: 1 record of other data", "2 VDM 1: older states are no longer kept"));
}

TEST_F(HistoryOfAProject, ListsNoMoreThanIsToBeKept) {
  for (int i = 0; i < 20; ++i) Write(1, {{std::to_string(i)}});
  store.KeepGenerations(16);
  EXPECT_EQ(Listed().size(), 16u);
  EXPECT_EQ(Listed().back(), "5 VDM 1: 1 record of other data");
}

TEST_F(HistoryOfAProject, ListsTheNewestGenerationsWithTheSameWords) {
  Write(1, {{"a"}});
  Write(2, {{"x"}});
  for (const char* const text : {"b", "c"}) Write(1, {{text}});
  ASSERT_EQ(Told(store.Replace(1, VdmOf({{"d"}}))), "");
  Write(2, {{"y"}});
  const auto numbersOf = [](const std::vector<Entry>& entries) {
    std::vector<std::int64_t> numbers;
    for (const Entry& entry : entries) numbers.push_back(entry.change.generation.number);
    return numbers;
  };
  const auto all = Get(history.List());
  const auto newest = Get(history.List({}, 2));
  EXPECT_THAT(numbersOf(newest), ElementsAre(5, 5, 4)) << "both VDMs of a generation";
  for (std::size_t i = 0; i < newest.size(); ++i) EXPECT_EQ(newest[i].words, all[i].words);
  EXPECT_THAT(numbersOf(Get(history.List(Number{1}, 1))), ElementsAre(5));
  EXPECT_THAT(Get(history.List({}, 0)), IsEmpty());
}

TEST_F(HistoryOfAProject, RestoresAStateAsANewGeneration) {
  Write(1, {{"a"}});
  Write(2, {{"later"}});
  Write(1, {{"b"}});
  EXPECT_EQ(Get(history.Restore(1)).size(), 2u);
  EXPECT_EQ(Read(1), Records{{"a"}});
  EXPECT_FALSE(Get(store.Exists(2)));
  store.Discard();
  EXPECT_EQ(Read(1), Records{{"b"}}) << "nothing is kept before the commit";

  Get(history.Restore(1));
  ASSERT_EQ(Told(store.Commit("restore")), "");
  EXPECT_EQ(Get(history.Last()), 4);
  EXPECT_EQ(Read(1), Records{{"a"}});
  Get(history.Restore(3));
  ASSERT_EQ(Told(store.Commit("restore")), "");
  EXPECT_EQ(Read(1), Records{{"b"}});
  EXPECT_EQ(Read(2), Records{{"later"}});
}

TEST_F(HistoryOfAProject, RestoresOneVdmAndLeavesTheOthers) {
  Write(1, {{"a"}});
  Write(2, {{"x"}});
  Write(1, {{"b"}});
  Write(2, {{"y"}});
  EXPECT_EQ(Get(history.Restore(2, Number{1})).size(), 1u);
  EXPECT_EQ(Read(1), Records{{"a"}});
  EXPECT_EQ(Read(2), Records{{"y"}});
}

TEST_F(HistoryOfAProject, RestoresNothingWhileAVdmIsOpen) {
  Write(1, {{"a"}});
  Write(1, {{"b"}});
  const auto open = Get(store.Open(1));
  EXPECT_EQ(history.Restore(1).fault().kind, FaultKind::kBusy);
  store.Close(open);
  EXPECT_EQ(Read(1), Records{{"b"}});
}

TEST_F(HistoryOfAProject, ComparesTwoGenerations) {
  Write(1, {{"a"}});
  Write(2, {{"x"}});
  Write(1, {{"b"}});
  Write(1, {{"a"}});
  const auto differences = Get(history.Compare(1, 3));
  ASSERT_EQ(differences.size(), 2u);
  EXPECT_EQ(RecordsOf(*differences[0].before), Records{{"a"}});
  EXPECT_EQ(RecordsOf(*differences[0].now), Records{{"b"}});
  EXPECT_FALSE(differences[1].before);
  EXPECT_THAT(Get(history.Compare(2, 4)), IsEmpty());
  EXPECT_EQ(history.Compare(1, 9).fault().kind, FaultKind::kMissing);
}

}  // namespace
}  // namespace vanzet::history

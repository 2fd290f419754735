#include "vdm/store_engine.h"

#include <gtest/gtest.h>

#include "support/engine_calls.h"
#include "support/memory_engine.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"
#include "vdm/sqlite_engine.h"

namespace vanzet::vdm {
namespace {

using test::Get;
using test::Records;
using test::RecordsOf;
using test::Told;
using test::VdmOf;

/// A kind of engine: how one is made in a folder of the test's own.
struct Kind {
  std::string name;
  std::unique_ptr<StoreEngine> (*make)(const std::filesystem::path& folder);

  friend void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }
};

/// What every engine has to do.
class EveryEngine : public testing::TestWithParam<Kind> {
 protected:
  void Write(std::uint32_t number, const Vdm& content) {
    ASSERT_EQ(Told(test::WriteTo(*engine, number, content)), "");
  }
  Vdm Open(std::uint32_t number) { return std::move(*Get(engine->Open(Number{number}))); }
  Records Read(std::uint32_t number) {
    return RecordsOf(Get(engine->Read({Number{number}})).at(Number{number}));
  }

  test::TemporaryFolder folder;
  std::unique_ptr<StoreEngine> engine = GetParam().make(folder.path());
};

INSTANTIATE_TEST_SUITE_P(
    Engines, EveryEngine,
    testing::Values(Kind{"Memory",
                         [](const std::filesystem::path&) -> std::unique_ptr<StoreEngine> {
                           return std::make_unique<test::MemoryEngine>();
                         }},
                    Kind{"Sqlite",
                         [](const std::filesystem::path& folder) -> std::unique_ptr<StoreEngine> {
                           return std::make_unique<SqliteEngine>(folder / "store.db");
                         }}),
    [](const auto& kind) { return kind.param.name; });

TEST_P(EveryEngine, IsEmptyAtFirst) {
  EXPECT_TRUE(Get(engine->Numbers()).empty());
  EXPECT_FALSE(Get(engine->Exists(Number{1})));
  EXPECT_FALSE(Get(engine->Open(Number{1})));
  EXPECT_TRUE(Get(engine->Read({Number{1}})).empty());
  EXPECT_EQ(Told(test::RemoveFrom(*engine, 1)), "");
}

TEST_P(EveryEngine, KeepsWhatWasWritten) {
  const Records records = {{"100", "", "a\nb\\c\xFF"}, {}, {std::string(kLongestItem, 'x')}};
  Write(1000, VdmOf(records));
  EXPECT_EQ(Read(1000), records);
  EXPECT_EQ(RecordsOf(Open(1000)), records);
}

TEST_P(EveryEngine, ReadsTheHeadsOfLongRecordsAndShortRecordsWhole) {
  const std::string item(999, 'x');  // and its end: 1000 bytes
  Write(1000, VdmOf({{"short", "record"}, {}, std::vector<std::string>(100, item)}));
  const auto heads = Get(engine->ReadHeads({Number{5}, Number{1000}}));
  ASSERT_EQ(heads.size(), 1U);
  const RecordHeads& head = heads.at(Number{1000});
  ASSERT_EQ(head.size(), 3U);
  EXPECT_EQ(head[0].items, 2U);
  ASSERT_EQ(head[0].first.Size(), 2U);
  EXPECT_EQ(head[0].first[1], "record");
  EXPECT_EQ(head[1].first.Size(), 0U);
  EXPECT_EQ(head[2].items, 100U);
  ASSERT_EQ(head[2].first.Size(), kHeadBytes / 1000);
  EXPECT_EQ(head[2].first[kHeadBytes / 1000 - 1], item);
}

TEST_P(EveryEngine, KeepsAVdmWithoutRecords) {
  Write(5, Vdm());
  EXPECT_TRUE(Get(engine->Exists(Number{5})));
  EXPECT_EQ(Read(5), Records{});
}

TEST_P(EveryEngine, TakesTheFirstAndTheLastNumberAndListsThemRising) {
  for (const std::uint32_t number : {0x7FFFFFFFu, 0u, 1000u}) Write(number, Vdm());
  EXPECT_EQ(Get(engine->Numbers()), (std::vector<Number>{Number{0}, Number{1000}, Number{0x7FFFFFFF}}));
}

TEST_P(EveryEngine, PutsTheNewContentInThePlaceOfTheOld) {
  Write(1, VdmOf({{"old"}, {"older"}}));
  Write(1, VdmOf({{"new"}}));
  EXPECT_EQ(Read(1), Records{{"new"}});
}

TEST_P(EveryEngine, KeepsNumbersApart) {
  Write(1, VdmOf({{"one"}}));
  Write(2, VdmOf({{"two"}}));
  EXPECT_EQ(Told(test::RemoveFrom(*engine, 1)), "");
  EXPECT_FALSE(Get(engine->Exists(Number{1})));
  EXPECT_EQ(Read(2), Records{{"two"}});
}

TEST_P(EveryEngine, WritesAnOpenedVdmBackWithItsChanges) {
  Write(1, VdmOf({{"a"}, {"b"}, {"c"}, {"d"}}));
  Vdm opened = Open(1);
  (*Get(opened.Edit(2)))[0] = "C";
  opened.Insert(1, Record({"new"}));
  opened.Remove(4, 1);
  Write(1, opened);
  EXPECT_EQ(Read(1), (Records{{"a"}, {"new"}, {"b"}, {"C"}}));
}

TEST_P(EveryEngine, GivesACopyThatLaterWritesDoNotReach) {
  Write(1, VdmOf({{"old"}}));
  const Vdm copy = Get(engine->Read({Number{1}})).at(Number{1});
  Write(1, VdmOf({{"new"}}));
  EXPECT_EQ(RecordsOf(copy), Records{{"old"}});
  Write(2, copy);
  EXPECT_EQ(Read(2), Records{{"old"}});
}

TEST_P(EveryEngine, RefusesAnOpenedVdmWhoseRecordsAreGone) {
  Write(1, VdmOf({{"old"}}));
  Vdm opened = Open(1);
  opened.Insert(0, Record({"mine"}));
  Write(1, VdmOf({}));
  EXPECT_NE(Told(test::WriteTo(*engine, 1, opened)), "");
  EXPECT_EQ(Read(1), Records{});
}

TEST_P(EveryEngine, ChangesAllVdmsOfARunOrNone) {
  Write(1, VdmOf({{"old"}}));
  Write(2, VdmOf({{"gone"}}));
  Vdm stale = Open(1);
  stale.Insert(0, Record({"mine"}));
  Write(1, VdmOf({{"newer"}}));
  Changes changes;
  changes.emplace(Number{0}, VdmOf({{"made"}}));
  changes.emplace(Number{1}, stale);
  changes.emplace(Number{2}, std::nullopt);
  const std::string occasion = "test";
  EXPECT_NE(Told(engine->Apply({changes, nullptr, occasion, {}})), "");
  EXPECT_EQ(Get(engine->Numbers()), (std::vector<Number>{Number{1}, Number{2}}));
  changes.at(Number{1}) = VdmOf({{"mine"}});
  EXPECT_EQ(Told(engine->Apply({changes, nullptr, occasion, {}})), "");
  EXPECT_EQ(Get(engine->Numbers()), (std::vector<Number>{Number{0}, Number{1}}));
  EXPECT_EQ(Read(1), Records{{"mine"}});
}

TEST_P(EveryEngine, GivesUpACommitWhoseLastStepFails) {
  Write(1, VdmOf({{"old"}}));
  Changes changes;
  changes.emplace(Number{1}, VdmOf({{"new"}}));
  const std::string occasion = "test";
  const LastStep fails = [] { return Fault{"standard output cannot be written"}; };
  EXPECT_EQ(Told(engine->Apply({changes, nullptr, occasion, fails})), "standard output cannot be written");
  EXPECT_EQ(Read(1), Records{{"old"}});
}

TEST_P(EveryEngine, KeepsTheTextFileOfACommitUntilItIsFinished) {
  EXPECT_FALSE(Get(engine->UnfinishedFile()));
  const TextFile file{"drawing.txt", "new", 4711};
  const Changes changes;
  const std::string occasion = "test";
  EXPECT_EQ(Told(engine->Apply({changes, &file, occasion, {}})), "");
  const auto unfinished = Get(engine->UnfinishedFile());
  ASSERT_TRUE(unfinished);
  EXPECT_EQ(unfinished->name, "drawing.txt");
  EXPECT_EQ(unfinished->content, "new");
  EXPECT_EQ(unfinished->former, std::uint64_t{4711});
  EXPECT_EQ(Told(engine->FinishFile()), "");
  EXPECT_FALSE(Get(engine->UnfinishedFile()));
}

/// Does one thing, chosen by the dice, to both.
void Change(test::Dice& dice, Vdm& content, Records& model) {
  const std::size_t at = dice.UpTo(model.size());
  const std::vector<std::string> items(dice.UpTo(3), dice.Text(100));
  const auto place = model.begin() + static_cast<std::ptrdiff_t>(at);
  switch (dice.UpTo(2)) {
    case 0:
      content.Insert(at, Record(items));
      model.insert(place, items);
      break;
    case 1:
      if (at == model.size()) break;
      content.Remove(at, 1);
      model.erase(place);
      break;
    default:
      if (at == model.size()) break;
      *Get(content.Edit(at)) = Record(items);
      model[at] = items;
  }
}

TEST_P(EveryEngine, FollowsAnyRowOfChanges) {
  test::Dice dice(11);
  Records model;
  Write(1, Vdm());
  for (int round = 0; round < 60; ++round) {
    Vdm opened = Open(1);
    for (std::size_t changes = dice.UpTo(6); changes > 0; --changes) Change(dice, opened, model);
    Write(1, opened);
    ASSERT_EQ(Read(1), model) << "round " << round;
  }
}

}  // namespace
}  // namespace vanzet::vdm

#include "vdm/store_engine.h"

#include <gmock/gmock.h>

#include "support/engine_calls.h"
#include "support/memory_engine.h"
#include "support/temporary_folder.h"
#include "support/test_server.h"
#include "support/vdm_values.h"
#include "vdm/embedded/engine.h"

namespace vanzet::vdm {
namespace {

using test::Get;
using test::Records;
using test::RecordsOf;
using test::Told;
using test::VdmOf;
using testing::ElementsAre;

/// A kind of engine: how one is made in a folder of the test's own.
struct Kind {
  std::string name;
  std::unique_ptr<StoreEngine> (*make)(const std::filesystem::path& folder);

  friend void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }
};

/// What every engine has to do.
class EveryEngine : public testing::TestWithParam<Kind> {
 protected:
  void SetUp() override {
    if (GetParam().name == "Postgres" && test::ServerText().empty()) GTEST_SKIP() << test::kNoServer;
  }
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
                         }},
                    Kind{"Postgres",
                         [](const std::filesystem::path&) -> std::unique_ptr<StoreEngine> {
                           return std::make_unique<PostgresEngine>(test::ServerText(), test::NewProject());
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

// The history of an engine.

/// "3 vdm 1 occasion", and "removed" after it.
std::vector<std::string> Listed(const std::vector<VdmChange>& changes) {
  std::vector<std::string> lines;
  for (const VdmChange& change : changes) {
    lines.push_back(std::to_string(change.generation.number) + " " + NameOf(change.vdm) + " " +
                    change.generation.occasion + (change.isRemoval ? " removed" : ""));
  }
  return lines;
}

/// The records of all VDMs, by their numbers.
std::map<std::uint32_t, Records> Contents(const std::map<Number, Vdm>& vdms) {
  std::map<std::uint32_t, Records> contents;
  for (const auto& [number, vdm] : vdms) contents[static_cast<std::uint32_t>(number)] = RecordsOf(vdm);
  return contents;
}
using AllRecords = std::map<std::uint32_t, Records>;

TEST_P(EveryEngine, NumbersItsCommitsFromOneAndListsWhatTheyChanged) {
  Write(1, VdmOf({{"a"}}));
  Changes changes;
  changes.emplace(Number{1}, VdmOf({{"b"}}));
  changes.emplace(Number{2}, VdmOf({{"c"}}));
  const std::string occasion = "define";
  ASSERT_EQ(Told(engine->Apply({changes, nullptr, occasion, {}})), "");
  ASSERT_EQ(Told(test::RemoveFrom(*engine, 1)), "");
  ASSERT_EQ(Told(test::RemoveFrom(*engine, 7)), "");
  Write(1, VdmOf({}));
  EXPECT_THAT(Listed(Get(engine->ListChanges({}))),
              ElementsAre("1 VDM 1 test", "2 VDM 1 define", "2 VDM 2 define", "3 VDM 1 test removed",
                          "5 VDM 1 test"));
  EXPECT_THAT(Listed(Get(engine->ListChanges(Number{2}))), ElementsAre("2 VDM 2 define"));
  EXPECT_THAT(Listed(Get(engine->ListChanges(Number{9}))), ElementsAre());
}

TEST_P(EveryEngine, MakesAGenerationOfACommitThatChangesNoRecord) {
  Write(1, VdmOf({{"a"}}));
  Write(1, VdmOf({{"a"}}));
  EXPECT_EQ(Get(engine->ListChanges({})).size(), 2u);
}

TEST_P(EveryEngine, ReadsTheStateAfterEachGeneration) {
  Write(1, VdmOf({{"a"}, {"b"}}));
  Write(2, VdmOf({{"other"}}));
  Write(1, VdmOf({{"b"}, {"new"}, {"a"}}));
  ASSERT_EQ(Told(test::RemoveFrom(*engine, 1)), "");
  EXPECT_EQ(Contents(Get(engine->ReadAt(1, {}))), (AllRecords{{1, {{"a"}, {"b"}}}}));
  EXPECT_EQ(Contents(Get(engine->ReadAt(2, {}))), (AllRecords{{1, {{"a"}, {"b"}}}, {2, {{"other"}}}}));
  EXPECT_EQ(Contents(Get(engine->ReadAt(3, Number{1}))), (AllRecords{{1, {{"b"}, {"new"}, {"a"}}}}));
  EXPECT_EQ(Contents(Get(engine->ReadAt(4, {}))), (AllRecords{{2, {{"other"}}}}));
}

TEST_P(EveryEngine, HasNoStateOfAGenerationThatNeverWas) {
  EXPECT_EQ(engine->ReadAt(1, {}).fault().kind, FaultKind::kMissing);
  Write(1, VdmOf({{"a"}}));
  for (const std::int64_t generation : {-1, 0, 2}) {
    EXPECT_EQ(engine->ReadAt(generation, {}).fault().kind, FaultKind::kMissing) << generation;
  }
}

TEST_P(EveryEngine, GivesUpTheGenerationOfACommitThatFails) {
  Write(1, VdmOf({{"old"}}));
  Changes changes;
  changes.emplace(Number{1}, VdmOf({{"new"}}));
  const std::string occasion = "test";
  EXPECT_FALSE(engine->Apply({changes, nullptr, occasion, [] { return Fault{"no"}; }}));
  EXPECT_EQ(Get(engine->ListChanges({})).size(), 1u);
  EXPECT_FALSE(engine->ReadAt(2, {}));
}

TEST_P(EveryEngine, ForgetsTheStatesThatNeedNotBeKept) {
  const std::string occasion = "test";
  Write(2, VdmOf({{"stays"}}));
  for (int i = 2; i <= 6; ++i) {
    Changes changes;
    changes.emplace(Number{1}, VdmOf({{std::to_string(i)}, {"same"}}));
    ASSERT_EQ(Told(engine->Apply({changes, nullptr, occasion, {}, 3})), "");
  }
  EXPECT_THAT(Listed(Get(engine->ListChanges({}))),
              ElementsAre("1 VDM 2 test", "4 VDM 1 test", "5 VDM 1 test", "6 VDM 1 test"));
  EXPECT_EQ(Contents(Get(engine->ReadAt(4, {}))), (AllRecords{{1, {{"4"}, {"same"}}}, {2, {{"stays"}}}}));
  EXPECT_EQ(engine->ReadAt(3, {}).fault().kind, FaultKind::kMissing);
  EXPECT_EQ(Contents(Get(engine->ReadAt(1, Number{2}))), (AllRecords{{2, {{"stays"}}}}));
}

TEST_P(EveryEngine, KeepsNoneButTheLastGenerationWhenNoneIsWanted) {
  const std::string occasion = "test";
  const auto apply = [&](const std::optional<Vdm>& content) {
    Changes changes;
    changes.emplace(Number{1}, content);
    ASSERT_EQ(Told(engine->Apply({changes, nullptr, occasion, {}, 0})), "");
  };
  apply(VdmOf({{"a"}}));
  apply(VdmOf({{"b"}}));
  EXPECT_THAT(Listed(Get(engine->ListChanges({}))), ElementsAre("2 VDM 1 test"));
  EXPECT_EQ(Read(1), Records{{"b"}});
  apply(std::nullopt);
  EXPECT_THAT(Listed(Get(engine->ListChanges({}))), ElementsAre("3 VDM 1 test removed"));
  EXPECT_EQ(engine->ReadAt(2, {}).fault().kind, FaultKind::kMissing);
  EXPECT_EQ(Contents(Get(engine->ReadAt(3, {}))), AllRecords{});
}

/// The generations that a visit shows, with the contents.
std::vector<std::pair<std::string, AllRecords>> Visited(StoreEngine& engine, std::optional<Number> only) {
  std::vector<std::pair<std::string, AllRecords>> visited;
  EXPECT_EQ(Told(engine.Visit(only,
                              [&](const PastGeneration& past) -> Result<void> {
                                auto& [line, contents] = visited.emplace_back();
                                line = std::to_string(past.generation.number) + past.generation.time +
                                       past.generation.user + past.generation.occasion;
                                for (const Number cut : past.cut) line += " cut " + NameOf(cut);
                                for (const auto& [number, vdm] : past.vdms) {
                                  if (!vdm) line += " removes " + NameOf(number);
                                  if (vdm) contents[static_cast<std::uint32_t>(number)] = RecordsOf(*vdm);
                                }
                                return {};
                              })),
            "");
  return visited;
}

TEST_P(EveryEngine, VisitsTheGenerationsInTheirOrder) {
  Write(1, VdmOf({{"a"}, {"b"}}));
  Write(2, VdmOf({{"other"}}));
  Write(1, VdmOf({{"new"}, {"a"}}));
  ASSERT_EQ(Told(test::RemoveFrom(*engine, 1)), "");
  const auto all = Visited(*engine, {}), one = Visited(*engine, Number{1});
  ASSERT_EQ(all.size(), 4u);
  EXPECT_EQ(all[0].second, (AllRecords{{1, {{"a"}, {"b"}}}}));
  EXPECT_EQ(all[1].second, (AllRecords{{2, {{"other"}}}}));
  EXPECT_EQ(all[2].second, (AllRecords{{1, {{"new"}, {"a"}}}}));
  EXPECT_THAT(all[3].first, testing::EndsWith("test removes VDM 1"));
  ASSERT_EQ(one.size(), 3u);
  EXPECT_EQ(one[1].second, all[2].second);
}

TEST_P(EveryEngine, EndsAVisitWithTheFaultOfTheVisitor) {
  Write(1, VdmOf({}));
  Write(1, VdmOf({}));
  int visits = 0;
  EXPECT_EQ(Told(engine->Visit({},
                               [&](const PastGeneration&) -> Result<void> {
                                 ++visits;
                                 return Fault{"enough"};
                               })),
            "enough");
  EXPECT_EQ(visits, 1);
}

/// All generations of a store.
GenerationSource SourceOf(StoreEngine& engine) {
  return [&engine](const GenerationVisitor& visitor) { return engine.Visit({}, visitor); };
}

TEST_P(EveryEngine, IsTheSameAfterACopyThroughEachOtherEngine) {
  const std::string occasion = "test";
  for (int i = 1; i <= 7; ++i) {
    Changes changes;
    changes.emplace(Number{1}, VdmOf({{"same"}, {std::to_string(i)}}));
    if (i % 2 == 1) changes.emplace(Number{2}, i == 5 ? std::nullopt : std::optional(VdmOf({{"x"}})));
    ASSERT_EQ(Told(engine->Apply({changes, nullptr, occasion, {}, 4})), "");
  }
  test::MemoryEngine memory;
  SqliteEngine sqlite(folder / "copy.db");
  ASSERT_EQ(Told(memory.Fill(SourceOf(*engine))), "");
  ASSERT_EQ(Told(sqlite.Fill(SourceOf(memory))), "");
  EXPECT_EQ(Visited(sqlite, {}), Visited(*engine, {}));
  EXPECT_EQ(Contents(Get(sqlite.ReadAt(4, {}))), Contents(Get(engine->ReadAt(4, {}))));
  EXPECT_EQ(sqlite.ReadAt(3, {}).fault().kind, FaultKind::kMissing);
  EXPECT_NE(Told(sqlite.Fill(SourceOf(*engine))), "") << "it is not empty";
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
  std::vector<Records> past = {model};
  Write(1, Vdm());
  for (int round = 0; round < 60; ++round) {
    Vdm opened = Open(1);
    for (std::size_t changes = dice.UpTo(6); changes > 0; --changes) Change(dice, opened, model);
    Write(1, opened);
    ASSERT_EQ(Read(1), model) << "round " << round;
    past.push_back(model);
  }
  for (std::size_t i = 0; i < past.size(); ++i) {
    const auto generation = static_cast<std::int64_t>(i) + 1;
    EXPECT_EQ(RecordsOf(Get(engine->ReadAt(generation, Number{1})).at(Number{1})), past[i]) << generation;
  }
}

}  // namespace
}  // namespace vanzet::vdm

#include <thread>

#include "vdm/server_store.h"

namespace vanzet::vdm {
namespace {

using std::chrono::seconds;

/// A store whose way to the server is spoiled by a proxy.
class BrokenWay : public ServerStore {
 protected:
  void SetUp() override {
    ServerStore::SetUp();
    if (!IsSkipped()) proxy.emplace(text);
  }

  VdmStore StoreBehindProxy() {
    auto engine = std::make_unique<PostgresEngine>(proxy->Text(), "lathe");
    auto locks = engine->Locks();
    VdmStore store(std::move(engine), std::move(locks), folder.path());
    store.WaitAtMost(seconds(60));
    return store;
  }

  /// Writes a number into VDM 1, as the first thing that a program does.
  Result<void> WriteNumber(std::size_t number) {
    VdmStore store = StoreBehindProxy();
    VANZET_DO(store.Replace(1, VdmOf({{std::to_string(number)}})));
    return store.Commit("test");
  }

  /// Writes again and again, each time with connections that are cut later, until they are not cut any more.
  /// Returns how often a write was disturbed.
  int WriteWithCuts(std::size_t step, const std::function<void()>& beforeEach) {
    for (std::size_t bytes = 0;; bytes += step) {
      beforeEach();
      proxy->CutNext(3, bytes);
      const std::int64_t before = Generations();
      EXPECT_EQ(Told(WriteNumber(bytes)), "") << "cut after " << bytes << " bytes";
      EXPECT_EQ(Generations(), before + 1) << "cut after " << bytes << " bytes";
      const int left = proxy->LeftToSpoil();
      proxy->CutNext(0, 0);
      if (left == 2 || HasFailure()) return static_cast<int>(bytes / step);
    }
  }

  std::int64_t Generations() {
    if (Count("SELECT count(*) FROM pg_namespace WHERE nspname='vanzet'") == 0) return 0;
    return Count("SELECT coalesce(max(last_generation), 0)::bigint FROM vanzet.project");
  }

  std::optional<ServerProxy> proxy;
};

TEST_F(BrokenWay, IsWrittenOnceWhereverTheFirstConnectionsAreCut) {
  Write(1, {{"a"}});
  EXPECT_GT(WriteWithCuts(41, [] {}), 50);
}

TEST_F(BrokenWay, IsMadeOnceWhereverTheFirstConnectionsAreCut) {
  EXPECT_GT(WriteWithCuts(307, [&] { Sql(text, "DROP SCHEMA IF EXISTS vanzet CASCADE"); }), 10);
}

/// Generations and their contents, a line each.
std::vector<std::string> LinesOf(PostgresEngine& engine) {
  std::vector<std::string> lines;
  EXPECT_EQ(Told(engine.Visit({},
                              [&](const PastGeneration& past) -> Result<void> {
                                VANZET_TRY(const auto copy, past.vdms.at(Number{1})->Copy());
                                lines.push_back(std::to_string(past.generation.number) + ": " +
                                                RecordsOf(copy).at(1).at(0));
                                return {};
                              })),
            "");
  return lines;
}

TEST_F(BrokenWay, ShowsTheWholeHistoryWhereverTheConnectionIsCut) {
  std::vector<std::string> all;
  for (const std::string each : {"a", "b", "c", "d"}) {
    Write(1, {{"same"}, {each}});
    all.push_back(std::to_string(all.size() + 1) + ": " + each);
  }
  std::size_t bytes = 0;
  for (; proxy->LeftToSpoil() == 0 && !HasFailure(); bytes += 83) {
    PostgresEngine engine(proxy->Text(), "lathe");
    proxy->CutNext(1, bytes);
    Get(engine.Numbers());
    EXPECT_EQ(LinesOf(engine), all) << "cut after " << bytes << " bytes";
    EXPECT_EQ(RecordsOf(Get(engine.ReadAt(2, {})).at(Number{1})).at(1).at(0), "b");
    EXPECT_EQ(Get(engine.ListChanges({})).size(), 4u);
    if (bytes > 20'000) break;
  }
  EXPECT_GT(bytes, 20'000u);
}

TEST_F(BrokenWay, MixesNoStatesWhenTheHistoryIsTrimmedWhileTheConnectionIsBroken) {
  for (const std::string each : {"a", "b", "c"}) Write(1, {{"same"}, {each}});
  PostgresEngine engine(proxy->Text(), "lathe"), other = Engine();
  const auto visited = engine.Visit({}, [&](const PastGeneration& past) -> Result<void> {
    VANZET_TRY(const auto copy, past.vdms.at(Number{1})->Copy());
    EXPECT_EQ(copy.Size(), 2u);
    if (past.generation.number == 1) {
      const std::string occasion = "test";
      Changes changes;
      changes.emplace(Number{1}, VdmOf({{"last"}}));
      EXPECT_EQ(Told(other.Apply({changes, nullptr, occasion, {}, 0})), "");
      proxy->CutOnce(Cut::kNow);
    }
    return {};
  });
  EXPECT_THAT(Told(visited), HasSubstr("old generations were removed before they could be read again"));
}

TEST_F(BrokenWay, IsUsedWhenTheServerHasStarted) {
  for (const char* const state : {"57P03", "57P01", "53300"}) {
    proxy->RefuseNext(5, state);
    EXPECT_EQ(Told(WriteNumber(1)), "") << state;
    EXPECT_EQ(proxy->LeftToSpoil(), 0) << state;
  }
}

TEST_F(BrokenWay, IsNotTriedForLongWhereTheServerRefusesThePerson) {
  for (const char* const state : {"28P01", "28000", "3D000"}) {
    proxy->RefuseNext(100, state);
    EXPECT_THAT(Told(WriteNumber(1)), AllOf(HasSubstr("cannot be reached: "), HasSubstr("FATAL:  no entry"),
                                            Not(HasSubstr(state)), Not(HasSubstr("\n"))));
    EXPECT_GE(proxy->LeftToSpoil(), 98) << state;
    proxy->RefuseNext(0, state);
  }
}

}  // namespace
}  // namespace vanzet::vdm

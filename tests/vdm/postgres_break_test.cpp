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

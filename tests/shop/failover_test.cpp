#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "project/project_store.h"
#include "shop/dropping_proxy.h"
#include "shop/server.h"
#include "support/vdm_values.h"

namespace vanzet::test {
namespace {

using namespace std::chrono_literals;

constexpr std::int64_t kWrites = 500;

void ExpectDone(const Result<void>& done) {
  EXPECT_TRUE(done) << done.fault().Message();
}

std::string TextOf(const vdm::Vdm& content) {
  const Records records = RecordsOf(content);
  return records.empty() || records.front().empty() ? "" : records.front().front();
}

class Failover : public testing::Test {
 protected:
  Failover() : primary_(Server::Make()) {}

  vdm::VdmStore Store(const std::string& text) {
    return project::StoreAt({.connection = text, .project = "lathe"}, folder_.path());
  }

  std::string TextOfBoth(const Server& standby) const {
    return "host=" + primary_->folder().string() + "," + standby.folder().string() +
           " user=vanzet dbname=vanzet target_session_attrs=read-write";
  }

  /// Writes number after number into VDM 1000, each a commit; the count of those that were acknowledged.
  void WriteAll(const std::string& text, const std::function<void(std::int64_t)>& afterEach) {
    vdm::VdmStore store = Store(text);
    store.WaitAtMost(60s);
    for (std::int64_t i = 1; i <= kWrites; ++i) {
      ExpectDone(store.Replace(1000, VdmOf({{std::to_string(i)}})));
      ExpectDone(store.Commit("test"));
      if (HasFailure()) return;
      afterEach(i);
    }
  }

  /// Each write is a generation, none is missing, none is there twice.
  void ExpectAll(const std::string& text) {
    std::vector<std::string> texts;
    ExpectDone(Store(text).Visit({}, [&](const vdm::PastGeneration& past) {
      for (const auto& [number, content] : past.vdms) texts.push_back(TextOf(*content));
      return Result<void>();
    }));
    ASSERT_GE(texts.size(), 200U);
    std::vector<std::string> wanted;
    for (std::int64_t i = kWrites - static_cast<std::int64_t>(texts.size()) + 1; i <= kWrites; ++i) {
      wanted.push_back(std::to_string(i));
    }
    EXPECT_EQ(texts, wanted);
    const auto changes = Store(text).ListChanges({});
    ASSERT_TRUE(changes) << changes.fault().Message();
    EXPECT_EQ(changes->back().generation.number, kWrites);
  }

  const TemporaryFolder folder_;
  std::unique_ptr<Server> primary_;
};

TEST_F(Failover, WaitsForTheTakeoverWhereItIsStartedBefore) {
  primary_->Sql("ALTER SYSTEM SET log_connections=on");
  const auto standby = Server::MakeStandby(*primary_);
  primary_->Kill();
  const std::size_t before = standby->Log().size();
  std::thread writer([&] {
    vdm::VdmStore store = Store(TextOfBoth(*standby));
    ExpectDone(store.Replace(1000, VdmOf({{"late"}})));
    ExpectDone(store.Commit("test"));
  });
  // It has been at the standby, which takes no changes yet.
  const auto hasAsked = [&] {
    return standby->Log().find("application_name=vanzet ", before) != std::string::npos;
  };
  while (!hasAsked() && !HasFailure()) std::this_thread::sleep_for(10ms);
  standby->Promote();
  writer.join();
  const auto content = Store(standby->Text()).Snapshot(1000);
  ASSERT_TRUE(content) << content.fault().Message();
  EXPECT_EQ(TextOf(*content), "late");
}

TEST_F(Failover, GoesOnAtTheStandbyWithEveryAcknowledgedClose) {
  const auto standby = Server::MakeStandby(*primary_);
  primary_->Stop();
  primary_->Start({"synchronous_standby_names=*"});
  while (primary_->Sql("SELECT count(*) FROM pg_stat_replication WHERE sync_state='sync'") != "1\n") {
    std::this_thread::sleep_for(100ms);
  }
  const std::string both = TextOfBoth(*standby);
  std::atomic<std::int64_t> written = 0;
  std::thread writer([&] { WriteAll(both, [&](std::int64_t i) { written = i; }); });
  while (written < kWrites / 2 && !HasFailure()) std::this_thread::sleep_for(1ms);
  primary_->Kill();
  standby->Promote();
  writer.join();
  EXPECT_EQ(written, kWrites);
  ExpectAll(both);
}

TEST_F(Failover, GoesOnWhenTheServerComesBack) {
  std::atomic<std::int64_t> written = 0;
  std::thread writer([&] { WriteAll(primary_->Text(), [&](std::int64_t i) { written = i; }); });
  for (const std::int64_t part : {100, 200, 300}) {
    while (written < part && !HasFailure()) std::this_thread::sleep_for(1ms);
    if (part == 200) {
      primary_->Stop();
    } else {
      primary_->Kill();
    }
    primary_->Start();
  }
  writer.join();
  EXPECT_EQ(written, kWrites);
  ExpectAll(primary_->Text());
}

TEST_F(Failover, GoesOnWhenConnectionsAreCut) {
  std::atomic<std::int64_t> written = 0;
  std::thread writer([&] { WriteAll(primary_->Text(), [&](std::int64_t i) { written = i; }); });
  // A busy machine may need longer for a close than lies between two cuts.
  constexpr auto kShortest = 20ms;
  auto pause = kShortest;
  for (std::int64_t before = 0; written < kWrites && !HasFailure();) {
    primary_->Sql(
        "SELECT pg_terminate_backend(pid) FROM pg_stat_activity "
        "WHERE datname='vanzet' AND pid<>pg_backend_pid()");
    std::this_thread::sleep_for(pause);
    const std::int64_t now = written;
    pause = now > before ? kShortest : 2 * pause;
    before = now;
  }
  writer.join();
  EXPECT_EQ(written, kWrites);
  ExpectAll(primary_->Text());
}

TEST_F(Failover, NeitherLosesNorRepeatsACloseWhoseAnswerWasLost) {
  const DroppingProxy network(primary_->folder());
  WriteAll("host=" + network.folder().string() + " user=vanzet dbname=vanzet", [](std::int64_t) {});
  EXPECT_GT(network.Cuts(), 10);
  ExpectAll(primary_->Text());
}

}  // namespace
}  // namespace vanzet::test

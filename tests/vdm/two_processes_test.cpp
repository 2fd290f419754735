#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "support/child.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"
#include "vdm/store.h"

namespace vanzet::vdm {
namespace {

using test::Child;
using test::Get;
using test::Records;
using test::RecordsOf;
using test::Told;

TEST(TwoProcesses, TheSecondIsRefusedAndNothingIsLost) {
  const test::TemporaryFolder folder;
  Child child([&](Child::Line& parent) {
    VdmStore store(folder.path());
    const auto handle = store.Create(1);
    if (!handle || !store.Find(*handle)->Insert("from the child")) return false;
    parent.Tell();
    if (!parent.Await()) return false;
    store.Close(*handle);
    return static_cast<bool>(store.Commit("test"));
  });
  ASSERT_TRUE(child.line().Await());
  VdmStore store(folder.path());
  EXPECT_TRUE(Get(store.IsOpen(1)));
  const std::string busy = folder.path().string() + ": another process is changing the project";
  store.WaitAtMost(std::chrono::milliseconds(0));
  EXPECT_EQ(Told(store.Open(1)), busy);
  EXPECT_EQ(Told(store.Create(1)), busy);
  EXPECT_EQ(Told(store.Delete(1)), busy);
  child.line().Tell();
  store.WaitAtMost(kUsualWait);
  EXPECT_EQ(Told(store.Hold()), "") << "it waits for the child";
  EXPECT_TRUE(child.End());
  EXPECT_EQ(Get(store.Find(Get(store.Open(1)))->SingleGet()), "from the child");
}

/// Adds items to its own VDM, one a commit.
bool AddItems(const std::filesystem::path& folder, std::int64_t number, int count) {
  VdmStore store(folder);
  for (int i = 0; i < count; ++i) {
    const auto handle = i == 0 ? store.Create(number) : store.Open(number);
    if (!handle) return false;
    OpenVdm& vdm = *store.Find(*handle);
    const bool added = i == 0 ? bool(vdm.Insert("0")) : bool(vdm.SingleAdd(std::to_string(i)));
    if (!added) return false;
    store.Close(*handle);
    if (!store.Commit("test")) return false;
  }
  return true;
}

TEST(TwoProcesses, WriteDifferentVdmsAtTheSameTime) {
  constexpr int kItems = 50;
  const test::TemporaryFolder folder;
  Child one([&](Child::Line&) { return AddItems(folder.path(), 1, kItems); });
  Child two([&](Child::Line&) { return AddItems(folder.path(), 2, kItems); });
  EXPECT_TRUE(one.End());
  EXPECT_TRUE(two.End());
  const VdmStore store(folder.path());
  for (const std::int64_t number : {1, 2}) {
    EXPECT_EQ(RecordsOf(Get(store.Snapshot(number)))[0].size(), std::size_t{kItems});
  }
}

/// Adds one to the number in VDM 1, again and again, waiting while somebody else has it open.
bool CountUp(const std::filesystem::path& folder, int times) {
  VdmStore store(folder);
  while (times > 0) {
    const auto handle = store.Open(1);
    if (!handle && handle.fault().kind != FaultKind::kBusy) return false;
    if (!handle) continue;
    OpenVdm& vdm = *store.Find(*handle);
    const int count = std::stoi(std::string(Get(vdm.SingleGet())));
    vdm.Seek(0);
    if (!vdm.SingleReplace(std::to_string(count + 1))) return false;
    store.Close(*handle);
    if (!store.Commit("test")) return false;
    --times;
  }
  return true;
}

TEST(TwoProcesses, NeverLoseEachOthersChanges) {
  constexpr int kTimes = 100;
  const test::TemporaryFolder folder;
  Child first([&](Child::Line& parent) { return parent.Await() && CountUp(folder.path(), kTimes); });
  Child second([&](Child::Line& parent) { return parent.Await() && CountUp(folder.path(), kTimes); });
  VdmStore store(folder.path());
  ASSERT_EQ(Told(store.Replace(1, test::VdmOf({{"0"}}))), "");
  ASSERT_EQ(Told(store.Commit("test")), "");
  first.line().Tell();
  second.line().Tell();
  EXPECT_TRUE(first.End());
  EXPECT_TRUE(second.End());
  EXPECT_EQ(RecordsOf(Get(store.Snapshot(1))), Records{{std::to_string(2 * kTimes)}});
}

constexpr std::int64_t kNumbers[] = {1, 2, 3};
constexpr std::size_t kVdms = std::size(kNumbers);

/// What a VDM holds in one generation: no two generations are alike, in items or in their number.
Records Generation(std::size_t vdm, std::uint32_t generation) {
  const std::string mark = std::to_string(vdm) + " of generation " + std::to_string(generation);
  Records records(1 + generation % 4, {mark});
  for (std::size_t i = 0; i < records.size(); ++i) {
    records[i].insert(records[i].end(), 10 * (generation % 7) + i, mark + std::string(200, '.'));
  }
  return records;
}

/// The lines of the child, also when it was killed.
struct Progress {
  std::atomic<std::uint32_t> committed = 0;  ///< the generation that was committed last; 0: none yet
  std::atomic<bool> failed = false;          ///< an operation was refused
};

/// Brings an open VDM from any generation to this one, by the operations of the position.
bool Rewrite(OpenVdm& vdm, const Records& records) {
  const std::size_t before = vdm.Size();
  for (std::size_t i = 0; i < records.size(); ++i) {
    vdm.Seek(static_cast<std::int64_t>(i));
    const bool begun = bool(i < before ? vdm.SingleReplace(records[i][0]) : vdm.Insert(records[i][0]));
    if (!begun || !vdm.SingleSeek(1) || !vdm.SingleDelete(INT64_MAX)) return false;
    for (std::size_t k = 1; k < records[i].size(); ++k) {
      if (!vdm.SingleAdd(records[i][k])) return false;
    }
  }
  vdm.Seek(static_cast<std::int64_t>(records.size()));
  vdm.Remove(INT64_MAX);
  return true;
}

/// Rewrites all VDMs, generation after generation, until it is killed.
bool RewriteForever(const std::filesystem::path& folder, std::uint32_t from, Progress& progress) {
  VdmStore store(folder);
  for (std::uint32_t generation = from + 1;; ++generation) {
    for (std::size_t i = 0; i < kVdms; ++i) {
      const auto handle = generation == 1 ? store.Create(kNumbers[i]) : store.Open(kNumbers[i]);
      if (!handle || !Rewrite(*store.Find(*handle), Generation(i, generation))) return false;
      store.Close(*handle);
    }
    if (!store.Commit("test")) return false;
    progress.committed = generation;
  }
}

/// Returns when that generation was committed, however slow the machine is; gives up after a
/// time in which any machine would have got there.
void AwaitGeneration(const Progress& progress, std::uint32_t generation) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (progress.committed < generation && !progress.failed && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::microseconds(100));
  }
}

/// Expects one whole generation of all VDMs, `committed` or the one after it; gives it.
std::uint32_t ExpectWhole(const VdmStore& store, std::uint32_t committed) {
  const auto contents = Get(store.Snapshots({Number{1}, Number{2}, Number{3}}));
  for (const std::int64_t number : kNumbers) EXPECT_FALSE(Get(store.IsOpen(number)));
  if (committed == 0 && contents.empty()) return 0;
  EXPECT_EQ(contents.size(), kVdms);
  const bool isNext = RecordsOf(contents.at(Number{1})) == Generation(0, committed + 1);
  const std::uint32_t found = isNext ? committed + 1 : committed;
  for (std::size_t i = 0; i < kVdms; ++i) {
    const Number number{static_cast<std::uint32_t>(kNumbers[i])};
    EXPECT_EQ(RecordsOf(contents.at(number)), Generation(i, found));
  }
  return found;
}

TEST(KilledProcess, LeavesAllVdmsWhollyOfOneGenerationAndTheLocksFree) {
  constexpr int kKills = 220;
  const test::TemporaryFolder folder;
  void* shared = mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(shared, MAP_FAILED);
  Progress& progress = *new (shared) Progress();
  test::Dice dice(17);
  std::uint32_t found = 0;
  for (int kill = 0; kill < kKills && !testing::Test::HasFailure(); ++kill) {
    Child child([&](Child::Line& parent) {
      parent.Tell();
      progress.failed = !RewriteForever(folder.path(), found, progress);
      return false;
    });
    ASSERT_TRUE(child.line().Await());
    AwaitGeneration(progress, found + static_cast<std::uint32_t>(dice.UpTo(2)));
    std::this_thread::sleep_for(std::chrono::microseconds(dice.UpTo(5000)));
    child.Kill();
    EXPECT_FALSE(progress.failed);
    VdmStore store(folder.path());
    store.WaitAtMost(std::chrono::milliseconds(0));
    EXPECT_EQ(Told(store.Hold()), "");
    progress.committed = found = ExpectWhole(store, progress.committed);
  }
  EXPECT_GT(found, 50u) << "the children hardly wrote anything";
  munmap(shared, sizeof(Progress));
}

}  // namespace
}  // namespace vanzet::vdm

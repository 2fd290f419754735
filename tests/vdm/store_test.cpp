#include "vdm/store.h"

#include <gtest/gtest.h>

#include "support/memory_engine.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"
#include "vdm/embedded/engine.h"
#include "vdm/embedded/vdm_locks.h"

namespace vanzet::vdm {
namespace {

using test::Get;
using test::Records;
using test::RecordsOf;
using test::Told;
using test::VdmOf;

class Store : public testing::Test {
 protected:
  Store() { elsewhere.WaitAtMost(std::chrono::milliseconds(0)); }

  void Keep(std::int64_t number, const Records& records) {
    ASSERT_EQ(Told(store.Replace(number, VdmOf(records))), "");
    ASSERT_EQ(Told(store.Commit("test")), "");
  }
  /// The content that everybody else sees.
  Records Kept(std::int64_t number) { return RecordsOf(Get(elsewhere.Snapshot(number))); }
  std::string Busy() const { return folder.path().string() + ": another process is changing the project"; }

  Records Content(std::int64_t number) { return RecordsOf(Get(store.Snapshot(number))); }

  test::TemporaryFolder folder;
  VdmStore store{folder.path()};
  VdmStore elsewhere{folder.path()};
};

TEST_F(Store, ACreatedVdmIsHereFromItsCloseOnAndElsewhereFromTheCommitOn) {
  const Handle handle = Get(store.Create(7));
  EXPECT_TRUE(store.Find(handle)->Insert("first"));
  EXPECT_TRUE(Get(store.Exists(7)));
  EXPECT_TRUE(Get(elsewhere.Exists(7)));
  EXPECT_TRUE(Get(store.Numbers()).empty());
  EXPECT_EQ(Told(elsewhere.Snapshot(7)), "VDM 7 does not exist");
  store.Close(handle);
  EXPECT_EQ(Content(7), Records{{"first"}});
  EXPECT_EQ(Get(store.Numbers()), std::vector<Number>{Number{7}});
  EXPECT_FALSE(Get(elsewhere.Exists(7)));
  EXPECT_EQ(Told(store.Commit("test")), "");
  EXPECT_EQ(Kept(7), Records{{"first"}});
}

TEST_F(Store, AVdmThatWasNeverCommittedNeverExisted) {
  {
    VdmStore dying(folder.path());
    const Handle handle = Get(dying.Create(7));
    EXPECT_TRUE(dying.Find(handle)->Insert("first"));
    dying.Close(handle);
  }
  EXPECT_FALSE(Get(store.Exists(7)));
  EXPECT_FALSE(Get(store.IsOpen(7)));
  EXPECT_EQ(Told(store.Create(7)), "");
}

TEST_F(Store, CreateIsRefusedWhenTheNumberIsTaken) {
  Keep(1, {{"a"}});
  EXPECT_EQ(Told(store.Create(1)), "VDM 1 already exists");
  EXPECT_FALSE(Get(store.IsOpen(1)));
  Get(store.Create(2));
  EXPECT_EQ(Told(store.Create(2)), "VDM 2 is already open");
  EXPECT_EQ(Told(elsewhere.Create(2)), Busy());
  EXPECT_EQ(Told(store.Commit("test")), "");
  EXPECT_EQ(Told(elsewhere.Create(2)), "VDM 2 is open elsewhere");
}

TEST_F(Store, OpenIsRefusedWhenThereIsNoneOrItIsOpen) {
  EXPECT_EQ(Told(store.Open(1)), "VDM 1 does not exist");
  EXPECT_FALSE(Get(elsewhere.IsOpen(1)));
  Keep(1, {{"a"}});
  Get(store.Open(1));
  EXPECT_EQ(Told(store.Open(1)), "VDM 1 is already open");
  EXPECT_EQ(Told(store.Commit("test")), "");
  EXPECT_EQ(Told(elsewhere.Open(1)), "VDM 1 is open elsewhere");
}

TEST_F(Store, IsOpenHereAndElsewhereUntilTheClose) {
  const Handle handle = Get(store.Create(1));
  EXPECT_TRUE(Get(store.IsOpen(1)));
  EXPECT_TRUE(Get(elsewhere.IsOpen(1)));
  store.Close(handle);
  EXPECT_FALSE(Get(store.IsOpen(1)));
  EXPECT_FALSE(Get(elsewhere.IsOpen(1)));
}

TEST_F(Store, OpenReadsWhatTheLastCommitWrote) {
  Keep(1, {{"old"}});
  const Handle theirs = Get(elsewhere.Open(1));
  EXPECT_TRUE(elsewhere.Find(theirs)->SingleReplace("new"));
  elsewhere.Close(theirs);
  EXPECT_EQ(Told(elsewhere.Commit("test")), "");
  EXPECT_EQ(Get(store.Find(Get(store.Open(1)))->SingleGet()), "new");
}

TEST_F(Store, ChangesReachTheDiskWithTheCommitAndNotBefore) {
  Keep(1, {{"old"}});
  const Handle handle = Get(store.Open(1));
  EXPECT_TRUE(store.Find(handle)->SingleReplace("new"));
  EXPECT_EQ(Content(1), Records{{"new"}});
  store.Close(handle);
  EXPECT_EQ(Content(1), Records{{"new"}});
  EXPECT_EQ(Kept(1), Records{{"old"}});
  EXPECT_EQ(Told(store.Commit("test")), "");
  EXPECT_EQ(Kept(1), Records{{"new"}});
}

TEST_F(Store, HandlesAreNeverGivenTwice) {
  std::uint32_t last = 0;
  for (int round = 0; round < 5; ++round) {
    const Handle handle = Get(store.Create(1));
    EXPECT_GT(static_cast<std::uint32_t>(handle), last);
    last = static_cast<std::uint32_t>(handle);
    store.Close(handle);
    EXPECT_EQ(Told(store.Delete(1)), "");
  }
}

TEST_F(Store, HandlesThatAreNotOpenAreTolerated) {
  const Handle stale = Get(store.Create(1));
  store.Close(stale);
  Get(store.Create(2));
  for (const Handle handle : {stale, Handle{0}, Handle{0xFFFFFFFF}, Handle{4711}}) {
    EXPECT_EQ(store.Find(handle), nullptr);
    EXPECT_EQ(store.Size(handle), 0u);
    store.Close(handle);
  }
  EXPECT_TRUE(Get(store.IsOpen(2)));
}

TEST_F(Store, NumbersThatNoVdmCanHaveDoNotExistAndAreRefused) {
  for (const std::int64_t number : {std::int64_t{-1}, std::int64_t{0x100000000}, INT64_MIN, INT64_MAX}) {
    const std::string told = "no such VDM number: " + std::to_string(number);
    EXPECT_FALSE(Get(store.Exists(number)));
    EXPECT_FALSE(Get(store.IsOpen(number)));
    EXPECT_EQ(Told(store.Delete(number)), "");
    EXPECT_EQ(Told(store.Create(number)), told);
    EXPECT_EQ(Told(store.Open(number)), told);
    EXPECT_EQ(Told(store.Snapshot(number)), told);
    EXPECT_EQ(Told(store.Replace(number, Vdm())), told);
  }
}

TEST_F(Store, SizeCountsRecords) {
  Keep(1, {{"a"}, {"b"}});
  const Handle handle = Get(store.Open(1));
  EXPECT_EQ(store.Size(handle), 2u);
  store.Find(handle)->Remove(1);
  EXPECT_EQ(store.Size(handle), 1u);
}

TEST_F(Store, DeleteIsRefusedWhileOpenAndSilentWhenThereIsNone) {
  EXPECT_EQ(Told(store.Delete(1)), "");
  Keep(1, {{"a"}});
  const Handle handle = Get(store.Open(1));
  EXPECT_EQ(Told(store.Delete(1)), "VDM 1 is already open");
  EXPECT_EQ(Told(store.Commit("test")), "");
  EXPECT_EQ(Told(elsewhere.Delete(1)), "VDM 1 is open elsewhere");
  store.Close(handle);
  EXPECT_EQ(Told(store.Delete(1)), "");
  EXPECT_FALSE(Get(store.Exists(1)));
}

TEST_F(Store, ReplaceIsRefusedWhileOpen) {
  Keep(1, {{"a"}});
  Get(store.Open(1));
  EXPECT_EQ(Told(store.Replace(1, Vdm())), "VDM 1 is already open");
  EXPECT_EQ(Told(store.Commit("test")), "");
  EXPECT_EQ(Told(elsewhere.Replace(1, Vdm())), "VDM 1 is open elsewhere");
  EXPECT_EQ(Content(1), Records{{"a"}});
}

TEST_F(Store, ASnapshotIsACopyThatCanBePutUnderAnotherNumber) {
  Keep(1, {{"a"}});
  const Handle handle = Get(store.Open(1));
  const Vdm snapshot = Get(store.Snapshot(1));
  EXPECT_TRUE(store.Find(handle)->SingleReplace("later"));
  EXPECT_EQ(Told(store.Replace(2, snapshot)), "");
  store.Close(handle);
  EXPECT_EQ(Content(1), Records{{"later"}});
  EXPECT_EQ(Content(2), Records{{"a"}});
}

TEST_F(Store, KnowsWhatIsLeftOpen) {
  EXPECT_TRUE(store.LeftOpen().empty());
  Get(store.Create(9));
  const Handle handle = Get(store.Create(3));
  EXPECT_EQ(store.LeftOpen(), (std::vector<Number>{Number{3}, Number{9}}));
  store.Close(handle);
  EXPECT_EQ(store.LeftOpen(), std::vector<Number>{Number{9}});
}

TEST_F(Store, ReadsAndClosesUnchangedWhereItCannotWrite) {
  Keep(1, {{"a"}});
  std::filesystem::permissions(folder / "store.db", std::filesystem::perms::owner_read);
  VdmStore reading(folder.path());
  Handle handle = Get(reading.Open(1));
  EXPECT_EQ(Get(reading.Find(handle)->SingleGet()), "a");
  reading.Close(handle);
  EXPECT_EQ(Told(reading.Commit("test")), "");
  handle = Get(reading.Open(1));
  EXPECT_TRUE(reading.Find(handle)->SingleReplace("b"));
  reading.Close(handle);
  EXPECT_EQ(Told(reading.Commit("test")), (folder / "store.db").string() + ": is read-only");
  EXPECT_EQ(reading.Find(handle), nullptr);
  EXPECT_FALSE(Get(elsewhere.IsOpen(1)));
  EXPECT_EQ(Content(1), Records{{"a"}});
}

/// An engine that notes whether the VDM was locked each time it was opened, and the project when it was
/// changed.
class WatchingEngine : public test::MemoryEngine {
 public:
  WatchingEngine(const std::filesystem::path& lockFile, std::vector<bool>& locked)
      : locks_(lockFile), locked_(locked) {}

  Result<std::optional<Vdm>> Open(Number number) override {
    locked_.push_back(Get(locks_.IsHeldElsewhere(number)));
    return MemoryEngine::Open(number);
  }
  Result<void> Apply(const NewGeneration& next) override {
    locked_.push_back(!locks_.AcquireProject(std::chrono::milliseconds(0)));
    return MemoryEngine::Apply(next);
  }

 private:
  VdmLocks locks_;
  std::vector<bool>& locked_;
};

TEST(StoreUnderWatch, OpensAndWritesUnderTheLocksOnly) {
  const test::TemporaryFolder folder;
  std::vector<bool> locked;
  VdmStore store(std::make_unique<WatchingEngine>(folder / "store.lock", locked), folder / "store.lock");
  EXPECT_EQ(Told(store.Replace(1, VdmOf({{"a"}}))), "");
  EXPECT_EQ(Told(store.Commit("test")), "");
  const Handle handle = Get(store.Open(1));
  EXPECT_TRUE(store.Find(handle)->SingleAdd("b"));
  store.Close(handle);
  EXPECT_EQ(Told(store.Commit("test")), "");
  EXPECT_EQ(Told(store.Delete(1)), "");
  EXPECT_EQ(Told(store.Commit("test")), "");
  EXPECT_EQ(locked, std::vector<bool>(4, true));
}

/// An engine whose n-th call fails.
class FailingEngine : public test::MemoryEngine {
 public:
  explicit FailingEngine(int& callsLeft) : callsLeft_(callsLeft) {}

  Result<bool> Exists(Number number) override {
    if (--callsLeft_ == 0) return Fault{"failed"};
    return MemoryEngine::Exists(number);
  }
  Result<std::optional<Vdm>> Open(Number number) override {
    if (--callsLeft_ == 0) return Fault{"failed"};
    return MemoryEngine::Open(number);
  }
  Result<void> Apply(const NewGeneration& next) override {
    if (--callsLeft_ == 0) return Fault{"failed"};
    return MemoryEngine::Apply(next);
  }

 private:
  int& callsLeft_;
};

/// Makes VDM 2, changes VDM 1 and removes VDM 3; the first fault ends it.
Result<void> Work(VdmStore& store) {
  VANZET_TRY(const auto created, store.Create(2));
  store.Close(created);
  VANZET_TRY(const auto opened, store.Open(1));
  VANZET_DO(store.Find(opened)->SingleReplace("new"));
  store.Close(opened);
  VANZET_DO(store.Delete(3));
  return store.Commit("test");
}

TEST_F(Store, KnowsWhatWasClosedLast) {
  EXPECT_EQ(store.LastClosed(), std::nullopt);
  const Handle one = Get(store.Create(1)), two = Get(store.Create(2));
  store.Close(two);
  store.Close(one);
  EXPECT_EQ(store.LastClosed(), Number{1});
  store.Close(two);
  EXPECT_EQ(store.LastClosed(), Number{1});
}

TEST(StoreWithFaults, LeavesNothingLockedAndChangesAllOrNothingWhicheverCallFails) {
  int failing = 0;
  bool done = false;
  while (!done && failing < 100) {
    test::TemporaryFolder folder;
    int callsLeft = -1;
    VdmStore store(std::make_unique<FailingEngine>(callsLeft), folder / "store.lock");
    ASSERT_EQ(Told(store.Replace(1, VdmOf({{"old"}}))), "");
    ASSERT_EQ(Told(store.Replace(3, Vdm())), "");
    ASSERT_EQ(Told(store.Commit("test")), "");
    callsLeft = ++failing;
    done = static_cast<bool>(Work(store));
    callsLeft = -1;
    store.Discard();
    VdmLocks elsewhere(folder / "store.lock");
    EXPECT_TRUE(elsewhere.AcquireProject(std::chrono::milliseconds(0)));
    EXPECT_TRUE(store.LeftOpen().empty());
    for (const std::uint32_t number : {1u, 2u, 3u})
      EXPECT_FALSE(Get(elsewhere.IsHeldElsewhere(Number{number})));
    EXPECT_EQ(RecordsOf(Get(store.Snapshot(1))), (Records{{done ? "new" : "old"}})) << failing;
    EXPECT_EQ(Get(store.Exists(2)), done);
    EXPECT_EQ(Get(store.Exists(3)), !done);
  }
  EXPECT_EQ(failing, 5) << "create, open, delete, commit: four calls can fail";
}

TEST_F(Store, ADiscardedRunLeavesNothing) {
  Keep(1, {{"old"}});
  EXPECT_EQ(Told(store.Replace(1, VdmOf({{"new"}}))), "");
  EXPECT_EQ(Told(store.Replace(2, Vdm())), "");
  store.Discard();
  EXPECT_EQ(Content(1), Records{{"old"}});
  EXPECT_FALSE(Get(store.Exists(2)));
  EXPECT_EQ(Told(elsewhere.Replace(1, Vdm())), "") << "others can go on";
}

TEST_F(Store, AnotherRunWaitsForTheCommit) {
  EXPECT_EQ(Told(store.Hold()), "");
  EXPECT_EQ(Told(elsewhere.Hold()), Busy());
  EXPECT_EQ(elsewhere.Replace(1, Vdm()).fault().kind, FaultKind::kBusy);
  EXPECT_TRUE(Get(elsewhere.Numbers()).empty()) << "reading goes on";
  EXPECT_EQ(Told(store.Commit("test")), "");
  EXPECT_EQ(Told(elsewhere.Hold()), "");
}

TEST_F(Store, KeepsTheChangesOfACommitThatFailed) {
  Keep(1, {{"old"}});
  EXPECT_EQ(Told(store.Replace(1, VdmOf({{"new"}}))), "");
  std::filesystem::permissions(folder / "store.db", std::filesystem::perms::owner_read);
  EXPECT_NE(Told(store.Commit("test")), "");
  EXPECT_TRUE(store.HasChanges());
  EXPECT_EQ(Told(elsewhere.Hold()), Busy());
  std::filesystem::permissions(folder / "store.db", std::filesystem::perms::owner_all);
  EXPECT_EQ(Told(store.Commit("test")), "");
  EXPECT_EQ(Kept(1), Records{{"new"}});
}

TEST_F(Store, TakesBackADeletionUntilItIsFinal) {
  Keep(1, {{"stored"}});
  EXPECT_FALSE(store.PutBackDeleted(1));
  EXPECT_EQ(Told(store.Delete(1)), "");
  EXPECT_TRUE(store.PutBackDeleted(1));
  EXPECT_EQ(Content(1), Records{{"stored"}});
  EXPECT_EQ(Told(store.Replace(1, VdmOf({{"changed"}}))), "");
  EXPECT_EQ(Told(store.Delete(1)), "");
  EXPECT_TRUE(store.PutBackDeleted(1));
  EXPECT_EQ(Content(1), Records{{"changed"}}) << "as it was in this run";
  EXPECT_EQ(Told(store.Delete(1)), "");
  store.ForgetDeleted();
  EXPECT_FALSE(store.PutBackDeleted(1));
  EXPECT_FALSE(store.PutBackDeleted(-1));
  EXPECT_FALSE(Get(store.Exists(1)));
}

TEST_F(Store, FinishesNoFileOutsideOfItsProject) {
  for (const std::string name : {"../outside.txt", "/tmp/vanzet-outside.txt", "sub/inside.txt", ".."}) {
    const std::filesystem::path target = folder.path() / name;
    SqliteEngine engine(folder / "store.db");
    const TextFile file{name, "from a foreign store"};
    const Changes changes;
    const std::string occasion = "test";
    ASSERT_EQ(Told(engine.Apply({changes, &file, occasion, {}})), "");
    EXPECT_EQ(store.FinishFormerCommit().fault().kind, FaultKind::kDamaged) << name;
    EXPECT_FALSE(std::filesystem::is_regular_file(target)) << name;
    ASSERT_EQ(Told(engine.FinishFile()), "");
  }
}

TEST_F(Store, FinishesTheFileOfACommitThatAProcessCouldNotWriteAnyMore) {
  SqliteEngine engine(folder / "store.db");
  const TextFile file{"drawing.txt", "new"};
  const Changes changes;
  const std::string occasion = "test";
  ASSERT_EQ(Told(engine.Apply({changes, &file, occasion, {}})), "");
  EXPECT_EQ(Told(store.FinishFormerCommit()), "");
  EXPECT_EQ(test::ReadBytes(folder / "drawing.txt"), "new");
  EXPECT_FALSE(Get(engine.UnfinishedFile()));
}

TEST_F(Store, GivesSnapshotsOfOneState) {
  Keep(1, {{"a"}});
  Keep(2, {{"b"}});
  EXPECT_EQ(Told(store.Replace(2, VdmOf({{"mine"}}))), "");
  EXPECT_EQ(Told(store.Delete(1)), "");
  const auto here = Get(store.Snapshots({Number{1}, Number{2}, Number{3}}));
  ASSERT_EQ(here.size(), 1u);
  EXPECT_EQ(RecordsOf(here.at(Number{2})), Records{{"mine"}});
  EXPECT_EQ(Get(elsewhere.Snapshots({Number{1}, Number{2}, Number{3}})).size(), 2u);
}

TEST_F(Store, ListsTheNumbersOfTheRun) {
  Keep(1, {});
  Keep(2, {});
  EXPECT_EQ(Told(store.Delete(1)), "");
  EXPECT_EQ(Told(store.Replace(5, Vdm())), "");
  EXPECT_EQ(Get(store.Numbers()), (std::vector<Number>{Number{2}, Number{5}}));
  EXPECT_EQ(Get(elsewhere.Numbers()), (std::vector<Number>{Number{1}, Number{2}}));
}

}  // namespace
}  // namespace vanzet::vdm

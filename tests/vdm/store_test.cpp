#include "vdm/store.h"

#include <gtest/gtest.h>

#include "support/memory_engine.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::vdm {
namespace {

using test::Get;
using test::Records;
using test::RecordsOf;
using test::Told;
using test::VdmOf;

class Store : public testing::Test {
 protected:
  void Keep(std::int64_t number, const Records& records) {
    ASSERT_EQ(Told(store.Replace(number, VdmOf(records))), "");
  }
  Records Content(std::int64_t number) { return RecordsOf(Get(store.Snapshot(number))); }

  test::TemporaryFolder folder;
  VdmStore store{folder.path()};
  VdmStore elsewhere{folder.path()};
};

TEST_F(Store, ACreatedVdmIsKeptFromItsCloseOn) {
  const Handle handle = Get(store.Create(7));
  EXPECT_TRUE(store.Find(handle)->Insert("first"));
  EXPECT_TRUE(Get(store.Exists(7)));
  EXPECT_TRUE(Get(elsewhere.Exists(7)));
  EXPECT_TRUE(Get(store.Numbers()).empty());
  EXPECT_EQ(Told(elsewhere.Snapshot(7)), "VDM 7 does not exist");
  EXPECT_EQ(Told(store.Close(handle)), "");
  EXPECT_EQ(RecordsOf(Get(elsewhere.Snapshot(7))), Records{{"first"}});
  EXPECT_EQ(Get(store.Numbers()), std::vector<Number>{Number{7}});
}

TEST_F(Store, AVdmThatWasCreatedAndNeverClosedNeverExisted) {
  {
    VdmStore dying(folder.path());
    EXPECT_TRUE(dying.Find(Get(dying.Create(7)))->Insert("first"));
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
  EXPECT_EQ(Told(elsewhere.Create(2)), "VDM 2 is open elsewhere");
}

TEST_F(Store, OpenIsRefusedWhenThereIsNoneOrItIsOpen) {
  EXPECT_EQ(Told(store.Open(1)), "VDM 1 does not exist");
  EXPECT_FALSE(Get(elsewhere.IsOpen(1)));
  Keep(1, {{"a"}});
  Get(store.Open(1));
  EXPECT_EQ(Told(store.Open(1)), "VDM 1 is already open");
  EXPECT_EQ(Told(elsewhere.Open(1)), "VDM 1 is open elsewhere");
}

TEST_F(Store, IsOpenHereAndElsewhereUntilTheClose) {
  const Handle handle = Get(store.Create(1));
  EXPECT_TRUE(Get(store.IsOpen(1)));
  EXPECT_TRUE(Get(elsewhere.IsOpen(1)));
  EXPECT_EQ(Told(store.Close(handle)), "");
  EXPECT_FALSE(Get(store.IsOpen(1)));
  EXPECT_FALSE(Get(elsewhere.IsOpen(1)));
}

TEST_F(Store, OpenReadsWhatTheLastCloseWrote) {
  Keep(1, {{"old"}});
  const Handle theirs = Get(elsewhere.Open(1));
  EXPECT_TRUE(elsewhere.Find(theirs)->SingleReplace("new"));
  EXPECT_EQ(Told(elsewhere.Close(theirs)), "");
  EXPECT_EQ(Get(store.Find(Get(store.Open(1)))->SingleGet()), "new");
}

TEST_F(Store, ChangesReachTheDiskWithTheCloseAndNotBefore) {
  Keep(1, {{"old"}});
  const Handle handle = Get(store.Open(1));
  EXPECT_TRUE(store.Find(handle)->SingleReplace("new"));
  EXPECT_EQ(Content(1), Records{{"new"}});
  EXPECT_EQ(RecordsOf(Get(elsewhere.Snapshot(1))), Records{{"old"}});
  EXPECT_EQ(Told(store.Close(handle)), "");
  EXPECT_EQ(RecordsOf(Get(elsewhere.Snapshot(1))), Records{{"new"}});
}

TEST_F(Store, HandlesAreNeverGivenTwice) {
  std::uint32_t last = 0;
  for (int round = 0; round < 5; ++round) {
    const Handle handle = Get(store.Create(1));
    EXPECT_GT(static_cast<std::uint32_t>(handle), last);
    last = static_cast<std::uint32_t>(handle);
    EXPECT_EQ(Told(store.Close(handle)), "");
    EXPECT_EQ(Told(store.Delete(1)), "");
  }
}

TEST_F(Store, HandlesThatAreNotOpenAreTolerated) {
  const Handle stale = Get(store.Create(1));
  EXPECT_EQ(Told(store.Close(stale)), "");
  Get(store.Create(2));
  for (const Handle handle : {stale, Handle{0}, Handle{0xFFFFFFFF}, Handle{4711}}) {
    EXPECT_EQ(store.Find(handle), nullptr);
    EXPECT_EQ(store.Size(handle), 0u);
    EXPECT_EQ(Told(store.Close(handle)), "");
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
  EXPECT_EQ(Told(elsewhere.Delete(1)), "VDM 1 is open elsewhere");
  EXPECT_EQ(Told(store.Close(handle)), "");
  EXPECT_EQ(Told(store.Delete(1)), "");
  EXPECT_FALSE(Get(store.Exists(1)));
}

TEST_F(Store, ReplaceIsRefusedWhileOpen) {
  Keep(1, {{"a"}});
  Get(store.Open(1));
  EXPECT_EQ(Told(store.Replace(1, Vdm())), "VDM 1 is already open");
  EXPECT_EQ(Told(elsewhere.Replace(1, Vdm())), "VDM 1 is open elsewhere");
  EXPECT_EQ(Content(1), Records{{"a"}});
}

TEST_F(Store, ASnapshotIsACopyThatCanBePutUnderAnotherNumber) {
  Keep(1, {{"a"}});
  const Handle handle = Get(store.Open(1));
  const Vdm snapshot = Get(store.Snapshot(1));
  EXPECT_TRUE(store.Find(handle)->SingleReplace("later"));
  EXPECT_EQ(Told(store.Replace(2, snapshot)), "");
  EXPECT_EQ(Told(store.Close(handle)), "");
  EXPECT_EQ(Content(1), Records{{"later"}});
  EXPECT_EQ(Content(2), Records{{"a"}});
}

TEST_F(Store, KnowsWhatIsLeftOpen) {
  EXPECT_TRUE(store.LeftOpen().empty());
  Get(store.Create(9));
  const Handle handle = Get(store.Create(3));
  EXPECT_EQ(store.LeftOpen(), (std::vector<Number>{Number{3}, Number{9}}));
  EXPECT_EQ(Told(store.Close(handle)), "");
  EXPECT_EQ(store.LeftOpen(), std::vector<Number>{Number{9}});
}

TEST_F(Store, ReadsAndClosesUnchangedWhereItCannotWrite) {
  Keep(1, {{"a"}});
  std::filesystem::permissions(folder / "store.db", std::filesystem::perms::owner_read);
  VdmStore reading(folder.path());
  Handle handle = Get(reading.Open(1));
  EXPECT_EQ(Get(reading.Find(handle)->SingleGet()), "a");
  EXPECT_EQ(Told(reading.Close(handle)), "");
  handle = Get(reading.Open(1));
  EXPECT_TRUE(reading.Find(handle)->SingleReplace("b"));
  EXPECT_EQ(Told(reading.Close(handle)), (folder / "store.db").string() + ": is read-only");
  EXPECT_EQ(reading.Find(handle), nullptr);
  EXPECT_FALSE(Get(elsewhere.IsOpen(1)));
  EXPECT_EQ(Content(1), Records{{"a"}});
}

/// An engine that notes whether the VDM was locked each time it was opened or written.
class WatchingEngine : public test::MemoryEngine {
 public:
  WatchingEngine(const std::filesystem::path& lockFile, std::vector<bool>& locked)
      : locks_(lockFile), locked_(locked) {}

  Result<std::optional<Vdm>> Open(Number number) override {
    locked_.push_back(Get(locks_.IsHeldElsewhere(number)));
    return MemoryEngine::Open(number);
  }
  Result<void> Write(Number number, const Vdm& content) override {
    locked_.push_back(Get(locks_.IsHeldElsewhere(number)));
    return MemoryEngine::Write(number, content);
  }
  Result<void> Remove(Number number) override {
    locked_.push_back(Get(locks_.IsHeldElsewhere(number)));
    return MemoryEngine::Remove(number);
  }

 private:
  VdmLocks locks_;
  std::vector<bool>& locked_;
};

TEST(StoreUnderWatch, OpensWritesAndRemovesUnderTheLockOnly) {
  const test::TemporaryFolder folder;
  std::vector<bool> locked;
  VdmStore store(std::make_unique<WatchingEngine>(folder / "store.lock", locked), folder / "store.lock");
  EXPECT_EQ(Told(store.Replace(1, VdmOf({{"a"}}))), "");
  const Handle handle = Get(store.Open(1));
  EXPECT_TRUE(store.Find(handle)->SingleAdd("b"));
  EXPECT_EQ(Told(store.Close(handle)), "");
  EXPECT_EQ(Told(store.Delete(1)), "");
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
  Result<void> Write(Number number, const Vdm& content) override {
    if (--callsLeft_ == 0) return Fault{"failed"};
    return MemoryEngine::Write(number, content);
  }
  Result<void> Remove(Number number) override {
    if (--callsLeft_ == 0) return Fault{"failed"};
    return MemoryEngine::Remove(number);
  }

 private:
  int& callsLeft_;
};

/// Makes VDM 2, changes VDM 1 and removes VDM 3; the first fault ends it.
Result<void> Work(VdmStore& store) {
  const auto created = store.Create(2);
  if (!created) return created.fault();
  if (const auto closed = store.Close(*created); !closed) return closed.fault();
  const auto opened = store.Open(1);
  if (!opened) return opened.fault();
  if (const auto done = store.Find(*opened)->SingleReplace("new"); !done) return done.fault();
  if (const auto closed = store.Close(*opened); !closed) return closed.fault();
  return store.Delete(3);
}

TEST_F(Store, KnowsWhatWasClosedLast) {
  EXPECT_EQ(store.LastClosed(), std::nullopt);
  const Handle one = Get(store.Create(1)), two = Get(store.Create(2));
  ASSERT_EQ(Told(store.Close(two)), "");
  ASSERT_EQ(Told(store.Close(one)), "");
  EXPECT_EQ(store.LastClosed(), Number{1});
  ASSERT_EQ(Told(store.Close(two)), "") << "it is not open any more";
  EXPECT_EQ(store.LastClosed(), Number{1});
}

TEST(StoreWithFaults, LeavesNothingOpenOrLockedWhicheverCallFails) {
  int failing = 0;
  bool done = false;
  while (!done && failing < 100) {
    test::TemporaryFolder folder;
    int callsLeft = -1;
    VdmStore store(std::make_unique<FailingEngine>(callsLeft), folder / "store.lock");
    ASSERT_EQ(Told(store.Replace(1, VdmOf({{"old"}}))), "");
    ASSERT_EQ(Told(store.Replace(3, Vdm())), "");
    callsLeft = ++failing;
    const auto worked = Work(store);
    done = static_cast<bool>(worked);
    callsLeft = -1;
    const VdmLocks elsewhere(folder / "store.lock");
    EXPECT_TRUE(store.LeftOpen().empty());
    for (const std::uint32_t number : {1u, 2u, 3u})
      EXPECT_FALSE(Get(elsewhere.IsHeldElsewhere(Number{number})));
    EXPECT_EQ(RecordsOf(Get(store.Snapshot(1))), (Records{{failing > 4 ? "new" : "old"}})) << failing;
    EXPECT_EQ(Get(store.Exists(3)), !done);
  }
  EXPECT_EQ(failing, 7) << "create and close, open and close, delete: six calls can fail";
}

}  // namespace
}  // namespace vanzet::vdm

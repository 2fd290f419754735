#include "vdm/embedded/vdm_locks.h"

#include <gtest/gtest.h>

#include "support/child.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"
#include "vdm/commit_origin.h"
#include "vdm/embedded/lock_file_holders.h"

namespace vanzet::vdm {
namespace {

using test::Child;
using test::Get;
using test::Told;

constexpr Number kNumber{1000};
constexpr std::chrono::milliseconds kNoWait{0};

struct Locks : testing::Test {
  test::TemporaryFolder folder;
  const std::filesystem::path file = folder / "store.lock";
};

TEST_F(Locks, HoldOneVdmAgainstAllOthersUntilTheyLetGo) {
  VdmLocks ours(file), theirs(file);
  {
    const auto held = Get(ours.Acquire(kNumber));
    EXPECT_TRUE(Get(theirs.IsHeldElsewhere(kNumber)));
    EXPECT_EQ(Told(theirs.Acquire(kNumber)), "VDM 1000 is open elsewhere");
  }
  EXPECT_FALSE(Get(theirs.IsHeldElsewhere(kNumber)));
  EXPECT_EQ(Told(theirs.Acquire(kNumber)), "");
}

TEST_F(Locks, AreKnownWithTheirHolders) {
  EXPECT_EQ(HoldersOf(file), std::vector<LockHolder>()) << "without a file";
  Child child([&](Child::Line& parent) {
    VdmLocks locks(file);
    const auto project = Get(locks.AcquireProject(kNoWait));
    const auto vdm = Get(locks.Acquire(kNumber));
    parent.Tell();
    return parent.Await();
  });
  ASSERT_TRUE(child.line().Await());
  const auto holders = HoldersOf(file);
  ASSERT_EQ(holders.size(), 2u);
  EXPECT_EQ(holders[0].vdm, kNumber);
  EXPECT_FALSE(holders[1].vdm);
  const CommitOrigin origin = OriginOfProcess();
  EXPECT_EQ(holders[0].who, origin.user + "@" + origin.host);
  EXPECT_LE(holders[0].since, TimeText());
  EXPECT_GT(holders[0].since, "2020");
  child.line().Tell();
  EXPECT_TRUE(child.End());
  EXPECT_EQ(HoldersOf(file), std::vector<LockHolder>());
}

TEST_F(Locks, DoNotCallTheirOwnElsewhere) {
  VdmLocks ours(file);
  const auto held = Get(ours.Acquire(kNumber));
  EXPECT_FALSE(Get(ours.IsHeldElsewhere(kNumber)));
}

TEST_F(Locks, KeepNumbersApartOverTheirWholeRange) {
  VdmLocks ours(file), theirs(file);
  const auto last = Get(ours.Acquire(Number{0xFFFFFFFF}));
  for (const std::uint32_t number : {0u, 1u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFEu}) {
    EXPECT_EQ(Told(theirs.Acquire(Number{number})), "") << number;
  }
  EXPECT_TRUE(Get(theirs.IsHeldElsewhere(Number{0xFFFFFFFF})));
}

TEST_F(Locks, TakeAwayTheFileThatTheyCreatedUnlessOthersHaveALock) {
  VdmLocks ours(file), theirs(file);
  {
    const auto held = Get(ours.AcquireProject(kNoWait));
    const auto vdm = Get(theirs.Acquire(kNumber));
    ours.RemoveOwnFile();
    EXPECT_TRUE(std::filesystem::exists(file)) << "they have a lock";
  }
  {
    const auto held = Get(theirs.AcquireProject(kNoWait));
    theirs.RemoveOwnFile();
    EXPECT_TRUE(std::filesystem::exists(file)) << "they did not create it";
  }
  const auto held = Get(ours.AcquireProject(kNoWait));
  ours.RemoveOwnFile();
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(Locks, LockTheNewFileWhenTheirsWasTakenAway) {
  VdmLocks ours(file), waiting(file), third(file);
  {
    const auto held = Get(ours.AcquireProject(kNoWait));
    ASSERT_EQ(Told(waiting.Check()), "");
    ours.RemoveOwnFile();
  }
  const auto project = Get(third.AcquireProject(kNoWait));
  EXPECT_EQ(waiting.AcquireProject(kNoWait).fault().kind, FaultKind::kBusy);
  const auto vdm = Get(third.Acquire(kNumber));
  EXPECT_TRUE(Get(waiting.IsHeldElsewhere(kNumber)));
}

TEST_F(Locks, AreSeenByOtherProcessesAndDieWithTheirOwn) {
  Child child([&](Child::Line& parent) {
    VdmLocks locks(file);
    const auto held = locks.Acquire(kNumber);
    parent.Tell();
    return parent.Await();
  });
  ASSERT_TRUE(child.line().Await());
  VdmLocks locks(file);
  EXPECT_TRUE(Get(locks.IsHeldElsewhere(kNumber)));
  EXPECT_EQ(Told(locks.Acquire(kNumber)), "VDM 1000 is open elsewhere");
  child.Kill();
  EXPECT_FALSE(Get(locks.IsHeldElsewhere(kNumber)));
  EXPECT_EQ(Told(locks.Acquire(kNumber)), "");
}

TEST_F(Locks, AreAskedWithoutMakingTheFile) {
  const VdmLocks locks(file);
  EXPECT_FALSE(Get(locks.IsHeldElsewhere(kNumber)));
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(Locks, AreAskedAndNotTakenInAReadOnlyFolder) {
  VdmLocks before(file);
  const auto held = Get(before.Acquire(kNumber));
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0500));
  VdmLocks locks(file);
  EXPECT_TRUE(Get(locks.IsHeldElsewhere(kNumber)));
  EXPECT_EQ(Told(locks.Acquire(Number{1})), file.string() + ": is read-only");
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0700));
}

TEST_F(Locks, TellWhyTheFileCannotBeUsed) {
  std::filesystem::create_directory(file);
  EXPECT_EQ(Told(VdmLocks(file).Acquire(kNumber)), file.string() + ": cannot be locked: Is a directory");
}

}  // namespace
}  // namespace vanzet::vdm

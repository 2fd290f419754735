#include "vdm/vdm_locks.h"

#include <gtest/gtest.h>

#include "support/child.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::vdm {
namespace {

using test::Child;
using test::Get;
using test::Told;

constexpr Number kNumber{1000};

struct Locks : testing::Test {
  test::TemporaryFolder folder;
  const std::filesystem::path file = folder / "store.lock";
};

TEST_F(Locks, HoldOneVdmAgainstAllOthersUntilTheyLetGo) {
  VdmLocks ours(file), theirs(file);
  {
    const auto held = Get(ours.Take(kNumber));
    EXPECT_TRUE(Get(theirs.HeldElsewhere(kNumber)));
    EXPECT_EQ(Told(theirs.Take(kNumber)), "VDM 1000 is open elsewhere");
  }
  EXPECT_FALSE(Get(theirs.HeldElsewhere(kNumber)));
  EXPECT_EQ(Told(theirs.Take(kNumber)), "");
}

TEST_F(Locks, DoNotCallTheirOwnElsewhere) {
  VdmLocks ours(file);
  const auto held = Get(ours.Take(kNumber));
  EXPECT_FALSE(Get(ours.HeldElsewhere(kNumber)));
}

TEST_F(Locks, KeepNumbersApartOverTheirWholeRange) {
  VdmLocks ours(file), theirs(file);
  const auto last = Get(ours.Take(Number{0xFFFFFFFF}));
  for (const std::uint32_t number : {0u, 1u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFEu}) {
    EXPECT_EQ(Told(theirs.Take(Number{number})), "") << number;
  }
  EXPECT_TRUE(Get(theirs.HeldElsewhere(Number{0xFFFFFFFF})));
}

TEST_F(Locks, AreSeenByOtherProcessesAndDieWithTheirOwn) {
  Child child([&](Child::Line& parent) {
    VdmLocks locks(file);
    const auto held = locks.Take(kNumber);
    parent.Tell();
    return parent.Await();
  });
  ASSERT_TRUE(child.line().Await());
  VdmLocks locks(file);
  EXPECT_TRUE(Get(locks.HeldElsewhere(kNumber)));
  EXPECT_EQ(Told(locks.Take(kNumber)), "VDM 1000 is open elsewhere");
  child.Kill();
  EXPECT_FALSE(Get(locks.HeldElsewhere(kNumber)));
  EXPECT_EQ(Told(locks.Take(kNumber)), "");
}

TEST_F(Locks, AreAskedWithoutMakingTheFile) {
  const VdmLocks locks(file);
  EXPECT_FALSE(Get(locks.HeldElsewhere(kNumber)));
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(Locks, AreAskedAndNotTakenInAReadOnlyFolder) {
  VdmLocks before(file);
  const auto held = Get(before.Take(kNumber));
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0500));
  VdmLocks locks(file);
  EXPECT_TRUE(Get(locks.HeldElsewhere(kNumber)));
  EXPECT_EQ(Told(locks.Take(Number{1})), file.string() + ": is read-only");
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0700));
}

TEST_F(Locks, TellWhyTheFileCannotBeUsed) {
  std::filesystem::create_directory(file);
  EXPECT_EQ(Told(VdmLocks(file).Take(kNumber)), file.string() + ": cannot be locked: Is a directory");
}

}  // namespace
}  // namespace vanzet::vdm

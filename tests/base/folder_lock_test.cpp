#include "base/files/folder_lock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "support/child.h"
#include "support/temporary_folder.h"

namespace vanzet::files {
namespace {

TEST(FolderLock, IsWaitedFor) {
  const test::TemporaryFolder folder;
  test::Child other([&](test::Child::Line& line) {
    const auto lock = FolderLock::Acquire(folder.path());
    line.Tell();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    test::WriteBytes(folder / "done", "");
    return static_cast<bool>(lock);
  });
  ASSERT_TRUE(other.line().Await());
  const auto lock = FolderLock::Acquire(folder.path());
  ASSERT_TRUE(lock);
  EXPECT_TRUE(std::filesystem::exists(folder / "done"));
  EXPECT_TRUE(other.End());
}

TEST(FolderLock, IsRefusedAtOnceToThoseWhoDoNotWait) {
  const test::TemporaryFolder folder;
  {
    const auto lock = FolderLock::TryAcquire(folder.path());
    ASSERT_TRUE(lock);
    const auto second = FolderLock::TryAcquire(folder.path());
    ASSERT_FALSE(second);
    EXPECT_EQ(second.fault().kind, FaultKind::kBusy);
    EXPECT_EQ(second.fault().Message(), folder.path().string() + ": another process keeps its files locked");
  }
  EXPECT_TRUE(FolderLock::TryAcquire(folder.path()));
}

TEST(FolderLock, GoesWithItsProcess) {
  const test::TemporaryFolder folder;
  test::Child other([&](test::Child::Line& line) {
    const auto lock = FolderLock::Acquire(folder.path());
    line.Tell();
    line.Await();
    return static_cast<bool>(lock);
  });
  ASSERT_TRUE(other.line().Await());
  other.Kill();
  EXPECT_TRUE(FolderLock::Acquire(folder.path()));
}

TEST(FolderLock, OfAFolderThatIsNotThereIsAFault) {
  EXPECT_EQ(FolderLock::Acquire("/no/such").fault().Message(),
            "/no/such: cannot be locked: No such file or directory");
}

}  // namespace
}  // namespace vanzet::files

#include "base/files/whole_file.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/files/folder_lock.h"
#include "base/files/regular_file.h"
#include "base/files/windows_api.h"
#include "platform/files.h"
#include "platform/host_text.h"
#include "support/temporary_folder.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;

class WindowsWholeFile : public testing::Test {
 protected:
  static std::string Refusal(const Result<void>& result) { return result ? "" : result.fault().text; }
  Result<void> Write(std::string_view bytes) const { return ReplaceFile(file, bytes, Keep::kIdentity); }
  std::ptrdiff_t Files() const {
    return std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator());
  }

  const test::TemporaryFolder folder;
  const fs::path file = folder / "shop.cld";
};

TEST_F(WindowsWholeFile, IsMadeAndReplacedAndLeavesNothingBeside) {
  for (const char* bytes : {"first", "a longer second one", "3\n"}) {
    ASSERT_TRUE(Write(bytes));
    EXPECT_EQ(test::ReadBytes(file), bytes);
  }
  EXPECT_EQ(Files(), 1);
}

TEST_F(WindowsWholeFile, LeavesAFileThatHasTheNameOfANewOneAlone) {
  test::WriteBytes(folder / "shop.cld.new", "mine");
  test::WriteBytes(folder / ("shop.cld.new-" + std::to_string(GetCurrentProcessId()) + "-0"), "theirs");
  ASSERT_TRUE(Write("new"));
  EXPECT_EQ(test::ReadBytes(file), "new");
  EXPECT_EQ(Files(), 3);
}

TEST_F(WindowsWholeFile, IsWrittenInPlaceWhileAnotherReadsIt) {
  test::WriteBytes(file, "a long text of before");
  const Handle reader(CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  ASSERT_TRUE(reader);
  EXPECT_TRUE(Write("new"));
  EXPECT_EQ(test::ReadBytes(file), "new");
  EXPECT_EQ(Files(), 1);
}

TEST_F(WindowsWholeFile, StaysWhereAnotherLetsNobodyWrite) {
  test::WriteBytes(file, "old");
  {
    const Handle holder(CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
    const auto written = Write("new");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.fault().kind, FaultKind::kSystem);
    EXPECT_EQ(written.fault().file, file.string());
  }
  EXPECT_EQ(test::ReadBytes(file), "old");
  EXPECT_EQ(Files(), 1);
}

TEST_F(WindowsWholeFile, IsNotWrittenWhereItIsReadOnly) {
  test::WriteBytes(file, "old");
  SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(Refusal(Write("new")), "is read-only");
  EXPECT_EQ(Refusal(CheckChangeableFile(file)), "is read-only");
  SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(test::ReadBytes(file), "old");
}

TEST_F(WindowsWholeFile, KeepsItsOtherNames) {
  test::WriteBytes(file, "old");
  if (CreateHardLinkW((folder / "other.cld").c_str(), file.c_str(), nullptr) == 0)
    GTEST_SKIP() << "no second names";
  ASSERT_TRUE(Write("new"));
  EXPECT_EQ(test::ReadBytes(folder / "other.cld"), "new");
}

TEST_F(WindowsWholeFile, IsNotAFolderOrADevice) {
  for (const fs::path& other : {folder.path(), fs::path("NUL")}) {
    EXPECT_EQ(Refusal(ReplaceFile(other, "new", Keep::kIdentity)), "is not a regular file") << other;
    const auto read = ReadWholeFile(other);
    ASSERT_FALSE(read) << other;
    EXPECT_EQ(read.fault().text, "is not a regular file") << other;
  }
}

TEST_F(WindowsWholeFile, SaysWhyItCannotBeReadOrWritten) {
  const auto read = ReadWholeFile(folder / "none.cld");
  ASSERT_FALSE(read);
  EXPECT_EQ(read.fault().kind, FaultKind::kMissing);
  EXPECT_TRUE(read.fault().text.starts_with("cannot be read: ")) << read.fault().text;
  EXPECT_EQ(ReadWholeFile(folder / "none/none.cld").fault().kind, FaultKind::kMissing);
  const auto written = ReplaceFile(folder / "none/new.cld", "new", Keep::kIdentity);
  ASSERT_FALSE(written);
  EXPECT_TRUE(written.fault().text.starts_with("cannot be written: ")) << written.fault().text;
}

TEST_F(WindowsWholeFile, IsCopiedOverAnotherByteForByte) {
  test::WriteBytes(folder / "template.vdm", "vdm 1\r\na\nb\x1A c");
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(platform::CopyWholeFile((folder / "template.vdm").string(), file.string()));
    EXPECT_EQ(test::ReadBytes(file), "vdm 1\r\na\nb\x1A c");
  }
}

TEST(WindowsTextFile, HasLinesThatEndWithCarriageReturns) {
  EXPECT_EQ(platform::TextFileBytes("a\n\nb\n"), "a\r\n\r\nb\r\n");
  EXPECT_EQ(platform::TextFileBytes(""), "");
}

TEST(WindowsFolderLock, IsThatOfTheWholeFolderWhateverItsCase) {
  const test::TemporaryFolder folder;
  const fs::path locked = LockedFolderOf(folder / "sub/../shop.cld");
  EXPECT_EQ(locked, folder.path());
  EXPECT_EQ(LockedFolderOf(LR"(\\server\share\shop\x.cld)").native(), LR"(\\server\share\shop)");
  EXPECT_TRUE(FolderLock::TryAcquire(locked));
}

}  // namespace
}  // namespace vanzet::files

#include "base/files/whole_file.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/child.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;
using test::FileSizeLimit;
using test::ReadBytes;
using test::WriteBytes;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class WholeFile : public testing::Test {
 protected:
  /// The names in the folder of the file.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder.path())) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  /// Writes it as a file of the shop, whose identity stays.
  static Result<void> Write(const fs::path& path, std::string_view bytes) {
    return ReplaceFile(path, bytes, Keep::kIdentity);
  }

  static ino_t NumberOf(const fs::path& path) {
    struct stat status = {};
    stat(path.c_str(), &status);
    return status.st_ino;
  }

  test::TemporaryFolder folder;
  const fs::path file = folder / "a.cld";
};

TEST_F(WholeFile, IsMadeWhereItIsMissing) {
  EXPECT_TRUE(Write(file, "abc"));
  EXPECT_EQ(ReadBytes(file), "abc");
  EXPECT_THAT(Names(), ElementsAre("a.cld"));
}

TEST_F(WholeFile, TakesThePlaceOfTheOldContent) {
  WriteBytes(file, "a longer old content");
  for (const char* bytes : {"abc", "", "another one"}) {
    EXPECT_TRUE(Write(file, bytes));
    EXPECT_EQ(ReadBytes(file), bytes);
  }
  EXPECT_THAT(Names(), ElementsAre("a.cld"));
}

TEST_F(WholeFile, KeepsItsPermissions) {
  WriteBytes(file, "old");
  fs::permissions(file, fs::perms(0640));
  EXPECT_TRUE(Write(file, "new"));
  EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
}

TEST_F(WholeFile, KeepsItsOwner) {
  WriteBytes(file, "old");
  if (chown(file.c_str(), 12345, 54321) != 0) GTEST_SKIP() << "only the superuser gives files away";
  EXPECT_TRUE(Write(file, "new"));
  struct stat status = {};
  ASSERT_EQ(stat(file.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 12345U);
  EXPECT_EQ(status.st_gid, 54321U);
}

TEST_F(WholeFile, LeavesALinkALink) {
  WriteBytes(folder / "shop" / "real.cld", "old");
  fs::create_symlink("shop/real.cld", file);
  EXPECT_TRUE(Write(file, "new"));
  EXPECT_TRUE(fs::is_symlink(file));
  EXPECT_EQ(ReadBytes(folder / "shop" / "real.cld"), "new");
}

TEST_F(WholeFile, MakesWhatALinkLeadsTo) {
  fs::create_symlink("real.cld", file);
  EXPECT_TRUE(Write(file, "new"));
  EXPECT_TRUE(fs::is_symlink(file));
  EXPECT_EQ(ReadBytes(folder / "real.cld"), "new");
}

TEST_F(WholeFile, KeepsAllItsNames) {
  WriteBytes(file, "a longer old content");
  fs::create_hard_link(file, folder / "b.cld");
  EXPECT_TRUE(Write(file, "new"));
  EXPECT_EQ(ReadBytes(folder / "b.cld"), "new");
  EXPECT_THAT(Names(), UnorderedElementsAre("a.cld", "b.cld"));
}

TEST_F(WholeFile, MayHaveTheLongestName) {
  const fs::path longest = folder / std::string(255, 'n');
  EXPECT_TRUE(Write(longest, "made"));
  EXPECT_TRUE(Write(longest, "new"));
  EXPECT_EQ(ReadBytes(longest), "new");
}

TEST_F(WholeFile, IsNotWrittenThroughALinkThatWaitsNextToIt) {
  WriteBytes(folder / "elsewhere", "precious");
  WriteBytes(file, "old");
  fs::create_symlink("elsewhere", folder / ("a.cld.new-" + std::to_string(getpid())));
  for (const Keep keep : {Keep::kPermissions, Keep::kIdentity}) {
    EXPECT_TRUE(ReplaceFile(file, "new", keep));
    EXPECT_EQ(ReadBytes(folder / "elsewhere"), "precious");
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(file)));
    EXPECT_EQ(ReadBytes(file), "new");
  }
}

TEST_F(WholeFile, KeepsOtherNamesOnlyWithItsIdentity) {
  WriteBytes(file, "old");
  fs::create_hard_link(file, folder / "b.cld");
  EXPECT_TRUE(ReplaceFile(file, "new"));
  EXPECT_EQ(ReadBytes(folder / "b.cld"), "old");
}

TEST_F(WholeFile, IsRefusedWithTheReason) {
  const auto refusal = [&](const fs::path& path) { return Write(path, "new").fault().Message(); };
  WriteBytes(file, "old");
  fs::permissions(file, fs::perms(0444));
  EXPECT_EQ(refusal(file), file.string() + ": is read-only");
  EXPECT_EQ(refusal(folder.path()), folder.path().string() + ": is not a regular file");
  EXPECT_EQ(refusal(folder / "b" / "c"),
            (folder / "b" / "c").string() + ": cannot be written: No such file or directory");
  fs::create_symlink("circle", folder / "circle");
  EXPECT_EQ(refusal(folder / "circle"),
            (folder / "circle").string() + ": cannot be written: Too many levels of symbolic links");
  const FileSizeLimit limit(1000);
  const Result<void> full = Write(folder / "missing", std::string(5000, 'x'));
  EXPECT_EQ(full.fault().Message(), (folder / "missing").string() + ": cannot be written: File too large");
}

TEST_F(WholeFile, IsRefusedWhenItIsReadOnly) {
  WriteBytes(file, "old");
  fs::permissions(file, fs::perms(0444));
  EXPECT_FALSE(CheckChangeableFile(file));
  EXPECT_FALSE(Write(file, "new"));
  EXPECT_EQ(ReadBytes(file), "old");
}

TEST_F(WholeFile, IsRefusedWhenItIsNoFile) {
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0666), 0);
  for (const fs::path& path :
       {folder.path(), folder / "pipe", fs::path("/dev/null"), fs::path("/dev/full")}) {
    EXPECT_FALSE(CheckChangeableFile(path)) << path;
    EXPECT_FALSE(Write(path, "new")) << path;
  }
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST_F(WholeFile, IsRefusedWhereItsFolderIsMissing) {
  EXPECT_FALSE(CheckChangeableFile(folder / "b" / "a.cld"));
  EXPECT_FALSE(Write(folder / "b" / "a.cld", "new"));
  EXPECT_FALSE(Write("", "new"));
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(WholeFile, StaysAsItWasWhenItsDiskIsFull) {
  WriteBytes(file, "old");
  const std::string tooMuch(5000, 'x');
  {
    const FileSizeLimit limit(1000);
    EXPECT_FALSE(Write(file, tooMuch));
    EXPECT_FALSE(Write(folder / "missing", tooMuch));
  }
  EXPECT_EQ(ReadBytes(file), "old");
  EXPECT_THAT(Names(), ElementsAre("a.cld")) << "nothing is left next to it";
}

TEST_F(WholeFile, StaysAsItWasWhenItIsWrittenInPlaceAndItsDiskIsFull) {
  WriteBytes(file, "old");
  fs::create_hard_link(file, folder / "b.cld");
  {
    const FileSizeLimit limit(1000);
    EXPECT_FALSE(Write(file, std::string(5000, 'x')));
  }
  EXPECT_EQ(ReadBytes(file), "old");
}

TEST_F(WholeFile, IsNeverHalfWrittenByAWriterThatIsKilled) {
  const std::string contents[] = {std::string(300000, 'a'), std::string(200000, 'b')};
  ASSERT_TRUE(Write(file, contents[0]));
  for (int round = 0; round < 20; ++round) {
    const ino_t before = NumberOf(file);
    test::Child writer([&](test::Child::Line&) {
      for (int i = 0;; ++i) static_cast<void>(Write(file, contents[i % 2]));
      return true;
    });
    while (NumberOf(file) == before) usleep(100);
    usleep(static_cast<useconds_t>(round) * 137);
    writer.Kill();
    const std::string left = ReadBytes(file);
    ASSERT_TRUE(left == contents[0] || left == contents[1]) << left.size() << " bytes";
  }
}

}  // namespace
}  // namespace vanzet::files

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

  static ino_t NumberOf(const fs::path& path) {
    struct stat status = {};
    stat(path.c_str(), &status);
    return status.st_ino;
  }

  test::TemporaryFolder folder;
  const fs::path file = folder / "a.cld";
};

TEST_F(WholeFile, IsMadeWhereItIsMissing) {
  EXPECT_TRUE(WriteWholeFile(file, "abc"));
  EXPECT_EQ(ReadBytes(file), "abc");
  EXPECT_THAT(Names(), ElementsAre("a.cld"));
}

TEST_F(WholeFile, TakesThePlaceOfTheOldContent) {
  WriteBytes(file, "a longer old content");
  for (const char* bytes : {"abc", "", "another one"}) {
    EXPECT_TRUE(WriteWholeFile(file, bytes));
    EXPECT_EQ(ReadBytes(file), bytes);
  }
  EXPECT_THAT(Names(), ElementsAre("a.cld"));
}

TEST_F(WholeFile, KeepsItsPermissions) {
  WriteBytes(file, "old");
  fs::permissions(file, fs::perms(0640));
  EXPECT_TRUE(WriteWholeFile(file, "new"));
  EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
}

TEST_F(WholeFile, KeepsItsOwner) {
  WriteBytes(file, "old");
  if (chown(file.c_str(), 12345, 54321) != 0) GTEST_SKIP() << "only the superuser gives files away";
  EXPECT_TRUE(WriteWholeFile(file, "new"));
  struct stat status = {};
  ASSERT_EQ(stat(file.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 12345U);
  EXPECT_EQ(status.st_gid, 54321U);
}

TEST_F(WholeFile, LeavesALinkALink) {
  WriteBytes(folder / "shop" / "real.cld", "old");
  fs::create_symlink("shop/real.cld", file);
  EXPECT_TRUE(WriteWholeFile(file, "new"));
  EXPECT_TRUE(fs::is_symlink(file));
  EXPECT_EQ(ReadBytes(folder / "shop" / "real.cld"), "new");
}

TEST_F(WholeFile, MakesWhatALinkLeadsTo) {
  fs::create_symlink("real.cld", file);
  EXPECT_TRUE(WriteWholeFile(file, "new"));
  EXPECT_TRUE(fs::is_symlink(file));
  EXPECT_EQ(ReadBytes(folder / "real.cld"), "new");
}

TEST_F(WholeFile, KeepsAllItsNames) {
  WriteBytes(file, "a longer old content");
  fs::create_hard_link(file, folder / "b.cld");
  EXPECT_TRUE(WriteWholeFile(file, "new"));
  EXPECT_EQ(ReadBytes(folder / "b.cld"), "new");
  EXPECT_THAT(Names(), UnorderedElementsAre("a.cld", "b.cld"));
}

TEST_F(WholeFile, MayHaveTheLongestName) {
  const fs::path longest = folder / std::string(255, 'n');
  EXPECT_TRUE(WriteWholeFile(longest, "made"));
  EXPECT_TRUE(WriteWholeFile(longest, "new"));
  EXPECT_EQ(ReadBytes(longest), "new");
}

TEST_F(WholeFile, IsRefusedWhenItIsReadOnly) {
  WriteBytes(file, "old");
  fs::permissions(file, fs::perms(0444));
  EXPECT_FALSE(IsChangeableFile(file));
  EXPECT_FALSE(WriteWholeFile(file, "new"));
  EXPECT_EQ(ReadBytes(file), "old");
}

TEST_F(WholeFile, IsRefusedWhenItIsNoFile) {
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0666), 0);
  for (const fs::path& path :
       {folder.path(), folder / "pipe", fs::path("/dev/null"), fs::path("/dev/full")}) {
    EXPECT_FALSE(IsChangeableFile(path)) << path;
    EXPECT_FALSE(WriteWholeFile(path, "new")) << path;
  }
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST_F(WholeFile, IsRefusedWhereItsFolderIsMissing) {
  EXPECT_FALSE(IsChangeableFile(folder / "b" / "a.cld"));
  EXPECT_FALSE(WriteWholeFile(folder / "b" / "a.cld", "new"));
  EXPECT_FALSE(WriteWholeFile("", "new"));
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(WholeFile, StaysAsItWasWhenItsDiskIsFull) {
  WriteBytes(file, "old");
  const std::string tooMuch(5000, 'x');
  {
    const FileSizeLimit limit(1000);
    EXPECT_FALSE(WriteWholeFile(file, tooMuch));
    EXPECT_FALSE(WriteWholeFile(folder / "missing", tooMuch));
  }
  EXPECT_EQ(ReadBytes(file), "old");
  EXPECT_THAT(Names(), ElementsAre("a.cld")) << "nothing is left next to it";
}

TEST_F(WholeFile, StaysAsItWasWhenItIsWrittenInPlaceAndItsDiskIsFull) {
  WriteBytes(file, "old");
  fs::create_hard_link(file, folder / "b.cld");
  {
    const FileSizeLimit limit(1000);
    EXPECT_FALSE(WriteWholeFile(file, std::string(5000, 'x')));
  }
  EXPECT_EQ(ReadBytes(file), "old");
}

TEST_F(WholeFile, IsNeverHalfWrittenByAWriterThatIsKilled) {
  const std::string contents[] = {std::string(300000, 'a'), std::string(200000, 'b')};
  ASSERT_TRUE(WriteWholeFile(file, contents[0]));
  for (int round = 0; round < 20; ++round) {
    const ino_t before = NumberOf(file);
    test::Child writer([&](test::Child::Line&) {
      for (int i = 0;; ++i) WriteWholeFile(file, contents[i % 2]);
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

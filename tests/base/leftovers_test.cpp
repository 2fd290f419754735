#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/files/neighbour_posix.h"
#include "base/files/whole_file.h"
#include "support/child.h"
#include "support/temporary_folder.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;
using test::ReadBytes;
using test::WriteBytes;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::UnorderedElementsAre;

class Leftovers : public testing::Test {
 protected:
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder.path())) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  /// Has a process open a new file with a name next to `file`, and kills it.
  void LeaveOne() {
    test::Child writer([&](test::Child::Line& line) {
      const Neighbour left = Neighbour::WithName(file);
      line.Tell();
      line.Await();
      return static_cast<bool>(left);
    });
    ASSERT_TRUE(writer.line().Await());
    writer.Kill();
  }

  test::TemporaryFolder folder;
  const fs::path file = folder / "a.cld";
};

TEST_F(Leftovers, OfAKilledWriterAreRemoved) {
  LeaveOne();
  ASSERT_THAT(Names(), ElementsAre(MatchesRegex("a\\.cld\\.new-[0-9][A-Z][a-z][0-9][A-Z][a-z]")));
  RemoveLeftovers(folder.path());
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Leftovers, AreNotTheFilesOfALivingWriter) {
  Neighbour named = Neighbour::WithName(file);
  ASSERT_TRUE(named.descriptor().Write("new"));
  RemoveLeftovers(folder.path());
  ASSERT_TRUE(named.TakeNameOfTarget());
  EXPECT_EQ(ReadBytes(file), "new");
  EXPECT_THAT(Names(), ElementsAre("a.cld"));
}

TEST_F(Leftovers, AreNotTheFilesOfAPerson) {
  for (const char* name :
       {"plan.new-layout", "plan.new-123456", "plan.new-1Ab2Cd.txt", "1Ab2Cd", ".new-1Ab2Cd"}) {
    WriteBytes(folder / name, "mine");
  }
  const auto before = Names();
  RemoveLeftovers(folder.path());
  EXPECT_THAT(Names(), testing::UnorderedElementsAreArray(before));
}

TEST_F(Leftovers, AreRegularFiles) {
  fs::create_directory(folder / "folder.new-1Ab2Cd");
  ASSERT_EQ(mkfifo((folder / "pipe.new-1Ab2Cd").c_str(), 0666), 0);
  WriteBytes(folder / "target", "mine");
  fs::create_symlink("target", folder / "link.new-1Ab2Cd");
  RemoveLeftovers(folder.path());
  EXPECT_THAT(Names(),
              UnorderedElementsAre("folder.new-1Ab2Cd", "pipe.new-1Ab2Cd", "target", "link.new-1Ab2Cd"));
}

TEST_F(Leftovers, OfAFolderThatDoesNotExistAreNone) {
  RemoveLeftovers(folder / "missing");
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Leftovers, AreNotMadeWhereFilesNeedNoName) {
  if (const Descriptor nameless(folder.path(), O_TMPFILE | O_WRONLY, 0600); !nameless) {
    GTEST_SKIP() << "the file system has no files without a name";
  }
  auto replacement = FileReplacement::Begin(file);
  ASSERT_TRUE(replacement);
  ASSERT_TRUE(replacement->Write(std::string(100000, 'a')));
  EXPECT_THAT(Names(), IsEmpty());
  ASSERT_TRUE(replacement->Commit());
  EXPECT_THAT(Names(), ElementsAre("a.cld"));
}

TEST_F(Leftovers, AreNotMadeByAWriterThatGivesUp) {
  { const Neighbour named = Neighbour::WithName(file); }
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Leftovers, HaveThePermissionsOfANewFile) {
  const mode_t mask = umask(0027);
  for (Neighbour (*const make)(const fs::path&) : {Neighbour::Of, Neighbour::WithName}) {
    ASSERT_TRUE(make(file).TakeNameOfTarget());
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
  }
  umask(mask);
}

}  // namespace
}  // namespace vanzet::files

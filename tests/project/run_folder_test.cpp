#include "project/run_folder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/child.h"
#include "support/temporary_folder.h"

namespace vanzet::project {
namespace {

namespace fs = std::filesystem;
using test::WriteBytes;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// No process has this number: it is above the largest that Linux gives.
const std::string kDead = "4194305";

class RunFolderTest : public testing::Test {
 protected:
  std::vector<std::string> Names(const fs::path& in) const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(in)) names.push_back(entry.path().filename().string());
    return names;
  }

  void MakeOne() {
    RunFolder run(project.path());
    ASSERT_TRUE(run.Path());
  }

  const test::TemporaryFolder project;
  const fs::path all = project / "tmp";
  const std::string mine = std::to_string(getpid());
};

TEST_F(RunFolderTest, IsThereUntilTheRunEnds) {
  {
    RunFolder run(project.path());
    const auto path = run.Path();
    ASSERT_TRUE(path);
    EXPECT_EQ(*path, all / mine);
    EXPECT_EQ(*run.Path(), *path) << "one folder for the whole run";
    WriteBytes(*path / "a" / "b", "x");
  }
  EXPECT_THAT(Names(all), IsEmpty());
}

TEST_F(RunFolderTest, IsKeptUnderANameThatNoLaterRunRemoves) {
  {
    RunFolder run(project.path());
    run.Keep();
    ASSERT_TRUE(run.Path());
  }
  MakeOne();
  EXPECT_THAT(Names(all), UnorderedElementsAre("kept-" + mine));
}

TEST_F(RunFolderTest, OfAKilledRunIsRemovedByTheNext) {
  test::Child other([&](test::Child::Line& line) {
    RunFolder run(project.path());
    const bool isMade = static_cast<bool>(run.Path());
    WriteBytes(*run.Path() / "tmpclamp.wrl", "x");
    line.Tell();
    line.Await();
    return isMade;
  });
  ASSERT_TRUE(other.line().Await());
  MakeOne();
  EXPECT_THAT(Names(all), UnorderedElementsAre(std::to_string(other.process()))) << "it lives";
  other.Kill();
  MakeOne();
  EXPECT_THAT(Names(all), IsEmpty());
}

TEST_F(RunFolderTest, OfAnotherRunWithTheSameNumberIsLeftAlone) {
  RunFolder first(project.path());
  RunFolder second(project.path());
  ASSERT_TRUE(first.Path());
  ASSERT_TRUE(second.Path());
  EXPECT_EQ(*second.Path(), all / (mine + "-1"));
  EXPECT_TRUE(fs::exists(*first.Path()));
}

TEST_F(RunFolderTest, RemovesNothingElseFromTheFolder) {
  for (const char* name : {"window.lock", "12a/x", "-1/x", "12-/x", "notes/x", "17"})
    WriteBytes(all / name, "mine");
  fs::create_directory(project / "elsewhere");
  WriteBytes(project / "elsewhere" / "x", "mine");
  fs::create_directory_symlink(project / "elsewhere", all / kDead);
  const auto before = Names(all);
  MakeOne();
  EXPECT_THAT(Names(all), testing::UnorderedElementsAreArray(before));
  EXPECT_TRUE(fs::exists(project / "elsewhere" / "x"));
}

TEST_F(RunFolderTest, RemovesNothingBehindALinkInPlaceOfTheFolder) {
  WriteBytes(project / "elsewhere" / "4711" / "x", "mine");
  fs::create_directory_symlink("elsewhere", all);
  MakeOne();
  EXPECT_TRUE(fs::exists(project / "elsewhere" / "4711" / "x"));
}

TEST_F(RunFolderTest, RemovesNewFilesThatKilledRunsLeft) {
  for (const char* folder : {"", "bodies", "figures"})
    WriteBytes(project.path() / folder / "a.new-1Ab2Cd", "x");
  WriteBytes(project / ("bench.ini.new-" + kDead), "x");
  WriteBytes(project / ("drawing.txt.new-" + kDead), "x");
  WriteBytes(project / ("drawing.txt.new-" + mine), "of a process that lives");
  WriteBytes(project / ("plan.txt.new-" + kDead), "of a person");
  WriteBytes(project / "drawing.txt.new-layout", "of a person");
  MakeOne();
  EXPECT_THAT(Names(project.path()),
              UnorderedElementsAre("bodies", "figures", "tmp", "drawing.txt.new-" + mine,
                                   "plan.txt.new-" + kDead, "drawing.txt.new-layout"));
  EXPECT_THAT(Names(project / "bodies"), IsEmpty());
  EXPECT_THAT(Names(project / "figures"), IsEmpty());
}

TEST_F(RunFolderTest, ThatCannotBeMadeIsAFault) {
  WriteBytes(all, "a file");
  RunFolder run(project.path());
  ASSERT_FALSE(run.Path());
  EXPECT_EQ(run.Path().fault().Message(), (all / mine).string() + ": cannot be created: Not a directory");
}

}  // namespace
}  // namespace vanzet::project

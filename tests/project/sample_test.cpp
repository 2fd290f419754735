#include "project/sample.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "project/project.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::project {
namespace {

const std::filesystem::path kShare = VANZET_SOURCE_DIR "/share";

TEST(MakeProject, MakesAProjectThatWorksAtOnce) {
  const test::TemporaryFolder folder;
  ASSERT_TRUE(MakeProject(folder / "a/lathe", "mill-turn", kShare));
  const auto project = Project::Open(folder / "a/lathe", kShare);
  ASSERT_TRUE(project) << project.fault().Message();
  EXPECT_EQ(*project->SpindleSpurs(), 2);
  EXPECT_EQ(project->Environment("SubSpindleAvailable"), "1");
  EXPECT_TRUE(std::filesystem::is_directory(folder / "a/lathe/bodies"));
}

TEST(MakeProject, TakesAnEmptyFolderThatIsThere) {
  const test::TemporaryFolder folder;
  EXPECT_TRUE(MakeProject(folder.path(), "mill-turn", kShare));
}

TEST(MakeProject, RefusesAPlaceWhereSomethingIs) {
  const test::TemporaryFolder folder;
  test::WriteBytes(folder / "file", "mine");
  EXPECT_FALSE(MakeProject(folder.path(), "mill-turn", kShare));
  EXPECT_FALSE(MakeProject(folder / "file", "mill-turn", kShare));
  EXPECT_EQ(test::ReadBytes(folder / "file"), "mine");
  EXPECT_FALSE(std::filesystem::exists(folder / "bench.ini"));
}

TEST(MakeProject, LeavesAFolderThatWasThereWhenItFails) {
  const test::TemporaryFolder folder;
  std::filesystem::create_directories(folder / "share/samples/broken");
  std::filesystem::create_symlink("/no/such", folder / "share/samples/broken/link");
  test::WriteBytes(folder / "share/samples/broken/bodies", "no folder");
  std::filesystem::create_directories(folder / "lathe");
  EXPECT_FALSE(MakeProject(folder / "lathe", "broken", folder / "share"));
  EXPECT_TRUE(std::filesystem::is_empty(folder / "lathe"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2)
      << "nothing is left next to it";
}

TEST(MakeProject, WritesNothingBehindALinkThatWaitsNextToIt) {
  const test::TemporaryFolder folder;
  std::filesystem::create_directory(folder / "elsewhere");
  std::filesystem::create_directory_symlink("elsewhere", folder / ("lathe.new-" + std::to_string(getpid())));
  EXPECT_FALSE(MakeProject(folder / "lathe", "mill-turn", kShare));
  EXPECT_TRUE(std::filesystem::is_empty(folder / "elsewhere"));
}

TEST(MakeProject, RemovesWhatAKilledProcessLeftAndNothingElse) {
  const test::TemporaryFolder folder;
  const pid_t dead = fork();
  if (dead == 0) _exit(0);
  waitpid(dead, nullptr, 0);
  const auto left = folder / ("lathe.new-" + std::to_string(dead));
  const auto begun = folder / ("lathe.new-0" + std::to_string(dead));
  const auto busy = folder / ("lathe.new-" + std::to_string(getppid()));
  const auto mine = folder / "lathe.new-year";
  for (const auto& other : {left, busy, mine}) test::WriteBytes(other / "file", "text");
  std::filesystem::create_directories(left / "tmp" / std::to_string(dead));
  std::filesystem::create_directories(begun / "tmp");
  ASSERT_TRUE(MakeProject(folder / "lathe", "mill-turn", kShare));
  EXPECT_FALSE(std::filesystem::exists(left));
  EXPECT_FALSE(std::filesystem::exists(begun)) << "it was killed before it made a file";
  EXPECT_TRUE(std::filesystem::exists(busy / "file"));
  EXPECT_TRUE(std::filesystem::exists(mine / "file"));
}

TEST(MakeProject, LeavesAFolderOfAPersonThatIsNamedLikeThoseOfKilledProcesses) {
  const test::TemporaryFolder folder;
  const pid_t dead = fork();
  if (dead == 0) _exit(0);
  waitpid(dead, nullptr, 0);
  const auto mine = folder / ("lathe.new-" + std::to_string(dead));
  test::WriteBytes(mine / "plan.txt", "text");
  ASSERT_TRUE(MakeProject(folder / "lathe", "mill-turn", kShare));
  EXPECT_TRUE(std::filesystem::exists(mine / "plan.txt"));
  EXPECT_TRUE(std::filesystem::is_empty(folder / "lathe/tmp")) << "a new project has no run";
}

TEST(MakeProject, RefusesANameThatWouldBeTakenApart) {
  const test::TemporaryFolder folder;
  EXPECT_FALSE(MakeProject(folder / "a\\b", "mill-turn", kShare));
  EXPECT_FALSE(MakeProject("", "mill-turn", kShare));
}

TEST(MakeProject, TakesATrailingSlash) {
  const test::TemporaryFolder folder;
  EXPECT_TRUE(MakeProject(folder.path().string() + "/lathe/", "mill-turn", kShare));
  EXPECT_TRUE(std::filesystem::exists(folder / "lathe/bench.ini"));
}

TEST(MakeProject, NamesTheSamplesWhenThereIsNoneOfThatName) {
  const test::TemporaryFolder folder;
  const auto made = MakeProject(folder / "lathe", "swiss", kShare);
  ASSERT_FALSE(made);
  EXPECT_EQ(made.fault().text, "no such sample: 'swiss'; the samples are: lathe, mill-turn");
  EXPECT_FALSE(std::filesystem::exists(folder / "lathe"));
}

TEST(MakeProject, NamesANearSample) {
  const test::TemporaryFolder folder;
  EXPECT_EQ(MakeProject(folder / "lathe", "millturn", kShare).fault().text,
            "no such sample: 'millturn'; did you mean 'mill-turn'?");
}

TEST(MakeProject, LeavesNothingWhereItCannotBeFilled) {
  const test::TemporaryFolder folder;
  const auto made = MakeProject(folder / "lathe", "lathe", kShare, [](const std::filesystem::path& place) {
    EXPECT_TRUE(std::filesystem::exists(place / "clampdevice.cld"));
    return Result<void>(Fault{"no"});
  });
  EXPECT_EQ(made.fault().text, "no");
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(MakeProject, OfTheLatheHasOneSpindleATailstockAndTheCatalogueItself) {
  const test::TemporaryFolder folder;
  ASSERT_TRUE(MakeProject(folder / "lathe", "lathe", kShare));
  const auto project = Project::Open(folder / "lathe", kShare);
  ASSERT_TRUE(project) << project.fault().Message();
  EXPECT_EQ(*project->SpindleSpurs(), 1);
  EXPECT_EQ(project->Environment("SubSpindleAvailable"), "0");
  EXPECT_EQ(project->Environment("TailStockAvailable"), "1");
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "lathe/clampdevice.cld"));
}

TEST(SampleNames, AreTheFoldersOfSamples) {
  EXPECT_THAT(SampleNames(kShare), testing::ElementsAre("lathe", "mill-turn"));
  EXPECT_THAT(SampleNames("/no/such/folder"), testing::IsEmpty());
}

}  // namespace
}  // namespace vanzet::project

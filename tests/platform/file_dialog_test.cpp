#include "platform/file_dialog.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/file_choices.h"
#include "support/temporary_folder.h"

namespace vanzet::platform {
namespace {

namespace fs = std::filesystem;

/// Goes elsewhere and chooses a file there.
class Wanderer final : public FilePresenter {
 public:
  explicit Wanderer(fs::path where) : where_(std::move(where)) {}
  std::optional<std::string> Choose(const FileQuestion& /*question*/) override {
    fs::current_path(where_);
    return "chosen";
  }

 private:
  fs::path where_;
};

TEST(AskForFile, IsCancelledWhereThereIsNobodyToChoose) {
  EXPECT_EQ(AskForFile({}), std::nullopt);
}

TEST(AskForFile, GoesToThePresenterOfTheScopeAndThenToTheFormerOne) {
  test::FileChoices outer;
  {
    test::FileChoices inner;
    inner.choices = {"a.cld"};
    EXPECT_EQ(AskForFile({.suggested = "one"}), "a.cld");
    EXPECT_EQ(inner.asked.at(0).suggested, "one");
  }
  EXPECT_EQ(AskForFile({.suggested = "two"}), std::nullopt);
  EXPECT_EQ(outer.asked.at(0).suggested, "two");
}

TEST(AskForFile, TakesNoPathThatIsTooLong) {
  test::FileChoices files;
  files.choices = {std::string(260, 'a'), std::string(261, 'a')};
  EXPECT_EQ(AskForFile({.longestPath = 260}), std::string(260, 'a'));
  EXPECT_EQ(AskForFile({.longestPath = 260}), std::nullopt);
}

TEST(AskForFile, PutsTheCurrentDirectoryBack) {
  const test::TemporaryFolder folder;
  const fs::path before = fs::current_path();
  Wanderer wanderer(folder.path());
  const FilePresenterScope scope(wanderer);
  EXPECT_EQ(AskForFile({}), "chosen");
  EXPECT_EQ(fs::current_path(), before);
}

TEST(AskForFile, WorksWhereTheCurrentDirectoryIsGone) {
  const fs::path before = fs::current_path();
  const test::TemporaryFolder folder;
  fs::create_directory(folder / "gone");
  fs::current_path(folder / "gone");
  fs::remove(folder / "gone");
  test::FileChoices files;
  files.choices = {"a"};
  EXPECT_EQ(AskForFile({}), "a");
  fs::current_path(before);
}

}  // namespace
}  // namespace vanzet::platform

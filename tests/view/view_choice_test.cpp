#include "view/view_choice.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::view {
namespace {

class ViewChoiceTest : public testing::Test {
 protected:
  ~ViewChoiceTest() override {
    for (const char* name : {"VANZET_SCRIPT", "VANZET_TRANSCRIPT", "VANZET_VIEW_QT", "DISPLAY"})
      unsetenv(name);
  }
  void ScriptInForce(const std::string& text) {
    test::WriteBytes(folder / "script.txt", text);
    setenv("VANZET_SCRIPT", (folder / "script.txt").c_str(), 1);
    setenv("VANZET_TRANSCRIPT", (folder / "run.jsonl").c_str(), 1);
  }

  const test::TemporaryFolder folder;
  const platform::MessageBox question{"", "Delete?", 4, nullptr};
};

TEST_F(ViewChoiceTest, IsTheConsoleWithoutAScript) {
  ViewChoice choice;
  testing::internal::CaptureStderr();
  EXPECT_EQ(choice.Choose()->Boxes().Present(question), platform::answer::kNo);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Delete? [No]\n");
}

TEST_F(ViewChoiceTest, IsTheConsoleAfterOneLineWhereTheDisplayDoesNotAnswer) {
  setenv("DISPLAY", ":4711", 1);
  setenv("VANZET_VIEW_QT", VANZET_VIEW_QT_FILE, 1);
  ViewChoice choice;
  testing::internal::CaptureStderr();
  EXPECT_EQ(choice.Choose()->ForDialog(), nullptr);
  EXPECT_EQ(choice.Choose()->ForDialog(), nullptr);
  EXPECT_EQ(
      testing::internal::GetCapturedStderr(),
      "vanzet: The dialog cannot be shown on a display: no answer from the display ':4711' of DISPLAY\n");
}

TEST_F(ViewChoiceTest, IsTheConsoleAfterALineWhereTheViewsLibraryIsMissing) {
  setenv("DISPLAY", ":4711", 1);
  setenv("VANZET_VIEW_QT", (folder / "view.so").c_str(), 1);
  ViewChoice choice;
  testing::internal::CaptureStderr();
  EXPECT_EQ(choice.Choose()->ForDialog(), nullptr);
  const std::string told = testing::internal::GetCapturedStderr();
  EXPECT_NE(told.find((folder / "view.so").string()), std::string::npos) << told;
}

TEST_F(ViewChoiceTest, IsTheScriptAlsoWhereADisplayIs) {
  setenv("DISPLAY", ":4711", 1);
  ScriptInForce("");
  ViewChoice choice;
  EXPECT_NE(choice.Choose()->ForDialog(), nullptr);
}

TEST_F(ViewChoiceTest, IsTheScriptWhereOneIsNamed) {
  ScriptInForce("answer yes\n");
  ViewChoice choice;
  EXPECT_EQ(choice.Choose()->Boxes().Present(question), platform::answer::kYes);
}

TEST_F(ViewChoiceTest, HasADialogOnlyWhereAScriptServes) {
  ViewChoice choice;
  EXPECT_EQ(choice.Choose()->ForDialog(), nullptr);
  EXPECT_EQ(choice.Choose()->Files().Choose({}), std::nullopt);
  ScriptInForce("");
  EXPECT_NE(choice.Choose()->ForDialog(), nullptr);
}

TEST_F(ViewChoiceTest, LetsTheViewOfAnOuterCallServeOn) {
  ScriptInForce("answer yes\nanswer cancel\n");
  ViewChoice choice;
  const auto outer = choice.Choose();
  EXPECT_EQ(outer->Boxes().Present(question), platform::answer::kYes);
  EXPECT_EQ(choice.Choose()->Boxes().Present(question), platform::answer::kYes);
  EXPECT_EQ(outer->Boxes().Present(question), platform::answer::kCancel);
}

TEST_F(ViewChoiceTest, QueuesTheAnswersAnewAndGoesOnWithTheTranscript) {
  ScriptInForce("answer yes\n");
  ViewChoice choice;
  for (int call = 0; call < 2; ++call) {
    EXPECT_EQ(choice.Choose()->Boxes().Present(question), platform::answer::kYes);
  }
  const std::string line =
      "{\"event\":\"box\",\"caption\":\"\",\"text\":\"Delete?\",\"type\":4,\"answer\":6}\n";
  EXPECT_EQ(test::ReadBytes(folder / "run.jsonl"), line + line);
}

}  // namespace
}  // namespace vanzet::view

#include "dialog/dialog_fixture.h"
#include "dialog/dlg_main.h"
#include "support/file_choices.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using platform::FileQuestion;

/// A view with a window, in which nobody does anything.
class QuietView final : public view::DialogView {
 public:
  std::int32_t Serve(view::Dialog& dialog, void* /*parent*/, std::int32_t /*flags*/) override {
    return dialog.Result();
  }
  void StateChanged(const view::DialogState& /*state*/) override {}
  void SetVisible(bool /*isVisible*/) override {}
  void Focus(std::int32_t /*control*/, bool /*selectsAll*/) override {}
  std::optional<std::int32_t> Popup(std::int32_t /*node*/,
                                    const std::vector<view::PopupEntry>& /*entries*/) override {
    return std::nullopt;
  }
  void* Window() override { return this; }
};

/// In front of which windows the dialog asks.
class Owners : public DialogTest {
 protected:
  Owners() { host.boxes.clear(); }

  QuietView view;
  FileChoices files;
};

TEST_F(Owners, BoxesOfThePagesStandInFrontOfTheHostsWindow) {
  dialog::CDlgMain dialog(&world.window, view);
  dialog.SelectNode(node::kBilletFromFigureMain);
  dialog.Press(control::kSelect);
  dialog.SetText(control::kPartLength, "x");
  dialog.Press(control::kSelect);
  ASSERT_EQ(host.boxes.size(), 2U);
  for (const platform::MessageBox& box : host.boxes) EXPECT_EQ(box.owner, FakeHost::WindowOf(2)) << box.text;
}

TEST_F(Owners, TheQuestionBeforeALoadStandsInFrontOfTheDialog) {
  dialog::CDlgMain dialog(&world.window, view);
  files.choices = {"/old.vdm"};
  dialog.Press(control::kLoad);
  ASSERT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].owner, &view);
  EXPECT_EQ(host.boxes[0].caption, "");
}

TEST_F(Owners, ConfigurationsAreChosenInFrontOfTheDialogAndConfirmedBeforeTheyAreOverwritten) {
  dialog::CDlgMain dialog(&world.window, view);
  dialog.Press(control::kSave);
  dialog.Press(control::kLoad);
  ASSERT_EQ(files.asked.size(), 2U);
  EXPECT_EQ(files.asked[0].kind, FileQuestion::Kind::kSave);
  EXPECT_EQ(files.asked[1].kind, FileQuestion::Kind::kOpen);
  for (const FileQuestion& question : files.asked) {
    EXPECT_EQ(question.owner, &view);
    EXPECT_TRUE(question.promptsOverwrite);
  }
}

TEST_F(Owners, OwnDevicesAreChosenInFrontOfTheDialog) {
  dialog::CDlgMain dialog(&world.window, view);
  dialog.SelectNode(node::kChuckMain);
  dialog.Press(control::kBrowse);
  ASSERT_EQ(files.asked.size(), 1U);
  EXPECT_EQ(files.asked[0].owner, &view);
}

TEST_F(Owners, MistakesInAHandlerReachTheCallerOfTheDialog) {
  dialog::CDlgMain dialog(&world.window, view);
  host.onMacro = [](const std::string&, const std::string&) { throw std::out_of_range("a mistake"); };
  EXPECT_THROW(dialog.Press(control::kHelp), std::out_of_range) << "only odd catalogues are expected";
}

TEST_F(Owners, CataloguesAreChosenInFrontOfTheDialog) {
  host.environment["clampmdb"] = "/no/such.cld";
  host.answers = {platform::answer::kYes, platform::answer::kYes};
  dialog::CDlgMain dialog(&world.window, view);
  dialog.SelectNode(node::kNewChuck);
  dialog.SetText(control::kNameList, "New");
  for (const int edit : {control::kEditB, control::kEditC}) dialog.SetText(edit, "1");
  dialog.Press(control::kSaveDevice);
  ASSERT_EQ(files.asked.size(), 2U) << "at the start, and before the write";
  for (const FileQuestion& question : files.asked) EXPECT_EQ(question.owner, &view);
}

}  // namespace
}  // namespace vanzet::test

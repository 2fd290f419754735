#include "view/script/script_view.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/golden.h"
#include "support/reported_faults.h"
#include "support/temporary_folder.h"

namespace vanzet::view {
namespace {

/// A dialog that writes down the events it is sent, and has one control of each kind.
class NotingDialog final : public Dialog {
 public:
  NotingDialog() {
    state.caption = "A \"caption\"";
    state.page = "CPageBezel";
    state.tree = {{1, 0, "Root", false, true, 2100, 2100}, {2, 1, "Leaf", true, false, 2088, 2089}};
    state.dialog = {{.id = 1, .kind = ControlKind::kButton, .text = "OK"},
                    {.id = 2, .kind = ControlKind::kButton, .text = "Cancel", .isVisible = false}};
    state.controls = {
        {.id = 10, .kind = ControlKind::kEdit, .text = "80"},
        {.id = 11, .kind = ControlKind::kCheck, .text = "Use", .isChecked = true},
        {.id = 12, .kind = ControlKind::kCombo, .items = {"A", "5", "-1"}},
        {.id = 13, .kind = ControlKind::kSpin, .value = 3, .least = 3, .most = 16},
        {.id = 14, .kind = ControlKind::kLabel, .text = "Label"},
        {.id = 15, .kind = ControlKind::kPicture, .bitmap = 2048},
        {.id = 16, .kind = ControlKind::kEdit, .isEnabled = false},
    };
  }

  const DialogState& State() override { return state; }
  bool IsOpen() const override { return result == 0; }
  std::int32_t Result() const override { return result; }
  void SelectNode(std::int32_t node) override { Note("select", node); }
  void ContextAt(std::int32_t node) override {
    Note("context", node);
    if (view == nullptr || node != 2) return;
    const auto chosen = view->Popup(node, {{51000, "Delete"}, {51001, "More"}});
    if (chosen) Note("command", *chosen);
  }
  void SetText(std::int32_t control, const std::string& text) override { Note("text " + text, control); }
  void SetChecked(std::int32_t control, bool isChecked) override {
    Note(isChecked ? "tick" : "untick", control);
  }
  void SetValue(std::int32_t control, std::int32_t value) override {
    Note("value " + std::to_string(value), control);
  }
  void Choose(std::int32_t control, std::int32_t index) override {
    Note("choose " + std::to_string(index), control);
  }
  void Press(std::int32_t button) override {
    Note("press", button);
    if (button == 1) result = kClosedByOk;
  }
  void Close() override {
    Note("close", 0);
    result = kClosedByFrame;
  }

  DialogState state;
  std::int32_t result = 0;
  DialogView* view = nullptr;
  std::vector<std::string> events;

 private:
  void Note(const std::string& event, std::int32_t id) { events.push_back(event + " " + std::to_string(id)); }
};

class ScriptViewTest : public testing::Test {
 protected:
  /// The events that a script causes, a line each; the transcript is kept.
  std::string Events(const std::string& script) {
    test::WriteBytes(folder / "script.txt", script);
    ScriptView view((folder / "script.txt").string(),
                    std::make_shared<Transcript>((folder / "run.jsonl").string()));
    NotingDialog dialog;
    dialog.view = &view;
    view.Serve(dialog, nullptr, 4);
    return test::Lines(dialog.events);
  }
  std::string Written() const { return test::ReadBytes(folder / "run.jsonl"); }

  /// A line that is refused causes no event but the close, and one error that names the line.
  void ExpectRefused(const std::string& line) {
    EXPECT_EQ(Events("# first\n" + line + "\npress 1\n"), "close 0\n") << line;
    EXPECT_TRUE(Written().starts_with("{\"event\":\"error\",\"line\":2,\"text\":\"")) << line << Written();
    EXPECT_TRUE(Written().ends_with("\n{\"event\":\"closed\",\"by\":\"close\"}\n")) << line << Written();
    EXPECT_EQ(std::ranges::count(Written(), '\n'), 2) << line;
  }

  const test::TemporaryFolder folder;
};

TEST_F(ScriptViewTest, SendsAnEventForEachCommand) {
  EXPECT_EQ(Events("select 2\nset 10 \"a b\"\nset 11 1\nset 11 0\nset 12 typed\nset 13 16\n"
                   "choose 12 0\nchoose 12 -1\npress 1\n"),
            "select 2\ntext a b 10\ntick 11\nuntick 11\ntext typed 12\nvalue 16 13\n"
            "choose 0 12\nchoose -1 12\npress 1\n");
}

TEST_F(ScriptViewTest, ChoosesByTextWhatIsQuotedOrNoNumber) {
  EXPECT_EQ(Events("choose 12 \"5\"\nchoose 12 A\nchoose 12 \"-1\"\nchoose 12 1\n"),
            "choose 1 12\nchoose 0 12\nchoose 2 12\nchoose 1 12\nclose 0\n");
}

TEST_F(ScriptViewTest, TellsWhatClosedTheDialog) {
  Events("press 1\nselect 2\n");
  EXPECT_EQ(Written(), "{\"event\":\"closed\",\"by\":\"ok\"}\n");
  Events("close\nselect 2\n");
  EXPECT_EQ(Written(), "{\"event\":\"closed\",\"by\":\"close\"}\n");
  EXPECT_EQ(Events("select 2\n"), "select 2\nclose 0\n");
  EXPECT_EQ(Written(), "{\"event\":\"closed\",\"by\":\"end-of-script\"}\n");
}

TEST_F(ScriptViewTest, ReportsTheLineThatFailsToTheHost) {
  const test::ReportedFaults host;
  Events("select 2\nset 10 \"x\npress 1\n");
  ASSERT_EQ(host.faults().size(), 1U);
  const Fault& fault = host.faults().front();
  EXPECT_EQ(fault.Message(), (folder / "script.txt").string() + ":2:8: the closing quote is missing");
  EXPECT_EQ(fault.source, "set 10 \"x");
  EXPECT_EQ(fault.kind, FaultKind::kRefused);
}

TEST_F(ScriptViewTest, ReportsAScriptThatCannotBeRead) {
  const test::ReportedFaults host;
  const ScriptView view("missing.txt", std::make_shared<Transcript>((folder / "run.jsonl").string()));
  EXPECT_EQ(host.Messages(), std::vector<std::string>{"missing.txt: the script cannot be read"});
}

TEST_F(ScriptViewTest, ReportsNothingWhereTheTranscriptIsReadInstead) {
  const test::ReportedFaults host;
  test::WriteBytes(folder / "script.txt", "dance\n");
  ScriptView view((folder / "script.txt").string(),
                  std::make_shared<Transcript>((folder / "run.jsonl").string()), {.reportsErrors = false});
  NotingDialog dialog;
  view.Serve(dialog, nullptr, 4);
  EXPECT_TRUE(host.faults().empty());
  EXPECT_TRUE(Written().starts_with("{\"event\":\"error\",\"line\":1,"));
}

TEST_F(ScriptViewTest, EndsAtATranscriptThatCannotBeWritten) {
  const test::ReportedFaults host;
  test::WriteBytes(folder / "script.txt", "state\nselect 2\npress 1\n");
  ScriptView view((folder / "script.txt").string(), std::make_shared<Transcript>("/dev/full"));
  NotingDialog dialog;
  view.Serve(dialog, nullptr, 4);
  EXPECT_EQ(test::Lines(dialog.events), "close 0\n");
  EXPECT_EQ(host.Messages(),
            std::vector<std::string>{"/dev/full: the transcript cannot be written: No space left on device"});
}

TEST_F(ScriptViewTest, ClosesADialogAtOnceWhenALeadingLineWasRefused) {
  EXPECT_EQ(Events("answer maybe\npress 1\n"), "close 0\n");
  EXPECT_EQ(Written(),
            "{\"event\":\"error\",\"line\":1,"
            "\"text\":\"expected 'answer yes', 'answer no' or 'answer cancel'\"}\n"
            "{\"event\":\"closed\",\"by\":\"close\"}\n");
}

TEST_F(ScriptViewTest, ClosesADialogAtOnceWithoutAScriptToRead) {
  ScriptView view((folder / "none.txt").string(),
                  std::make_shared<Transcript>((folder / "run.jsonl").string()));
  NotingDialog dialog;
  EXPECT_EQ(view.Serve(dialog, nullptr, 4), kClosedByFrame);
  EXPECT_TRUE(Written().ends_with("\n{\"event\":\"closed\",\"by\":\"close\"}\n")) << Written();
}

TEST_F(ScriptViewTest, WritesTheStateOnOneLine) {
  Events("state\n");
  EXPECT_EQ(
      Written().substr(0, Written().find('\n')),
      R"({"event":"state","caption":"A \"caption\"","page":"CPageBezel","spindle":0,"device_type":0,"spur":-1,)"
      R"("selected":0,"tree":[{"id":1,"parent":0,"text":"Root","bold":false,"open":true,"bitmaps":[2100,2100]},)"
      R"({"id":2,"parent":1,"text":"Leaf","bold":true,"open":false,"bitmaps":[2088,2089]}],)"
      R"("dialog":{"1":{"kind":"button","text":"OK","enabled":true,"visible":true},)"
      R"("2":{"kind":"button","text":"Cancel","enabled":true,"visible":false}},)"
      R"("controls":{"10":{"kind":"edit","text":"80","enabled":true,"visible":true},)"
      R"("11":{"kind":"check","text":"Use","checked":true,"enabled":true,"visible":true},)"
      R"("12":{"kind":"combo","items":["A","5","-1"],"selected":-1,"text":"","enabled":true,"visible":true},)"
      R"("13":{"kind":"spin","value":3,"enabled":true,"visible":true},)"
      R"("14":{"kind":"label","text":"Label","enabled":true,"visible":true},)"
      R"("15":{"kind":"picture","bitmap":2048,"enabled":true,"visible":true},)"
      R"("16":{"kind":"edit","text":"","enabled":false,"visible":true}}})");
}

TEST_F(ScriptViewTest, ChoosesFromAPopupOrDismissesIt) {
  EXPECT_EQ(Events("context 2 51000\ncontext 2\ncontext 1\n"),
            "context 2\ncommand 51000\ncontext 2\ncontext 1\nclose 0\n");
}

TEST_F(ScriptViewTest, WritesPopups) {
  Events("context 2 51000\ncontext 2\n");
  EXPECT_TRUE(Written().starts_with(
      R"({"event":"popup","node":2,"entries":[{"command":51000,"text":"Delete"},{"command":51001,"text":"More"}],"chosen":51000})"
      "\n"
      R"({"event":"popup","node":2,"entries":[{"command":51000,"text":"Delete"},{"command":51001,"text":"More"}],"chosen":null})"
      "\n"))
      << Written();
}

TEST_F(ScriptViewTest, RefusesACommandThatNoMenuOffers) {
  for (const char* line : {"context 1 51000", "context 2 7"}) {
    Events(std::string(line) + "\npress 1\n");
    EXPECT_NE(Written().find("{\"event\":\"error\",\"line\":1,"), std::string::npos) << line;
    EXPECT_TRUE(Written().ends_with("{\"event\":\"closed\",\"by\":\"close\"}\n")) << line;
  }
}

TEST_F(ScriptViewTest, QueuesAnswersAndFilesAlsoInTheMidst) {
  test::WriteBytes(folder / "script.txt", "select 2\nanswer yes\nfile \"/x\"\n");
  ScriptView view((folder / "script.txt").string(),
                  std::make_shared<Transcript>((folder / "run.jsonl").string()));
  EXPECT_EQ(view.Present({"", "Sure?", 4, nullptr}), platform::answer::kNo) << "not yet";
  NotingDialog dialog;
  view.Serve(dialog, nullptr, 4);
  EXPECT_EQ(view.Present({"", "Sure?", 4, nullptr}), platform::answer::kYes);
  EXPECT_EQ(view.Choose({}), "/x");
}

TEST_F(ScriptViewTest, WritesWhatAHandlerAsksFor) {
  test::WriteBytes(folder / "script.txt", "");
  ScriptView view((folder / "script.txt").string(),
                  std::make_shared<Transcript>((folder / "run.jsonl").string()));
  view.SetVisible(false);
  view.Focus(2027, true);
  view.SetVisible(true);
  EXPECT_EQ(Written(),
            "{\"event\":\"visible\",\"value\":false}\n"
            "{\"event\":\"focus\",\"control\":2027,\"select_all\":true}\n"
            "{\"event\":\"visible\",\"value\":true}\n");
}

TEST_F(ScriptViewTest, RefusesWhatCannotBeDone) {
  for (const char* line : {"jump",
                           "select",
                           "select 3",
                           "select two",
                           "select 2 2",
                           "context",
                           "context 9",
                           "context 2 51000 1",
                           "context 2 remove",
                           "set 10",
                           "set 99 1",
                           "set 2 1",
                           "set 16 1",
                           "set 1 1",
                           "set 14 1",
                           "set 15 1",
                           "set 11 2",
                           "set 11 yes",
                           "set 13 2",
                           "set 13 17",
                           "set 13 many",
                           "choose 12",
                           "choose 12 3",
                           "choose 12 -2",
                           "choose 12 \"B\"",
                           "choose 12 \"0\"",
                           "choose 10 0",
                           "press",
                           "press 2",
                           "press 10",
                           "press 99",
                           "press okay",
                           "answer",
                           "answer maybe",
                           "answer yes no",
                           "file",
                           "file a b",
                           "state 1",
                           "close 1",
                           "press \"1"}) {
    ExpectRefused(line);
  }
}

}  // namespace
}  // namespace vanzet::view

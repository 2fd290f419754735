#include "view/script/script_view.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/reported_faults.h"
#include "support/temporary_folder.h"

namespace vanzet::view {
namespace {

using platform::MessageBox;

class ScriptViewBoxes : public testing::Test {
 protected:
  /// Boxes served by a script of this text.
  std::unique_ptr<ScriptView> Serve(const std::string& script, const ScriptRules& rules = {}) {
    test::WriteBytes(folder / "script.txt", script);
    return std::make_unique<ScriptView>((folder / "script.txt").string(), transcript, rules);
  }
  std::string Written() const { return test::ReadBytes(folder / "run.jsonl"); }

  const test::TemporaryFolder folder;
  const std::shared_ptr<Transcript> transcript =
      std::make_shared<Transcript>((folder / "run.jsonl").string());
  const MessageBox question{"", "Delete?", 4, nullptr};
  const MessageBox notice{"", "Invalid Solid!", 0, nullptr};
};

TEST_F(ScriptViewBoxes, AnswersQuestionsFromTheQueueAndThenNo) {
  const auto view = Serve("answer yes\nanswer cancel\nanswer no\n");
  EXPECT_EQ(view->Present(question), 6);
  EXPECT_EQ(view->Present(question), 2);
  EXPECT_EQ(view->Present(question), 7);
  EXPECT_EQ(view->Present(question), 7);
}

TEST_F(ScriptViewBoxes, AnswersAQuestionWithNoAlsoWhereItHasACancel) {
  const auto view = Serve("");
  EXPECT_EQ(view->Present({"", "Sure?", 3, nullptr}), 7);
}

TEST_F(ScriptViewBoxes, AnswersOneButtonByItselfAndUsesNothingUp) {
  const auto view = Serve("answer yes\n");
  EXPECT_EQ(view->Present(notice), 1);
  EXPECT_EQ(view->Present(question), 6);
}

TEST_F(ScriptViewBoxes, WritesEachBoxToTheTranscript) {
  Serve("")->Present(notice);
  EXPECT_EQ(Written(),
            "{\"event\":\"box\",\"caption\":\"\",\"text\":\"Invalid Solid!\",\"type\":0,\"answer\":1}\n");
}

TEST_F(ScriptViewBoxes, QueuesOnlyTheAnswersBeforeAllOtherCommands) {
  const auto view = Serve("# start-up\nfile cancel\nanswer yes\nselect 2\nanswer yes\n");
  EXPECT_EQ(view->Present(question), 6);
  EXPECT_EQ(view->Present(question), 7);
}

TEST_F(ScriptViewBoxes, TellsALineThatIsNoAnswer) {
  const auto view = Serve("answer yes\nanswer maybe\nanswer yes\n");
  EXPECT_EQ(view->Present(question), 6);
  EXPECT_EQ(view->Present(question), 7);
  EXPECT_TRUE(Written().starts_with("{\"event\":\"error\",\"line\":2,")) << Written();
}

TEST_F(ScriptViewBoxes, TellsAScriptThatCannotBeRead) {
  ScriptView missing((folder / "none.txt").string(), transcript);
  auto* const view = &missing;
  EXPECT_EQ(view->Present(question), 7);
  EXPECT_TRUE(Written().starts_with("{\"event\":\"error\",\"line\":0,")) << Written();
  EXPECT_NE(Written().find("none.txt"), std::string::npos);
}

TEST_F(ScriptViewBoxes, TellsTheLineWhereAScriptIsBrokenAndKeepsTheAnswersBefore) {
  const auto view = Serve("answer yes\nfile \"x\nanswer yes\n");
  EXPECT_TRUE(Written().starts_with("{\"event\":\"error\",\"line\":2,")) << Written();
  EXPECT_EQ(view->Present(question), 6);
  EXPECT_EQ(view->Present(question), 7);
}

TEST_F(ScriptViewBoxes, ChoosesFilesFromTheQueueAndThenCancels) {
  const auto view = Serve("file \"/a b.vdm\"\nfile cancel\nfile \"cancel\"\n");
  const platform::FileQuestion file = {.filter = "VDM Files (*.vdm)|*.vdm||",
                                       .defaultExtension = "vdm",
                                       .startFolder = "C:\\x",
                                       .suggested = "*.vdm"};
  EXPECT_EQ(view->Choose(file), "/a b.vdm");
  EXPECT_EQ(view->Choose(file), std::nullopt);
  EXPECT_EQ(view->Choose({.kind = platform::FileQuestion::Kind::kSave}), "cancel") << "quoted: a name";
  EXPECT_EQ(view->Choose(file), std::nullopt);
  EXPECT_TRUE(Written().starts_with(
      R"({"event":"file-dialog","kind":"open","filter":"VDM Files (*.vdm)|*.vdm||","default_extension":"vdm",)"
      R"("start_folder":"C:\\x","suggested":"*.vdm","result":"/a b.vdm"})"
      "\n"
      R"({"event":"file-dialog","kind":"open","filter":"VDM Files (*.vdm)|*.vdm||","default_extension":"vdm",)"
      R"("start_folder":"C:\\x","suggested":"*.vdm","result":null})"
      "\n"
      R"({"event":"file-dialog","kind":"save","filter":"",)"))
      << Written();
}

TEST_F(ScriptViewBoxes, TellsAFileLineThatNamesNoFile) {
  Serve("file\n");
  EXPECT_TRUE(Written().starts_with("{\"event\":\"error\",\"line\":1,")) << Written();
}

TEST_F(ScriptViewBoxes, LooksNoFurtherThanTheFirstCommandOfTheDialog) {
  const auto view = Serve("answer yes\nselect 2\nfile \"x\n");
  EXPECT_EQ(Written(), "");
  EXPECT_EQ(view->Present(question), 6);
}

TEST_F(ScriptViewBoxes, ReportsWhatAStrictScriptDidNotAwait) {
  const ScriptRules strict{.name = "job.txt", .isStrict = true};
  const struct {
    std::string script, told;
    std::function<void(ScriptView&)> event;
  } cases[] = {
      {"answer yes\n", "", [&](ScriptView& view) { view.Present(question); }},
      {"file cancel\n", "", [&](ScriptView& view) { view.Choose({}); }},
      {"", "a question without an answer: 'Delete?'", [&](ScriptView& view) { view.Present(question); }},
      {"answer yes\n", "a message: 'Invalid Solid!'", [&](ScriptView& view) { view.Present(notice); }},
      {"", "a file dialog without a 'file' line", [&](ScriptView& view) { view.Choose({}); }},
  };
  for (const auto& each : cases) {
    const test::ReportedFaults host;
    each.event(*Serve(each.script, strict));
    const auto told = each.told.empty()
                          ? std::vector<std::string>()
                          : std::vector<std::string>{"job.txt: the script did not await " + each.told};
    EXPECT_EQ(host.Messages(), told);
  }
}

TEST_F(ScriptViewBoxes, ReportsOnlyTheFirstSurpriseOfAStrictScript) {
  const test::ReportedFaults host;
  const auto view = Serve("", {.isStrict = true});
  for (int i = 0; i < 3; ++i) view->Present(notice);
  EXPECT_EQ(host.faults().size(), 1U);
}

TEST_F(ScriptViewBoxes, AwaitsNothingWhereAScriptIsNotStrict) {
  const test::ReportedFaults host;
  const auto view = Serve("");
  view->Present(notice);
  view->Present(question);
  EXPECT_TRUE(host.faults().empty());
}

}  // namespace
}  // namespace vanzet::view

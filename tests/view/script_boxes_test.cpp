#include "view/script/script_boxes.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace vanzet::view {
namespace {

using platform::MessageBox;

class ScriptBoxesTest : public testing::Test {
 protected:
  /// Boxes served by a script of this text.
  ScriptBoxes Serve(const std::string& script) {
    test::WriteBytes(folder / "script.txt", script);
    return ScriptBoxes((folder / "script.txt").string(), transcript);
  }
  std::string Written() const { return test::ReadBytes(folder / "run.jsonl"); }

  const test::TemporaryFolder folder;
  Transcript transcript{(folder / "run.jsonl").string()};
  const MessageBox question{"", "Delete?", 4, nullptr};
  const MessageBox notice{"", "Invalid Solid!", 0, nullptr};
};

TEST_F(ScriptBoxesTest, AnswersQuestionsFromTheQueueAndThenNo) {
  ScriptBoxes boxes = Serve("answer yes\nanswer cancel\nanswer no\n");
  EXPECT_EQ(boxes.Present(question), 6);
  EXPECT_EQ(boxes.Present(question), 2);
  EXPECT_EQ(boxes.Present(question), 7);
  EXPECT_EQ(boxes.Present(question), 7);
}

TEST_F(ScriptBoxesTest, AnswersAQuestionWithNoAlsoWhereItHasACancel) {
  ScriptBoxes boxes = Serve("");
  EXPECT_EQ(boxes.Present({"", "Sure?", 3, nullptr}), 7);
}

TEST_F(ScriptBoxesTest, AnswersOneButtonByItselfAndUsesNothingUp) {
  ScriptBoxes boxes = Serve("answer yes\n");
  EXPECT_EQ(boxes.Present(notice), 1);
  EXPECT_EQ(boxes.Present(question), 6);
}

TEST_F(ScriptBoxesTest, WritesEachBoxToTheTranscript) {
  Serve("").Present(notice);
  EXPECT_EQ(Written(),
            "{\"event\":\"box\",\"caption\":\"\",\"text\":\"Invalid Solid!\",\"type\":0,\"answer\":1}\n");
}

TEST_F(ScriptBoxesTest, QueuesOnlyTheAnswersBeforeAllOtherCommands) {
  ScriptBoxes boxes = Serve("# start-up\nfile cancel\nanswer yes\nselect 2\nanswer yes\n");
  EXPECT_EQ(boxes.Present(question), 6);
  EXPECT_EQ(boxes.Present(question), 7);
}

TEST_F(ScriptBoxesTest, TellsALineThatIsNoAnswer) {
  ScriptBoxes boxes = Serve("answer yes\nanswer maybe\nanswer yes\n");
  EXPECT_EQ(boxes.Present(question), 6);
  EXPECT_EQ(boxes.Present(question), 7);
  EXPECT_TRUE(Written().starts_with("{\"event\":\"error\",\"line\":2,")) << Written();
}

TEST_F(ScriptBoxesTest, TellsAScriptThatCannotBeRead) {
  ScriptBoxes boxes((folder / "none.txt").string(), transcript);
  EXPECT_EQ(boxes.Present(question), 7);
  EXPECT_TRUE(Written().starts_with("{\"event\":\"error\",\"line\":0,")) << Written();
  EXPECT_NE(Written().find("none.txt"), std::string::npos);
}

TEST_F(ScriptBoxesTest, TellsTheLineWhereAScriptIsBroken) {
  Serve("answer yes\nfile \"x\n");
  EXPECT_TRUE(Written().starts_with("{\"event\":\"error\",\"line\":2,")) << Written();
}

}  // namespace
}  // namespace vanzet::view

#include "host/bridge.h"

#include <gmock/gmock.h>

#include "platform/message_box.h"
#include "support/fake_host.h"

namespace vanzet::host {
namespace {

using test::FakeHost;
using testing::ElementsAre;

TEST(HostMessageBox, StandsInFrontOfTheHostsWindowAndGivesTheAnswer) {
  FakeHost host;
  host.answers = {platform::answer::kYes};
  EXPECT_EQ(HostMessageBox("a caption", "a text", platform::box::kYesNo), platform::answer::kYes);
  ASSERT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].caption, "a caption");
  EXPECT_EQ(host.boxes[0].text, "a text");
  EXPECT_EQ(host.boxes[0].type, platform::box::kYesNo);
  EXPECT_EQ(host.boxes[0].owner, FakeHost::WindowOf(2));
  EXPECT_THAT(host.calls, ElementsAre("OrvoGetWnd(2)"));
}

TEST(SendCommand, SendsTheLineAsItIs) {
  FakeHost host;
  SendCommand("win 0");
  SendCommand(std::string("s100=h 0"));
  EXPECT_THAT(host.calls, ElementsAre("OrvoCommand('win 0')", "OrvoCommand('s100=h 0')"));
}

TEST(RunMacro, SendsNameAndArguments) {
  FakeHost host;
  RunMacro("vbpickel", "POS");
  EXPECT_THAT(host.calls, ElementsAre("OrvoMacroExec('vbpickel', 'POS')"));
}

TEST(SetHelpTopic, WritesTheTopicOfOurPages) {
  FakeHost host;
  host.texts["$_helptopic"] = "";
  SetHelpTopic();
  EXPECT_EQ(host.texts["$_helptopic"], "mat_vanzet53");
}

TEST(SetHelpTopic, ShowsWhenItCannotBeWritten) {
  FakeHost host;
  SetHelpTopic();
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("OrvoApi::MacroExport::SetGlobalStrVar Failed|$_helptopic|0"));
}

}  // namespace
}  // namespace vanzet::host

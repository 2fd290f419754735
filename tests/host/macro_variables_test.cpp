#include "host/macro_variables.h"

#include <gmock/gmock.h>

#include "host/host_functions.h"
#include "support/fake_host.h"

namespace vanzet::OrvoApi {
namespace {

using test::FakeHost;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(GetGlobalIntVar, GivesTheValueAndSaysThatItCouldBeRead) {
  FakeHost host;
  host.integers["i_return"] = 151;
  bool ok = false;
  EXPECT_EQ(GetGlobalIntVar("i_return", ok), 151);
  EXPECT_TRUE(ok);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST(GetGlobalIntVar, ShowsTheNameOfAVariableThatCannotBeReadAndGoesOn) {
  FakeHost host;
  bool ok = true;
  EXPECT_EQ(GetGlobalIntVar("i_none", ok), 0);
  EXPECT_FALSE(ok);
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("OrvoApi::MacroExport::GetGlobalIntVar Failed|i_none|0"));
}

TEST(GetGlobalRealVar, SharesTheCaptionOfTheIntegerRead) {
  FakeHost host;
  host.reals["w_return"] = 12.5;
  double value = 0;
  EXPECT_TRUE(GetGlobalRealVar("w_return", value));
  EXPECT_EQ(value, 12.5);
  EXPECT_FALSE(GetGlobalRealVar("w_none", value));
  EXPECT_EQ(value, 0.0) << "what the host returned is written whatever its flag says";
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("OrvoApi::MacroExport::GetGlobalIntVar Failed|w_none|0"));
}

TEST(GetGlobalStrVar, LeavesTheTextAsItIsWhenTheReadFails) {
  FakeHost host;
  host.texts["$_return"] = "a text";
  std::string text = "before";
  EXPECT_TRUE(GetGlobalStrVar("$_return", text));
  EXPECT_EQ(text, "a text");
  EXPECT_FALSE(GetGlobalStrVar("$_none", text));
  EXPECT_EQ(text, "a text");
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("OrvoApi::MacroExport::GetGlobalStrVar Failed|$_none|0"));
}

TEST(GetGlobalStrVar, HasRoomForTheLongestText) {
  FakeHost host;
  host.texts["$_return"] = std::string(host::kStringVariableBytes - 1, 'x');
  std::string text;
  EXPECT_TRUE(GetGlobalStrVar("$_return", text));
  EXPECT_EQ(text, host.texts["$_return"]);
}

TEST(SetGlobalStrVar, WritesOrShowsTheName) {
  FakeHost host;
  host.texts["$_return"] = "old";
  EXPECT_TRUE(SetGlobalStrVar("$_return", "new"));
  EXPECT_EQ(host.texts["$_return"], "new");
  EXPECT_FALSE(SetGlobalStrVar("$_none", "new"));
  EXPECT_THAT(host.TakeBoxes(), ElementsAre("OrvoApi::MacroExport::SetGlobalStrVar Failed|$_none|0"));
}

TEST(MacroVariables, ShowTheirBoxesInFrontOfTheHostsWindow) {
  FakeHost host;
  GetGlobalIntVar("i_none");
  ASSERT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].owner, FakeHost::WindowOf(2));
}

TEST(MacroVariables, OfAHostWithoutTheirFunctionsCountAsUnreadable) {
  FakeHost host;
  host.missing = {"OrvoReadGlobalI"};
  bool ok = true;
  EXPECT_EQ(GetGlobalIntVar("i_return", ok), 0);
  EXPECT_FALSE(ok);
}

}  // namespace
}  // namespace vanzet::OrvoApi

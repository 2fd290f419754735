#include "run_vanzet.h"

namespace vanzet::test {
namespace {

class OpenCommand : public CommandLineTest {};

TEST_F(OpenCommand, WithoutADisplaySaysSoInOneLine) {
  MakeUpgradedProject();
  const Outcome opened = Vanzet("open lathe");
  EXPECT_EQ(opened.status, 1);
  EXPECT_EQ(opened.err, "vanzet: no display is available to open a window\n");
}

TEST_F(OpenCommand, OfADisplayThatDoesNotAnswerSaysSoInOneLine) {
  MakeUpgradedProject();
  const Outcome opened = Vanzet("open lathe", "DISPLAY=:7654");
  EXPECT_EQ(opened.status, 1);
  EXPECT_EQ(opened.err, "vanzet: no display is available to open a window\n");
}

TEST_F(OpenCommand, OfAMissingFolderSaysSoInOneLine) {
  const Outcome opened = Vanzet("open nothing", "QT_QPA_PLATFORM=offscreen");
  EXPECT_EQ(opened.status, 1);
  EXPECT_EQ(opened.err, "vanzet: nothing: is not a folder, so it is not a project\n");
}

}  // namespace
}  // namespace vanzet::test

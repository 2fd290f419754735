#include "run_vanzet.h"
#include "support/places.h"

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

/// The dialog of the window is served by a script instead of a person. The window stays open after it, and is
/// ended when the recording is complete.
TEST_F(OpenCommand, RecordsAScriptThatDefinesTheSame) {
  MakeUpgradedProject();
  ASSERT_EQ(Vanzet("new other").status, 0);
  const Outcome opened = Vanzet(
      "open lathe --dialog --record job.txt & window=$!; for ((i = 0; i < 600; ++i)); do "
      "grep -qx 'press ok' job.txt && break; sleep 0.1; done; kill $window; wait $window; grep -qx 'press "
      "ok' job.txt",
      "export QT_QPA_PLATFORM=offscreen VANZET_TRANSCRIPT=run.jsonl VANZET_SCRIPT='" VANZET_SOURCE_DIR
      "/examples/scripts/bar-job.txt';");
  EXPECT_EQ(opened.status, 0) << opened.err;
  EXPECT_THAT(ReadBytes(folder / "job.txt"),
              testing::HasSubstr("choose device \"Chuck 160\"\npress select\n"));
  const Outcome played = Vanzet("script other job.txt --strict --transcript other.jsonl");
  ASSERT_EQ(played.status, 0) << played.err;
  ASSERT_EQ(Vanzet("script lathe '" VANZET_SOURCE_DIR "/examples/scripts/bar-job.txt' --transcript run.jsonl")
                .status,
            0);
  EXPECT_TRUE(Vanzet("show other --json").out == Vanzet("show lathe --json").out);
}

}  // namespace
}  // namespace vanzet::test

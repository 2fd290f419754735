#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

/// Options that would have no effect.
class IdleOptions : public CommandLineTest {
 protected:
  /// The command is refused with that line, and prints nothing.
  void ExpectRefused(const std::string& arguments, const std::string& line) {
    const Outcome run = Vanzet(arguments);
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_EQ(run.out, "") << arguments;
    EXPECT_THAT(run.err, testing::StartsWith("vanzet: " + line + "\n")) << arguments;
  }
};

TEST_F(IdleOptions, OfADefinitionThatIsNotPlayedAreRefused) {
  for (const std::string given : {"--transcript t.jsonl", "--trace t.jsonl", "--keep-tmp", "--wait 1"}) {
    const std::string name = given.substr(0, given.find(' '));
    for (const std::string idle : {"--dry-run", "--schema", "--example"}) {
      ExpectRefused("define job.json lathe " + idle + " " + given,
                    "" + name + " cannot be given together with " + idle);
    }
  }
  ExpectRefused("define --schema --dry-run", "--dry-run cannot be given together with --schema");
  ExpectRefused("define --example --schema", "--schema cannot be given together with --example");
  EXPECT_FALSE(std::filesystem::exists(folder / "t.jsonl"));
}

TEST_F(IdleOptions, OfADeviceOfAnotherClassAreRefused) {
  const std::string make = "device make --body b.step --outline o.txt -o own.vdm --class ";
  for (const std::string other : {"chuck", "jaw"}) {
    ExpectRefused(make + other + " --second 5", "--second has no effect without --class center");
  }
  for (const std::string other : {"center", "jaw"}) {
    ExpectRefused(make + other + " --first 5", "--first has no effect without --class chuck");
  }
  ExpectRefused(make + "jaw --unit inch", "--unit has no effect without --first, --second or --face");
  for (const std::string wanted : {"chuck --first 5", "center --second 5", "jaw --unit inch --face 1"}) {
    EXPECT_EQ(Vanzet(make + wanted).status, 1) << wanted << ": the body does not exist";
  }
}

TEST_F(IdleOptions, OfPicturesThatAreNotDrawnAreRefused) {
  WriteBytes(folder / "slot.txt", ReadBytes(VANZET_SOURCE_DIR "/examples/contours/slot.txt"));
  ExpectRefused("contour info slot.txt --numbers", "--numbers has no effect without --svg");
  EXPECT_EQ(Vanzet("contour info slot.txt --numbers --svg slot.svg").status, 0);
}

}  // namespace
}  // namespace vanzet::test

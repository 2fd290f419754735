#include "command_fixture.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

/// Pictures and drawings for the next program of a pipe.
class ContourStandardOutput : public ContourCommandTest {};

TEST_F(ContourStandardOutput, APictureIsAloneThere) {
  for (const std::string operation : {"info slot.txt", "near slot.txt 5 14", "split slot.txt", "xml slot.txt",
                                      "same slot.txt slot.txt", "clean slot.txt"}) {
    const Outcome file = Vanzet("contour " + operation + " --svg file.svg");
    const Outcome piped = Vanzet("contour " + operation + " --svg -");
    EXPECT_EQ(file.status, 0) << file.err;
    EXPECT_EQ(piped.status, 0) << piped.err;
    EXPECT_TRUE(piped.out == ReadBytes(folder / "file.svg")) << operation;
  }
  EXPECT_FALSE(std::filesystem::exists(folder / "-"));
}

TEST_F(ContourStandardOutput, ADrawingIsReadByTheNextProgram) {
  const Outcome drawing =
      Vanzet("contour transform --move 1,0 --dxf - -", "", ReadBytes(folder / "slot.txt"));
  EXPECT_EQ(drawing.status, 0) << drawing.err;
  EXPECT_NEAR(Json("info", drawing.out)["contours"][0]["box"]["low"][0], -29, 1e-9);
}

TEST_F(ContourStandardOutput, TheOtherOutputsKeepTheirFiles) {
  EXPECT_THAT(Vanzet("contour split slot.txt --svg - --dxf split.dxf").out, testing::StartsWith("<"));
  EXPECT_THAT(ReadBytes(folder / "split.dxf"), HasSubstr("POLYLINE"));
}

TEST_F(ContourStandardOutput, TwoThingsAtOnceAreRefused) {
  const auto refused = [&](const std::string& options) {
    const Outcome run = Vanzet("contour split slot.txt " + options);
    EXPECT_EQ(run.status, 2) << options;
    EXPECT_EQ(run.out, "");
    return run.err;
  };
  EXPECT_THAT(refused("--svg - --dxf -"), HasSubstr("--svg -: cannot be given together with --dxf -"));
  EXPECT_THAT(refused("--svg - --json"), HasSubstr("--json: cannot be given together with --svg -"));
  EXPECT_THAT(refused("--dxf - --json"), HasSubstr("--json: cannot be given together with --dxf -"));
}

TEST_F(ContourStandardOutput, AFullOneIsAFault) {
  const Outcome run = Vanzet("contour info slot.txt --svg - >/dev/full");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "vanzet: standard output cannot be written\n");
}

}  // namespace
}  // namespace vanzet::test

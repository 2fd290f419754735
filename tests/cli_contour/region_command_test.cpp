#include "command_fixture.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

/// The operations on regions. Every number is worked out beside the call.
class ContourRegions : public ContourCommandTest {
 protected:
  ContourRegions() {
    WriteBytes(folder / "square.txt", "k1 e x0 y0\nx10 y0\nx10 y10\nx0 y10\nx0 y0\nek\n");
    WriteBytes(folder / "hole.txt", "k1 e x4 y4\nx6 y4\nx6 y6\nx4 y6\nx4 y4\nek\n");
    WriteBytes(folder / "plate.txt",
               ReadBytes(folder / "square.txt") + "k2 e x4 y4\nx6 y4\nx6 y6\nx4 y6\nx4 y4\nek\n");
    WriteBytes(
        folder / "bell.txt",
        "k1 e x0 y0\nx10 y0\nx10 y4\nx20 y4\nx20 y0\nx30 y0\nx30 y10\nx20 y10\nx20 y6\nx10 y6\nx10 y10\n"
        "x0 y10\nx0 y0\nek\n");
    WriteBytes(folder / "bow.txt", "k1 e x0 y0\nx10 y10\nx10 y0\nx0 y10\nx0 y0\nek\n");
    WriteBytes(folder / "line.txt", "k1 e x0 y0\nx10 y0\nek\n");
  }

  void Expect(const nlohmann::json& region, std::size_t loops, double area, double perimeter) {
    ASSERT_EQ(region["loops"].size(), loops) << region;
    EXPECT_NEAR(region["area"], area, 1e-9);
    EXPECT_NEAR(region["perimeter"], perimeter, 1e-9);
  }
};

TEST_F(ContourRegions, AnOffsetHasAllLoops) {
  const auto whole = Json("offset bell.txt 1 --region");
  // Two squares of 8, each with a bay between quarter arcs about the corners of the neck.
  Expect(whole, 2, 2 * (64 + 2 - kPi / 2), 2 * (32 - 2 + kPi));
  EXPECT_EQ(whole["loops"][0]["hole"], false);
}

TEST_F(ContourRegions, SpansHaveTheFieldsThatOtherProgramsRead) {
  const auto region = Json("offset square.txt 1 --region --outside");
  double arcs = 0;
  auto last = region["loops"][0]["spans"].back();
  for (const auto& span : region["loops"][0]["spans"]) {
    EXPECT_EQ(span["x0"], last["x1"]);
    EXPECT_EQ(span["y0"], last["y1"]);
    EXPECT_EQ(span.contains("cx"), span["dir"] != 0);
    arcs += span["dir"].get<int>();
    last = span;
  }
  EXPECT_EQ(arcs, 4) << "one arc anticlockwise at each corner";
}

TEST_F(ContourRegions, SeveralClosedContoursAreOneRegion) {
  Expect(Json("offset plate.txt 1"), 2, 64 - (4 + 8 + kPi), 32 + 8 + 2 * kPi);
  Expect(Json("offset plate.txt 1 --inside"), 2, 64 - (4 + 8 + kPi), 32 + 8 + 2 * kPi);
  // The hole is gone.
  Expect(Json("offset plate.txt 1 --outside"), 1, 140 + kPi, 40 + 2 * kPi);
  EXPECT_EQ(Json("offset plate.txt 0.5 --left")["contours"].size(), 2u) << "each for itself, as asked for";
  EXPECT_TRUE(Json("offset square.txt 1").contains("contours")) << "a single one is offset by the steps";
}

TEST_F(ContourRegions, AnEmptyRegionIsNoFailure) {
  EXPECT_EQ(Json("offset square.txt 5 --region").dump(), R"({"area":0.0,"loops":[],"perimeter":0.0})");
  const Outcome run = Vanzet("contour offset square.txt 5 --region");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "vanzet: the region is empty\n");
}

TEST_F(ContourRegions, CornersAreRoundSharpOrCut) {
  Expect(Json("offset square.txt 1 --region --outside"), 1, 140 + kPi, 40 + 2 * kPi);
  Expect(Json("offset square.txt 1 --corner miter --outside"), 1, 144, 48);
  const double leg = std::tan(kPi / 8);
  Expect(Json("offset square.txt 1 --corner chamfer --outside"), 1, 140 + 4 * 2 * leg, 40 + 16 * leg);
}

TEST_F(ContourRegions, AnOpenContourIsRefusedUnlessItIsThickened) {
  EXPECT_EQ(
      Fault("offset line.txt 1 --region"),
      "vanzet: line.txt: contour 1 is open: a region needs closed contours; --thicken takes open ones\n");
  EXPECT_EQ(Fault("clean line.txt"), "vanzet: line.txt: contour 1 is open: a region needs closed contours\n");
  Expect(Json("offset line.txt 1 --region --thicken round"), 1, 20 + kPi, 20 + 2 * kPi);
  Expect(Json("offset line.txt 1 --thicken square"), 1, 24, 28);
  Expect(Json("offset line.txt 1 --thicken butt"), 1, 20, 24);
}

TEST_F(ContourRegions, CleaningFollowsTheEvenOddRule) {
  Expect(Json("clean bow.txt"), 2, 50, 2 * (10 + 2 * std::sqrt(50)));
  Expect(Json("clean plate.txt"), 2, 96, 48);
}

TEST_F(ContourRegions, RegionsAreUnitedIntersectedAndSubtracted) {
  Expect(Json("subtract square.txt hole.txt"), 2, 96, 48);
  Expect(Json("unite square.txt hole.txt"), 1, 100, 40);
  Expect(Json("intersect square.txt hole.txt --area"), 1, 4, 8);
  EXPECT_TRUE(Json("intersect square.txt bow.txt").contains("points")) << "points without --area";
}

TEST_F(ContourRegions, TheResultIsContourTextToo) {
  WriteBytes(folder / "made.txt", Vanzet("contour subtract square.txt hole.txt").out);
  Expect(Json("clean made.txt"), 2, 96, 48);
  ASSERT_EQ(Vanzet("contour subtract square.txt hole.txt --svg made.svg --dxf made.dxf").status, 0);
  Expect(Json("clean made.dxf"), 2, 96, 48);
  EXPECT_THAT(ReadBytes(folder / "made.svg"), HasSubstr("<svg"));
}

TEST_F(ContourRegions, OptionsWithoutEffectAreRefused) {
  for (const char* arguments :
       {"offset square.txt 1 --region --left", "offset square.txt 1 --region --method kurve",
        "offset square.txt 1 --corner round --steps 2", "offset line.txt 1 --thicken round --inside",
        "offset square.txt 1 --corner sharp", "offset line.txt -1 --thicken round"}) {
    const Outcome run = Vanzet("contour " + std::string(arguments));
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_EQ(run.out, "") << arguments;
  }
}

TEST_F(ContourRegions, AnOffsetByTheStepsWarnsWhenItIsNotClean) {
  EXPECT_EQ(
      Vanzet("contour offset bell.txt 1.5 --left").err,
      "vanzet: the offset of contour 1 by 1.5000 mm has 2 loops, of which one is made; --region makes all "
      "of it\n");
  EXPECT_EQ(Vanzet("contour offset bell.txt 0.5 --left").err, "");
  EXPECT_EQ(Vanzet("contour offset bell.txt 1.5 --right").err, "");
  // The end of a hook is 1 mm above its start.
  WriteBytes(folder / "hook.txt", "k1 e x0 y0\nx20 y0\nx20 y5\nx10 y5\nx10 y1\nek\n");
  EXPECT_EQ(Vanzet("contour offset hook.txt 2").err,
            "vanzet: the offset of contour 1 by 2.0000 mm is only 0.0000 mm away at 10.0000, 2.0000\n");
}

}  // namespace
}  // namespace vanzet::test

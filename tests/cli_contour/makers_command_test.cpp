#include "command_fixture.h"

namespace vanzet::test {
namespace {

class ContourMakers : public ContourCommandTest {
 protected:
  /// The facts of the only contour that an operation makes.
  nlohmann::json FactsOf(const std::string& arguments) {
    const Outcome made = Vanzet("contour " + arguments);
    EXPECT_EQ(made.status, 0) << made.err;
    return Json("info", made.out)["contours"][0];
  }
};

TEST_F(ContourMakers, ACircleHasTheAreaOfOne) {
  const auto facts = FactsOf("circle 3 -4 12.5");
  EXPECT_NEAR(facts["area"], 156.25 * kPi, 1e-9);
  EXPECT_NEAR(facts["box"]["low"][1], -16.5, 1e-9);
}

TEST_F(ContourMakers, SplittingACircleGivesARegularPolygon) {
  WriteBytes(folder / "circle.txt", Vanzet("contour circle 0 0 10").out);
  const auto facts = FactsOf("split circle.txt --tolerance 0.5");
  const int n = facts["spans"];
  EXPECT_EQ(facts["arcs"], 0);
  EXPECT_LE(10 * (1 - std::cos(kPi / n)), 0.5);
  EXPECT_NEAR(facts["area"], n * 50 * std::sin(2 * kPi / n), 1e-9);
}

TEST_F(ContourMakers, ReducingDropsWhatIsWithinTheTolerance) {
  WriteBytes(folder / "noisy.txt", "k1 e x0 y0\nx5 y0.02\nx10 y0\nx15 y-0.02\nx20 y0\nx20 y10\nek\n");
  EXPECT_EQ(FactsOf("reduce noisy.txt --tolerance 0.05")["spans"], 2);
  // 10, 0 lies exactly between its neighbours.
  EXPECT_EQ(FactsOf("reduce noisy.txt --tolerance 0.001")["spans"], 4);
}

TEST_F(ContourMakers, StepsAreDoneInTheOrderGiven) {
  const auto start = [&](const std::string& steps) {
    const auto point = Json("transform slot.txt " + steps)["contours"][0]["start"];
    return std::pair<double, double>(point[0], point[1]);
  };
  using Point = std::pair<double, double>;
  // The start of the slot is -20, 10.
  EXPECT_EQ(start("--move 30,0 --turn 90"), Point(-10, 10));
  EXPECT_EQ(start("--turn 90 --move 30,0"), Point(20, -20));
  EXPECT_EQ(start("--scale 2 --move 1,1 --scale 0.5"), Point(-19.5, 10.5));
  EXPECT_EQ(start("--mirror x --turn -90 --mirror y"), Point(10, 20));
  EXPECT_EQ(start("--move -5,-5 --move -5,-5"), Point(-30, 0));
  EXPECT_EQ(start(""), Point(-20, 10));
}

TEST_F(ContourMakers, MirroringChangesTheDirection) {
  EXPECT_EQ(FactsOf("transform slot.txt")["direction"], "clockwise");
  EXPECT_EQ(FactsOf("transform slot.txt --mirror x")["direction"], "anticlockwise");
  EXPECT_EQ(FactsOf("transform slot.txt --mirror x --mirror y")["direction"], "clockwise");
}

TEST_F(ContourMakers, APartRunsAlongTheContour) {
  EXPECT_NEAR(FactsOf("part slot.txt 0 10 30 0")["perimeter"], 20 + 5 * kPi, 1e-9);
  EXPECT_NEAR(FactsOf("part slot.txt 30 0 0 10")["perimeter"], 5 * kPi + 40 + 10 * kPi + 20, 1e-9);
  EXPECT_EQ(Fault("part slot.txt 0 10 0 12"), "vanzet: the two points are the same point of the contour\n");
  WriteBytes(folder / "two.txt", "k1 e x0 y0\nx1 y0\nek\nk4 e x0 y0\nx3 y0\nek\n");
  EXPECT_EQ(Fault("part two.txt 0 0 1 0"),
            "vanzet: two.txt: the file has 2 contours; choose one with --contour\n");
  EXPECT_NEAR(FactsOf("part two.txt --contour 4 1 0 3 0")["perimeter"], 2, 1e-12);
}

TEST_F(ContourMakers, JsonHasTheSpansOfWhatWasMade) {
  const auto contour = Json("circle 0 0 5")["contours"][0];
  EXPECT_EQ(contour["closed"], true);
  EXPECT_EQ(contour["spans"][0]["kind"], "arc");
  EXPECT_EQ(contour["spans"][0]["end"], nlohmann::json({-5.0, 0.0}));
}

TEST_F(ContourMakers, APictureIsWrittenBesideTheResult) {
  const Outcome made = Vanzet("contour split slot.txt --tolerance 1 --svg slot.svg --numbers");
  EXPECT_EQ(made.status, 0) << made.err;
  EXPECT_THAT(made.out, testing::StartsWith("k1 e\n"));
  const std::string svg = ReadBytes(folder / "slot.svg");
  EXPECT_THAT(svg, testing::StartsWith("<svg xmlns="));
  EXPECT_THAT(svg, testing::EndsWith("</svg>\n"));
  // What was there before lies below what was made.
  EXPECT_LT(svg.find(" A10 10"), svg.rfind("class=\"contour\""));
}

TEST_F(ContourMakers, APictureThatCannotBeWrittenIsAFaultAndNothingIsPrinted) {
  EXPECT_THAT(Fault("split slot.txt --svg missing/slot.svg"),
              testing::HasSubstr("missing/slot.svg: cannot be written"));
  WriteBytes(folder / "old.svg", "old");
  EXPECT_THAT(Fault("split nothing.txt --svg old.svg"), testing::HasSubstr("nothing.txt: cannot be read"));
  EXPECT_EQ(ReadBytes(folder / "old.svg"), "old");
}

}  // namespace
}  // namespace vanzet::test

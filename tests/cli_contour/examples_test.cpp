#include <filesystem>
#include <sstream>

#include "command_fixture.h"

#include "support/places.h"

namespace vanzet::test {
namespace {

/// The files of examples/contours hold what their remarks promise.
class ContourExamples : public ContourCommandTest {
 protected:
  static std::string Example(const std::string& name) {
    return "'" VANZET_SOURCE_DIR "/examples/contours/" + name + "'";
  }
  nlohmann::json FactsOf(const std::string& name, std::size_t contour = 0) {
    return Json("info " + Example(name))["contours"].at(contour);
  }
};

TEST_F(ContourExamples, AllAreReadAndDrawn) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(VANZET_SOURCE_DIR "/examples/contours")) {
    const Outcome run = Vanzet("contour info '" + entry.path().string() + "' --numbers --svg picture.svg");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(ReadBytes(folder / "picture.svg"), testing::EndsWith("</svg>\n"));
    ++count;
  }
  EXPECT_GE(count, 10);
}

TEST_F(ContourExamples, TheRoundedSquare) {
  EXPECT_NEAR(FactsOf("rounded_square.txt")["perimeter"], 96 + 16 * kPi, 1e-9);
  EXPECT_NEAR(FactsOf("rounded_square.txt")["area"], 1600 - (4 - kPi) * 64, 1e-9);
}

TEST_F(ContourExamples, TheRingHasItsBoreTheOtherWay) {
  EXPECT_EQ(FactsOf("ring.txt", 0)["direction"], "anticlockwise");
  EXPECT_EQ(FactsOf("ring.txt", 1)["direction"], "clockwise");
  EXPECT_NEAR(FactsOf("ring.txt", 1)["area"], 324 * kPi, 1e-9);
}

TEST_F(ContourExamples, TheLensIsTwoSegmentsOfCircles) {
  // A segment of the radius 50 with half the chord 30: the half angle has the sine 0.6.
  const double half = std::asin(0.6);
  EXPECT_NEAR(FactsOf("lens.txt")["perimeter"], 4 * 50 * half, 1e-9);
  EXPECT_NEAR(FactsOf("lens.txt")["area"], 2 * 2500 * (half - 0.6 * 0.8), 1e-9);
}

TEST_F(ContourExamples, TheWheelIsBetweenItsTwoCircles) {
  // Tips of 9 degrees, gaps of 13 and flanks of 4 each: sectors, and triangles below the flanks.
  const double degree = kPi / 180;
  const double tooth = (9 * 30 * 30 + 13 * 24 * 24) * degree / 2 + 30 * 24 * std::sin(4 * degree);
  EXPECT_NEAR(FactsOf("gear.txt")["area"], 12 * tooth, 0.05) << "its file has four decimals";
  EXPECT_EQ(Json("intersect " + Example("gear.txt") + " " + Example("pitch_circle.txt"))["points"].size(),
            24U);
}

/// The cells of a line of a table, without blanks and quotes around them.
std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream text(line.substr(1));
  for (std::string cell; std::getline(text, cell, '|');) {
    const std::size_t first = cell.find_first_not_of(" `"), last = cell.find_last_not_of(" `");
    cells.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
  }
  return cells;
}

TEST_F(ContourExamples, DifficultRegionsHaveTheAreasOfTheirPage) {
  std::istringstream page(ReadBytes(VANZET_SOURCE_DIR "/docs/contours/hard.md"));
  int count = 0;
  for (std::string line; std::getline(page, line);) {
    if (!line.starts_with("| `offset ")) continue;
    const std::vector<std::string> cells = CellsOf(line);
    const std::string command = cells[0].substr(7), file = command.substr(0, command.find(' '));
    const auto made = Json("offset " + Example(file) + command.substr(file.size()));
    EXPECT_EQ(std::to_string(made["loops"].size()), cells[1]) << line;
    EXPECT_NEAR(made["area"], std::stod(cells[2]), 1e-8) << line;
    ++count;
  }
  EXPECT_EQ(count, 8);
}

/// The comb: a back of 38 by 5 with ten teeth of 2 by 15 and nine gaps of 2. Its corners are the 22 of the
/// back's bottom and the teeth's tips, and the 18 feet of teeth in the gaps.
class Comb : public ContourExamples {
 protected:
  static constexpr double kArea = 38 * 5 + 10 * 2 * 15, kPerimeter = 2 * 38 + 2 * 20 + 18 * 15;
  static constexpr int kTips = 22, kFeet = 18;

  void Expect(double distance, const std::string& side, double area, double perimeter) {
    const auto made =
        Json("offset " + Example("comb.txt") + " " + std::to_string(distance) + " --region" + side);
    SCOPED_TRACE(std::to_string(distance) + side);
    ASSERT_EQ(made["loops"].size(), 1U);
    EXPECT_EQ(made["loops"][0]["hole"], false);
    EXPECT_NEAR(made["area"], area, 1e-9);
    EXPECT_NEAR(made["perimeter"], perimeter, 1e-9);
  }
  /// Between an arc of radius r about a corner and its tangent, from the point of contact as far as w along
  /// the tangent.
  static double Wedge(double r, double w) {
    return r * w - (w * std::sqrt(r * r - w * w) + r * r * std::asin(w / r)) / 2;
  }
  static double ArcOver(double r, double w) { return r * std::asin(w / r); }
};

TEST_F(Comb, KeepsTeethThatAreWiderThanTwiceTheDistance) {
  for (const double d : {0.25, 0.8, 0.999}) {
    const double back = (38 - 2 * d) * (5 - 2 * d), teeth = 10 * (2 - 2 * d) * 15;
    Expect(d, "", back + teeth + kFeet * (1 - kPi / 4) * d * d,
           kPerimeter - kTips * 2 * d + kFeet * kPi / 2 * d);
  }
}

// A tooth ends where the arcs about its feet meet in its middle, the first and the last one where the arc
// meets the side of the back.
TEST_F(Comb, LosesTeethThatAreNotWider) {
  for (const double d : {1.0, 1.2, 1.9}) {
    const double end = 2 - d, side = 5 - std::sqrt(d * d - end * end) - d;
    Expect(d, "", (38 - 2 * d) * (5 - 2 * d) + 16 * Wedge(d, 1) + 2 * Wedge(d, end),
           38 - 2 * d + 2 * side + 9 * 2 + 16 * ArcOver(d, 1) + 2 * ArcOver(d, end));
  }
}

TEST_F(Comb, KeepsGapsThatAreWiderThanTwiceTheDistance) {
  for (const double d : {0.25, 0.8, 0.999}) {
    Expect(d, " --outside", kArea + d * kPerimeter + kTips * kPi / 4 * d * d - kFeet * d * d,
           kPerimeter + kTips * kPi / 2 * d - kFeet * 2 * d);
  }
}

// A rectangle, grown, but for a notch over each gap between the arcs about two tips.
TEST_F(Comb, FillsGapsThatAreNotWider) {
  for (const double d : {1.0, 1.5, 10.0}) {
    Expect(d, " --outside", 38 * 20 + 2 * (38 + 20) * d + kPi * d * d - kFeet * Wedge(d, 1),
           38 + 2 * 20 + 10 * 2 + 2 * kPi * d + kFeet * ArcOver(d, 1));
  }
}

TEST_F(ContourExamples, ThePinchedSquaresHaveBothTheirAreas) {
  EXPECT_NEAR(FactsOf("pinched.txt")["area"], 800, 1e-9);
}

TEST_F(ContourExamples, TheMovedSlotIsTheSlot) {
  const auto motion = Json("same " + Example("slot.txt") + " " + Example("moved_slot.txt"));
  EXPECT_EQ(motion["same"], true);
  EXPECT_NEAR(motion["turn"], 30, 1e-6);
}

TEST_F(ContourExamples, TheFairingRisesBySixtyDegrees) {
  const auto box = FactsOf("fairing.txt", 1)["box"];
  EXPECT_NEAR(box["high"][1].get<double>() - 25, 10 * std::sqrt(3.0), 1e-5);
}

TEST_F(ContourExamples, TheScanReducesToThreeLines) {
  const Outcome reduced = Vanzet("contour reduce " + Example("scan.txt") + " --tolerance 0.05");
  EXPECT_EQ(Json("info", reduced.out)["contours"][0]["spans"], 3);
}

TEST_F(ContourExamples, TheBracketIsItsRectanglesWithARoundedAndAFilledCorner) {
  // 60 x 20 and 20 x 30; a corner of radius 5 is cut off, one of radius 8 filled.
  EXPECT_NEAR(FactsOf("bracket.dxf")["area"], 1200 + 600 + (1 - kPi / 4) * (64 - 25), 1e-6);
  EXPECT_EQ(Json("info " + Example("bracket.dxf") + " --layer holes")["contours"].size(), 2U);
}

TEST_F(ContourExamples, TheCoverHasASplineAWindowAndHolesOfOneBlock) {
  EXPECT_EQ(Json("info " + Example("cover.dxf"))["contours"].size(), 5U);
  EXPECT_EQ(FactsOf("cover.dxf")["closed"], true);
  EXPECT_EQ(FactsOf("cover.dxf", 1)["direction"], "anticlockwise");
  // The half axes of the window are the root of 612 and half of that, those of the large hole 10 and 5.
  EXPECT_NEAR(FactsOf("cover.dxf", 1)["area"], 306 * kPi, 0.1);
  EXPECT_NEAR(FactsOf("cover.dxf", 2)["area"], 16 * kPi, 1e-9);
  EXPECT_NEAR(FactsOf("cover.dxf", 4)["area"], 50 * kPi, 0.05);
  EXPECT_EQ(Vanzet("contour info " + Example("cover.dxf") + " --strict").status, 1) << "its text";
}

TEST_F(ContourExamples, TheLinkIsJoinedInInches) {
  EXPECT_NEAR(FactsOf("link.dxf")["area"], 25.4 * 25.4 * (2 + kPi / 4), 0.001);
  EXPECT_EQ(FactsOf("link.dxf")["spans"], 4);
}

}  // namespace
}  // namespace vanzet::test

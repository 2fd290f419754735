#include "command_fixture.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

class ContourFacts : public ContourCommandTest {};

TEST_F(ContourFacts, InfoIsATableForPeople) {
  EXPECT_EQ(Vanzet("contour info slot.txt").out,
            "contour 1\n"
            "  spans      4 (2 arcs)\n"
            "  closed     yes\n"
            "  perimeter  142.8319 mm\n"
            "  area       1114.1593 mm2\n"
            "  direction  clockwise\n"
            "  box        -30.0000, -10.0000 to 30.0000, 10.0000 (60.0000 x 20.0000 mm)\n");
}

TEST_F(ContourFacts, InfoTellsProgramsTheSame) {
  const auto facts = Json("info slot.txt")["contours"][0];
  EXPECT_EQ(facts["spans"], 4);
  EXPECT_EQ(facts["closed"], true);
  EXPECT_NEAR(facts["perimeter"], 80 + 20 * kPi, 1e-9);
  EXPECT_NEAR(facts["area"], 800 + 100 * kPi, 1e-9);
  EXPECT_NEAR(facts["box"]["low"][0], -30, 1e-9);
}

TEST_F(ContourFacts, NearGivesTheFootOnALineAndOnAnArc) {
  const auto onLine = Json("near slot.txt 5 14")["nearest"][0];
  EXPECT_EQ(onLine["span"], 1);
  EXPECT_NEAR(onLine["distance"], 4, 1e-9);
  EXPECT_NEAR(onLine["point"][0], 5, 1e-9);
  // 20 mm from the centre of the right end along a 3, 4, 5 direction.
  const auto onArc = Json("near slot.txt 32 -16")["nearest"][0];
  EXPECT_EQ(onArc["span"], 2);
  EXPECT_NEAR(onArc["point"][0], 26, 1e-9);
  EXPECT_NEAR(onArc["point"][1], -8, 1e-9);
  EXPECT_EQ(Vanzet("contour near slot.txt 5 14").out,
            "contour  span  distance  nearest point\n      1     1    4.0000  5.0000, 10.0000\n");
}

TEST_F(ContourFacts, InsideTellsEverySideAndAnswersAShell) {
  const auto expect = [&](const std::string& arguments, const char* side, int status,
                          const std::string& input = "") {
    const Outcome run = Vanzet("contour inside " + arguments + " --json", "", input);
    EXPECT_EQ(nlohmann::json::parse(run.out)["sides"][0]["side"], side) << arguments;
    EXPECT_EQ(run.status, status) << arguments;
  };
  expect("slot.txt 27 6", "inside", 0);
  expect("slot.txt 28 7", "outside", 3);
  expect("slot.txt 28 6", "on", 0);
  expect("0 0", "open", 3, "k1 e x0 y0\nx1 y1\nek\n");
}

TEST_F(ContourFacts, APointInAHoleIsOutside) {
  const std::string plate = Vanzet("contour circle 0 0 20").out + Vanzet("contour circle 0 0 5").out;
  EXPECT_EQ(Vanzet("contour inside 12 0", "", plate).status, 0);
  EXPECT_EQ(Vanzet("contour inside 2 0", "", plate).status, 3);
  EXPECT_EQ(Vanzet("contour inside 5 0", "", plate).status, 0) << "on the hole";
}

TEST_F(ContourFacts, IntersectTellsPointsWithTheirSpans) {
  WriteBytes(folder / "line.txt", "k5 e x0 y-50\nx0 y50\nek\n");
  const auto points = Json("intersect slot.txt line.txt")["points"];
  ASSERT_EQ(points.size(), 2U);
  EXPECT_EQ(points[0]["a"]["span"], 1);
  EXPECT_EQ(points[0]["b"]["contour"], 5);
  EXPECT_NEAR(points[0]["point"][1], 10, 1e-9);
  EXPECT_EQ(points[1]["a"]["span"], 3);
  WriteBytes(folder / "far.txt", "k1 e x100 y0\nx100 y9\nek\n");
  EXPECT_EQ(Vanzet("contour intersect slot.txt far.txt").out, "the contours do not meet\n");
}

TEST_F(ContourFacts, StandardInputIsReadForADashOrNoFile) {
  const std::string slot = ReadBytes(folder / "slot.txt");
  const std::string expected = Vanzet("contour info slot.txt").out;
  EXPECT_EQ(Vanzet("contour info -", "", slot).out, expected);
  EXPECT_EQ(Vanzet("contour info", "", slot).out, expected);
  EXPECT_EQ(Json("intersect - slot.txt", "k1 e x0 y0\nx0 y50\nek\n")["points"].size(), 1U);
}

TEST_F(ContourFacts, ADrawingIsReadByItsContent) {
  const std::string drawing =
      "0\n SECTION\n2\nHEADER\n9\n$INSUNITS\n70\n1\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nCIRCLE\n8\nA\n10\n"
      "0\n20\n0\n40\n1\n0\nTEXT\n1\nx\n0\nENDSEC\n0\nEOF\n";
  for (const char* name : {"D.DXF", "drawing.txt", "drawing"}) {
    WriteBytes(folder / name, drawing);
    EXPECT_NEAR(Json("info " + std::string(name))["contours"][0]["perimeter"], 2 * kPi * 25.4, 1e-9);
  }
  EXPECT_NEAR(Json("info D.DXF --unit mm")["contours"][0]["perimeter"], 2 * kPi, 1e-9);
  EXPECT_NEAR(Json("info --unit mm", drawing)["contours"][0]["perimeter"], 2 * kPi, 1e-9);
  WriteBytes(folder / "text.dxf", ReadBytes(folder / "slot.txt"));
  EXPECT_EQ(Vanzet("contour info text.dxf").out, Vanzet("contour info slot.txt").out);
  WriteBytes(folder / "xml.txt", Vanzet("contour xml slot.txt").out);
  EXPECT_EQ(Vanzet("contour info xml.txt").out, Vanzet("contour info slot.txt").out);
  EXPECT_THAT(Fault("info D.DXF --layer B"), HasSubstr("no lines or arcs on the layer 'B', but on 'A'\n"));
}

TEST_F(ContourFacts, WhatIsLeftOutOfADrawingIsSaidAndCanBeAFailure) {
  WriteBytes(
      folder / "d.dxf",
      "0\nSECTION\n2\nENTITIES\n0\nCIRCLE\n8\nA\n10\n0\n20\n0\n40\n1\n0\nREGION\n8\nB\n0\nENDSEC\n0\nEOF\n");
  const Outcome run = Vanzet("contour info d.dxf");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "vanzet: d.dxf: left out 1 REGION\n");
  EXPECT_EQ(Fault("info d.dxf --strict"),
            "vanzet: d.dxf: left out 1 REGION\n"
            "vanzet: d.dxf: not everything was read as it is drawn, and --strict is given\n");
  EXPECT_EQ(Vanzet("contour info d.dxf --strict --layer A").status, 0);
  EXPECT_THAT(Fault("info --strict", ReadBytes(folder / "d.dxf")),
              HasSubstr("vanzet: standard input: not everything was read"));
}

TEST_F(ContourFacts, OneContourOfSeveralIsChosenByItsNumber) {
  WriteBytes(folder / "two.txt", "k1 e x0 y0\nx1 y0\nek\nk4 e x0 y0\nx3 y0\nek\n");
  const auto contours = Json("info two.txt --contour 4")["contours"];
  ASSERT_EQ(contours.size(), 1U);
  EXPECT_NEAR(contours[0]["perimeter"], 3, 1e-12);
  EXPECT_EQ(Fault("info two.txt --contour 2"), "vanzet: two.txt: no such contour: 2; the file has 1, 4\n");
}

}  // namespace
}  // namespace vanzet::test

#include "command_fixture.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

/// Arcs that are too small for the library, which has lines for them.
class SmallArcs : public ContourCommandTest {
 protected:
  SmallArcs() {
    WriteBytes(folder / "tiny.txt",
               "k1 e x0 y0\nx10 y0\nax10.003 y0.003 x10 y0.003\nx10.003 y8\ntx9.997 y8.006 x9.997 y8\nx0 y0\n"
               "ek\n");
    WriteBytes(folder / "fillet.txt", "k1 e x0 y0\nx10 y0\nax10.004 y0.004 x10 y0.004\nx0 y5\nek\n");
  }
};

TEST_F(SmallArcs, OneLineCountsThemInEveryForm) {
  const std::string one = "1 arc under 0.005 mm radius was read as a line\n";
  const Outcome text = Vanzet("contour info fillet.txt");
  EXPECT_EQ(text.status, 0);
  EXPECT_EQ(text.err, "vanzet: fillet.txt: " + one);
  EXPECT_THAT(text.out, HasSubstr("spans      3 (0 arcs)\n"));
  WriteBytes(folder / "dot.dxf",
             "0\nSECTION\n2\nENTITIES\n0\nCIRCLE\n10\n0\n20\n0\n40\n0.004\n"
             "0\nCIRCLE\n10\n9\n20\n0\n40\n1\n0\nENDSEC\n0\nEOF\n");
  EXPECT_EQ(Vanzet("contour info dot.dxf").err,
            "vanzet: dot.dxf: 2 arcs under 0.005 mm radius were read as lines\n");
  EXPECT_EQ(Vanzet("contour info", "", ReadBytes(folder / "fillet.txt")).err,
            "vanzet: standard input: " + one);
}

TEST_F(SmallArcs, LargerArcsDoNotCount) {
  EXPECT_THAT(Vanzet("contour info tiny.txt").err, HasSubstr(": 1 arc under"));
  EXPECT_EQ(Vanzet("contour info slot.txt").err, "");
}

TEST_F(SmallArcs, OffsetsByTheStepsAndStrictReadersSayIt) {
  EXPECT_THAT(Vanzet("contour offset fillet.txt 1 --inside").err, HasSubstr("1 arc under 0.005 mm radius"));
  EXPECT_THAT(Fault("info fillet.txt --strict"), HasSubstr("not everything was read as it is drawn"));
  EXPECT_THAT(Fault("offset fillet.txt 1 --strict"), HasSubstr("not everything was read as it is drawn"));
}

TEST_F(SmallArcs, OffsetsByTheStepsCountTheArcsThatTheyLeaveOut) {
  WriteBytes(folder / "bar.txt",
             "k1 e x1 y0\nx19 y0\nax20 y1 x19 y1\nx20 y9\nax19 y10 x19 y9\nx0 y10\nx0 y0\nx1 y0\nek\n");
  for (const char* method : {"", " --method kurve"}) {
    const std::string command = "contour offset bar.txt 0.9955 --inside" + std::string(method);
    EXPECT_EQ(
        Vanzet(command).err,
        "vanzet: the offset of contour 1 by 0.9955 mm leaves out 2 arcs that shrank to less than 0.005 mm "
        "radius; --region makes all of it\n")
        << method;
  }
  EXPECT_EQ(Vanzet("contour offset bar.txt 0.9 --inside").err, "");
  EXPECT_EQ(Vanzet("contour offset bar.txt 1 --inside").err, "") << "they are points";
  EXPECT_EQ(Vanzet("contour offset bar.txt 0.9955 --inside --region").err, "");
}

TEST_F(SmallArcs, ATransformKeepsThemAndSaysWhichItMakes) {
  const Outcome larger = Vanzet("contour transform fillet.txt --scale 1000 --strict");
  EXPECT_EQ(larger.err, "");
  EXPECT_THAT(larger.out, HasSubstr("ax10004 y4 x10000 y4")) << "as it is drawn, not as it is read";
  const Outcome smaller = Vanzet("contour transform slot.txt --scale 0.0004");
  EXPECT_EQ(smaller.err,
            "vanzet: the result has 2 arcs under 0.005 mm radius, for which other operations and JSON have "
            "lines\n");
  const Outcome back = Vanzet("contour transform --scale 2500", "", smaller.out);
  EXPECT_EQ(back.err, "");
  EXPECT_EQ(back.out, Vanzet("contour text slot.txt").out);
}

TEST_F(SmallArcs, RegionsKeepThem) {
  WriteBytes(folder / "pin.txt",
             "k1 e x0 y0\nx10 y0\nx10 y10\nx0 y10\nx0 y0\nek\n"
             "k2 e x5.000001 y5\nax4.999999 y5 x5 y5\nax5.000001 y5 x5 y5\nek\n");
  for (const char* command : {"clean pin.txt", "clean pin.txt --strict", "offset pin.txt 0"}) {
    const auto region = Json(command);
    ASSERT_EQ(region["loops"].size(), 2u) << command;
    const auto& hole = region["loops"][1];
    EXPECT_NEAR(hole["area"].get<double>() * 1e12, -kPi, 1e-3);
    EXPECT_NEAR(hole["perimeter"].get<double>() * 1e6, 2 * kPi, 1e-3);
    for (const auto& span : hole["spans"]) EXPECT_EQ(span["dir"], -1) << "a hole, clockwise";
  }
  EXPECT_EQ(Vanzet("contour clean pin.txt").err, "");
  EXPECT_NEAR(Json("offset pin.txt 1")["area"], 64 - kPi * 1.000001 * 1.000001, 1e-9);
}

TEST_F(SmallArcs, RegionsWriteThemSoThatTheyCanBeReadAgain) {
  WriteBytes(folder / "pin.txt", "k1 e x5.000001 y5\nax4.999999 y5 x5 y5\nax5.000001 y5 x5 y5\nek\n");
  const Outcome made = Vanzet("contour clean pin.txt --dxf pin.dxf");
  EXPECT_THAT(made.out, HasSubstr("rem Number of Spans = 2 (Closed)\nrem Perim = 6.28319e-06 mm\n"
                                  "rem Area = -3.14159e-12 sq.mm (AntiClockwise)\n"));
  WriteBytes(folder / "made.txt", made.out);
  EXPECT_EQ(Vanzet("contour clean pin.txt --dxf made.dxf").status, 0);
  for (const char* file : {"made.txt", "made.dxf"}) {
    const auto region = Json(std::string("clean ") + file);
    ASSERT_EQ(region["loops"].size(), 1u) << file;
    EXPECT_NEAR(region["area"].get<double>() * 1e12, kPi, 1e-3) << file;
  }
}

TEST_F(SmallArcs, OpenOnesAreThickenedAsArcs) {
  // Half a turn of a radius of 0.002, thickened by 0.001: half of a ring with half discs at its ends.
  WriteBytes(folder / "hook.txt", "k1 e x0.002 y0\nax-0.002 y0 x0 y0\nek\n");
  const auto region = Json("offset hook.txt 0.001 --thicken round");
  const double ring = (0.003 * 0.003 - 0.001 * 0.001) * kPi / 2, ends = kPi * 0.001 * 0.001;
  EXPECT_NEAR(region["area"].get<double>() * 1e6, (ring + ends) * 1e6, 1e-6);
}

TEST_F(SmallArcs, FlatArcsOfHugeRadiiKeepTheirArea) {
  // A chord of 100 under an arc of a radius of 1e6, for which the library has a line.
  WriteBytes(folder / "cap.txt", "k1 e x50 y0\nax-50 y0 x0 y-999999.99875\nx50 y0\nek\n");
  const double chord = 100, radius = 1e6, area = chord * chord * chord / 12 / radius;
  EXPECT_NEAR(Json("clean cap.txt")["area"].get<double>() / area, 1, 1e-8);
  ASSERT_EQ(Vanzet("contour clean cap.txt --dxf cap.dxf").status, 0);
  EXPECT_NEAR(Json("clean cap.dxf")["area"].get<double>() / area, 1, 1e-8);
}

TEST_F(SmallArcs, AFullTurnIsRefusedHoweverSmall) {
  WriteBytes(folder / "whole.txt", "k1 e x0 y0\nx1 y0\nax1 y0 x1.001 y0\nek\n");
  EXPECT_EQ(Fault("clean whole.txt"),
            "vanzet: whole.txt:3: the arc is a full turn, which has to be two arcs\n");
}

}  // namespace
}  // namespace vanzet::test

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

TEST_F(SmallArcs, RegionsAndStrictReadersSayIt) {
  EXPECT_THAT(Vanzet("contour clean fillet.txt").err, HasSubstr("1 arc under 0.005 mm radius"));
  EXPECT_THAT(Vanzet("contour offset fillet.txt 1 --inside --region").err,
              HasSubstr("1 arc under 0.005 mm radius"));
  EXPECT_THAT(Fault("info fillet.txt --strict"), HasSubstr("not everything was read as it is drawn"));
}

}  // namespace
}  // namespace vanzet::test

#include "dxf_fixture.h"

namespace vanzet::contour {
namespace {

class DxfCurvesTest : public DxfTest {
 protected:
  static Contour One(const std::string& entities, const DxfOptions& options = {}) {
    Contours contours = ContoursOf(entities, options);
    EXPECT_EQ(contours.size(), 1U);
    return contours.empty() ? Contour() : contours.front();
  }
  static std::string LeftOut(const std::string& entities) { return Refused(Drawing(entities)); }
};

TEST_F(DxfCurvesTest, AnEllipseIsArcsWithinTheTolerance) {
  const Contour ellipse = One("0 ELLIPSE|10 5|20 0|11 20|21 0|40 0.5|41 0|42 6.283185307179586");
  const Facts facts = FactsOf(ellipse);
  EXPECT_TRUE(facts.closed);
  EXPECT_EQ(facts.direction, 1);
  EXPECT_NEAR(facts.area, 200 * kPi, 0.001 * 97);
  EXPECT_THAT(facts.low, IsAt(-15, -10, 0.001));
  EXPECT_THAT(facts.high, IsAt(25, 10, 0.001));
  for (const auto& span : ellipse.curve.spans) EXPECT_NE(span.dir, 0);
  const Contour coarse = One("0 ELLIPSE|10 5|20 0|11 20|21 0|40 0.5", {.tolerance = 0.1});
  EXPECT_LT(coarse.curve.SpanCount(), ellipse.curve.SpanCount());
}

TEST_F(DxfCurvesTest, AnEllipseRunsFromItsFirstParameterToItsSecond) {
  // A quarter turn of the axes, half of the ellipse.
  const Contour half = One("0 ELLIPSE|10 0|20 0|11 0|21 10|40 0.4|41 1.5707963267948966|42 4.71238898038469");
  EXPECT_THAT(half.curve.Start(), IsAt(-4, 0, 1e-9));
  EXPECT_THAT(half.curve.End(), IsAt(4, 0, 1e-9));
  EXPECT_LT(FactsOf(half).low.y, -9.99);
}

TEST_F(DxfCurvesTest, AnEllipseWithEqualAxesIsACircle) {
  const Facts facts = FactsOf(One("0 ELLIPSE|10 0|20 0|11 3|21 4|40 1|41 0|42 6.28318530718"));
  EXPECT_EQ(facts.arcs, 2);
  EXPECT_NEAR(facts.area, 25 * kPi, 1e-9);
}

TEST_F(DxfCurvesTest, ASplineOfDegreeOneIsItsLines) {
  const Contour line = One("0 SPLINE|70 0|71 1|40 0|40 0|40 1|40 2|40 2|10 0|20 0|10 5|20 0|10 5|20 5");
  ASSERT_EQ(line.curve.SpanCount(), 2);
  EXPECT_NEAR(line.curve.perim, 10, 1e-12);
}

TEST_F(DxfCurvesTest, ACircleWrittenAsARationalSplineIsTwoHalfTurns) {
  const std::string w = "0.7071067811865476";
  const Contour circle =
      One("0 SPLINE|70 5|71 2|40 0|40 0|40 0|40 1|40 1|40 2|40 2|40 3|40 3|40 4|40 4|40 4|"
          "10 5|20 0|41 1|10 5|20 5|41 " +
          w + "|10 0|20 5|41 1|10 -5|20 5|41 " + w + "|10 -5|20 0|41 1|10 -5|20 -5|41 " + w +
          "|10 0|20 -5|41 1|10 5|20 -5|41 " + w + "|10 5|20 0|41 1");
  EXPECT_EQ(circle.curve.SpanCount(), 2);
  EXPECT_NEAR(FactsOf(circle).area, 25 * kPi, 1e-6);
}

TEST_F(DxfCurvesTest, APeriodicSplineIsDrawnBetweenItsFullKnots) {
  // Uniform knots, and the first three poles again at the end: closed, without a corner.
  std::string groups = "0 SPLINE|70 3|71 3";
  for (int i = -3; i <= 7; ++i) groups += "|40 " + std::to_string(i);
  for (const char* pole :
       {"10 0|20 0", "10 10|20 0", "10 10|20 10", "10 0|20 10", "10 0|20 0", "10 10|20 0", "10 10|20 10"})
    groups += std::string("|") + pole;
  const Facts facts = FactsOf(One(groups));
  EXPECT_TRUE(facts.closed);
  EXPECT_THAT(facts.low, IsAt(10 - facts.high.x, 10 - facts.high.y, 0.002)) << "symmetric";
  EXPECT_GT(facts.area, 40);
}

TEST_F(DxfCurvesTest, FitPointsAreUsedWhereThereAreNoPoles) {
  const Contour arch =
      One("0 SPLINE|70 0|71 3|74 3|12 0|22 1|32 0|13 0|23 -1|33 0|11 0|21 0|11 10|21 10|11 20|21 0");
  EXPECT_THAT(arch.curve.Start(), IsAt(0, 0, 1e-12));
  EXPECT_THAT(arch.curve.End(), IsAt(20, 0, 1e-12));
  EXPECT_NEAR(arch.curve.spans.front().vs.dx, 0, 0.002) << "it begins upwards";
  EXPECT_NEAR(NearestOn(arch, {10, 10}).distance, 0, 1e-3);
  const Facts loop = FactsOf(One("0 SPLINE|70 1|71 3|11 10|21 0|11 0|21 10|11 -10|21 0|11 0|21 -10"));
  EXPECT_TRUE(loop.closed);
  EXPECT_NEAR(loop.area, 100 * kPi, 10) << "nearly a circle";
}

TEST_F(DxfCurvesTest, SplinesThatCannotBeDrawnAreLeftOut) {
  EXPECT_EQ(LeftOut("0 SPLINE|71 3|40 0|40 1|10 0|20 0|10 1|20 1"),
            "d.dxf: has no lines or arcs; left out 1 SPLINE whose knots do not fit");
  EXPECT_EQ(LeftOut("0 SPLINE|71 1|40 1|40 0|40 2|40 3|10 0|20 0|10 1|20 1"),
            "d.dxf: has no lines or arcs; left out 1 SPLINE whose knots do not fit");
  EXPECT_EQ(LeftOut("0 SPLINE|71 1|40 0|40 0|40 1|40 1|10 0|20 0|41 0|10 1|20 1|41 1"),
            "d.dxf: has no lines or arcs; left out 1 SPLINE with a weight that is not above 0");
  EXPECT_EQ(LeftOut("0 SPLINE|71 900|10 0|20 0"),
            "d.dxf: has no lines or arcs; left out 1 SPLINE of a degree that is not within 1 and 25");
  EXPECT_EQ(LeftOut("0 SPLINE|71 3|11 1|21 1"),
            "d.dxf: has no lines or arcs; left out 1 SPLINE of less than two points");
  EXPECT_EQ(LeftOut("0 SPLINE|71 1|40 0|40 0|40 1|40 1|10 0|20 0|10 3e7|20 1"),
            "d.dxf:16: the coordinate 3e+07 mm is not within 1e+07 mm");
}

TEST_F(DxfCurvesTest, AJumpInASplinePartsIt) {
  EXPECT_EQ(ContoursOf("0 SPLINE|71 1|40 0|40 0|40 1|40 1|40 2|40 2|10 0|20 0|10 1|20 0|10 5|20 0|10 6|20 0")
                .size(),
            2U);
}

TEST_F(DxfCurvesTest, BoundariesOfHatches) {
  const Contours hatch = ContoursOf(
      "0 HATCH|8 0|10 0|20 0|30 0|210 0|220 0|230 1|2 SOLID|70 1|71 0|91 2|"
      "92 3|72 1|73 1|93 2|10 -3|20 0|42 1|10 3|20 0|42 1|97 0|"
      "92 1|93 3|72 1|10 10|20 0|11 14|21 0|72 2|10 10|20 0|40 4|50 0|51 90|73 1|72 1|10 10|20 4|11 10|21 "
      "0|97 0|"
      "75 0|76 1|98 1|10 0|20 0");
  ASSERT_EQ(hatch.size(), 2U);
  EXPECT_NEAR(FactsOf(hatch[0]).area, 9 * kPi, 1e-9);
  EXPECT_NEAR(FactsOf(hatch[1]).area, 4 * kPi, 1e-9) << "a quarter of a disc of radius 4";
}

TEST_F(DxfCurvesTest, ClockwiseArcsOfHatchesCountTheirAnglesClockwise) {
  const Contour arc = One("0 HATCH|91 1|92 1|93 1|72 2|10 0|20 0|40 2|50 0|51 90|73 0|97 0");
  EXPECT_EQ(arc.curve.spans[0].dir, -1);
  EXPECT_THAT(arc.curve.End(), IsAt(0, -2, 1e-9));
}

TEST_F(DxfCurvesTest, EllipsesAndSplinesOfHatches) {
  const Contours hatch = ContoursOf(
      "0 HATCH|91 2|92 1|93 1|72 3|10 0|20 0|11 10|21 0|40 0.5|50 0|51 360|73 1|97 0|"
      "92 1|93 2|72 4|94 2|73 0|74 0|95 6|96 3|40 0|40 0|40 0|40 1|40 1|40 1|10 30|20 0|10 35|20 10|10 40|20 "
      "0|97 0|"
      "72 1|10 40|20 0|11 30|21 0|97 0|75 0");
  ASSERT_EQ(hatch.size(), 2U);
  EXPECT_NEAR(FactsOf(hatch[0]).area, 50 * kPi, 0.05);
  EXPECT_NEAR(FactsOf(hatch[1]).area, 10 * 5 * 2 / 3.0, 0.02) << "a segment of a parabola";
}

TEST_F(DxfCurvesTest, AHatchOverItsOutlineIsNotASecondContour) {
  EXPECT_EQ(
      ContoursOf("0 CIRCLE|10 0|20 0|40 2|0 HATCH|91 1|92 1|93 1|72 2|10 0|20 0|40 2|50 0|51 360|73 1|97 0")
          .size(),
      1U);
}

TEST_F(DxfCurvesTest, AHatchThatIsCutOffIsLeftOut) {
  EXPECT_EQ(LeftOut("0 HATCH|91 2|92 3|72 1|73 1|93 2|10 -3|20 0|42 1|10 3|20 0|97 0"),
            "d.dxf: has no lines or arcs; left out 1 HATCH whose boundary is not known");
  EXPECT_EQ(LeftOut("0 HATCH|91 0"), "d.dxf: has no lines or arcs; left out 1 HATCH without a boundary");
}

TEST_F(DxfCurvesTest, ATiltedCircleIsTheEllipseThatIsSeen) {
  const auto content = Dxf(Drawing("0 CIRCLE|10 0|20 0|40 10|210 0|220 0.6|230 0.8"));
  ASSERT_TRUE(content) << content.fault().Message();
  EXPECT_NEAR(FactsOf(content->contours[0]).area, 80 * kPi, 0.1);
  ASSERT_EQ(content->remarks.size(), 1U);
  EXPECT_TRUE(content->remarks[0].isLoss);
}

}  // namespace
}  // namespace vanzet::contour

#include "dxf_fixture.h"

namespace vanzet::contour {
namespace {

class DxfPiecesTest : public DxfTest {
 protected:
  static Contour One(const std::string& entities) {
    Contours contours = ContoursOf(entities);
    EXPECT_EQ(contours.size(), 1U);
    return contours.empty() ? Contour() : contours.front();
  }
};

TEST_F(DxfPiecesTest, ALine) {
  const Contour line = One(kLine);
  EXPECT_THAT(line.curve.Start(), IsAt(1, 2, 0));
  EXPECT_THAT(line.curve.End(), IsAt(3, 4, 0));
}

TEST_F(DxfPiecesTest, AnArcRunsAnticlockwiseFromItsFirstAngle) {
  const Contour arc = One("0 ARC|8 0|10 5|20 6|40 2|50 300|51 30");
  ASSERT_EQ(arc.curve.SpanCount(), 1);
  EXPECT_EQ(arc.curve.spans[0].dir, 1);
  EXPECT_THAT(arc.curve.spans[0].pc, IsAt(5, 6, 1e-9));
  EXPECT_THAT(arc.curve.Start(), IsAt(6, 6 - std::sqrt(3), 1e-9));
  EXPECT_THAT(arc.curve.End(), IsAt(5 + std::sqrt(3), 7, 1e-9));
  EXPECT_NEAR(arc.curve.perim, 2 * kPi / 2, 1e-9);
}

TEST_F(DxfPiecesTest, ACircleAndAnArcOfAFullTurnAreTwoHalves) {
  for (const char* entity : {"0 CIRCLE|8 0|10 5|20 6|40 2", "0 ARC|8 0|10 5|20 6|40 2|50 30|51 390"}) {
    const Facts facts = FactsOf(One(entity));
    EXPECT_EQ(facts.arcs, 2) << entity;
    EXPECT_NEAR(facts.area, 4 * kPi, 1e-9) << entity;
    EXPECT_EQ(facts.direction, 1) << entity;
  }
}

TEST_F(DxfPiecesTest, ABulgeIsTheTangentOfAQuarterOfTheAngle) {
  // tan(22.5 degrees): a quarter turn, to the left of the way for a positive bulge.
  const Contour left = One("0 LWPOLYLINE|90 2|70 0|10 10|20 0|42 0.41421356237309503|10 0|20 10");
  EXPECT_EQ(left.curve.spans[0].dir, 1);
  EXPECT_THAT(left.curve.spans[0].pc, IsAt(0, 0, 1e-9));
  const Contour right = One("0 LWPOLYLINE|90 2|70 0|10 10|20 0|42 -0.41421356237309503|10 0|20 10");
  EXPECT_EQ(right.curve.spans[0].dir, -1);
  EXPECT_THAT(right.curve.spans[0].pc, IsAt(10, 10, 1e-9));
}

TEST_F(DxfPiecesTest, ABulgeAboveOneIsMoreThanHalfATurn) {
  // tan(67.5 degrees): three quarters of a turn.
  const Contour contour = One("0 LWPOLYLINE|90 2|70 0|10 10|20 0|42 2.414213562373095|10 0|20 10");
  EXPECT_NEAR(contour.curve.spans[0].angle, 1.5 * kPi, 1e-9);
  EXPECT_THAT(contour.curve.spans[0].pc, IsAt(10, 10, 1e-9));
}

TEST_F(DxfPiecesTest, AClosedPolylineEndsWithTheBulgeOfItsLastVertex) {
  const Facts facts = FactsOf(One("0 LWPOLYLINE|90 2|70 1|10 -3|20 0|42 1|10 3|20 0|42 1"));
  EXPECT_TRUE(facts.closed);
  EXPECT_NEAR(facts.area, 9 * kPi, 1e-9);
}

TEST_F(DxfPiecesTest, AnOldPolylineBringsItsVerticesOneByOne) {
  const Contour contour = One(
      "0 POLYLINE|8 A|66 1|70 1|0 VERTEX|8 A|10 0|20 0|0 VERTEX|8 A|10 4|20 0|42 1|0 VERTEX|8 A|10 4|20 2|"
      "0 VERTEX|8 A|10 0|20 2|0 SEQEND");
  EXPECT_EQ(contour.curve.SpanCount(), 4);
  EXPECT_NEAR(FactsOf(contour).area, 8 + kPi / 2, 1e-9);
}

TEST_F(DxfPiecesTest, VerticesThatRepeatAreDropped) {
  EXPECT_EQ(One("0 LWPOLYLINE|90 4|70 0|10 0|20 0|10 0|20 0|10 4|20 0|10 4|20 0").curve.SpanCount(), 1);
}

TEST_F(DxfPiecesTest, PlanesSeenFromBelowAreMirrored) {
  const Contour arc = One("0 ARC|8 0|10 5|20 0|40 1|50 0|51 90|210 0|220 0|230 -1");
  EXPECT_EQ(arc.curve.spans[0].dir, -1);
  EXPECT_THAT(arc.curve.spans[0].pc, IsAt(-5, 0, 1e-9));
  EXPECT_THAT(arc.curve.Start(), IsAt(-6, 0, 1e-9));
  const Contour polyline = One("0 LWPOLYLINE|90 2|70 0|230 -1|10 1|20 0|42 1|10 3|20 0");
  EXPECT_EQ(polyline.curve.spans[0].dir, -1);
  EXPECT_THAT(polyline.curve.Start(), IsAt(-1, 0, 1e-9));
}

TEST_F(DxfPiecesTest, UnitsBecomeMillimetres) {
  const std::pair<const char*, double> units[] = {{"1", 25.4}, {"4", 1}, {"0", 1}, {"6", 1000}, {"5", 10}};
  for (const auto& [unit, factor] : units) {
    const auto content = Dxf(Drawing(kLine, unit));
    ASSERT_TRUE(content) << unit;
    EXPECT_THAT(content->contours[0].curve.End(), IsAt(3 * factor, 4 * factor, 1e-9)) << unit;
  }
}

TEST_F(DxfPiecesTest, TheUnitThatIsAskedForWins) {
  const auto content = Dxf(Drawing(kLine, "4"), {.unit = "inch"});
  ASSERT_TRUE(content);
  EXPECT_THAT(content->contours[0].curve.End(), IsAt(76.2, 101.6, 1e-9));
  EXPECT_EQ(Refused(Drawing(kLine), {.unit = "ell"}), "expected the unit mm, inch or m, found 'ell'");
}

TEST_F(DxfPiecesTest, ALayerIsChosenByNameInAnyCase) {
  const std::string two = std::string(kLine) + "|0 LINE|8 Bore|10 0|20 0|11 0|21 9";
  ASSERT_EQ(ContoursOf(two).size(), 2U);
  const Contours bore = ContoursOf(two, {.layer = "BORE"});
  ASSERT_EQ(bore.size(), 1U);
  EXPECT_NEAR(bore[0].curve.perim, 9, 1e-12);
  EXPECT_EQ(Refused(Drawing(two), {.layer = "Lid"}),
            "d.dxf: has no lines or arcs on the layer 'Lid', but on '0', 'Bore'");
}

TEST_F(DxfPiecesTest, ABlockThatIsNotInsertedIsNotDrawn) {
  EXPECT_EQ(
      Refused(Groups(std::string("0 SECTION|2 BLOCKS|0 BLOCK|2 part|") + kLine + "|0 ENDBLK|0 ENDSEC|0 EOF")),
      "d.dxf: has no lines or arcs");
}

TEST_F(DxfPiecesTest, AnOldPolylineBringsTheArcsOfItsCurveFit) {
  // Two arcs of a quarter turn, the vertex between them made by the fit.
  const Contour fitted =
      One("0 POLYLINE|66 1|70 2|0 VERTEX|10 0|20 0|42 0.41421356237309503|0 VERTEX|10 10|20 10|70 1|"
          "42 0.41421356237309503|0 VERTEX|10 0|20 20|0 SEQEND");
  EXPECT_NEAR(fitted.curve.perim, 10 * kPi, 1e-9);
}

TEST_F(DxfPiecesTest, TheFrameOfAnOldSplineIsNotDrawn) {
  const Contour spline =
      One("0 POLYLINE|66 1|70 4|0 VERTEX|10 5|20 50|70 16|0 VERTEX|10 0|20 0|70 8|0 VERTEX|10 5|20 2|70 8|"
          "0 VERTEX|10 10|20 0|70 8|0 SEQEND");
  EXPECT_EQ(spline.curve.SpanCount(), 2);
}

TEST_F(DxfPiecesTest, APolylineInSpaceIsReadFromAbove) {
  const Contour level = One("0 POLYLINE|66 1|70 8|0 VERTEX|10 0|20 0|30 7|0 VERTEX|10 3|20 4|30 7|0 SEQEND");
  EXPECT_NEAR(level.curve.perim, 5, 1e-12);
}

TEST_F(DxfPiecesTest, APolylineInATiltedPlaneIsSeenFromAbove) {
  // The plane rises by 60 degrees along y; its x axis is that of the world.
  const auto content =
      Dxf(Drawing("0 LWPOLYLINE|90 3|70 1|210 0|220 -0.8660254037844386|230 0.5|"
                  "10 0|20 0|10 6|20 0|10 6|20 10"));
  ASSERT_TRUE(content) << content.fault().Message();
  EXPECT_NEAR(FactsOf(content->contours[0]).area, 6 * 5 / 2.0, 1e-9);
  ASSERT_EQ(content->remarks.size(), 1U);
  EXPECT_EQ(content->remarks[0].text,
            "d.dxf: not parallel to the drawing's plane, and read as seen from above: 1 LWPOLYLINE");
  EXPECT_TRUE(content->remarks[0].isLoss);
}

}  // namespace
}  // namespace vanzet::contour

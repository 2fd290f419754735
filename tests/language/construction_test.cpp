#include <cmath>

#include "language_fixture.h"

namespace vanzet::language {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

class Construction : public LanguageTest {
 protected:
  Construction() { DoAll({"win 0", "s1=h 0", "s2=v 0", "p1=s1 s2"}); }

  /// "x y, direction" of a line.
  std::string Line(int number) const {
    const geometry::CLine* const line = board.FindLine(number);
    if (line == nullptr) return "no line";
    return LanguageTest::Text(line->p) + ", " + LanguageTest::Text(geometry::Point(line->v.dx, line->v.dy));
  }
  std::string Point(int number) const {
    const auto point = board.workpieces.points.find(number);
    return point == board.workpieces.points.end() ? "no point" : LanguageTest::Text(point->second);
  }
};

TEST_F(Construction, LinesAreHorizontalOrVerticalWithAndWithoutBlanks) {
  DoAll({"s10=h 5", "s11=h5", "s12=v -2.500000", "s13=v-2.5", "  s14 = h  5 "});
  EXPECT_EQ(Line(10), "0 5, 1 0");
  EXPECT_EQ(Line(11), Line(10));
  EXPECT_EQ(Line(14), Line(10));
  EXPECT_EQ(Line(12), "-2.5 0, 0 1");
  EXPECT_EQ(Line(13), Line(12));
}

TEST_F(Construction, ANegativeZeroIsAZero) {
  DoAll({"s10=v -0.000000", "p10=s1 s10"});
  EXPECT_EQ(Line(10), "0 0, 0 1");
  EXPECT_EQ(Point(10), "0 0");
}

TEST_F(Construction, LinesHaveNegativeNumbersAndBlanksAroundTheEqualsSign) {
  DoAll({"s-100 = v12.500000"});
  EXPECT_EQ(Line(-100), "12.5 0, 0 1");
}

TEST_F(Construction, ParallelsLieLeftOrRightLookingAlongTheLine) {
  DoAll({"s10=3 ls1", "s11=3 rs1", "s12=3 ls2", "s13=3 rs2", "s14=3ls2", "s15=-3 ls2"});
  EXPECT_EQ(Line(10), "0 3, 1 0");
  EXPECT_EQ(Line(11), "0 -3, 1 0");
  EXPECT_EQ(Line(12), "-3 0, 0 1");
  EXPECT_EQ(Line(13), "3 0, 0 1");
  EXPECT_EQ(Line(14), Line(12));
  EXPECT_EQ(Line(15), Line(13)) << "distances have a sign";
}

TEST_F(Construction, LinesGoThroughPoints) {
  DoAll({"p2=X3 Y4", "s10=p1 p2", "s11=b90 p2", "s12=b-180.000000 p2"});
  EXPECT_EQ(Line(10), "0 0, 0.6 0.8");
  EXPECT_EQ(Line(11), "3 4, 0 1") << "exactly";
  EXPECT_EQ(Line(12), "3 4, -1 0");
}

TEST_F(Construction, ALineOfTheSameNumberReplacesTheFormer) {
  DoAll({"s10=h 5", "s10=2 ls10"});
  EXPECT_EQ(Line(10), "0 7, 1 0");
}

TEST_F(Construction, PointsAreCrossingsOrCoordinates) {
  DoAll({"s10=h 5", "s11=v -7", "p10=s10 s11", "p11=X2 Y0", "p12=X-2 Y-0"});
  EXPECT_EQ(Point(10), "-7 5");
  EXPECT_EQ(Point(11), "2 0");
  EXPECT_EQ(Point(12), "-2 0");
}

TEST_F(Construction, ACircleInTwoHalves) {
  DoAll({"p100=X0 Y0", "c100=p100 2", "p101=X2 Y0", "p102=X-2 Y0", "k30012 p101 ac100 p102 ac100 p101 ek"});
  EXPECT_THAT(Vertices(30012), ElementsAre("2 0", "-2 0 about 0 0", "2 0 about 0 0"));
  DoAll({"k1 p101 tc100 p102 ek"});
  EXPECT_THAT(Vertices(1), ElementsAre("2 0", "-2 0 clockwise about 0 0"));
}

TEST_F(Construction, ContoursGoFromCrossingToCrossing) {
  DoAll({"s3=h 10", "s4=v 20", "k1 p1 as1 ts4 as3 ts2 p1 ek"});
  EXPECT_THAT(Vertices(1), ElementsAre("0 0", "20 0", "20 10", "0 10", "0 0"));
}

TEST_F(Construction, ContoursMayBeOpen) {
  DoAll({"p2=X5 Y0", "k1 p1 as1 p2 ek", "k2 p1 p2 ek"});
  EXPECT_THAT(Vertices(1), ElementsAre("0 0", "5 0"));
  EXPECT_EQ(Vertices(2), Vertices(1));
}

TEST_F(Construction, AContourOfTheSameNumberReplacesTheFormer) {
  DoAll({"p2=X5 Y0", "k1 p1 as1 p2 ek", "p2=X7 Y0", "k1 p1 as1 p2 ek"});
  EXPECT_THAT(Vertices(1), ElementsAre("0 0", "7 0"));
}

TEST_F(Construction, ExplicitVerticesCloseTheContour) {
  DoAll({"k1 e X5 Y0 X-5 Y0 ek", "k2 e X0 Y0 X4 Y0 X4 Y3 ek"});
  EXPECT_THAT(Vertices(1), ElementsAre("5 0", "-5 0", "5 0"));
  EXPECT_THAT(Vertices(2), ElementsAre("0 0", "4 0", "4 3", "0 0"));
}

TEST_F(Construction, APointThatIsNotOnItsLineIsProjected) {
  DoAll({"s3=h 10", "s4=h -10", "s5=v 50", "p1=s3 s2", "p2=s3 s5", "k1 p1 as4 p2 ek"});
  EXPECT_THAT(Vertices(1), ElementsAre("0 -10", "50 -10")) << "the bore's other side";
}

TEST_F(Construction, APointThatIsNotOnItsCircleIsProjected) {
  DoAll({"c1=p1 5", "p2=X8 Y0", "p3=X0 Y20", "k1 p2 ac1 p3 ek"});
  EXPECT_THAT(Vertices(1), ElementsAre("5 0", "0 5 about 0 0"));
}

TEST_F(Construction, AChamferTakesItsLengthOfBothSides) {
  DoAll({"s3=h 10", "s4=v 20", "k1 p1 as1 ts4 ch3 as3 ts2 p1 ek"});
  EXPECT_THAT(Vertices(1), ElementsAre("0 0", "20 0", "20 7", "17 10", "0 10", "0 0"));
}

TEST_F(Construction, AChamferOfNothingOrTooLongLeavesTheCorner) {
  DoAll({"s3=h 10", "s4=v 20"});
  for (const char* chamfer : {"ch0.000000", "ch-1", "ch10.5", "ch1000"}) {
    DoAll({"k1 p1 as1 ts4 " + std::string(chamfer) + " as3 ts2 p1 ek"});
    EXPECT_THAT(Vertices(1), ElementsAre("0 0", "20 0", "20 10", "0 10", "0 0")) << chamfer;
  }
  DoAll({"k1 p1 as1 ts4 ch10 as3 ts2 p1 ek"});
  EXPECT_THAT(Vertices(1), ElementsAre("0 0", "20 0", "10 10", "0 10", "0 0")) << "as long as the side is";
}

TEST_F(Construction, WhatHasNoLengthIsLeftOut) {
  DoAll({"s3=h 0", "s4=v 20", "s5=v 20", "s6=h 10", "k1 p1 as1 ts4 as3 ts5 as6 ts2 p1 ek"});
  EXPECT_EQ(Vertices(1).size(), 5U);
}

TEST_F(Construction, NoZeroOfAContourHasASign) {
  DoAll({"s3=-5 ls1", "s4=5 ls3", "s5=b180 p1", "s6=-0 ls5", "s7=v -5", "k1 p1 as6 ts7 as4 p1 ek"});
  for (int i = 0; i < board.FindContour(1)->nVertices; ++i) {
    geometry::spVertex vertex;
    board.FindContour(1)->Get(i, vertex);
    EXPECT_FALSE(vertex.p.x == 0 && std::signbit(vertex.p.x)) << i;
    EXPECT_FALSE(vertex.p.y == 0 && std::signbit(vertex.p.y)) << i;
  }
}

TEST_F(Construction, AWrongLineReportsItsColumnAndChangesNothing) {
  DoAll({"s3=h 10", "p2=X5 Y0", "c1=p1 2", "k1 p1 as1 p2 ek"});
  struct Case {
    const char* line;
    const char* message;
  };
  for (const auto& [line, message] : std::initializer_list<Case>{
           {"s9", "3: expected '=' after s9"},
           {"s9=", "4: expected h, v, b, two points, or a distance and a line"},
           {"s9=x", "4: expected h, v, b, two points, or a distance and a line, found 'x'"},
           {"s9=h", "5: expected the height of the line"},
           {"s9=h abc", "6: expected the height of the line, found 'abc'"},
           {"s9=h 5mm", "7: expected a blank, found 'mm'"},
           {"s9=h 0x10", "7: expected a blank, found 'x10'"},
           {"s9=h nan", "6: expected the height of the line, found 'nan'"},
           {"s9=h 1e999", "6: expected the height of the line, found '1e999'"},
           {"s9=h 2e7", "1: a coordinate is beyond 10 km"},
           {"s9=h 5 6", "8: expected the end of the line, found '6'"},
           {"s9=5 s1", "6: expected 'l' or 'r' and a line after the distance, found 's1'"},
           {"s9=5 ls77", "7: s77 does not exist"},
           {"s9=5 lp1", "7: expected a line like s1, found 'p1'"},
           {"s9=b45", "7: expected a point like p1"},
           {"s9=p1 p77", "7: p77 does not exist"},
           {"s9=p1 p1", "7: the two points are the same"},
           {"p9=s1 s3", "7: the two lines do not meet: they are parallel"},
           {"p9=Y0", "4: expected two lines, or 'X' and a number, found 'Y0'"},
           {"p9=X5", "6: expected 'Y' and a number"},
           {"p9=X5Y5", "6: expected a blank, found 'Y5'"},
           {"c9=p1 0", "7: the radius is not above 0"},
           {"c9=p1 -5", "7: the radius is not above 0"},
           {"c9=s1 5", "4: expected a point like p1, found 's1 5'"},
           {"k9", "3: expected an element like p1, as1, ts1, ac1, tc1, ch5, or 'ek'"},
           {"k9 p1 as1 p2", "13: expected an element like p1, as1, ts1, ac1, tc1, ch5, or 'ek'"},
           {"k9 p1 s1 p2 ek",
            "7: expected an element like p1, as1, ts1, ac1, tc1, ch5, or 'ek', found 's1 p2 ek'"},
           {"k9 p1 ax p2 ek", "8: expected a line or a circle after 'a' or 't', found 'x p2 ek'"},
           {"k9 p1 as77 p2 ek", "8: s77 does not exist"},
           {"k9 p1 as1 ts3 p2 ek", "11: s3 does not meet s1: they are parallel"},
           {"k9 as1 p1 ek", "4: a contour must begin with a point"},
           {"k9 p1 as1 ek", "7: a contour must end with a point, not with s1"},
           {"k9 ek", "1: a contour must begin with a point"},
           {"k9 p1 ek", "4: the contour has no length"},
           {"k9 p1 as1 p1 ek", "11: the contour has no length"},
           {"k9 p1 as1 ch5 p2 ek", "11: a chamfer must be between two lines"},
           {"k9 p1 as1 ac1 p2 ek", "11: c1 is not between two points"},
           {"k9 p2 ac1 p2 ek", "7: an arc cannot lead from a point to itself: a whole circle has two halves"},
           {"k9 p1 ac1 p2 ek", "4: p1 is the centre of c1: it has no projection on the circle"},
           {"k9 p1 as1 p2 as3 p1 ek", "11: p2 is not on s3, which follows it"},
           {"k9 p1 as1 p2 ek x", "17: expected the end of the line, found 'x'"},
           {"k9 e ek", "1: the contour has no length"},
           {"k9 e X5 Y0 p1 ek", "12: expected 'X' and a number, or 'ek', found 'p1 ek'"},
           {"k9 e X5 Y0", "11: expected 'X' and a number, or 'ek'"},
       }) {
    EXPECT_EQ(Outcome(line), message) << line;
  }
  EXPECT_EQ(board.workpieces.lines.size(), 3U);
  EXPECT_EQ(board.workpieces.points.size(), 2U);
  EXPECT_EQ(board.workpieces.circles.size(), 1U);
  EXPECT_EQ(board.drawing().contours.size(), 1U);
}

TEST_F(Construction, CornersThatAreTooFarAwayAreRefused) {
  DoAll({"p2=X1000 Y0.01", "s3=p1 p2", "s4=h 500", "s5=v 5"});
  EXPECT_EQ(Outcome("p3=s3 s4"), "1: a coordinate is beyond 10 km");
  EXPECT_THAT(Outcome("k1 p1 as3 ts4 as5 p1 ek"),
              StartsWith("11: s4 meets its neighbour more than 10 km away"));
}

TEST_F(Construction, AContourNeedsThePointsOfTheLinesBeforeIt) {
  DoAll({"del s1>2 p1"});
  EXPECT_EQ(Outcome("k1 p1 as1 p1 ek"), "4: p1 does not exist");
}

}  // namespace
}  // namespace vanzet::language

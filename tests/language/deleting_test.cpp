#include <cmath>

#include "language_fixture.h"

namespace vanzet::language {
namespace {

using testing::ElementsAre;

/// Deleting entities, and transforms.
class Entities : public LanguageTest {
 protected:
  Entities() {
    DoAll({"win 0", "s100=h 0", "s101=v 0", "s103=v 5", "p100=s100 s101", "p101=s100 s103", "c100=p100 2",
           "k1 p100 as100 p101 ek", "set m1"});
  }
};

TEST_F(Entities, AreDeletedOneByOneAndInRanges) {
  DoAll({"del s100>103 p100 c100 m1"});
  EXPECT_TRUE(board.workpieces.lines.empty());
  EXPECT_EQ(board.workpieces.points.size(), 1U);
  EXPECT_TRUE(board.workpieces.circles.empty());
  EXPECT_TRUE(board.workpieces.transforms.empty());
  DoAll({"del k1 p101"});
  EXPECT_EQ(board.FindContour(1), nullptr);
}

TEST_F(Entities, ThatAreMissingInARangeAreNoFault) {
  DoAll({"del s100>121 p100>110", "del s100>121 k5>9", "del s1>2147483647"});
  EXPECT_TRUE(board.workpieces.lines.empty());
}

TEST_F(Entities, ThatAreMissingAloneAreAFaultAndNothingIsDeleted) {
  EXPECT_EQ(Outcome("del s100 p77"), "10: p77 does not exist");
  EXPECT_EQ(Outcome("del k77"), "5: k77 does not exist");
  EXPECT_EQ(Do("del k77").fault().kind, FaultKind::kMissing);
  EXPECT_EQ(board.workpieces.lines.size(), 3U);
}

TEST_F(Entities, AreDeletedByLinesThatAreRightOnly) {
  EXPECT_EQ(Outcome("del"), "4: expected an entity like s1, p1, c1, k1 or m1");
  EXPECT_EQ(Outcome("del s100 x5"), "10: expected an entity like s1, p1, c1, k1 or m1, found 'x5'");
  EXPECT_EQ(Outcome("del s103>100"), "10: the range ends before it begins");
  EXPECT_EQ(
      Outcome("del s100>p101"),
      "10: expected the last number of the range or an integer variable that has a value, found 'p101'");
  EXPECT_EQ(Outcome("del s100,s101"), "9: expected a blank, found ',s101'");
  EXPECT_EQ(board.workpieces.lines.size(), 3U);
}

TEST_F(Entities, ANegativeNumberIsANumber) {
  DoAll({"s-100 = v5", "del s-100"});
  EXPECT_EQ(board.FindLine(-100), nullptr);
}

TEST_F(Entities, TransformsComposeInTheOrderSent) {
  DoAll({"k1 e X1 Y2 X3 Y4 ek", "tra m1 x10", "rot m1 z90", "copy k1 m1"});
  EXPECT_THAT(Vertices(1), ElementsAre("-2 11", "-4 13", "-2 11"));
}

TEST_F(Entities, QuarterTurnsAreExact) {
  DoAll({"k1 e X0 Y0 X0.1 Y0.3 ek", "rot m1 x180", "rot m1 z90", "copy k1 m1"});
  EXPECT_THAT(Vertices(1), ElementsAre("0 0", "0.3 0.1", "0 0"));
  geometry::spVertex vertex;
  board.FindContour(1)->Get(1, vertex);
  EXPECT_EQ(vertex.p.x, 0.3);
  EXPECT_EQ(vertex.p.y, 0.1);
  board.FindContour(1)->Get(0, vertex);
  EXPECT_FALSE(std::signbit(vertex.p.x) || std::signbit(vertex.p.y)) << "no zero has a sign";
}

TEST_F(Entities, AMirroredArcRunsTheOtherWay) {
  DoAll({"p1=X2 Y0", "p2=X0 Y2", "k1 p1 ac100 p2 ek", "rot m1 x180", "rot m1 z90", "copy k1 m1"});
  EXPECT_THAT(Vertices(1), ElementsAre("0 2", "2 0 clockwise about 0 0"));
}

TEST_F(Entities, AHalfTurnInTwoQuartersAboutX) {
  DoAll({"rot m1 x90", "rot m1 x90", "copy k1 m1"});
  EXPECT_THAT(Vertices(1), ElementsAre("0 0", "5 0"));
}

TEST_F(Entities, AContourIsNotTiltedOutOfItsPlane) {
  DoAll({"rot m1 x90"});
  EXPECT_EQ(Outcome("copy k1 m1"), "9: m1 tilts the plane of the drawing");
  EXPECT_THAT(Vertices(1), ElementsAre("0 0", "5 0"));
}

TEST_F(Entities, TransformsStartAgainWhenTheyAreSet) {
  DoAll({"tra m1 x10", "set m1", "tra m1 y1", "tra m1 z7", "copy k1 m1"});
  EXPECT_THAT(Vertices(1), ElementsAre("0 1", "5 1"));
}

TEST_F(Entities, AWrongTransformIsReportedAndChangesNothing) {
  EXPECT_EQ(Outcome("set k1"), "5: expected a transform like m1, found 'k1'");
  EXPECT_EQ(Outcome("set m1 x"), "8: expected the end of the line, found 'x'");
  EXPECT_EQ(Outcome("rot m1"), "7: expected an axis and degrees like x180");
  EXPECT_EQ(Outcome("rot m1 a5"), "8: expected an axis and degrees like x180, found 'a5'");
  EXPECT_EQ(Outcome("tra m1 x"), "9: expected a number after the axis");
  EXPECT_EQ(Outcome("tra m7 x5"), "5: m7 does not exist");
  EXPECT_EQ(Outcome("copy k7 m1"), "6: k7 does not exist");
  EXPECT_EQ(Outcome("copy k1 m7"), "9: m7 does not exist");
  DoAll({"tra m1 x9999999"});
  EXPECT_EQ(Outcome("copy k1 m1"), "6: a coordinate is beyond 10 km");
  EXPECT_THAT(Vertices(1), ElementsAre("0 0", "5 0"));
}

}  // namespace
}  // namespace vanzet::language

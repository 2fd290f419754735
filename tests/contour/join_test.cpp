#include <random>

#include "contour/piece.h"
#include "dxf_fixture.h"

namespace vanzet::contour {
namespace {

class JoinTest : public DxfTest {
 protected:
  static Piece Line(double x0, double y0, double x1, double y1) { return {{x0, y0}, {{{x1, y1}}}, 0}; }
};

TEST_F(JoinTest, LoosePiecesBecomeAClosedContour) {
  // The four sides of a square in no order; two run against the others.
  const std::vector<Piece> joined =
      Join({Line(0, 0, 10, 0), Line(0, 10, 10, 10), Line(0, 10, 0, 0), Line(10, 0, 10, 10)}, 0.001);
  ASSERT_EQ(joined.size(), 1U);
  const Facts facts = FactsOf(*ContourOf(1, joined[0]));
  EXPECT_TRUE(facts.closed);
  EXPECT_NEAR(facts.area, 100, 1e-12);
  EXPECT_EQ(facts.direction, 1) << "the first piece gives the sense";
}

TEST_F(JoinTest, GrowsAtItsStartToo) {
  const std::vector<Piece> joined = Join({Line(5, 0, 9, 0), Line(9, 0, 9, 3), Line(0, 0, 5, 0)}, 0.001);
  ASSERT_EQ(joined.size(), 1U);
  EXPECT_THAT(joined[0].start, IsAt(0, 0, 0));
  EXPECT_THAT(joined[0].End(), IsAt(9, 3, 0));
}

TEST_F(JoinTest, GapsUpToTheToleranceAreClosed) {
  for (const double tolerance : {0.0, 0.001, 0.1, 2.0}) {
    const double gap = tolerance * 0.999;
    EXPECT_EQ(Join({Line(0, 0, 5, 0), Line(5 + gap, 0, 9, 0)}, tolerance).size(), 1U) << tolerance;
    EXPECT_EQ(Join({Line(0, 0, 5, 0), Line(5 + tolerance * 1.01 + 1e-9, 0, 9, 0)}, tolerance).size(), 2U)
        << tolerance;
  }
}

TEST_F(JoinTest, GapsAreFoundAcrossTheCellsOfTheIndex) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> place(-50, 50), turn(0, 2 * kPi);
  for (int i = 0; i < 2000; ++i) {
    const double x = place(random), y = place(random), angle = turn(random), gap = 0.0999;
    const Piece near = Line(x + gap * std::cos(angle), y + gap * std::sin(angle), 500, 500);
    EXPECT_EQ(Join({Line(-500, 0, x, y), near}, 0.1).size(), 1U);
  }
}

TEST_F(JoinTest, TheNearestEndIsTakenAndThenTheFirst) {
  const std::vector<Piece> nearest = Join({Line(0, 0, 5, 0), Line(5.05, 0, 9, 9), Line(5.01, 0, 7, 7)}, 0.1);
  ASSERT_EQ(nearest.size(), 2U);
  EXPECT_THAT(nearest[0].End(), IsAt(7, 7, 0));
  const std::vector<Piece> first = Join({Line(0, 0, 5, 0), Line(5, 0, 9, 9), Line(5, 0, 7, 7)}, 0.1);
  EXPECT_THAT(first[0].End(), IsAt(9, 9, 0));
}

TEST_F(JoinTest, AnArcKeepsItsAngleWhenItsEndIsMoved) {
  const std::vector<Piece> joined = Join({Line(0, 0, 10, 0), {{10.05, 0}, {{{10.05, 10}, 1}}, 0}}, 0.1);
  ASSERT_EQ(joined.size(), 1U);
  const auto contour = ContourOf(1, joined[0]);
  ASSERT_TRUE(contour);
  EXPECT_NEAR(contour->curve.spans[1].angle, kPi, 1e-9);
  EXPECT_THAT(contour->curve.spans[1].p0, IsAt(10, 0, 0));
}

TEST_F(JoinTest, ReversingAPieceTurnsItsArcs) {
  Piece piece{{10, 0}, {{{0, 10}, 0.41421356237309503}, {{0, 20}, 0}}, 0};
  const auto forth = ContourOf(1, piece);
  piece.Reverse();
  const auto back = ContourOf(1, piece);
  ASSERT_TRUE(forth && back);
  EXPECT_THAT(back->curve.Start(), IsAt(0, 20, 0));
  EXPECT_EQ(back->curve.spans[1].dir, -1);
  EXPECT_THAT(back->curve.spans[1].pc, IsAt(forth->curve.spans[0].pc.x, forth->curve.spans[0].pc.y, 1e-12));
  EXPECT_NEAR(back->curve.perim, forth->curve.perim, 1e-12);
}

TEST_F(JoinTest, ClosedPiecesStayAlone) {
  const Contours contours = ContoursOf("0 CIRCLE|10 0|20 0|40 5|0 LINE|10 5|20 0|11 9|21 0");
  ASSERT_EQ(contours.size(), 2U);
  EXPECT_EQ(contours[0].number, 1);
  EXPECT_EQ(contours[1].number, 2);
  EXPECT_TRUE(contours[0].curve.Closed());
}

TEST_F(JoinTest, ManyPiecesJoinInAMoment) {
  std::vector<Piece> pieces;
  for (int i = 0; i < 100000; ++i) pieces.push_back(Line(i, i % 7, i + 1, (i + 1) % 7));
  std::shuffle(pieces.begin(), pieces.end(), std::mt19937(1));
  EXPECT_EQ(Join(std::move(pieces), 0.001).size(), 1U);
}

}  // namespace
}  // namespace vanzet::contour

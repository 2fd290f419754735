#include "contour/piece.h"
#include "contour_fixture.h"

namespace vanzet::contour {
namespace {

using geometry::Matrix;

class MakersTest : public ContourTest {
 protected:
  static Contour Made(Result<Contour> made) {
    if (made) return *made;
    ADD_FAILURE() << made.fault().Message();
    return {};
  }
  static std::string Refused(const Result<Contour>& made) { return made ? "made" : made.fault().Message(); }

  const Contour square = ReadOne(kRoundedSquare);
  const Contour open = ReadOne("k1 e x0 y0\nx10 y0\nx10 y10\nek\n");
};

TEST_F(MakersTest, ChordsStayWithinTheToleranceAndTouchTheArc) {
  for (const double tolerance : {1.0, 0.1, 0.003, 20.0}) {
    const Contour chorded = Made(SplitArcs(square, tolerance));
    double worst = 0;
    for (const geometry::Span& span : chorded.curve.spans) {
      EXPECT_EQ(span.dir, 0);
      worst = std::max(worst, NearestOn(square, span.Mid()).distance);
      EXPECT_NEAR(NearestOn(square, span.p1).distance, 0, 1e-9);
    }
    EXPECT_LE(worst, tolerance + 1e-9);
    EXPECT_TRUE(chorded.curve.Closed());
  }
}

TEST_F(MakersTest, ChordsOfAlmostHalfATurnEndWithTheArc) {
  // 179.9 and 180.1 degrees of a radius of 100 mm.
  for (const double degrees : {179.9, 180.1}) {
    Piece piece{{100, 0}, {}, 0};
    piece.segments.push_back({{100 * std::cos(degrees * kPi / 180), 100 * std::sin(degrees * kPi / 180)},
                              std::tan(degrees * kPi / 720)});
    const Contour chorded = Made(SplitArcs(*ContourOf(1, piece), 1e-6));
    EXPECT_NEAR(chorded.curve.perim, 100 * degrees * kPi / 180, 1e-5);
  }
}

TEST_F(MakersTest, TheAreaOfFineChordsIsThatOfTheContour) {
  const double chorded = FactsOf(Made(SplitArcs(square, 1e-5))).area;
  EXPECT_NEAR(chorded, 40 * 40 - (4 - kPi) * 64, 2 * kPi * 8 * 1e-5);
}

TEST_F(MakersTest, TooManyChordsAreRefused) {
  const Contour large = ReadOne("k4 e x9000000 y0\nax-9000000 y0 x0 y0\nek\n");
  EXPECT_EQ(Refused(SplitArcs(large, 1e-6)), "contour 4 would have more than 1000000 chords");
}

TEST_F(MakersTest, ReducingDropsWhatIsNearlyStraight) {
  const Contour noisy = ReadOne("k1 e x0 y0\nx5 y0.01\nx10 y0\nx10 y10\nek\n");
  EXPECT_EQ(Made(Reduce(noisy, 0.05)).curve.SpanCount(), 2);
  EXPECT_EQ(Made(Reduce(noisy, 0.001)).curve.SpanCount(), 3);
}

TEST_F(MakersTest, EveryDroppedVertexStaysWithinTheTolerance) {
  const Contour fine = Made(SplitArcs(Made(CircleOf({0, 0}, 10)), 1e-4));
  const Contour reduced = Made(Reduce(fine, 0.05));
  EXPECT_LT(reduced.curve.SpanCount() * 5, fine.curve.SpanCount());
  for (const geometry::Span& span : fine.curve.spans) {
    EXPECT_LE(NearestOn(reduced, span.p1).distance, 0.05 + 1e-9);
  }
}

TEST_F(MakersTest, TransformingKeepsTheShape) {
  Matrix matrix;
  matrix.Rotate(0.6, 0.8, 3);
  matrix.Translate(100, -7);
  const Facts before = FactsOf(square), after = FactsOf(Made(Transform(square, matrix)));
  EXPECT_NEAR(after.perimeter, before.perimeter, 1e-9);
  EXPECT_NEAR(after.area, before.area, 1e-9);
  EXPECT_EQ(after.direction, before.direction);
}

TEST_F(MakersTest, MirroringTurnsTheDirectionAndScalingTheTotals) {
  Matrix matrix;
  matrix.Scale(-3, 3, 1);
  const Facts before = FactsOf(square), after = FactsOf(Made(Transform(square, matrix)));
  EXPECT_EQ(after.direction, -before.direction);
  EXPECT_NEAR(after.perimeter, 3 * before.perimeter, 1e-9);
  EXPECT_NEAR(after.area, 9 * before.area, 1e-9);
}

TEST_F(MakersTest, WhatBecomesTooLargeIsRefused) {
  Matrix matrix;
  matrix.Scale(1e6, 1e6, 1);
  EXPECT_EQ(Refused(Transform(square, matrix)), "the coordinate -1.2e+07 mm is not within 1e+07 mm");
}

TEST_F(MakersTest, PartsOfASpanAndOverSpans) {
  const Contour one = Made(PartOf(open, {2, 1}, {7, -1}));
  EXPECT_EQ(one.curve.SpanCount(), 1);
  EXPECT_THAT(one.curve.Start(), IsAt(2, 0, 1e-9));
  EXPECT_THAT(one.curve.End(), IsAt(7, 0, 1e-9));
  const Contour two = Made(PartOf(open, {2, 0}, {11, 4}));
  EXPECT_NEAR(two.curve.perim, 8 + 4, 1e-9);
  EXPECT_EQ(two.curve.SpanCount(), 2);
}

TEST_F(MakersTest, APartOfAClosedContourGoesPastItsStart) {
  const double whole = FactsOf(square).perimeter;
  const double forth = Made(PartOf(square, {20, 3}, {-20, 3})).curve.perim;
  const double back = Made(PartOf(square, {-20, 3}, {20, 3})).curve.perim;
  EXPECT_NEAR(forth + back, whole, 1e-9);
  EXPECT_NEAR(forth, 9 + 4 * kPi + 24 + 4 * kPi + 9, 1e-9);
}

TEST_F(MakersTest, APartThatComesBackToItsSpanGoesAllTheWayRound) {
  const double whole = FactsOf(square).perimeter;
  for (const double gap : {0.5, 6.0}) {
    const Contour part = Made(PartOf(square, {20, gap}, {20, 0}));
    EXPECT_NEAR(part.curve.perim, whole - gap, 1e-9);
    EXPECT_THAT(part.curve.Start(), IsAt(20, gap, 1e-9));
    EXPECT_THAT(part.curve.End(), IsAt(20, 0, 1e-9));
  }
  // The last span is the arc about -12, -12 from 180 to 270 degrees: from 250 all the way round to 200.
  const auto at = [](double degrees) {
    return geometry::Point(-12 + 9 * std::cos(degrees * kPi / 180), -12 + 9 * std::sin(degrees * kPi / 180));
  };
  EXPECT_NEAR(Made(PartOf(square, at(250), at(200))).curve.perim, whole - 8 * 50 * kPi / 180, 1e-9);
  EXPECT_NEAR(Made(PartOf(square, {12, -20}, {0, -20})).curve.perim, whole - 12, 1e-9);
}

TEST_F(MakersTest, PartsOfAnArcStayOnIt) {
  const Contour circle = Made(CircleOf({0, 0}, 10));
  const Contour quarter = Made(PartOf(circle, {10, 10}, {-10, 10}));
  EXPECT_NEAR(quarter.curve.perim, 5 * kPi, 1e-9);
  EXPECT_THAT(NearestOn(quarter, {0, 11}).point, IsAt(0, 10, 1e-9));
  EXPECT_NEAR(Made(PartOf(circle, {-10, 10}, {10, 10})).curve.perim, 15 * kPi, 1e-9);
}

TEST_F(MakersTest, InvalidPartsAreRefused) {
  EXPECT_EQ(Refused(PartOf(open, {5, 0}, {5, -3})), "the two points are the same point of the contour");
  EXPECT_EQ(Refused(PartOf(open, {7, 0}, {2, 0})),
            "the second point comes before the first, and the contour is open");
  EXPECT_EQ(Refused(PartOf(open, {10, 7}, {2, 0})),
            "the second point comes before the first, and the contour is open");
}

TEST_F(MakersTest, ACircleIsTwoHalfTurns) {
  const Facts facts = FactsOf(Made(CircleOf({3, -4}, 12.5)));
  EXPECT_EQ(facts.arcs, 2);
  EXPECT_EQ(facts.direction, 1);
  EXPECT_NEAR(facts.perimeter, 25 * kPi, 1e-9);
  EXPECT_NEAR(facts.area, 156.25 * kPi, 1e-9);
  EXPECT_EQ(Refused(CircleOf({0, 0}, 0.004)), "the radius has to be more than 0.005 mm");
  EXPECT_EQ(Refused(CircleOf({0, 0}, -5)), "the radius has to be more than 0.005 mm");
  EXPECT_EQ(Refused(CircleOf({9e6, 0}, 2e6)), "the coordinate 1.1e+07 mm is not within 1e+07 mm");
}

}  // namespace
}  // namespace vanzet::contour

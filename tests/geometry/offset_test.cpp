#include "geometry/offset.h"

#include <gtest/gtest.h>

#include <cmath>

#include "geometry/contour_text.h"
#include "geometry/offset/offset_sense.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::ContourOf;
using testing::kExactTolerance;
using testing::kPi;
using testing::ThrownText;
using testing::UnitsGuard;

constexpr std::uint32_t kChecked = 1;
const std::wstring kSelf = L"Illegal Call - 'this' must not be kOffset";
const std::wstring kRadii = L"Invalid Geometry - Radii mismatch - SetProperties";

/// Anticlockwise.
const char* const kSquare = "x0 y0; x10 y0; x10 y10; x0 y10; x0 y0";

std::vector<std::uint32_t> IDsOf(const KurveEx& k) {
  std::vector<std::uint32_t> IDs;
  for (const Span& span : k.spans) IDs.push_back(span.ID);
  return IDs;
}

std::vector<int> KindsOf(const KurveEx& k) {
  std::vector<int> kinds;
  for (const Span& span : k.spans) kinds.push_back(span.dir);
  return kinds;
}

using IDs = std::vector<std::uint32_t>;
using Kinds = std::vector<int>;

class OffsetTest : public ::testing::Test {
 protected:
  UnitsGuard millimetres_{0};
  KurveEx out_;
};

TEST_F(OffsetTest, OfASpanMovesItsEndsAlongTheirNormals) {
  const Span line(Point(0, 0), Point(10, 0));
  const Span moved = line.Offset(2);
  EXPECT_EQ(moved.p0, Point(0, 2));
  EXPECT_EQ(moved.p1, Point(10, 2));
  const Span arc(ACW, Point(10, 0), Point(0, 10), Point(0, 0));
  EXPECT_NEAR(arc.Offset(2).radius, 8, 1e-12);
  EXPECT_NEAR(arc.Offset(-2).radius, 12, 1e-12);
  EXPECT_EQ(arc.Offset(2).pc, Point(0, 0));
}

TEST_F(OffsetTest, OfASpanByLessThanTheTightToleranceIsACopy) {
  const Span line(Point(0, 0), Point(10, 0));
  EXPECT_EQ(line.Offset(TIGHT_TOLERANCE).p0.y, 0);
  EXPECT_EQ(line.Offset(2 * TIGHT_TOLERANCE).p0.y, 2 * TIGHT_TOLERANCE);
  const Span null(Point(3, 3), Point(3, 3));
  EXPECT_EQ(null.Offset(5).p0, Point(3, 3));
}

TEST_F(OffsetTest, OfAnArcBeyondItsCentreIsANullSpan) {
  const Span arc(ACW, Point(10, 0), Point(0, 10), Point(0, 0));
  for (const double off : {10.0, 12.0}) {
    const Span gone = arc.Offset(off);
    EXPECT_TRUE(gone.NullSpan);
    EXPECT_EQ(gone.dir, LINEAR);
    EXPECT_EQ(gone.pc, gone.p0);
    EXPECT_EQ(gone.p0, Point(10 - off, 0));
  }
}

TEST_F(OffsetTest, RefusesItselfAsTarget) {
  KurveEx k = ContourOf(kSquare);
  EXPECT_EQ(ThrownText([&] { k.Offset(k, 1, 1, kChecked, 0); }), kSelf);
  EXPECT_EQ(k.SpanCount(), 4);
}

TEST_F(OffsetTest, BelowTheToleranceIsACopy) {
  KurveEx k = ContourOf(kSquare);
  k.Reverse(true);
  for (const double offset : {0.0, 0.00499, -0.00499}) {
    EXPECT_EQ(k.Offset(out_, offset, 1, kChecked, 0), 0);
    EXPECT_TRUE(out_ == k);
    EXPECT_TRUE(out_.reversed);
    EXPECT_EQ(out_.spans[2].ID, UNMARKED);
  }
  EXPECT_EQ(k.Offset(out_, TOLERANCE, 1, 0, 0), 0);
  EXPECT_FALSE(out_.spans[2].ID == UNMARKED);
}

TEST_F(OffsetTest, OfNothingIsNothing) {
  KurveEx started;
  started.Start(Point(3, 4));
  EXPECT_EQ(KurveEx().Offset(out_, 5, 1, kChecked, 0), 0);
  EXPECT_EQ(out_.SpanCount(), 0);
  EXPECT_FALSE(out_.start.ok);
  EXPECT_EQ(started.Offset(out_, 5, 1, kChecked, 0), 0);
  EXPECT_EQ(out_.Start(), Point(3, 4));
}

TEST_F(OffsetTest, OfASquareInwardHasCrossingsAndNoArcs) {
  EXPECT_EQ(ContourOf(kSquare).Offset(out_, 2, 1, kChecked, 0), 0);
  EXPECT_TRUE(out_ == ContourOf("x2 y2; x8 y2; x8 y8; x2 y8; x2 y2"));
  EXPECT_EQ(IDsOf(out_), (IDs{1, 2, 3, 4}));
  EXPECT_NEAR(out_.area, -36, 1e-9);
  EXPECT_NEAR(out_.perim, 24, 1e-9);
}

TEST_F(OffsetTest, OfASquareOutwardHasFourRollArcs) {
  EXPECT_EQ(ContourOf(kSquare).Offset(out_, -2, 1, kChecked, 0), 0);
  EXPECT_EQ(KindsOf(out_), (Kinds{0, 1, 0, 1, 0, 1, 0, 1}));
  EXPECT_EQ(IDsOf(out_),
            (IDs{1, 2 | ROLL_AROUND, 2, 3 | ROLL_AROUND, 3, 4 | ROLL_AROUND, 4, 1 | ROLL_AROUND}));
  EXPECT_NEAR(out_.area, -(100 + 4 * 20 + kPi * 4), 1e-9);
  EXPECT_TRUE(out_.Closed());
}

TEST_F(OffsetTest, GoesLeftForDirectionOneAndRightForTheOther) {
  const KurveEx k = ContourOf(kSquare);
  KurveEx same;
  EXPECT_EQ(k.Offset(out_, 2, 1, kChecked, 0), 0);
  EXPECT_EQ(k.Offset(same, -2, -1, kChecked, 0), 0);
  EXPECT_TRUE(out_ == same);
  EXPECT_EQ(k.Offset(out_, -2, 1, kChecked, 0), 0);
  EXPECT_EQ(k.Offset(same, 2, -1, kChecked, 0), 0);
  EXPECT_TRUE(out_ == same);
  EXPECT_EQ(IDsOf(out_), IDsOf(same));
}

TEST_F(OffsetTest, RollsTheWayItGoesRound) {
  const OffsetSense cases[] = {{-1, 1, false}, {-1, -1, false}, {1, 1, false}, {0, 1, false}, {1, -1, false}};
  const int rolls[] = {1, -1, -1, -1, 1};
  const double offs[] = {-1, 1, 1, 0, -1};
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(cases[i].rollDir, rolls[i]);
    EXPECT_EQ(cases[i].off, offs[i]);
  }
  const OffsetSense reversed(-1, 1, true);
  EXPECT_EQ(reversed.rollDir, -1);
  EXPECT_EQ(reversed.off, 1);
  EXPECT_EQ(OffsetSense(1, 1, true).rollDir, 1);
}

TEST_F(OffsetTest, WithoutFlagsStopsAtTheRawJoin) {
  EXPECT_EQ(ContourOf(kSquare).Offset(out_, 8, 1, 0, 0), 0);
  EXPECT_GT(out_.area, 0);  // inside out, and not looked at
  EXPECT_EQ(ContourOf(kSquare).Offset(out_, 8, 1, kChecked, 0), 3);
}

TEST_F(OffsetTest, TurnedInsideOutIsThree) {
  EXPECT_EQ(ContourOf("x0 y0; x10 y0; x10 y4; x0 y4; x0 y0").Offset(out_, 3, 1, kChecked, 0, true), 3);
  EXPECT_GT(out_.spans.size(), 0u);
}

TEST_F(OffsetTest, OfACircleBeyondItsCentreIsThree) {
  const KurveEx circle(Point(1, 2), 10, ACW);
  EXPECT_EQ(circle.Offset(out_, 12, 1, kChecked, 0), 3);
  EXPECT_EQ(IDsOf(out_), (IDs{2 | ROLL_AROUND, 1 | ROLL_AROUND}));
  EXPECT_GT(out_.area, 0);
  EXPECT_EQ(circle.Offset(12, 1), nullptr);
}

TEST_F(OffsetTest, OfACircleKeepsItsHalves) {
  EXPECT_EQ(KurveEx(Point(1, 2), 10, ACW).Offset(out_, 2, 1, kChecked, 0), 0);
  EXPECT_NEAR(out_.area, -kPi * 64, 1e-9);
  EXPECT_EQ(IDsOf(out_), (IDs{1, 2}));
  EXPECT_EQ(KurveEx(Point(1, 2), 10, CW).Offset(out_, 2, 1, kChecked, 0), 0);
  EXPECT_NEAR(out_.area, kPi * 144, 1e-9);
}

TEST_F(OffsetTest, SignsOfAreasDecideTheCode) {
  EXPECT_EQ(CodeOfAreas(-100, -36, 2), 0);
  EXPECT_EQ(CodeOfAreas(-100, 36, 2), 3);
  EXPECT_EQ(CodeOfAreas(-100, 0, 2), 3);
  EXPECT_EQ(CodeOfAreas(0, 0, 2), 0);
  // Outward of a clockwise contour is left, of an anticlockwise one right; there it may not shrink.
  EXPECT_EQ(CodeOfAreas(100, 99, 2), 2);
  EXPECT_EQ(CodeOfAreas(-100, -99, -2), 2);
  EXPECT_EQ(CodeOfAreas(100, 100, 2), 0);
  EXPECT_EQ(CodeOfAreas(100, 99, -2), 0);
}

TEST_F(OffsetTest, KeepsLoopsWhenAsked) {
  // A slot of width 4 in the side of a block; at distance 3 its offset is a loop.
  const KurveEx k = ContourOf("x0 y0; x40 y0; x40 y18; x30 y18; x30 y22; x40 y22; x40 y40; x0 y40; x0 y0");
  EXPECT_EQ(k.Offset(out_, -3, 1, kChecked, 0, true), 0);
  const int withLoop = out_.SpanCount();
  EXPECT_EQ(k.Offset(out_, -3, 1, kChecked, 0, false), 0);
  EXPECT_LT(out_.SpanCount(), withLoop);
  EXPECT_NEAR(out_.Box().max.x, 43, 1e-5);
}

TEST_F(OffsetTest, OfAnOpenContourGoesAlongIt) {
  EXPECT_EQ(ContourOf("x0 y0; x10 y0; x10 y10").Offset(out_, 2, 1, kChecked, 0), 0);
  EXPECT_TRUE(out_ == ContourOf("x0 y2; x8 y2; x8 y10"));
  EXPECT_EQ(ContourOf("x0 y0; x10 y0; x10 y10").Offset(out_, -2, 1, kChecked, 0), 0);
  EXPECT_TRUE(out_ == ContourOf("x0 y-2; x10 y-2; ax12 y0 x10 y0; x12 y10"));
  EXPECT_EQ(IDsOf(out_), (IDs{1, 2 | ROLL_AROUND, 2}));
}

TEST_F(OffsetTest, KeepsANullSpanAtItsStart) {
  EXPECT_EQ(ContourOf("x0 y0; x0 y0; x10 y0; x10 y10").Offset(out_, 2, 1, kChecked, 0), 0);
  EXPECT_EQ(IDsOf(out_), (IDs{1, 2, 3}));
  EXPECT_TRUE(out_.spans[0].NullSpan);
  EXPECT_EQ(out_.spans[0].p0, Point(0, 2));
}

TEST_F(OffsetTest, KeepsANullSpanAtItsEnd) {
  EXPECT_EQ(ContourOf("x0 y0; x10 y0; x10 y10; x10 y10").Offset(out_, 2, 1, kChecked, 0), 0);
  EXPECT_EQ(IDsOf(out_), (IDs{1, 2, 3}));
  EXPECT_TRUE(out_.spans[2].NullSpan);
  EXPECT_EQ(out_.spans[2].p1, Point(8, 10));
}

TEST_F(OffsetTest, ANullSpanAtTheEndAfterAnArcIsALine) {
  EXPECT_EQ(ContourOf("x0 y0; ax10 y10 x0 y10; x10 y10").Offset(out_, 2, 1, kChecked, 0), 0);
  EXPECT_EQ(KindsOf(out_), (Kinds{1, 0}));
  EXPECT_EQ(out_.spans[1].p1, Point(8, 10));
}

TEST_F(OffsetTest, ANullSpanAtACornerLendsItsNumberToTheRollArc) {
  EXPECT_EQ(ContourOf("x0 y0; x10 y0; x10 y0; x10 y10").Offset(out_, -2, 1, kChecked, 0), 0);
  EXPECT_EQ(IDsOf(out_), (IDs{1, 2, 3}));
  EXPECT_EQ(KindsOf(out_), (Kinds{0, 1, 0}));
}

TEST_F(OffsetTest, ANullSpanOnALineLeavesNothing) {
  EXPECT_EQ(ContourOf("x0 y0; x10 y0; x10 y0; x20 y0").Offset(out_, 2, 1, kChecked, 0), 0);
  EXPECT_EQ(IDsOf(out_), (IDs{1, 3}));
}

TEST_F(OffsetTest, NullSpansAloneLeaveNothing) {
  EXPECT_EQ(ContourOf("x3 y3; x3 y3; x3 y3").Offset(out_, 2, 1, kChecked, 0), 2);
  EXPECT_EQ(out_.SpanCount(), 0);
}

TEST_F(OffsetTest, ANullSpanAtTheSeamRollsToTheRight) {
  // Clockwise, offset to the left: outward.
  const char* const square = "x0 y0; x0 y0; x0 y10; x10 y10; x10 y0; x0 y0";
  EXPECT_EQ(ContourOf(square).Offset(out_, 2, 1, kChecked, 0), 0);
  EXPECT_EQ(IDsOf(out_), (IDs{1, 2, 3 | ROLL_AROUND, 3, 4 | ROLL_AROUND, 4, 5 | ROLL_AROUND, 5, 6}));
  EXPECT_TRUE(out_.spans.back().NullSpan);  // of the null span, met again in closing
  EXPECT_EQ(out_.Start(), Point(0, -2));
  EXPECT_TRUE(out_.Closed());
  EXPECT_NEAR(out_.area, 100 + 80 + kPi * 4, 1e-9);
}

TEST_F(OffsetTest, ANullSpanAtTheSeamOfALeftTurnLeavesItOpen) {
  EXPECT_EQ(ContourOf("x0 y0; x0 y0; x10 y0; x10 y10; x0 y10; x0 y0").Offset(out_, 2, 1, kChecked, 0), 2);
  EXPECT_FALSE(out_.Closed());
}

TEST_F(OffsetTest, ANullSpanAtTheSeamOfThreeSpansGetsNoRollArc) {
  EXPECT_EQ(ContourOf("x0 y0; x0 y0; x0 y10; x0 y0").Offset(out_, 2, 1, 0, 0), 0);
  EXPECT_EQ(out_.Start(), Point(-2, 0));
  EXPECT_EQ(ContourOf("x0 y0; x0 y0; x0 y10; x5 y10; x0 y0").Offset(out_, 2, 1, 0, 0), 0);
  EXPECT_EQ(IDsOf(out_)[0], 1u);
  EXPECT_EQ(KindsOf(out_)[0], CW);
}

TEST_F(OffsetTest, ATurnBelowTheLimitIsNoneAtTheSeam) {
  for (const double fall : {0.9e-4, 1.1e-4}) {
    KurveEx k = ContourOf("x0 y0; x0 y0");
    k.Add(1000, -1000 * fall);
    k.Add(1000, -500);
    k.Add(-1000, -500);
    k.Add(-1000, 0);
    k.Add(0, 0);
    EXPECT_EQ(k.Offset(out_, 200, 1, 0, 0), 0);
    EXPECT_EQ(out_.spans[0].NullSpan, fall < 1e-4);
  }
}

TEST_F(OffsetTest, AGapOfAFewTolerancesGetsNoArc) {
  TOLERANCE = kExactTolerance;
  for (const double gaps : {0.5, 1.5, 4.9, 5.1}) {
    const double turn = gaps * TOLERANCE / 10;
    KurveEx k = ContourOf("x-100 y0; x0 y0");
    k.Add(100 * std::cos(turn), 100 * std::sin(turn));
    EXPECT_EQ(k.Offset(out_, -10, 1, kChecked, 0), 0);
    EXPECT_EQ(out_.SpanCount(), gaps > 5 ? 3 : 2) << gaps;
  }
}

TEST_F(OffsetTest, ArcsThatVanishOneAfterTheOtherGetARollArc) {
  // Both arcs are smaller than the offset.
  EXPECT_EQ(ContourOf("x-20 y0; x0 y0; ax2 y2 x0 y2; ax0 y4 x0 y2; x-20 y4").Offset(out_, 3, 1, 0, 0), 0);
  EXPECT_EQ(IDsOf(out_), (IDs{1, 3 | ROLL_AROUND, 4 | ROLL_AROUND, 4}));
}

TEST_F(OffsetTest, AnArcThatVanishesAloneLetsItsNeighboursCross) {
  EXPECT_EQ(ContourOf("x-20 y0; x0 y0; ax2 y2 x0 y2; x2 y20").Offset(out_, 3, 1, kChecked, 0), 0);
  EXPECT_TRUE(out_ == ContourOf("x-20 y3; x-1 y3; x-1 y20"));
  EXPECT_EQ(IDsOf(out_), (IDs{1, 3}));
}

TEST_F(OffsetTest, AnInwardCornerWithoutOneCrossingGetsARollArc) {
  // The second span is too short to be met.
  EXPECT_EQ(ContourOf("x0 y0; x10 y0; x10 y1; x20 y1").Offset(out_, 3, 1, 0, 0), 0);
  EXPECT_EQ(IDsOf(out_), (IDs{1, 2 | ROLL_AROUND, 2, 3 | ROLL_AROUND, 3}));
  EXPECT_EQ(KindsOf(out_), (Kinds{0, CW, 0, CW, 0}));
}

TEST_F(OffsetTest, ATurnBackGetsAHalfCircle) {
  EXPECT_EQ(ContourOf("x0 y0; x10 y0; x0 y0").Offset(out_, -2, 1, 0, 0), 0);
  EXPECT_EQ(KindsOf(out_), (Kinds{0, 1, 0, 1}));
  EXPECT_NEAR(out_.area, -(40 + kPi * 4), 1e-9);
}

TEST_F(OffsetTest, OfAReversedContourIsReversed) {
  KurveEx k = ContourOf(kSquare);
  k.Reverse(true);
  EXPECT_EQ(k.Offset(out_, 2, 1, kChecked, 0), 0);
  EXPECT_TRUE(k.reversed);
  EXPECT_TRUE(out_.reversed);
  EXPECT_NEAR(k.area, 100, 1e-9);
  EXPECT_NEAR(out_.area, 100 + 80 + kPi * 4, 1e-9);
  EXPECT_EQ(KindsOf(out_), (Kinds{0, 1, 0, 1, 0, 1, 0, 1}));
}

TEST_F(OffsetTest, OfAReversedContourInwardHasALoopAtItsSeam) {
  KurveEx k = ContourOf(kSquare);
  k.Reverse(true);
  EXPECT_EQ(k.Offset(out_, -2, 1, kChecked, 0), 0);
  EXPECT_EQ(KindsOf(out_), (Kinds{0, 0, 0, 0, CW}));
  EXPECT_EQ(out_.spans[1].p0, Point(8, 2));
  EXPECT_EQ(out_.spans.front().p0, Point(0, 2));
  EXPECT_EQ(out_.spans.back().p0, Point(2, 0));
}

TEST_F(OffsetTest, CarriesTheWordsOfItsSpans) {
  KurveEx k = ContourOf(kSquare);
  for (int v = 1; v <= 4; ++v) {
    k.AddIndex0(v, static_cast<IndexWord>(v));
    k.AddIndex1(v, static_cast<IndexWord>(10 * v));
  }
  EXPECT_EQ(k.Offset(out_, 2, 1, kChecked, 0), 0);
  EXPECT_EQ(out_.GetIndex0(3), 3u);
  EXPECT_EQ(out_.GetIndex1(4), 40u);
}

TEST_F(OffsetTest, RollArcsThatAreTangentStayWhateverIsAsked) {
  EXPECT_EQ(ContourOf(kSquare).Offset(out_, -2, 1, 0x10000001, 90), 0);
  EXPECT_EQ(out_.SpanCount(), 8);
}

TEST_F(OffsetTest, AnArcThatVanishesAtTheEndLetsItsNeighboursCross) {
  const char* const rounded = "x1 y0; x20 y0; x20 y20; x0 y20; x0 y1; ax1 y0 x1 y1";
  EXPECT_EQ(ContourOf(rounded).Offset(out_, 3, 1, kChecked, 0), 0);
  EXPECT_TRUE(out_.Closed());
  EXPECT_NEAR(out_.area, -14 * 14, 1e-9);
}

TEST_F(OffsetTest, EndsLeftOpenAreTrimmedToTheirCrossing) {
  // The arc that begins the contour is gone at distance 3, so nothing is there to close it.
  const char* const rounded = "x0 y1; ax1 y0 x1 y1; x20 y0; x20 y20; x0 y20; x0 y1";
  EXPECT_EQ(ContourOf(rounded).Offset(out_, 3, 1, 0, 0), 0);
  EXPECT_FALSE(out_.Closed());
  EXPECT_EQ(ContourOf(rounded).Offset(out_, 3, 1, kChecked, 0), 0);
  EXPECT_TRUE(out_.Closed());
  EXPECT_EQ(out_.Start(), Point(3, 3));
  EXPECT_NEAR(out_.area, -14 * 14, 1e-9);
  EXPECT_NEAR(out_.perim, 4 * 14, 1e-9);
}

TEST_F(OffsetTest, NewContoursComeWithCodeZeroAlone) {
  const KurveEx k = ContourOf(kSquare);
  const std::unique_ptr<KurveEx> inner = k.Offset(2, 1);
  ASSERT_NE(inner, nullptr);
  EXPECT_NEAR(inner->area, -36, 1e-9);
  EXPECT_EQ(k.Offset(2, 1, kChecked, 0)->SpanCount(), 4);
  EXPECT_EQ(k.Offset(6, 1), nullptr);
  EXPECT_NE(k.Offset(6, 1, 0, 0), nullptr);
}

TEST_F(OffsetTest, AThrowLeavesTheTargetAsItWas) {
  // The null span at the seam takes the crossing after an arc, and is none of its points.
  out_ = ContourOf(kSquare);
  const KurveEx bad = ContourOf("x0 y0; x0 y0; x30 y-5; x30 y30; x0 y30; tx0 y0 x-40 y15");
  EXPECT_EQ(ThrownText([&] { bad.Offset(out_, 3, 1, kChecked, 0); }), kRadii);
  EXPECT_TRUE(out_ == ContourOf(kSquare));
}

}  // namespace
}  // namespace geometry

#include <gtest/gtest.h>

#include <cmath>

#include "geometry/contour_text.h"
#include "geometry/offset.h"
#include "geometry/state.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::CompactOf;
using testing::kExactTolerance;
using testing::kPi;
using testing::ThrownText;
using testing::UnitsGuard;

const char* const kSquare = "x0 y0; x10 y0; x10 y10; x0 y10; x0 y0";
const char* const kInner = "x2 y2; x8 y2; x8 y8; x2 y8; x2 y2";

std::vector<std::uint32_t> IDsOf(const Kurve& k) {
  std::vector<std::uint32_t> IDs;
  for (int v = 0; v < k.nVertices; ++v) IDs.push_back(k.GetSpanID(v));
  return IDs;
}

std::vector<int> KindsOf(const Kurve& k) {
  std::vector<int> kinds;
  Point p;
  for (int v = 1; v < k.nVertices; ++v) kinds.push_back(k.Get(v, p, p));
  return kinds;
}

using IDs = std::vector<std::uint32_t>;
using Kinds = std::vector<int>;

class KurveOffsetTest : public ::testing::Test {
 protected:
  UnitsGuard millimetres_{0};
  Kurve out_;
};

TEST_F(KurveOffsetTest, AppendsANewContourWhateverTheCode) {
  const Kurve k = CompactOf(kSquare);
  std::vector<Kurve*> list;
  EXPECT_EQ(k.Offset(list, 2, 1, 1), 0);
  EXPECT_EQ(k.Offset(list, 6, 1, 1), 3);
  ASSERT_EQ(list.size(), 2u);
  const std::unique_ptr<Kurve> first(list[0]);
  const std::unique_ptr<Kurve> second(list[1]);
  EXPECT_TRUE(*first == CompactOf(kInner));
  EXPECT_GT(second->nVertices, 0);
}

TEST_F(KurveOffsetTest, HasMethodsZeroAndOneOnly) {
  std::vector<Kurve*> list;
  for (const int method : {-1, 2, 99}) {
    EXPECT_EQ(ThrownText([&] { CompactOf(kSquare).Offset(list, 1, 1, method); }),
              L"Requested Offsetting Method not available");
  }
  EXPECT_TRUE(list.empty());
}

TEST_F(KurveOffsetTest, RefusesItselfAsTarget) {
  Kurve k = CompactOf(kSquare);
  EXPECT_EQ(ThrownText([&] { k.OffsetMethod1(k, 1, 1, 1); }), L"Illegal Call - 'this' must not be kOffset");
  EXPECT_TRUE(k == CompactOf(kSquare));
}

TEST_F(KurveOffsetTest, BelowTheToleranceIsACopy) {
  Kurve k = CompactOf(kSquare);
  k.Reverse(true);
  for (const double offset : {0.0, 0.00499, -0.00499}) {
    EXPECT_EQ(k.OffsetMethod1(out_, offset, 1, 1), 0);
    EXPECT_TRUE(out_ == k);
    EXPECT_TRUE(out_.reversed);
  }
}

TEST_F(KurveOffsetTest, OfFewerThanTwoVerticesIsACopy) {
  EXPECT_EQ(CompactOf("x3 y4").OffsetMethod1(out_, 5, 1, 1), 0);
  EXPECT_TRUE(out_ == CompactOf("x3 y4"));
  EXPECT_EQ(Kurve().OffsetMethod1(out_, 5, 1, 1), 0);
  EXPECT_EQ(out_.nVertices, 0);
}

TEST_F(KurveOffsetTest, OfASquareInwardHasCrossingsAndNoArcs) {
  EXPECT_EQ(CompactOf(kSquare).OffsetMethod1(out_, 2, 1, 1), 0);
  EXPECT_TRUE(out_ == CompactOf(kInner));
  EXPECT_EQ(IDsOf(out_), (IDs{0, 1, 2, 3, 4}));
}

TEST_F(KurveOffsetTest, OfASquareOutwardHasFourRollArcs) {
  EXPECT_EQ(CompactOf(kSquare).OffsetMethod1(out_, -2, 1, 1), 0);
  EXPECT_EQ(KindsOf(out_), (Kinds{0, 1, 0, 1, 0, 1, 0, 1}));
  EXPECT_EQ(IDsOf(out_), (IDs{0, 1, ROLL_AROUND, 2, ROLL_AROUND, 3, ROLL_AROUND, 4, ROLL_AROUND}));
  EXPECT_NEAR(out_.Area(), -(100 + 80 + kPi * 4), 1e-9);
}

TEST_F(KurveOffsetTest, RollArcsHaveTheirVerticesAsCentres) {
  CompactOf(kSquare).OffsetMethod1(out_, -2, 1, 0);
  Point p;
  Point centre;
  out_.Get(2, p, centre);
  EXPECT_EQ(centre.x, 10);
  EXPECT_EQ(centre.y, 0);
}

TEST_F(KurveOffsetTest, GoesLeftForDirectionOneAndRightForTheOther) {
  Kurve same;
  for (const double offset : {2.0, -2.0}) {
    EXPECT_EQ(CompactOf(kSquare).OffsetMethod1(out_, offset, 1, 1), 0);
    EXPECT_EQ(CompactOf(kSquare).OffsetMethod1(same, -offset, -1, 1), 0);
    EXPECT_TRUE(out_ == same);
  }
}

TEST_F(KurveOffsetTest, MethodZeroStopsAtTheRawJoin) {
  EXPECT_EQ(CompactOf(kSquare).OffsetMethod1(out_, 8, 1, 0), 0);
  EXPECT_EQ(CompactOf(kSquare).OffsetMethod1(out_, 8, 1, 1), 3);
}

TEST_F(KurveOffsetTest, AnyGapGetsARollArc) {
  TOLERANCE = kExactTolerance;
  for (const double gaps : {0.5, 1.5, 4.9, 5.1}) {
    const double turn = gaps * TOLERANCE / 10;
    Kurve k = CompactOf("x-100 y0; x0 y0");
    k.Add(Point(100 * std::cos(turn), 100 * std::sin(turn)));
    EXPECT_EQ(k.OffsetMethod1(out_, -10, 1, 0), 0);
    EXPECT_EQ(out_.SpanCount(), gaps > 1 ? 3 : 2) << gaps;
  }
}

TEST_F(KurveOffsetTest, OfACircleBeyondItsCentreIsTwo) {
  EXPECT_EQ(Kurve(Point(0, 0), 10, ACW).OffsetMethod1(out_, 12, 1, 1), 2);
  EXPECT_EQ(out_.nVertices, 0);
  EXPECT_EQ(Kurve(Point(0, 0), 10, ACW).OffsetMethod1(out_, 2, 1, 1), 0);
  EXPECT_NEAR(out_.Area(), -kPi * 64, 1e-9);
}

TEST_F(KurveOffsetTest, PassesOverSpansThatVanish) {
  EXPECT_EQ(CompactOf("x-20 y0; x0 y0; ax2 y2 x0 y2; x2 y20").OffsetMethod1(out_, 3, 1, 1), 0);
  EXPECT_TRUE(out_ == CompactOf("x-20 y3; x-1 y3; x-1 y20"));
  // No crossing: the roll arc over the gap is as far from both its ends.
  EXPECT_EQ(CompactOf("x-0.5 y0; x0 y0; ax2 y2 x0 y2; x2 y2.5").OffsetMethod1(out_, 3, 1, 0), 0);
  EXPECT_EQ(KindsOf(out_), (Kinds{0, CW, 0}));
  Span arc;
  EXPECT_EQ(out_.Get(2, arc, true), CW);
  EXPECT_NEAR(Dist(arc.p0, arc.pc), Dist(arc.p1, arc.pc), 1e-12);
}

TEST_F(KurveOffsetTest, PassesOverNullSpans) {
  EXPECT_EQ(CompactOf("x0 y0; x0 y0; x10 y0; x10 y0; x10 y10; x10 y10").OffsetMethod1(out_, 2, 1, 1), 0);
  EXPECT_TRUE(out_ == CompactOf("x0 y2; x8 y2; x8 y10"));
  EXPECT_EQ(CompactOf("x0 y0; x10 y0; x10 y0; x10 y10").OffsetMethod1(out_, -2, 1, 1), 0);
  EXPECT_EQ(KindsOf(out_), (Kinds{0, ACW, 0}));
}

TEST_F(KurveOffsetTest, ANullSpanAtTheSeamLeavesItOpen) {
  EXPECT_EQ(CompactOf("x0 y0; x0 y0; x10 y0; x10 y10; x0 y10; x0 y0").OffsetMethod1(out_, 2, 1, 1), 2);
  EXPECT_FALSE(out_.Closed());
}

TEST_F(KurveOffsetTest, ASpanThatACrossingUsesUpIsPassedOver) {
  // The corner at (10, 0) cuts the second span down to nothing.
  EXPECT_EQ(CompactOf("x0 y0; x10 y0; x10 y2; x0 y2").OffsetMethod1(out_, 2, 1, 0), 0);
  Span span;
  for (int i = 1; i <= out_.SpanCount(); ++i) {
    out_.Get(i, span, true);
    EXPECT_FALSE(span.NullSpan);
  }
}

TEST_F(KurveOffsetTest, KeepsItsMatrixAndOffsetsByTheDistanceOutside) {
  Kurve k = CompactOf(kSquare);
  k.Scale(2);
  k.Translate(100, 0);
  EXPECT_EQ(k.OffsetMethod1(out_, 4, 1, 1), 0);
  EXPECT_TRUE(static_cast<const Matrix&>(out_) == static_cast<const Matrix&>(k));
  EXPECT_TRUE(out_ == CompactOf(kInner));
  EXPECT_NEAR(out_.Area(), -144, 1e-9);
}

TEST_F(KurveOffsetTest, RefusesADifferentialScale) {
  Kurve k = CompactOf(kSquare);
  k.Scale(2, 3, 1);
  out_ = CompactOf(kInner);
  EXPECT_EQ(k.OffsetMethod1(out_, 4, 1, 1), 1);
  EXPECT_TRUE(out_ == CompactOf(kInner));
  EXPECT_EQ(k.OffsetMethod1(out_, 0, 1, 1), 1);
  std::vector<Kurve*> list;
  EXPECT_EQ(k.Offset(list, 4, 1, 1), 1);
  ASSERT_EQ(list.size(), 1u);
  const std::unique_ptr<Kurve> refused(list[0]);
  EXPECT_EQ(refused->nVertices, 0);
}

TEST_F(KurveOffsetTest, LeftUnderAMirrorIsRightInStorage) {
  Kurve k = CompactOf(kSquare);
  k.Mirror(PLANE_YZ);
  ASSERT_TRUE(k.mirrored);
  EXPECT_EQ(k.OffsetMethod1(out_, 2, 1, 1), 0);
  EXPECT_EQ(KindsOf(out_), (Kinds{0, 1, 0, 1, 0, 1, 0, 1}));
  EXPECT_NEAR(out_.Area(), -(100 + 80 + kPi * 4), 1e-9);
  EXPECT_EQ(k.OffsetMethod1(out_, -2, 1, 1), 0);
  EXPECT_TRUE(out_ == CompactOf(kInner));
}

TEST_F(KurveOffsetTest, OfAReversedContourIsReversed) {
  Kurve k = CompactOf(kSquare);
  k.Reverse(true);
  EXPECT_EQ(k.OffsetMethod1(out_, 2, 1, 1), 0);
  EXPECT_TRUE(k.reversed);
  EXPECT_TRUE(out_.reversed);
  EXPECT_NEAR(out_.Area(), -(100 + 80 + kPi * 4), 1e-9);
}

TEST_F(KurveOffsetTest, OfAReversedContourInwardHasALoopAtItsSeam) {
  Kurve k = CompactOf(kSquare);
  k.Reverse(true);
  EXPECT_EQ(k.OffsetMethod1(out_, -2, 1, 1), 0);
  out_.Reverse(false);
  EXPECT_EQ(KindsOf(out_), (Kinds{0, 0, 0, 0, CW}));
}

TEST_F(KurveOffsetTest, LoopsOfASlotAreCutOut) {
  const Kurve k = CompactOf("x0 y0; x40 y0; x40 y18; x30 y18; x30 y22; x40 y22; x40 y40; x0 y40; x0 y0");
  EXPECT_EQ(k.OffsetMethod1(out_, -3, 1, 1), 0);
  EXPECT_EQ(KindsOf(out_), (Kinds{0, 1, 0, 1, 1, 0, 1, 0, 1, 0, 1}));
  Point min;
  Point max;
  out_.Minmax(min, max);
  EXPECT_NEAR(max.x, 43, 1e-4);
}

class PairOffsetTest : public KurveOffsetTest {};

TEST_F(PairOffsetTest, BelowTheTightToleranceIsACopy) {
  EXPECT_EQ(CompactOf(kSquare).OffsetMethod2(out_, TIGHT_TOLERANCE, 1, false), 1);
  EXPECT_TRUE(out_ == CompactOf(kSquare));
  EXPECT_EQ(CompactOf("x3 y3").OffsetMethod2(out_, 5, 1, false), 1);
  EXPECT_TRUE(out_ == CompactOf("x3 y3"));
}

TEST_F(PairOffsetTest, ExtendsNeighboursToTheirCrossing) {
  EXPECT_EQ(CompactOf(kSquare).OffsetMethod2(out_, 2, 1, false), 1);
  EXPECT_TRUE(out_ == CompactOf(kInner));
  EXPECT_EQ(CompactOf(kSquare).OffsetMethod2(out_, 2, -1, true), 1);
  EXPECT_TRUE(out_ == CompactOf("x-2 y-2; x12 y-2; x12 y12; x-2 y12; x-2 y-2"));
}

TEST_F(PairOffsetTest, LeavesTheEndsOfAnOpenContour) {
  EXPECT_EQ(CompactOf("x0 y0; x10 y0; x10 y10").OffsetMethod2(out_, -2, 1, false), 1);
  EXPECT_TRUE(out_ == CompactOf("x0 y-2; x12 y-2; x12 y10"));
}

TEST_F(PairOffsetTest, ExtendsArcsAlongTheirCircles) {
  // A line, a quarter about (10, 10), not tangent, and a line.
  EXPECT_EQ(CompactOf("x0 y0; x20 y0; ax10 y10 x10 y0; x10 y30").OffsetMethod2(out_, -2, 1, false), 1);
  ASSERT_EQ(KindsOf(out_), (Kinds{0, ACW, 0}));
  Span arc;
  out_.Get(2, arc, true);
  EXPECT_NEAR(arc.radius, 12, 1e-9);
  EXPECT_NEAR(arc.p0.x, 10 + std::sqrt(140.0), 1e-9);
  EXPECT_NEAR(arc.p0.y, -2, 1e-9);
  EXPECT_EQ(arc.p1, Point(12, std::sqrt(140.0)));
}

TEST_F(PairOffsetTest, ExtendsTwoArcsToTheirCrossing) {
  EXPECT_EQ(CompactOf("x-10 y0; tx0 y0 x-5 y-5; tx10 y0 x5 y-5").OffsetMethod2(out_, 1, 1, false), 1);
  Span arc;
  out_.Get(1, arc, true);
  const double radius = std::sqrt(50.0) + 1;
  EXPECT_EQ(arc.p1, Point(0, std::sqrt(radius * radius - 25) - 5));
}

TEST_F(PairOffsetTest, LeavesTangentNeighboursApartWithoutACrossing) {
  // Turned back, the carriers are parallel.
  EXPECT_EQ(CompactOf("x0 y0; x10 y0; x0 y0.000001").OffsetMethod2(out_, 1, 1, false), 1);
  EXPECT_EQ(out_.SpanCount(), 2);
}

TEST_F(PairOffsetTest, FitsArcsBetweenTheirNeighboursAgain) {
  // The corner of radius 3 stays tangent when its neighbours move to crossings at their other ends.
  const Kurve k = CompactOf("x0 y20; x0 y0; x17 y0; ax20 y3 x17 y3; x20 y20; x5 y30");
  EXPECT_EQ(k.OffsetMethod2(out_, 1, 1, false), 1);
  Span arc;
  ASSERT_EQ(out_.Get(3, arc, true), ACW);
  EXPECT_NEAR(arc.radius, 2, 1e-9);
  EXPECT_EQ(arc.pc, Point(17, 3));
  EXPECT_EQ(arc.p0, Point(17, 1));
  EXPECT_EQ(arc.p1, Point(19, 3));
}

TEST_F(PairOffsetTest, FitsArcsBetweenLargerArcsByRadius) {
  // Two bends of radius 20 with one of radius 3 between them, or a line in the place of either.
  const char* const chains[] = {
      "x-20 y20; ax0 y0 x0 y20; ax3 y3 x0 y3; ax-17 y23 x-17 y3",
      "x-20 y0; x0 y0; ax3 y3 x0 y3; ax-17 y23 x-17 y3",
      "x-20 y20; ax0 y0 x0 y20; ax3 y3 x0 y3; x3 y20",
      "x-20 y20; ax0 y0 x0 y20; ax3 y3 x0 y3; tx23 y23 x23 y3",
  };
  for (const char* const chain : chains) {
    for (const bool byRadius : {true, false}) {
      for (const double offset : {1.0, -1.0}) {
        EXPECT_EQ(CompactOf(chain).OffsetMethod2(out_, offset, 1, byRadius), 1);
        const KurveEx made(out_);
        ASSERT_EQ(made.SpanCount(), 3) << chain;
        EXPECT_EQ(made.spans[1].pc, Point(0, 3)) << chain;
        EXPECT_NEAR(made.spans[1].radius, 3 - offset, 1e-9) << chain;
        EXPECT_NEAR(Cross(made.spans[0].ve, made.spans[1].vs), 0, 1e-6) << chain;
        EXPECT_NEAR(Cross(made.spans[1].ve, made.spans[2].vs), 0, 1e-6) << chain;
      }
    }
  }
}

TEST_F(PairOffsetTest, LeavesALargeArcBetweenSmallerOnes) {
  const char* const chain = "x-3 y3; ax0 y0 x0 y3; ax20 y20 x0 y20; ax17 y23 x17 y20";
  EXPECT_EQ(CompactOf(chain).OffsetMethod2(out_, 1, 1, true), 1);
  EXPECT_TRUE(out_ == CompactOf("x-2 y3; ax0 y1 x0 y3; ax19 y20 x0 y20; ax17 y22 x17 y20"));
}

TEST_F(PairOffsetTest, ParallelNeighboursLeaveTheArcAsItIs) {
  // The lines before and after a half circle, moved by its radius, are one line.
  EXPECT_EQ(CompactOf("x-9 y0; x0 y0; ax0 y6 x0 y3; x-9 y6").OffsetMethod2(out_, 1, 1, false), 1);
  EXPECT_TRUE(out_ == CompactOf("x-9 y1; x0 y1; ax0 y5 x0 y3; x-9 y5"));
}

TEST_F(PairOffsetTest, UsesTheProcessWidePair) {
  scratchSpanPair = SpanPair();
  CompactOf("x0 y0; x10 y0").OffsetMethod2(out_, 1, 1, false);
  EXPECT_EQ(scratchSpanPair.source.p1, Point(10, 0));
  EXPECT_EQ(scratchSpanPair.offset.p1, Point(10, 1));
}

TEST_F(PairOffsetTest, SpansThatVanishStayAsTheirChords) {
  EXPECT_EQ(CompactOf("x-20 y0; x0 y0; ax2 y2 x0 y2; x2 y20").OffsetMethod2(out_, 3, 1, false), 1);
  EXPECT_EQ(KindsOf(out_), (Kinds{0, 0, 0}));
  EXPECT_TRUE(out_ == CompactOf("x-20 y3; x0 y3; x-1 y2; x-1 y20"));
}

TEST_F(PairOffsetTest, WorksUntransformedIntoTheReadersPlane) {
  Kurve k = CompactOf(kSquare);
  k.Scale(2);
  EXPECT_EQ(k.OffsetMethod2(out_, 2, 1, false), 1);
  EXPECT_TRUE(out_.unit);
  EXPECT_TRUE(out_ == CompactOf("x2 y2; x18 y2; x18 y18; x2 y18; x2 y2"));
}

}  // namespace
}  // namespace geometry

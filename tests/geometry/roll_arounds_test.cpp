#include <gtest/gtest.h>

#include <cmath>

#include "geometry/contour_text.h"
#include "geometry/offset/offset_sense.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::ContourOf;
using testing::kPi;
using testing::UnitsGuard;

/// The contour of a text with some of its spans, counted from 1, marked as roll arcs.
KurveEx Marked(std::string_view text, std::initializer_list<int> rolls) {
  KurveEx k = ContourOf(text);
  for (const int i : rolls) k.spans[static_cast<std::size_t>(i) - 1].ID = ROLL_AROUND;
  return k;
}

class RollTest : public ::testing::Test {
 protected:
  UnitsGuard millimetres_{0};
  KurveEx out_;
};

TEST_F(RollTest, WithoutRollArcsDoesNothing) {
  out_ = ContourOf("x1 y1; x2 y2");
  EXPECT_FALSE(ContourOf("x0 y0; x10 y0; x10 y10").RemoveRollArounds(90, out_));
  EXPECT_TRUE(out_ == ContourOf("x1 y1; x2 y2"));
  EXPECT_FALSE(KurveEx().RemoveRollArounds(90, out_));
}

TEST_F(RollTest, TangentArcsStay) {
  const KurveEx k = Marked("x0 y0; x10 y0; ax12 y2 x10 y2; x12 y9", {2});
  EXPECT_TRUE(k.RemoveRollArounds(0, out_));
  EXPECT_TRUE(out_ == k);
  EXPECT_EQ(out_.spans[1].ID, ROLL_AROUND);
  // Tangent at one end is enough.
  const KurveEx half = Marked("x0 y0; x10 y0; ax12 y2 x10 y2; x14 y3", {2});
  EXPECT_TRUE(half.RemoveRollArounds(0, out_));
  EXPECT_TRUE(out_ == half);
}

TEST_F(RollTest, LinesAreExtendedToTheirCrossing) {
  const KurveEx k = Marked("x0 y0; x10 y0; ax11 y1 x10.5 y0.5; x11 y9", {2});
  EXPECT_TRUE(k.RemoveRollArounds(90, out_));
  EXPECT_TRUE(out_ == ContourOf("x0 y0; x11 y0; x11 y9"));
  EXPECT_NEAR(out_.perim, 20, 1e-9);
}

TEST_F(RollTest, ArcsThatSweepTooFarStay) {
  // It sweeps half a turn; the limit is a full turn less the angle.
  const KurveEx k = Marked("x0 y0; x10 y0; ax11 y1 x10.5 y0.5; x11 y9", {2});
  EXPECT_NEAR(k.spans[1].angle, kPi, 1e-9);
  k.RemoveRollArounds(179, out_);
  EXPECT_EQ(out_.SpanCount(), 2);
  k.RemoveRollArounds(181, out_);
  EXPECT_EQ(out_.SpanCount(), 3);
}

TEST_F(RollTest, ParallelNeighboursKeepTheArc) {
  const KurveEx k = Marked("x0 y0; x10 y0; ax10 y1 x10.1 y0.5; x0 y1", {2});
  EXPECT_TRUE(k.RemoveRollArounds(0, out_));
  EXPECT_TRUE(out_ == k);
}

TEST_F(RollTest, RollArcsNextToEachOtherStay) {
  const KurveEx k = Marked("x0 y0; x10 y0; ax11 y1 x10.5 y0.5; ax12 y2 x11.5 y1.5; x12 y9", {2, 3});
  EXPECT_TRUE(k.RemoveRollArounds(0, out_));
  EXPECT_TRUE(out_ == k);
}

TEST_F(RollTest, ARollArcAtAnOpenEndStays) {
  const KurveEx k = Marked("x0 y0; ax1 y1 x0.5 y0.5; x9 y1; ax10 y2 x9.5 y1.5", {1, 3});
  EXPECT_TRUE(k.RemoveRollArounds(0, out_));
  EXPECT_TRUE(out_ == k);
}

TEST_F(RollTest, TheLastOneOfAClosedContourMovesItsStart) {
  const KurveEx k = Marked("x1 y0; x10 y0; x10 y10; x0 y10; x0 y1; ax1 y0 x0.5 y0.5", {5});
  EXPECT_TRUE(k.RemoveRollArounds(0, out_));
  EXPECT_TRUE(out_ == ContourOf("x0 y0; x10 y0; x10 y10; x0 y10; x0 y0"));
  EXPECT_EQ(out_.start, Point(0, 0));
}

TEST_F(RollTest, TheFirstOneStays) {
  const KurveEx k = Marked("x0 y1; ax1 y0 x0.5 y0.5; x10 y0; x10 y10; x0 y10; x0 y1", {1});
  EXPECT_TRUE(k.RemoveRollArounds(0, out_));
  EXPECT_TRUE(out_ == k);
}

TEST_F(RollTest, ArcsAreExtendedAlongTheirCircles) {
  // The arc about (10, 10) begins where the line's height is reached.
  const double x = 10 + std::sqrt(96.0);
  const std::string begin = "x0 y8; x15 y8; ax20 y10 x17.5 y9;";
  const KurveEx k = Marked(begin + "ax10 y20 x10 y10; x0 y20", {2});
  EXPECT_TRUE(k.RemoveRollArounds(0, out_));
  ASSERT_EQ(out_.SpanCount(), 3);
  EXPECT_EQ(out_.spans[0].p1, Point(x, 8));
  EXPECT_NEAR(out_.spans[1].radius, 10, 1e-9);
  EXPECT_EQ(out_.spans[1].p1, Point(10, 20));
}

/// Every way of meeting: the crossing at the corner is found from spans that end a little before it, and a
/// little beyond.
TEST_F(RollTest, CarriersCrossWhereTheirCornerIs) {
  const Vector2d in(1, 0);
  for (const double turn : {-2.5, -1.0, -0.3, 0.3, 1.0, 2.5}) {
    const Vector2d out(std::cos(turn), std::sin(turn));
    for (const int before : {LINEAR, ACW, CW}) {
      for (const int after : {LINEAR, ACW, CW}) {
        for (const double gap : {-0.2, 0.2}) {
          // Both would pass (0, 0); radii 8 and 5.
          const Point c0 = Point(0, 0) + in.LeftNormal() * (8.0 * before);
          const Point c1 = Point(0, 0) + out.LeftNormal() * (5.0 * after);
          Span a(Point(-3, 0), Point(-gap, 0));
          if (before != LINEAR)
            a = Span(before, Point(c0, 8, before * -90 - 20.0 * before),
                     Point(c0, 8, before * -90 - before * 8 * gap), c0);
          Span b(Point(0, 0) + out * gap, Point(0, 0) + out * 3);
          const double base = turn * 180 / kPi - after * 90;
          if (after != LINEAR)
            b = Span(after, Point(c1, 5, base + after * 8 * gap), Point(c1, 5, base + after * 40), c1);
          const Point crossing = CarrierCrossing(a, b);
          ASSERT_TRUE(crossing.ok);
          EXPECT_NEAR(Dist(crossing, Point(0, 0)), 0, 1e-9)
              << turn << " " << before << " " << after << " " << gap;
        }
      }
    }
  }
}

TEST_F(RollTest, AnEndThatHadMovedKeepsItsDistance) {
  // The line ends 0.1 away from where the roll arc begins.
  KurveEx k = Marked("x0 y0; x10 y0; ax11 y1 x10.5 y0.5; x11 y9", {2});
  k.spans[1].p0 = Point(10, 0.1);
  EXPECT_TRUE(k.RemoveRollArounds(0, out_));
  const Vector2d inward(-0.5 / std::sqrt(0.5), 0.5 / std::sqrt(0.5));
  EXPECT_EQ(out_.spans[0].p1, Point(11, 0) + inward * 0.1);
}

TEST_F(RollTest, KeepsNullSpansAndWords) {
  KurveEx k = Marked("x0 y0; x5 y0; x5 y0; x10 y0; ax11 y1 x10.5 y0.5; x11 y9", {4});
  k.AddIndex0(0, 7);
  k.AddIndex1(0, 8);
  EXPECT_TRUE(k.RemoveRollArounds(0, out_));
  EXPECT_EQ(out_.SpanCount(), 4);
  EXPECT_TRUE(out_.spans[1].NullSpan);
  EXPECT_EQ(out_.GetIndex0(0), 7u);
  EXPECT_EQ(out_.GetIndex1(0), 8u);
}

TEST_F(RollTest, OffsetsKeepTheArcsThatHaveCutEachOther) {
  // Two corners nearer to each other than twice the offset: their arcs cut each other. They lie next to each
  // other, and each is tangent at its other end.
  const KurveEx k = ContourOf("x0 y0; x40 y0; x40 y18; x30 y18; x30 y22; x40 y22; x40 y40; x0 y40; x0 y0");
  EXPECT_EQ(k.Offset(out_, -3, 1, 1, 0), 0);
  const int withArcs = out_.SpanCount();
  EXPECT_EQ(k.Offset(out_, -3, 1, 0x10000001, 90), 0);
  EXPECT_EQ(out_.SpanCount(), withArcs);
}

/// A bump in the floor, smaller than the offset: its roll arc lies between the floors, cut at both ends.
TEST_F(RollTest, AnArcThatLoopsHaveCutAtBothEndsIsRemovedWhenAsked) {
  const KurveEx open = ContourOf("x0 y1; x9.5 y0; x10 y0.5; x10.5 y0; x20 y1");
  EXPECT_EQ(open.Offset(out_, 3, 1, 1, 30), 0);
  EXPECT_EQ(out_.SpanCount(), 3);
  EXPECT_EQ(open.Offset(out_, 3, 1, 0x10000001, 30), 0);
  ASSERT_EQ(out_.SpanCount(), 2);
  EXPECT_NEAR(out_.spans[0].p1.x, 10, 1e-9);
  // It sweeps 58 degrees, and may sweep 50.
  EXPECT_EQ(open.Offset(out_, 3, 1, 0x10000001, 310), 0);
  EXPECT_EQ(out_.SpanCount(), 3);
}

TEST_F(RollTest, AClosedContourIsLookedThroughForLoopsOnceMore) {
  const KurveEx closed = ContourOf("x0 y1; x9.5 y0; x10 y0.5; x10.5 y0; x20 y1; x20 y20; x0 y20; x0 y1");
  EXPECT_EQ(closed.Offset(out_, 3, 1, 0x10000001, 30), 0);
  EXPECT_EQ(out_.SpanCount(), 5);
  EXPECT_TRUE(out_.Closed());
  // With loops kept, neither is.
  EXPECT_EQ(closed.Offset(out_, 3, 1, 0x10000001, 30, true), 0);
  EXPECT_GT(out_.SpanCount(), 5);
}

TEST_F(RollTest, NearlyParallelNeighboursMeetFarAway) {
  // The floors meet to the left of the room: what was the room is a loop now. No area is compared after that.
  const KurveEx k = ContourOf("x0 y1; x9.5 y0; x10 y0.5; x10.5 y0; x20 y-0.9; x20 y20; x0 y20; x0 y1");
  EXPECT_EQ(k.Offset(out_, 3, 1, 1, 30), 0);
  EXPECT_LT(out_.area, -190);
  EXPECT_EQ(k.Offset(out_, 3, 1, 0x10000001, 30), 0);
  EXPECT_EQ(out_.SpanCount(), 3);
  EXPECT_GT(out_.area, 0);
}

}  // namespace
}  // namespace geometry

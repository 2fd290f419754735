#include <gtest/gtest.h>

#include <cmath>

#include "geometry/contour_text.h"
#include "geometry/offset.h"
#include "geometry/support.h"

/// Where the steps of an offset end: small contours that break a law, and what happens then.
/// geometry/README.md lists them for callers.
namespace geometry {
namespace {

using testing::CompactOf;
using testing::ContourOf;
using testing::ThrownText;
using testing::UnitsGuard;

class OffsetLimits : public ::testing::Test {
 protected:
  int CodeOf(std::string_view text, double offset) { return ContourOf(text).Offset(out_, offset, 1, 1, 0); }

  UnitsGuard millimetres_{0};
  KurveEx out_;
};

TEST_F(OffsetLimits, OfAContourThatFallsApartTheFirstPieceIsLeft) {
  // A wedge comes down from above to 2 mm over the floor; two rooms stay, and the one on the right is lost.
  EXPECT_EQ(CodeOf("x0 y0; x10 y0; x10 y10; x5 y2; x0 y10; x0 y0", 1.2), 0);
  EXPECT_LT(out_.Box().max.x, 5);
  // A wedge that just touches is no different.
  EXPECT_EQ(CodeOf("x0 y0; x10 y0; x10 y10; x5 y2; x0 y10; x0 y0", 1), 0);
  EXPECT_EQ(out_.spans[0].p1, Point(5, 1));
}

TEST_F(OffsetLimits, TheStartDecidesWhenLittleIsLeft) {
  EXPECT_EQ(CodeOf("x-8 y-3; x2 y-5; x6 y-4; x1 y7; x-8 y-3", 4), 0);
  EXPECT_EQ(CodeOf("x6 y-4; x1 y7; x-8 y-3; x2 y-5; x6 y-4", 4), 3);
}

TEST_F(OffsetLimits, ALoopAcrossTheStartStays) {
  // The notch at the start is too narrow for the offset; elsewhere it would be cut out.
  const char* const inTheMiddle = "x0 y40; x0 y0; x18 y0; x18 y10; x22 y10; x22 y0; x40 y0; x40 y40; x0 y40";
  const char* const atTheStart =
      "x20 y10; x22 y10; x22 y0; x40 y0; x40 y40; x0 y40; x0 y0; x18 y0; x18 y10; x20 y10";
  EXPECT_EQ(CodeOf(inTheMiddle, -3), 0);
  const double area = out_.area;
  EXPECT_NEAR(out_.Box().min.y, -3, 1e-5);
  CodeOf(atTheStart, -3);
  EXPECT_GT(std::fabs(out_.area - area), 1);
}

TEST_F(OffsetLimits, ASpanUsedUpMayLeaveAPieceTooNear) {
  const char* const text = "x6 y2; x3 y5; x-6 y1; x-3 y-3; x5 y-8; x6 y2";
  EXPECT_EQ(CodeOf(text, 4), 0);
  Point nearest;
  double least = 1e9;
  for (const Span& span : ContourOf(text).spans) least = std::min(least, span.Dist(out_.Start(), nearest));
  EXPECT_LT(least, 3.9);
}

TEST_F(OffsetLimits, AnOffsetOfAFewTolerancesMayMissItsArcs) {
  // No roll arc is made, the arc begins elsewhere than it was moved to, and its end is none of its points.
  EXPECT_EQ(ThrownText([&] { CodeOf("x-10 y0; x0 y0; ax5 y-5 x5 y0; x5 y5", 0.01); }),
            L"Invalid Geometry - Radii mismatch - SetProperties");
  EXPECT_EQ(CodeOf("x-10 y0; x0 y0; ax5 y-5 x5 y0; x5 y5", 0.03), 0);
}

TEST_F(OffsetLimits, ANullSpanAtTheStartOfALeftTurnAfterAnArcIsRefused) {
  EXPECT_EQ(ThrownText([&] { CodeOf("x0 y0; x0 y0; x30 y-5; x30 y30; x0 y30; tx0 y0 x-40 y15", 3); }),
            L"Invalid Geometry - Radii mismatch - SetProperties");
}

TEST_F(OffsetLimits, ALoopLongerThanTheScanIsNotFound) {
  // The walls of a slot, in pieces of 1 mm or as they are.
  std::string pieces = "x0 y0; x60 y0; x60 y28;";
  for (int x = 59; x >= 30; --x) pieces += "x" + std::to_string(x) + " y28;";
  for (int x = 30; x <= 59; ++x) pieces += "x" + std::to_string(x) + " y32;";
  const std::string end = "x60 y32; x60 y60; x0 y60; x0 y0";
  EXPECT_EQ(CodeOf("x0 y0; x60 y0; x60 y28; x30 y28; x30 y32;" + end, -2.5), 0);
  EXPECT_EQ(out_.SpanCount(), 11);
  EXPECT_EQ(CodeOf(pieces + end, -2.5), 2);
}

TEST_F(OffsetLimits, ALoopLongerThanTheScanMayHaveTheCodeOfAGoodOne) {
  // Two rooms and a neck of 4 mm between them, whose walls are in pieces of 1 mm or as they are.
  const auto rooms = [](int piece) {
    std::string text = "x0 y0; x40 y0; x40 y18;";
    for (int x = 40 + piece; x < 100; x += piece) text += "x" + std::to_string(x) + " y18;";
    text += "x100 y18; x100 y0; x140 y0; x140 y40; x100 y40; x100 y22;";
    for (int x = 100 - piece; x > 40; x -= piece) text += "x" + std::to_string(x) + " y22;";
    return text + "x40 y22; x40 y40; x0 y40; x0 y0";
  };
  const auto distanceToNeck = [&] {
    Point nearest;
    double least = 1e9;
    for (const Span& span : out_.spans) least = std::min(least, span.Dist(Point(70, 22), nearest));
    return least;
  };
  EXPECT_EQ(CodeOf(rooms(60), 3), 0);
  EXPECT_GT(distanceToNeck(), 3);
  EXPECT_EQ(CodeOf(rooms(1), 3), 0);
  EXPECT_NEAR(distanceToNeck(), 1, 1e-9);
}

TEST_F(OffsetLimits, AnArcThatVanishesAtTheStartLeavesACompactContourOpen) {
  Kurve out;
  EXPECT_EQ(CompactOf("x0 y1; ax1 y0 x1 y1; x20 y0; x20 y20; x0 y20; x0 y1").OffsetMethod1(out, 3, 1, 1), 2);
  EXPECT_EQ(CompactOf("x1 y0; x20 y0; x20 y20; x0 y20; x0 y1; ax1 y0 x1 y1").OffsetMethod1(out, 3, 1, 1), 0);
}

}  // namespace
}  // namespace geometry

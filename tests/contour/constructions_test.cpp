#include "contour/constructions.h"

#include "contour_fixture.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::contour {
namespace {

using geometry::Matrix;
using geometry::Point;

constexpr const char* kSlot = "k3 e x-20 y10\nx20 y10\ntx20 y-10 x20 y0\nx-20 y-10\ntx-20 y10 x-20 y0\nek\n";
constexpr const char* kHook = "k2 e x0 y0\nx10 y0\nx10 y5\nx7 y9\nek\n";

class ConstructionsTest : public ContourTest {
 protected:
  template <class Value>
  static Value Made(Result<Value> made) {
    if (made) return *made;
    ADD_FAILURE() << made.fault().Message();
    return {};
  }
  template <class Value>
  static std::string Refused(const Result<Value>& made) {
    return made ? "made" : made.fault().Message();
  }

  const Contour square = ReadOne(kRoundedSquare);
  const Contour slot = ReadOne(kSlot);
  const Contour hook = ReadOne(kHook);
};

TEST_F(ConstructionsTest, OffsetsAreAtTheirDistance) {
  for (const double distance : {-3.0, 2.0, 5.0}) {
    for (const OffsetMethod method : {OffsetMethod::kKurve, OffsetMethod::kKurveEx, OffsetMethod::kSpans}) {
      const Contour offset = Made(OffsetOf(slot, distance, method));
      EXPECT_EQ(offset.number, 3);
      // The slot runs clockwise: its left is outside.
      EXPECT_NEAR(FactsOf(offset).perimeter, 80 + 2 * kPi * (10 + distance), 1e-6);
      for (const geometry::Span& span : offset.curve.spans) {
        EXPECT_NEAR(NearestOn(slot, span.Mid()).distance, std::fabs(distance), 1e-6);
      }
    }
  }
}

TEST_F(ConstructionsTest, OnlySpanBySpanCornersStaySharp) {
  const Contour corner = ReadOne("k1 e x0 y0\nx10 y0\nx10 y10\nek\n");
  EXPECT_EQ(FactsOf(Made(OffsetOf(corner, -2, OffsetMethod::kKurveEx))).arcs, 1);
  EXPECT_EQ(FactsOf(Made(OffsetOf(corner, -2, OffsetMethod::kKurve))).arcs, 1);
  EXPECT_EQ(FactsOf(Made(OffsetOf(corner, -2, OffsetMethod::kSpans))).arcs, 0);
}

TEST_F(ConstructionsTest, TheExampleOfARawOffsetIsThatOfTheNotch) {
  const std::string examples = VANZET_SOURCE_DIR "/examples/contours/";
  const Contour notch = ReadOne(test::ReadBytes(examples + "notch.txt"));
  const Contour raw = ReadOne(test::ReadBytes(examples + "notch_raw.txt"));
  geometry::KurveEx made;
  EXPECT_EQ(notch.curve.Offset(made, 3, -1, 0, 0), 0);
  EXPECT_TRUE(made == raw.curve);
  EXPECT_EQ(Made(OffsetOf(notch, -3, OffsetMethod::kKurveEx)).curve.SpanCount(), 13);
}

TEST_F(ConstructionsTest, AnOffsetThatLeavesNothingIsRefused) {
  EXPECT_THAT(Refused(OffsetOf(square, 25, OffsetMethod::kKurveEx)),
              testing::MatchesRegex("contour 7 (collapses|turns inside out) at 25 mm to the left"));
  EXPECT_THAT(Refused(OffsetOf(slot, -12, OffsetMethod::kKurve)),
              testing::MatchesRegex("contour 3 (collapses|turns inside out) at 12 mm to the right"));
  EXPECT_THAT(Refused(OffsetOf(slot, 1e7, OffsetMethod::kKurveEx)), testing::HasSubstr("is not within"));
}

TEST_F(ConstructionsTest, AnOffsetThatTheLibraryRefusesNamesTheContour) {
  const std::string path = "x-10 y0\nx0 y0\nax5 y-5 x5 y0\nx5 y5\n";
  const std::string why =
      " has no offset at 0.01 mm to the left: the geometry refuses this: Invalid Geometry - Radii mismatch - "
      "SetProperties";
  EXPECT_EQ(Refused(OffsetOf(ReadOne("k4 e " + path + "ek\n"), 0.01, OffsetMethod::kKurveEx)),
            "contour 4" + why);
  EXPECT_EQ(Refused(OffsetOf(ReadOne("k4 e " + path + "x-10 y0\nek\n"), 0.01, OffsetMethod::kKurveEx)),
            "contour 4" + why + "; --region makes it in another way");
}

TEST_F(ConstructionsTest, TrimsAndExtensionsChangeTheLengthByWhatWasAsked) {
  for (const End end : {End::kStart, End::kEnd, End::kBoth}) {
    const double ends = end == End::kBoth ? 2 : 1;
    EXPECT_NEAR(FactsOf(Made(Trim(hook, 2.5, end, {}))).perimeter, 20 - 2.5 * ends, 1e-9);
    EXPECT_NEAR(FactsOf(Made(Extend(hook, 2.5, end))).perimeter, 20 + 2.5 * ends, 1e-9);
  }
  EXPECT_THAT(Made(Trim(hook, 2, End::kStart, {})).curve.start, IsAt(2, 0, 1e-9));
  EXPECT_THAT(Made(Extend(hook, 5, End::kEnd)).curve.End(), IsAt(4, 13, 1e-9));
}

TEST_F(ConstructionsTest, AClosedContourIsOpenedToBeTrimmed) {
  const Contour after = Made(Trim(slot, 5, End::kStart, Point(0, 12)));
  EXPECT_THAT(after.curve.start, IsAt(5, 10, 1e-9));
  EXPECT_THAT(after.curve.End(), IsAt(0, 10, 1e-9));
  EXPECT_THAT(Made(Trim(slot, 5, End::kEnd, Point(0, 12))).curve.End(), IsAt(-5, 10, 1e-9));
  EXPECT_EQ(Refused(Trim(slot, 5, End::kBoth, Point(0, 12))),
            "contour 3 is closed: it is trimmed at one end");
  EXPECT_EQ(Refused(Trim(slot, 5, End::kEnd, {})),
            "contour 3 is closed: give the place where to open it with --from");
  EXPECT_EQ(Refused(Trim(hook, 5, End::kEnd, Point(0, 0))),
            "contour 2 is open already: --from is for closed contours");
}

TEST_F(ConstructionsTest, WhatCannotBeTrimmedOrExtendedIsRefused) {
  EXPECT_EQ(Refused(Trim(hook, 21, End::kEnd, {})), "nothing is left of contour 2");
  EXPECT_EQ(Refused(Trim(hook, 20, End::kEnd, {})), "nothing is left of contour 2");
  EXPECT_EQ(Refused(Trim(hook, -1, End::kEnd, {})), "nothing is left of contour 2");
  EXPECT_EQ(Refused(Trim(slot, 500, End::kEnd, Point(0, 10))), "nothing is left of contour 3");
  EXPECT_EQ(Refused(Extend(slot, 5, End::kEnd)), "contour 3 is closed: it has no ends");
  EXPECT_THAT(Refused(Extend(hook, 2e7, End::kEnd)), testing::HasSubstr("is not within"));
}

TEST_F(ConstructionsTest, ASectionRunsOverTheStartOfAClosedContour) {
  EXPECT_NEAR(FactsOf(Made(SectionOf(slot, {0, 10}, {10, 10}))).perimeter, 10, 1e-9);
  EXPECT_NEAR(FactsOf(Made(SectionOf(slot, {10, 10}, {0, 10}))).perimeter, 70 + 20 * kPi, 1e-9);
  EXPECT_EQ(Refused(SectionOf(hook, {10, 4}, {2, 0})),
            "the second point comes before the first, and contour 2 is open");
  EXPECT_EQ(Refused(SectionOf(hook, {2, 0}, {2, 0})), "nothing is left of contour 2");
}

TEST_F(ConstructionsTest, EqualisedContoursHaveEqualShares) {
  const EqualPair equalised = Made(Equalise(slot, hook, false));
  ASSERT_EQ(equalised.a.curve.SpanCount(), equalised.b.curve.SpanCount());
  const double ratio = slot.curve.perim / hook.curve.perim;
  for (std::size_t i = 0; i < equalised.a.curve.spans.size(); ++i) {
    EXPECT_NEAR(equalised.a.curve.spans[i].length, ratio * equalised.b.curve.spans[i].length, 1e-6);
  }
  EXPECT_EQ(equalised.a.number, 1);
  EXPECT_EQ(equalised.b.number, 2);
}

TEST_F(ConstructionsTest, AMotionIsFoundForOpenAndClosedContours) {
  Matrix motion;
  motion.Rotate(0.5, 3);
  motion.Translate(30, -4);
  for (const Contour& contour : {square, slot, hook}) {
    const auto found = Made(MotionOnto(contour, Made(Transform(contour, motion)), false));
    ASSERT_TRUE(found);
    EXPECT_THAT(contour.curve.start.Transform(*found),
                IsAt(contour.curve.start.Transform(motion).x, contour.curve.start.Transform(motion).y, 1e-6));
  }
  EXPECT_FALSE(*MotionOnto(square, slot, true));
}

TEST_F(ConstructionsTest, AMirrorImageIsFoundOnlyWhenAskedFor) {
  Matrix mirror;
  mirror.Scale(-1, 1, 1);
  mirror.Rotate(1, 3);
  const Contour flag = ReadOne("k1 e x0 y0\nx0 y30\nx20 y30\ntx20 y10 x20 y20\nx5 y10\nx5 y0\nx0 y0\nek\n");
  const Contour sevenths = ReadOne("k1 e x0 y0\nx7 y0\nx7 y3\nx2 y9\nx0 y0\nek\n");
  for (const Contour& contour : {flag, hook, sevenths}) {
    const Contour image = Made(Transform(contour, mirror));
    const Contour back{1, image.curve.ReversedCopy()};
    EXPECT_FALSE(*MotionOnto(contour, image, false));
    for (const bool isBack : {false, true}) {
      if (isBack && !contour.curve.Closed()) continue;  // it runs from its other end
      const auto found = Made(MotionOnto(contour, isBack ? back : image, true));
      ASSERT_TRUE(found);
      EXPECT_TRUE(Matrix(*found).IsMirrored());
    }
  }
}

TEST_F(ConstructionsTest, PolygonsOfEqualCornersAreNotMirrorImages) {
  const Contour z = ReadOne("k1 e x0 y0\nx10 y0\nx10 y5\nx15 y5\nek\n");
  const Contour u = ReadOne("k1 e x0 y0\nx10 y0\nx10 y5\nx5 y5\nek\n");
  EXPECT_FALSE(*MotionOnto(z, u, true));
}

TEST_F(ConstructionsTest, TheArcNearThePointGetsTheNewRadius) {
  const Contour blended = Made(ChangeBlend(square, {20, 20}, 3));
  const Facts facts = FactsOf(blended);
  EXPECT_EQ(facts.spans, 8);
  EXPECT_NEAR(facts.area, 1600 - (4 - kPi) * (3 * 64 + 9) / 4, 1e-6);
  // The last arc ends at the start, which moves with it.
  EXPECT_THAT(Made(ChangeBlend(square, {-20, -20}, 3)).curve.start, IsAt(-17, -20, 1e-9));
}

TEST_F(ConstructionsTest, ABlendMayUseUpItsNeighbours) {
  const Contour all = Made(ChangeBlend(square, {20, 20}, 32));
  EXPECT_EQ(FactsOf(all).spans, 6) << "both neighbours are gone";
  EXPECT_THAT(Refused(ChangeBlend(square, {20, 20}, 33)), testing::HasSubstr("no arc of radius 33 mm fits"));
}

TEST_F(ConstructionsTest, AtTheEndsOfAnOpenContourLinesReachTheOldEnds) {
  const Contour arc = ReadOne("k1 e x10 y0\nax0 y10 x0 y0\nek\n");
  const Contour blended = Made(ChangeBlend(arc, {10, 10}, 4));
  EXPECT_EQ(blended.curve.SpanCount(), 3);
  EXPECT_THAT(blended.curve.start, IsAt(10, 0, 1e-9));
  EXPECT_THAT(blended.curve.End(), IsAt(0, 10, 1e-9));
  EXPECT_NEAR(FactsOf(blended).perimeter, 12 + 2 * kPi, 1e-9);
}

TEST_F(ConstructionsTest, BlendsThatCannotBeMadeAreRefused) {
  EXPECT_EQ(Refused(ChangeBlend(hook, {0, 0}, 3)), "contour 2 has no arc");
  EXPECT_EQ(Refused(ChangeBlend(slot, {30, 0}, 3)), "the neighbours of the arc do not form a corner");
  EXPECT_EQ(Refused(ChangeBlend(square, {20, 20}, 0.001)), "the new arc would be shorter than 0.005 mm");
  EXPECT_EQ(Refused(ChangeBlend(ReadOne("k1 e x0 y0\nx20 y0\nax0 y0 x10 y0\nek\n"), {10, 10}, 3)),
            "the neighbours of the arc do not form a corner")
      << "both are one line";
}

TEST_F(ConstructionsTest, ABiarcLeavesAndArrivesInItsDirections) {
  const Contour biarc = Made(BiarcOf({{0, 0}, 90}, {{40, 0}, -60}));
  ASSERT_EQ(biarc.curve.SpanCount(), 2);
  EXPECT_NEAR(biarc.curve.spans[0].vs.dy, 1, 1e-9);
  EXPECT_NEAR(biarc.curve.spans[1].ve.dx, 0.5, 1e-9);
  EXPECT_NEAR((biarc.curve.spans[0].ve - biarc.curve.spans[1].vs).Magnitude(), 0, 1e-6);
  EXPECT_EQ(Made(BiarcOf({{0, 0}, 0}, {{0, 2}, 180})).curve.SpanCount(), 1) << "a half turn";
  EXPECT_EQ(Made(BiarcOf({{0, 0}, 0}, {{9, 0}, 0})).curve.spans[0].dir, 0) << "a line";
  EXPECT_EQ(Refused(BiarcOf({{6, 0}, 0}, {{0, 0}, 0})), "no biarc joins these two directions");
}

TEST_F(ConstructionsTest, AnEllipseHasItsArea) {
  Matrix motion;
  motion.Rotate(0.3, 3);
  EXPECT_NEAR(FactsOf(Made(EllipseOf({1, 2}, 30, 20, motion))).area, 600 * kPi, 0.5);
  EXPECT_EQ(FactsOf(Made(EllipseOf({0, 0}, 5, 5, Matrix()))).arcs, 36) << "null spans are left out";
  EXPECT_EQ(Refused(EllipseOf({0, 0}, 5, 0, Matrix())), "both radii have to be more than 0.005 mm");
  EXPECT_THAT(Refused(EllipseOf({9.9e6, 0}, 5e6, 1, Matrix())), testing::HasSubstr("is not within"));
}

}  // namespace
}  // namespace vanzet::contour

#include "geometry/trim.h"

#include <gtest/gtest.h>

#include <cmath>

#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kPi;
using testing::UnitsGuard;

KurveEx Polyline(std::initializer_list<Point> points) {
  KurveEx k;
  for (const Point& p : points) k.Add(LINEAR, p, Point(0, 0), true);
  return k;
}

class TrimTest : public ::testing::Test {
 protected:
  const UnitsGuard units{0};

  /// Open: right, a half turn of radius 10, back. 20 + 10 pi + 20 long.
  const KurveEx hairpin = [] {
    KurveEx k = Polyline({{0, 0}, {20, 0}});
    k.Add(ACW, Point(20, 20), Point(20, 10));
    k.Add(0, 20);
    return k;
  }();
  const KurveEx square = Polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}});
  const double whole = 40 + 10 * kPi;

  static KurveEx Reversed(KurveEx k) {
    k.Reverse(true);
    return k;
  }
  static void ExpectEnds(const KurveEx& k, const Point& start, const Point& end) {
    EXPECT_LT(Dist(k.Start(), start), 1e-9) << k.Start().x << " " << k.Start().y;
    EXPECT_LT(Dist(k.End(), end), 1e-9) << k.End().x << " " << k.End().y;
  }
  /// Totals are those of the spans.
  static void ExpectSound(const KurveEx& k) {
    KurveEx again;
    for (const Span& span : k.spans) again.Add(span, true);
    again.Reverse(k.reversed);
    EXPECT_NEAR(k.perim, again.perim, 1e-9);
    EXPECT_NEAR(k.area, again.area, 1e-9);
  }
};

TEST_F(TrimTest, ALineInFrontLeadsAlongTheStartTangent) {
  const KurveEx longer = ExtendStart(5, hairpin);
  ExpectEnds(longer, Point(-5, 0), Point(0, 20));
  EXPECT_EQ(longer.SpanCount(), 4);
  EXPECT_EQ(longer.spans[0].ID, UNMARKED);
  EXPECT_NEAR(longer.perim, whole + 5, 1e-9);
  ExpectSound(longer);
}

TEST_F(TrimTest, ALineAfterTheEndFollowsTheEndTangent) {
  KurveEx arc;
  arc.Start(Point(20, 0));
  arc.Add(ACW, Point(20, 20), Point(20, 10));
  const KurveEx longer = ExtendEnd(7, arc);
  ExpectEnds(longer, Point(20, 0), Point(13, 20));
  EXPECT_EQ(longer.SpanCount(), 2);
  ExpectSound(longer);
}

TEST_F(TrimTest, ExtensionsWorkOnTheEndsOfStorageAndKeepTheSense) {
  const KurveEx start = ExtendStart(5, Reversed(hairpin));
  EXPECT_TRUE(start.reversed);
  ExpectEnds(start, Point(0, 20), Point(-5, 0));
  ExpectSound(start);
  const KurveEx end = ExtendEnd(5, Reversed(hairpin));
  ExpectEnds(end, Point(-5, 20), Point(0, 0));
  ExpectSound(end);
}

TEST_F(TrimTest, NullSpansAtTheEndsHaveNoTangent) {
  KurveEx k;
  k.Start(Point(0, 0));
  k.AddNullSpan();
  k.Add(3, 0);
  k.AddNullSpan();
  ExpectEnds(ExtendStart(2, k), Point(-2, 0), Point(3, 0));
  ExpectEnds(ExtendEnd(2, k), Point(0, 0), Point(5, 0));
  KurveEx nulls;
  nulls.Start(Point(1, 1));
  nulls.AddNullSpan();
  ExpectEnds(ExtendEnd(2, nulls), Point(1, 1), Point(1, 1));
  EXPECT_EQ(ExtendEnd(2, nulls).SpanCount(), 2);
  EXPECT_EQ(ExtendStart(2, nulls).SpanCount(), 2);
}

TEST_F(TrimTest, NothingToExtendStaysAsItIs) {
  EXPECT_EQ(ExtendStart(5, KurveEx()).SpanCount(), 0);
  EXPECT_EQ(ExtendEnd(5, KurveEx()).SpanCount(), 0);
  EXPECT_EQ(ExtendStart(0, hairpin).SpanCount(), 4) << "null spans are kept";
  EXPECT_EQ(ExtendEnd(0, hairpin).SpanCount(), 4);
  ExpectEnds(ExtendStart(-5, hairpin), Point(5, 0), Point(0, 20));
}

TEST_F(TrimTest, TheStartIsTrimmedAlongTheContour) {
  const KurveEx inLine = TrimStart(5, hairpin);
  ExpectEnds(inLine, Point(5, 0), Point(0, 20));
  EXPECT_EQ(inLine.SpanCount(), 3);
  ExpectSound(inLine);
  const KurveEx inArc = TrimStart(20 + 5 * kPi, hairpin);
  ExpectEnds(inArc, Point(30, 10), Point(0, 20));
  EXPECT_EQ(inArc.SpanCount(), 2);
  EXPECT_EQ(inArc.spans[0].dir, ACW);
  ExpectSound(inArc);
  EXPECT_EQ(TrimStart(20, hairpin).SpanCount(), 2) << "at a vertex no null span remains";
}

TEST_F(TrimTest, TheEndIsTrimmedAlongTheContour) {
  const KurveEx inLine = TrimEnd(5, hairpin);
  ExpectEnds(inLine, Point(0, 0), Point(5, 20));
  EXPECT_EQ(inLine.SpanCount(), 3);
  ExpectSound(inLine);
  const KurveEx inArc = TrimEnd(20 + 5 * kPi, hairpin);
  ExpectEnds(inArc, Point(0, 0), Point(30, 10));
  EXPECT_EQ(inArc.SpanCount(), 2);
  ExpectSound(inArc);
}

TEST_F(TrimTest, TrimsWorkOnTheEndsOfStorageAndKeepTheSense) {
  const KurveEx start = TrimStart(5, Reversed(hairpin));
  EXPECT_TRUE(start.reversed);
  ExpectEnds(start, Point(0, 20), Point(5, 0));
  ExpectSound(start);
  const KurveEx end = TrimEnd(5, Reversed(hairpin));
  ExpectEnds(end, Point(5, 20), Point(0, 0));
  const KurveEx to = TrimTo(5, Reversed(hairpin));
  ExpectEnds(to, Point(5, 20), Point(0, 0));
  EXPECT_TRUE(to.reversed);
}

TEST_F(TrimTest, WhatCannotBeTrimmedIsEmpty) {
  for (const auto& trim : {TrimStart, TrimEnd}) {
    EXPECT_EQ(trim(1, square).SpanCount(), 0) << "closed";
    EXPECT_EQ(trim(-0.01, hairpin).SpanCount(), 0) << "negative";
    EXPECT_EQ(trim(whole + 0.01, hairpin).SpanCount(), 0) << "too long";
    EXPECT_EQ(trim(0, KurveEx()).SpanCount(), 0) << "nothing there";
    KurveEx untrue;
    untrue.perim = 5;
    EXPECT_EQ(trim(1, untrue).SpanCount(), 0) << "nothing there, whatever its total says";
    EXPECT_EQ(trim(0, Polyline({{3, 3}, {3, 3}})).SpanCount(), 0) << "no length";
    EXPECT_FALSE(trim(-1, hairpin).start.ok);
    EXPECT_TRUE(trim(-1, Reversed(hairpin)).reversed) << "the sense all the same";
    EXPECT_EQ(trim(-1e-7, hairpin).SpanCount(), 3) << "within the tight tolerance";
  }
}

TEST_F(TrimTest, TheWholeLengthLeavesNothingButAPoint) {
  ExpectEnds(TrimStart(whole, hairpin), Point(0, 20), Point(0, 20));
  EXPECT_LT(TrimStart(whole, hairpin).perim, 1e-9);
  ExpectEnds(TrimEnd(whole, hairpin), Point(0, 0), Point(0, 0));
}

TEST_F(TrimTest, NoLengthLeavesAll) {
  EXPECT_TRUE(TrimStart(0, hairpin) == hairpin);
  EXPECT_TRUE(TrimEnd(0, hairpin) == hairpin);
  EXPECT_TRUE(TrimTo(0, hairpin) == hairpin);
}

TEST_F(TrimTest, AContourThatCrossesItselfIsTrimmedAtTheRightPlace) {
  // The end is on the first span, and the way passes (5, 0) twice.
  const KurveEx loop = Polyline({{0, 0}, {10, 0}, {10, 5}, {5, 5}, {5, 0}});
  const KurveEx trimmed = TrimStart(2, loop);
  EXPECT_NEAR(trimmed.perim, 23, 1e-9);
  EXPECT_NEAR(TrimStart(12, loop).perim, 13, 1e-9);
  EXPECT_NEAR(TrimEnd(5, loop).perim, 20, 1e-9);
}

TEST_F(TrimTest, TrimmedToALengthAlsoWhenClosed) {
  ExpectEnds(TrimTo(15, square), Point(0, 0), Point(5, 10));
  ExpectEnds(TrimTo(-15, square), Point(0, 0), Point(5, 10));
  EXPECT_EQ(TrimTo(20, square).SpanCount(), 2) << "at a vertex";
  const KurveEx inArc = TrimTo(20 + 5 * kPi, hairpin);
  ExpectEnds(inArc, Point(0, 0), Point(30, 10));
  ExpectSound(inArc);
  EXPECT_EQ(TrimTo(40, square).SpanCount(), 0);
  EXPECT_EQ(TrimTo(40 - 1e-7, square).SpanCount(), 0);
  EXPECT_EQ(TrimTo(1, KurveEx()).SpanCount(), 0);
}

TEST_F(TrimTest, TheMirroredFormTrimsTheOtherEnd) {
  const KurveEx trimmed = TrimEndMirrored(5, hairpin);
  ExpectEnds(trimmed, Point(5, 0), Point(0, 20));
  EXPECT_FALSE(trimmed.reversed);
  ExpectSound(trimmed);
  // A reversed contour's copy runs as it is stored.
  ExpectEnds(TrimEndMirrored(5, Reversed(hairpin)), Point(5, 20), Point(0, 0));
  EXPECT_EQ(TrimEndMirrored(-1, hairpin).SpanCount(), 0);
}

TEST_F(TrimTest, ASectionRunsBetweenTwoPoints) {
  KurveEx out;
  EXPECT_TRUE(Section(hairpin, Point(5, -3), Point(8, 22), out));
  ExpectEnds(out, Point(5, 0), Point(8, 20));
  EXPECT_EQ(out.SpanCount(), 3);
  EXPECT_NEAR(out.perim, 15 + 10 * kPi + 12, 1e-9);
  ExpectSound(out);
  EXPECT_TRUE(Section(hairpin, Point(20 + 10 * 0.8, 10 - 10 * 0.6), Point(30, 10), out));
  EXPECT_EQ(out.SpanCount(), 1);
  EXPECT_NEAR(out.perim, 10 * std::asin(0.6), 1e-9);
  EXPECT_NEAR(out.spans[0].radius, 10, 1e-9);
}

TEST_F(TrimTest, SectionsAtVerticesHaveNoNullSpans) {
  KurveEx out;
  EXPECT_TRUE(Section(hairpin, Point(20, 0), Point(20, 20), out));
  EXPECT_EQ(out.SpanCount(), 1);
  EXPECT_EQ(out.spans[0].dir, ACW);
  ExpectEnds(out, Point(20, 0), Point(20, 20));
  ExpectSound(out);
}

TEST_F(TrimTest, ASectionOfAClosedContourMayRunOverTheSeam) {
  KurveEx out;
  EXPECT_TRUE(Section(square, Point(0, 5), Point(5, 0), out));
  ExpectEnds(out, Point(0, 5), Point(5, 0));
  EXPECT_NEAR(out.perim, 10, 1e-9);
  EXPECT_TRUE(Section(square, Point(7, 0), Point(3, 0), out)) << "nearly all the way round";
  EXPECT_NEAR(out.perim, 36, 1e-9);
  ExpectEnds(out, Point(7, 0), Point(3, 0));
  EXPECT_TRUE(Section(square, Point(3, 0), Point(7, 0), out));
  EXPECT_NEAR(out.perim, 4, 1e-9);
}

TEST_F(TrimTest, AnOpenContourHasNoSectionBackwardsButOnOneSpan) {
  KurveEx out = square;
  EXPECT_FALSE(Section(hairpin, Point(5, 20), Point(5, 0), out));
  EXPECT_TRUE(out == square) << "nothing is given";
  EXPECT_TRUE(Section(hairpin, Point(15, 0), Point(5, 0), out));
  EXPECT_EQ(out.SpanCount(), 1);
  ExpectEnds(out, Point(15, 0), Point(5, 0));
  EXPECT_FALSE(Section(KurveEx(), Point(0, 0), Point(1, 1), out));
}

TEST_F(TrimTest, ASectionOfOnePointIsANullSpan) {
  KurveEx out;
  EXPECT_TRUE(Section(hairpin, Point(5, 0), Point(5, 0), out));
  EXPECT_EQ(out.SpanCount(), 1);
  EXPECT_TRUE(out.spans[0].NullSpan);
  // On two spans, but at their common vertex: both parts are null.
  EXPECT_TRUE(Section(Polyline({{0, 0}, {5, 0}, {9, 0}}), Point(5, 0), Point(5.004, 0), out));
  EXPECT_LT(out.perim, 0.005);
}

TEST_F(TrimTest, ASectionIsTakenInReadingOrder) {
  KurveEx out;
  EXPECT_TRUE(Section(Reversed(hairpin), Point(5, 20), Point(5, 0), out));
  ExpectEnds(out, Point(5, 20), Point(5, 0));
  EXPECT_FALSE(out.reversed);
  EXPECT_EQ(out.spans[1].dir, CW);
  ExpectSound(out);
}

using Records = std::vector<ExtensionRecord>;

TEST_F(TrimTest, ExtendLengthensStretchesAndClosesTheGaps) {
  const KurveEx row = Polyline({{0, 0}, {10, 0}, {10, 10}, {20, 10}});
  KurveEx out;
  // The upright gets 2 below and 3 above.
  EXPECT_TRUE(Extend(Records{{1, 2, 2, 3}}, row, out));
  ASSERT_EQ(out.SpanCount(), 7);
  ExpectEnds(out, Point(0, 0), Point(20, 10));
  EXPECT_TRUE(out.spans[1].p1 == Point(10, -2)) << "a line to where the stretch begins now";
  EXPECT_EQ(out.spans[1].ID, UNMARKED);
  EXPECT_TRUE(out.spans[4].p1 == Point(10, 13));
  EXPECT_TRUE(out.spans[5].p1 == Point(10, 10));
  EXPECT_NEAR(out.perim, 30 + 2 * 2 + 2 * 3, 1e-9);
  ExpectSound(out);
}

TEST_F(TrimTest, ExtendAtTheEndsOfAContourNeedsNoGaps) {
  KurveEx out;
  EXPECT_TRUE(Extend(Records{{0, 3, 4, 5}}, hairpin, out));
  ExpectEnds(out, Point(-4, 0), Point(-5, 20));
  EXPECT_EQ(out.SpanCount(), 5);
  EXPECT_TRUE(Extend(Records{{0, 1, 0, 0}, {1, 3, 1e-7, 0}}, hairpin, out));
  EXPECT_TRUE(out == hairpin) << "nothing to add";
}

TEST_F(TrimTest, ExtendSortsItsRecords) {
  const KurveEx row = Polyline({{0, 0}, {10, 0}, {10, 10}, {20, 10}});
  KurveEx sorted;
  KurveEx unsorted;
  EXPECT_TRUE(Extend(Records{{0, 1, 1, 0}, {2, 3, 0, 2}}, row, sorted));
  EXPECT_TRUE(Extend(Records{{2, 3, 0, 2}, {0, 1, 1, 0}}, row, unsorted));
  EXPECT_TRUE(sorted == unsorted);
  ExpectEnds(sorted, Point(-1, 0), Point(22, 10));
}

TEST_F(TrimTest, ANegativeExtensionLeavesNothingOfItsStretch) {
  const KurveEx row = Polyline({{0, 0}, {10, 0}, {10, 10}, {20, 10}});
  KurveEx out;
  EXPECT_TRUE(Extend(Records{{1, 2, -1, 0}}, row, out));
  ASSERT_EQ(out.SpanCount(), 3);
  EXPECT_TRUE(out.spans[1].p0 == Point(10, 0)) << "the gap is closed";
  EXPECT_TRUE(out.spans[1].p1 == Point(10, 10));
  EXPECT_EQ(out.spans[1].ID, UNMARKED);
  EXPECT_TRUE(Extend(Records{{0, 3, 0, -2}}, row, out));
  EXPECT_EQ(out.SpanCount(), 0);
}

TEST_F(TrimTest, PiecesOfNullSpansAreDropped) {
  KurveEx k = Polyline({{0, 0}, {5, 0}});
  k.AddNullSpan();
  k.Add(9, 0);
  KurveEx out;
  EXPECT_TRUE(Extend(Records{{1, 2, 0, 0}}, k, out));
  EXPECT_EQ(out.SpanCount(), 2);
}

TEST_F(TrimTest, ExtendChecksItsRecords) {
  KurveEx out;
  for (const Records& records :
       {Records{}, Records{{1, 1, 1, 1}}, Records{{2, 1, 1, 1}}, Records{{0, 4, 1, 1}},
        Records{{0, 1, 1, 1}, {3, 2, 1, 1}}, Records{{0, 1ull << 63, 1, 1}}}) {
    out.Clear();
    EXPECT_FALSE(Extend(records, hairpin, out));
    EXPECT_TRUE(out == hairpin) << "a copy";
  }
  EXPECT_FALSE(Extend(Records{{0, 1, 1, 1}}, KurveEx(), out));
  EXPECT_EQ(out.SpanCount(), 0);
}

TEST_F(TrimTest, ExtendKeepsTheWordsOfVertices) {
  KurveEx row = Polyline({{0, 0}, {10, 0}, {10, 10}, {20, 10}});
  for (int i = 0; i <= 3; ++i) row.AddIndex0(i, 100 + static_cast<IndexWord>(i));
  KurveEx out;
  EXPECT_TRUE(Extend(Records{{1, 2, 0, 3}}, row, out));
  EXPECT_EQ(out.GetIndex0(0), 100U);
  EXPECT_EQ(out.GetIndex0(1), 101U);
  EXPECT_EQ(out.GetIndex0(2), 102U);
  EXPECT_EQ(out.GetIndex0(out.SpanCount()), 103U);
}

TEST_F(TrimTest, ExtendReadsReversedContours) {
  KurveEx out;
  EXPECT_TRUE(Extend(Records{{0, 1, 4, 0}}, Reversed(hairpin), out));
  ExpectEnds(out, Point(-4, 20), Point(0, 0));
  EXPECT_FALSE(out.reversed);
  ExpectSound(out);
}

TEST_F(TrimTest, AnOpenContourIsTrimmedAtTheEndThatIsNamed) {
  KurveEx out = square;
  EXPECT_TRUE(ExtendAt(hairpin, Point(0, 0.001), 5, 1, out));
  ExpectEnds(out, Point(5, 0), Point(0, 20));
  EXPECT_TRUE(ExtendAt(hairpin, Point(0, 20), 5, 1, out));
  ExpectEnds(out, Point(0, 0), Point(5, 20));
  EXPECT_TRUE(ExtendAt(Reversed(hairpin), Point(0, 20), 5, 1, out));
  ExpectEnds(out, Point(5, 20), Point(0, 0));
  out = square;
  EXPECT_FALSE(ExtendAt(hairpin, Point(5, 0), 5, 1, out)) << "on the way";
  EXPECT_FALSE(ExtendAt(hairpin, Point(0, 0), whole + 1, 1, out)) << "too long";
  EXPECT_FALSE(ExtendAt(KurveEx(), Point(0, 0), 0, 1, out));
  EXPECT_TRUE(out == square) << "nothing is given";
}

TEST_F(TrimTest, AClosedContourIsOpenedAtThePoint) {
  KurveEx out;
  EXPECT_TRUE(ExtendAt(square, Point(5, -1), 8, 1, out));
  ExpectEnds(out, Point(10, 3), Point(5, 0));
  EXPECT_NEAR(out.perim, 32, 1e-9);
  ExpectSound(out);
  EXPECT_TRUE(ExtendAt(square, Point(5, 0), 8, -1, out));
  ExpectEnds(out, Point(5, 0), Point(0, 3));
  EXPECT_TRUE(ExtendAt(Reversed(square), Point(5, 0), 8, -1, out));
  EXPECT_TRUE(out.reversed);
  EXPECT_TRUE(ExtendAt(square, Point(5, 0), 0, 1, out));
  EXPECT_NEAR(out.perim, 40, 1e-9);
  out = hairpin;
  EXPECT_FALSE(ExtendAt(square, Point(5, 0), 8, 0, out)) << "no direction";
  EXPECT_FALSE(ExtendAt(square, Point(5, 0), 41, 1, out)) << "too long";
  EXPECT_FALSE(ExtendAt(square, Point(5, 0), -1, 1, out)) << "negative";
  EXPECT_TRUE(out == hairpin);
}

}  // namespace
}  // namespace geometry

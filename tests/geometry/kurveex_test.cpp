#include "geometry/kurveex.h"

#include <gtest/gtest.h>

#include <cmath>

#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kExactTolerance;
using testing::kNaN;
using testing::kPi;
using testing::Random;
using testing::ThrownError;
using testing::ThrownText;
using testing::UnitsGuard;

const std::wstring kReplace = L"Kurve::Replace - vertexNumber out of range";
const std::wstring kAddIndex0 = L"KurveEx::AddIndex0 - vertexNumber out of range";
const std::wstring kAddIndex1 = L"KurveEx::AddIndex1 - vertexNumber out of range";
const std::wstring kGetIndex = L"KurveEx::GetIndex - vertexNumber out of range";

/// Anticlockwise from (0, 0), with IDs 1 to 4.
KurveEx Square(double side) {
  KurveEx k;
  k.Start(Point(0, 0));
  std::uint32_t ID = 1;
  for (const Point& p : {Point(side, 0), Point(side, side), Point(0, side), Point(0, 0)}) {
    k.Add(spVertex(LINEAR, p, Point(0, 0), ID++));
  }
  return k;
}

/// A line, a quarter anticlockwise, a line, a half clockwise.
KurveEx Mixed() {
  KurveEx k;
  k.Start(Point(0, 0));
  k.Add(2, 0);
  k.Add(ACW, Point(3, 1), Point(2, 1));
  k.Add(3, 2);
  k.Add(CW, Point(3, 4), Point(3, 3));
  return k;
}

void ExpectTrueTotals(const KurveEx& k) {
  double perim = 0;
  double area = 0;
  Span span;
  for (int i = 1; k.Get(i, span); ++i) {
    perim += span.length;
    area += span.Area();
  }
  EXPECT_NEAR(k.perim, perim, 1e-9);
  EXPECT_NEAR(k.area, area, 1e-9);
}

TEST(KurveEx, BeginsEmpty) {
  const KurveEx k;
  EXPECT_EQ(k.SpanCount(), 0);
  EXPECT_FALSE(k.start.ok);
  EXPECT_EQ(k.perim, 0);
  EXPECT_EQ(k.flag, 1);
  EXPECT_FALSE(k.Start().ok);
  EXPECT_EQ(k.End().x, INVALID_POINT.x);
  EXPECT_FALSE(k.Closed());
  EXPECT_EQ(k.Direction(), 0);
}

TEST(KurveEx, ClearEmptiesEverything) {
  KurveEx k = Square(1);
  k.AddIndex0(0, 5);
  k.AddIndex1(0, 6);
  k.Reverse(true);
  k.flag = 0;
  k.Clear();
  EXPECT_EQ(k.SpanCount(), 0);
  EXPECT_FALSE(k.reversed);
  EXPECT_EQ(k.perim, 0);
  EXPECT_EQ(k.area, 0);
  EXPECT_EQ(k.index0, 0u);
  EXPECT_EQ(k.index1, 0u);
  EXPECT_FALSE(k.start.ok);
  EXPECT_EQ(k.flag, 1);
}

TEST(KurveEx, StartClearsAndIsBothEnds) {
  KurveEx k = Square(1);
  k.Start(Point(7, 8));
  EXPECT_EQ(k.SpanCount(), 0);
  EXPECT_TRUE(k.Start() == Point(7, 8));
  EXPECT_TRUE(k.Start().ok);
  EXPECT_TRUE(k.End() == Point(7, 8));
}

TEST(KurveEx, KeepsRunningTotals) {
  const KurveEx k = Square(3);
  const KurveEx mixed = Mixed();
  EXPECT_EQ(k.perim, 12);
  EXPECT_EQ(k.area, -9);
  EXPECT_DOUBLE_EQ(mixed.perim, 2 + kPi / 2 + 1 + kPi);
  ExpectTrueTotals(mixed);
}

TEST(KurveEx, ASpanBeginsWhereTheContourEnds) {
  KurveEx k;
  EXPECT_TRUE(k.Add(Span(Point(1, 1), Point(2, 2), 7, 8, 9)));
  EXPECT_TRUE(k.start == Point(1, 1));
  EXPECT_TRUE(k.start.ok);
  EXPECT_TRUE(k.Add(Span(Point(50, 50), Point(5, 2))));
  EXPECT_TRUE(k.spans[1].p0 == Point(2, 2));
  EXPECT_EQ(k.spans[1].length, 3);
  EXPECT_EQ(k.spans[0].ID, 7u);
  EXPECT_EQ(k.GetIndex0(1), 8u);
  EXPECT_EQ(k.GetIndex1(1), 9u);
}

TEST(KurveEx, TheFirstSpanKeepsItsStartBesideAGivenOne) {
  KurveEx k;
  k.Start(Point(0, 0));
  k.Add(Span(Point(1, 0), Point(2, 0)));
  EXPECT_TRUE(k.start == Point(0, 0));
  EXPECT_TRUE(k.spans[0].p0 == Point(1, 0));
  KurveEx fromVertex;
  fromVertex.Start(Point(0, 0));
  fromVertex.Add(LINEAR, Point(2, 0), Point(0, 0));
  EXPECT_TRUE(fromVertex.spans[0].p0 == Point(0, 0));
}

TEST(KurveEx, CentresMoveOntoTheBisector) {
  KurveEx k;
  k.Start(Point(2, 0));
  Span arc(ACW, Point(2, 0), Point(0, 2), Point(0, 0));
  arc.pc = Point(0.5, 0.1);
  EXPECT_TRUE(k.Add(arc));
  EXPECT_NEAR(k.spans[0].pc.x, 0.3, 1e-12);
  EXPECT_NEAR(k.spans[0].pc.y, 0.3, 1e-12);
  EXPECT_DOUBLE_EQ(Dist(k.spans[0].pc, Point(2, 0)), k.spans[0].radius);
}

TEST(KurveEx, NullSpansAreRefusedOnRequest) {
  KurveEx k = Square(1);
  EXPECT_FALSE(k.Add(LINEAR, Point(0, 1e-6), Point(0, 0), false));
  EXPECT_FALSE(k.Add(Span(ACW, Point(0, 0), Point(0, 0), Point(1, 0)), false));
  EXPECT_EQ(k.SpanCount(), 4);
  EXPECT_TRUE(k.Add(0, 1e-6));
  EXPECT_EQ(k.SpanCount(), 5);
  EXPECT_TRUE(k.spans[4].NullSpan);
}

TEST(KurveEx, VerticesStartItWhenNothingDid) {
  KurveEx k;
  EXPECT_TRUE(k.Add(ACW, Point(1, 2), Point(0, 0)));
  EXPECT_TRUE(k.start == Point(1, 2));
  EXPECT_EQ(k.SpanCount(), 0);
  EXPECT_TRUE(k.Add(spVertex(LINEAR, Point(3, 2), Point(0, 0), 77)));
  EXPECT_EQ(k.spans[0].ID, 77u);
}

TEST(KurveEx, AVertexWithAWrongCentreIsRefused) {
  KurveEx k = Square(1);
  EXPECT_EQ(ThrownText([&] { k.Add(ACW, Point(5, 5), Point(1, 0)); }),
            L"Invalid Geometry - Radii mismatch - SetProperties");
  EXPECT_EQ(k.SpanCount(), 4);
}

TEST(KurveEx, NullSpansOnRequestNeedAStart) {
  KurveEx k;
  EXPECT_EQ(ThrownText([&] { k.AddNullSpan(); }), L"Cannot add Nullspan if no start");
  k.Start(Point(2, 3));
  k.AddNullSpan();
  EXPECT_EQ(k.SpanCount(), 1);
  EXPECT_TRUE(k.spans[0].NullSpan);
  EXPECT_TRUE(k.End() == Point(2, 3));
}

TEST(KurveEx, AppendsAnotherInReadingOrder) {
  KurveEx k = Square(1);
  KurveEx tail;
  tail.Start(Point(5, 5));
  tail.Add(1, 5);
  tail.Add(0, 0);
  tail.Reverse(true);
  k.Add(tail);
  EXPECT_EQ(k.SpanCount(), 6);
  EXPECT_TRUE(k.spans[4].p1 == Point(1, 5));
  EXPECT_TRUE(k.spans[5].p1 == Point(5, 5));
  ExpectTrueTotals(k);
  k.Add(k);
  EXPECT_EQ(k.SpanCount(), 12);
}

TEST(KurveEx, AppendingDropsNullSpansOnRequest) {
  KurveEx k = Square(1);
  KurveEx tail;
  tail.Start(Point(0, 0));
  tail.AddNullSpan();
  tail.Add(0, 5);
  k.Add(tail, false);
  EXPECT_EQ(k.SpanCount(), 5);
}

TEST(KurveEx, AppendingCarriesTheWordsOfTheJoint) {
  KurveEx k = Square(1);
  KurveEx tail;
  tail.Start(Point(0, 0));
  tail.Add(5, 5);
  tail.AddIndex0(0, 11);
  k.AddIndex1(4, 12);
  k.Add(tail);
  EXPECT_EQ(k.GetIndex0(4), 11u);
  EXPECT_EQ(k.GetIndex1(4), 12u) << "a word of zero writes nothing";
  KurveEx empty;
  empty.Add(tail);
  EXPECT_EQ(empty.index0, 11u);
  EXPECT_EQ(empty.GetIndex0(1), 0u);
}

TEST(KurveEx, AppendingRefusesToLoseWords) {
  KurveEx k = Square(1);
  KurveEx tail;
  tail.Start(Point(0, 0));
  tail.Add(5, 5);
  tail.AddIndex0(0, 11);
  k.AddIndex0(4, 12);
  EXPECT_EQ(ThrownText([&] { k.Add(tail); }), L"Adding 2 Kurves - looses Index0");
  k.AddIndex0(4, 11);
  tail.AddIndex1(0, 13);
  k.AddIndex1(4, 14);
  EXPECT_EQ(ThrownText([&] { k.Add(tail); }), L"Adding 2 Kurves - looses Index1");
  EXPECT_EQ(k.SpanCount(), 4);
  k.AddIndex1(4, 13);
  EXPECT_NO_THROW(k.Add(tail)) << "equal words are no loss";
}

TEST(KurveEx, ASpanAtTheStartMovesTheFormerStartToItsEnd) {
  KurveEx k = Square(1);
  k.AddIndex0(0, 9);
  k.AddIndex0(1, 10);
  EXPECT_TRUE(k.AddAtStart(Span(Point(-5, 0), Point(0.5, 0), 99)));
  EXPECT_EQ(k.SpanCount(), 5);
  EXPECT_TRUE(k.start == Point(-5, 0));
  EXPECT_TRUE(k.spans[1].p0 == Point(0.5, 0));
  EXPECT_EQ(k.spans[0].ID, 99u);
  EXPECT_EQ(k.spans[1].ID, 1u);
  EXPECT_EQ(k.GetIndex0(0), 0u);
  EXPECT_EQ(k.GetIndex0(1), 9u);
  EXPECT_EQ(k.GetIndex0(2), 10u);
  ExpectTrueTotals(k);
}

TEST(KurveEx, ASpanAtTheStartLeavesTheNullSpansAfterIt) {
  KurveEx k = Square(1);
  k.AddNullSpan();
  EXPECT_TRUE(k.AddAtStart(Span(Point(-5, 0), Point(0, 0)), false));
  EXPECT_EQ(k.SpanCount(), 6);
  EXPECT_FALSE(k.AddAtStart(Span(Point(-5, 0), Point(-5, 0)), false));
  EXPECT_EQ(k.SpanCount(), 6);
}

TEST(KurveEx, ASpanAtTheStartOfNothingIsTheFirst) {
  KurveEx k;
  EXPECT_TRUE(k.AddAtStart(Span(Point(1, 1), Point(2, 2))));
  EXPECT_EQ(k.SpanCount(), 1);
  EXPECT_FALSE(k.AddAtStart(Span(Point(1, 1), Point(1, 1)), false));
  EXPECT_EQ(k.SpanCount(), 1);
  EXPECT_TRUE(k.AddAtStart(Span(Point(1, 1), Point(1, 1)), true));
  EXPECT_EQ(k.SpanCount(), 2);
}

TEST(KurveEx, IndexWordsBelongToVertices) {
  KurveEx k = Square(1);
  for (int v = 0; v <= 4; ++v) {
    k.AddIndex0(v, static_cast<IndexWord>(v) + 100);
    k.AddIndex1(v, static_cast<IndexWord>(v) + 200);
  }
  EXPECT_EQ(k.index0, 100u);
  EXPECT_EQ(k.spans[3].index0, 104u);
  EXPECT_EQ(k.spans[3].index1, 204u);
  k.Reverse(true);
  EXPECT_EQ(k.GetIndex0(0), 104u);
  EXPECT_EQ(k.GetIndex1(4), 200u);
  k.AddIndex0(0, 7);
  EXPECT_EQ(k.spans[3].index0, 7u);
  Span span;
  k.Get(1, span);
  EXPECT_EQ(span.index0, 103u) << "the word of the vertex where the reversed span ends";
  k.Get(4, span);
  EXPECT_EQ(span.index0, 100u);
  EXPECT_EQ(span.index1, 200u);
}

TEST(KurveEx, IndexWordsOutOfRangeAreRefused) {
  KurveEx k = Square(1);
  for (const int bad : {-1, 5}) {
    EXPECT_EQ(ThrownText([&] { k.AddIndex0(bad, 1); }), kAddIndex0);
    EXPECT_EQ(ThrownText([&] { k.AddIndex1(bad, 1); }), kAddIndex1);
    EXPECT_EQ(ThrownText([&] { k.GetIndex0(bad); }), kGetIndex);
    EXPECT_EQ(ThrownText([&] { k.GetIndex1(bad); }), kGetIndex);
  }
}

TEST(KurveEx, NullObjectsAreOutOfRange) {
  EXPECT_EQ(ThrownText([] { AddIndex0(nullptr, 0, 1); }), kAddIndex0);
  EXPECT_EQ(ThrownText([] { AddIndex1(nullptr, 0, 1); }), kAddIndex1);
  EXPECT_EQ(ThrownText([] { GetIndex0(nullptr, 0); }), kGetIndex);
  EXPECT_EQ(ThrownText([] { GetIndex1(nullptr, 0); }), kGetIndex);
  KurveEx k = Square(1);
  AddIndex0(&k, 4, 5);
  AddIndex1(&k, 4, 6);
  EXPECT_EQ(GetIndex0(&k, 4), 5u);
  EXPECT_EQ(GetIndex1(&k, 4), 6u);
}

TEST(KurveEx, ReplaceTakesTheLastVertexOrTheFirst) {
  KurveEx k = Mixed();
  k.Replace(4, LINEAR, Point(9, 2), Point(0, 0), 55);
  EXPECT_EQ(k.spans[3].dir, LINEAR);
  EXPECT_EQ(k.spans[3].ID, 55u);
  EXPECT_EQ(k.spans[3].length, 6);
  k.Replace(0, ACW, Point(-3, 0), Point(1, 1), 66);
  EXPECT_TRUE(k.start == Point(-3, 0));
  EXPECT_EQ(k.spans[0].length, 5);
  EXPECT_EQ(k.spans[0].dir, LINEAR) << "the point alone";
  EXPECT_EQ(k.spans[0].ID, UNMARKED);
  ExpectTrueTotals(k);
  KurveEx marked = Square(1);
  marked.spans[0].ID = INTERSECTION | 7;
  marked.Replace(0, LINEAR, Point(0.5, 0), Point(0, 0), 66);
  EXPECT_EQ(marked.spans[0].ID, INTERSECTION | 7);
}

TEST(KurveEx, ReplaceRefusesMiddleVerticesInTheWordsOfTheCompactContour) {
  KurveEx k = Square(1);
  for (const int bad : {1, 3, 5, -1}) {
    EXPECT_EQ(ThrownText([&] { k.Replace(bad, LINEAR, Point(9, 9), Point(0, 0)); }), kReplace);
  }
  k.Reverse(true);
  EXPECT_EQ(ThrownText([&] { k.Replace(0, LINEAR, Point(9, 9), Point(0, 0)); }),
            L"KurveEx::Replace reversed - not coded");
}

TEST(KurveEx, ReplaceThatCannotBeDoneChangesNothing) {
  KurveEx k = Mixed();
  const std::wstring mismatch = L"Invalid Geometry - Radii mismatch - SetProperties";
  EXPECT_EQ(ThrownText([&] { k.Replace(4, CW, Point(9, 9), Point(3, 3)); }), mismatch);
  EXPECT_TRUE(k == Mixed());
  ExpectTrueTotals(k);
  KurveEx arc;
  arc.Start(Point(1, 0));
  arc.Add(ACW, Point(0, 1), Point(0, 0));
  EXPECT_EQ(ThrownText([&] { arc.Replace(0, LINEAR, Point(2, 0), Point(0, 0)); }), mismatch);
  EXPECT_TRUE(arc.start == Point(1, 0));
  ExpectTrueTotals(arc);
  KurveEx started;
  started.Start(Point(1, 1));
  started.Replace(0, LINEAR, Point(2, 2), Point(0, 0));
  EXPECT_TRUE(started.Start() == Point(2, 2));
}

TEST(KurveEx, RemovingEndsKeepsTotalsAndStart) {
  KurveEx k = Mixed();
  k.RemoveFirst();
  EXPECT_TRUE(k.start == Point(0, 0)) << "not moved";
  EXPECT_TRUE(k.Start() == Point(2, 0));
  EXPECT_EQ(k.SpanCount(), 3);
  ExpectTrueTotals(k);
  k.RemoveLast();
  EXPECT_EQ(k.SpanCount(), 2);
  ExpectTrueTotals(k);
  k.Reverse(true);
  k.RemoveLast();
  k.Add(8, 8);
  ExpectTrueTotals(k);
  KurveEx empty;
  empty.RemoveFirst();
  empty.RemoveLast();
  EXPECT_EQ(empty.perim, 0);
}

TEST(KurveEx, SpansAreReadFromOneOrFromZero) {
  const KurveEx k = Mixed();
  Span span;
  EXPECT_TRUE(k.Get(1, span));
  EXPECT_TRUE(span == k.spans[0]);
  EXPECT_TRUE(k.Get(std::size_t{3}, span));
  EXPECT_TRUE(span == k.spans[3]);
  EXPECT_FALSE(k.Get(0, span));
  EXPECT_FALSE(k.Get(-1, span));
  EXPECT_FALSE(k.Get(5, span));
  EXPECT_FALSE(k.Get(std::size_t{4}, span));
}

TEST(KurveEx, VerticesAreReadFromTheStart) {
  KurveEx k = Mixed();
  spVertex v;
  EXPECT_TRUE(k.Get(0, v));
  EXPECT_EQ(v.type, LINEAR);
  EXPECT_EQ(v.ID, 0u);
  EXPECT_TRUE(v.p == Point(0, 0));
  EXPECT_TRUE(k.Get(2, v));
  EXPECT_TRUE(v == spVertex(ACW, Point(3, 1), Point(2, 1)));
  EXPECT_EQ(v.ID, UNMARKED);
  EXPECT_FALSE(k.Get(5, v));
  EXPECT_FALSE(k.Get(-1, v));
  EXPECT_FALSE(KurveEx().Get(0, v));
  k.Reverse(true);
  EXPECT_TRUE(k.Get(0, v));
  EXPECT_TRUE(v.p == Point(3, 4));
  EXPECT_TRUE(v.pc == Point(0, 0));
  EXPECT_TRUE(k.Get(1, v));
  EXPECT_TRUE(v == spVertex(ACW, Point(3, 2), Point(3, 3)));
  EXPECT_TRUE(k.Get(3, v));
  EXPECT_TRUE(v == spVertex(CW, Point(2, 0), Point(2, 1)));
}

TEST(KurveEx, EndsFollowTheReading) {
  KurveEx k = Mixed();
  EXPECT_TRUE(k.Start() == Point(0, 0));
  EXPECT_TRUE(k.End() == Point(3, 4));
  k.Reverse(true);
  EXPECT_TRUE(k.Start() == Point(3, 4));
  EXPECT_TRUE(k.End() == Point(0, 0));
}

TEST(KurveEx, NonNullSpansAreFoundFromBothEnds) {
  KurveEx k;
  k.Start(Point(1, 1));
  k.AddNullSpan();
  Span span;
  EXPECT_FALSE(k.FirstNonNull(span));
  EXPECT_FALSE(k.LastNonNull(span));
  EXPECT_FALSE(k.FirstNonNullPoint().ok);
  EXPECT_FALSE(k.LastNonNullPoint().ok);
  k.Add(2, 1);
  k.Add(3, 4);
  k.AddNullSpan();
  EXPECT_TRUE(k.FirstNonNull(span));
  EXPECT_TRUE(span.p1 == Point(2, 1));
  EXPECT_TRUE(k.LastNonNull(span));
  EXPECT_TRUE(span.p0 == Point(2, 1));
  EXPECT_TRUE(k.FirstNonNullPoint() == Point(1, 1));
  EXPECT_TRUE(k.LastNonNullPoint() == Point(3, 4));
  EXPECT_TRUE(k.FirstNonNullSpan().p1 == Point(2, 1));
  k.Reverse(true);
  EXPECT_TRUE(k.FirstNonNullSpan().p0 == Point(3, 4));
  EXPECT_TRUE(k.LastNonNullSpan().p1 == Point(1, 1));
}

TEST(KurveEx, SearchesWithoutResultSayWhy) {
  KurveEx k;
  EXPECT_EQ(ThrownError([&] { k.FirstNonNullSpan(); }), "Kurve ist empty.");
  EXPECT_EQ(ThrownError([&] { k.LastNonNullSpan(); }), "Kurve ist empty.");
  k.Start(Point(1, 1));
  k.AddNullSpan();
  EXPECT_EQ(ThrownError([&] { k.FirstNonNullSpan(); }), "Kurve has no non-null spans");
  EXPECT_EQ(ThrownError([&] { k.LastNonNullSpan(); }), "Kurve has no non-null spans");
}

TEST(KurveEx, ClosesWithinTenTolerances) {
  KurveEx k;
  k.Start(Point(0, 0));
  k.Add(1, 0);
  k.Add(1, 1);
  k.Add(0, 4e-5);
  EXPECT_FALSE(k.Start() == k.End());
  EXPECT_TRUE(k.Closed());
  k.Replace(3, LINEAR, Point(0, 6e-5), Point(0, 0));
  EXPECT_FALSE(k.Closed());
}

TEST(KurveEx, DirectionIsTheSignOfTheArea) {
  KurveEx k = Square(1);
  EXPECT_EQ(k.Direction(), 1);
  k.Reverse(true);
  EXPECT_EQ(k.Direction(), -1);
  EXPECT_EQ(Mixed().Direction(), 0);
}

TEST(KurveEx, ReversingFlipsTheAreaAndNotThePerimeter) {
  KurveEx k = Square(2);
  EXPECT_TRUE(k.Reverse(true)) << "the new value";
  EXPECT_EQ(k.area, 4);
  EXPECT_EQ(k.perim, 8);
  EXPECT_TRUE(k.Reverse(true));
  EXPECT_EQ(k.area, 4) << "no change, no flip";
  EXPECT_FALSE(k.Reverse(false));
  EXPECT_EQ(k.area, -4);
}

TEST(KurveEx, AReversedCopyReadsForwards) {
  KurveEx k = Mixed();
  k.AddIndex0(0, 3);
  k.AddIndex1(4, 4);
  KurveEx flagged = k;
  flagged.Reverse(true);
  const KurveEx copy = k.ReversedCopy();
  EXPECT_FALSE(copy.reversed);
  EXPECT_TRUE(copy == flagged);
  EXPECT_EQ(copy.GetIndex0(4), 3u);
  EXPECT_EQ(copy.GetIndex1(0), 4u);
  EXPECT_NEAR(copy.area, flagged.area, 1e-12);
  EXPECT_TRUE(copy.ReversedCopy() == k);
  EXPECT_TRUE(flagged.ReversedCopy() == k);
  EXPECT_EQ(KurveEx().ReversedCopy().SpanCount(), 0);
}

TEST(KurveEx, ScaleMultipliesBothTotalsOnce) {
  KurveEx k = Square(1);
  k.Reverse(true);
  k.Scale(2);
  EXPECT_EQ(k.area, 2) << "not 4";
  EXPECT_EQ(k.perim, 8);
  EXPECT_TRUE(k.spans[1].p1 == Point(2, 2));
  EXPECT_EQ(k.spans[1].length, 2);
  KurveEx away;
  away.Start(Point(3, 3));
  away.Scale(2);
  EXPECT_TRUE(away.start == Point(6, 6));
}

TEST(KurveEx, TransformLeavesTheTotals) {
  KurveEx k = Mixed();
  const double perim = k.perim;
  const double area = k.area;
  Matrix m;
  m.Scale(-2, 2, 1);
  m.Translate(1, 1);
  k.Transform(m);
  EXPECT_TRUE(k.start == Point(1, 1));
  EXPECT_EQ(k.spans[1].dir, CW);
  EXPECT_TRUE(k.spans[1].p1 == Point(-5, 3));
  EXPECT_EQ(k.perim, perim);
  EXPECT_EQ(k.area, area);
  KurveEx empty;
  empty.Transform(m);
  EXPECT_FALSE(empty.start.ok);
}

TEST(KurveEx, TransformThenInverseIsTheContourAgain) {
  Random random(831);
  for (int i = 0; i < 200; ++i) {
    KurveEx k = Mixed();
    Matrix m;
    m.Rotate(random.Between(-3, 3), 3);
    m.Scale(random.Below(2) == 0 ? 0.7 : -0.7, 0.7, 1);
    m.Translate(random.Between(-9, 9), random.Between(-9, 9));
    k.Transform(m);
    k.Transform(m.Inverse());
    ASSERT_TRUE(k == Mixed());
  }
}

TEST(KurveEx, ATransformThatCannotBeDoneChangesNothing) {
  const std::wstring kRadii = L"Invalid Geometry - Radii mismatch - SetProperties";
  KurveEx k = Mixed();
  Matrix stretch;
  stretch.Scale(1, 2, 1);
  stretch.Translate(5, 0);
  EXPECT_EQ(ThrownText([&] { k.Transform(stretch); }), kRadii);
  EXPECT_TRUE(k == Mixed());
  EXPECT_TRUE(k.start == Point(0, 0));
  k.spans[1].pc.x += 0.000004;  // within what the radii may differ by, and beyond it ten times as large
  const Point end = k.spans[0].p1;
  EXPECT_EQ(ThrownText([&] { k.Scale(10); }), kRadii);
  EXPECT_TRUE(k.spans[0].p1 == end);
  EXPECT_TRUE(k.start == Point(0, 0));
  EXPECT_EQ(k.perim, Mixed().perim);
}

TEST(KurveEx, EqualityReadsSpanBySpan) {
  KurveEx k = Square(1);
  EXPECT_TRUE(k == Square(1));
  EXPECT_FALSE(k == Mixed());
  k.RemoveLast();
  EXPECT_FALSE(k == Square(1));
  k.Add(0, 0.5);
  EXPECT_FALSE(k == Square(1));
}

TEST(KurveEx, AFullCircleIsArcsAboutOneCentre) {
  const KurveEx circle(Point(1, 2), 3, CW);
  EXPECT_EQ(circle.SpanCount(), 2);
  EXPECT_TRUE(circle.start == Point(4, 2));
  EXPECT_TRUE(circle.spans[0].p1 == Point(-2, 2));
  EXPECT_EQ(circle.spans[0].dir, CW);
  EXPECT_EQ(circle.spans[1].ID, 0x80000000u);
  EXPECT_TRUE(circle.IsFullCircle());
  EXPECT_NEAR(circle.area, 9 * kPi, 1e-12);
  EXPECT_FALSE(Square(1).IsFullCircle());
  KurveEx half(Point(1, 2), 3, ACW);
  half.RemoveLast();
  EXPECT_FALSE(half.IsFullCircle());
  half.AddNullSpan();
  half.Add(ACW, Point(4, 2), Point(1, 2));
  EXPECT_TRUE(half.IsFullCircle()) << "null spans do not count";
  KurveEx lens;
  lens.Start(Point(0, 1));
  lens.Add(ACW, Point(0, -1), Point(1, 0));
  lens.Add(ACW, Point(0, 1), Point(-1, 0));
  EXPECT_FALSE(lens.IsFullCircle());
  KurveEx nothing;
  nothing.Start(Point(0, 0));
  nothing.AddNullSpan();
  EXPECT_FALSE(nothing.IsFullCircle());
}

TEST(KurveEx, BoxIsTheUnionOfTheSpans) {
  const Box box = Mixed().Box();
  EXPECT_NEAR(box.min.x, 0, 1e-8);
  EXPECT_NEAR(box.min.y, 0, 1e-8);
  EXPECT_NEAR(box.max.x, 3, 1e-8);
  EXPECT_NEAR(box.max.y, 4, 1e-8);
  EXPECT_NEAR(KurveEx(Point(1, 2), 3, CW).Box().max.y, 5, 1e-8);
  EXPECT_EQ(KurveEx().Box().min.x, 1e61);
}

TEST(KurveEx, IdentifyNumbersStorageAndNothingInReadingOrder) {
  KurveEx k = Square(1);
  k.Identify(10, 5);
  for (std::uint32_t i = 0; i < 4; ++i) EXPECT_EQ(k.spans[i].ID, 10 + 5 * i);
  k.Identify(90, 1, true);
  for (std::uint32_t i = 0; i < 4; ++i) EXPECT_EQ(k.spans[i].ID, 10 + 5 * i);
}

TEST(KurveEx, LargestGapBetweenIDs) {
  KurveEx k = Square(1);
  EXPECT_EQ(k.LargestIDGap(), 0u) << "0, 1, 2, 3, 4";
  k.spans[1].ID |= ROLL_AROUND;
  EXPECT_EQ(k.LargestIDGap(), 0u) << "the mark is dropped";
  k.spans[2].ID = 2;
  EXPECT_EQ(k.LargestIDGap(), 1u) << "2 again counts 1, and so does the step to 4";
  k.spans[3].ID = 9;
  EXPECT_EQ(k.LargestIDGap(), 6u);
  k.spans[3].ID = 1;
  EXPECT_EQ(k.LargestIDGap(), 1u) << "a step back by 1 is none";
  EXPECT_EQ(Mixed().LargestIDGap(), 268435455u) << "from 0 to unmarked";
  EXPECT_EQ(KurveEx().LargestIDGap(), 0u);
}

TEST(KurveEx, AStepOfTwoIsAGapOfOne) {
  KurveEx k = Square(1);
  k.spans[2].ID = 4;
  k.spans[3].ID = 5;
  EXPECT_EQ(k.LargestIDGap(), 1u) << "0, 1, 2, 4, 5";
}

TEST(KurveEx, SameUnderTransformsLooksAtEveryVertex) {
  Matrix a;
  Matrix b;
  b.Rotate(kPi, 3);
  EXPECT_FALSE(Square(1).SameUnderTransforms(a, b));
  EXPECT_TRUE(Square(1).SameUnderTransforms(b, b));
  KurveEx axis;
  axis.Start(Point(0, 0));
  axis.Add(5, 0);
  Matrix mirror;
  mirror.Scale(1, -1, 1);
  EXPECT_TRUE(axis.SameUnderTransforms(a, mirror));
}

TEST(KurveEx, FromACompactContourReadsUnderMatrixAndReversal) {
  Kurve k;
  std::uint32_t ID = 10;
  for (const Point& p : {Point(0, 0), Point(1, 0), Point(1, 1), Point(0, 1), Point(0, 0)}) {
    k.Add(spVertex(LINEAR, p, Point(0, 0), ID++));
  }
  Matrix m;
  m.Scale(3);
  k = m;
  const KurveEx ex(k);
  EXPECT_EQ(ex.SpanCount(), 4);
  EXPECT_TRUE(ex.start == Point(0, 0));
  EXPECT_TRUE(ex.spans[1].p1 == Point(3, 3));
  EXPECT_EQ(ex.perim, 12);
  for (std::uint32_t i = 0; i < 4; ++i) EXPECT_EQ(ex.spans[i].ID, 10 + i) << "of the vertex before";
  k.Reverse(true);
  const KurveEx back(k);
  EXPECT_TRUE(back.spans[0].p1 == Point(0, 3));
  for (std::uint32_t i = 0; i < 4; ++i) EXPECT_EQ(back.spans[i].ID, 14 - i) << "mirrored";
  EXPECT_FALSE(back.reversed);
  k.Reverse(false);
  k.AddNullSpan();
  EXPECT_EQ(KurveEx(k).SpanCount(), 5) << "null spans are kept";
  Kurve lone;
  lone.Start(Point(2, 2));
  EXPECT_TRUE(KurveEx(lone).Start() == Point(2, 2));
}

TEST(KurveEx, ReduceDropsVerticesOnLines) {
  const UnitsGuard guard(0);
  KurveEx k;
  k.Start(Point(0, 0));
  for (int i = 1; i <= 5; ++i) k.Add(i, 0);
  k.Add(5, 5);
  k.AddIndex0(5, 3);
  const double perim = k.perim;
  k.Reverse(true);
  EXPECT_EQ(k.Reduce(0.001), 4);
  EXPECT_TRUE(k.reversed);
  EXPECT_EQ(k.SpanCount(), 2);
  EXPECT_EQ(k.perim, perim);
  ExpectTrueTotals(k);
  k.Reverse(false);
  EXPECT_TRUE(k.spans[0].p1 == Point(5, 0));
  EXPECT_EQ(k.GetIndex0(1), 3u);
  EXPECT_EQ(k.Reduce(0.001), 0);
  KurveEx single;
  single.Start(Point(0, 0));
  single.Add(1, 1);
  EXPECT_EQ(single.Reduce(1), 0);
}

TEST(KurveEx, ReduceMeasuresOneVertexAtATimeSoErrorsAddUp) {
  const UnitsGuard guard(0);
  KurveEx k;
  k.Start(Point(0, 0));
  for (int i = 1; i <= 12; ++i) k.Add(i, 0.001 * i * i);
  EXPECT_GT(k.Reduce(0.012), 6);
  const Span& first = k.spans[0];
  double farthest = 0;
  for (int i = 1; i < first.p1.x; ++i) {
    farthest = std::max(farthest, std::fabs(CLine(first).Dist(Point(i, 0.001 * i * i))));
  }
  EXPECT_GT(farthest, 0.012) << "the vertices dropped before are not measured again";
}

TEST(KurveEx, ReduceJoinsArcsAboutOneCentre) {
  KurveEx k;
  k.Start(Point(-5, 2));
  k.Add(0, 2);
  for (const double angle : {60.0, 40.0, 0.0}) k.Add(CW, Point(Point(0, 0), 2, angle), Point(0, 0));
  k.Add(2, -5);
  EXPECT_EQ(k.Reduce(1e-6), 2);
  EXPECT_EQ(k.SpanCount(), 3);
  EXPECT_NEAR(k.spans[1].angle, -kPi / 2, 1e-9);
  KurveEx wave;
  wave.Start(Point(0, 0));
  wave.Add(ACW, Point(2, 0), Point(1, 0));
  wave.Add(ACW, Point(4, 0), Point(3, 0));
  wave.Add(CW, Point(6, 0), Point(5, 0));
  EXPECT_EQ(wave.Reduce(1e-6), 0) << "other centres, other senses";
}

TEST(KurveEx, ReducePassesOverNullSpans) {
  KurveEx k;
  k.Start(Point(0, 0));
  k.Add(1, 0);
  k.AddNullSpan();
  k.Add(1, 1);
  k.Add(ACW, Point(0, 2), Point(0, 1));
  k.AddNullSpan();
  k.Add(-3, 2);
  EXPECT_EQ(k.Reduce(1e-6), 2);
  EXPECT_EQ(k.SpanCount(), 4);
  EXPECT_TRUE(k.spans[0].p1 == Point(1, 0));
  EXPECT_EQ(k.spans[2].dir, ACW) << "an arc before a null span stays one";
  EXPECT_TRUE(k.End() == Point(-3, 2));
}

TEST(KurveEx, ReducePassesOverVerticesAtTheToleranceItself) {
  const UnitsGuard guard(0);
  TOLERANCE = kExactTolerance;
  KurveEx k;
  k.Start(Point(0, 0));
  k.Add(1, 0);
  k.Add(1, TOLERANCE);
  k.Add(5, 3);
  EXPECT_EQ(k.Reduce(1e-6), 1);
  EXPECT_EQ(k.spans[0].p1.y, TOLERANCE) << "the candidate goes";
}

TEST(KurveEx, ReduceTakesTwoSpansForOne) {
  KurveEx k;
  k.Start(Point(0, 0));
  k.Add(1, 0);
  k.Add(2, 0);
  EXPECT_EQ(k.Reduce(1e-6), 1);
  EXPECT_EQ(k.SpanCount(), 1);
}

TEST(KurveEx, ReduceMakesAFullCircleOfTwoHalves) {
  KurveEx k;
  k.Start(Point(0, 2));
  for (const double angle : {180.0, 200.0, 300.0, 450.0})
    k.Add(ACW, Point(Point(0, 0), 2, angle), Point(0, 0));
  ASSERT_TRUE(k.IsFullCircle());
  k.Reverse(true);
  EXPECT_EQ(k.Reduce(1e-6), 2);
  EXPECT_TRUE(k.reversed);
  EXPECT_EQ(k.SpanCount(), 2);
  EXPECT_EQ(k.spans[0].dir, ACW);
  EXPECT_TRUE(k.start == Point(2, 0));
  EXPECT_NEAR(k.area, 4 * kPi, 1e-9) << "read reversed, it is clockwise";
}

TEST(KurveEx, AcceptsNumbersThatAreNotFinite) {
  for (const double bad : {kNaN, testing::kInfinity, 1e300, 1e-320}) {
    KurveEx k = Square(1);
    k.Add(bad, 3);
    k.Add(3, bad);
    ThrownText([&] { k.Add(ACW, Point(1, 1), Point(bad, bad)); });
    int number = 0;
    double t = 0;
    k.AtFraction(0.5, number, t);
    k.AtFraction(bad, number, t);
    k.FindAlong(1, Point(bad, 0), 2, t);
    k.FindAlong(1, Point(0, 0), bad, t);
    k.Near(Point(bad, bad), number, t);
    k.Closed();
    KurveEx a;
    KurveEx b;
    SectionByFraction(k, k, bad, a, b);
    SectionByFraction(k, k, 0.5, a, b);
    SectionAtPoint(k, k, Point(bad, bad), a, b);
    ThrownText([&] { k.windingNumber(Point(bad, 0.5)); });
    ThrownText([&] { k.Reduce(0.1); });
    ThrownText([&] { k.ReversedCopy(); });
  }
}

}  // namespace
}  // namespace geometry

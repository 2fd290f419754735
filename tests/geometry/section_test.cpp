#include <gtest/gtest.h>

#include <cmath>

#include "geometry/kurveex.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kPi;
using testing::Random;
using testing::UnitsGuard;

KurveEx Polyline(std::initializer_list<Point> points) {
  KurveEx k;
  for (const Point& p : points) k.Add(p.x, p.y);
  return k;
}

KurveEx Square(double side) {
  return Polyline({Point(0, 0), Point(side, 0), Point(side, side), Point(0, side), Point(0, 0)});
}

/// A line of 2 and a quarter of radius 2.
KurveEx Hook() {
  KurveEx k;
  k.Start(Point(0, 0));
  k.Add(2, 0);
  k.Add(ACW, Point(4, 2), Point(2, 2));
  return k;
}

TEST(AtFraction, WalksThePerimeter) {
  const KurveEx k = Square(2);
  int span = 0;
  double t = 0;
  EXPECT_TRUE(k.AtFraction(0.3125, span, t) == Point(2, 0.5));
  EXPECT_EQ(span, 2);
  EXPECT_DOUBLE_EQ(t, 0.25);
  EXPECT_TRUE(k.AtFraction(0.25, span, t) == Point(2, 0));
  EXPECT_EQ(span, 2) << "a running length equal to the target is not above it";
  EXPECT_EQ(t, 0);
}

TEST(AtFraction, PastTheEndIsTheEnd) {
  KurveEx k = Hook();
  int span = 0;
  double t = 0;
  EXPECT_TRUE(k.AtFraction(1.0, span, t) == Point(4, 2));
  EXPECT_EQ(span, 2);
  EXPECT_EQ(t, 1.0);
  k.Reverse(true);
  EXPECT_TRUE(k.AtFraction(7.0, span, t) == Point(0, 0));
  EXPECT_TRUE(k.AtFraction(0.0, span, t) == Point(4, 2));
  EXPECT_EQ(span, 1);
  EXPECT_FALSE(KurveEx().AtFraction(0.5, span, t).ok);
  EXPECT_EQ(span, 0);
}

TEST(AtFraction, OfArcsFollowsTheArc) {
  int span = 0;
  double t = 0;
  const Point p = Hook().AtFraction((2 + kPi / 2) / (2 + kPi), span, t);
  EXPECT_TRUE(p == Point(2 + std::sqrt(2.0), 2 - std::sqrt(2.0)));
  EXPECT_DOUBLE_EQ(t, 0.5);
}

TEST(Section, GivesBothContoursAVertexAtTheSamePlace) {
  const KurveEx a = Hook();
  const KurveEx b = Polyline({Point(0, 0), Point(0, 10), Point(30, 10)});
  KurveEx outA;
  KurveEx outB;
  EXPECT_EQ(SectionByFraction(a, b, 1.0 / (2 + kPi), outA, outB), 1);
  ASSERT_EQ(outA.SpanCount(), 3);
  ASSERT_EQ(outB.SpanCount(), 3);
  EXPECT_TRUE(outA.spans[0].p1 == Point(1, 0));
  EXPECT_TRUE(outB.spans[0].p1 == Point(0, 5)) << "half of the span";
  EXPECT_EQ(SectionByDistance(a, b, 1.0 / (2 + kPi), outA, outB), 1);
  EXPECT_TRUE(outB.spans[0].p1 == Point(0, 1)) << "as far along the span";
  EXPECT_EQ(SectionByOwnFraction(a, b, 1.0 / (2 + kPi), outA, outB), 1);
  EXPECT_TRUE(outB.spans[0].p1 == Point(0, 40 / (2 + kPi))) << "as far along the perimeter";
}

TEST(Section, CutsGoBeyondThePartnersSpan) {
  const KurveEx a = Polyline({Point(0, 0), Point(9, 0), Point(10, 0)});
  const KurveEx b = Polyline({Point(0, 0), Point(1, 0), Point(10, 0)});
  KurveEx outA;
  KurveEx outB;
  EXPECT_EQ(SectionByDistance(a, b, 0.5, outA, outB), 1);
  EXPECT_TRUE(outB.spans[0].p1 == Point(5, 0));
  EXPECT_TRUE(outB.spans[1].p1 == Point(1, 0)) << "and back";
  EXPECT_EQ(SectionByOwnFraction(b, a, 0.5, outA, outB), 2);
  ASSERT_EQ(outB.SpanCount(), 3);
  EXPECT_TRUE(outB.spans[1].p1 == Point(5, 0)) << "before the start of that span";
}

TEST(Section, CutsBeyondAnArcStayOnItsCircle) {
  const KurveEx a = Polyline({Point(0, 0), Point(6, 0)});
  KurveEx arc;
  arc.Start(Point(1, 0));
  arc.Add(ACW, Point(0, 1), Point(0, 0));
  KurveEx outA;
  KurveEx outB;
  EXPECT_EQ(SectionByDistance(a, arc, kPi / 6, outA, outB), 1);
  EXPECT_TRUE(outB.spans[0].p1 == Point(-1, 0));
  EXPECT_TRUE(outB.spans[1].p1 == Point(0, 1)) << "three quarters of a turn on";
  EXPECT_NEAR(outB.spans[1].angle, 1.5 * kPi, 1e-9);
}

TEST(Section, ArcsAreCutIntoArcs) {
  const KurveEx a = Hook();
  KurveEx outA;
  KurveEx outB;
  EXPECT_EQ(SectionByFraction(a, a, (2 + kPi / 4) / (2 + kPi), outA, outB), 2);
  EXPECT_EQ(outA.spans[1].dir, ACW);
  EXPECT_NEAR(outA.spans[1].angle, kPi / 8, 1e-12);
  EXPECT_NEAR(outA.spans[2].angle, 3 * kPi / 8, 1e-12);
  EXPECT_NEAR(outA.perim, a.perim, 1e-12);
  EXPECT_NEAR(outA.area, a.area, 1e-12);
}

TEST(Section, ACollapsedHalfKeepsItsKind) {
  KurveEx k;
  k.Start(Point(2, 0));
  k.Add(ACW, Point(-2, 0), Point(0, 0));
  KurveEx outA;
  KurveEx outB;
  EXPECT_EQ(SectionByFraction(k, k, 0.0, outA, outB), 1);
  ASSERT_EQ(outA.SpanCount(), 2);
  EXPECT_TRUE(outA.spans[0].NullSpan);
  EXPECT_EQ(outA.spans[0].dir, ACW);
  EXPECT_TRUE(outA.spans[0].pc == Point(0, 0));
  EXPECT_EQ(outA.spans[1].angle, kPi);
  EXPECT_EQ(SectionByFraction(k, k, 1.0, outA, outB), 1);
  EXPECT_EQ(outA.spans[1].dir, ACW);
  EXPECT_TRUE(outA.spans[1].NullSpan);
}

TEST(Section, WordsMoveWithTheirVertices) {
  KurveEx k = Square(1);
  for (int v = 0; v <= 4; ++v) {
    k.AddIndex0(v, static_cast<IndexWord>(v) + 10);
    k.AddIndex1(v, static_cast<IndexWord>(v) + 20);
  }
  KurveEx outA;
  KurveEx outB;
  EXPECT_EQ(SectionByFraction(k, k, 0.375, outA, outB), 2);
  const IndexWord expected[] = {10, 11, 0, 12, 13, 14};
  for (int v = 0; v <= 5; ++v) {
    EXPECT_EQ(outA.GetIndex0(v), expected[v]);
    EXPECT_EQ(outB.GetIndex0(v), expected[v]);
    EXPECT_EQ(outA.GetIndex1(v), expected[v] == 0 ? 0 : expected[v] + 10);
  }
}

TEST(Section, BeyondTheEndCopies) {
  const KurveEx a = Square(1);
  const KurveEx b = Square(2);
  KurveEx outA;
  KurveEx outB;
  EXPECT_EQ(SectionByFraction(a, b, 1.01, outA, outB), 0);
  EXPECT_TRUE(outA == a);
  EXPECT_TRUE(outB == b);
}

TEST(Section, UnequalCountsGiveNothing) {
  KurveEx outA = Square(1);
  KurveEx outB = Square(1);
  EXPECT_EQ(SectionByFraction(Square(1), Hook(), 0.5, outA, outB), 0);
  EXPECT_EQ(outA.SpanCount(), 0);
  EXPECT_EQ(outB.SpanCount(), 0);
}

TEST(Section, OfANullSpanCutsAtItsStart) {
  KurveEx k;
  k.Start(Point(0, 0));
  k.AddNullSpan();
  k.Add(1, 0);
  KurveEx outA;
  KurveEx outB;
  EXPECT_EQ(SectionByFraction(k, Square(1), 0, outA, outB), 0);
  const KurveEx b = Polyline({Point(0, 0), Point(0, 5), Point(1, 5)});
  EXPECT_EQ(SectionByFraction(k, b, 0, outA, outB), 1);
  EXPECT_EQ(outA.SpanCount(), 3);
  EXPECT_TRUE(outB.spans[0].NullSpan);
  EXPECT_EQ(outB.spans[1].length, 5);
}

TEST(Section, MayWriteOverItsInput) {
  KurveEx a = Square(1);
  KurveEx b = Square(2);
  EXPECT_EQ(SectionByFraction(a, b, 0.375, a, b), 2);
  EXPECT_EQ(a.SpanCount(), 5);
  EXPECT_EQ(b.SpanCount(), 5);
  EXPECT_TRUE(b.spans[1].p1 == Point(2, 1));
}

TEST(Section, KeepsPerimeterAndAreaForAnyCut) {
  Random random(832);
  for (int i = 0; i < 500; ++i) {
    KurveEx a = Hook();
    KurveEx b = Square(3);
    KurveEx outA;
    KurveEx outB;
    b.RemoveLast();
    b.RemoveLast();
    a.Reverse(random.Below(2) == 0);
    const double f = random.Between(0, 1);
    const int cut = SectionByFraction(a, b, f, outA, outB);
    ASSERT_GT(cut, 0);
    double before = 0;
    for (int s = 0; s < cut; ++s) before += outA.spans[static_cast<std::size_t>(s)].length;
    EXPECT_NEAR(before, f * a.perim, 1e-9);
    EXPECT_NEAR(outA.perim, a.perim, 1e-9);
    EXPECT_NEAR(outA.area, a.area, 1e-9);
    EXPECT_NEAR(outB.perim, b.perim, 1e-9);
  }
}

TEST(SectionAtPoint, CutsBothAtTheNearFraction) {
  const UnitsGuard guard(0);
  KurveEx outA;
  KurveEx outB;
  EXPECT_EQ(SectionAtPoint(Square(4), Square(8), Point(4, 1), outA, outB), 2);
  EXPECT_EQ(outA.SpanCount(), 5);
  EXPECT_TRUE(outA.spans[1].p1 == Point(4, 1));
  EXPECT_TRUE(outB.spans[1].p1 == Point(8, 2));
}

TEST(SectionAtPoint, OutsideTheBoxIsNotOnTheSpan) {
  const UnitsGuard guard(0);
  KurveEx outA;
  KurveEx outB;
  const KurveEx slant = Polyline({Point(0, 0), Point(4, 4)});
  EXPECT_EQ(SectionAtPoint(Square(4), Square(4), Point(2, -0.004), outA, outB), -1);
  EXPECT_EQ(SectionAtPoint(slant, slant, Point(2, 1.996), outA, outB), 1) << "within the tolerance";
}

TEST(SectionAtPoint, AtAVertexIsItsNumberAndCopies) {
  KurveEx outA;
  KurveEx outB;
  EXPECT_EQ(SectionAtPoint(Square(4), Square(8), Point(4, 4), outA, outB), 2);
  EXPECT_TRUE(outA == Square(4));
  EXPECT_TRUE(outB == Square(8));
  EXPECT_EQ(SectionAtPoint(Square(4), Square(8), Point(0, 0), outA, outB), 0);
}

TEST(SectionAtPoint, ElsewhereIsMinusOne) {
  KurveEx outA;
  KurveEx outB;
  EXPECT_EQ(SectionAtPoint(Square(4), Square(8), Point(2, 2), outA, outB), -1);
  EXPECT_TRUE(outA == Square(4));
  EXPECT_TRUE(outB == Square(8));
  EXPECT_EQ(SectionAtPoint(KurveEx(), KurveEx(), Point(2, 2), outA, outB), -1);
}

TEST(SectionAtVertex, CountsFromTheVertex) {
  KurveEx outA;
  KurveEx outB;
  EXPECT_EQ(SectionAtVertex(Square(4), Square(8), 1, 1, outA, outB), 2);
  EXPECT_TRUE(outA.spans[1].p1 == Point(4, 1));
  EXPECT_EQ(SectionAtVertex(Hook(), Hook(), 2, -kPi / 2, outA, outB), 2) << "back over half the arc";
  EXPECT_NEAR(outA.spans[1].angle, kPi / 4, 1e-12);
}

TEST(FindAlong, GoesBothWays) {
  const KurveEx k = Polyline({Point(0, 0), Point(4, 0), Point(4, 4), Point(0, 4)});
  double fraction = 0;
  EXPECT_EQ(k.FindAlong(1, Point(1, 0), 2, fraction), 1);
  EXPECT_DOUBLE_EQ(fraction, 0.75);
  EXPECT_EQ(k.FindAlong(1, Point(1, 0), 5, fraction), 2);
  EXPECT_DOUBLE_EQ(fraction, 0.5);
  EXPECT_EQ(k.FindAlong(3, Point(2, 4), -7, fraction), 1);
  EXPECT_DOUBLE_EQ(fraction, 0.75);
  EXPECT_EQ(k.FindAlong(1, Point(1, 0), 3, fraction), 1) << "the end still belongs to the span";
  EXPECT_DOUBLE_EQ(fraction, 1);
}

TEST(FindAlong, AnOpenContourEnds) {
  const KurveEx k = Hook();
  double fraction = 0;
  EXPECT_EQ(k.FindAlong(2, Point(4, 2), 0.1, fraction), -1);
  EXPECT_EQ(fraction, -1.0);
  EXPECT_EQ(k.FindAlong(1, Point(1, 0), -1.1, fraction), -1);
  EXPECT_EQ(k.FindAlong(0, Point(1, 0), 1, fraction), -1);
  EXPECT_EQ(k.FindAlong(3, Point(1, 0), 1, fraction), -1);
  EXPECT_EQ(fraction, -1.0);
}

TEST(FindAlong, AClosedContourWrapsOnce) {
  const KurveEx k = Square(4);
  double fraction = 0;
  EXPECT_EQ(k.FindAlong(4, Point(0, 1), 3, fraction), 1);
  EXPECT_DOUBLE_EQ(fraction, 0.5);
  EXPECT_EQ(k.FindAlong(1, Point(1, 0), -2, fraction), 4);
  EXPECT_DOUBLE_EQ(fraction, 0.75);
  EXPECT_EQ(k.FindAlong(1, Point(1, 0), 16, fraction), 1) << "all the way round";
  EXPECT_DOUBLE_EQ(fraction, 0.25);
  EXPECT_EQ(k.FindAlong(1, Point(1, 0), 40, fraction), -1);
  EXPECT_EQ(k.FindAlong(1, Point(1, 0), -40, fraction), -1);
}

TEST(FindAlong, OfNullSpansEnds) {
  KurveEx k;
  k.Start(Point(1, 1));
  k.AddNullSpan();
  k.AddNullSpan();
  double fraction = 0;
  EXPECT_EQ(k.FindAlong(1, Point(1, 1), 5, fraction), -1);
  EXPECT_EQ(k.FindAlong(1, Point(1, 1), 0, fraction), 1);
  EXPECT_EQ(fraction, 0);
}

std::vector<SpanReplacement> Replacing(int vertexNumber, const KurveEx& with) {
  std::vector<SpanReplacement> list;
  list.push_back({vertexNumber, std::make_unique<KurveEx>(with)});
  return list;
}

TEST(ReplaceSpans, KeepsTheEndBeforeOrTheStartAfter) {
  const KurveEx k = Polyline({Point(0, 0), Point(1, 0), Point(2, 0), Point(3, 0)});
  const KurveEx arch = Polyline({Point(1.1, 0), Point(1.5, 1), Point(1.9, 0)});
  KurveEx out;
  auto list = Replacing(2, arch);
  EXPECT_TRUE(k.ReplaceSpans(list, true, out));
  EXPECT_TRUE(list.empty());
  EXPECT_TRUE(out == Polyline({Point(0, 0), Point(1, 0), Point(1.5, 1), Point(1.9, 0), Point(3, 0)}));
  list = Replacing(2, arch);
  EXPECT_TRUE(k.ReplaceSpans(list, false, out));
  EXPECT_TRUE(out == Polyline({Point(0, 0), Point(1.1, 0), Point(1.5, 1), Point(2, 0), Point(3, 0)}));
}

TEST(ReplaceSpans, SortsAndLeavesWhatNamesNoSpan) {
  const KurveEx k = Polyline({Point(0, 0), Point(1, 0), Point(2, 0), Point(3, 0)});
  std::vector<SpanReplacement> list;
  list.push_back({9, std::make_unique<KurveEx>()});
  list.push_back({3, std::make_unique<KurveEx>(Polyline({Point(2, 0), Point(2, 1), Point(3, 1)}))});
  list.push_back({1, nullptr});
  KurveEx out;
  EXPECT_FALSE(k.ReplaceSpans(list, true, out));
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].vertexNumber, 9);
  EXPECT_TRUE(out == Polyline({Point(1, 0), Point(2, 0), Point(2, 1), Point(3, 1)}))
      << "nothing replaces span 1";
}

TEST(ReplaceSpans, EntriesThatNameNoSpanKeepNoOtherFromItsOwn) {
  const KurveEx k = Polyline({Point(0, 0), Point(1, 0), Point(2, 0), Point(3, 0)});
  const auto arch = [](double x) {
    return std::make_unique<KurveEx>(Polyline({Point(x, 0), Point(x, 1), Point(x + 1, 0)}));
  };
  std::vector<SpanReplacement> list;
  list.push_back({0, arch(7)});
  list.push_back({-3, arch(8)});
  list.push_back({2, arch(1)});
  list.push_back({2, arch(9)});
  list.push_back({3, arch(2)});
  KurveEx out;
  EXPECT_FALSE(k.ReplaceSpans(list, true, out));
  EXPECT_TRUE(list.empty());
  EXPECT_TRUE(out == Polyline({Point(0, 0), Point(1, 0), Point(1, 1), Point(2, 0), Point(2, 1), Point(3, 0)}))
      << "of two for one span the first counts";
}

TEST(ReplaceSpans, ClosedContoursStayClosed) {
  const KurveEx side = Polyline({Point(0.1, 0.1), Point(0.5, -1), Point(1, 0)});
  for (const bool keepEnd : {true, false}) {
    KurveEx out;
    auto list = Replacing(1, side);
    EXPECT_TRUE(Square(1).ReplaceSpans(list, keepEnd, out));
    EXPECT_EQ(out.SpanCount(), 5);
    EXPECT_TRUE(out.Closed());
    EXPECT_TRUE(out.Start() == (keepEnd ? Point(0, 0) : Point(0.1, 0.1)));
  }
}

TEST(ReplaceSpans, MovedArcsKeepTheirEndsAtOneRadius) {
  KurveEx k = Hook();
  k.Add(4, 9);
  auto list = Replacing(3, Polyline({Point(4.2, 2.1), Point(4, 9)}));
  KurveEx out;
  EXPECT_TRUE(k.ReplaceSpans(list, false, out));
  EXPECT_TRUE(out.spans[1].p1 == Point(4.2, 2.1));
  EXPECT_EQ(out.spans[1].dir, ACW);
  KurveEx lens;
  lens.Start(Point(0, 1));
  lens.Add(ACW, Point(0, -1), Point(1, 0));
  lens.Add(0, 1);
  list = Replacing(2, Polyline({Point(0, -1), Point(0.1, 1.1)}));
  EXPECT_TRUE(lens.ReplaceSpans(list, true, out));
  EXPECT_TRUE(out.Start() == Point(0.1, 1.1));
  EXPECT_TRUE(out.start == Point(0.1, 1.1));
  EXPECT_EQ(out.spans[0].dir, ACW);
  EXPECT_TRUE(out.Closed());
}

TEST(ReplaceStart, TurnsAClosedContourToAnotherStart) {
  KurveEx out;
  EXPECT_TRUE(Square(4).ReplaceStart(2, Point(4, 1), out));
  EXPECT_EQ(out.SpanCount(), 5);
  EXPECT_TRUE(out.Start() == Point(4, 1));
  EXPECT_TRUE(out.End() == Point(4, 1));
  EXPECT_TRUE(out.spans[0].p1 == Point(4, 4));
  EXPECT_EQ(out.area, -16);
  EXPECT_EQ(out.perim, 16);
}

TEST(ReplaceStart, AtAVertexAddsNoSpan) {
  KurveEx k = Square(4);
  KurveEx out;
  k.AddIndex0(1, 7);
  k.AddIndex1(1, 8);
  EXPECT_TRUE(k.ReplaceStart(2, Point(4, 0), out));
  EXPECT_EQ(out.SpanCount(), 4);
  EXPECT_EQ(out.GetIndex0(0), 7u);
  EXPECT_EQ(out.GetIndex0(4), 7u);
  EXPECT_EQ(out.GetIndex1(0), 8u);
}

TEST(ReplaceStart, CutsAnOpenContour) {
  KurveEx out;
  EXPECT_TRUE(Hook().ReplaceStart(1, Point(1, 0), out));
  EXPECT_EQ(out.SpanCount(), 2);
  EXPECT_NEAR(out.perim, 1 + kPi, 1e-12);
  EXPECT_FALSE(Hook().ReplaceStart(0, Point(1, 0), out));
  EXPECT_FALSE(Hook().ReplaceStart(3, Point(1, 0), out));
  EXPECT_EQ(out.SpanCount(), 2) << "left alone";
}

}  // namespace
}  // namespace geometry

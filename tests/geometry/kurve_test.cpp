#include "geometry/kurve.h"

#include <gtest/gtest.h>

#include <cmath>

#include "geometry/kurveex.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kExactTolerance;
using testing::kInfinity;
using testing::kNaN;
using testing::kPi;
using testing::Random;
using testing::ThrownText;
using testing::UnitsGuard;

const std::wstring kGet = L"Kurve::Get - vertexNumber out of range";
const std::wstring kReplace = L"Kurve::Replace - vertexNumber out of range";
const std::wstring kGetIndex = L"Kurve::GetIndex - vertexNumber out of range";
const std::wstring kModifyIndex = L"Kurve::ModifyIndex - vertexNumber out of range";
const std::wstring kScale = L"Differential Scale not allowed for this method";

/// Anticlockwise, with IDs 10 to 14.
Kurve Square(double side) {
  Kurve k;
  const Point corners[] = {{0, 0}, {side, 0}, {side, side}, {0, side}, {0, 0}};
  std::uint32_t ID = 10;
  for (const Point& corner : corners) k.Add(spVertex(LINEAR, corner, Point(0, 0), ID++));
  return k;
}

/// A line, a quarter anticlockwise about (2, 1), a half clockwise about (3, 3).
Kurve Mixed() {
  Kurve k;
  k.Start(Point(0, 0));
  k.Add(Point(2, 0));
  k.Add(ACW, Point(3, 1), Point(2, 1));
  k.Add(LINEAR, Point(3, 2), Point(0, 0));
  k.Add(CW, Point(3, 4), Point(3, 3));
  return k;
}

Matrix Move(double angle, double scale, double dx, double dy) {
  Matrix m;
  m.Rotate(angle, 3);
  m.Scale(scale);
  m.Translate(dx, dy);
  return m;
}

void ExpectVertex(const Kurve& k, int v, int type, const Point& p) {
  Point at;
  Point centre;
  EXPECT_EQ(k.Get(v, at, centre), type) << v;
  EXPECT_TRUE(at == p) << v << ": " << at.x << ", " << at.y;
}

TEST(Kurve, BeginsEmptyUnderTheIdentity) {
  const Kurve k;
  EXPECT_TRUE(k.unit);
  EXPECT_FALSE(k.started);
  EXPECT_FALSE(k.reversed);
  EXPECT_EQ(k.nVertices, 0);
  EXPECT_EQ(k.SpanCount(), 0);
  EXPECT_TRUE(k.blocks.empty());
  EXPECT_FALSE(k.Closed());
  EXPECT_EQ(k.Perim(), 0);
  EXPECT_EQ(k.Area(), 0);
}

TEST(Kurve, TheFirstAddStartsIt) {
  Kurve k;
  EXPECT_TRUE(k.Add(ACW, Point(3, 4), Point(1, 1)));
  EXPECT_TRUE(k.started);
  EXPECT_EQ(k.nVertices, 1);
  ExpectVertex(k, 0, LINEAR, Point(3, 4));
  Point p;
  Point pc;
  k.Get(0, p, pc);
  EXPECT_TRUE(pc == Point(0, 0));
}

TEST(Kurve, StartDropsWhatWasThere) {
  Kurve k = Square(1);
  k.Start(Point(7, 7));
  EXPECT_EQ(k.nVertices, 1);
  EXPECT_EQ(k.blocks.size(), 1u);
  ExpectVertex(k, 0, LINEAR, Point(7, 7));
}

TEST(Kurve, ClearForgetsTheStart) {
  Kurve k = Square(1);
  k.Reverse(true);
  k.Clear();
  EXPECT_FALSE(k.started);
  EXPECT_FALSE(k.reversed);
  EXPECT_EQ(k.nVertices, 0);
  EXPECT_TRUE(k.blocks.empty());
}

TEST(Kurve, RefusesOrFlattensNullSpans) {
  const UnitsGuard guard(0);
  Kurve k;
  k.Start(Point(0, 0));
  EXPECT_FALSE(k.Add(ACW, Point(0.004, 0), Point(1, 1), false));
  EXPECT_EQ(k.nVertices, 1);
  EXPECT_TRUE(k.Add(ACW, Point(0.004, 0), Point(1, 1), true));
  Point p;
  Point pc;
  EXPECT_EQ(k.Get(1, p, pc), LINEAR);
  EXPECT_TRUE(pc == Point(1, 1)) << "the centre is kept as given";
  EXPECT_TRUE(k.Add(ACW, Point(0.0091, 0), Point(1, 1), false)) << "from the tolerance up it is a span";
  EXPECT_EQ(k.Get(2, p, pc), ACW);
}

TEST(Kurve, AtTheToleranceItselfAVertexIsAnother) {
  const UnitsGuard guard(0);
  TOLERANCE = kExactTolerance;
  Kurve k;
  k.Start(Point(0, 0));
  EXPECT_TRUE(k.Add(Point(TOLERANCE, 0), false));
  EXPECT_EQ(k.nVertices, 2);
}

TEST(Kurve, AtTheToleranceItselfAnAppendedOneBeginsAtTheEnd) {
  const UnitsGuard guard(0);
  TOLERANCE = kExactTolerance;
  Kurve k;
  k.Start(Point(-1, 0));
  k.Add(Point(0, 0));
  Kurve next;
  next.Start(Point(TOLERANCE, 0));
  next.Add(Point(1, 0));
  k.Add(next);
  EXPECT_EQ(k.nVertices, 3) << "no line over the gap";
}

TEST(Kurve, IDsComeWithVerticesAndSpans) {
  Kurve k;
  EXPECT_TRUE(k.Add(spVertex(LINEAR, Point(0, 0), Point(0, 0), 5)));
  EXPECT_TRUE(k.Add(Point(1, 0)));
  EXPECT_FALSE(k.Add(spVertex(LINEAR, Point(1, 0), Point(0, 0), 6), false));
  EXPECT_TRUE(k.Add(Span(Point(1, 0), Point(2, 0), 7)));
  EXPECT_EQ(k.GetSpanID(0), 5u);
  EXPECT_EQ(k.GetSpanID(1), UNMARKED);
  EXPECT_EQ(k.GetSpanID(2), 7u);
}

TEST(Kurve, ASpanBringsItsStartToAnEmptyContour) {
  Kurve k;
  EXPECT_TRUE(k.Add(Span(ACW, Point(2, 0), Point(0, 2), Point(0, 0), 8)));
  EXPECT_EQ(k.nVertices, 2);
  ExpectVertex(k, 0, LINEAR, Point(2, 0));
  ExpectVertex(k, 1, ACW, Point(0, 2));
  EXPECT_EQ(k.GetSpanID(1), 8u);
}

TEST(Kurve, NullSpansOnRequestNeedAStart) {
  Kurve k;
  EXPECT_EQ(ThrownText([&] { k.AddNullSpan(); }), L"Invalid attempt to add null span - no start");
  k.Start(Point(1, 2));
  k.AddNullSpan();
  EXPECT_EQ(k.nVertices, 2);
  ExpectVertex(k, 1, LINEAR, Point(1, 2));
}

TEST(Kurve, NullObjectsAreNamed) {
  EXPECT_EQ(ThrownText([] { Add(nullptr, 0, Point(), Point(), true); }), L"Kurve::Add - No Kurve Object");
  EXPECT_EQ(ThrownText([] { Replace(nullptr, 0, 0, Point(), Point(), 0); }), kReplace);
  EXPECT_EQ(ThrownText([] { GetIndex(static_cast<Kurve*>(nullptr), 0); }), kGetIndex);
  EXPECT_EQ(ThrownText([] { ModifyIndex(nullptr, 0, 1); }), kModifyIndex);
  Kurve k;
  EXPECT_TRUE(Add(&k, LINEAR, Point(1, 1), Point(0, 0), true));
  Replace(&k, 0, LINEAR, Point(2, 2), Point(0, 0), 3);
  ModifyIndex(&k, 0, 44);
  EXPECT_EQ(GetIndex(&k, 0), 44u);
  ExpectVertex(k, 0, LINEAR, Point(2, 2));
}

TEST(Kurve, VerticesCrossBlocks) {
  Kurve k;
  for (int i = 0; i < 70; ++i) k.Add(i == 32 ? ACW : LINEAR, Point(i, 0), Point(i - 0.5, 0));
  EXPECT_EQ(k.blocks.size(), 3u);
  for (int i = 0; i < 70; ++i) ExpectVertex(k, i, i == 32 ? ACW : LINEAR, Point(i, 0));
  k.Reverse(true);
  ExpectVertex(k, 69 - 31, CW, Point(31, 0));
  ExpectVertex(k, 69 - 32, LINEAR, Point(32, 0));
  Point p;
  Point pc;
  k.Get(69 - 31, p, pc);
  EXPECT_TRUE(pc == Point(31.5, 0));
}

TEST(Kurve, CopiesAreDeep) {
  Kurve k = Square(1);
  k.Translate(5, 0);
  k.Reverse(true);
  Kurve copy(k);
  Kurve assigned = Mixed();
  assigned = k;
  assigned = *&assigned;
  k.Replace(2, LINEAR, Point(9, 9), Point(0, 0));
  for (Kurve* other : {&copy, &assigned}) {
    EXPECT_NE(other->blocks[0], k.blocks[0]);
    EXPECT_TRUE(other->started);
    EXPECT_TRUE(other->reversed);
    EXPECT_FALSE(other->unit);
    ExpectVertex(*other, 2, LINEAR, Point(1, 1));
  }
  copy = Kurve();
  EXPECT_FALSE(copy.started);
  EXPECT_TRUE(copy.unit);
  EXPECT_TRUE(copy.blocks.empty());
}

TEST(Kurve, TakesAMatrixAlone) {
  Kurve k = Square(1);
  k = Move(0, 2, 1, 1);
  EXPECT_EQ(k.nVertices, 5);
  EXPECT_EQ(k.e[0], 2);
  EXPECT_EQ(k.Perim(), 8);
}

TEST(Kurve, ReversedReadingMovesKindsToTheirNewEnds) {
  Kurve k = Mixed();
  EXPECT_FALSE(k.Reverse(true)) << "the former value";
  EXPECT_TRUE(k.Reverse(true));
  Point p;
  Point pc(7, 7);
  EXPECT_EQ(k.Get(0, p, pc), LINEAR);
  EXPECT_TRUE(p == Point(3, 4));
  EXPECT_TRUE(pc == Point(7, 7)) << "left alone";
  EXPECT_EQ(k.Get(1, p, pc), ACW);
  EXPECT_TRUE(p == Point(3, 2));
  EXPECT_TRUE(pc == Point(3, 3));
  EXPECT_EQ(k.Get(3, p, pc), CW);
  EXPECT_TRUE(p == Point(2, 0));
  EXPECT_TRUE(pc == Point(2, 1));
  Point3d flat;
  Point3d centre;
  EXPECT_EQ(k.Get(3, flat, centre), CW);
  EXPECT_TRUE(flat == Point3d(2, 0, 0));
  EXPECT_TRUE(centre == Point3d(2, 1, 0));
  spVertex v;
  EXPECT_EQ(k.Get(3, v), CW);
  EXPECT_TRUE(v == spVertex(CW, Point(2, 0), Point(2, 1)));
}

TEST(Kurve, ReversedIDsMirrorTheVertexNotTheSpan) {
  Kurve k = Square(1);
  k.Reverse(true);
  for (int v = 0; v < 5; ++v) EXPECT_EQ(k.GetSpanID(v), static_cast<std::uint32_t>(14 - v));
  EXPECT_EQ(ThrownText([&] { k.GetSpanID(5); }), kGet);
  EXPECT_EQ(ThrownText([&] { k.GetSpanID(-1); }), kGet);
}

TEST(Kurve, ReversedReadingsCarryTheMirroredIDs) {
  Kurve k = Square(1);
  k.Reverse(true);
  for (int i = 1; i <= 4; ++i) {
    Span span;
    spVertex v;
    k.Get(i, span);
    k.Get(i, v);
    EXPECT_EQ(span.ID, static_cast<std::uint32_t>(14 - i));
    EXPECT_EQ(v.ID, static_cast<std::uint32_t>(14 - i));
  }
}

TEST(Kurve, ReadingsOutOfRangeAreRefused) {
  Kurve k = Square(1);
  Point p;
  Point pc;
  Point3d q;
  Point3d qc;
  Span span;
  for (const int bad : {-1, 5, 1000}) {
    EXPECT_EQ(ThrownText([&] { k.Get(bad, p, pc); }), kGet);
    EXPECT_EQ(ThrownText([&] { k.Get(bad, q, qc); }), kGet);
  }
  for (const int bad : {-1, 0, 5, 6}) {
    EXPECT_EQ(ThrownText([&] { k.Get(bad, span); }), kGet) << bad;
    EXPECT_EQ(ThrownText([&] { k.GetStored(bad, span); }), kGet) << bad;
  }
}

TEST(Kurve, ALoneVertexHasNoSpan) {
  Kurve k;
  k.Start(Point(1, 1));
  Span span;
  EXPECT_EQ(k.Get(1, span), -99);
  EXPECT_EQ(k.GetStored(1, span), -99);
  EXPECT_EQ(ThrownText([&] { k.Get(0, span); }), kGet);
  EXPECT_EQ(ThrownText([] {
              Span s;
              Kurve().Get(1, s);
            }),
            kGet);
}

TEST(Kurve, SpansAreReadWithPropertiesOnRequest) {
  const Kurve k = Mixed();
  Span span;
  EXPECT_EQ(k.Get(2, span), ACW);
  EXPECT_FALSE(span.propertiesSet);
  EXPECT_TRUE(span.p0 == Point(2, 0));
  EXPECT_TRUE(span.p1 == Point(3, 1));
  EXPECT_TRUE(span.pc == Point(2, 1));
  EXPECT_EQ(k.Get(2, span, true), ACW);
  EXPECT_TRUE(span.propertiesSet);
  EXPECT_DOUBLE_EQ(span.angle, kPi / 2);
}

TEST(Kurve, SpansAreReadUnderTheMatrixOnRequest) {
  Kurve k = Mixed();
  Matrix m;
  m.Scale(-2, 2, 1);
  m.Translate(100, 0);
  k = m;
  Span span;
  EXPECT_EQ(k.Get(2, span, false, true), CW);
  EXPECT_TRUE(span.propertiesSet) << "a transform needs them";
  EXPECT_TRUE(span.p1 == Point(94, 2));
  EXPECT_EQ(k.Get(2, span, true, false), ACW);
  EXPECT_TRUE(span.p1 == Point(3, 1));
}

TEST(Kurve, ReversedSpansRunBack) {
  Kurve k = Mixed();
  k.Reverse(true);
  Span span;
  for (int i = 1; i <= 4; ++i) {
    Span stored;
    k.GetStored(5 - i, stored);
    k.Get(i, span);
    EXPECT_TRUE(span.p0 == stored.p1);
    EXPECT_TRUE(span.p1 == stored.p0);
    EXPECT_EQ(span.dir, -stored.dir);
    if (span.dir != 0) {
      EXPECT_TRUE(span.pc == stored.pc);
    }
  }
}

TEST(Kurve, IndexWordsFollowTheReading) {
  Kurve k = Square(1);
  for (int v = 0; v < 5; ++v) EXPECT_EQ(k.GetIndex(v), 0u);
  for (int v = 0; v < 5; ++v) k.ModifyIndex(v, static_cast<IndexWord>(v) + 100);
  k.Reverse(true);
  EXPECT_EQ(k.GetIndex(0), 104u);
  EXPECT_EQ(k.GetIndex(4), 100u);
  k.ModifyIndex(0, 7);
  EXPECT_EQ(k.GetIndex(4), 7u) << "written in the order of storage";
  EXPECT_EQ(ThrownText([&] { k.GetIndex(5); }), kGetIndex);
  EXPECT_EQ(ThrownText([&] { k.GetIndex(-1); }), kGetIndex);
  EXPECT_EQ(ThrownText([&] { k.ModifyIndex(6, 1); }), kModifyIndex);
  EXPECT_EQ(ThrownText([&] { k.ModifyIndex(-1, 1); }), kModifyIndex);
}

TEST(Kurve, TheNumberAfterTheLastVertexIsAccepted) {
  Kurve k = Square(1);
  EXPECT_NO_THROW(k.Replace(5, LINEAR, Point(9, 9), Point(0, 0)));
  EXPECT_NO_THROW(k.ModifyIndex(5, 3));
  EXPECT_EQ(k.nVertices, 5);
  EXPECT_EQ(ThrownText([&] { k.Replace(6, LINEAR, Point(9, 9), Point(0, 0)); }), kReplace);
  EXPECT_EQ(ThrownText([&] { k.Replace(-1, LINEAR, Point(9, 9), Point(0, 0)); }), kReplace);
  Kurve full;
  for (int i = 0; i < 32; ++i) full.Add(Point(i, 0));
  EXPECT_NO_THROW(full.Replace(32, LINEAR, Point(9, 9), Point(0, 0))) << "there is no slot, and none is made";
  EXPECT_NO_THROW(full.ModifyIndex(32, 3));
  EXPECT_NO_THROW(Kurve().Replace(0, LINEAR, Point(9, 9), Point(0, 0)));
  EXPECT_EQ(full.nVertices, 32);
}

TEST(Kurve, ReplaceWritesInTheOrderOfStorage) {
  Kurve k = Square(1);
  k.Reverse(true);
  k.Replace(1, CW, Point(5, 5), Point(4, 4), 77);
  k.Reverse(false);
  spVertex v;
  k.Get(1, v);
  EXPECT_TRUE(v == spVertex(CW, Point(5, 5), Point(4, 4)));
  EXPECT_EQ(v.ID, 77u);
}

TEST(Kurve, PerimeterAndAreaScaleWithTheMatrix) {
  Kurve k = Square(3);
  EXPECT_EQ(k.Perim(), 12);
  EXPECT_EQ(k.Area(), -9) << "anticlockwise is negative";
  k = Move(0.3, 2, 7, 8);
  EXPECT_DOUBLE_EQ(k.Perim(), 24);
  EXPECT_DOUBLE_EQ(k.Area(), -36);
  k.Reverse(true);
  EXPECT_DOUBLE_EQ(k.Area(), -36) << "from the stored spans";
  EXPECT_EQ(Kurve(Point(1, 1), 2, CW).Area(), 4 * kPi);
  EXPECT_DOUBLE_EQ(Kurve(Point(1, 1), 2, CW).Perim(), 4 * kPi);
}

/// Closed, of lines and arcs of either sense.
Kurve Garland(Random& random) {
  Kurve k;
  k.Start(Point(0, 0));
  Point from(0, 0);
  for (int i = 1; i <= 12; ++i) {
    const Point to = i == 12 ? Point(0, 0) : Point(random.Between(-9, 9), random.Between(-9, 9));
    const Point middle((from.x + to.x) / 2, (from.y + to.y) / 2);
    k.Add(random.Below(3) - 1, to, middle + CLine(from, to).v.LeftNormal() * random.Between(-4, 4));
    from = to;
  }
  return k;
}

TEST(Kurve, PerimeterAndAreaAreThoseOfFinePolygons) {
  Random random(830);
  for (int i = 0; i < 50; ++i) {
    Kurve k = Garland(random);
    k = Move(random.Between(-3, 3), random.Between(0.5, 2), random.Between(-9, 9), random.Between(-9, 9));
    double length = 0;
    double doubledArea = 0;
    Span span;
    for (int s = 1; s <= k.SpanCount(); ++s) {
      k.Get(s, span, true, true);
      Point from = span.p0;
      for (int f = 1; f <= 1000; ++f) {
        const Point to = span.AlongFraction(f / 1000.0);
        length += Dist(from, to);
        doubledArea += from.y * to.x - from.x * to.y;  // clockwise positive
        from = to;
      }
    }
    EXPECT_NEAR(k.Perim(), length, 1e-5 * length);
    EXPECT_NEAR(k.Area(), doubledArea / 2, 0.01);
    Kurve turned = k;
    turned.Reverse();
    EXPECT_NEAR(turned.Area(), -k.Area(), 1e-9);
    EXPECT_NEAR(turned.Perim(), k.Perim(), 1e-9);
  }
}

TEST(Kurve, AnOpenOneHasNoArea) {
  Kurve k = Mixed();
  EXPECT_FALSE(k.Closed());
  EXPECT_EQ(k.Area(), 0);
  EXPECT_DOUBLE_EQ(k.Perim(), 2 + kPi / 2 + 1 + kPi);
}

TEST(Kurve, ClosesWithinTheTolerance) {
  const UnitsGuard guard(0);
  Kurve k;
  for (const Point& p : {Point(0, 0), Point(5, 0), Point(5, 5), Point(0.004, 0.004)}) k.Add(p);
  EXPECT_TRUE(k.Closed());
  k.Replace(3, LINEAR, Point(0.006, 0), Point(0, 0));
  EXPECT_FALSE(k.Closed());
}

TEST(Kurve, MeasuresRefuseDifferentialScales) {
  Kurve k = Mixed();
  k.Scale(1, 2, 1);
  Point min;
  Point max;
  EXPECT_EQ(ThrownText([&] { k.Perim(); }), kScale);
  EXPECT_EQ(ThrownText([&] { k.Area(); }), kScale) << "open or not";
  EXPECT_EQ(ThrownText([&] { k.Minmax(min, max); }), kScale);
}

TEST(Kurve, ExtentGrowsByTheTightToleranceWithEachSpan) {
  const UnitsGuard guard(0);
  Kurve k = Square(3);
  Point min;
  Point max;
  k.Minmax(min, max);
  EXPECT_NEAR(min.x, -4e-6, 1e-12);
  EXPECT_NEAR(max.y, 3 + 3e-6, 1e-12) << "reached by the second of the four";
  k = Move(0, 2, 10, 0);
  k.Minmax(min, max);
  EXPECT_NEAR(min.x, 10, 1e-4);
  EXPECT_NEAR(max.x, 16, 1e-4);
  Kurve().Minmax(min, max);
  EXPECT_EQ(min.x, 1e61);
  EXPECT_EQ(max.x, -1e61);
}

TEST(Kurve, NearestVertexIsTheFirstOfEquals) {
  Kurve k = Square(2);
  int v = -1;
  EXPECT_TRUE(k.NearToVertex(Point(1, 1), v) == Point(0, 0));
  EXPECT_EQ(v, 0);
  EXPECT_TRUE(k.NearToVertex(Point(9, 9), v) == Point(2, 2));
  EXPECT_EQ(v, 2);
  k = Move(kPi / 2, 10, 0, 0);
  EXPECT_TRUE(k.NearToVertex(Point(-19, 1), v) == Point(-20, 0)) << "measured in its own coordinates";
  EXPECT_EQ(v, 3);
  EXPECT_FALSE(Kurve().NearToVertex(Point(1, 1), v).ok);
  EXPECT_EQ(v, 0);
}

TEST(Kurve, NearestPointStopsWithinTheTolerance) {
  const UnitsGuard guard(0);
  Kurve k;
  for (const Point& p : {Point(0, 0), Point(10, 0.004), Point(0, 0), Point(10, 0)}) k.Add(p);
  int span = 0;
  k.Near(Point(10, 0), span);
  EXPECT_EQ(span, 1) << "0.004 off is near enough to stop";
  EXPECT_TRUE(k.Near(Point(5, 3), span) == Point(5, 0));
  EXPECT_FALSE(Kurve().Near(Point(1, 1), span).ok);
  EXPECT_EQ(span, 0);
}

TEST(Kurve, NearestPointGoesOnAtTheToleranceItself) {
  const UnitsGuard guard(0);
  TOLERANCE = kExactTolerance;
  Kurve k;
  for (const Point& p : {Point(0, TOLERANCE), Point(8, TOLERANCE), Point(8, 0), Point(0, 0)}) k.Add(p);
  int span = 0;
  double t = 0;
  k.Near(Point(4, 0), span);
  EXPECT_EQ(span, 3);
  KurveEx(k).Near(Point(4, 0), span, t);
  EXPECT_EQ(span, 3);
}

TEST(Kurve, NearestPointAgreesWithDenseSampling) {
  Random random(828);
  for (int i = 0; i < 40; ++i) {
    Kurve k = Mixed();
    k.Split(0, 0.01);
    k = Move(random.Between(-3, 3), random.Between(0.5, 3), random.Between(-5, 5), random.Between(-5, 5));
    const Point p(random.Between(-12, 12), random.Between(-12, 12));
    int number = 0;
    const Point nearest = k.Near(p, number);
    double least = 1e100;
    Span span;
    for (int s = 1; s <= k.SpanCount(); ++s) {
      k.Get(s, span, true, true);
      for (int f = 0; f <= 500; ++f) least = std::min(least, Dist(p, span.AlongFraction(f / 500.0)));
    }
    k.Get(number, span, true, true);
    EXPECT_TRUE(span.On(nearest));
    EXPECT_NEAR(Dist(p, nearest), least, 1e-4);
  }
}

TEST(Kurve, NearestPointIsNoFartherThanAnyFootOnItsArcs) {
  Random random(829);
  const Kurve k = Mixed();
  for (int i = 0; i < 1000; ++i) {
    const Point p(random.Between(-6, 9), random.Between(-6, 9));
    int number = 0;
    const double distance = Dist(p, k.Near(p, number));
    Span span;
    for (int s = 1; s <= k.SpanCount(); ++s) {
      k.Get(s, span, true);
      double t = 0;
      const Point foot = span.Near(p, t);
      if (0 <= t && t <= span.length) {
        EXPECT_LE(distance, Dist(p, foot) + 1e-12);
      }
    }
  }
}

TEST(Kurve, AppendsAnotherInItsOwnCoordinates) {
  Kurve k;
  k.Start(Point(0, 0));
  k.Add(Point(1, 0));
  k = Move(kPi / 2, 2, 0, 0);  // runs from (0, 0) to (0, 2) in the world
  Kurve tail;
  tail.Start(Point(0, 2));
  tail.Add(spVertex(CW, Point(2, 4), Point(2, 2), 55));
  k.Add(tail);
  EXPECT_EQ(k.nVertices, 3);
  Span span;
  k.Get(2, span, true, true);
  EXPECT_TRUE(span.p0 == Point(0, 2));
  EXPECT_TRUE(span.p1 == Point(2, 4));
  EXPECT_TRUE(span.pc == Point(2, 2));
  EXPECT_EQ(span.dir, CW);
  EXPECT_EQ(span.ID, 55u);
}

TEST(Kurve, AppendsUnderTheOthersMatrixWithALineOverAGap) {
  Kurve k;
  k.Start(Point(0, 0));
  k.Add(Point(1, 0));
  Kurve tail = Mixed();
  Matrix m;
  m.Scale(-1, 1, 1);
  m.Translate(10, 0);
  tail = m;
  k.Add(tail);
  EXPECT_EQ(k.nVertices, 2 + 5);
  ExpectVertex(k, 2, LINEAR, Point(10, 0));
  ExpectVertex(k, 4, CW, Point(7, 1));
  EXPECT_TRUE(k.unit);
}

TEST(Kurve, AppendingKeepsItsManners) {
  Kurve k = Square(1);
  k.Add(Kurve());
  EXPECT_EQ(k.nVertices, 5) << "nothing added";
  Kurve lone;
  lone.Start(Point(3, 3));
  k.Add(lone);
  EXPECT_EQ(k.nVertices, 5);
  k.Add(k);
  EXPECT_EQ(k.nVertices, 9) << "itself, which begins where it ends";
  Kurve empty;
  empty.Add(Square(1));
  EXPECT_TRUE(empty == Square(1));
  EXPECT_EQ(empty.GetSpanID(4), 14u);
}

TEST(Kurve, AppendingThatCannotBeDoneChangesNothing) {
  Kurve added;
  added.Start(Point(0, 0));
  added.Add(Point(2, 0));
  added.Add(ACW, Point(3, 1), Point(2, 1));
  added.Scale(1, 2, 1);
  Kurve k;
  k.Start(Point(-1, 0));
  k.Add(Point(0, 0));
  EXPECT_EQ(ThrownText([&] { k.Add(added); }), L"Invalid Geometry - Radii mismatch - SetProperties");
  EXPECT_EQ(k.nVertices, 2);
  ExpectVertex(k, 1, LINEAR, Point(0, 0));
}

TEST(Kurve, TurnsItsStorageRound) {
  Kurve k = Mixed();
  Kurve flagged = Mixed();
  k.ModifyIndex(1, 6);
  flagged.Reverse(true);
  k.Reverse();
  EXPECT_FALSE(k.reversed);
  EXPECT_TRUE(k == flagged);
  for (int v = 0; v < 5; ++v) EXPECT_EQ(k.GetSpanID(v), UNMARKED);
  k.Reverse();
  EXPECT_TRUE(k == Mixed());
  Kurve even = Square(1);
  Kurve again = Square(1);
  even.Add(Point(-1, -1));
  again = even;
  even.Reverse();
  ExpectVertex(even, 0, LINEAR, Point(-1, -1));
  even.Reverse();
  EXPECT_TRUE(even == again);
  Kurve none;
  none.Reverse();
  EXPECT_EQ(none.nVertices, 0);
}

TEST(Kurve, TurningRoundLeavesWordsAndTheFirstVertexInPlace) {
  Kurve k = Mixed();
  for (int v = 0; v < 5; ++v) k.ModifyIndex(v, static_cast<IndexWord>(v) + 20);
  k.Reverse();
  for (int v = 0; v < 5; ++v) EXPECT_EQ(k.GetIndex(v), static_cast<IndexWord>(v) + 20);
  Point p;
  Point pc;
  EXPECT_EQ(k.Get(0, p, pc), LINEAR);
  EXPECT_TRUE(pc == Point(0, 0));
  EXPECT_EQ(k.Get(1, p, pc), ACW) << "the half, the other way";
  EXPECT_TRUE(pc == Point(3, 3));
}

TEST(Kurve, ReduceDropsVerticesOfStraightRuns) {
  const UnitsGuard guard(0);
  Kurve k;
  for (int i = 0; i <= 10; ++i)
    k.Add(
        spVertex(LINEAR, Point(i, i % 2 == 0 ? 0 : 0.01), Point(0, 0), 100u + static_cast<std::uint32_t>(i)));
  k.Add(Point(10, 5));
  k.ModifyIndex(10, 42);
  k.Translate(0, 7);
  k.Reverse(true);
  EXPECT_EQ(k.Reduce(0.02), 9);
  EXPECT_EQ(k.nVertices, 3);
  EXPECT_TRUE(k.reversed);
  EXPECT_EQ(k.e[7], 7);
  k.Reverse(false);
  ExpectVertex(k, 1, LINEAR, Point(10, 0));
  EXPECT_EQ(k.GetSpanID(1), 110u);
  EXPECT_EQ(k.GetIndex(1), 42u);
  EXPECT_EQ(k.Reduce(0.02), 0);
}

TEST(Kurve, ReduceMeasuresAllVerticesOfARun) {
  const UnitsGuard guard(0);
  // A slow bend: every vertex is near the line over its neighbours, but not near the whole run.
  Kurve k;
  for (int i = 0; i <= 200; ++i) k.Add(Point(100 * std::sin(i * 0.005), 100 - 100 * std::cos(i * 0.005)));
  Kurve reduced = k;
  EXPECT_GT(reduced.Reduce(0.05), 150);
  for (int v = 0; v <= 200; ++v) {
    Point p;
    Point pc;
    k.Get(v, p, pc);
    int span = 0;
    EXPECT_LE(Dist(p, reduced.Near(p, span)), 0.0501) << v;
  }
}

TEST(Kurve, ReduceDropsVerticesAtTheToleranceItself) {
  Kurve k;
  for (const Point& p : {Point(0, 0), Point(1, 0.25), Point(2, 0), Point(2, 5)}) k.Add(p);
  EXPECT_EQ(k.Reduce(0.25), 1);
  ExpectVertex(k, 1, LINEAR, Point(2, 0));
}

TEST(Kurve, ReduceKeepsArcsShortContoursAndTheStart) {
  Kurve k = Mixed();
  EXPECT_EQ(k.Reduce(0.001), 0);
  EXPECT_TRUE(k == Mixed());
  Kurve twoSpans;
  for (int i = 0; i < 3; ++i) twoSpans.Add(Point(i, 0));
  EXPECT_EQ(twoSpans.Reduce(1), 0) << "below three spans";
  Kurve arcs;
  arcs.Start(Point(0, 0));
  for (int i = 1; i <= 4; ++i) arcs.Add(Point(i, 0));
  arcs.Add(ACW, Point(5, 1), Point(4, 1));
  for (int i = 2; i <= 4; ++i) arcs.Add(Point(5, i));
  EXPECT_EQ(arcs.Reduce(1e-6), 5);
  ExpectVertex(arcs, 1, LINEAR, Point(4, 0));
  ExpectVertex(arcs, 2, ACW, Point(5, 1));
  ExpectVertex(arcs, 3, LINEAR, Point(5, 4));
  Kurve closed;
  for (const Point& p : {Point(1, 0), Point(2, 0), Point(2, 2), Point(0, 2), Point(0, 0), Point(1, 0)})
    closed.Add(p);
  EXPECT_EQ(closed.Reduce(1e-6), 0) << "the start stays, although it is on a line";
}

TEST(Kurve, ReduceOfALongLineLeavesItsEnds) {
  Kurve k;
  for (int i = 0; i < 20000; ++i) k.Add(Point(i, 0));
  EXPECT_EQ(k.Reduce(1e-6), 19998);
}

TEST(Kurve, ReduceLooksIntoWholeBlocksOfVertices) {
  const UnitsGuard guard(0);
  Kurve k;
  for (int i = 0; i <= 200; ++i) k.Add(Point(i, i == 77 ? 0.5 : 0.0));
  EXPECT_EQ(k.Reduce(0.1), 196);
  ExpectVertex(k, 1, LINEAR, Point(76, 0));
  ExpectVertex(k, 2, LINEAR, Point(77, 0.5));
}

TEST(Kurve, SplitTurnsArcsIntoChordsWithinTheTolerance) {
  const UnitsGuard guard(0);
  Kurve k(Point(5, 5), 20, CW);
  k.ModifyIndex(2, 9);
  EXPECT_TRUE(k.Split(1, 0.01));
  const int count = 2 * SegmentCount(0.01, kPi, 20, 1);
  EXPECT_EQ(k.SpanCount(), count);
  EXPECT_TRUE(k.Closed());
  EXPECT_EQ(k.GetIndex(count), 9u);
  for (int i = 1; i <= count; ++i) {
    Span span;
    EXPECT_EQ(k.Get(i, span, true), LINEAR);
    EXPECT_NEAR(Dist(span.p1, Point(5, 5)), 20, 1e-9);
    EXPECT_LE(20 - Dist(span.Mid(), Point(5, 5)), 0.01 + 1e-9);
    EXPECT_EQ(span.ID, FULL_CIRCLE_KURVE);
  }
  EXPECT_NEAR(k.Area(), 400 * kPi, 1);
  EXPECT_FALSE(k.Split(1, 0.01));
}

TEST(Kurve, SplitLeavesSmallArcsAndSingleChords) {
  const UnitsGuard guard(0);
  Kurve k = Mixed();
  EXPECT_FALSE(k.Split(1.1, 0.001));
  EXPECT_FALSE(k.Split(0, 1.5)) << "one chord would do";
  EXPECT_TRUE(k == Mixed());
  EXPECT_TRUE(k.Split(1, 0.5));
  EXPECT_EQ(k.SpanCount(), 2 + SegmentCount(0.5, kPi / 2, 1, 1) + SegmentCount(0.5, kPi, 1, 1) - 0);
}

TEST(Kurve, EqualityReadsVertexByVertex) {
  Kurve k = Square(1);
  EXPECT_TRUE(k == Square(1));
  EXPECT_FALSE(k == Mixed());
  Kurve shorter = Square(1);
  shorter.Replace(4, LINEAR, Point(0, 0.5), Point(0, 0));
  EXPECT_FALSE(k == shorter);
  shorter.Start(Point(0, 0));
  EXPECT_FALSE(k == shorter);
}

TEST(Kurve, ACircleIsTwoHalves) {
  const Kurve k(Point(1, 2), 3, CW);
  EXPECT_EQ(k.nVertices, 3);
  ExpectVertex(k, 0, LINEAR, Point(4, 2));
  ExpectVertex(k, 1, CW, Point(-2, 2));
  ExpectVertex(k, 2, CW, Point(4, 2));
  EXPECT_TRUE(k.Closed());
  for (int v = 0; v < 3; ++v) EXPECT_EQ(k.GetSpanID(v), FULL_CIRCLE_KURVE);
}

TEST(Kurve, FromAWorkingContourTakesTheStoredSpans) {
  KurveEx source;
  source.Start(Point(0, 0));
  source.Add(spVertex(LINEAR, Point(2, 0), Point(0, 0), 21));
  source.AddNullSpan();
  source.Add(spVertex(ACW, Point(3, 1), Point(2, 1), 22));
  source.Reverse(true);
  Kurve k(source);
  EXPECT_TRUE(k.unit);
  EXPECT_TRUE(k.reversed);
  EXPECT_EQ(k.nVertices, 4);
  k.Reverse(false);
  ExpectVertex(k, 0, LINEAR, Point(0, 0));
  ExpectVertex(k, 2, LINEAR, Point(2, 0));
  ExpectVertex(k, 3, ACW, Point(3, 1));
  EXPECT_EQ(k.GetSpanID(1), 21u);
  EXPECT_EQ(k.GetSpanID(3), 22u);
  KurveEx onlyStarted;
  onlyStarted.Start(Point(5, 5));
  EXPECT_EQ(Kurve(onlyStarted).nVertices, 1);
  EXPECT_FALSE(Kurve(KurveEx()).started);
}

TEST(Kurve, AcceptsNumbersThatAreNotFinite) {
  for (const double bad : {kNaN, kInfinity, 1e300, -1e-320}) {
    Kurve k = Square(1);
    k.Add(Point(bad, 0.5));
    k.Add(CW, Point(3, 3), Point(bad, bad));
    k.Add(Point(4, bad));
    k.Add(Point(0, 0));
    int number = 0;
    Point min;
    Point max;
    const std::wstring mismatch = L"Invalid Geometry - Radii mismatch - SetProperties";
    for (const std::wstring& text :
         {ThrownText([&] { k.Perim(); }), ThrownText([&] { k.Area(); }),
          ThrownText([&] { k.Minmax(min, max); }), ThrownText([&] { k.Near(Point(bad, 1), number); }),
          ThrownText([&] { k.NearToVertex(Point(bad, 1), number); }), ThrownText([&] { k.Reduce(0.1); }),
          ThrownText([&] { k.Split(0, 0.1); })}) {
      EXPECT_TRUE(text.empty() || text == mismatch);
    }
    Matrix m;
    m.Scale(bad);
    k = m;
    k.Reverse();
    ThrownText([&] { k.NearToVertex(Point(1, 1), number); });
  }
}

}  // namespace
}  // namespace geometry

#include "geometry/equalise.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "geometry/support.h"
#include "geometry/text_support.h"

namespace geometry {
namespace {

using testing::Folder;
using testing::kNaN;
using testing::kPi;
using testing::Random;
using testing::ReadBytes;
using testing::ThrownText;
using testing::UnitsGuard;
using testing::Wide;

KurveEx Polyline(std::initializer_list<Point> points) {
  KurveEx k;
  for (const Point& p : points) k.Add(LINEAR, p, Point(0, 0), true);
  return k;
}

/// Millimetres, and the diagnostic file in a folder of its own.
class EqualiseTest : public ::testing::Test {
 protected:
  EqualiseTest() { SetDiagnosticPath(Wide(folder / "failed.xml")); }
  ~EqualiseTest() override { SetDiagnosticPath(L""); }

  int Equalise(const KurveEx& a, const KurveEx& b, bool force = false) {
    return EqualiseSpanCount(a, b, outA, outB, force);
  }

  /// Both have the count, and each is as long as its source and ends where it ends.
  void ExpectSound(const KurveEx& a, const KurveEx& b) const {
    EXPECT_EQ(outA.SpanCount(), outB.SpanCount());
    EXPECT_NEAR(outA.perim, a.perim, 1e-6);
    EXPECT_NEAR(outB.perim, b.perim, 1e-6);
    EXPECT_TRUE(outA.End() == a.End());
    EXPECT_TRUE(outB.End() == b.End());
  }

  const Folder folder;
  const UnitsGuard units{0};
  KurveEx outA, outB;
};

TEST_F(EqualiseTest, TwoEmptyContoursAreZero) {
  outA = Polyline({{0, 0}, {1, 1}});
  EXPECT_EQ(Equalise(KurveEx(), KurveEx()), 0);
  EXPECT_EQ(outA.SpanCount(), 0);
}

TEST_F(EqualiseTest, EqualCountsAreCopiedUnlessForced) {
  const KurveEx a = Polyline({{0, 0}, {1, 0}, {4, 0}});
  const KurveEx b = Polyline({{0, 5}, {3, 5}, {4, 5}});
  EXPECT_EQ(Equalise(a, b), 2);
  EXPECT_TRUE(outA == a);
  EXPECT_TRUE(outB == b);
  EXPECT_EQ(Equalise(a, b, true), 3);
  ExpectSound(a, b);
  EXPECT_NEAR(outA.spans[0].p1.x, 1, 1e-9);
  EXPECT_NEAR(outA.spans[1].p1.x, 3, 1e-9);
  EXPECT_NEAR(outB.spans[0].p1.x, 1, 1e-9);
}

TEST_F(EqualiseTest, AContourWithoutLengthGetsNullSpansAtItsPoint) {
  const KurveEx five = Polyline({{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}});
  const KurveEx point = Polyline({{7, 8}});
  EXPECT_EQ(Equalise(point, five), 5);
  EXPECT_TRUE(outB == five);
  EXPECT_EQ(outA.SpanCount(), 5);
  EXPECT_TRUE(outA.Start() == Point(7, 8));
  EXPECT_TRUE(outA.End() == Point(7, 8));
  for (const Span& span : outA.spans) EXPECT_TRUE(span.NullSpan);
  EXPECT_EQ(Equalise(five, point), 5);
  EXPECT_TRUE(outA == five);
  EXPECT_TRUE(outB.Start() == Point(7, 8));
}

TEST_F(EqualiseTest, AContourWithoutAStartHasItsNullSpansAtTheOrigin) {
  EXPECT_EQ(Equalise(KurveEx(), Polyline({{3, 3}, {4, 4}})), 1);
  EXPECT_TRUE(outA.Start() == Point(0, 0));
}

TEST_F(EqualiseTest, SpansTakeEqualSharesOfTheirContours) {
  // Lengths 2, 6 against 1, 1, 2: the ratio is 2.
  const KurveEx a = Polyline({{0, 0}, {2, 0}, {8, 0}});
  const KurveEx b = Polyline({{0, 1}, {1, 1}, {2, 1}, {4, 1}});
  EXPECT_EQ(Equalise(a, b), 3);
  ExpectSound(a, b);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(outA.spans[i].length, 2 * outB.spans[i].length, 1e-9) << i;
  }
}

TEST_F(EqualiseTest, ArcsAreCutAlongTheirCircle) {
  const KurveEx circle(Point(0, 0), 10, CW);
  const KurveEx square = Polyline({{5, 5}, {5, -5}, {-5, -5}, {-5, 5}, {5, 5}});
  EXPECT_EQ(Equalise(circle, square), 4);
  ExpectSound(circle, square);
  for (const Span& span : outA.spans) {
    EXPECT_EQ(span.dir, CW);
    EXPECT_NEAR(span.length, 5 * kPi, 1e-9);
    EXPECT_NEAR(Dist(span.pc, Point(0, 0)), 0, 1e-9);
  }
  EXPECT_NEAR(outA.area, circle.area, 1e-6);
}

TEST_F(EqualiseTest, WholeSpansHaveIdZeroAndCutOnesAreUnmarked) {
  KurveEx a;
  a.Start(Point(0, 0));
  a.Add(spVertex(LINEAR, Point(4, 0), Point(0, 0), 77));
  const KurveEx b = Polyline({{0, 0}, {1, 0}, {4, 0}});
  EXPECT_EQ(Equalise(a, b), 2);
  EXPECT_EQ(outA.spans[0].ID, UNMARKED);
  EXPECT_EQ(outB.spans[0].ID, 0U);
  // The last ones are equal: the first contour's is whole then, the second one's is cut at its end.
  EXPECT_EQ(outA.spans[1].ID, 0U);
  EXPECT_EQ(outB.spans[1].ID, UNMARKED);
}

TEST_F(EqualiseTest, NullSpansArePassedOver) {
  KurveEx a = Polyline({{0, 0}, {1, 0}});
  a.AddNullSpan();
  a.Add(2, 0);
  a.AddNullSpan();
  const KurveEx b = Polyline({{0, 1}, {2, 1}});
  EXPECT_EQ(Equalise(a, b), 2);
  ExpectSound(a, b);
}

TEST_F(EqualiseTest, ReversedContoursAreTakenAsTheyRead) {
  KurveEx a = Polyline({{0, 0}, {1, 0}, {4, 0}});
  a.Reverse(true);
  EXPECT_EQ(Equalise(a, Polyline({{0, 1}, {4, 1}})), 2);
  EXPECT_TRUE(outA.Start() == Point(4, 0));
  EXPECT_NEAR(outB.spans[0].length, 3, 1e-9);
}

TEST_F(EqualiseTest, ResultsMayTakeThePlaceOfTheirSources) {
  KurveEx a = Polyline({{0, 0}, {1, 0}, {4, 0}});
  KurveEx b = Polyline({{0, 1}, {4, 1}});
  EXPECT_EQ(EqualiseSpanCount(a, b, b, a, false), 2);
  EXPECT_TRUE(b.Start() == Point(0, 0));
  EXPECT_TRUE(a.Start() == Point(0, 1));
  EXPECT_EQ(EqualiseSpanCount(a, b, b, a, false), 2);
  EXPECT_TRUE(b.Start() == Point(0, 1));
}

TEST_F(EqualiseTest, ValidContoursOfAnyKindNeverFail) {
  Random random(8);
  for (int round = 0; round < 300; ++round) {
    KurveEx pair[2];
    for (KurveEx& k : pair) {
      k.Start(Point(random.Between(-50, 50), random.Between(-50, 50)));
      for (int n = 1 + random.Below(12); n > 0; --n) {
        const Point centre(random.Between(-50, 50), random.Between(-50, 50));
        Vector2d spoke(centre, k.End());
        // Arcs near a half turn count as one, so their parts do not add up to them.
        spoke.Rotate(n % 3 == 0 ? kPi - 0.002 : random.Between(0.1, 6));
        k.Add(random.Below(2) == 0 ? LINEAR : ACW, centre + spoke, centre);
      }
    }
    const int count = EqualiseSpanCount(pair[0], pair[1], outA, outB, true);
    EXPECT_GE(count, std::max(pair[0].SpanCount(), pair[1].SpanCount())) << round;
    EXPECT_EQ(outA.SpanCount(), outB.SpanCount());
    EXPECT_LT(Dist(outA.End(), pair[0].End()), TOLERANCE);
    EXPECT_LT(Dist(outB.End(), pair[1].End()), TOLERANCE);
  }
}

TEST_F(EqualiseTest, ARestThatRoundingLeftJoinsTheLastPiece) {
  KurveEx a = Polyline({{0, 0}, {1, 0}, {2, 0}});
  const KurveEx b = Polyline({{0, 1}, {2, 1}});
  a.perim += 0.004;  // as if sums had been that inexact
  EXPECT_EQ(Equalise(a, b), 2);
  EXPECT_TRUE(outA.End() == Point(2, 0));
  EXPECT_TRUE(outB.End() == Point(2, 1));
  EXPECT_NEAR(outB.perim, 2, 1e-9);
}

TEST_F(EqualiseTest, FalseTotalsFailAndLeaveBothContoursInAFile) {
  KurveEx a = Polyline({{0, 0}, {1, 0}, {2, 0}});
  const KurveEx b = Polyline({{0, 1}, {2, 1}, {3, 1}, {4, 1}});
  a.perim = 8;
  outA = Polyline({{9, 9}, {8, 8}});
  EXPECT_EQ(ThrownText([&] { Equalise(a, b); }), L"EqualiseSpanCount - failed to equalise spans");
  EXPECT_EQ(outA.SpanCount(), 1) << "results stay";
  const std::string file = ReadBytes(folder / "failed.xml");
  EXPECT_THAT(file, ::testing::StartsWith("<FailedEqualiseSpanCount>\n<KURVEEX name=\"first\" "
                                          "nVertices=\"3\">\n<SPAN name=\"\""));
  EXPECT_THAT(file, ::testing::HasSubstr("<KURVEEX name=\"second\" nVertices=\"4\">"));
  EXPECT_THAT(file, ::testing::EndsWith("</KURVEEX>\n</FailedEqualiseSpanCount>\n"));
}

TEST_F(EqualiseTest, TheDiagnosticFileIsInMillimetres) {
  const UnitsGuard metres(2);
  KurveEx a = Polyline({{0, 0}, {0.25, 0}, {0.5, 0}});
  a.perim = 9;
  EXPECT_NE(ThrownText([&] { Equalise(a, Polyline({{0, 0}, {1, 0}, {2, 0}, {3, 0}})); }), L"");
  EXPECT_THAT(ReadBytes(folder / "failed.xml"), ::testing::HasSubstr("x=\"250\" y=\"0\""));
}

TEST_F(EqualiseTest, ADiagnosticFileThatCannotBeWrittenIsReportedBeforeTheFailure) {
  static std::wstring shown;
  const MessageSink former =
      SetMessageSink([](const std::wstring& text, const std::wstring&, bool) { shown = text; });
  SetDiagnosticPath(Wide(folder / "missing/failed.xml"));
  KurveEx a = Polyline({{0, 0}, {1, 0}, {2, 0}});
  a.perim = 8;
  EXPECT_EQ(ThrownText([&] {
              Equalise(a, Polyline({{0, 1}, {2, 1}, {3, 1}, {4, 1}}));
            }),
            L"EqualiseSpanCount - failed to equalise spans");
  SetMessageSink(former);
  EXPECT_THAT(shown, ::testing::StartsWith(L"Cannot open output XML file - "));
}

TEST_F(EqualiseTest, WithoutAPathTheDiagnosticFileIsAmongTheTemporaryOnes) {
  SetDiagnosticPath(L"");
  const std::string former = std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "";
  setenv("TMPDIR", folder.path().c_str(), 1);
  KurveEx a = Polyline({{0, 0}, {1, 0}, {2, 0}});
  a.perim = 8;
  EXPECT_NE(ThrownText([&] { Equalise(a, Polyline({{0, 1}, {2, 1}, {3, 1}, {4, 1}})); }), L"");
  former.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", former.c_str(), 1);
  EXPECT_THAT(ReadBytes(folder / "failedEqualiseSpanCount.xml"), ::testing::HasSubstr("second"));
}

TEST_F(EqualiseTest, NumbersThatAreNotFiniteDoNotHang) {
  KurveEx a = Polyline({{0, 0}, {1, 0}, {2, 0}});
  for (const double perim : {kNaN, 1e300, testing::kInfinity}) {
    a.perim = perim;
    ThrownText([&] { Equalise(a, Polyline({{0, 1}, {2, 1}, {3, 1}, {4, 1}})); });
  }
}

/// A contour along the x axis whose spans have these IDs.
KurveEx WithIds(std::initializer_list<std::uint32_t> IDs, double y = 0) {
  KurveEx k;
  k.Start(Point(0, y));
  double x = 0;
  for (const std::uint32_t ID : IDs) k.Add(spVertex(LINEAR, Point(++x, y), Point(0, 0), ID));
  return k;
}

std::vector<int> NullsOf(const KurveEx& k) {
  std::vector<int> nulls;
  for (const Span& span : k.spans) nulls.push_back(span.NullSpan ? 1 : 0);
  return nulls;
}

class EqualiseByIdTest : public EqualiseTest {};

using ::testing::ElementsAre;

TEST_F(EqualiseByIdTest, EqualIdsArePairedAndMissingOnesAreNull) {
  const KurveEx a = WithIds({0, 1, 3});
  const KurveEx b = WithIds({1, 2, 3, 7}, 5);
  EXPECT_TRUE(EqualiseByID(a, b, outA, outB));
  EXPECT_THAT(NullsOf(outA), ElementsAre(0, 0, 1, 0, 1));
  EXPECT_THAT(NullsOf(outB), ElementsAre(1, 0, 0, 0, 0));
  EXPECT_TRUE(outA.End() == a.End());
  EXPECT_TRUE(outB.Start() == b.Start());
  EXPECT_EQ(outA.spans[3].ID, 3U);
}

TEST_F(EqualiseByIdTest, RollAroundsMeetOnlyRollArounds) {
  EXPECT_TRUE(EqualiseByID(WithIds({1, ROLL_AROUND | 2, 2}), WithIds({1, 2}, 5), outA, outB));
  EXPECT_THAT(NullsOf(outA), ElementsAre(0, 0, 0));
  EXPECT_THAT(NullsOf(outB), ElementsAre(0, 1, 0));
  EXPECT_TRUE(EqualiseByID(WithIds({ROLL_AROUND | 4}), WithIds({ROLL_AROUND | 4}), outA, outB));
  EXPECT_THAT(NullsOf(outB), ElementsAre(0));
}

TEST_F(EqualiseByIdTest, AnUnmarkedSpanAsksForEqualCounts) {
  const KurveEx a = WithIds({1, UNMARKED, 2});
  EXPECT_TRUE(EqualiseByID(a, WithIds({1, 2, 3}, 5), outA, outB));
  EXPECT_TRUE(outA == a) << "copies";
  EXPECT_EQ(outB.spans[2].ID, 3U);
  EXPECT_FALSE(EqualiseByID(WithIds({1, 2}), WithIds({UNMARKED}, 5), outA, outB));
  EXPECT_EQ(outA.SpanCount(), 0);
  EXPECT_EQ(outB.SpanCount(), 0);
  EXPECT_TRUE(EqualiseByID(WithIds({1, UNMARKED | 2}), WithIds({1, 2}, 5), outA, outB))
      << "only the exact value ends it";
}

TEST_F(EqualiseByIdTest, IdsThatFallNeverMatch) {
  outA = WithIds({1});
  EXPECT_FALSE(EqualiseByID(WithIds({2, 1}), WithIds({1, 2}, 5), outA, outB));
  EXPECT_EQ(outA.SpanCount(), 0);
  EXPECT_FALSE(EqualiseByID(WithIds({FULL_CIRCLE_KURVE}), WithIds({FULL_CIRCLE_KURVE}), outA, outB));
}

TEST_F(EqualiseByIdTest, LargeNumbersTakeNoTime) {
  EXPECT_TRUE(EqualiseByID(WithIds({5, INTERSECTION, 0x7fffffffu & ~ROLL_AROUND}),
                           WithIds({INTERSECTION | 9}), outA, outB));
  EXPECT_EQ(outA.SpanCount(), 4);
}

TEST_F(EqualiseByIdTest, ContoursWithoutLengthAreRefusedAndResultsStay) {
  outA = WithIds({1});
  EXPECT_FALSE(EqualiseByID(KurveEx(), WithIds({1}), outA, outB));
  EXPECT_FALSE(EqualiseByID(WithIds({1}), KurveEx(), outA, outB));
  EXPECT_EQ(outA.SpanCount(), 1);
}

TEST_F(EqualiseByIdTest, BothKeepTheirSense) {
  KurveEx a = WithIds({1, 2});
  a.Reverse(true);
  KurveEx b = WithIds({1, 2, 3}, 5);
  EXPECT_TRUE(EqualiseByID(a, b, outA, outB));
  EXPECT_TRUE(outA.reversed);
  EXPECT_FALSE(outB.reversed);
  EXPECT_TRUE(outA.End() == a.End());
  EXPECT_EQ(outA.area, a.area);
}

TEST_F(EqualiseByIdTest, TheShortFormReturnsTheSecondResult) {
  const auto second = EqualiseByID(WithIds({1}), WithIds({1, 2}, 5), outA);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(second->SpanCount(), 2);
  EXPECT_THAT(NullsOf(outA), ElementsAre(0, 1));
  EXPECT_EQ(EqualiseByID(WithIds({2, 1}), WithIds({1}), outA), nullptr);
}

}  // namespace
}  // namespace geometry

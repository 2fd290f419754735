#include "geometry/offset/loop_removal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "geometry/contour_text.h"
#include "geometry/loop_outcome.h"
#include "geometry/offset/box_levels.h"
#include "geometry/offset/near_index.h"
#include "geometry/random_contour.h"

namespace geometry {
namespace {

using testing::BytesOf;
using testing::CompactOf;
using testing::CompactOutcome;
using testing::ContourOf;
using testing::kInfinity;
using testing::kNaN;
using testing::Outcome;
using testing::Random;
using testing::Ring;
using testing::Scribble;
using testing::Text;
using testing::ThrownText;
using testing::UnitsGuard;

/// Far from everything, so that no crossing is too near.
const char* const kFar = "x1000 y1000; x1001 y1000";

/// `between` spans of a zigzag lie between the two that cross: the first, from (0, 0) to (10, 0), and the
/// last.
std::string LoopOver(int between) {
  std::string text = "x0 y0; x10 y0;";
  for (int i = 1; i < between; ++i) {
    text += "x" + Text(10 + 0.1 * i) + " y" + Text(4 + 0.1 * i) + ";";
  }
  return text + "x5 y30; x5 y-5; x-9 y-5";
}

class LoopTest : public ::testing::Test {
 protected:
  KurveEx Cut(std::string_view raw, std::string_view source, double off) {
    return EliminateLoops(ContourOf(raw), ContourOf(source), off, code_);
  }
  Kurve CutCompact(std::string_view raw, std::string_view source, double off) {
    return EliminateLoops(CompactOf(raw), CompactOf(source), off, code_);
  }

  UnitsGuard millimetres_{0};
  int code_ = -1;
};

TEST_F(LoopTest, OfNothingIsNothing) {
  EXPECT_EQ(EliminateLoops(KurveEx(), ContourOf(kFar), 1, code_).SpanCount(), 0);
  EXPECT_EQ(code_, 0);
  code_ = -1;
  EXPECT_EQ(EliminateLoops(Kurve(), Kurve(), 1, code_).nVertices, 0);
  EXPECT_EQ(code_, 0);
}

TEST_F(LoopTest, EndsASpanWhereALaterOneCrosses) {
  const KurveEx k = Cut(LoopOver(2), kFar, 1);
  EXPECT_EQ(code_, 0);
  EXPECT_TRUE(k == ContourOf("x0 y0; x5 y0; x5 y-5; x-9 y-5"));
  EXPECT_NEAR(k.perim, 5 + 5 + 14, 1e-9);
  EXPECT_NEAR(k.area, 0.5 * -14 * -10, 1e-9);
  const Kurve c = CutCompact(LoopOver(2), kFar, 1);
  EXPECT_TRUE(c == CompactOf("x0 y0; x5 y0; x5 y-5; x-9 y-5"));
}

TEST_F(LoopTest, LooksAtFiftyOneSpans) {
  // The neighbour of the first span and 50 more come before the last one that is compared.
  EXPECT_EQ(Cut(LoopOver(51), kFar, 1).SpanCount(), 3);
  EXPECT_EQ(Cut(LoopOver(52), kFar, 1).SpanCount(), 55);
}

TEST_F(LoopTest, LooksAtTwentySixSpansOfACompactContour) {
  EXPECT_EQ(CutCompact(LoopOver(26), kFar, 1).SpanCount(), 3);
  EXPECT_EQ(CutCompact(LoopOver(27), kFar, 1).SpanCount(), 30);
}

TEST_F(LoopTest, LooksAtAllOnceACrossingWasSeen) {
  // The source is near the first crossing, at (8, 0), and far from the one at (5, 0).
  std::string raw = "x0 y0; x10 y0; x10 y3; x8 y3; x8 y-1; x8.1 y3;";
  for (int i = 0; i < 80; ++i) raw += "x" + Text(8.2 + 0.1 * i) + " y" + Text(3 + i % 2) + ";";
  raw += "x20 y9; x5 y9; x5 y-5; x-9 y-5";
  EXPECT_EQ(Cut(raw, "x8 y0.5; x9 y0.5", 2).SpanCount(), 3);
  EXPECT_EQ(code_, 0);
  EXPECT_EQ(CutCompact(raw, "x8 y0.5; x9 y0.5", 2).SpanCount(), 3);
}

TEST_F(LoopTest, GivesUpWhereAllCrossingsAreTooNear) {
  const std::string raw = "x-30 y3; x0 y0; x10 y0; x10 y4; x5 y4; x5 y-5; x-9 y-5";
  const KurveEx k = Cut(raw, "x5 y0.5; x6 y0.5", 2);
  EXPECT_EQ(code_, 2);
  EXPECT_TRUE(k == ContourOf("x-30 y3; x0 y0"));
  EXPECT_NEAR(k.perim, std::sqrt(909.0), 1e-9);
  const Kurve c = CutCompact(raw, "x5 y0.5; x6 y0.5", 2);
  EXPECT_EQ(code_, 2);
  EXPECT_TRUE(c == CompactOf("x-30 y3; x0 y0"));
}

TEST_F(LoopTest, GivesUpAtTheFirstSpanWithItsStartAlone) {
  const Kurve c = CutCompact(LoopOver(2), "x5 y0.5; x6 y0.5", 2);
  EXPECT_EQ(code_, 2);
  EXPECT_EQ(c.nVertices, 1);
  const KurveEx k = Cut(LoopOver(2), "x5 y0.5; x6 y0.5", -2);
  EXPECT_EQ(code_, 2);
  EXPECT_EQ(k.SpanCount(), 0);
  EXPECT_EQ(k.Start(), Point(0, 0));
}

TEST_F(LoopTest, TooNearIsNearerThanTheOffsetLessTheTolerance) {
  // The crossing is at (5, 0), the source at distance 1.
  for (const double off : {1.0049, -1.0049, 1.0051}) {
    Cut(LoopOver(2), "x5 y1; x6 y1", off);
    EXPECT_EQ(code_, off > 1.005 ? 2 : 0) << off;
  }
}

TEST_F(LoopTest, ACrossingAtTheStartOfTheSpanDoesNotCount) {
  for (const double x : {0.004, 0.006}) {
    const std::string at = "x" + Text(x);
    const KurveEx k = Cut("x0 y0; x10 y0; x10 y4;" + at + " y4;" + at + " y-5", kFar, 1);
    EXPECT_EQ(k.SpanCount(), x < 0.005 ? 4 : 2) << x;
  }
}

TEST_F(LoopTest, OfTwoCrossingsTheEarlierOnTheSpanCounts) {
  // The arc meets the line at (7, 0) and at (1, 0), in one order or the other.
  for (const char* rest : {"x6 y5; tx2 y5 x4 y2; x2 y9", "x2 y8; x2 y5; ax6 y5 x4 y2; x6 y7"}) {
    const KurveEx k = Cut("x0 y0; x10 y0; x10 y5;" + std::string(rest), kFar, 1);
    ASSERT_EQ(k.SpanCount(), 3);
    EXPECT_EQ(k.spans[0].p1, Point(1, 0)) << rest;
  }
}

TEST_F(LoopTest, OfTwoCrossingsTheEarlierOnAnArcCounts) {
  // The line meets the clockwise arc from (0, 0) over (10, 10) to (20, 0) at (2, 6) and at (18, 6).
  for (const char* rest : {"x-5 y-5; x-5 y6; x25 y6", "x25 y-5; x25 y6; x-5 y6"}) {
    const KurveEx k = Cut("x0 y0; tx20 y0 x10 y0; x20 y-5;" + std::string(rest), kFar, 1);
    ASSERT_EQ(k.SpanCount(), 2);
    EXPECT_EQ(k.spans[0].p1, Point(2, 6)) << rest;
  }
}

TEST_F(LoopTest, ASpanIsScannedBeforeItsStartMoves) {
  // The third span begins a loop of its own before the place where the first one is cut to.
  const KurveEx k = Cut("x0 y0; x10 y0; x10 y5; x5 y5; x5 y-5; x20 y-5; x20 y3; x0 y3; x0 y9", kFar, 1);
  // First span 1 ends at (5, 0) and span 4 follows; span 4 is crossed at (5, 3), before (5, 0).
  EXPECT_EQ(code_, 0);
  EXPECT_TRUE(k == ContourOf("x0 y0; x5 y0; x5 y3; x0 y3; x0 y9"));
}

TEST_F(LoopTest, KeepsNullSpansInAKurveExAlone) {
  EXPECT_EQ(Cut("x0 y0; x5 y0; x5 y0; x9 y0", kFar, 1).SpanCount(), 3);
  EXPECT_EQ(CutCompact("x0 y0; x5 y0; x5 y0; x9 y0", kFar, 1).SpanCount(), 2);
}

TEST_F(LoopTest, ASpanThatBeginsElsewhereIsMovedToTheEnd) {
  KurveEx raw = ContourOf("x0 y0; x5 y0; x9 y4; x9 y8");
  raw.spans[1].p0 = Point(5, 1);
  raw.spans[1].SetProperties();
  const KurveEx k = EliminateLoops(raw, ContourOf(kFar), 1, code_);
  EXPECT_TRUE(k == ContourOf("x0 y0; x5 y0; x9 y4; x9 y8"));
  EXPECT_EQ(k.spans[1].length, std::sqrt(32.0));
}

TEST_F(LoopTest, BeginsWithItsFirstSpan) {
  KurveEx raw = ContourOf("x0 y0; x5 y0; x9 y4");
  raw.start = Point(7, 7);
  EXPECT_EQ(EliminateLoops(raw, ContourOf(kFar), 1, code_).start, Point(0, 0));
}

TEST_F(LoopTest, ReadsAReversedContourBackwards) {
  KurveEx raw = ContourOf("x-9 y-5; x5 y-5; x5 y4; x10 y4; x10 y0; x0 y0");
  raw.Reverse(true);
  const KurveEx k = EliminateLoops(raw, ContourOf(kFar), 1, code_);
  EXPECT_FALSE(k.reversed);
  EXPECT_TRUE(k == ContourOf("x0 y0; x5 y0; x5 y-5; x-9 y-5"));
}

TEST_F(LoopTest, ACompactResultHasTheMatrixAndTheFirstIDOfTheRawContour) {
  Kurve raw = CompactOf(LoopOver(2));
  raw.Translate(100, 0);
  raw.Replace(0, LINEAR, Point(0, 0), Point(0, 0), 7);
  const Kurve k = EliminateLoops(raw, CompactOf(kFar), 1, code_);
  EXPECT_TRUE(static_cast<const Matrix&>(k) == static_cast<const Matrix&>(raw));
  EXPECT_EQ(k.GetSpanID(0), 7u);
  EXPECT_TRUE(k == CompactOf("x0 y0; x5 y0; x5 y-5; x-9 y-5"));
}

TEST_F(LoopTest, AnIndexChangesNothing) {
  int cut = 0;
  int stuck = 0;
  int refused = 0;
  for (std::uint32_t seed = 0; seed < 10000; ++seed) {
    Random random(seed);
    const KurveEx source =
        seed % 2 == 0 ? Scribble(3 + random.Below(40), random) : Ring(4 + random.Below(80), random);
    const double off = random.Between(-6, 6);
    Kurve compact;
    Kurve(source).OffsetMethod1(compact, off, 1, 0);
    ASSERT_EQ(CompactOutcome(compact, source, off, Search::Indexed),
              CompactOutcome(compact, source, off, Search::Plain))
        << "seed " << seed;
    KurveEx raw;
    if (!ThrownText([&] { source.Offset(raw, off, 1, 0, 0); }).empty()) {
      ++refused;
      continue;
    }
    const std::string outcome = Outcome(raw, source, off, Search::Indexed);
    ASSERT_EQ(outcome, Outcome(raw, source, off, Search::Plain)) << "seed " << seed;
    cut += outcome.size() < 1 + BytesOf(raw).size() ? 1 : 0;
    stuck += outcome[0] == '2' ? 1 : 0;
  }
  EXPECT_GT(cut, 3000);
  EXPECT_GT(stuck, 1000);
  EXPECT_LT(refused, 100);
}

TEST_F(LoopTest, AnIndexChangesNothingForOddNumbers) {
  Random random(5);
  for (const double odd : {kNaN, kInfinity, -kInfinity, 1e300, 1e16, 1e5}) {
    for (const std::size_t i : {0u, 20u, 59u}) {
      KurveEx source = Ring(60, random);
      KurveEx raw;
      source.Offset(raw, 3, 1, 0, 0);
      for (KurveEx* k : {&raw, &source}) {
        Span& span = k->spans[i];
        span = Span(span.p0, Point(odd, span.p1.y));
      }
      EXPECT_EQ(Outcome(raw, source, 3, Search::Indexed), Outcome(raw, source, 3, Search::Plain)) << odd;
    }
  }
}

TEST_F(LoopTest, AnIndexChangesNothingForHugeArcs) {
  // Nearest points on the arc are as uncertain as its radius is large.
  const Point centre(0, 1e13);
  KurveEx source;
  source.Start(Point(-4e11, centre.y - std::sqrt(1e26 - 16e22)));
  source.Add(spVertex(ACW, Point(4e11, source.start.y), centre));
  const std::string raw = "x0 y0; x10 y0; x10 y4; x5 y4; x5 y-5";
  for (int i = 0; i < 100; ++i) {
    const double off = 1 + 0.002 * i;
    EXPECT_EQ(Outcome(ContourOf(raw), source, off, Search::Indexed),
              Outcome(ContourOf(raw), source, off, Search::Plain));
  }
}

TEST(NearIndex, OfSpansAndOfVerticesAgreesWithAllSpans) {
  const UnitsGuard millimetres(0);
  Random random(77);
  int within = 0;
  for (int i = 0; i < 200; ++i) {
    const Kurve k(Scribble(3 + random.Below(100), random));
    const std::vector<Span> spans = SpansOf(k);
    const VertexSpans vertices(k);
    NearIndex ofSpans(spans);
    NearIndex ofVertices(vertices);
    for (int probe = 0; probe < 50; ++probe) {
      const Point p(random.Between(-30, 30), random.Between(-30, 30));
      const double distance = random.Between(0, 3);
      const bool any = std::any_of(spans.begin(), spans.end(), [&](const Span& span) {
        double unusedAlong = 0;
        return Dist(p, span.NearClamped(p, unusedAlong)) < distance;
      });
      ASSERT_EQ(ofSpans.AnyWithin(p, distance), any);
      ASSERT_EQ(ofVertices.AnyWithin(p, distance), any);
      within += any ? 1 : 0;
    }
  }
  EXPECT_GT(within, 1000);
  EXPECT_LT(within, 9000);
}

TEST(BoxLevels, PassOverSpansOutsideAloneAndInOrder) {
  const UnitsGuard millimetres(0);
  for (const int count : {0, 1, 8, 9, 64, 65, 600, 4097}) {
    std::vector<Span> spans;
    for (int i = 0; i < count; ++i) spans.emplace_back(Point(i, 0), Point(i + 1, 0));
    BoxLevels levels(BoxesOf(spans));
    const auto n = static_cast<std::size_t>(count);
    // Asked for x from 100.5 to 103.5.
    const auto misses = [](const FlatBox& box) { return box.maxX < 100.5 || box.minX > 103.5; };
    std::vector<std::size_t> seen;
    for (std::size_t i = levels.Next(0, n, misses); i < n; i = levels.Next(i + 1, n, misses))
      seen.push_back(i);
    EXPECT_EQ(seen,
              count > 104 ? (std::vector<std::size_t>{100, 101, 102, 103}) : std::vector<std::size_t>());
    EXPECT_EQ(levels.Next(0, n, [](const FlatBox&) { return false; }), 0u);
    EXPECT_EQ(levels.Next(n, n, misses), n);
    EXPECT_EQ(levels.Next(0, std::min<std::size_t>(n, 50), misses), std::min<std::size_t>(n, 50));
  }
}

}  // namespace
}  // namespace geometry

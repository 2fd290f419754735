#include "geometry/region/separate_loops.h"

#include <gtest/gtest.h>

#include <string>

#include "geometry/region/advance.h"
#include "geometry/region/corner_trim.h"
#include "geometry/region/offset_chain.h"
#include "geometry/region_probe.h"
#include "geometry/region_shapes.h"

/// The proof that loops are apart, the shortening of offsets at corners, and both beside the arrangement.
namespace geometry::testing {
namespace {

using region::SeparateLoops;
using region::Sketch;

class SeparateLoopsTest : public ::testing::Test {
 protected:
  static RegionLoop Loop(const Point& start, const std::vector<spVertex>& vertices) {
    RegionLoop loop;
    Point from = start;
    for (const spVertex& v : vertices) {
      loop.spans.push_back({v.type, from, v.p, v.pc});
      from = v.p;
    }
    return loop;
  }
  static RegionLoop Lines(const std::vector<Point>& corners) {
    std::vector<spVertex> vertices;
    for (std::size_t i = 1; i <= corners.size(); ++i) {
      vertices.emplace_back(LINEAR, corners[i % corners.size()], Point());
    }
    return Loop(corners[0], vertices);
  }
  static RegionLoop Square(double x, double y, double side) {
    return Lines({{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}});
  }
  static RegionLoop Backwards(const RegionLoop& loop) {
    RegionLoop back;
    for (auto s = loop.spans.rbegin(); s != loop.spans.rend(); ++s) {
      back.spans.push_back({-s->dir, s->p1, s->p0, s->pc});
    }
    return back;
  }
  static RegionLoop Circle(double x, double y, double radius) {
    const Point right(x + radius, y), left(x - radius, y), centre(x, y);
    return Loop(right, {{ACW, left, centre}, {ACW, right, centre}});
  }
  static std::optional<Region> Prove(std::vector<RegionLoop> loops) {
    Region region;
    region.loops = loops;
    const Sketch sketch({&region});
    return Prove(sketch, loops, sketch.Resolution(0));
  }
  static std::optional<Region> Prove(const Sketch& sketch, std::vector<RegionLoop>& loops,
                                     double resolution) {
    const SeparateLoops separate(sketch, loops, resolution);
    if (!separate.IsSound() || separate.MeetingCount() > 0) return std::nullopt;
    return separate.TakeBoundary(loops);
  }
  static void ExpectProved(const std::vector<RegionLoop>& loops, std::size_t count, double area) {
    const auto made = Prove(loops);
    ASSERT_TRUE(made.has_value());
    EXPECT_EQ(made->loops.size(), count);
    EXPECT_NEAR(made->Area(), area, 1e-9);
  }

 private:
  UnitsGuard millimetres_{0};
};

TEST_F(SeparateLoopsTest, ALoopIsKeptWhenItIsAnticlockwise) {
  ExpectProved({Square(0, 0, 10)}, 1, 100);
  ExpectProved({Backwards(Square(0, 0, 10))}, 0, 0);
  ExpectProved({Circle(3, 4, 2)}, 1, 4 * kPi);
  ExpectProved({Backwards(Circle(3, 4, 2))}, 0, 0);
}

TEST_F(SeparateLoopsTest, NestedLoopsAreKeptWhereTheNumberOfTurnsBecomesPositive) {
  const RegionLoop outer = Square(0, 0, 10), inner = Square(2, 2, 4), core = Square(3, 3, 1);
  ExpectProved({outer, Backwards(inner)}, 2, 84);
  ExpectProved({Backwards(inner), outer, core}, 3, 85);
  ExpectProved({outer, inner}, 1, 100);
  ExpectProved({outer, inner, Backwards(core)}, 1, 100);
  ExpectProved({outer, Backwards(inner), Backwards(core)}, 2, 84);
  ExpectProved({Square(20, 0, 1), outer, Backwards(Square(30, 0, 5))}, 2, 101);
}

TEST_F(SeparateLoopsTest, LargeLoopsComeFirst) {
  const auto made = Prove({Square(20, 0, 1), Square(0, 0, 10), Circle(40, 0, 3)});
  ASSERT_TRUE(made.has_value());
  EXPECT_NEAR(made->loops[0].Area(), 100, 1e-9);
  EXPECT_NEAR(made->loops[2].Area(), 1, 1e-9);
}

TEST_F(SeparateLoopsTest, ASlantedSlotIsProvedThoughItsBoxesMeet) {
  const double c = std::sqrt(0.5);
  const RegionLoop slot = Loop({c, -c}, {{LINEAR, {100 + c, 100 - c}, {}},
                                         {ACW, {100 - c, 100 + c}, {100, 100}},
                                         {LINEAR, {-c, c}, {}},
                                         {ACW, {c, -c}, {0, 0}}});
  ExpectProved({slot}, 1, 2 * 100 * std::sqrt(2.0) + kPi);
}

TEST_F(SeparateLoopsTest, LoopsThatMeetAreNotProved) {
  EXPECT_FALSE(Prove({Square(0, 0, 10), Square(5, 5, 10)}));                           // cross
  EXPECT_FALSE(Prove({Square(0, 0, 10), Square(10, 10, 5)}));                          // one vertex
  EXPECT_FALSE(Prove({Square(0, 0, 10), Square(10, 2, 5)}));                           // a part of a side
  EXPECT_FALSE(Prove({Square(0, 0, 10), Square(0, 0, 10)}));                           // all
  EXPECT_FALSE(Prove({Square(0, 0, 10), Circle(5, 5, 5)}));                            // tangent
  EXPECT_FALSE(Prove({Circle(0, 0, 5), Circle(10, 0, 5)}));                            // tangent
  EXPECT_FALSE(Prove({Lines({{0, 0}, {10, 10}, {10, 0}, {0, 10}})}));                  // a bow tie
  EXPECT_FALSE(Prove({Lines({{0, 0}, {10, 0}, {10, 5}, {5, 0}, {0, 5}})}));            // a vertex on a side
  EXPECT_FALSE(Prove({Lines({{0, 0}, {10, 0}, {10, 10}, {10, 5}, {10, 0}})}));         // there and back
  EXPECT_FALSE(Prove({Loop({0, 0}, {{ACW, {0, 2}, {0, 1}}, {CW, {0, 0}, {0, 1}}})}));  // the same
}

TEST_F(SeparateLoopsTest, TheMarginIsBetweenATenthAndAMillionthOfAMicrometre) {
  EXPECT_TRUE(Prove({Square(0, 0, 10), Square(10 + 1e-8, 0, 10)}));
  EXPECT_FALSE(Prove({Square(0, 0, 10), Square(10 + 1e-12, 0, 10)}));
  EXPECT_TRUE(Prove({Circle(0, 0, 10), Circle(20 + 1e-8, 0, 10)}));
  EXPECT_FALSE(Prove({Circle(0, 0, 10), Circle(20 + 1e-12, 0, 10)}));
}

TEST_F(SeparateLoopsTest, PartsTooShortOrTooInexactProveNothing) {
  EXPECT_FALSE(Prove({Lines({{0, 0}, {10, 0}, {10, 10}, {10 - 1e-10, 10}, {0, 10}})}));
  EXPECT_FALSE(Prove({Loop({2, 0}, {{ACW, {-2, 0}, {0, 0}}, {ACW, {2, 0}, {0.001, 0}}})}));
}

TEST_F(SeparateLoopsTest, ACurveAdvancesInTheDirectionsOfItsTangent) {
  Random random(1);
  for (int i = 0; i < 2000; ++i) {
    const double angle = random.Below(4) == 0 ? random.Below(9) * kPi / 4 : random.Between(-4, 4);
    const Vector2d tangent(std::cos(angle), std::sin(angle));
    int count = 0;
    for (int n = 0; n < 64; ++n) {
      if ((region::AdvanceAlong(tangent) >> n & 1) == 0) continue;
      // Direction n is at n / 16 along the square |x| + |y| = 1 from the x axis.
      const double part = n % 16 / 16.0;
      Vector2d along(1 - part, part);
      for (int quarter = n / 16; quarter > 0; --quarter) along = along.LeftNormal();
      ASSERT_GT(Dot(tangent, along), 0.05 * along.Magnitude()) << angle << " " << n;
      ++count;
    }
    ASSERT_GE(count, 24) << angle;
  }
}

/// A span from or to the origin with the tangent (cos, sin) of an angle there.
RegionSpan SpanAtOrigin(double angle, double k, double length, bool isBefore) {
  const Vector2d tangent(std::cos(angle), std::sin(angle));
  RegionSpan span;
  const double sign = isBefore ? -1 : 1;
  Point far = Point(0, 0) + tangent * (sign * length);
  if (k != 0) {
    span.dir = k > 0 ? ACW : CW;
    span.pc = Point(0, 0) + tangent.LeftNormal() * (1 / k);
    const double sweep = sign * length * k;
    const Vector2d out(span.pc, Point(0, 0));
    far = span.pc + Vector2d(out.dx * std::cos(sweep) - out.dy * std::sin(sweep),
                             out.dy * std::cos(sweep) + out.dx * std::sin(sweep));
  }
  span.p0 = isBefore ? far : Point(0, 0);
  span.p1 = isBefore ? Point(0, 0) : far;
  return span;
}

TEST_F(SeparateLoopsTest, ShortenedOffsetsEndAtTheDistanceFromBothSpans) {
  Random random(2);
  int trimmed = 0;
  for (int i = 0; i < 20000; ++i) {
    const auto bend = [&] { return random.Below(3) == 0 ? 0.0 : random.Between(-0.3, 0.3); };
    const double turn = std::pow(10, random.Between(-8, 0.2)), left = random.Below(2) == 0 ? 1 : -1;
    const double in = random.Between(-4, 4), out = in + left * turn;
    Region both;
    both.loops.emplace_back();
    both.loops[0].spans = {SpanAtOrigin(in, bend(), random.Between(0.1, 9), true),
                           SpanAtOrigin(out, bend(), random.Between(0.1, 9), false)};
    const Sketch sketch({&both});
    const std::vector<RegionSpan>& spans = both.loops[0].spans;
    Vector2d common;
    if (!TrimCorner(sketch.ShapeOf(spans[0]), sketch.ShapeOf(spans[1]), left, common)) continue;
    ++trimmed;
    for (const RegionSpan& span : spans) {
      ASSERT_NEAR(DistanceTo(span, sketch.PointAt(common)), 1, 1e-9) << i << " turn " << turn;
    }
  }
  EXPECT_GT(trimmed, 8000);
}

TEST_F(SeparateLoopsTest, OffsetsAreNotShortenedBeyondTheHalfOfASpan) {
  const auto trims = [](double k, double length) {
    Region both;
    both.loops.emplace_back();
    both.loops[0].spans = {SpanAtOrigin(0, 0, 9, true), SpanAtOrigin(1, k, length, false)};
    const Sketch sketch({&both});
    Vector2d common;
    return TrimCorner(sketch.ShapeOf(both.loops[0].spans[0]), sketch.ShapeOf(both.loops[0].spans[1]), 1,
                      common);
  };
  EXPECT_TRUE(trims(0, 2) && trims(0.1, 2) && trims(-0.1, 2));
  EXPECT_FALSE(trims(0, 1) || trims(0.1, 1) || trims(-0.1, 1));
  // Neither where the offset of the arc has gone.
  EXPECT_FALSE(trims(1.5, 2));
}

bool IsPositive(const region::Turns& turns) {
  return turns[0] > 0;
}

/// The offset curves of a region, arranged as a whole.
Region Arranged(Sketch sketch, const std::vector<RegionLoop>& loops) {
  sketch.AddLoops(loops, {1, 0});
  return FacesOf(sketch, IsPositive);
}

TEST_F(SeparateLoopsTest, WhatIsProvedChangesNothingInWhatTheArrangementMakes) {
  int none = 0, some = 0, all = 0;
  for (int seed = 0; seed < 3000; ++seed) {
    Random random(static_cast<std::uint32_t>(seed));
    const bool isLattice = seed % 2 == 1;
    const Region region = Clean(isLattice ? LatticeContour(3 + random.Below(9), 9, random)
                                          : Scribble(4 + random.Below(9), random));
    const double distance = (isLattice ? 0.25 : random.Between(0.02, 1)) * (random.Below(2) == 0 ? -1 : 1);
    Sketch sketch({&region});
    region::OffsetChain chain(sketch, distance, {});
    std::vector<RegionLoop> loops;
    for (const RegionLoop& loop : region.loops) loops.push_back(chain.Around(loop.spans));
    const SeparateLoops separate(sketch, loops, chain.Resolution());
    std::size_t spans = 0;
    for (const RegionLoop& loop : loops) spans += loop.spans.size();
    const std::size_t meeting = separate.IsSound() ? separate.MeetingCount() : spans;
    ++(meeting == 0 ? none : meeting < spans ? some : all);
    const Region arranged = Arranged(sketch, loops);
    const Region made = PositiveFacesOf(sketch, loops, chain.Resolution());
    ASSERT_TRUE(arranged.ok && made.ok);
    ASSERT_EQ(made.loops.size(), arranged.loops.size()) << seed;
    ASSERT_NEAR(made.Area(), arranged.Area(), 1e-8 * (1 + region.Area())) << seed;
    ASSERT_NEAR(made.Perimeter(), arranged.Perimeter(), 1e-7 * (1 + region.Perimeter())) << seed;
    for (const RegionLoop& loop : made.loops) {
      Point end = loop.spans.back().p1;
      for (const RegionSpan& span : loop.spans) {
        ASSERT_EQ(Dist(end, span.p0), 0) << seed;
        end = span.p1;
      }
    }
  }
  EXPECT_GT(none, 100);
  EXPECT_GT(some, 300);
}

}  // namespace
}  // namespace geometry::testing

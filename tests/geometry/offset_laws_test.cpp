#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>

#include "geometry/offset.h"
#include "geometry/random_contour.h"

/// Laws of the offsets of contours that do not cross themselves, tested with many random ones. The seeds are
/// fixed. Where the steps break a law now and then, the law says how often; offset_limits_test.cpp has small
/// contours of that kind.
namespace geometry {
namespace {

using testing::Random;
using testing::Ring;
using testing::UnitsGuard;

constexpr int kContours = 3000;

double DistanceTo(const KurveEx& k, const Point& p) {
  double best = 1e100;
  for (const Span& span : k.spans) {
    Point nearest;
    best = std::min(best, span.Dist(p, nearest));
  }
  return best;
}

/// How far the points of `k` come nearer to `source` than `distance`, at the worst.
double Intrusion(const KurveEx& k, const KurveEx& source, double distance) {
  double worst = 0;
  for (const Span& span : k.spans) {
    for (const double f : {0.0, 0.25, 0.5, 0.75}) {
      worst = std::max(worst, distance - DistanceTo(source, span.AlongFraction(f)));
    }
  }
  return worst;
}

/// A ring, and how far it is to be offset: inwards for a positive distance.
struct Case {
  int seed;
  KurveEx ring;
  double off;
};

/// The result of `Offset`; the code is -1 when it threw.
struct Made {
  int code;
  KurveEx contour;
};

Made OffsetOf(const KurveEx& k, double off) {
  Made made{-1, {}};
  try {
    made.code = k.Offset(made.contour, off, 1, 1, 0);
  } catch (const wchar_t*) {
  }
  return made;
}

/// The contours of `kContours` for which `holds` is false.
int Breaks(const std::function<bool(const Case&)>& holds) {
  int breaks = 0;
  for (int seed = 0; seed < kContours; ++seed) {
    Random random(static_cast<std::uint32_t>(seed));
    Case c{seed, Ring(4 + random.Below(24), random), 0};
    c.off = random.Between(-6, 6);
    breaks += holds(c) ? 0 : 1;
  }
  return breaks;
}

bool Near(double a, double b, double relative) {
  return std::fabs(a - b) <= relative * std::max(std::fabs(a), std::fabs(b));
}

class OffsetLaws : public ::testing::Test {
 protected:
  UnitsGuard millimetres_{0};
};

TEST_F(OffsetLaws, NearlyAllContoursHaveOne) {
  EXPECT_LE(Breaks([](const Case& c) { return OffsetOf(c.ring, c.off).code == 0; }), kContours / 100);
}

TEST_F(OffsetLaws, AGoodOneIsClosedAndTurnsTheSameWay) {
  EXPECT_EQ(Breaks([](const Case& c) {
              const Made made = OffsetOf(c.ring, c.off);
              return made.code != 0 || (made.contour.Closed() && made.contour.area < 0);
            }),
            0);
}

TEST_F(OffsetLaws, OutwardGrowsAndInwardShrinks) {
  EXPECT_EQ(Breaks([](const Case& c) {
              const Made made = OffsetOf(c.ring, c.off);
              if (made.code != 0 || std::fabs(c.off) < TOLERANCE) return true;
              return (c.off > 0) == (made.contour.area > c.ring.area);
            }),
            0);
}

TEST_F(OffsetLaws, TotalsAreThoseOfTheSpans) {
  EXPECT_EQ(Breaks([](const Case& c) {
              const Made made = OffsetOf(c.ring, c.off);
              double perim = 0;
              double area = 0;
              for (const Span& span : made.contour.spans) {
                perim += span.length;
                area += span.Area();
              }
              return made.code != 0 ||
                     (Near(made.contour.perim, perim, 1e-12) && Near(made.contour.area, area, 1e-9));
            }),
            0);
}

TEST_F(OffsetLaws, SpansFollowEachOther) {
  EXPECT_EQ(Breaks([](const Case& c) {
              const Made made = OffsetOf(c.ring, c.off);
              for (std::size_t i = 1; i < made.contour.spans.size(); ++i) {
                const Point& end = made.contour.spans[i - 1].p1;
                const Point& begin = made.contour.spans[i].p0;
                if (end.x != begin.x || end.y != begin.y) return false;
              }
              return true;
            }),
            0);
}

TEST_F(OffsetLaws, AGoodOneKeepsItsDistance) {
  EXPECT_LE(Breaks([](const Case& c) {
              const Made made = OffsetOf(c.ring, c.off);
              return made.code != 0 || Intrusion(made.contour, c.ring, std::fabs(c.off)) <= 2 * TOLERANCE;
            }),
            3);
}

TEST_F(OffsetLaws, OutAndInAgainLosesNothing) {
  // What comes back is the contour without its notches, which the way out has filled.
  EXPECT_LE(Breaks([](const Case& c) {
              const Made out = OffsetOf(c.ring, -std::fabs(c.off));
              if (out.code != 0) return true;
              const Made back = OffsetOf(out.contour, std::fabs(c.off));
              return back.code == 0 && back.contour.area <= c.ring.area * (1 - 1e-4);
            }),
            kContours / 100);
}

TEST_F(OffsetLaws, TheStartingSpanMattersSeldom) {
  EXPECT_LE(Breaks([](const Case& c) {
              KurveEx turned;
              const std::size_t n = c.ring.spans.size();
              for (std::size_t i = 0; i < n; ++i) turned.Add(c.ring.spans[(n / 2 + i) % n], true);
              const Made a = OffsetOf(c.ring, c.off);
              const Made b = OffsetOf(turned, c.off);
              return a.code == b.code && (a.code != 0 || Near(a.contour.area, b.contour.area, 1e-4));
            }),
            kContours / 100);
}

TEST_F(OffsetLaws, AMirroredContourHasTheMirroredOne) {
  Matrix mirror;
  mirror.Mirror(PLANE_YZ);
  EXPECT_EQ(Breaks([&](const Case& c) {
              KurveEx moved;
              for (Span span : c.ring.spans) {
                span.Transform(mirror);
                moved.Add(span, true);
              }
              const Made a = OffsetOf(c.ring, c.off);
              const Made b = OffsetOf(moved, -c.off);
              if (a.code != b.code || a.contour.SpanCount() != b.contour.SpanCount()) return false;
              for (std::size_t i = 0; i < a.contour.spans.size(); ++i) {
                if (!(a.contour.spans[i].p1 == b.contour.spans[i].p1.Transform(mirror))) return false;
              }
              return true;
            }),
            0);
}

TEST_F(OffsetLaws, MetresHaveTheShapeOfMillimetres) {
  EXPECT_EQ(Breaks([](const Case& c) {
              const Made a = OffsetOf(c.ring, c.off);
              SetUnits(2);
              KurveEx small;
              for (Span span : c.ring.spans) {
                span.Scale(0.001);
                small.Add(span, true);
              }
              const Made b = OffsetOf(small, c.off * 0.001);
              SetUnits(0);
              return a.code == b.code && (a.code != 0 || Near(a.contour.area, b.contour.area * 1e6, 1e-4));
            }),
            0);
}

TEST_F(OffsetLaws, ACompactContourHasTheOneOfAKurveEx) {
  // Their loops are looked for over different counts of spans, and arcs that vanish are treated differently.
  EXPECT_LE(Breaks([](const Case& c) {
              const Made a = OffsetOf(c.ring, c.off);
              Kurve made;
              const int code = Kurve(c.ring).OffsetMethod1(made, c.off, 1, 1);
              return a.code != 0 || code != 0 || Near(a.contour.area, made.Area(), 1e-4);
            }),
            kContours / 50);
}

}  // namespace
}  // namespace geometry

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

#include "geometry/contour_index.h"
#include "geometry/intersect.h"

/// The time per span of each query, next to a loop of the bare arithmetic, and the gain of an index.
/// Every time is for all spans of the contour; items per second count spans, or queries for the indexed
/// forms.
namespace {

using namespace geometry;

constexpr int kSpans = 100000;

/// A ring with ripples: lines, or lines and arcs in turn.
Kurve Ring(int count, bool withArcs) {
  Kurve k;
  const auto at = [count](int i) {
    const double angle = 2 * PI * i / count;
    const double r = 10 + std::sin(40 * angle);
    return Point(r * std::cos(angle), r * std::sin(angle));
  };
  k.Start(at(0));
  for (int i = 1; i <= count; ++i) {
    const Point from = at(i - 1);
    const Point to = at(i);
    const CLine chord(from, to);
    const Point centre((from.x + to.x) / 2 - chord.v.dy * 0.5, (from.y + to.y) / 2 + chord.v.dx * 0.5);
    k.Add(withArcs && i % 2 == 0 ? ACW : LINEAR, to, centre);
  }
  return k;
}

std::vector<Point> Queries() {
  std::mt19937 engine(1);
  std::uniform_real_distribution<double> place(-12, 12);
  std::vector<Point> points;
  points.reserve(1024);
  for (int i = 0; i < 1024; ++i) points.emplace_back(place(engine), place(engine));
  return points;
}

void CountSpans(benchmark::State& state, int spans = kSpans) {
  state.SetItemsProcessed(state.iterations() * spans);
}

void SetPropertiesOfLines(benchmark::State& state) {
  KurveEx k(Ring(kSpans, false));
  for (auto _ : state) {
    for (Span& span : k.spans) span.SetProperties();
    benchmark::ClobberMemory();
  }
  CountSpans(state);
}
BENCHMARK(SetPropertiesOfLines)->Unit(benchmark::kMillisecond);

void SetPropertiesOfArcs(benchmark::State& state) {
  KurveEx k(Ring(kSpans, true));
  for (auto _ : state) {
    for (std::size_t i = 1; i < k.spans.size(); i += 2) k.spans[i].SetProperties();
    benchmark::ClobberMemory();
  }
  CountSpans(state, kSpans / 2);
}
BENCHMARK(SetPropertiesOfArcs)->Unit(benchmark::kMillisecond);

/// The tangents and the angle alone.
void BareArcArithmetic(benchmark::State& state) {
  const KurveEx k(Ring(kSpans, true));
  for (auto _ : state) {
    double sum = 0;
    for (std::size_t i = 1; i < k.spans.size(); i += 2) {
      const Span& s = k.spans[i];
      const double ax = s.p0.x - s.pc.x;
      const double ay = s.p0.y - s.pc.y;
      const double bx = s.p1.x - s.pc.x;
      const double by = s.p1.y - s.pc.y;
      const double ra = std::sqrt(ax * ax + ay * ay);
      const double rb = std::sqrt(bx * bx + by * by);
      sum += ra * std::acos((ax * bx + ay * by) / (ra * rb));
    }
    benchmark::DoNotOptimize(sum);
  }
  CountSpans(state, kSpans / 2);
}
BENCHMARK(BareArcArithmetic)->Unit(benchmark::kMillisecond);

void PerimOfCompactContour(benchmark::State& state) {
  const Kurve k = Ring(kSpans, state.range(0) != 0);
  for (auto _ : state) benchmark::DoNotOptimize(k.Perim());
  CountSpans(state);
}
BENCHMARK(PerimOfCompactContour)->ArgName("arcs")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BarePerimeter(benchmark::State& state) {
  const KurveEx k(Ring(kSpans, false));
  for (auto _ : state) {
    double sum = 0;
    for (const Span& s : k.spans) {
      const double dx = s.p1.x - s.p0.x;
      const double dy = s.p1.y - s.p0.y;
      sum += std::sqrt(dx * dx + dy * dy);
    }
    benchmark::DoNotOptimize(sum);
  }
  CountSpans(state);
}
BENCHMARK(BarePerimeter)->Unit(benchmark::kMillisecond);

void NearOnCompactContour(benchmark::State& state) {
  const Kurve k = Ring(kSpans, state.range(0) != 0);
  const auto queries = Queries();
  std::size_t i = 0;
  for (auto _ : state) {
    int span = 0;
    benchmark::DoNotOptimize(k.Near(queries[i++ % queries.size()], span));
  }
  CountSpans(state);
}
BENCHMARK(NearOnCompactContour)->ArgName("arcs")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void Near(benchmark::State& state) {
  const KurveEx k(Ring(kSpans, state.range(0) != 0));
  const auto queries = Queries();
  std::size_t i = 0;
  for (auto _ : state) {
    int span = 0;
    double t = 0;
    benchmark::DoNotOptimize(k.Near(queries[i++ % queries.size()], span, t));
  }
  CountSpans(state);
}
BENCHMARK(Near)->ArgName("arcs")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// The foot on each line, clamped, and its squared distance.
void BareNear(benchmark::State& state) {
  const KurveEx k(Ring(kSpans, false));
  const auto queries = Queries();
  std::size_t i = 0;
  for (auto _ : state) {
    const Point& p = queries[i++ % queries.size()];
    double best = 1e100;
    for (const Span& s : k.spans) {
      const double t = (p.x - s.p0.x) * s.vs.dx + (p.y - s.p0.y) * s.vs.dy;
      const double clamped = t < 0 ? 0 : t > s.length ? s.length : t;
      const double dx = p.x - s.p0.x - clamped * s.vs.dx;
      const double dy = p.y - s.p0.y - clamped * s.vs.dy;
      best = std::min(best, dx * dx + dy * dy);
    }
    benchmark::DoNotOptimize(best);
  }
  CountSpans(state);
}
BENCHMARK(BareNear)->Unit(benchmark::kMillisecond);

void WindingNumber(benchmark::State& state) {
  const KurveEx k(Ring(kSpans, false));
  const auto queries = Queries();
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(k.windingNumber(queries[i++ % queries.size()]));
  CountSpans(state);
}
BENCHMARK(WindingNumber)->Unit(benchmark::kMillisecond);

void BareWinding(benchmark::State& state) {
  const KurveEx k(Ring(kSpans, false));
  const auto queries = Queries();
  std::size_t i = 0;
  for (auto _ : state) {
    const Point& p = queries[i++ % queries.size()];
    int count = 0;
    for (const Span& s : k.spans) {
      const double side = (s.p0.x - p.x) * (s.p1.y - p.y) - (s.p0.y - p.y) * (s.p1.x - p.x);
      count += (s.p0.y <= p.y && s.p1.y > p.y && side > 0) - (s.p0.y > p.y && s.p1.y <= p.y && side < 0);
    }
    benchmark::DoNotOptimize(count);
  }
  CountSpans(state);
}
BENCHMARK(BareWinding)->Unit(benchmark::kMillisecond);

void IntofWithEverySpan(benchmark::State& state) {
  const KurveEx k(Ring(kSpans, state.range(0) != 0));
  // From border to border of the ring, so that no box is out of the way.
  const Span line(Point(-11, -11), Point(11, 11));
  const Span arc(CW, Point(-10, 0), Point(10, 0), Point(0, 0));
  const Span& other = state.range(1) != 0 ? arc : line;
  for (auto _ : state) {
    int count = 0;
    for (const Span& span : k.spans) {
      Point p1;
      Point p2;
      count += Intof(span, other, p1, p2);
    }
    benchmark::DoNotOptimize(count);
  }
  CountSpans(state);
}
BENCHMARK(IntofWithEverySpan)
    ->ArgNames({"arcs", "withArc"})
    ->ArgsProduct({{0, 1}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

void BareIntof(benchmark::State& state) {
  const KurveEx k(Ring(kSpans, false));
  const Point from(-11, -11);
  const Point to(11, 11);
  for (auto _ : state) {
    int count = 0;
    for (const Span& s : k.spans) {
      const double ax = s.p1.x - s.p0.x;
      const double ay = s.p1.y - s.p0.y;
      const double bx = to.x - from.x;
      const double by = to.y - from.y;
      const double cx = from.x - s.p0.x;
      const double cy = from.y - s.p0.y;
      const double den = bx * ay - by * ax;
      const double t = (bx * cy - by * cx) / den;
      const double u = (ax * cy - ay * cx) / den;
      count += t >= 0 && t <= 1 && u >= 0 && u <= 1 ? 1 : 0;
    }
    benchmark::DoNotOptimize(count);
  }
  CountSpans(state);
}
BENCHMARK(BareIntof)->Unit(benchmark::kMillisecond);

void BuildIndex(benchmark::State& state) {
  const KurveEx k(Ring(kSpans, false));
  for (auto _ : state) benchmark::DoNotOptimize(ContourIndex(k));
  CountSpans(state);
}
BENCHMARK(BuildIndex)->Unit(benchmark::kMillisecond);

void IndexedNear(benchmark::State& state) {
  const ContourIndex index(KurveEx(Ring(kSpans, state.range(0) != 0)));
  const auto queries = Queries();
  std::size_t i = 0;
  for (auto _ : state) {
    int span = 0;
    double t = 0;
    benchmark::DoNotOptimize(index.Near(queries[i++ % queries.size()], span, t));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(IndexedNear)->ArgName("arcs")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void IndexedWindingNumber(benchmark::State& state) {
  const ContourIndex index(KurveEx(Ring(kSpans, false)));
  const auto queries = Queries();
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(index.windingNumber(queries[i++ % queries.size()]));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(IndexedWindingNumber)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();

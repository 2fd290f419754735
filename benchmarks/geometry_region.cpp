#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

#include "geometry/offset.h"
#include "geometry/region.h"
#include "offset_contours.h"

/// The time of the offset of a region, or of thickening an open contour, for each span, beside that of the
/// offset by the steps.
namespace vanzet::benchmarks {
namespace {

constexpr double kDistance = 1.5;  ///< mm
constexpr int kSizes[] = {100, 1000, 10000, 100000};

void CountSpans(benchmark::State& state, std::size_t spans) {
  state.counters["time/span"] =
      benchmark::Counter(static_cast<double>(spans),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void OffsetBySteps(benchmark::State& state, const Kind& kind, int spans, double distance) {
  const KurveEx k = kind.make(spans);
  for (auto _ : state) {
    KurveEx offset;
    benchmark::DoNotOptimize(k.Offset(offset, distance, 1, 1, 0));
  }
  CountSpans(state, k.spans.size());
}

void OffsetOfRegion(benchmark::State& state, const Kind& kind, int spans, double distance) {
  const KurveEx k = kind.make(spans);
  const geometry::Region region = geometry::Clean(k);
  for (auto _ : state) {
    const geometry::Region offset = geometry::OffsetRegion(region, distance);
    if (!offset.ok) state.SkipWithError("the region could not be computed");
    benchmark::DoNotOptimize(offset.loops.size());
  }
  CountSpans(state, k.spans.size());
}

/// Both sides and the ends of an open contour.
void ThickPath(benchmark::State& state, const Kind& kind, int spans, double distance) {
  const KurveEx k = kind.make(spans);
  for (auto _ : state) {
    const geometry::Region thick = geometry::Thicken(k, std::abs(distance));
    if (!thick.ok) state.SkipWithError("the region could not be computed");
    benchmark::DoNotOptimize(thick.loops.size());
  }
  CountSpans(state, k.spans.size());
}

void Register(const Kind& kind, int spans) {
  const bool isClosed = kind.make(100).Closed();
  for (const double distance : {kDistance, -kDistance}) {
    const std::string place =
        std::string("/") + kind.name + "/" + std::to_string(spans) + (distance > 0 ? "/inward" : "/outward");
    const auto add = [&](const std::string& name, auto measure) {
      benchmark::RegisterBenchmark((name + place).c_str(), [&kind, spans, distance, measure](auto& state) {
        measure(state, kind, spans, distance);
      })->Unit(benchmark::kMicrosecond);
    };
    add("Steps", OffsetBySteps);
    if (isClosed) add("Region", OffsetOfRegion);
    if (!isClosed && distance > 0) add("Thick", ThickPath);
  }
}

}  // namespace
}  // namespace vanzet::benchmarks

int main(int argc, char** argv) {
  geometry::SetUnits(0);
  for (const auto& kind : vanzet::benchmarks::kKinds) {
    for (const int spans : vanzet::benchmarks::kSizes) vanzet::benchmarks::Register(kind, spans);
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}

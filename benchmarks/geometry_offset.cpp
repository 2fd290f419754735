#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdio>
#include <map>
#include <string>

#include "geometry/offset.h"
#include "offset_contours.h"
#include "offset_peer.h"

/// What an offset costs a span, beside building the same contour span by span, and beside Open CASCADE's
/// planar offset at the sizes it can do. All is measured in one run; the table at the end has the ratios.
namespace vanzet::benchmarks {
namespace {

using geometry::Kurve;

constexpr double kDistance = 1.5;  ///< mm
constexpr int kSizes[] = {100, 1000, 10000, 100000};
constexpr int kLargestForPeer = 1000;

void CountSpans(benchmark::State& state, std::size_t spans, int code = 0) {
  state.counters["time/span"] =
      benchmark::Counter(static_cast<double>(spans),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.counters["code"] = code;
}

/// To be compared with: every span's properties are made once.
void Build(benchmark::State& state, const Kind& kind, int spans) {
  const KurveEx k = kind.make(spans);
  for (auto _ : state) {
    KurveEx built;
    built.spans.reserve(k.spans.size());
    for (const geometry::Span& span : k.spans) built.Add(span);
    benchmark::DoNotOptimize(built.perim);
  }
  CountSpans(state, k.spans.size());
}

void OffsetOfKurveEx(benchmark::State& state, const Kind& kind, int spans, double distance) {
  const KurveEx k = kind.make(spans);
  int code = 0;
  for (auto _ : state) {
    KurveEx offset;
    code = k.Offset(offset, distance, 1, 1, 0);
    benchmark::DoNotOptimize(offset.perim);
  }
  CountSpans(state, k.spans.size(), code);
}

void OffsetOfKurve(benchmark::State& state, const Kind& kind, int spans, double distance) {
  const Kurve k(kind.make(spans));
  int code = 0;
  for (auto _ : state) {
    Kurve offset;
    code = k.OffsetMethod1(offset, distance, 1, 1);
    benchmark::DoNotOptimize(offset.nVertices);
  }
  CountSpans(state, static_cast<std::size_t>(k.SpanCount()), code);
}

void OffsetOfPeer(benchmark::State& state, const Kind& kind, int spans, double distance) {
  const KurveEx k = kind.make(spans);
  const PeerContour peer(k);
  bool done = false;
  for (auto _ : state) done = peer.Offset(distance);
  CountSpans(state, k.spans.size(), done ? 0 : 1);
}

/// Shows the runs as they come, and keeps them for the table.
class Table : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (!run.error_occurred)
        nanoseconds_[run.run_name.function_name] = 1e9 * run.counters.at("time/span").value;
    }
  }

  void Print() const {
    // Beside building; beside the time at 1,000 spans; how many times the peer takes.
    std::printf("\n%-32s %10s %10s %10s %10s\n", "", "ns/span", "/ build", "/ 1000", "peer /");
    for (const auto& [name, time] : nanoseconds_) {
      if (name.starts_with("Build") || name.starts_with("Peer")) continue;
      const std::string rest = name.substr(name.find('/'));
      const std::string kindAndSize = rest.substr(0, rest.rfind('/'));
      std::printf("%-32s %10.1f %10s %10s %10s\n", name.c_str(), time,
                  Ratio(time, "Build" + kindAndSize).c_str(), Growth(name, time).c_str(),
                  Inverse("Peer" + rest, time).c_str());
    }
  }

 private:
  std::string Ratio(double time, const std::string& base) const {
    const auto found = nanoseconds_.find(base);
    return found == nanoseconds_.end() ? "" : Rounded(time / found->second);
  }
  std::string Inverse(const std::string& base, double time) const {
    const auto found = nanoseconds_.find(base);
    return found == nanoseconds_.end() ? "" : Rounded(found->second / time);
  }
  /// From 1,000 spans on.
  std::string Growth(const std::string& name, double time) const {
    const std::size_t end = name.rfind('/');
    const std::size_t begin = name.rfind('/', end - 1);
    return Ratio(time, name.substr(0, begin) + "/1000" + name.substr(end));
  }
  static std::string Rounded(double ratio) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", ratio);
    return text;
  }

  std::map<std::string, double> nanoseconds_;
};

void Register(const Kind& kind, int spans) {
  const std::string place = std::string("/") + kind.name + "/" + std::to_string(spans);
  const auto add = [&](const std::string& name, auto measure) {
    benchmark::RegisterBenchmark(name.c_str(), measure)->Unit(benchmark::kMicrosecond);
  };
  add("Build" + place, [&kind, spans](benchmark::State& s) { Build(s, kind, spans); });
  for (const bool inward : {true, false}) {
    // Left of an anticlockwise contour is its inside.
    const double left = inward ? kDistance : -kDistance;
    const std::string way = inward ? "/inward" : "/outward";
    add("KurveEx" + place + way,
        [&kind, spans, left](benchmark::State& s) { OffsetOfKurveEx(s, kind, spans, left); });
    add("Kurve" + place + way,
        [&kind, spans, left](benchmark::State& s) { OffsetOfKurve(s, kind, spans, left); });
    if (spans > kLargestForPeer) continue;
    add("Peer" + place + way,
        [&kind, spans, left](benchmark::State& s) { OffsetOfPeer(s, kind, spans, -left); });
  }
}

}  // namespace
}  // namespace vanzet::benchmarks

int main(int argc, char** argv) {
  geometry::SetUnits(0);
  // Memory is kept from run to run, so that the work is measured and not how the system hands out pages.
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  for (const auto& kind : vanzet::benchmarks::kKinds) {
    for (const int spans : vanzet::benchmarks::kSizes) vanzet::benchmarks::Register(kind, spans);
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  vanzet::benchmarks::Table table;
  benchmark::RunSpecifiedBenchmarks(&table);
  table.Print();
}

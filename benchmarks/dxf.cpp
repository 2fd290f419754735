// The cost of a large drawing: reading its groups, making arcs of its splines, and joining its pieces.

#include <benchmark/benchmark.h>

#include <sstream>
#include <string>

#include "contour/contour_file.h"
#include "contour/library.h"

namespace {

using namespace vanzet;

/// A drawing of as many entities as are asked for: outlines, circles, lines, and every eighth a spline.
std::string Drawing(std::int64_t entities) {
  std::string text = "0\nSECTION\n2\nENTITIES\n";
  for (std::int64_t i = 0; i < entities; ++i) {
    const auto at = [&](int code, double x, double y) {
      text += std::to_string(code) + "\n" + std::to_string(static_cast<double>(i % 400) * 30 + x) + "\n" +
              std::to_string(code + 10) + "\n" + std::to_string(static_cast<double>(i / 400) * 30 + y) + "\n";
    };
    if (i % 8 == 7) {
      text += "0\nSPLINE\n8\nCUT\n71\n3\n40\n0\n40\n0\n40\n0\n40\n0\n40\n1\n40\n1\n40\n1\n40\n1\n";
      for (const int pole : {0, 1, 2, 3}) at(10, 5 * pole, pole % 2 == 0 ? 0 : 9);
    } else if (i % 2 == 0) {
      text += "0\nLWPOLYLINE\n8\nCUT\n90\n3\n70\n1\n";
      for (const int corner : {0, 1, 2}) at(10, corner > 0 ? 10 : 0, corner > 1 ? 10 : 0);
    } else {
      text += "0\nCIRCLE\n8\nCUT\n40\n5.5\n";
      at(10, 0, 0);
    }
  }
  return text + "0\nENDSEC\n0\nEOF\n";
}

void ReadDrawing(benchmark::State& state) {
  contour::UseMillimetres();
  const std::string text = Drawing(state.range(0));
  for (auto run : state) {
    std::istringstream stream(text);
    const auto content = contour::ReadDxf(stream, "drawing.dxf", {});
    benchmark::DoNotOptimize(content);
    if (!content) state.SkipWithError(content.fault().text.c_str());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(text.size()));
  state.counters["megabytes"] = static_cast<double>(text.size()) / 1e6;
}
BENCHMARK(ReadDrawing)->Arg(20'000)->Arg(40'000)->Arg(80'000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

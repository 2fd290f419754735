// The cost of a large catalogue on the command line: reading it, and finding the devices that fit, as
// `vanzet catalogue list` and `search` do before they print; and the same with the text that is printed.

#include <benchmark/benchmark.h>

#include <string>

#include "catalogue/kinds.h"
#include "catalogue/query.h"
#include "catalogue/rules.h"
#include "devices/kinds.h"

namespace {

using namespace vanzet;

/// Devices of all parametric kinds in turn, with values that differ.
std::string LargeCatalogue(std::int64_t devices) {
  std::string text;
  for (std::int64_t i = 0; i < devices; ++i) {
    DeviceParams params = devices::Find(static_cast<std::int32_t>(1 + i % 14))->example;
    params.A += 0.001 * static_cast<double>(i);
    text += "Device " + std::to_string(i) + "\n" + catalogue::ValueLineOf(params) + "\n";
  }
  return text;
}

/// Reads the catalogue and searches it for a text.
void Find(benchmark::State& state, const char* text) {
  const std::string file = LargeCatalogue(state.range(0));
  std::size_t found = 0;
  for (auto _ : state) {
    const catalogue::Shop shop = catalogue::ShopOfText(file, "benchmark");
    found = Search(shop, catalogue::QueryOf(text)).size();
  }
  state.counters["found"] = static_cast<double>(found);
}

/// The same, with the letters of each device as text.
void ListAll(benchmark::State& state) {
  const std::string file = LargeCatalogue(state.range(0));
  for (auto _ : state) {
    const catalogue::Shop shop = catalogue::ShopOfText(file, "benchmark");
    std::string list;
    for (const catalogue::Entry& entry : shop.catalogue.entries())
      list.append(entry.name).append(catalogue::LettersText(entry.params)).append("\n");
    benchmark::DoNotOptimize(list.data());
  }
}

BENCHMARK_CAPTURE(Find, Everything, "")->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Find, Words, "device 9999")->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Find, Range, "A=70..90")->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(ListAll)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

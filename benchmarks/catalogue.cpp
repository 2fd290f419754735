// What a large catalogue of clamp devices costs: reading it whole, listing the names of one type, and finding
// the last name, as the dialog's pages do at each activation.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/files/whole_file.h"
#include "catalogue/catalogue_lines.h"
#include "catalogue/device_catalogue.h"
#include "host/host_function.h"
#include "macro/device_record.h"
#include "platform/message_box.h"

namespace {

using namespace vanzet;

/// What a host without any function answers.
void* Nothing() {
  return nullptr;
}

/// No host: every function is missing, and nobody is told. The path of the catalogue is set by hand.
class NoHost final : public platform::BoxPresenter {
 public:
  NoHost() {
    host::symbolFinder = [](void*, const char*) { return reinterpret_cast<void*>(&Nothing); };
  }
  std::int32_t Present(const platform::MessageBox& message) override {
    return platform::SafeAnswer(message.type);
  }

 private:
  platform::PresenterScope scope_{*this};
};

std::string NameOf(std::int64_t number) {
  return "Device " + std::to_string(number);
}

/// Devices of all parametric types in turn, in a file of the benchmark's own.
class LargeCatalogue {
 public:
  explicit LargeCatalogue(std::int64_t devices)
      : file_(std::filesystem::temp_directory_path() /
              ("vanzet-benchmark-" + std::to_string(devices) + ".cld")) {
    std::vector<std::string> lines;
    for (std::int64_t i = 0; i < devices; ++i) {
      DeviceParams params = {.type = static_cast<std::int32_t>(1 + i % 14)};
      for (double DeviceParams::*const real : kDeviceReals) params.*real = 0.25 * static_cast<double>(i);
      NormaliseDeviceParams(params);
      lines.push_back(NameOf(i));
      PackDeviceParams(params, lines.emplace_back());
    }
    static_cast<void>(files::ReplaceFile(file_, CatalogueText(lines), files::Keep::kIdentity));
    device.SetPath(file_.string());
  }
  ~LargeCatalogue() { std::filesystem::remove(file_); }
  LargeCatalogue(const LargeCatalogue&) = delete;
  LargeCatalogue& operator=(const LargeCatalogue&) = delete;

  CDevice device;

 private:
  std::filesystem::path file_;
};

void ReadFile(benchmark::State& state) {
  LargeCatalogue catalogue(state.range(0));
  for (auto _ : state) {
    if (!catalogue.device.ReadFile()) state.SkipWithError("the file cannot be read");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void WriteFile(benchmark::State& state) {
  LargeCatalogue catalogue(state.range(0));
  static_cast<void>(catalogue.device.ReadFile());
  for (auto _ : state) {
    if (!catalogue.device.WriteFile()) state.SkipWithError("the file cannot be written");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void NamesOfType(benchmark::State& state) {
  LargeCatalogue catalogue(state.range(0));
  static_cast<void>(catalogue.device.ReadFile());
  std::vector<std::string> names;
  for (auto _ : state) {
    catalogue.device.NamesOfType(5, names);
    benchmark::DoNotOptimize(names.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void FindTheLastName(benchmark::State& state) {
  LargeCatalogue catalogue(state.range(0));
  static_cast<void>(catalogue.device.ReadFile());
  const std::string last = NameOf(state.range(0) - 1);
  for (auto _ : state) {
    if (!catalogue.device.HasDevice(last)) state.SkipWithError("the last name is missing");
  }
}

BENCHMARK(ReadFile)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(WriteFile)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(NamesOfType)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(FindTheLastName)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  const NoHost host;
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}

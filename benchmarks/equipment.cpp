// The CPU time of whole programs that make files of the equipment, with all programs that they run, and the
// most memory that one of them had: exports in each format, and a picture.

#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <sys/resource.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace {

void Run(const std::string& arguments) {
  const std::string line = std::string("'") + VANZET_PROGRAM + "' " + arguments + " >/dev/null";
  if (std::system(line.c_str()) != 0) throw std::runtime_error(line);
}

rusage OfChildren() {
  rusage usage = {};
  getrusage(RUSAGE_CHILDREN, &usage);
  return usage;
}

double CpuSeconds(const rusage& usage) {
  const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// A project with the bar job: two clamp devices, three jaws and a bar.
struct Project {
  Project() {
    std::string name = (std::filesystem::temp_directory_path() / "vanzet-benchmark-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder could be made");
    folder = name;
    Run("new '" + name + "/lathe'");
    Run("define '" VANZET_EXAMPLES "/definitions/bar-job.json' '" + name + "/lathe'");
  }
  ~Project() { std::filesystem::remove_all(folder); }
  Project(const Project&) = delete;
  Project& operator=(const Project&) = delete;
  std::filesystem::path folder;
};

void Measure(benchmark::State& state, const std::string& command, const std::string& options) {
  const Project project;
  const std::string folder = project.folder.string();
  for (auto _ : state) {
    const double before = CpuSeconds(OfChildren());
    Run(command + " '" + folder + "/lathe' --out '" + folder + "/" + options);
    state.SetIterationTime(CpuSeconds(OfChildren()) - before);
  }
  // Of the largest program so far, so that the first measurement alone is exact where a later one is smaller.
  state.counters["MB"] = static_cast<double>(OfChildren().ru_maxrss) / 1024;
}

BENCHMARK_CAPTURE(Measure, wrl, "export", "wrl' --format wrl")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Measure, stl, "export", "stl' --format stl")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Measure, step, "export", "step' --format step")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Measure, gltf, "export", "gltf' --format gltf")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Measure, picture, "picture", "equipment.png' --view equipment")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

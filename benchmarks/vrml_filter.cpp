// What it costs to take the facets out of an exported file of 500 MB, beside a bare line-by-line copy of the
// same file: MB/s of both, their ratio, and by how much the program's memory grew meanwhile.

#include <stdlib.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "platform/line_reader.h"
#include "simulation/device_vrml.h"

namespace {

using namespace vanzet;

constexpr std::size_t kBytes = 500'000'000;

/// A file as the workbench exports one; it goes with its owner.
class ExportedFile {
 public:
  ExportedFile() : path_((std::filesystem::temp_directory_path() / "vanzet-benchmark-XXXXXX").string()) {
    const int handle = mkstemp(path_.data());
    if (handle < 0) throw std::runtime_error("no temporary file could be made");
    close(handle);
    std::ofstream text(path_);
    text << "#VRML V2.0 utf8\ncoord Coordinate { point [\n";
    const std::string point = "      -123.456789 98.765432 -0.000001,\n";
    for (std::size_t written = 0; written < kBytes; written += point.size()) text << point;
    text << "] }\ncoordIndex\n[\n0 1 2 -1\n]\n";
  }
  ~ExportedFile() { std::filesystem::remove(path_); }
  ExportedFile(const ExportedFile&) = delete;
  ExportedFile& operator=(const ExportedFile&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

std::size_t CopyLines(const std::string& path) {
  std::ifstream file(path);
  std::size_t bytes = 0;
  std::string copy;
  for (std::string line; std::getline(file, line);) {
    copy.assign(line).append("\n");
    bytes += copy.size();
  }
  return bytes;
}

std::size_t TakeFacets(const std::string& path) {
  platform::LineReader file(path);
  std::size_t bytes = 0;
  simulation::GiveFacets(file, [&bytes](const std::string& line) { bytes += line.size(); });
  return bytes;
}

/// The best of five runs, in MB/s.
template <class Work>
double MegabytesPerSecond(Work work) {
  double best = 0;
  for (int run = 0; run < 5; ++run) {
    const auto begin = std::chrono::steady_clock::now();
    if (work() == 0) throw std::runtime_error("nothing was read");
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    best = std::max(best, static_cast<double>(kBytes) / 1e6 / took.count());
  }
  return best;
}

long LargestMemoryInKilobytes() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

}  // namespace

int main() {
  const ExportedFile file;
  const double copy = MegabytesPerSecond([&file] { return CopyLines(file.path()); });
  const long before = LargestMemoryInKilobytes();
  const double filter = MegabytesPerSecond([&file] { return TakeFacets(file.path()); });
  std::printf("copy %.0f MB/s, filter %.0f MB/s, filter / copy %.2f, memory grew by %ld kB\n", copy, filter,
              filter / copy, LargestMemoryInKilobytes() - before);
  return 0;
}

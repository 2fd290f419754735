// The cost of the history of a store: bytes and time of a commit that changes one record of a definition,
// with generations kept and without, and how quick a store with 10,000 generations is beside one with 10. The
// contents are like those of definitions: a record of some kilobytes that changes among others that stay.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>

#include "history/history.h"
#include "support.h"
#include "vdm/store.h"

namespace {

using namespace vanzet;
using namespace vanzet::benchmarks;

constexpr int kRecords = 18;
constexpr int kItems = 60;  // of about 40 bytes
constexpr std::int64_t kVdm = 1000;

/// A project whose definition was committed `generations` times; each changed a record.
class Project {
 public:
  Project(int generations, std::int64_t keep) : store_(folder_.path) {
    store_.KeepGenerations(keep);
    vdm::Vdm content;
    for (int i = 0; i < kRecords; ++i) content.Insert(0, RecordOf(i));
    Check(store_.Replace(kVdm, content));
    Check(store_.Commit("benchmark"));
    while (generation_ < generations) Close();
  }

  /// Changes one item of a record.
  void Close() {
    const vdm::Handle handle = Get(store_.Open(kVdm));
    vdm::OpenVdm& open = *store_.Find(handle);
    open.Seek(++generation_ % kRecords);
    Check(open.SingleReplace("changed by " + std::to_string(generation_)));
    store_.Close(handle);
    Check(store_.Commit("benchmark"));
  }

  std::uintmax_t Bytes() const { return std::filesystem::file_size(folder_.path / "store.db"); }
  vdm::VdmStore& store() { return store_; }

  static std::size_t BytesOfRecord() { return vdm::BytesOf(RecordOf(1)).size(); }

 private:
  static vdm::Record RecordOf(int number) {
    std::vector<std::string> items;
    for (int i = 0; i < kItems; ++i) {
      char text[64];
      std::snprintf(text, sizeof(text), "%15.6f %15.6f %4d", i * 0.25, i * -0.125, number);
      items.emplace_back(text);
    }
    return vdm::Record(items);
  }

  Folder folder_;
  vdm::VdmStore store_;
  int generation_ = 1;
};

/// The median of some runs, in milliseconds.
double Milliseconds(int runs, const std::function<void()>& work) {
  std::vector<double> times;
  for (int i = 0; i < runs; ++i) {
    const auto start = std::chrono::steady_clock::now();
    work();
    times.push_back(
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
  }
  std::ranges::sort(times);
  return times[times.size() / 2];
}

constexpr std::int64_t kAll = 1'000'000;

void PrintBytes() {
  Project few(100, kAll), many(2100, kAll), flat(2100, 0);
  const double growth = static_cast<double>(many.Bytes() - few.Bytes()) / 2000;
  const auto record = static_cast<double>(Project::BytesOfRecord());
  std::printf("a generation: %.0f bytes, the record that it changes: %.0f bytes, ratio %.2f\n", growth,
              record, growth / record);
  std::printf("a store of 2100 commits: %.0f KB with all generations, %.0f KB with the last alone\n",
              static_cast<double>(many.Bytes()) / 1024, static_cast<double>(flat.Bytes()) / 1024);
}

/// The commits of the kinds are taken in turns, so that the disk is the same to all.
void PrintCommits() {
  Project none(500, 0), usual(500, vdm::kUsualKeep), all(500, kAll);
  std::vector<double> times[3];
  Project* const projects[3] = {&none, &usual, &all};
  for (int round = 0; round < 1000; ++round) {
    for (int i = 0; i < 3; ++i) times[i].push_back(Milliseconds(1, [&] { projects[i]->Close(); }));
  }
  for (auto& each : times) std::ranges::sort(each);
  const double base = times[0][500];
  std::printf("a commit, keep=0: %.3f ms; keep=200: %.3f ms (%.2f); all: %.3f ms (%.2f)\n", base,
              times[1][500], times[1][500] / base, times[2][500], times[2][500] / base);
}

void PrintReads() {
  Project few(10, kAll), many(10'000, kAll);
  const auto print = [&](const char* what, int runs, const std::function<void(Project&)>& work) {
    const double small = Milliseconds(runs, [&] { work(few); }),
                 large = Milliseconds(runs, [&] { work(many); });
    std::printf("%-42s %9.3f ms with 10 generations, %9.3f ms with 10,000\n", what, small, large);
  };
  const auto at = [](std::int64_t generation) {
    return [=](Project& project) { Get(project.store().ReadAt(generation, {})); };
  };
  print("read the current content", 201, [](Project& project) { Get(project.store().Snapshot(kVdm)); });
  print("list the VDMs", 201, [](Project& project) { Get(project.store().Numbers()); });
  print("commit", 51, [](Project& project) { project.Close(); });
  print("read the state after generation 1", 21, at(1));
  print("read the state after generation 10", 21, at(10));
  print("list the changes", 5, [](Project& project) { Get(project.store().ListChanges({})); });
  print("list the changes in words", 3,
        [](Project& project) { Get(history::History(project.store()).List()); });
  std::printf("removing all but the last of 10,000 generations: %.1f ms\n", Milliseconds(1, [&] {
                many.store().KeepGenerations(0);
                many.Close();
              }));
}

}  // namespace

int main() {
  PrintBytes();
  PrintCommits();
  PrintReads();
}

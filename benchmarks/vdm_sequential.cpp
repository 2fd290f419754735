// What it costs to add items one after the other in the middle of a record, from the creation of the VDM to
// its close on the disk, beside the plainest thing SQLite can do with the same texts: one row an item, one
// prepared statement, one transaction. At the end it prints ours / plain for each size.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <map>

#include "support.h"
#include "vdm/store.h"

namespace {

using namespace vanzet;
using namespace vanzet::benchmarks;

constexpr int kBehind = 1000;  // items behind the section that grows

/// Lines like those of a body's points: some forty characters, no two alike.
std::vector<std::string> Lines(int count) {
  std::vector<std::string> lines(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    char line[64];
    const int size = std::snprintf(line, sizeof(line), "%15.6f %15.6f %d,", i * 0.25, i * -0.125, i);
    lines[static_cast<std::size_t>(i)].assign(line, static_cast<std::size_t>(size));
  }
  return lines;
}

void Fill(vdm::VdmStore& store, std::int64_t number, const std::vector<std::string>& lines) {
  const vdm::Handle handle = Get(store.Create(number));
  vdm::OpenVdm& open = *store.Find(handle);
  Check(open.Insert("section"));
  Check(open.SingleSeek(1));
  for (int i = 0; i < kBehind; ++i) Check(open.SingleAdd("behind"));
  open.Seek(0);
  Check(open.SingleSeek(1));
  for (const std::string& line : lines) Check(open.SingleAdd(line));
  store.Close(handle);
  Check(store.Commit("benchmark"));
}

void OurStore(benchmark::State& state) {
  const auto lines = Lines(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    const Folder folder;
    vdm::VdmStore store(folder.path);
    Check(store.Replace(1, vdm::Vdm()));
    Check(store.Commit("benchmark"));
    state.ResumeTiming();
    Fill(store, 2, lines);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// A plain SQLite file with a table of rows.
class PlainFile {
 public:
  explicit PlainFile(const std::filesystem::path& folder) {
    Expect(sqlite3_open((folder / "plain.db").c_str(), &database_), SQLITE_OK);
    Run("PRAGMA synchronous=FULL; PRAGMA secure_delete=OFF;"
        "CREATE TABLE item(vdm INTEGER, record INTEGER, position INTEGER, content BLOB)");
    Expect(sqlite3_prepare_v2(database_, "INSERT INTO item VALUES(2, 0, ?1, ?2)", -1, &insert_, nullptr),
           SQLITE_OK);
  }
  ~PlainFile() {
    sqlite3_finalize(insert_);
    sqlite3_close(database_);
  }
  PlainFile(const PlainFile&) = delete;
  PlainFile& operator=(const PlainFile&) = delete;

  void Run(const char* sql) { Expect(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr), SQLITE_OK); }

  void Insert(int position, std::string_view text) {
    sqlite3_bind_int(insert_, 1, position);
    sqlite3_bind_blob(insert_, 2, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    Expect(sqlite3_step(insert_), SQLITE_DONE);
    sqlite3_reset(insert_);
  }

 private:
  void Expect(int code, int good) {
    if (code != good) throw std::runtime_error(sqlite3_errmsg(database_));
  }

  sqlite3* database_ = nullptr;
  sqlite3_stmt* insert_ = nullptr;
};

void PlainRows(benchmark::State& state) {
  const auto lines = Lines(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    const Folder folder;
    PlainFile file(folder.path);
    state.ResumeTiming();
    file.Run("BEGIN IMMEDIATE");
    int position = 0;
    for (const std::string& line : lines) file.Insert(position++, line);
    for (int i = 0; i < kBehind; ++i) file.Insert(position++, "behind");
    file.Run("COMMIT");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// A store whose VDM 1 has a record of `items` items and behind it a record of one.
class LargeStore {
 public:
  explicit LargeStore(int items) : store_(folder_.path) {
    Fill(store_, 1, Lines(items));
    const vdm::Handle handle = Get(store_.Open(1));
    store_.Find(handle)->Seek(1);
    Check(store_.Find(handle)->Insert("small"));
    store_.Close(handle);
    Check(store_.Commit("benchmark"));
  }

  /// Opens the VDM, reads the small record, lets `work` change it and closes.
  template <class Work>
  void Visit(const Work& work) {
    const vdm::Handle handle = Get(store_.Open(1));
    vdm::OpenVdm& open = *store_.Find(handle);
    open.Seek(1);
    benchmark::DoNotOptimize(Get(open.SingleGet()));
    open.Seek(1);
    work(open);
    store_.Close(handle);
    Check(store_.Commit("benchmark"));
  }

 private:
  Folder folder_;
  vdm::VdmStore store_;
};

void ReadOneItemBesideManyOthers(benchmark::State& state) {
  LargeStore store(static_cast<int>(state.range(0)));
  for (auto _ : state) store.Visit([](vdm::OpenVdm&) {});
}

void ChangeOneItemBesideManyOthers(benchmark::State& state) {
  LargeStore store(static_cast<int>(state.range(0)));
  int count = 0;
  for (auto _ : state) {
    store.Visit([&](vdm::OpenVdm& open) { Check(open.SingleReplace(std::to_string(++count))); });
  }
}

BENCHMARK(OurStore)->RangeMultiplier(10)->Range(10000, 1000000)->Iterations(7)->UseRealTime();
BENCHMARK(PlainRows)->RangeMultiplier(10)->Range(10000, 1000000)->Iterations(7)->UseRealTime();
BENCHMARK(ReadOneItemBesideManyOthers)->Arg(1000)->Arg(1000000)->UseRealTime();
BENCHMARK(ChangeOneItemBesideManyOthers)->Arg(1000)->Arg(1000000)->UseRealTime();

/// Shows the runs as usual and keeps their times, by "NAME/SIZE/...".
class KeepingReporter : public benchmark::ConsoleReporter {
 public:
  KeepingReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) times_[run.benchmark_name()] = run.GetAdjustedRealTime();
    ConsoleReporter::ReportRuns(runs);
  }

  void PrintRatios() const {
    const std::string ours = "OurStore/";
    for (const auto& [name, time] : times_) {
      if (!name.starts_with(ours)) continue;
      const auto plain = times_.find("PlainRows/" + name.substr(ours.size()));
      if (plain == times_.end()) continue;
      std::printf("ours / plain, %s: %.2f\n", name.substr(ours.size()).c_str(), time / plain->second);
    }
  }

 private:
  std::map<std::string, double> times_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  KeepingReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.PrintRatios();
}

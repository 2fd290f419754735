// A store on a PostgreSQL server beside the embedded one, and beside COPY of the same rows. Run it by
// tools/with-postgres build/dev/bin/server_store_benchmark. A bare COPY is what the server can do at most:
// the rows of records and places, as they are, into tables of the same form.

#include <libpq-fe.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>

#include "support.h"
#include "vdm/embedded/engine.h"
#include "vdm/postgres/engine.h"

namespace {

using namespace vanzet;
using namespace vanzet::benchmarks;

constexpr vdm::Number kVdm{1000};

struct Shape {
  int records, items;
};

std::string Text() {
  const char* const text = std::getenv("VANZET_TEST_POSTGRES");
  if (text == nullptr) throw std::runtime_error("run this by tools/with-postgres");
  return text;
}

vdm::Record RecordOf(int items, int number) {
  std::vector<std::string> texts;
  for (int i = 0; i < items; ++i) {
    char text[64];
    std::snprintf(text, sizeof(text), "%15.6f %15.6f %4d", i * 0.25, number * -0.125, i);
    texts.emplace_back(text);
  }
  return vdm::Record(texts);
}

vdm::Changes ContentOf(const Shape& shape) {
  vdm::Vdm content;
  for (int i = 0; i < shape.records; ++i) {
    content.Insert(content.Size(), RecordOf(shape.items, i));
  }
  vdm::Changes changes;
  changes.emplace(kVdm, std::move(content));
  return changes;
}

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(int runs, const std::function<void()>& work) {
  std::vector<double> times;
  for (int i = 0; i < runs; ++i) times.push_back(Milliseconds(work));
  std::ranges::sort(times);
  return times[times.size() / 2];
}

/// COPY in its binary form, by the library alone.
class BareCopy {
 public:
  BareCopy() : connection_(PQconnectdb(Text().c_str()), PQfinish) {
    Run("SET client_min_messages=warning");
    Run("DROP TABLE IF EXISTS bare_record, bare_place");
    Run("CREATE TABLE bare_record(LIKE vanzet.record INCLUDING ALL)");
    Run("CREATE TABLE bare_place(LIKE vanzet.place INCLUDING ALL)");
  }

  void Copy(const Shape& shape, const std::vector<std::string>& contents) {
    Run("BEGIN");
    Begin("COPY bare_record FROM STDIN BINARY");
    for (int i = 0; i < shape.records; ++i) {
      Append(std::int16_t{5});
      for (const std::int64_t column :
           {std::int64_t{1}, std::int64_t{i}, std::int64_t{shape.items}, std::int64_t{i}}) {
        AppendInteger(column);
      }
      const std::string& content = contents[static_cast<std::size_t>(i)];
      Append(static_cast<std::int32_t>(content.size()));
      bytes_ += content;
      Flush(65536);
    }
    End();
    Begin("COPY bare_place FROM STDIN BINARY");
    for (int i = 0; i < shape.records; ++i) {
      Append(std::int16_t{6});
      for (const std::int64_t column : {std::int64_t{1}, std::int64_t{1000}, INT64_MAX, std::int64_t{i},
                                        std::int64_t{1}, std::int64_t{i}}) {
        AppendInteger(column);
      }
      Flush(65536);
    }
    End();
    Run("COMMIT");
  }

 private:
  void Run(const char* sql) { Finish(PQexec(connection_.get(), sql)); }
  void Finish(PGresult* result) {
    const auto status = PQresultStatus(result);
    PQclear(result);
    if (status == PGRES_COMMAND_OK || status == PGRES_COPY_IN) return;
    throw std::runtime_error(PQerrorMessage(connection_.get()));
  }
  void Begin(const char* sql) {
    Run(sql);
    bytes_.assign("PGCOPY\n\377\r\n\0\0\0\0\0\0\0\0\0", 19);
  }
  void End() {
    Append(std::int16_t{-1});
    Flush(0);
    PQputCopyEnd(connection_.get(), nullptr);
    while (PGresult* const result = PQgetResult(connection_.get())) Finish(result);
  }
  void Flush(std::size_t least) {
    if (bytes_.size() < least) return;
    PQputCopyData(connection_.get(), bytes_.data(), static_cast<int>(bytes_.size()));
    bytes_.clear();
  }
  template <class Integer>
  void Append(Integer value) {
    for (int shift = int{sizeof value} * 8 - 8; shift >= 0; shift -= 8) {
      bytes_.push_back(static_cast<char>((static_cast<std::uint64_t>(value) >> unsigned(shift)) & 0xFFU));
    }
  }
  void AppendInteger(std::int64_t value) {
    Append(std::int32_t{8});
    Append(value);
  }

  std::unique_ptr<PGconn, decltype(&PQfinish)> connection_;
  std::string bytes_;
};

/// A new project gets the content in one commit.
double ServerTime(const vdm::Changes& changes) {
  static int projects = 0;
  const std::string occasion = "benchmark";
  vdm::PostgresEngine engine(Text(), "bulk " + std::to_string(++projects));
  Get(engine.Numbers());
  return Milliseconds([&] { Check(engine.Apply({changes, nullptr, occasion, {}})); });
}

double CopyTime(const Shape& shape, const std::vector<std::string>& contents) {
  BareCopy bare;
  return Milliseconds([&] { bare.Copy(shape, contents); });
}

/// Both by turns, so that what else the machine does concerns them alike.
void PrintBulk(const Shape& shape) {
  constexpr int kTurns = 5;
  const std::string occasion = "benchmark";
  const vdm::Changes changes = ContentOf(shape);
  std::vector<std::string> contents;
  for (int i = 0; i < shape.records; ++i) contents.push_back(vdm::BytesOf(RecordOf(shape.items, i)));
  std::vector<double> server, copy, ratios;
  for (int turn = 0; turn < kTurns; ++turn) {
    server.push_back(ServerTime(changes));
    copy.push_back(CopyTime(shape, contents));
    ratios.push_back(server.back() / copy.back());
  }
  for (auto* const times : {&server, &copy, &ratios}) std::ranges::sort(*times);
  const Folder folder;
  vdm::SqliteEngine embedded(folder.path / "store.db");
  const double file = Milliseconds([&] { Check(embedded.Apply({changes, nullptr, occasion, {}})); });
  std::printf(
      "%7d records of %2d items: server %.0f to %.0f ms, COPY %.0f to %.0f ms, ratio %.2f to %.2f, in the "
      "middle %.2f; embedded %.0f ms\n",
      shape.records, shape.items, server.front(), server.back(), copy.front(), copy.back(), ratios.front(),
      ratios.back(), ratios[kTurns / 2], file);
}

/// Opens, reads, changes a record and closes, over and over.
void PrintSmall(const char* name, vdm::StoreEngine& engine) {
  const std::string occasion = "benchmark";
  Check(engine.Apply({ContentOf({18, 60}), nullptr, occasion, {}}));
  int generation = 0;
  const double open = Median(201, [&] {
    const auto opened = Get(engine.Open(kVdm));
    for (std::size_t i = 0; i < opened->Size(); ++i) Get(opened->Read(i));
  });
  const double close = Median(201, [&] {
    vdm::Changes changes;
    auto& content = changes[kVdm].emplace(std::move(*Get(engine.Open(kVdm))));
    (*Get(content.Edit(3)))[0] = "changed by " + std::to_string(++generation);
    Check(engine.Apply({changes, nullptr, occasion, {}}));
  });
  std::printf("%-8s open and read %.2f ms, open, change and close %.2f ms\n", name, open, close);
}

}  // namespace

int main() {
  const Folder folder;
  vdm::PostgresEngine server(Text(), "small");
  vdm::SqliteEngine embedded(folder.path / "store.db");
  PrintSmall("server", server);
  PrintSmall("embedded", embedded);
  PrintBulk({16'667, 60});
  PrintBulk({1'000'000, 1});
}

#include "vdm/commit_writer.h"

#include <algorithm>
#include <unordered_set>

#include "vdm/commit_origin.h"
#include "vdm/store_schema.h"

namespace vanzet::vdm {
namespace {

/// The last generation of rows that hold now.
constexpr std::int64_t kNow = INT64_MAX;

constexpr std::string_view kNextGeneration = "SELECT coalesce(max(number), 0) + 1 FROM generation";
constexpr std::string_view kForgetGenerations = "DELETE FROM generation";
constexpr std::string_view kAddGeneration = "INSERT INTO generation VALUES(?1, ?2, ?3, ?4, ?5, ?6)";
constexpr std::string_view kSetVdm = "INSERT OR REPLACE INTO vdm(number, last, first) VALUES(?1, ?2, ?3)";
constexpr std::string_view kRemoveVdm = "DELETE FROM vdm WHERE number=?1 AND last=?2";
constexpr std::string_view kAddPlace =
    "INSERT INTO place(vdm, last, position, first, record) VALUES(?1, ?2, ?3, ?4, ?5)";
constexpr std::string_view kRemovePlaces = "DELETE FROM place WHERE vdm=?1 AND last=?2 AND position>=?3";
constexpr std::string_view kAddRecord = "INSERT INTO record(items, content, checksum) VALUES(?1, ?2, ?3)";
constexpr std::string_view kChangeRecord = "UPDATE record SET items=?2, content=?3, checksum=?4 WHERE key=?1";
constexpr std::string_view kRemoveRecord = "DELETE FROM record WHERE key=?1";
constexpr std::string_view kSetFile = "INSERT OR REPLACE INTO file(name, former, content) VALUES(?1, ?2, ?3)";

std::int64_t Bound(Number number) {
  return static_cast<std::int64_t>(number);
}

std::int64_t Bound(RecordKey key) {
  return static_cast<std::int64_t>(key);
}

}  // namespace

Result<CommitWriter> CommitWriter::Begin(SqliteConnection& connection, const std::string& occasion) {
  using Text = SqliteConnection::Text;
  VANZET_TRY(const auto generation, connection.Integer(kNextGeneration));
  VANZET_DO(connection.Run(kForgetGenerations));
  const CommitOrigin origin = OriginOfProcess();
  VANZET_DO(connection.Run(kAddGeneration, {generation, Text{TimeText()}, Text{origin.user},
                                            Text{origin.host}, Text{origin.program}, Text{occasion}}));
  return CommitWriter(connection, generation);
}

Result<void> CommitWriter::Write(Number number, const Vdm& content, const std::vector<RecordKey>& before) {
  VANZET_TRY(const auto after, WriteRecords(content));
  VANZET_DO(connection_.Run(kSetVdm, {Bound(number), kNow, generation_}));
  return ChangeOrder(number, before, after);
}

Result<void> CommitWriter::Remove(Number number, const std::vector<RecordKey>& before) {
  VANZET_DO(ChangeOrder(number, before, {}));
  return connection_.Run(kRemoveVdm, {Bound(number), kNow});
}

Result<void> CommitWriter::Write(const TextFile& file) {
  const auto former = [&]() -> SqliteConnection::Value {
    if (!file.former) return std::monostate();
    return static_cast<std::int64_t>(*file.former);
  }();
  return connection_.Run(kSetFile,
                         {SqliteConnection::Text{file.name}, former, std::string_view(file.content)});
}

Result<std::vector<RecordKey>> CommitWriter::WriteRecords(const Vdm& content) {
  std::vector<RecordKey> keys;
  keys.reserve(content.Size());
  for (std::size_t i = 0; i < content.Size(); ++i) {
    const Vdm::Entry& entry = content.EntryOf(i);
    if (entry.MustBeWritten()) {
      const std::string bytes = BytesOf(*entry.content);
      const auto items = static_cast<std::int64_t>(entry.content->Size());
      const std::int64_t sum = StoredChecksum(bytes);
      const std::string_view stored = bytes;
      VANZET_DO(entry.key ? connection_.Run(kChangeRecord, {Bound(*entry.key), items, stored, sum})
                          : connection_.Run(kAddRecord, {items, stored, sum}));
    }
    keys.push_back(entry.key.value_or(RecordKey{connection_.LastKey()}));
  }
  return keys;
}

Result<void> CommitWriter::ChangeOrder(Number number, const std::vector<RecordKey>& before,
                                       const std::vector<RecordKey>& after) {
  // Only the rows from the first difference on are touched: adding at the end of many records is cheap.
  const auto [oldRest, newRest] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  if (oldRest != before.end()) {
    const std::int64_t first = oldRest - before.begin();
    VANZET_DO(connection_.Run(kRemovePlaces, {Bound(number), kNow, first}));
  }
  for (auto key = newRest; key != after.end(); ++key) {
    const std::int64_t position = key - after.begin();
    VANZET_DO(connection_.Run(kAddPlace, {Bound(number), kNow, position, generation_, Bound(*key)}));
  }
  const std::unordered_set<RecordKey> kept(newRest, after.end());
  for (auto key = oldRest; key != before.end(); ++key) {
    if (kept.contains(*key)) continue;
    VANZET_DO(connection_.Run(kRemoveRecord, {Bound(*key)}));
  }
  return {};
}

}  // namespace vanzet::vdm

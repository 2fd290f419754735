#include "vdm/embedded/commit_writer.h"

#include <algorithm>

#include "vdm/commit_origin.h"
#include "vdm/embedded/schema.h"
#include "vdm/record_row.h"

namespace vanzet::vdm {
namespace {

constexpr std::string_view kNextGeneration = "SELECT coalesce(max(number), 0) + 1 FROM generation";
constexpr std::string_view kAddGeneration = "INSERT INTO generation VALUES(?1, ?2, ?3, ?4, ?5, ?6)";
constexpr std::string_view kEndVdm = "UPDATE vdm SET last=?2 WHERE number=?1 AND last=?3";
constexpr std::string_view kAddVdm = "INSERT OR REPLACE INTO vdm(number, last, first) VALUES(?1, ?2, ?3)";
constexpr std::string_view kAddPlace =
    "INSERT INTO place(vdm, last, position, first, record) VALUES(?1, ?2, ?3, ?4, ?5)";
constexpr std::string_view kEndPlace = "UPDATE place SET last=?2 WHERE vdm=?1 AND last=?3 AND position=?4";
constexpr std::string_view kAddRecord = "INSERT INTO record(items, content, checksum) VALUES(?1, ?2, ?3)";
constexpr std::string_view kSetFile = "INSERT OR REPLACE INTO file(name, former, content) VALUES(?1, ?2, ?3)";

std::int64_t Bound(Number number) {
  return static_cast<std::int64_t>(number);
}

std::int64_t Bound(RecordKey key) {
  return static_cast<std::int64_t>(key);
}

}  // namespace

Result<CommitWriter> CommitWriter::Begin(SqliteConnection& connection, const std::string& occasion) {
  VANZET_TRY(const auto number, connection.Integer(kNextGeneration));
  const CommitOrigin origin = OriginOfProcess();
  return Begin(connection,
               Generation{number, TimeText(), origin.user, origin.host, origin.program, occasion});
}

Result<CommitWriter> CommitWriter::Begin(SqliteConnection& connection, const Generation& generation) {
  using Text = SqliteConnection::Text;
  VANZET_DO(connection.Run(
      kAddGeneration, {generation.number, Text{generation.time}, Text{generation.user}, Text{generation.host},
                       Text{generation.program}, Text{generation.occasion}}));
  return CommitWriter(connection, generation.number);
}

Result<void> CommitWriter::Write(Number number, const Vdm& content, const std::vector<RecordKey>& before) {
  VANZET_TRY(const auto after, WriteRecords(content, before));
  VANZET_DO(connection_.Run(kEndVdm, {Bound(number), generation_ - 1, kNow}));
  VANZET_DO(connection_.Run(kAddVdm, {Bound(number), kNow, generation_}));
  return ChangeOrder(number, before, after);
}

Result<void> CommitWriter::Remove(Number number, const std::vector<RecordKey>& before) {
  VANZET_DO(ChangeOrder(number, before, {}));
  return connection_.Run(kEndVdm, {Bound(number), generation_ - 1, kNow});
}

Result<void> CommitWriter::Cut(Number number) {
  return connection_.Run(kAddVdm, {Bound(number), generation_ - 1, std::int64_t{0}});
}

Result<void> CommitWriter::Write(const TextFile& file) {
  const auto former = [&]() -> SqliteConnection::Value {
    if (!file.former) return std::monostate();
    return static_cast<std::int64_t>(*file.former);
  }();
  return connection_.Run(kSetFile,
                         {SqliteConnection::Text{file.name}, former, std::string_view(file.content)});
}

Result<std::vector<RecordKey>> CommitWriter::WriteRecords(const Vdm& content,
                                                          const std::vector<RecordKey>& before) {
  FormerRecords former(connection_, content, before);
  std::vector<RecordKey> keys;
  keys.reserve(content.Size());
  for (std::size_t i = 0; i < content.Size(); ++i) {
    VANZET_TRY(const auto key, WriteRecord(content.EntryOf(i), former));
    keys.push_back(key);
  }
  return keys;
}

Result<RecordKey> CommitWriter::WriteRecord(const Vdm::Entry& entry, FormerRecords& former) {
  if (!entry.MustBeWritten()) return *entry.key;
  const std::string bytes = BytesOf(*entry.content);
  const StoredBytes record{bytes, static_cast<std::int64_t>(entry.content->Size()), StoredChecksum(bytes)};
  if (entry.key) {
    VANZET_TRY(const bool isAsBefore, former.Holds(*entry.key, record));
    if (isAsBefore) return *entry.key;
  } else {
    VANZET_TRY(const auto found, former.Take(record));
    if (found) return *found;
  }
  VANZET_DO(connection_.Run(kAddRecord, {record.items, record.content, record.checksum}));
  return RecordKey{connection_.LastKey()};
}

Result<void> CommitWriter::ChangeOrder(Number number, const std::vector<RecordKey>& before,
                                       const std::vector<RecordKey>& after) {
  for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
    const bool isNow = i < after.size(), wasBefore = i < before.size();
    if (isNow && wasBefore && before[i] == after[i]) continue;
    const auto position = static_cast<std::int64_t>(i);
    if (wasBefore) VANZET_DO(connection_.Run(kEndPlace, {Bound(number), generation_ - 1, kNow, position}));
    if (isNow) {
      VANZET_DO(connection_.Run(kAddPlace, {Bound(number), kNow, position, generation_, Bound(after[i])}));
    }
  }
  return {};
}

}  // namespace vanzet::vdm

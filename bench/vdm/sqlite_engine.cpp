#include "vdm/sqlite_engine.h"

#include <algorithm>
#include <unordered_set>

#include "base/files/whole_file.h"

namespace vanzet::vdm {
namespace {

using IfMissing = SqliteConnection::IfMissing;
using Kind = SqliteTransaction::Kind;

/// The form of `store.db` that this version writes. Source: docs/formats/store.md
constexpr std::int64_t kStoreSchema = 1;

constexpr std::int64_t kApplication = 1986951796;  // the bytes of "vnzt"
static_assert(kApplication == 0x766E7A74);

constexpr std::string_view kMakeTables[] = {
    "PRAGMA application_id=1986951796",
    "PRAGMA user_version=1",
    "CREATE TABLE vdm(number INTEGER PRIMARY KEY)",
    R"(CREATE TABLE place(vdm INTEGER NOT NULL, position INTEGER NOT NULL, record INTEGER NOT NULL,
                       PRIMARY KEY(vdm, position)) WITHOUT ROWID)",
    "CREATE TABLE record(key INTEGER PRIMARY KEY, items INTEGER NOT NULL, content BLOB NOT NULL)",
};

constexpr std::string_view kNumbers = "SELECT number FROM vdm ORDER BY number";
constexpr std::string_view kExists = "SELECT 1 FROM vdm WHERE number=?1";
constexpr std::string_view kAddVdm = "INSERT OR IGNORE INTO vdm VALUES(?1)";
constexpr std::string_view kRemoveVdm = "DELETE FROM vdm WHERE number=?1";
constexpr std::string_view kPlaces = "SELECT position, record FROM place WHERE vdm=?1 ORDER BY position";
constexpr std::string_view kAddPlace = "INSERT INTO place VALUES(?1, ?2, ?3)";
constexpr std::string_view kRemovePlaces = "DELETE FROM place WHERE vdm=?1 AND position>=?2";
constexpr std::string_view kRecord = "SELECT items, content FROM record WHERE key=?1";
constexpr std::string_view kAddRecord = "INSERT INTO record(items, content) VALUES(?1, ?2)";
constexpr std::string_view kChangeRecord = "UPDATE record SET items=?2, content=?3 WHERE key=?1";
constexpr std::string_view kRemoveRecord = "DELETE FROM record WHERE key=?1";

std::int64_t Bound(Number number) {
  return static_cast<std::int64_t>(number);
}

std::int64_t Bound(RecordKey key) {
  return static_cast<std::int64_t>(key);
}

/// True when the file holds our tables, false when it is empty. Fails when another program or a newer version
/// of this one made it. Requires: a transaction, so that the answer stays true.
Result<bool> HasTables(SqliteConnection& connection) {
  VANZET_TRY(const auto application, connection.Integer("PRAGMA application_id"));
  VANZET_TRY(const auto schema, connection.Integer("PRAGMA user_version"));
  VANZET_TRY(const auto tables, connection.Integer("SELECT count(*) FROM sqlite_schema"));
  if (application == 0 && schema == 0 && tables == 0) return false;
  if (application != kApplication) return connection.FaultOf("is a database of another program");
  if (schema > kStoreSchema) {
    return connection.FaultOf("belongs to a newer version: it has schema " + std::to_string(schema) +
                              ", this version knows " + std::to_string(kStoreSchema));
  }
  if (schema < kStoreSchema) {
    return connection.DamageOf("unknown schema " + std::to_string(schema));
  }
  return true;
}

/// Creates our tables in an empty file. Requires: a transaction for writing.
Result<void> MakeTables(SqliteConnection& connection) {
  for (const std::string_view sql : kMakeTables) {
    VANZET_DO(connection.Run(sql));
  }
  return {};
}

/// The one record with that key.
Result<Record> LoadRecord(SqliteConnection& connection, Number number, RecordKey key) {
  const auto damage = [&](const std::string& what) {
    return connection.DamageOf("record " + std::to_string(Bound(key)) + ", of " + NameOf(number) + ": " +
                               what);
  };
  std::optional<Record> record;
  const auto done = connection.Run(kRecord, {Bound(key)}, [&](const SqliteRow& row) -> Result<void> {
    auto read = RecordFrom(row.Bytes(1), row.Integer(0));
    if (!read) return damage(read.fault().text);
    record = std::move(*read);
    return {};
  });
  if (!done) return done.fault();
  if (!record) return damage("it is missing");
  return std::move(*record);
}

/// True when all records that `content` left in the store are among `keys`.
bool IsOpenedFrom(const std::vector<RecordKey>& keys, const Vdm& content) {
  const std::unordered_set<RecordKey> known(keys.begin(), keys.end());
  for (std::size_t i = 0; i < content.Size(); ++i) {
    const auto key = content.EntryOf(i).key;
    if (key && !known.contains(*key)) return false;
  }
  return true;
}

}  // namespace

Result<std::vector<Number>> SqliteEngine::Numbers() {
  VANZET_TRY(const auto reading, BeginReading());
  std::vector<Number> numbers;
  if (!reading) return numbers;
  const auto done = connection_->Run(kNumbers, {}, [&](const SqliteRow& row) -> Result<void> {
    const auto number = NumberFrom(row.Integer(0));
    if (!number) return connection_->DamageOf(number.fault().text);
    numbers.push_back(*number);
    return {};
  });
  if (!done) return done.fault();
  return numbers;
}

Result<bool> SqliteEngine::Exists(Number number) {
  VANZET_TRY(const auto reading, BeginReading());
  if (!reading) return false;
  VANZET_TRY(const auto found, connection_->Integer(kExists, {Bound(number)}));
  return found != 0;
}

Result<std::optional<Vdm>> SqliteEngine::Open(Number number) {
  VANZET_TRY(const auto reading, BeginReading());
  if (!reading) return std::optional<Vdm>();
  return Stored(number);
}

Result<std::optional<Vdm>> SqliteEngine::Read(Number number) {
  // One transaction around the order and all records, so that nobody writes between them.
  VANZET_TRY(const auto reading, BeginReading());
  if (!reading) return std::optional<Vdm>();
  VANZET_TRY(const auto stored, Stored(number));
  if (!stored) return std::optional<Vdm>();
  VANZET_TRY(auto copy, stored->Copy());
  return std::optional<Vdm>(std::move(copy));
}

Result<void> SqliteEngine::Write(Number number, const Vdm& content) {
  VANZET_TRY(auto writing, BeginWriting());
  VANZET_TRY(const auto before, KeysOf(number));
  if (!IsOpenedFrom(before, content)) {
    return connection_->FaultOf(NameOf(number) + " was changed by others while it was open");
  }
  VANZET_TRY(const auto after, WriteRecords(content));
  VANZET_DO(connection_->Run(kAddVdm, {Bound(number)}));
  VANZET_DO(ChangeOrder(number, before, after));
  return writing.Commit();
}

Result<void> SqliteEngine::Remove(Number number) {
  VANZET_TRY(const auto there, Exists(number));
  if (!there) return {};
  VANZET_TRY(auto writing, BeginWriting());
  VANZET_TRY(const auto keys, KeysOf(number));
  VANZET_DO(ChangeOrder(number, keys, {}));
  VANZET_DO(connection_->Run(kRemoveVdm, {Bound(number)}));
  return writing.Commit();
}

Result<bool> SqliteEngine::Connect(IfMissing ifMissing) {
  if (connection_ != nullptr && connection_->HasMoved()) connection_.reset();
  if (connection_ != nullptr) return true;
  std::error_code unknown;
  if (ifMissing == IfMissing::kFail && !std::filesystem::exists(file_, unknown)) return false;
  VANZET_TRY(const auto opened, SqliteConnection::Open(file_, ifMissing, options_));
  connection_ = opened;
  return true;
}

Result<std::optional<SqliteTransaction>> SqliteEngine::BeginReading() {
  VANZET_TRY(const auto connected, Connect(IfMissing::kFail));
  if (!connected) return std::optional<SqliteTransaction>();
  VANZET_TRY(auto transaction, SqliteTransaction::Begin(*connection_, Kind::kRead));
  VANZET_TRY(const auto made, HasTables(*connection_));
  if (!made) return std::optional<SqliteTransaction>();
  return std::optional<SqliteTransaction>(std::move(transaction));
}

Result<SqliteTransaction> SqliteEngine::BeginWriting() {
  if (files::IsReadOnly(file_))
    return Fault{.text = "is read-only", .file = file_.string(), .kind = FaultKind::kSystem};
  VANZET_DO(Connect(IfMissing::kMake));
  VANZET_TRY(auto transaction, SqliteTransaction::Begin(*connection_, Kind::kWrite));
  VANZET_TRY(const auto made, HasTables(*connection_));
  if (!made) {
    VANZET_DO(MakeTables(*connection_));
  }
  return transaction;
}

Result<std::optional<Vdm>> SqliteEngine::Stored(Number number) {
  VANZET_TRY(const auto found, connection_->Integer(kExists, {Bound(number)}));
  if (found == 0) return std::optional<Vdm>();
  VANZET_TRY(const auto keys, KeysOf(number));
  return std::optional<Vdm>(Vdm(keys, [connection = connection_, number](RecordKey key) {
    return LoadRecord(*connection, number, key);
  }));
}

Result<std::vector<RecordKey>> SqliteEngine::KeysOf(Number number) {
  std::vector<RecordKey> keys;
  const auto done = connection_->Run(kPlaces, {Bound(number)}, [&](const SqliteRow& row) -> Result<void> {
    if (row.Integer(0) != static_cast<std::int64_t>(keys.size())) {
      return connection_->DamageOf(NameOf(number) + " has no record " + std::to_string(keys.size()));
    }
    keys.push_back(RecordKey{row.Integer(1)});
    return {};
  });
  if (!done) return done.fault();
  return keys;
}

Result<std::vector<RecordKey>> SqliteEngine::WriteRecords(const Vdm& content) {
  std::vector<RecordKey> keys;
  keys.reserve(content.Size());
  for (std::size_t i = 0; i < content.Size(); ++i) {
    const Vdm::Entry& entry = content.EntryOf(i);
    if (entry.MustBeWritten()) {
      const std::string bytes = BytesOf(*entry.content);
      const auto items = static_cast<std::int64_t>(entry.content->Size());
      VANZET_DO(entry.key ? connection_->Run(kChangeRecord, {Bound(*entry.key), items, bytes})
                          : connection_->Run(kAddRecord, {items, bytes}));
    }
    keys.push_back(entry.key.value_or(RecordKey{connection_->LastKey()}));
  }
  return keys;
}

Result<void> SqliteEngine::ChangeOrder(Number number, const std::vector<RecordKey>& before,
                                       const std::vector<RecordKey>& after) {
  // Only the rows from the first difference on are touched: adding at the end of many records is cheap.
  const auto [oldRest, newRest] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  if (oldRest != before.end()) {
    const std::int64_t first = oldRest - before.begin();
    VANZET_DO(connection_->Run(kRemovePlaces, {Bound(number), first}));
  }
  for (auto key = newRest; key != after.end(); ++key) {
    const std::int64_t position = key - after.begin();
    VANZET_DO(connection_->Run(kAddPlace, {Bound(number), position, Bound(*key)}));
  }
  const std::unordered_set<RecordKey> kept(newRest, after.end());
  for (auto key = oldRest; key != before.end(); ++key) {
    if (kept.contains(*key)) continue;
    VANZET_DO(connection_->Run(kRemoveRecord, {Bound(*key)}));
  }
  return {};
}

}  // namespace vanzet::vdm

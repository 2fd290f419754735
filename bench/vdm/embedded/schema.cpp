#include "vdm/embedded/schema.h"

#include <span>

#include "vdm/record_row.h"

namespace vanzet::vdm {
namespace {

constexpr std::int64_t kApplication = 1986951796;  // the bytes of "vnzt"
static_assert(kApplication == 0x766E7A74);

// A row of `vdm` and `place` holds for the generations from `first` to `last`; in the current one `last` is
// the largest integer. A row of `vdm` with `first` 0 is in the place of states that are no longer kept.
constexpr std::string_view kMakeTables[] = {
    "PRAGMA application_id=1986951796",
    "PRAGMA user_version=2",
    R"(CREATE TABLE generation(number INTEGER PRIMARY KEY, time TEXT NOT NULL, user TEXT NOT NULL,
                            host TEXT NOT NULL, program TEXT NOT NULL, occasion TEXT NOT NULL))",
    R"(CREATE TABLE vdm(number INTEGER NOT NULL, last INTEGER NOT NULL, first INTEGER NOT NULL,
                     PRIMARY KEY(number, last)) WITHOUT ROWID)",
    R"(CREATE TABLE place(vdm INTEGER NOT NULL, last INTEGER NOT NULL, position INTEGER NOT NULL,
                       first INTEGER NOT NULL, record INTEGER NOT NULL,
                       PRIMARY KEY(vdm, last, position)) WITHOUT ROWID)",
    R"(CREATE TABLE record(key INTEGER PRIMARY KEY, items INTEGER NOT NULL, content BLOB NOT NULL,
                        checksum INTEGER NOT NULL))",
    "CREATE TABLE file(name TEXT PRIMARY KEY, former INTEGER, content BLOB NOT NULL) WITHOUT ROWID",
};

constexpr std::string_view kSetFirstTablesAside[] = {
    "ALTER TABLE vdm RENAME TO vdm1",
    "ALTER TABLE place RENAME TO place1",
    "ALTER TABLE record RENAME TO record1",
};

constexpr std::string_view kTakeOverFirstTables[] = {
    "INSERT INTO generation VALUES(1, strftime('%Y-%m-%dT%H:%M:%SZ', 'now'), '?', '?', '?', 'migration')",
    "INSERT INTO vdm SELECT number, 9223372036854775807, 1 FROM vdm1",
    "INSERT INTO place SELECT vdm, 9223372036854775807, position, 1, record FROM place1",
    "INSERT INTO record SELECT key, items, content, checksum(content) FROM record1",
    "DROP TABLE vdm1",
    "DROP TABLE place1",
    "DROP TABLE record1",
};

constexpr StoreQueries kQueries[] = {
    {.numbers = "SELECT number FROM vdm ORDER BY number",
     .exists = "SELECT 1 FROM vdm WHERE number=?1",
     .places = "SELECT position, record FROM place WHERE vdm=?1 ORDER BY position",
     .record = "SELECT items, content, NULL FROM record WHERE key=?1",
     .head = "SELECT items, substr(content, 1, ?2), NULL, length(content) FROM record WHERE key=?1"},
    // The first row of each number is found by the index, however many rows it has.
    {.numbers = R"(WITH RECURSIVE known(number) AS (
                     SELECT min(number) FROM vdm
                     UNION ALL
                     SELECT (SELECT min(number) FROM vdm WHERE number>known.number) FROM known
                     WHERE known.number IS NOT NULL)
                   SELECT number FROM known WHERE number IS NOT NULL AND EXISTS(
                     SELECT 1 FROM vdm WHERE vdm.number=known.number AND last=9223372036854775807))",
     .exists = "SELECT 1 FROM vdm WHERE number=?1 AND last=9223372036854775807",
     .places =
         "SELECT position, record FROM place WHERE vdm=?1 AND last=9223372036854775807 ORDER BY position",
     .record = "SELECT items, content, checksum FROM record WHERE key=?1",
     .head = "SELECT items, substr(content, 1, ?2), checksum, length(content) FROM record WHERE key=?1"},
};

Result<void> RunAll(SqliteConnection& connection, std::span<const std::string_view> statements) {
  for (const std::string_view sql : statements) VANZET_DO(connection.Run(sql));
  return {};
}

}  // namespace

Result<std::int64_t> SchemaOf(SqliteConnection& connection) {
  VANZET_TRY(const auto application, connection.Integer("PRAGMA application_id"));
  VANZET_TRY(const auto schema, connection.Integer("PRAGMA user_version"));
  VANZET_TRY(const auto tables, connection.Integer("SELECT count(*) FROM sqlite_schema"));
  if (application == 0 && schema == 0 && tables == 0) return std::int64_t{0};
  if (application != kApplication) return connection.FaultOf("is a database of another program");
  if (schema > kStoreSchema) {
    return connection.FaultOf("belongs to a newer version: it has schema " + std::to_string(schema) +
                              ", this version knows " + std::to_string(kStoreSchema));
  }
  if (schema < 1) return connection.DamageOf("unknown schema " + std::to_string(schema));
  return schema;
}

const StoreQueries& QueriesOf(std::int64_t schema) {
  return kQueries[schema - 1];
}

Result<void> BringToCurrentSchema(SqliteConnection& connection) {
  VANZET_TRY(const auto schema, SchemaOf(connection));
  if (schema == kStoreSchema) return {};
  if (schema == 0) return RunAll(connection, kMakeTables);
  VANZET_DO(connection.AddFunction("checksum", StoredChecksum));
  VANZET_DO(RunAll(connection, kSetFirstTablesAside));
  VANZET_DO(RunAll(connection, kMakeTables));
  return RunAll(connection, kTakeOverFirstTables);
}

}  // namespace vanzet::vdm

#include "vdm/sqlite_schema.h"

namespace vanzet::vdm {
namespace {

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

}  // namespace

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
    return connection.FaultOf("is damaged: there is no schema " + std::to_string(schema));
  }
  return true;
}

Result<void> MakeTables(SqliteConnection& connection) {
  for (const std::string_view sql : kMakeTables) {
    VANZET_DO(connection.Run(sql));
  }
  return {};
}

}  // namespace vanzet::vdm

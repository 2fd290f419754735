#include "vdm/postgres/schema.h"

#include <algorithm>
#include <string>

namespace vanzet::vdm {
namespace {

constexpr std::string_view kIsMade = "SELECT (to_regclass('vanzet.schema') IS NOT NULL)::int::bigint";
constexpr std::string_view kForeignTables =
    "SELECT count(*) FROM pg_class WHERE relnamespace = to_regnamespace('vanzet')";

// The columns are those of the embedded store, docs/formats/store.md, with the project before them. There are
// no foreign keys: each would be asked for every record.
constexpr std::string_view kMakeTables[] = {
    "CREATE SCHEMA IF NOT EXISTS vanzet",
    "CREATE TABLE vanzet.schema(version bigint NOT NULL)",
    "INSERT INTO vanzet.schema VALUES(1)",
    R"(CREATE TABLE vanzet.project(id bigint GENERATED ALWAYS AS IDENTITY PRIMARY KEY, name text NOT NULL UNIQUE,
                                   last_generation bigint NOT NULL DEFAULT 0,
                                   last_record bigint NOT NULL DEFAULT 0))",
    R"(CREATE TABLE vanzet.generation(project bigint NOT NULL, number bigint NOT NULL, time text NOT NULL,
                                      "user" text NOT NULL, host text NOT NULL, program text NOT NULL,
                                      occasion text NOT NULL, token bytea NOT NULL,
                                      PRIMARY KEY(project, number)))",
    R"(CREATE TABLE vanzet.vdm(project bigint NOT NULL, number bigint NOT NULL, last bigint NOT NULL,
                               first bigint NOT NULL, PRIMARY KEY(project, number, last)))",
    R"(CREATE TABLE vanzet.place(project bigint NOT NULL, vdm bigint NOT NULL, last bigint NOT NULL,
                                 position bigint NOT NULL, first bigint NOT NULL, record bigint NOT NULL,
                                 PRIMARY KEY(project, vdm, last, position)))",
    R"(CREATE TABLE vanzet.record(project bigint NOT NULL, key bigint NOT NULL, items bigint NOT NULL,
                                  checksum bigint NOT NULL, content bytea NOT NULL,
                                  PRIMARY KEY(project, key)))",
    R"(CREATE TABLE vanzet.file(project bigint NOT NULL, folder text NOT NULL, name text NOT NULL,
                                former bigint, content bytea NOT NULL, PRIMARY KEY(project, folder)))",
    kMakeDevices,
    kMakeDeviceIndex,
};

Result<void> MakeInTransaction(PostgresConnection& connection) {
  VANZET_TRY(const auto found, connection.Run({{"BEGIN"}, {kLockMaking}, {kIsMade}, {kForeignTables}}));
  if (found[2].Integer(0, 0) != 0) return {};
  if (found[3].Integer(0, 0) != 0) {
    return connection.FaultOf("its schema 'vanzet' belongs to another program");
  }
  std::vector<PostgresStatement> statements;
  for (const std::string_view sql : kMakeTables) statements.push_back({sql});
  statements.push_back({"COMMIT"});
  VANZET_DO(connection.Run(statements));
  return {};
}

}  // namespace

bool HasNoTables(const PostgresConnection& connection) {
  return connection.lastState() == "42P01" || connection.lastState() == "3F000";
}

Result<void> CheckServerSchema(const PostgresConnection& connection, const PostgresRows& rows) {
  if (rows.Size() != 1) return connection.DamageOf("its table vanzet.schema does not have one row");
  const std::int64_t schema = rows.Integer(0, 0);
  if (schema == kServerSchema) return {};
  if (schema < kServerSchema) return connection.DamageOf("unknown schema " + std::to_string(schema));
  return connection.FaultOf("belongs to a newer version: it has schema " + std::to_string(schema) +
                            ", this version knows " + std::to_string(kServerSchema));
}

Result<void> MakeServerTables(PostgresConnection& connection) {
  const auto made = MakeInTransaction(connection);
  connection.RollBack();
  return made;
}

}  // namespace vanzet::vdm
